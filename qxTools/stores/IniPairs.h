/// @file
/// The pairs of a settings file and their texts. For its own use.
#pragma once

#include <qxTools/stores/NodePool.h>
#include <qxTools/stores/ZeroedBlock.h>
#include <qxTools/stores/qxIniTools.h>

#include <vector>

namespace qxTools::qxIniTools {

inline pQXIniPair PairOf(pQXTreeNode node) { return static_cast<pQXIniPair>(node->Data); }
/// The pair of a tree's link.
inline pQXIniPair PairOf(pQXTreeNodeLink link) { return PairOf(qxTreeList::NodeOf(link)); }

/// A text of a pair.
inline std::string_view View(const char* text) { return text != nullptr ? text : std::string_view(); }

/// Makes, changes and frees pairs. The texts of a loaded pair are where they were in the file's text, any
/// other pair has both in one block; a new value has a block of its own.
class Pairs {
 public:
  Pairs() = default;
  Pairs(const Pairs&) = delete;
  Pairs& operator=(const Pairs&) = delete;
  ~Pairs();

  /// Takes a text to load from, instead of the last one. No pairs are in use but those that are kept.
  std::string_view Load(std::string&& text);
  /// Makes a pair of two pieces of the loaded text and ends each with a zero there. @throws std::bad_alloc
  pQXIniPair MakeLoaded(std::string_view name, std::string_view value);
  /// @throws std::bad_alloc
  pQXIniPair Make(std::string_view name, std::string_view value);
  /// Replaces a pair's value. @throws std::bad_alloc; nothing has changed then.
  void SetValue(pQXIniPair pair, std::string_view value);
  void Free(pQXIniPair pair);

  // Deletes leave some pairs in memory, as long as this object. Keeping one cannot fail after these two.
  /// Makes room to keep as many more. @throws std::bad_alloc
  void Reserve(std::size_t more);
  /// Moves the texts of the node's pair, if it has one, out of the loaded text. @throws std::bad_alloc
  void OwnTexts(pQXTreeNode node);
  /// Keeps the node's pair, if it has one.
  void Keep(pQXTreeNode node);

 private:
  bool IsLoaded(const char* text) const;
  char* EndInPlace(std::string_view piece);
  void FreeValue(const TQXIniPair& pair);
  void FreeTexts(const TQXIniPair& pair);

  stores::Pool<TQXIniPair> pool_;
  std::string loaded_;
  std::vector<pQXIniPair> kept_;
};

}  // namespace qxTools::qxIniTools
