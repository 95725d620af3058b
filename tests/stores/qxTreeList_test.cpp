#include <gtest/gtest.h>
#include <qxTools/memory/QXMemTools.h>
#include <qxTools/platform/VirtualMemory.h>
#include <qxTools/runtime/Exceptions.h>
#include <qxTools/stores/qxTreeList.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "support/MessageOf.h"
#include "support/Sources.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxTreeList;
using qxTools::test::MessageOf;
using Nodes = std::vector<pQXTreeNode>;

constexpr char kRootKey[] = "0000000000000000";
constexpr char kNotOpened[] = "TreeNode Not Opend.";

Nodes All(const TQXTreeNodes& tree) {
  Nodes nodes;
  tree.EnumAllTreeNode([&](pQXTreeNode node) { nodes.push_back(node); });
  return nodes;
}

Nodes Below(const TQXTreeNodes& tree, bool recursive) {
  Nodes nodes;
  tree.EnumTreeNode([&](pQXTreeNode node) { nodes.push_back(node); }, recursive);
  return nodes;
}

TEST(qxTreeList, AStoreIsOpenedAtItsRootBeforeAnyNode) {
  TQXTreeNodes tree;
  const pQXTreeNode root = tree.GetRootNode();
  EXPECT_EQ(root->Key, kRootKey);
  EXPECT_EQ(root->ParentKey, "");
  EXPECT_EQ(root->Level, 0);
  const pQXTreeNode a = tree.Add("an unknown key adds below the root");
  const pQXTreeNode b = tree.Add(a->Key);
  EXPECT_EQ(a->ParentKey, kRootKey);
  EXPECT_EQ(b->Level, 2);
  tree.OpenTreeNode(a->Key);  // does not open a closed store
  EXPECT_EQ(MessageOf([&] { tree.Add(); }), kNotOpened);
  EXPECT_EQ(tree.GetItem(b->Key), nullptr);
  EXPECT_EQ(Below(tree, true), Nodes{});
  tree.OpenRootNode();
  tree.OpenTreeNode(a->Key);
  const pQXTreeNode c = tree.Add();
  const pQXTreeNode d = tree.Add(b->Key);
  EXPECT_EQ(Below(tree, false), (Nodes{b, c}));
  EXPECT_EQ(Below(tree, true), (Nodes{b, d, c}));
  EXPECT_EQ(tree.GetItem(kRootKey), nullptr);  // outside the opened subtree
  EXPECT_EQ(tree.GetItem(a->Key), a);
  EXPECT_EQ(tree.GetItem(d->Key.Text() + "cut"), d);
  EXPECT_EQ(tree.GetItem(d->Key.Text().substr(0, 15)), nullptr);
  EXPECT_EQ(MessageOf([&] { tree.OpenTreeNode("abcdefghijklmnopqrst"); }),
            "Key(abcdefghijklmnop) not Found.");
  EXPECT_EQ(tree.GetItem(c->Key), c);
  tree.CloseTreeNode();
  EXPECT_EQ(tree.GetItem(c->Key), nullptr);
}

TEST(qxTreeList, SiblingsAreWalkedAndNextDiffersFromPrevious) {
  TQXTreeNodes tree;
  tree.OpenRootNode();
  const pQXTreeNode root = tree.GetRootNode();
  const pQXTreeNode a = tree.Add();
  const pQXTreeNode b = tree.Add();
  const pQXTreeNode c = tree.Add();
  TQXTreeNode untouched{{}, {}, nullptr, 0};
  using Find = bool (TQXTreeNodes::*)(const TNodeKey&, pQXTreeNode&) const;
  const struct {
    Find find;
    TNodeKey key;
    bool found;
    pQXTreeNode want;
  } rows[] = {
      {&TQXTreeNodes::FindFirstNode, b->Key, true, a},
      {&TQXTreeNodes::FindFirstNode, kRootKey, true, root},
      {&TQXTreeNodes::FindFirstNode, "?", false, &untouched},
      {&TQXTreeNodes::FindLastNode, a->Key, true, c},
      {&TQXTreeNodes::FindLastNode, kRootKey, true, root},
      {&TQXTreeNodes::FindNextNode, a->Key, true, b},
      {&TQXTreeNodes::FindNextNode, c->Key, false, nullptr},
      {&TQXTreeNodes::FindNextNode, "?", false, &untouched},
      {&TQXTreeNodes::FindPrevNode, c->Key, true, b},
      {&TQXTreeNodes::FindPrevNode, a->Key, false, &untouched},
      {&TQXTreeNodes::FindSubNode, kRootKey, true, a},
      {&TQXTreeNodes::FindSubNode, a->Key, false, &untouched},
      {&TQXTreeNodes::FindNode, "?", false, nullptr},
  };
  for (const auto& row : rows) {
    pQXTreeNode node = &untouched;
    EXPECT_EQ((tree.*row.find)(row.key, node), row.found) << "row " << &row - rows;
    EXPECT_EQ(node, row.want) << "row " << &row - rows;
  }
}

