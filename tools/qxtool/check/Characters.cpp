#include "Characters.h"

#include <qxTools/base/CodePage950.h>

#include <array>
#include <string>

namespace qxtool::check {

namespace {

using WideTable = std::array<char16_t, 0x8000>;

WideTable MakeWideTable() {
  WideTable table{};
  for (unsigned code = 0x8140; code <= 0xFEFE; ++code) {
    const char pair[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    const std::u16string wide = qxTools::BytesToWide(std::string_view(pair, 2));
    if (wide.size() == 1) table[code - 0x8000] = wide[0];
  }
  return table;
}

}  // namespace

char16_t WideOf(char lead, char second) {
  static const WideTable table = MakeWideTable();
  return Byte(lead) < 0x80 ? char16_t{0} : table[(Byte(lead) << 8 | Byte(second)) - 0x8000];
}

std::size_t CharacterSize(std::string_view text, std::size_t place) {
  if (Byte(text[place]) < 0x80 || place + 1 == text.size()) return 1;
  return WideOf(text[place], text[place + 1]) != 0 ? 2 : 1;
}

bool SecondBytes::IsSecond(std::size_t place) {
  if (boundary_ > place) return true;  // asked again
  // A byte below 40 is a character of its own, wherever it stands.
  std::size_t start = place;
  while (start > boundary_ && Byte(text_[start - 1]) >= 0x40) --start;
  for (boundary_ = start; boundary_ < place;) boundary_ += CharacterSize(text_, boundary_);
  return boundary_ > place;
}

}  // namespace qxtool::check
