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
  if (freed_ != nullptr) {
    const pQXTreeNodeLink link = freed_;
    freed_ = link->Next;
    return static_cast<LinkAndNode*>(link);
  }
  if (used_ == blockSize_) {
    const std::size_t size = std::clamp(blockSize_ * 2, kSmallestBlock, kLargestBlock);
    blocks_.push_back(stores::MakeZeroedBlock(size * sizeof(LinkAndNode)));
    blockSize_ = size;
    used_ = 0;
  }
  return static_cast<std::byte*>(blocks_.back().get()) + used_++ * sizeof(LinkAndNode);
}

void NodePool::Free(pQXTreeNodeLink link) {
  link->Next = freed_;
  freed_ = link;
}

void NodePool::FreeAll() {
  blocks_.clear();
  blockSize_ = used_ = 0;
  freed_ = nullptr;
}

}  // namespace qxTools::qxTreeList
