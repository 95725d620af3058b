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
using qxTools::test::FixedClock;
using qxTools::test::FixedDraws;
using qxTools::test::MessageOf;

constexpr char kRootKey[] = "0000000000000000";

TQXTreeNode sentinel{{}, {}, nullptr, -1};

template <class Enumerate>
std::vector<pQXTreeNode> Visited(Enumerate enumerate) {
  std::vector<pQXTreeNode> nodes;
  enumerate([&](pQXTreeNode node) { nodes.push_back(node); });
  return nodes;
}

TEST(qxTreeList, ANewStoreHasOnlyItsRootAndIsClosed) {
  TQXTreeNodes tree;
  EXPECT_EQ(tree.GetRootNode()->Key, kRootKey);
  EXPECT_EQ(tree.GetRootNode()->ParentKey, "");
  EXPECT_EQ(tree.GetRootNode()->Level, 0);
  EXPECT_EQ(tree.GetRootNode()->Data, nullptr);
  EXPECT_EQ(MessageOf([&] { tree.Add(); }), "TreeNode Not Opend.");
  EXPECT_EQ(tree.GetItem(kRootKey), nullptr);
  tree.OpenRootNode();
  EXPECT_EQ(tree.GetItem(kRootKey), tree.GetRootNode());
}

TEST(qxTreeList, AddMakesLastChildren) {
  TQXTreeNodes tree;
  tree.OpenRootNode();
  const pQXTreeNode a = tree.Add();
  const pQXTreeNode b = tree.Add(a->Key);
  const pQXTreeNode c = tree.Add("no such key");
  EXPECT_EQ(b->ParentKey, a->Key);
  EXPECT_EQ(b->Level, 2);
  EXPECT_EQ(c->ParentKey, kRootKey);
  EXPECT_EQ(c->Level, 1);
  tree.OpenTreeNode(a->Key);
  const pQXTreeNode d = tree.Add();
  EXPECT_EQ(Visited([&](auto proc) { tree.EnumAllTreeNode(proc); }), (std::vector{a, b, d, c}));
  EXPECT_EQ(Visited([&](auto proc) { tree.EnumTreeNode(kRootKey, proc, false); }), (std::vector{a, c}));
  EXPECT_EQ(Visited([&](auto proc) { tree.EnumTreeNode(proc, true); }), (std::vector{b, d}));
  pQXTreeNodeLink link = nullptr;
  ASSERT_TRUE(tree.FindNodeLink(a->Key, link));
  EXPECT_EQ(link->Count, 2);
  EXPECT_EQ(tree.FindFirstSubNodeLink(link)->Node, b);
  EXPECT_EQ(tree.FindLastSubNodeLink(link)->Node, d);
  EXPECT_EQ(tree.FindLastSubNodeLink(link->FirstChild), nullptr);
}

TEST(qxTreeList, SiblingsAreWalkedAndNextDiffersFromPrevious) {
  TQXTreeNodes tree;
  tree.OpenRootNode();
  const pQXTreeNode a = tree.Add();
  const pQXTreeNode b = tree.Add();
  const pQXTreeNode c = tree.Add();
  using Find = bool (TQXTreeNodes::*)(const TNodeKey&, pQXTreeNode&) const;
  const struct {
    Find find;
    TNodeKey key;
    bool found;
    pQXTreeNode want;
  } cases[] = {
      {&TQXTreeNodes::FindFirstNode, b->Key, true, a},
      {&TQXTreeNodes::FindFirstNode, kRootKey, true, tree.GetRootNode()},
      {&TQXTreeNodes::FindFirstNode, "?", false, &sentinel},
      {&TQXTreeNodes::FindLastNode, a->Key, true, c},
      {&TQXTreeNodes::FindLastNode, kRootKey, true, tree.GetRootNode()},
      {&TQXTreeNodes::FindLastNode, "?", false, &sentinel},
      {&TQXTreeNodes::FindNextNode, a->Key, true, b},
      {&TQXTreeNodes::FindNextNode, c->Key, false, nullptr},  // set to null
      {&TQXTreeNodes::FindNextNode, "?", false, &sentinel},
      {&TQXTreeNodes::FindPrevNode, c->Key, true, b},
      {&TQXTreeNodes::FindPrevNode, a->Key, false, &sentinel},  // left alone
      {&TQXTreeNodes::FindPrevNode, "?", false, &sentinel},
      {&TQXTreeNodes::FindSubNode, kRootKey, true, a},
      {&TQXTreeNodes::FindSubNode, a->Key, false, &sentinel},
      {&TQXTreeNodes::FindNode, b->Key, true, b},
      {&TQXTreeNodes::FindNode, "?", false, nullptr},
  };
  for (const auto& row : cases) {
    pQXTreeNode node = &sentinel;
    EXPECT_EQ((tree.*row.find)(row.key, node), row.found) << row.key << " in row " << &row - cases;
    EXPECT_EQ(node, row.want) << row.key << " in row " << &row - cases;
  }
}

