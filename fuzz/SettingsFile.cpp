// The settings file: what was saved loads as it was, and a set of calls leaves what a file can hold.
#include <qxTools/stores/qxIniTools.h>

#include "Plain.h"
#include "Target.h"

namespace {

using namespace qxTools;
namespace plain = fuzz::plain;
using qxIniTools::pQXTreeNode;
using qxIniTools::TQXIniFile;

/// Loads a saved text again: it comes out the same.
void CheckSaved(const std::string& saved) {
  TQXIniFile again;
  again.SetText(saved);
  FUZZ_CHECK(again.GetText() == saved);
}

void CheckText(const std::string& text) {
  TQXIniFile settings;
  std::string error;
  if (!fuzz::Completes([&] { settings.SetText(text); }, &error)) FUZZ_CHECK(error == "RootKey not Open.");
  // A NUL ends a name or a text, and what is left of the line can be another kind of line.
  if (text.find('\0') == plain::kNone) CheckSaved(settings.GetText());

  // Each section that a line names is found, and the record behind it can be opened and read.
  for (const std::string& line : plain::Lines(settings.GetText())) {
    if (!line.ends_with(":[%RootKey%]") || line.starts_with("  ")) continue;
    settings.SetRootKey(line.substr(0, line.find(':')));
    settings.OpenFirstKey();
    settings.OpenKey(2);
    fuzz::Completes([&] { settings.GetValue("a"); }, &error);
  }
}

/// A text that a line can hold.
std::string Tame(std::string text) {
  for (char& c : text)
    if (static_cast<unsigned char>(c) <= 32 || c == ':') c = '_';
  return text;
}

void Run(TQXIniFile& settings, fuzz::Input& input) {
  const std::uint8_t call = input.Byte();
  const std::string name = Tame(input.Text(3));
  pQXTreeNode node = nullptr;
  switch (call % 16) {
    case 0:
    case 1:
      return settings.SetRootKey(name);
    case 2:
      return settings.DeleteRootKey(name);
    case 3:
      return settings.ClearKeys();
    case 4:
    case 5:
      return settings.AppendKey();
    case 6:
      return settings.OpenKey(call / 16);
    case 7:
      return settings.OpenFirstKey();
    case 8:
      return (call / 16 % 2 == 0) ? settings.OpenPrevKey() : settings.OpenNextKey();
    case 9:
      return call / 16 % 2 == 0 ? settings.OpenLastKey() : settings.CloseKey();
    case 10:
      return settings.DeleteKey(call / 16);
    case 11:
      return settings.DeleteValue(name);
    case 12:
      return settings.SetText(settings.GetText());
    case 13:
      FUZZ_CHECK(!settings.FindRootKey(name, node) || node->Level == 1);
      settings.FindKeyIndex(call / 16, node);
      return void(settings.FindField(name, node));
    default: {
      const std::string value = "v" + Tame(input.Text(4));
      settings.SetValue(name, value);
      // A record that is gone takes values nowhere.
      if (settings.FindField(name, node)) FUZZ_CHECK(settings.GetValue(name) == value);
    }
  }
}

}  // namespace

FUZZ_TARGET(SettingsFile) {
  if (input.Bit()) return CheckText(input.Rest(4000));
  TQXIniFile settings;
  for (int i = 0; i < 200 && !input.AtEnd(); ++i) fuzz::Completes([&] { Run(settings, input); });
  std::string error;
  TQXIniFile again;
  const std::string saved = settings.GetText();
  if (!fuzz::Completes([&] { again.SetText(saved); }, &error))
    return FUZZ_CHECK(error == "RootKey not Open.");  // a record that was added to a section that is gone
  const std::string text = again.GetText();
  CheckSaved(text);
  settings.Clear();
  FUZZ_CHECK(settings.GetText().empty());
}
