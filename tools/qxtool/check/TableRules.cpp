// TAB1..: string tables.
#include <qxTools/base/Ascii.h>
#include <qxTools/base/Lines.h>
#include <qxTools/stores/FieldMarks.h>

#include <optional>
#include <set>

#include "Characters.h"
#include "Context.h"

namespace qxtool::check {

namespace {

using namespace qxTools;
using namespace qxTools::QXStringTable;

std::size_t PlaceOf(std::string_view part, const Context& context) {
  return static_cast<std::size_t>(part.data() - context.text.data());
}

bool HasSecondByteMark(std::string_view line, const FieldMarks& marks) {
  SecondBytes seconds(line);
  return std::ranges::any_of(marks.Begins(), [&](std::size_t begin) { return seconds.IsSecond(begin); });
}

bool HasOddText(std::string_view line, const FieldMarks& marks) {
  for (std::size_t i = 0; i < marks.Count(); ++i) {
    const std::string_view text = marks.Text(line, i);
    if (text.starts_with(']') || text.ends_with('[')) return true;
  }
  return false;
}

void UnequalMarks(const Event&, Context& context) {
  std::optional<std::size_t> fields;
  ForEachLine(context.text, [&](std::string_view line) {
    const FieldMarks marks(line);
    const std::size_t begin = PlaceOf(line, context);
    const auto report = [&](const std::string& message, Level level = Level::kError) {
      context.Report(begin, begin + line.size(), level, message);
    };
    if (!fields) fields = marks.Count();
    const std::string counts =
        std::to_string(marks.Count()) + " fields, the header " + std::to_string(*fields);
    if (HasSecondByteMark(line, marks)) return report("the second byte of a character makes a [# here");
    if (marks.Begins().size() != marks.Ends().size()) return report("[# and #] differ in number");
    if (HasOddText(line, marks)) return report("a text begins with ] or ends with [");
    if (line.empty() || marks.Count() == *fields) return;
    report("the record has " + counts, marks.Count() < *fields ? Level::kWarning : Level::kError);
  });
}

void OddHeader(std::string_view line, Context& context) {
  const FieldMarks marks(line);
  std::set<std::string> names;
  for (std::size_t i = 0; i < marks.Count(); ++i) {
    const std::string_view name = marks.Text(line, i);
    const std::size_t begin = PlaceOf(line, context) + marks.Begins()[i];
    const std::size_t end = std::min(begin + 4 + name.size(), PlaceOf(line, context) + line.size());
    if (!names.insert(UpperCase(name)).second)
      context.Report(begin, end, "a field of the same name: only the first is read");
    else if (name.size() == 1)
      context.Report(begin, end, "a field whose name has one character cannot be removed");
  }
}

void OddFields(const Event&, Context& context) {
  bool isHeader = true;
  ForEachLine(context.text, [&](std::string_view line) {
    const std::size_t begin = PlaceOf(line, context);
    if (isHeader)
      OddHeader(line, context);
    else if (line.empty())
      context.Report(begin, begin, "an empty record");
    isHeader = false;
  });
}

constexpr Rule kTableRules[] = {
    {"TAB101", Level::kError, FileKind::kTable, 0, true, "a line whose fields do not fit the header",
     "Fields are counted by their marks. One mark too many or too few shifts all behind it; a record with "
     "fewer fields than the header is a warning.",
     "Fill the table anew: qxtool table FILE from-csv.", "[#Name#][#Phone#]\n[#Lee#][#555#]#]\n",
     "[#Name#][#Phone#]\n[#Lee#][#555#]\n", On(EventKind::kWholeFile), UnequalMarks},
    {"TAB102", Level::kWarning, FileKind::kTable, 0, true,
     "equal field names, a field name of one character, or an empty record",
     "Of equal names the second is never read; a name of one character cannot be removed.",
     "Rename the field.", "[#Name#][#NAME#]\n", "[#Name#][#Phone#]\n", On(EventKind::kWholeFile), OddFields},
};

}  // namespace

std::span<const Rule> TableRules() { return kTableRules; }

}  // namespace qxtool::check
