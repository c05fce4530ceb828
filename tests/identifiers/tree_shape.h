// The shape of a small tree as text: a leaf is its key, other nodes are "key(left right)" with "." for no
// child.
#pragma once

#include <string>

namespace plotvane::tests {

// For any node type with the fields of clsExNode.
template <typename Node>
std::string Shape(const Node& node) {
  if (!node.LeftExists && !node.RightExists) return node.Id;
  const std::string left = node.LeftExists ? Shape(*node.Left) : ".";
  const std::string right = node.RightExists ? Shape(*node.Right) : ".";
  return node.Id + "(" + left + " " + right + ")";
}

template <typename Table>
std::string TableShape(Table& table) {
  return table.HasNodes() ? Shape(*table.HeadNode()) : "";
}

}  // namespace plotvane::tests
