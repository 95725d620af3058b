// Reads values of a settings file (INI), with a default for those that it does not have.
#include <qxTools/stores/qxIniTools.h>

#include <iostream>

using namespace qxTools;
using qxIniTools::TQXIniFile;

namespace {

/// The value in the first record of a section, or `fallback` if section, record or value is missing.
std::string ValueOr(TQXIniFile& settings, std::string_view section, std::string_view name,
                    const std::string& fallback) {
  qxTreeList::pQXTreeNode node = nullptr;
  if (!settings.FindRootKey(section, node)) return fallback;  // SetRootKey alone would add the section
  settings.SetRootKey(section);
  if (!settings.FindKeyIndex(1, node)) return fallback;
  settings.OpenFirstKey();
  const std::string value = settings.GetValue(name);
  return value.empty() ? fallback : value;
}

}  // namespace

int main() {
  TQXIniFile settings;
  settings.LoadFromFile("no such file.ini");  // a missing file is not an error
  settings.SetText("Main:[%RootKey%]\r\n[%\r\n  Server:db1\r\n%]\r\n");
  std::cout << "Server: " << ValueOr(settings, "main", "SERVER", "localhost") << "\n";
  std::cout << "Port: " << ValueOr(settings, "Main", "Port", "1433") << "\n";
  std::cout << "Colour: " << ValueOr(settings, "Colours", "Back", "silver") << "\n";
}
