#include "identifiers/clsNodeTable.h"

#include <iterator>
#include <limits>
#include <utility>

#include "platform/ascii.h"
#include "platform/conversions.h"
#include "platform/open_files.h"
#include "platform/runtime_error.h"

namespace plotvane::identifiers {

clsNodeTable::clsNodeTable()
    : CurrentNode(std::make_shared<clsExNode>()), mHead(std::make_shared<clsExNode>()), mCollected(1) {}

clsNodeTable::~clsNodeTable() {
  // A node that somebody still shares must not point at nodes that are gone.
  for (const auto& node : mIndex) Unlink(*node);
}

std::shared_ptr<clsExNode> clsNodeTable::ParentNode() const {
  clsExNode* parent = CurrentNode->mParent;
  return parent == nullptr ? nullptr : parent->shared_from_this();
}

bool clsNodeTable::Add(std::string& id) {
  const auto existing = AllowDuplicateId ? mIndex.end() : FindKey(id);
  if (existing != mIndex.end()) {
    CurrentNode = *existing;
    return false;
  }
  if (AddLowerCase) id = platform::LowerCaseText(id);
  Insert(id);
  return true;
}

void clsNodeTable::AddNode(const clsExNode& nodeToAdd) {
  std::string id = nodeToAdd.Id;
  Add(id);
  CurrentNode->CopyData(nodeToAdd);
}

bool clsNodeTable::Search(std::string_view id) {
  if (!HasNodes()) return false;
  const auto found = FindKey(id);
  CurrentNode = found != mIndex.end() ? *found : NodeAbove(mIndex.lower_bound(id));
  return found != mIndex.end();
}

clsExNode* clsNodeTable::Find(std::string_view id) const noexcept {
  const auto found = FindKey(id);
  return found == mIndex.end() ? nullptr : found->get();
}

bool clsNodeTable::Remove(std::string_view id) {
  if (!Search(id)) return false;
  RemoveCurrent();
  return true;
}

void clsNodeTable::RemoveCurrent() {
  const auto place = FindNode(*CurrentNode);
  if (place == mIndex.end()) return;
  const std::shared_ptr<clsExNode> node = *place;  // lives until the end of this function at least
  clsExNode* parent = node->mParent;
  const bool isLeftChild = parent != nullptr && Child(*parent, Side::Left) == node.get();
  clsExNode* successor = JoinChildren(*node, isLeftChild ? Side::Right : Side::Left);
  if (parent != nullptr) {
    SetChild(*parent, isLeftChild ? Side::Left : Side::Right, successor);
  } else {
    mHead = successor != nullptr ? successor->shared_from_this() : std::make_shared<clsExNode>();
    mHead->mParent = nullptr;
  }
  mIndex.erase(place);
  Unlink(*node);
}

void clsNodeTable::FindRightFoot(clsExNode& start) {
  FindFoot(start, Side::Right);
}

void clsNodeTable::FindLeftFoot(clsExNode& start) {
  FindFoot(start, Side::Left);
}

std::string clsNodeTable::DebugDispNodeD(const clsExNode& start) const {
  return KeysInOrder(start, Side::Right);
}

std::string clsNodeTable::DebugDispNodeA(const clsExNode& start) const {
  return KeysInOrder(start, Side::Left);
}

void clsNodeTable::CollectFlag(std::int32_t flagType) {
  Collect({&flagType, 1});
}

void clsNodeTable::CollectFlags(std::span<const platform::Value> flagTypes) {
  if (flagTypes.size() > std::numeric_limits<std::int16_t>::max()) {
    throw platform::RunTimeError(platform::StandardError::Overflow);
  }
  std::vector<std::int32_t> types;
  for (const platform::Value& flagType : flagTypes) {
    types.push_back(platform::ToInt32(flagType.ToNumber().OrThrow()).OrThrow());
  }
  Collect(types);
}

std::vector<std::string> clsNodeTable::Ids() const {
  std::vector<std::string> ids;
  for (const auto& node : mIndex) ids.push_back(node->Id);
  return ids;
}

void clsNodeTable::SaveToFile(std::string_view path) {
  platform::ScopedFile file(path, platform::FileMode::Output);
  for (auto node = mIndex.rbegin(); node != mIndex.rend(); ++node) (*node)->SaveDataToOpenFile(file.Number());
  file.Close();
}

void clsNodeTable::LoadFromFile(std::string_view path) {
  const platform::ScopedFile file(path, platform::FileMode::Input);
  clsExNode scratch;
  while (platform::SharedOpenFiles().HasRecord(file.Number())) {
    scratch.LoadDataFromOpenFile(file.Number());
    AddNode(scratch);
  }
}

// Equal keys lie below one another to the left, so the uppermost is the last of them in order.
clsNodeTable::Index::const_iterator clsNodeTable::FindKey(std::string_view id) const noexcept {
  const auto after = mIndex.upper_bound(id);
  if (after == mIndex.begin()) return mIndex.end();
  const auto last = std::prev(after);
  return CompareKey((*last)->mKey, id) == 0 ? last : mIndex.end();
}

// A node that a search found is the last of its equals, so the walk begins there.
clsNodeTable::Index::const_iterator clsNodeTable::FindNode(const clsExNode& node) const noexcept {
  const auto [first, last] = mIndex.equal_range(std::string_view(node.mKey));
  for (auto place = last; place != first;) {
    --place;
    if (place->get() == &node) return place;
  }
  return mIndex.end();
}

// Of two neighbours in order one lies below the other, and between them there is one free link: the right one
// of the smaller neighbour, or else the left one of the larger.
const std::shared_ptr<clsExNode>& clsNodeTable::NodeAbove(Index::const_iterator place) const noexcept {
  if (place == mIndex.begin()) return *place;
  const auto before = std::prev(place);
  return (*before)->RightExists ? *place : *before;
}

// Before the keys equal to it: an equal key counts as larger than the new one.
void clsNodeTable::Insert(const std::string& id) {
  const auto node = HasNodes() ? std::make_shared<clsExNode>() : mHead;
  node->Id = id;
  node->mKey = platform::LowerCaseText(id);
  const auto place = mIndex.lower_bound(id);
  if (HasNodes()) {
    clsExNode& parent = *NodeAbove(place);
    const bool before = place != mIndex.end() && place->get() == &parent;
    mIndex.insert(place, node);
    SetChild(parent, before ? Side::Left : Side::Right, node.get());
  } else {
    mIndex.insert(node);
  }
  CurrentNode = node;
}

// Makes one subtree of the node's two, the one on the winner's side above the other; nothing when there is
// neither.
clsExNode* clsNodeTable::JoinChildren(clsExNode& node, Side winner) {
  const Side loser = winner == Side::Left ? Side::Right : Side::Left;
  clsExNode* upper = Child(node, winner);
  clsExNode* lower = Child(node, loser);
  if (upper == nullptr) return lower;
  if (lower != nullptr) {
    FindFoot(*upper, loser);
    SetChild(*CurrentNode, loser, lower);
  }
  return upper;
}

void clsNodeTable::FindFoot(clsExNode& start, Side side) {
  clsExNode* node = &start;
  while (clsExNode* child = Child(*node, side)) node = child;
  CurrentNode = node->shared_from_this();
}

void clsNodeTable::Collect(std::span<const std::int32_t> flagTypes) {
  mCollected.clear();
  for (std::size_t i = 0; i < flagTypes.size(); ++i) {
    mCollected.push_back(std::make_shared<clsNodeTable>());
    mCollected.back()->AllowDuplicateId = AllowDuplicateId;  // else some of several equal keys would be lost
  }
  if (!HasNodes()) return;
  for (const clsExNode* node = mHead.get(); node != nullptr; node = NextFromHead(*node)) {
    for (std::size_t i = 0; i < flagTypes.size(); ++i) {
      if (node->Type() == flagTypes[i]) mCollected[i]->AddNode(*node);
    }
  }
}

std::string clsNodeTable::Check() const {
  if (mHead->mParent != nullptr) return "the head has a parent";
  if (!HasNodes())
    return Child(*mHead, Side::Left) || Child(*mHead, Side::Right) ? "an empty table has links" : "";
  const clsExNode* node = Foot(*mHead, Side::Left);
  const clsExNode* before = nullptr;
  for (const auto& indexed : mIndex) {
    if (node != indexed.get()) return "tree and index differ at " + indexed->Id;
    if (std::string fault = CheckNode(*node); !fault.empty()) return fault;
    const int order = before == nullptr ? -1 : before->mKey.compare(node->mKey);
    if (order > 0) return "wrong order at " + node->Id;
    if (order == 0 && before->RightExists) return "an equal key to the right: " + node->Id;
    before = node;
    node = NextInOrder(*node, *mHead, Side::Right);
  }
  return node == nullptr ? "" : "the tree has more nodes than the index";
}

std::string clsNodeTable::CheckNode(const clsExNode& node) const {
  if (node.LeftExists != (node.Left != nullptr)) return "flag and link differ to the left of " + node.Id;
  if (node.RightExists != (node.Right != nullptr)) return "flag and link differ to the right of " + node.Id;
  for (const Side side : {Side::Left, Side::Right}) {
    const clsExNode* child = Child(node, side);
    if (child != nullptr && child->mParent != &node) return "a child does not know its parent " + node.Id;
  }
  return "";
}

clsExNode* clsNodeTable::Child(const clsExNode& node, Side side) noexcept {
  if (side == Side::Left) return node.LeftExists ? node.Left : nullptr;
  return node.RightExists ? node.Right : nullptr;
}

void clsNodeTable::SetChild(clsExNode& node, Side side, clsExNode* child) noexcept {
  (side == Side::Left ? node.Left : node.Right) = child;
  (side == Side::Left ? node.LeftExists : node.RightExists) = child != nullptr;
  if (child != nullptr) child->mParent = &node;
}

void clsNodeTable::Unlink(clsExNode& node) noexcept {
  SetChild(node, Side::Left, nullptr);
  SetChild(node, Side::Right, nullptr);
  node.mParent = nullptr;
}

const clsExNode* clsNodeTable::Foot(const clsExNode& start, Side side) noexcept {
  const clsExNode* node = &start;
  while (const clsExNode* child = Child(*node, side)) node = child;
  return node;
}

// The next node of the subtree below `top`, upwards in order when `forward` is right, else downwards.
const clsExNode* clsNodeTable::NextInOrder(const clsExNode& node, const clsExNode& top,
                                           Side forward) noexcept {
  const Side back = forward == Side::Left ? Side::Right : Side::Left;
  if (const clsExNode* child = Child(node, forward)) return Foot(*child, back);
  const clsExNode* climber = &node;
  while (climber != &top && Child(*climber->mParent, forward) == climber) climber = climber->mParent;
  return climber == &top ? nullptr : climber->mParent;
}

// Each node before its left and then its right subtree.
const clsExNode* clsNodeTable::NextFromHead(const clsExNode& node) noexcept {
  if (const clsExNode* left = Child(node, Side::Left)) return left;
  if (const clsExNode* right = Child(node, Side::Right)) return right;
  const clsExNode* climber = &node;
  while (const clsExNode* parent = climber->mParent) {
    const clsExNode* right = Child(*parent, Side::Right);
    if (right != nullptr && right != climber) return right;
    climber = parent;
  }
  return nullptr;
}

std::string clsNodeTable::KeysInOrder(const clsExNode& start, Side forward) {
  std::string keys;
  const clsExNode* node = Foot(start, forward == Side::Left ? Side::Right : Side::Left);
  for (; node != nullptr; node = NextInOrder(*node, start, forward)) keys.append(node->Id).push_back('\n');
  return keys;
}

}  // namespace plotvane::identifiers