TEST(qxTreeList, KeysAreExactAndCutToSixteenCharacters) {
  TQXTreeNodes tree;
  tree.OpenRootNode();
  const pQXTreeNode node = tree.Add();
  const std::string key = node->Key.Text();
  EXPECT_EQ(tree.GetItem(key + "more"), node);
  EXPECT_EQ(tree.GetItem(key.substr(0, 15)), nullptr);
  EXPECT_EQ(tree.GetItem(""), nullptr);
  EXPECT_EQ(MessageOf([&] { tree.OpenTreeNode("abcdefghijklmnopqrst"); }),
            "Key(abcdefghijklmnop) not Found.");
  EXPECT_EQ(tree.GetItem(key), node);  // still opened at the root
}

TEST(qxTreeList, OpeningByKeyDoesNotOpenAClosedStore) {
  TQXTreeNodes tree;
  const pQXTreeNode a = tree.Add(kRootKey);
  const pQXTreeNode b = tree.Add(a->Key);
  tree.OpenTreeNode(a->Key);
  EXPECT_EQ(MessageOf([&] { tree.Add(); }), "TreeNode Not Opend.");
  EXPECT_EQ(tree.GetItem(a->Key), nullptr);
  EXPECT_TRUE(Visited([&](auto proc) { tree.EnumTreeNode(proc, true); }).empty());
  tree.OpenRootNode();
  tree.OpenTreeNode(a->Key);
  EXPECT_EQ(tree.GetItem(a->Key), a);
  EXPECT_EQ(tree.GetItem(b->Key), b);
  EXPECT_EQ(tree.GetItem(kRootKey), nullptr);  // outside the opened subtree
  tree.CloseTreeNode();
  EXPECT_EQ(tree.GetItem(b->Key), nullptr);
}

TEST(qxTreeList, TheListOfChildrenIsLeftAloneWithoutChildren) {
  TQXTreeNodes tree;
  TList list;
  int other = 0;
  list.Add(&other);
  tree.GetTreeNodeList(list);
  tree.OpenRootNode();
  tree.GetTreeNodeList(list);
  EXPECT_EQ(list.GetCount(), 1);
  EXPECT_EQ(list.GetItems(0), &other);
  const pQXTreeNode a = tree.Add();
  const pQXTreeNode b = tree.Add();
  tree.Add(a->Key);
  tree.GetTreeNodeList(list);
  EXPECT_EQ(list.GetCount(), 2);
  EXPECT_EQ(list.GetItems(0), a);
  EXPECT_EQ(list.GetItems(1), b);
  EXPECT_EQ(MessageOf([&] { list.GetItems(2); }), "List index out of bounds (2)");
}

TEST(qxTreeList, DeleteTakesTheSubtreeAndKeepsTheRoot) {
  TQXTreeNodes tree;
  tree.OpenRootNode();
  const pQXTreeNode a = tree.Add();
  const pQXTreeNode b = tree.Add(a->Key);
  const TNodeKey gone = tree.Add(b->Key)->Key;
  const pQXTreeNode c = tree.Add();
  const auto all = [&] { return Visited([&](auto proc) { tree.EnumAllTreeNode(proc); }).size(); };
  tree.Delete(pQXTreeNode{nullptr});
  tree.Delete(tree.GetRootNode());
  tree.Delete(b->Key, 0);
  tree.Delete("no such key");
  EXPECT_EQ(all(), 4U);
  tree.Delete(b);
  EXPECT_EQ(all(), 2U);
  EXPECT_EQ(tree.GetItem(gone), nullptr);
  tree.OpenTreeNode(c->Key);
  tree.Delete(kRootKey);
  EXPECT_EQ(all(), 0U);
  EXPECT_EQ(MessageOf([&] { tree.Add(); }), "TreeNode Not Opend.");  // the opened node is gone
  EXPECT_EQ(tree.GetItem(kRootKey), nullptr);
  EXPECT_EQ(tree.Add(kRootKey)->Level, 1);
}

TEST(qxTreeList, DataIsZeroAndItsOwnerFreesIt) {
  TQXTreeNodes tree(8);
  tree.OpenRootNode();
  const TNodeKey key = tree.Add()->Key;
  for (int i = 0; i < 3; ++i) tree.Add(key);
  const auto freeData = [](pQXTreeNode node) {
    EXPECT_EQ(*static_cast<std::uint64_t*>(node->Data), 0U);
    QXMemTools::MemFree(node->Data);
    node->Data = nullptr;
  };
  void* const kept = tree.GetItem(key)->Data;
  tree.EnumTreeNode(key, freeData, true);
  tree.Delete(key);
  EXPECT_GE(QXMemTools::MemSize(kept), 8U);  // a delete leaves data blocks
  QXMemTools::MemFree(kept);
  tree.Add();
  tree.EnumAllTreeNode(freeData);
  tree.Clear();
}

