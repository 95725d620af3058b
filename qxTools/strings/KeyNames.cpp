#include <qxTools/strings/QXStrTools.h>

namespace qxTools::QXStrTools {

namespace {

struct KeyName {
  std::uint16_t key;
  const char* name;
};

// clang-format off
constexpr KeyName kKeyNames[] = {
  {8, "BackSpace"}, {13, "Enter"}, {19, "NumLock"}, {20, "CapsLock"}, {27, "Esc"}, {32, "Space"},
  {33, "Page Up"}, {34, "Page Down"}, {35, "End"}, {36, "Home"},
  {37, "Left Arrow"}, {38, "Up Arrow"}, {39, "Right Arrow"}, {40, "Down Arrow"},
  {45, "Insert"}, {46, "Delete"},
  {106, "Num Pad *"}, {107, "Num Pad +"}, {109, "Num Pad -"}, {110, "Num Pad ."}, {111, "Num Pad /"},
  {144, "NumLock"}, {145, "ScrollLock"},
  {186, ";"}, {187, "+"}, {188, ","}, {189, "-"}, {190, "."}, {191, "/"}, {192, "`"},
  {219, "["}, {220, "\\"}, {221, "]"}, {222, "'"},
};
// clang-format on

}  // namespace

std::string KeyToStr(std::uint16_t key) {
  if ((key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z')) return std::string(1, static_cast<char>(key));
  if (key >= 96 && key <= 105) return std::string("Num Pad ") + std::to_string(key - 96);
  if (key >= 112 && key <= 123) return std::string("F") + std::to_string(key - 111);
  for (const KeyName& row : kKeyNames) {
    if (row.key == key) return row.name;
  }
  return std::string();
}

std::string SerialNO(std::string_view code, Integer step) {
  const std::size_t digits = code.find_last_not_of("0123456789") + 1;  // npos + 1 is 0
  const std::uint32_t number =
      static_cast<std::uint32_t>(IntEx(code.substr(digits))) + static_cast<std::uint32_t>(step);
  const Integer width = static_cast<Integer>(code.size() - digits);
  return std::string(code.substr(0, digits)) + StrEx(static_cast<Integer>(number), width);
}

std::string FormatEx(std::string_view fmt, std::string_view value) {
  std::string text;
  std::size_t done = 0;
  for (std::size_t i = fmt.find('#'); i != std::string_view::npos; i = fmt.find('#', i + 1)) {
    const bool isMarker = i + 1 < fmt.size() && (fmt[i + 1] == 'S' || fmt[i + 1] == 's');
    if (!isMarker || (i > 0 && fmt[i - 1] == '#')) continue;
    text.append(fmt, done, i - done).append(value);
    done = i + 2;
  }
  text.append(fmt, done);
  return text;
}

}  // namespace qxTools::QXStrTools
