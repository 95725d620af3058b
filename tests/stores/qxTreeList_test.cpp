#include <qxTools/encoding/QXUniKey.h>
#include <qxTools/memory/QXMemTools.h>
#include <qxTools/platform/VirtualMemory.h>
#include <qxTools/stores/qxTreeList.h>

#include "support/Sources.h"
#include "support/Testing.h"

namespace {

using namespace qxTools;
using namespace qxTools::qxTreeList;
using namespace qxTools::test;
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
  EXPECT_EQ(tree.GetRootNode()->ParentKey, "");
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
  TList list;
  list.Add(nullptr);
  for (const TNodeKey& open : {a->Key, d->Key}) {  // without children the list stays
    tree.OpenTreeNode(open);
    tree.GetTreeNodeList(list);
    EXPECT_EQ(list.GetCount(), 2);
    EXPECT_EQ(list.GetItems(1), c);
  }
  EXPECT_EQ(tree.GetItem(d->Key.Text() + "cut"), d);
  EXPECT_EQ(tree.GetItem(d->Key.Text().substr(0, 15)), nullptr);
  EXPECT_EQ(MessageOf([&] { tree.OpenTreeNode("abcdefghijklmnopqrst"); }),
            "Key(abcdefghijklmnop) not Found.");
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
  // clang-format off
  const std::tuple<Find, TNodeKey, bool, pQXTreeNode> rows[] = {
    {&TQXTreeNodes::FindFirstNode, b->Key, true, a}, {&TQXTreeNodes::FindFirstNode, kRootKey, true, root},
    {&TQXTreeNodes::FindFirstNode, "?", false, &untouched}, {&TQXTreeNodes::FindLastNode, a->Key, true, c},
    {&TQXTreeNodes::FindLastNode, kRootKey, true, root}, {&TQXTreeNodes::FindNextNode, a->Key, true, b},
    {&TQXTreeNodes::FindNextNode, c->Key, false, nullptr},
    {&TQXTreeNodes::FindNextNode, "?", false, &untouched}, {&TQXTreeNodes::FindPrevNode, c->Key, true, b},
    {&TQXTreeNodes::FindPrevNode, a->Key, false, &untouched}, {&TQXTreeNodes::FindSubNode, kRootKey, true, a},
    {&TQXTreeNodes::FindSubNode, a->Key, false, &untouched}, {&TQXTreeNodes::FindNode, "?", false, nullptr}};
  // clang-format on
  for (const auto& [find, key, found, want] : rows) {
    pQXTreeNode node = &untouched;
    EXPECT_EQ((tree.*find)(key, node), found) << key;
    EXPECT_EQ(node, want) << key;
  }
}

TEST(qxTreeList, DeleteTakesTheSubtreeAndClearClosesAllButTheRoot) {
  TQXTreeNodes tree;
  tree.OpenRootNode();
  const pQXTreeNode a = tree.Add();
  const pQXTreeNode b = tree.Add(a->Key);
  tree.Add(b->Key);
  tree.OpenTreeNode(b->Key);
  tree.Delete(pQXTreeNode{nullptr});
  tree.Delete(tree.GetRootNode());
  tree.Delete(b->Key, 0);
  EXPECT_EQ(All(tree).size(), 3U);
  tree.Delete(b);
  EXPECT_EQ(All(tree), Nodes{a});
  EXPECT_EQ(MessageOf([&] { tree.Add(); }), kNotOpened);  // the opened node is gone
  EXPECT_EQ(tree.GetItem(kRootKey), nullptr);
  tree.OpenRootNode();
  tree.OpenTreeNode(tree.Add()->Key);
  tree.Clear();
  EXPECT_EQ(MessageOf([&] { tree.Add(); }), kNotOpened);
  tree.OpenRootNode();
  tree.Clear();
  EXPECT_EQ(tree.Add()->ParentKey, kRootKey);
}