TEST(qxTreeList, DepthAndWidthDoNotMatter) {
  constexpr int kNodes = 200000;
  TQXTreeNodes tree;
  const TNodeKey wide = tree.Add(kRootKey)->Key;
  TNodeKey deep = tree.Add(kRootKey)->Key;
  const TNodeKey top = deep;
  for (int i = 0; i < kNodes; ++i) {
    tree.Add(wide);
    deep = tree.Add(deep)->Key;
  }
  EXPECT_EQ(Visited([&](auto proc) { tree.EnumAllTreeNode(proc); }).size(), 2U * kNodes + 2);
  pQXTreeNodeLink link = nullptr;
  tree.FindNodeLink(top, link);
  EXPECT_TRUE(tree.FindNodeLink(deep, link, link));
  EXPECT_FALSE(tree.FindNodeLink(wide, link, link));
  tree.Delete(top);
  EXPECT_EQ(Visited([&](auto proc) { tree.EnumAllTreeNode(proc); }).size(), kNodes + 1U);
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

TEST(qxTreeList, LinksOfOtherTreesAreSearchedAsTheyHangTogether) {
  const TQXTreeNodes tree;
  pQXTreeNodeLink parent = nullptr;
  pQXTreeNodeLink child = nullptr;
  NewTreeNode(parent);
  NewTreeNode(4, child);
  parent->FirstChild = child;
  child->Parent = parent;
  pQXTreeNodeLink found = nullptr;
  EXPECT_TRUE(tree.FindNodeLink(child->Node->Key, parent, found));
  EXPECT_EQ(found, child);
  EXPECT_EQ(tree.FindLastSubNodeLink(parent), child);
  EXPECT_FALSE(tree.FindNodeLink(kRootKey, parent, found));
  EXPECT_FALSE(tree.FindNodeLink(kRootKey, nullptr, found));
  FreeTreeNode(4, child);
  FreeTreeNode(parent);
}

// A tree by the definition: every search is a walk.
struct Model {
  pQXTreeNode node = nullptr;
  std::vector<Model> children;

  void List(std::vector<pQXTreeNode>& nodes) const {
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
  bool Delete(const pQXTreeNode which) {
    const auto at = std::find_if(children.begin(), children.end(), [&](auto& m) { return m.node == which; });
    if (at != children.end()) return children.erase(at), true;
    return std::any_of(children.begin(), children.end(), [&](auto& m) { return m.Delete(which); });
  }
};

TEST(qxTreeList, AgreesWithAWalkWhateverKeysAreEqual) {
  std::mt19937 random(7);
  const FixedClock clock(0);
  for (int round = 0; round < 60; ++round) {
    // One cell of the keys varies, over 30 values; other cells stay, so that keys repeat.
    std::vector<std::uint32_t> numbers(20 * 64, 0);
    for (std::size_t i = 10; i < numbers.size(); i += 20) numbers[i] = static_cast<std::uint32_t>(random());
    FixedDraws draws(numbers);
    TQXTreeNodes tree;
    Model model{tree.GetRootNode(), {}};
    tree.OpenRootNode();
    for (int step = 0; step < 150; ++step) {
      std::vector<pQXTreeNode> nodes{tree.GetRootNode()};
      model.List(nodes);
      const TNodeKey key = random() % 8 == 0 ? TNodeKey("?") : nodes[random() % nodes.size()]->Key;
      Model* const found = model.Find(key);
      pQXTreeNodeLink link = nullptr;
      ASSERT_EQ(tree.FindNodeLink(key, link), found != nullptr);
      if (found != nullptr) {
        ASSERT_EQ(link->Node, found->node);
      }
      Model* const start = model.Find(nodes[random() % nodes.size()]->Key);
      tree.OpenTreeNode(start->node->Key);
      Model* const below = start->Find(key);
      ASSERT_EQ(tree.GetItem(key), below != nullptr ? below->node : nullptr);
      if (random() % 3 != 0) {
        Model* const parent = found != nullptr ? found : &model;
        parent->children.push_back({tree.Add(key), {}});
      } else {
        tree.Delete(key);
        if (found == &model) model.children.clear();
        if (found != nullptr && found != &model) model.Delete(found->node);
      }
      std::vector<pQXTreeNode> want;
      model.List(want);
      ASSERT_EQ(Visited([&](auto proc) { tree.EnumAllTreeNode(proc); }), want);
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
