// clsExNode: one identifier record, a node of the tree in clsNodeTable.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/value.h"

namespace plotvane::identifiers {

// The links refer and do not own: nodes belong to their table (and to whoever shares them), so that a tree of
// any depth is released without recursion. A node that left its table has no links.
class clsExNode : public std::enable_shared_from_this<clsExNode> {
 public:
  // Left: smaller keys (and equal ones, where the table allows duplicates); Right: larger keys. A child is
  // only followed when its flag is true.
  clsExNode* Left = nullptr;
  clsExNode* Right = nullptr;
  bool RightExists = false;
  bool LeftExists = false;

  std::string Id;  // the key of the tree, as spelled when stored
  platform::Value Value;
  std::optional<std::int32_t> Flags;  // the type code, see clsVarTable; nothing in a node that only has a key
  std::string Description;

  // The type code as a number: nothing counts as 0.
  [[nodiscard]] std::int32_t Type() const noexcept { return Flags.value_or(0); }

  // Writes or reads one record of four fields, Id, Value, Flags, Description, in the file that is open under
  // `fileNum` (platform/open_files.h, with its errors). A field of another kind than the record's is
  // RunTimeError 13, a type code outside 32 bits 6. A failed read leaves this node as it was.
  void SaveDataToOpenFile(std::int16_t fileNum) const;
  void LoadDataFromOpenFile(std::int16_t fileNum);

  // Copies the four data fields; the links stay.
  void CopyData(const clsExNode& copyFrom);

 private:
  friend class clsNodeTable;

  std::string mKey;              // in a table: the lower-case Id it was added with
  clsExNode* mParent = nullptr;  // nothing for the head and for a node outside a table
};

}  // namespace plotvane::identifiers
