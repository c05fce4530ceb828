// PlainTree: the rules of the identifier tree carried out step by step, for tests of clsNodeTable against it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/ascii.h"

namespace plotvane::tests {

// As slow and simple as the rules are worded; nodes live until the tree does.
class PlainTree {
 public:
  struct Node {
    Node* Left = nullptr;
    Node* Right = nullptr;
    bool RightExists = false;
    bool LeftExists = false;
    std::string Id;
    double Value = 0;
  };

  bool AllowDuplicateId = false;
  Node* CurrentNode = nullptr;
  Node* ParentNode = nullptr;

  [[nodiscard]] bool HasNodes() const { return mHead != nullptr; }
  [[nodiscard]] Node* HeadNode() const { return mHead; }

  bool Add(const std::string& id) {
    if (mHead == nullptr) {
      mHead = CurrentNode = Make();
      CurrentNode->Id = id;
      return true;
    }
    const std::string key = platform::LowerCaseText(id);
    Node* node = mHead;
    for (;;) {
      const std::string nodeKey = platform::LowerCaseText(node->Id);
      if (nodeKey == key && !AllowDuplicateId) {
        CurrentNode = node;
        return false;
      }
      if (nodeKey >= key) {
        if (!node->LeftExists) {
          node->LeftExists = true;
          CurrentNode = node->Left = Make();
          break;
        }
        node = node->Left;
      } else {
        if (!node->RightExists) {
          node->RightExists = true;
          CurrentNode = node->Right = Make();
          break;
        }
        node = node->Right;
      }
    }
    CurrentNode->Id = id;
    return true;
  }

  void AddNode(const std::string& id, double value) {
    Add(id);
    CurrentNode->Id = id;
    CurrentNode->Value = value;
  }

  bool Search(const std::string& id) {
    ParentNode = nullptr;
    if (mHead == nullptr) return false;
    const std::string key = platform::LowerCaseText(id);
    CurrentNode = mHead;
    for (;;) {
      const std::string nodeKey = platform::LowerCaseText(CurrentNode->Id);
      if (nodeKey == key) return true;
      if (nodeKey > key ? !CurrentNode->LeftExists : !CurrentNode->RightExists) return false;
      ParentNode = CurrentNode;
      CurrentNode = nodeKey > key ? CurrentNode->Left : CurrentNode->Right;
    }
  }

  bool Remove(const std::string& id) {
    if (!Search(id)) return false;
    RemoveCurrent();
    return true;
  }

  // After a successful search.
  void RemoveCurrent() {
    Node* n = CurrentNode;
    Node* parent = ParentNode;
    if (parent == nullptr) {
      if (n->LeftExists) {
        mHead = n->Left;
        if (n->RightExists) HangRight(n->Left, n->Right);
      } else {
        mHead = n->RightExists ? n->Right : nullptr;
      }
    } else if (parent->RightExists && parent->Right->Id == n->Id) {
      if (n->LeftExists) {
        parent->Right = n->Left;
        if (n->RightExists) HangRight(n->Left, n->Right);
      } else if (n->RightExists) {
        parent->Right = n->Right;
      } else {
        parent->RightExists = false;
      }
    } else if (n->RightExists) {
      parent->Left = n->Right;
      if (n->LeftExists) HangLeft(n->Right, n->Left);
    } else if (n->LeftExists) {
      parent->Left = n->Left;
    } else {
      parent->LeftExists = false;
    }
  }

  void FindRightFoot(Node* start) {
    CurrentNode = start;
    while (CurrentNode->RightExists) CurrentNode = CurrentNode->Right;
  }

  void FindLeftFoot(Node* start) {
    CurrentNode = start;
    while (CurrentNode->LeftExists) CurrentNode = CurrentNode->Left;
  }

 private:
  void HangRight(Node* below, Node* subtree) {
    FindRightFoot(below);
    CurrentNode->Right = subtree;
    CurrentNode->RightExists = true;
  }

  void HangLeft(Node* below, Node* subtree) {
    FindLeftFoot(below);
    CurrentNode->Left = subtree;
    CurrentNode->LeftExists = true;
  }

  Node* Make() { return mNodes.emplace_back(std::make_unique<Node>()).get(); }

  Node* mHead = nullptr;
  std::vector<std::unique_ptr<Node>> mNodes;
};

}  // namespace plotvane::tests
