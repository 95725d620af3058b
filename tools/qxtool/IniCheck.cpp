#include "IniCheck.h"

#include <qxTools/stores/IniLines.h>

namespace qxtool {

namespace {

using namespace qxTools;
using namespace qxTools::qxIniTools;

/// Whether a saved line is read again as these parts.
bool ComesBack(const std::string& line, const IniLine& parts) {
  return line.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos && ReadIniLine(line) == parts;
}

}  // namespace

std::string SectionFault(const std::string& name) {
  if (ComesBack(name + ":" + std::string(kSectionMark), {IniLineKind::Section, name, {}})) return "";
  return "a section cannot hold a colon or a line break, or have blanks around it";
}

std::string ValueFault(const std::string& name, const std::string& text) {
  if (name.empty() || !ComesBack(name + ":text", {IniLineKind::Value, name, "text"}))
    return "a name cannot be empty, hold a colon or a line break, begin with // or have blanks around it";
  if (text.empty() || !ComesBack("name:" + text, {IniLineKind::Value, "name", text}))
    return "a text cannot be empty, hold a line break, have blanks around it or be " +
           std::string(kSectionMark);
  return "";
}

}  // namespace qxtool
