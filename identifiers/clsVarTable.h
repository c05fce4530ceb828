// clsVarTable: the identifiers of an expression object: variables, constants, reserved names, element
// symbols.
//
// Each identifier has a type code, a value and a description. Names are compared without regard to letter
// case; the spelling kept is the one first stored. Refusals are false results and change nothing. File
// errors, and those of the element data, are RunTimeErrors.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "identifiers/clsExNode.h"
#include "identifiers/clsNodeTable.h"
#include "identifiers/clsPeriodicTable.h"
#include "platform/value.h"
#include "platform/variable_table.h"

namespace plotvane::identifiers {

// Type codes are sets of bits. Whether an existing identifier may be written or removed is decided by its own
// type: with the constant bit exactly when ConstWriteAccess is true (tested first, whatever else is set),
// else with the reserved bit exactly when ReservedWriteAccess is true, else always.
constexpr std::int32_t kVariableType = 2;
constexpr std::int32_t kConstantBit = 4;
constexpr std::int32_t kReservedBit = 8;
constexpr std::int32_t kPredefinedType = kReservedBit | 1;
constexpr std::int32_t kElementType = kReservedBit | 16;

class clsVarTable final : public platform::VariableTable {
 public:
  // A new table holds the predefined constants.
  clsVarTable();

  bool ReservedWriteAccess = false;
  bool ConstWriteAccess = false;

  // True and the value when the identifier exists; otherwise false, and `value` is left alone. O(log n),
  // without allocation.
  [[nodiscard]] bool GetIdValue(std::string_view id, platform::Value& value) override;
  [[nodiscard]] bool GetIdType(std::string_view id, std::int32_t& type) const;
  [[nodiscard]] bool IdExists(std::string_view id) const;
  [[nodiscard]] bool GetId(std::string_view id, platform::Value& value, std::int32_t& type,
                           std::string& description) const;

  // False when the identifier is missing or protected.
  bool Remove(std::string_view id);

  // GetId(id), Remove(id), Change(newId, value, type, description), in this order; none of their results
  // stops the next. So a protected identifier is copied rather than renamed, and a missing one makes `newId`
  // an empty value of type 0: this table's own rule. The result is that of the last step.
  bool Rename(std::string_view id, std::string_view newId);

  // Creates or overwrites an identifier, whose first character must be a letter or "_". An existing one that
  // is protected is refused. Without a type the identifier becomes an ordinary variable, without a
  // description it has none, whatever it was and had before.
  [[nodiscard]] bool Change(std::string_view id, const platform::Value& value) override;
  bool Change(std::string_view id, const platform::Value& value, std::optional<std::int32_t> type,
              std::optional<std::string_view> description = std::nullopt);

  // Change to a constant (reserved) identifier, with ConstWriteAccess (ReservedWriteAccess) true meanwhile.
  bool ChangeConstant(std::string_view id, const platform::Value& value,
                      std::optional<std::string_view> description = std::nullopt);
  bool ChangeReserved(std::string_view id, const platform::Value& value,
                      std::optional<std::string_view> description = std::nullopt);

  // A new table with copies of all identifiers whose type is exactly this one.
  [[nodiscard]] std::shared_ptr<clsNodeTable> CollectFlag(std::int32_t flagType);

  // The identifiers of exactly this type as a text file (clsNodeTable::SaveToFile).
  void SaveTypeToFile(std::int32_t flagType, std::string_view filePathAndName);

  // Adds the records of such a file with the types stored in it; those of the same name are overwritten,
  // protected or not. Records before a damaged one stay added.
  void LoadTypeFromFile(std::string_view filePathAndName);

  // Adds or overwrites every element symbol: its atomic weight as the value, its name as the description.
  // Without an argument the data files beside the program are read (clsPeriodicTable, with its errors).
  void LoadOriginalChemData();
  void LoadOriginalChemData(const clsPeriodicTable& elements);

  // Adds or overwrites the predefined constants Pi, g, gc, cc, True and False.
  void LoadOtherConstData();

  // Binding, for evaluators that look a name up once and use it many times. A record found here stays where
  // it is, and a missing name stays missing, while Generation() is the same: it grows with every addition,
  // removal, load, and change of a type or description, not with changes of values. Nothing but the value may
  // be written through the record, and only where IsPlainVariable: there SetNumber(record, number) is all
  // that Change(id, Value(number)) would do.
  //
  // Changes() grows with every change, those of values included.
  [[nodiscard]] clsExNode* FindRecord(std::string_view id) noexcept { return mNodes.Find(id); }
  [[nodiscard]] std::uint64_t Generation() const noexcept { return mGeneration; }
  [[nodiscard]] std::uint64_t Changes() const noexcept { return mChanges; }
  void SetNumber(clsExNode& record, double number) noexcept {
    record.Value.SetNumber(number);
    ++mChanges;
  }
  // The same for a record that holds a number already.
  void ReplaceNumber(clsExNode& record, double number) noexcept {
    record.Value.ReplaceNumber(number);
    ++mChanges;
  }
  [[nodiscard]] static bool IsPlainVariable(const clsExNode& record) noexcept {
    return record.Flags == kVariableType && record.Description.empty();
  }

  // The records, for reading.
  [[nodiscard]] const clsNodeTable& Records() const noexcept { return mNodes; }

 private:
  [[nodiscard]] bool MayWrite(const clsExNode& record) const noexcept;
  void AddRecord(std::string_view id, const platform::Value& value, std::int32_t type,
                 std::string_view description);

  void NoteNewGeneration() noexcept {
    ++mGeneration;
    ++mChanges;
  }

  clsNodeTable mNodes;
  std::uint64_t mGeneration = 0;
  std::uint64_t mChanges = 0;
};

}  // namespace plotvane::identifiers
