// What a conversion loses, and where: before it is too late.
#include <qxTools/base/CodePage950.h>
#include <qxTools/encoding/CVCode.h>

#include <cstdio>
#include <iostream>

using namespace qxTools;

namespace {

/// Whether code page 950 has all characters of the text.
bool FitsCodePage950(const std::string& utf8) { return BytesToUtf8(Utf8ToBytes(utf8)) == utf8; }

}  // namespace

int main() {
  const std::string known = "\xE9\x99\xB3";    // 陳
  const std::string unknown = "\xE5\xA0\x83";  // 堃
  std::cout << known << " " << FitsCodePage950(known) << ", " << unknown << " " << FitsCodePage950(unknown)
            << " (becomes " << Utf8ToBytes(unknown) << ")\n";

  // Between GB2312 and BIG5 each character without a counterpart is reported with its place, and becomes two
  // spaces.
  CVCode::TConverter converter(CVCode::drBIG5toGB, [](std::uint64_t offset, std::uint16_t code) {
    std::printf("byte %u: %04X has no counterpart\n", static_cast<unsigned>(offset), unsigned{code});
  });
  std::string text = converter.Convert("A\xA1\x40\xA4\xA4");  // an ideographic space, 中
  text += converter.Finish();
  std::printf("%zu bytes\n", text.size());
}
