// INI1..: settings files.
#include <qxTools/base/Ascii.h>
#include <qxTools/base/Lines.h>
#include <qxTools/stores/IniLines.h>

#include "Characters.h"
#include "Context.h"
#include "SettingsLosses.h"

namespace qxtool::check {

namespace {

using namespace qxTools;
using namespace qxTools::qxIniTools;

/// A line and where it is in the text.
struct PlacedLine {
  std::size_t begin;
  std::size_t end;
  IniLine parts;
};

template <class Visit>
void ForEachSettingsLine(const Context& context, Visit visit) {
  ForEachLine(context.text, [&](std::string_view line) {
    const auto begin = static_cast<std::size_t>(line.data() - context.text.data());
    visit(PlacedLine{begin, begin + line.size(), ReadIniLine(line)});
  });
}

void Lost(const Event&, Context& context) {
  ForEachLoss(context.text, [&](const SettingsLoss& loss) {
    if (loss.kind == LossKind::kMarker) return;
    const Level level = loss.kind == LossKind::kEndOfLoad ? Level::kError : Level::kWarning;
    context.Report(loss.begin, loss.end, level, loss.what);
  });
}

void BlankBeforeMarker(const Event&, Context& context) {
  ForEachLoss(context.text, [&](const SettingsLoss& loss) {
    if (loss.kind == LossKind::kMarker) context.Report(loss.begin, loss.end, loss.what);
  });
}

// --- Names -------------------------------------------------------------------------------------------

/// The name with the letters raised that are characters of their own: the second byte of a character is not.
std::string CapitalsOf(std::string_view name) {
  std::string capitals(name);
  for (std::size_t i = 0; i < name.size(); i += CharacterSize(name, i))
    if (CharacterSize(name, i) == 1) capitals[i] = UpperChar(name[i]);
  return capitals;
}

/// Names of one record, or of the sections.
class UsedNames {
 public:
  void Take(const PlacedLine& line, const char* what, Context& context) {
    const auto [first, isNew] = names_.emplace(UpperCase(line.parts.name), CapitalsOf(line.parts.name));
    if (isNew) return;
    if (first->second == CapitalsOf(line.parts.name))
      context.Report(line.begin, line.end,
                     std::string("a ") + what + " of the same name: only the first is found");
    else
      context.Report(line.begin, line.end, Level::kError,
                     std::string("this ") + what +
                         " differs from one above in second bytes of characters only: the "
                         "first is found");
  }
  void Clear() { names_.clear(); }

 private:
  std::map<std::string, std::string> names_;
};

void OddNames(const Event&, Context& context) {
  UsedNames names;
  ForEachSettingsLine(context, [&](const PlacedLine& line) {
    if (line.parts.kind == IniLineKind::RecordBegin) names.Clear();
    if (line.parts.kind != IniLineKind::Value || line.parts.name.empty()) return;
    if (Byte(line.parts.name.back()) <= ' ')
      context.Report(line.begin, line.end, "the blank in front of the colon belongs to the name");
    names.Take(line, "value", context);
  });
}

constexpr Rule kSettingsRules[] = {
    {"INI101", Level::kWarning, FileKind::kSettings, 0, true, "a line that a save loses or moves",
     "Comments and stray lines are not kept. A record before any section ends the load (an error).",
     "Move it into a record, or to another file.", "Main:[%RootKey%]\n[%\n  // old\n  Mode:fast\n%]\n",
     "Main:[%RootKey%]\n[%\n  Mode:fast\n%]\n", On(EventKind::kWholeFile), Lost},
    {"INI102", Level::kWarning, FileKind::kSettings, 0, true,
     "a section's marker behind a blank or a second colon",
     "The line is read as a value, and the section's records go to the one above.",
     "Write the marker right behind the colon.", "Main:[%RootKey%]\n[%\n  Mode:fast\n%]\nMore: [%RootKey%]\n",
     "Main:[%RootKey%]\n[%\n  Mode:fast\n%]\nMore:[%RootKey%]\n", On(EventKind::kWholeFile),
     BlankBeforeMarker},
    {"INI103", Level::kWarning, FileKind::kSettings, 0, true, "a value that is never found under its name",
     "A blank in front of the colon is part of the name, and of equal names only the first is found. Letters "
     "that are second bytes of characters are raised too, so that two Chinese names can be equal (an error).",
     "Rename it.", "Main:[%RootKey%]\n[%\n  Mode :fast\n%]\n", "Main:[%RootKey%]\n[%\n  Mode:fast\n%]\n",
     On(EventKind::kWholeFile), OddNames},
};

}  // namespace

std::span<const Rule> SettingsRules() { return kSettingsRules; }

}  // namespace qxtool::check
