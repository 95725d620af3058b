#include <qxTools/stores/KeyIndex.h>

namespace qxTools::qxTreeList {

pQXTreeNodeLink KeyIndex::Find(const TNodeKey& key) const {
  LinkAndNode* link = nullptr;  // the last that was compared
  const auto hasKey = [&](std::uint32_t number) {
    link = nodes_.At(number);
    return link->node.Key == key;
  };
  return numbers_.Find(TagOfKey(key), hasKey) != nullptr ? link : nullptr;
}

void KeyIndex::Insert(pQXTreeNodeLink link) {
  const TNodeKey& key = NodeOf(link)->Key;
  if (IsShared(key)) {
    ++shared_[key];
    return;
  }
  const std::uint32_t number = nodes_.NumberOf(WithNode(link));
  if (numbers_.Insert(number, TagOfKey(key), HasKey(key)) == number) return;
  shared_.emplace(key, 2);
  numbers_.Erase(TagOfKey(key), HasKey(key));
}

void KeyIndex::Erase(pQXTreeNodeLink link) {
  const TNodeKey& key = NodeOf(link)->Key;
  if (!IsShared(key)) return numbers_.Erase(TagOfKey(key), HasKey(key));
  const auto shared = shared_.find(key);
  if (--shared->second == 0) shared_.erase(shared);
}

}  // namespace qxTools::qxTreeList