TEST(qxTreeList, TheRootDrawsAKeyAndDropsIt) {
  const FixedClock clock(0);
  std::vector<std::uint32_t> numbers(40, 0);  // twenty a key
  numbers[10] = UINT32_MAX;
  FixedDraws draws(numbers);
  const std::string dropped = QXUniKey::UniKey();
  const std::string second = QXUniKey::UniKey();
  EXPECT_EQ(TQXTreeNodes().GetRootNode()->Key, kRootKey);
  EXPECT_NE(dropped, second);
  EXPECT_EQ(QXUniKey::UniKey(), second);
}

TEST(qxTreeList, DataIsZeroAndItsOwnerFreesIt) {
  TQXTreeNodes tree(8);
  const pQXTreeNode node = tree.Add(kRootKey);
  auto* const kept = static_cast<std::uint64_t*>(node->Data);
  tree.Delete(node);
  EXPECT_EQ(*kept, 0U);  // a delete leaves data blocks
  QXMemTools::MemFree(kept);
}

TEST(qxTreeList, DepthDoesNotMatter) {
  constexpr int kNodes = 200000;
  TQXTreeNodes tree;
  const TNodeKey top = tree.Add(kRootKey)->Key;
  TNodeKey deep = top;
  for (int i = 1; i < kNodes; ++i) deep = tree.Add(deep)->Key;
  EXPECT_EQ(All(tree).size(), kNodes);
  tree.Delete(top);
  EXPECT_EQ(All(tree), Nodes{});
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
  tree.EnumTreeNodeLink(parent, true, [](pQXTreeNode) { ADD_FAILURE(); });  // its count is 0
  FreeTreeNode(4, child);
  FreeTreeNode(parent);
}

/// The place behind the last of the nodes below number `i`, all in the order of their enumeration.
std::size_t EndOf(const Nodes& nodes, std::size_t i) {
  std::size_t end = i + 1;
  while (end < nodes.size() && nodes[end]->Level > nodes[i]->Level) ++end;
  return end;
}

/// The number of the first node with the key, at `i` or below it, by a walk; that of all when there is none.
std::size_t Find(const Nodes& nodes, std::size_t i, const TNodeKey& key) {
  const std::size_t end = EndOf(nodes, i);
  while (i < end && !(nodes[i]->Key == key)) ++i;
  return i < end ? i : nodes.size();
}

TEST(qxTreeList, AgreesWithAWalkWhateverKeysAreEqual) {
  std::mt19937 random(7);
  const FixedClock clock(0);
  for (int round = 0; round < 60; ++round) {
    // One cell of the keys takes 30 values and the others stay, so that keys repeat.
    std::vector<std::uint32_t> numbers(20 * 64, 0);
    for (std::size_t i = 10; i < numbers.size(); i += 20) numbers[i] = static_cast<std::uint32_t>(random());
    FixedDraws draws(numbers);
    TQXTreeNodes tree;
    tree.OpenRootNode();
    Nodes nodes{tree.GetRootNode()};
    const auto at = [&](std::size_t i) { return nodes.begin() + static_cast<std::ptrdiff_t>(i); };
    for (int step = 0; step < 150; ++step) {
      const TNodeKey key = random() % 8 == 0 ? TNodeKey("?") : nodes[random() % nodes.size()]->Key;
      const std::size_t start = Find(nodes, 0, nodes[random() % nodes.size()]->Key);
      tree.OpenTreeNode(nodes[start]->Key);
      const std::size_t below = Find(nodes, start, key);
      ASSERT_EQ(tree.GetItem(key), below < nodes.size() ? nodes[below] : nullptr);
      const std::size_t found = Find(nodes, 0, key);
      if (random() % 3 != 0) {
        // An unknown key adds below the root.
        nodes.insert(at(EndOf(nodes, found % nodes.size())), tree.Add(key));
      } else if (found < nodes.size()) {
        nodes.erase(at(std::max(found, std::size_t{1})), at(EndOf(nodes, found)));
        tree.Delete(key);
      }
      ASSERT_EQ(All(tree), Nodes(nodes.begin() + 1, nodes.end()));
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
