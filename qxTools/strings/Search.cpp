#include <qxTools/strings/Search.h>

namespace qxTools::QXStrTools {

Automaton::Automaton(std::string_view sub) : sub_(sub), borders_(sub.size()) {
  std::size_t matched = 0;
  for (std::size_t i = 1; i < sub.size(); ++i) borders_[i] = matched = Feed(matched, sub[i]);
}

}  // namespace qxTools::QXStrTools