TEST(qxTreeList, TheListOfChildrenIsLeftAloneWithoutChildren) {
  TQXTreeNodes tree;
  TList list;
  list.Add(nullptr);
  tree.OpenRootNode();
  tree.GetTreeNodeList(list);
  EXPECT_EQ(list.GetCount(), 1);
  tree.Add(tree.Add()->Key);
  const pQXTreeNode second = tree.Add();
  tree.GetTreeNodeList(list);
  EXPECT_EQ(list.GetItems(1), second);
  EXPECT_EQ(MessageOf([&] { list.GetItems(2); }), "List index out of bounds (2)");
}

TEST(qxTreeList, DeleteTakesTheSubtreeAndKeepsTheRoot) {
  TQXTreeNodes tree;
  tree.OpenRootNode();
  const pQXTreeNode a = tree.Add();
  const pQXTreeNode b = tree.Add(a->Key);
  const pQXTreeNode c = tree.Add(b->Key);
  tree.Delete(pQXTreeNode{nullptr});
  tree.Delete(tree.GetRootNode());
  tree.Delete(b->Key, 0);
  tree.Delete("no such key");
  EXPECT_EQ(All(tree), (Nodes{a, b, c}));
  tree.OpenTreeNode(c->Key);
  tree.Delete(b);
  EXPECT_EQ(All(tree), Nodes{a});
  EXPECT_EQ(MessageOf([&] { tree.Add(); }), kNotOpened);  // the opened node is gone
  EXPECT_EQ(tree.GetItem(kRootKey), nullptr);
  tree.Delete(kRootKey);
  EXPECT_EQ(All(tree), Nodes{});
  tree.OpenRootNode();
  EXPECT_EQ(tree.Add()->Level, 1);
}

TEST(qxTreeList, DataIsZeroAndItsOwnerFreesIt) {
  TQXTreeNodes tree(8);
  const pQXTreeNode node = tree.Add(kRootKey);
  for (int i = 0; i < 3; ++i) tree.Add(node->Key);
  std::uint64_t* const kept = static_cast<std::uint64_t*>(node->Data);
  tree.EnumTreeNode(
      node->Key, [](pQXTreeNode below) { QXMemTools::MemFree(below->Data); }, true);
  tree.Delete(node);
  EXPECT_EQ(*kept, 0U);  // a delete leaves data blocks
  QXMemTools::MemFree(kept);
}

TEST(qxTreeList, DepthAndWidthDoNotMatter) {
  constexpr int kNodes = 200000;
  TQXTreeNodes tree;
  const TNodeKey wide = tree.Add(kRootKey)->Key;
  const TNodeKey top = tree.Add(kRootKey)->Key;
  TNodeKey deep = top;
  for (int i = 0; i < kNodes; ++i) {
    tree.Add(wide);
    deep = tree.Add(deep)->Key;
  }
  EXPECT_EQ(All(tree).size(), 2U * kNodes + 2);
  tree.Delete(top);
  EXPECT_EQ(All(tree).size(), kNodes + 1U);
}

