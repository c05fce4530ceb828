// clsNodeTable: identifier records in a binary search tree with a cursor, kept in a text file on request.
//
// Order: by lower-case key (identifiers/key_order.h); smaller keys to the left of a node, larger ones to its
// right, equal ones (when duplicates are allowed) to the left. The tree is never rebalanced: its shape is
// that of plain insertion, so keys that arrive in order make a chain. Beside the tree stands an ordered index
// of the same nodes. A key is found there, and so is the place where plain insertion would end, in O(log n)
// however deep the tree is: a new key belongs below one of its two neighbours. Walks follow the index or the
// links in both directions and need no stack.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "identifiers/clsExNode.h"
#include "identifiers/key_order.h"
#include "platform/value.h"

namespace plotvane::identifiers {

class clsNodeTable {
 public:
  // Empty; duplicates are refused and keys stored as given.
  clsNodeTable();
  ~clsNodeTable();
  clsNodeTable(const clsNodeTable&) = delete;
  clsNodeTable& operator=(const clsNodeTable&) = delete;

  // The cursor: the node found, inserted or reached by the last operation. Never nothing; in a new table it
  // is a spare node outside the tree. Its data may be read and changed, its links only read; a node whose Id
  // is changed this way is still found under the key it was added with.
  std::shared_ptr<clsExNode> CurrentNode;

  bool AllowDuplicateId = false;
  // Store new keys in lower case. AddNode keeps the spelling of its node all the same.
  bool AddLowerCase = false;

  [[nodiscard]] bool HasNodes() const noexcept { return !mIndex.empty(); }
  [[nodiscard]] std::size_t Count() const noexcept { return mIndex.size(); }

  // The root; while the table is empty, the node that waits for the first key.
  [[nodiscard]] const std::shared_ptr<clsExNode>& HeadNode() const noexcept { return mHead; }

  // The parent of the current node, nothing when that is the head or outside the tree.
  [[nodiscard]] std::shared_ptr<clsExNode> ParentNode() const;

  // Inserts a new node with the key `id` and makes it current; `id` then holds the key as stored. False when
  // the key exists and duplicates are not allowed: the cursor is at the existing node then. O(log n).
  bool Add(std::string& id);

  // Adds the key of `nodeToAdd` and copies its data into the current node. When the key exists and duplicates
  // are not allowed, the existing node's data, its spelling too, are thus overwritten: this table's own rule,
  // through which a loaded file replaces entries of the same name.
  void AddNode(const clsExNode& nodeToAdd);

  // Finds the uppermost node with this key and makes it current. On failure the cursor is at the last node of
  // the path that a new key would take; in an empty table it stays. O(log n).
  bool Search(std::string_view id);

  // The same node, nothing when there is none, without moving the cursor. O(log n), no allocation.
  [[nodiscard]] clsExNode* Find(std::string_view id) const noexcept;

  // Search, then RemoveCurrent; false when the key is missing.
  bool Remove(std::string_view id);

  // Takes the current node out of the tree; nothing happens when it is not in it. A right child, and the
  // head, give way to their left subtree, at whose rightmost node the right subtree is hung; a left child
  // gives way to its right subtree, at whose leftmost node the left subtree is hung. This lopsided rule is
  // the table's own. The cursor ends at the node below which a subtree was hung, otherwise it stays at the
  // removed node.
  void RemoveCurrent();

  // From `start`, a node of this table, the cursor goes right (left) as far as it can.
  void FindRightFoot(clsExNode& start);
  void FindLeftFoot(clsExNode& start);

  // The Ids of all nodes as they are spelled, ascending by key.
  [[nodiscard]] std::vector<std::string> Ids() const;

  // Diagnostics: the keys of a subtree, one on each line, ascending (D) or descending (A).
  [[nodiscard]] std::string DebugDispNodeD(const clsExNode& start) const;
  [[nodiscard]] std::string DebugDispNodeA(const clsExNode& start) const;

  // Builds one new table (for each type) with copies of all nodes whose type is exactly that one; NTArray
  // gives them until the next collection. Nodes are visited from the head down, each before its left and then
  // its right subtree. CollectFlags converts its types as the platform does: RunTimeError 13 or 6 for one
  // that is no 32-bit number, 6 for more than 32,767 types; the earlier collection then stays.
  void CollectFlag(std::int32_t flagType);
  void CollectFlags(std::span<const platform::Value> flagTypes);

  // The collected tables; the first is at [0]. A new table has one entry that is nothing.
  [[nodiscard]] const std::vector<std::shared_ptr<clsNodeTable>>& NTArray() const noexcept {
    return mCollected;
  }

  // Writes all nodes, in descending order, to a file that is made or emptied (`path` in UTF-8); an empty
  // table makes an empty file. Errors: platform/open_files.h.
  void SaveToFile(std::string_view path);

  // Adds every record of a file with AddNode; the table is not cleared first. Errors: platform/open_files.h
  // and clsExNode; the records before a damaged one stay added.
  void LoadFromFile(std::string_view path);

  // The first broken invariant in words, empty when the tree, its index and its links agree.
  [[nodiscard]] std::string Check() const;

 private:
  enum class Side { Left, Right };

  struct KeyOrder {
    using is_transparent = void;
    using Node = std::shared_ptr<clsExNode>;
    bool operator()(const Node& a, const Node& b) const noexcept { return a->mKey < b->mKey; }
    bool operator()(const Node& a, std::string_view id) const noexcept { return CompareKey(a->mKey, id) < 0; }
    bool operator()(std::string_view id, const Node& b) const noexcept { return CompareKey(b->mKey, id) > 0; }
  };
  // In the order of the tree from left to right; equal keys in that order too.
  using Index = std::multiset<std::shared_ptr<clsExNode>, KeyOrder>;

  // The uppermost node with this key, or the end.
  [[nodiscard]] Index::const_iterator FindKey(std::string_view id) const noexcept;
  // This very node, or the end when it is not in the tree.
  [[nodiscard]] Index::const_iterator FindNode(const clsExNode& node) const noexcept;
  // The node below which plain insertion attaches a key that belongs before `place`; the table has nodes.
  [[nodiscard]] const std::shared_ptr<clsExNode>& NodeAbove(Index::const_iterator place) const noexcept;
  void Insert(const std::string& id);
  [[nodiscard]] clsExNode* JoinChildren(clsExNode& node, Side winner);
  void FindFoot(clsExNode& start, Side side);
  void Collect(std::span<const std::int32_t> flagTypes);
  [[nodiscard]] std::string CheckNode(const clsExNode& node) const;

  [[nodiscard]] static clsExNode* Child(const clsExNode& node, Side side) noexcept;
  static void SetChild(clsExNode& node, Side side, clsExNode* child) noexcept;
  static void Unlink(clsExNode& node) noexcept;
  [[nodiscard]] static const clsExNode* Foot(const clsExNode& start, Side side) noexcept;
  [[nodiscard]] static const clsExNode* NextInOrder(const clsExNode& node, const clsExNode& top,
                                                    Side forward) noexcept;
  [[nodiscard]] static const clsExNode* NextFromHead(const clsExNode& node) noexcept;
  [[nodiscard]] static std::string KeysInOrder(const clsExNode& start, Side forward);

  std::shared_ptr<clsExNode> mHead;  // in the index, unless the table is empty
  Index mIndex;
  std::vector<std::shared_ptr<clsNodeTable>> mCollected;
};

}  // namespace plotvane::identifiers
