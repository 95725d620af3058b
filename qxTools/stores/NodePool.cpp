#include <qxTools/stores/NodePool.h>

#include <algorithm>

namespace qxTools::qxTreeList {

namespace {

constexpr std::size_t kSmallestBlock = 4;
constexpr std::size_t kLargestBlock = 512;

}  // namespace

pQXTreeNodeLink NodePool::Make(const TNodeKey& parentKey, const TNodeKey& key, void* data, Integer level) {
  return new (Take()) LinkAndNode(parentKey, key, data, level);
}

void* NodePool::Take() {
  if (FFreed != nullptr) {
    const pQXTreeNodeLink link = FFreed;
    FFreed = link->Next;
    return static_cast<LinkAndNode*>(link);
  }
  if (FUsed == FBlockSize) {
    const std::size_t size = std::clamp(FBlockSize * 2, kSmallestBlock, kLargestBlock);
    FBlocks.push_back(stores::Record(stores::MakeRecord(size * sizeof(LinkAndNode))));
    FBlockSize = size;
    FUsed = 0;
  }
  return static_cast<std::byte*>(FBlocks.back().get()) + FUsed++ * sizeof(LinkAndNode);
}

void NodePool::Free(pQXTreeNodeLink link) {
  link->Next = FFreed;
  FFreed = link;
}

void NodePool::FreeAll() {
  FBlocks.clear();
  FBlockSize = FUsed = 0;
  FFreed = nullptr;
}

}  // namespace qxTools::qxTreeList
