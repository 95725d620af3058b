// Chinese text between the two sets and UTF-8, and record keys.
#include <qxTools/base/CodePage950.h>
#include <qxTools/encoding/CVCode.h>
#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/platform/Clock.h>

#include <iostream>

using namespace qxTools;

namespace {

// Keys hold the moment; with a clock that stands still only the drawn numbers differ.
class StoppedClock : public ClockSource {
 public:
  TDateTime Now() override { return 45356.5; }
};

}  // namespace

int main() {
  // GB2312 simplified to BIG5 traditional: another script, and other bytes.
  const std::string simplified = "\xBB\xFA\xC6\xF7";  // 机器
  const std::string traditional = CVCode::GBtoBIG5(simplified);
  std::cout << BytesToUtf8(traditional)
            << ", back the same: " << (CVCode::BIG5toGB(traditional) == simplified) << "\n";

  // Text in pieces, cut inside a character; what has no counterpart is told of.
  CVCode::TConverter converter(CVCode::drBIG5toGB, [](std::uint64_t offset, std::uint16_t code) {
    std::cout << "no counterpart at " << offset << ": " << std::hex << code << std::dec << "\n";
  });
  std::string converted = converter.Convert("A\xC9");
  converted += converter.Convert("\x40");  // 乂
  converted += converter.Finish();
  std::cout << "[" << converted << "]\n";

  // The same characters in another encoding.
  std::cout << Utf8ToBytes(BytesToUtf8(traditional)).size() << " bytes, " << BytesToWide(traditional).size()
            << " wide characters\n";

  StoppedClock clock;
  SetClockSource(&clock);
  const AnsiString key = QXUniKey::UniKey("0123456789AB");
  std::cout << "a key of " << key.size()
            << ", another one differs: " << (key != QXUniKey::UniKey("0123456789AB")) << ", as digits "
            << QXUniKey::UniKey16To32(key).size() << "\n";
  SetClockSource(nullptr);
}
