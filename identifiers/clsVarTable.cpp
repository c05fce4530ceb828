#include "identifiers/clsVarTable.h"

#include "platform/ascii.h"

namespace plotvane::identifiers {

namespace {

using platform::Value;

// The rest of the spelling is the lexer's business.
bool IsLegalIdentifier(std::string_view id) noexcept {
  return !id.empty() && (platform::IsLetter(id.front()) || id.front() == '_');
}

// Sets a flag for as long as this object lives.
class Granted {
 public:
  explicit Granted(bool& flag) noexcept : mFlag(flag), mBefore(flag) { mFlag = true; }
  ~Granted() { mFlag = mBefore; }
  Granted(const Granted&) = delete;
  Granted& operator=(const Granted&) = delete;

 private:
  bool& mFlag;
  bool mBefore;
};

}  // namespace

clsVarTable::clsVarTable() {
  LoadOtherConstData();
}

bool clsVarTable::GetIdValue(std::string_view id, Value& value) {
  const clsExNode* record = mNodes.Find(id);
  if (record == nullptr) return false;
  value = record->Value;
  return true;
}

bool clsVarTable::GetIdType(std::string_view id, std::int32_t& type) const {
  const clsExNode* record = mNodes.Find(id);
  if (record == nullptr) return false;
  type = record->Type();
  return true;
}

bool clsVarTable::IdExists(std::string_view id) const {
  return mNodes.Find(id) != nullptr;
}

bool clsVarTable::GetId(std::string_view id, Value& value, std::int32_t& type,
                        std::string& description) const {
  const clsExNode* record = mNodes.Find(id);
  if (record == nullptr) return false;
  value = record->Value;
  type = record->Type();
  description = record->Description;
  return true;
}

bool clsVarTable::Remove(std::string_view id) {
  const clsExNode* record = mNodes.Find(id);
  if (record == nullptr || !MayWrite(*record)) return false;
  NoteNewGeneration();
  return mNodes.Remove(id);
}

bool clsVarTable::Rename(std::string_view id, std::string_view newId) {
  Value value;
  std::int32_t type = 0;
  std::string description;
  (void)GetId(id, value, type, description);
  Remove(id);
  return Change(newId, value, type, description);
}

bool clsVarTable::Change(std::string_view id, const Value& value) {
  return Change(id, value, std::nullopt);
}

bool clsVarTable::Change(std::string_view id, const Value& value, std::optional<std::int32_t> type,
                         std::optional<std::string_view> description) {
  if (!IsLegalIdentifier(id)) return false;
  const std::int32_t newType = type.value_or(kVariableType);
  const std::string newDescription(description.value_or(""));
  clsExNode* record = mNodes.Find(id);
  if (record == nullptr) {
    AddRecord(id, value, newType, newDescription);
    return true;
  }
  if (!MayWrite(*record)) return false;
  if (record->Flags != newType || record->Description != newDescription) NoteNewGeneration();
  record->Flags = newType;
  record->Description = newDescription;
  record->Value = value;
  ++mChanges;
  return true;
}

bool clsVarTable::ChangeConstant(std::string_view id, const Value& value,
                                 std::optional<std::string_view> description) {
  const Granted access(ConstWriteAccess);
  return Change(id, value, kConstantBit, description);
}

bool clsVarTable::ChangeReserved(std::string_view id, const Value& value,
                                 std::optional<std::string_view> description) {
  const Granted access(ReservedWriteAccess);
  return Change(id, value, kReservedBit, description);
}

std::shared_ptr<clsNodeTable> clsVarTable::CollectFlag(std::int32_t flagType) {
  mNodes.CollectFlag(flagType);
  return mNodes.NTArray().front();
}

void clsVarTable::SaveTypeToFile(std::int32_t flagType, std::string_view filePathAndName) {
  CollectFlag(flagType)->SaveToFile(filePathAndName);
}

void clsVarTable::LoadTypeFromFile(std::string_view filePathAndName) {
  NoteNewGeneration();
  mNodes.LoadFromFile(filePathAndName);
}

void clsVarTable::LoadOriginalChemData() {
  LoadOriginalChemData(clsPeriodicTable());
}

void clsVarTable::LoadOriginalChemData(const clsPeriodicTable& elements) {
  for (std::int16_t i = 1; i <= elements.NumberOfElements(); ++i) {
    AddRecord(elements.GetSymbolFromIndex(i), Value(elements.GetAtomicWeight(i)), kElementType,
              elements.GetNameFromIndex(i));
  }
}

void clsVarTable::LoadOtherConstData() {
  // Pi and g are deliberately these decimals and not closer ones.
  AddRecord("Pi", Value(3.14159265358979), kPredefinedType, "Pi");
  AddRecord("g", Value(9.80655), kPredefinedType, "Gravitational acceleration on earth");
  AddRecord("gc", Value(6.67259 * 1e-11), kPredefinedType, "Gravitational constant");
  AddRecord("cc", Value(8987551787.37), kPredefinedType, "Charge of coulumb");
  AddRecord("True", Value(true), kPredefinedType, "Boolean True");
  AddRecord("False", Value(false), kPredefinedType, "Boolean False");
}

bool clsVarTable::MayWrite(const clsExNode& record) const noexcept {
  const std::int32_t type = record.Type();
  if ((type & kConstantBit) != 0) return ConstWriteAccess;
  if ((type & kReservedBit) != 0) return ReservedWriteAccess;
  return true;
}

// Adds a record, or overwrites one of the same name, spelling included.
void clsVarTable::AddRecord(std::string_view id, const Value& value, std::int32_t type,
                            std::string_view description) {
  clsExNode record;
  record.Id = id;
  record.Value = value;
  record.Flags = type;
  record.Description = description;
  NoteNewGeneration();
  mNodes.AddNode(record);
}

}  // namespace plotvane::identifiers
