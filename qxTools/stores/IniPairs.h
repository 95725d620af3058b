/// @file
/// The pairs of a settings file, each in one block with its texts. For its own use.
#pragma once

#include <qxTools/stores/ZeroedBlock.h>
#include <qxTools/stores/qxIniTools.h>

#include <vector>

namespace qxTools::qxIniTools {

inline pQXIniPair PairOf(pQXTreeNode node) { return static_cast<pQXIniPair>(node->Data); }
inline pQXIniPair PairOf(pQXTreeNodeLink link) { return PairOf(link->Node); }

/// A text of a pair.
inline std::string_view View(const char* text) { return text != nullptr ? text : std::string_view(); }

/// A block that is a TQXIniPair, followed by its texts. @throws std::bad_alloc
stores::ZeroedBlock MakePair(std::string_view name, std::string_view value);
/// Replaces a pair's value. @throws std::bad_alloc; nothing has changed then.
void SetPairValue(pQXIniPair pair, std::string_view value);
void FreePair(pQXIniPair pair);

/// Pairs that deletes leave in memory, freed with the settings.
class KeptPairs {
 public:
  KeptPairs() = default;
  KeptPairs(const KeptPairs&) = delete;
  KeptPairs& operator=(const KeptPairs&) = delete;
  ~KeptPairs();

  /// Makes room for as many more, so that keeping them cannot fail. @throws std::bad_alloc
  void Reserve(std::size_t more);
  /// Takes the node's pair, if it has one.
  void Keep(pQXTreeNode node);

 private:
  std::vector<pQXIniPair> pairs_;
};

}  // namespace qxTools::qxIniTools
