// The text of a list of lines, without making all of it.
#pragma once

#include <qxTools/runtime/StringList.h>

#include <string>

namespace qxTools {

/// Calls `visit` with the text of the lines, each with its CR LF, in pieces of whole lines that the nearest
/// cache holds. `visit` may change its piece. Returns false, without going on, when `visit` returns false.
template <class Visit>
bool ForEachPiece(const TStrings& lines, Visit visit) {
  constexpr std::size_t kPiece = 16 << 10;
  std::string piece;
  for (Integer i = 0; i < lines.GetCount(); ++i) {
    piece.append(lines.GetView(i)).append("\r\n");
    if (piece.size() < kPiece && i + 1 < lines.GetCount()) continue;
    if (!visit(piece)) return false;
    piece.clear();
  }
  return true;
}

}  // namespace qxTools
