// Both converters: character by character as the scan is worded, and in pieces.
#include <qxTools/encoding/CVCode.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
using namespace CVCode;

std::string Whole(TDirection direction, std::string_view text) {
  return direction == drGBtoBIG5 ? GBtoBIG5(text) : BIG5toGB(text);
}

bool IsPair(TDirection direction, unsigned first, unsigned second) {
  if (direction == drGBtoBIG5) {
    const int index = (static_cast<int>(first) - 0xA1) * 94 + static_cast<int>(second) - 0xA1;
    return index >= 0 && index <= 8177;
  }
  const bool trail = (second >= 0x40 && second <= 0x7E) || (second >= 0xA1 && second <= 0xFE);
  return first >= 0xA1 && first <= 0xFE && trail;
}

void CheckScan(TDirection direction, const std::string& text) {
  std::string expected;
  for (std::size_t i = 0; i < text.size();) {
    const bool last = i + 1 == text.size();
    const auto first = static_cast<unsigned char>(text[i]);
    const unsigned second = last ? 0 : static_cast<unsigned char>(text[i + 1]);
    const bool pair = IsPair(direction, first, second);
    const std::string_view taken = std::string_view(text).substr(i, pair ? 2 : 1);
    FUZZ_CHECK(!pair || Whole(direction, taken).size() == 2);
    expected += pair ? Whole(direction, taken) : std::string(taken);
    i += taken.size();
  }
  FUZZ_CHECK(Whole(direction, text) == expected);
}

}  // namespace

FUZZ_TARGET(GbBig5) {
  const TDirection direction = input.Bit() ? drGBtoBIG5 : drBIG5toGB;
  std::size_t lengths[8];
  for (std::size_t& length : lengths) length = input.Byte();
  const std::string text = input.Rest(20000);
  CheckScan(direction, text);

  std::string converted;
  std::size_t missing = 0;
  TConverter converter(direction, [&](std::uint64_t offset, std::uint16_t code) {
    FUZZ_CHECK(offset < text.size() &&
               static_cast<unsigned char>(text[static_cast<std::size_t>(offset)]) == code >> 8);
    ++missing;
  });
  std::size_t start = 0;
  for (std::size_t i = 0; start < text.size(); ++i) {
    const std::size_t length = i < 8 ? lengths[i] : text.size();
    converted += converter.Convert(std::string_view(text).substr(start, length));
    start = std::min(start + length, text.size());
  }
  converted += converter.Finish();
  FUZZ_CHECK(converted == Whole(direction, text));
  FUZZ_CHECK(missing <= (text.size() + 1) / 2);
}