TEST(qxTreeList, AnEnumerationSeesWhatItsCallbackAdds) {
  TQXTreeNodes tree;
  tree.Add(kRootKey);
  int seen = 0;
  tree.EnumAllTreeNode([&](pQXTreeNode node) {
    if (++seen <= 3) tree.Add(node->Key);
    if (seen == 2) tree.Add(kRootKey);
  });
  EXPECT_EQ(seen, 5);
}

TEST(qxTreeList, LinksOfTheirOwnAreSearchedAsTheyHangTogether) {
  const TQXTreeNodes tree;
  pQXTreeNodeLink parent = nullptr;
  pQXTreeNodeLink child = nullptr;
  NewTreeNode(parent);
  NewTreeNode(4, child);
  parent->FirstChild = child;
  child->Parent = parent;
  pQXTreeNodeLink found = nullptr;
  EXPECT_FALSE(tree.FindNodeLink(kRootKey, parent, found));
  EXPECT_TRUE(tree.FindNodeLink(child->Node->Key, parent, found));
  EXPECT_EQ(found, child);
  EXPECT_EQ(tree.FindLastSubNodeLink(parent), child);
  FreeTreeNode(4, child);
  FreeTreeNode(parent);
}

// A tree by the definition: every search is a walk.
struct Model {
  pQXTreeNode node = nullptr;
  std::vector<Model> children;

  void List(Nodes& nodes) const {
    for (const Model& child : children) {
      nodes.push_back(child.node);
      child.List(nodes);
    }
  }
  Model* Find(const TNodeKey& key) {
    if (node->Key == key) return this;
    for (Model& child : children)
      if (Model* const found = child.Find(key)) return found;
    return nullptr;
  }
  bool Delete(pQXTreeNode which) {
    if (std::erase_if(children, [&](const Model& child) { return child.node == which; }) != 0) return true;
    return std::any_of(children.begin(), children.end(), [&](Model& child) { return child.Delete(which); });
  }
};

TEST(qxTreeList, AgreesWithAWalkWhateverKeysAreEqual) {
  std::mt19937 random(7);
  const test::FixedClock clock(0);
  for (int round = 0; round < 60; ++round) {
    // One cell of the keys takes 30 values and the others stay, so that keys repeat.
    std::vector<std::uint32_t> numbers(20 * 64, 0);
    for (std::size_t i = 10; i < numbers.size(); i += 20) numbers[i] = static_cast<std::uint32_t>(random());
    test::FixedDraws draws(numbers);
    TQXTreeNodes tree;
    Model model{tree.GetRootNode(), {}};
    tree.OpenRootNode();
    for (int step = 0; step < 150; ++step) {
      Nodes nodes{tree.GetRootNode()};
      model.List(nodes);
      const TNodeKey key = random() % 8 == 0 ? TNodeKey("?") : nodes[random() % nodes.size()]->Key;
      Model* const start = model.Find(nodes[random() % nodes.size()]->Key);
      tree.OpenTreeNode(start->node->Key);
      Model* const below = start->Find(key);
      ASSERT_EQ(tree.GetItem(key), below != nullptr ? below->node : nullptr);
      Model* const found = model.Find(key);
      if (random() % 3 != 0) {
        (found != nullptr ? found : &model)->children.push_back({tree.Add(key), {}});
      } else {
        tree.Delete(key);
        if (found == &model) model.children.clear();
        if (found != nullptr && found != &model) model.Delete(found->node);
      }
      Nodes want;
      model.List(want);
      ASSERT_EQ(All(tree), want);
    }
  }
}

TEST(qxTreeList, BlocksInReservedSpaceKnowTheirSize) {
  void* const space = ReserveMem(1 << 16);
  void* block = space;
  vGetMem(block, 5000);
  EXPECT_EQ(block, static_cast<char*>(space) + 4);
  EXPECT_EQ(*static_cast<std::int32_t*>(space), 5000);
  static_cast<char*>(block)[4999] = 1;
  void* second = static_cast<char*>(space) + 20000;
  vGetMem(second, 10);
  vFreeMem(second);
  EXPECT_TRUE(CommitMem(second, 1));  // the space is still there
  vFreeMem(block);
  EXPECT_FALSE(CommitMem(space, 1));  // the block at its start took it along
}

}  // namespace
