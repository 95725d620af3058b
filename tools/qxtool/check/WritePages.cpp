// Keeps what pages say of the rules in step with the rules.
//
//     check-pages [--compare] FILE...
//
// Writes the part between the two marks of each file, or with --compare only says whether it is right.
#include <qxTools/base/Exceptions.h>
#include <qxTools/platform/Files.h>

#include <cstdio>
#include <span>

#include "Pages.h"

namespace {

using qxtool::check::RulesAsMan;
using qxtool::check::RulesAsMarkdown;

/// The page with the part between its marks as it should be.
std::string Renewed(const std::string& page, bool markdown) {
  const std::string begin = markdown ? "<!-- rules: begin -->\n" : ".\\\" rules: begin\n";
  const std::string end = markdown ? "<!-- rules: end -->" : ".\\\" rules: end";
  const std::size_t from = page.find(begin);
  const std::size_t to = page.find(end);
  if (from == std::string::npos || to == std::string::npos) throw qxTools::Exception("the marks are missing");
  return page.substr(0, from + begin.size()) + (markdown ? RulesAsMarkdown() + "\n" : RulesAsMan()) +
         page.substr(to);
}

/// Returns false if the page is to be compared and differs.
bool Take(const std::string& fileName, bool compare) {
  const std::string page = qxTools::ReadWholeFile(fileName);
  const std::string renewed = Renewed(page, fileName.ends_with(".md"));
  if (page == renewed) return true;
  if (!compare) qxTools::SaveWholeFile(fileName, renewed);
  if (compare)
    std::fprintf(stderr, "%s differs from the rules; check-pages %s mends it\n", fileName.c_str(),
                 fileName.c_str());
  return !compare;
}

}  // namespace

int main(int argc, char** argv) {
  const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
  bool compare = false;
  bool good = true;
  try {
    for (const std::string argument : arguments.subspan(1)) {
      if (argument == "--compare")
        compare = true;
      else
        good = Take(argument, compare) && good;
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "check-pages: %s\n", e.what());
    return 2;
  }
  return good ? 0 : 1;
}
