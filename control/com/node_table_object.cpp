#include "control/com/node_table_object.h"

#include <new>
#include <string>
#include <vector>

#include "platform/runtime_error.h"

namespace plotvane::control::com {

namespace {

using identifiers::clsExNode;
using platform::RunTimeError;
using platform::StandardError;

ComPtr<NodeObject> NodeObjectOf(const VARIANT& argument) {
  auto object = OwnObjectOf<NodeObject>(ObjectOf(argument).Get());
  if (!object) throw RunTimeError(StandardError::ObjectRequired);
  return object;
}

// The elements 1 to the upper bound of a host's array.
std::vector<platform::Value> ValuesOf(const VARIANT& argument) {
  Variant copy = Variant::Resolved(argument);
  if ((copy.Type() & VT_ARRAY) == 0) throw RunTimeError(StandardError::TypeMismatch);
  SAFEARRAY* array = copy.Get().parray;
  LONG lower = 0;
  LONG upper = 0;
  if (array == nullptr || ::SafeArrayGetDim(array) != 1 || FAILED(::SafeArrayGetLBound(array, 1, &lower)) ||
      FAILED(::SafeArrayGetUBound(array, 1, &upper)) || lower > 1) {
    throw RunTimeError(StandardError::SubscriptOutOfRange);
  }
  if ((copy.Type() & VT_TYPEMASK) != VT_VARIANT) throw RunTimeError(StandardError::TypeMismatch);
  std::vector<platform::Value> values;
  for (LONG index = 1; index <= upper; ++index) {
    Variant element;
    if (FAILED(::SafeArrayGetElement(array, &index, &element.Get()))) {
      throw RunTimeError(StandardError::SubscriptOutOfRange);
    }
    values.push_back(ToValue(element.Get()));
  }
  return values;
}

}  // namespace

// ---- NodeObject ----

Variant NodeObject::GetId(const Call&) {
  return Variant(std::string_view(mNode->Id));
}
Variant NodeObject::GetValue(const Call&) {
  return Variant(mNode->Value);
}
Variant NodeObject::GetFlags(const Call&) {
  return mNode->Flags ? Variant(*mNode->Flags) : Variant();
}
Variant NodeObject::GetDescription(const Call&) {
  return Variant(std::string_view(mNode->Description));
}
Variant NodeObject::GetLeft(const Call&) {
  return Child(mNode->LeftExists, mNode->Left);
}
Variant NodeObject::GetRight(const Call&) {
  return Child(mNode->RightExists, mNode->Right);
}
Variant NodeObject::GetLeftExists(const Call&) {
  return Variant(mNode->LeftExists);
}
Variant NodeObject::GetRightExists(const Call&) {
  return Variant(mNode->RightExists);
}

Variant NodeObject::PutValue(const Call& call) {
  mNode->Value = ToValue(call[0]);
  return {};
}

Variant NodeObject::PutFlags(const Call& call) {
  mNode->Flags = ToInt32(call[0]);
  return {};
}

Variant NodeObject::PutDescription(const Call& call) {
  mNode->Description = ToText(call[0]);
  return {};
}

Variant NodeObject::Child(bool exists, clsExNode* child) const {
  if (!exists) return Variant(static_cast<IDispatch*>(nullptr));
  return Variant(Make<NodeObject>(child->shared_from_this(), mTable).Get());
}

// ---- NodeTableObject ----

Variant NodeTableObject::ObjectFor(std::shared_ptr<clsExNode> node) const {
  if (!node) return Variant(static_cast<IDispatch*>(nullptr));
  return Variant(Make<NodeObject>(std::move(node), mTable).Get());
}

clsExNode& NodeTableObject::OwnNode(const VARIANT& argument) const {
  const auto object = NodeObjectOf(argument);
  if (object->Table() != mTable) throw RunTimeError(StandardError::InvalidCall);
  return object->Node();  // the caller's own reference keeps it
}

Variant NodeTableObject::Add(const Call& call) {
  std::string id = ToText(call[0]);
  const bool added = mTable->Add(id);
  if (added) call.Write(0, Variant(std::string_view(id)));
  return Variant(added);
}

Variant NodeTableObject::AddNode(const Call& call) {
  mTable->AddNode(NodeObjectOf(call[0])->Node());
  return {};
}

Variant NodeTableObject::Search(const Call& call) {
  return Variant(mTable->Search(ToText(call[0])));
}
Variant NodeTableObject::Remove(const Call& call) {
  return Variant(mTable->Remove(ToText(call[0])));
}

Variant NodeTableObject::RemoveCurrent(const Call&) {
  mTable->RemoveCurrent();
  return {};
}

Variant NodeTableObject::FindRightFoot(const Call& call) {
  mTable->FindRightFoot(OwnNode(call[0]));
  return {};
}

Variant NodeTableObject::FindLeftFoot(const Call& call) {
  mTable->FindLeftFoot(OwnNode(call[0]));
  return {};
}

Variant NodeTableObject::GetHeadNode(const Call&) {
  return ObjectFor(mTable->HeadNode());
}
Variant NodeTableObject::GetCurrentNode(const Call&) {
  return ObjectFor(mTable->CurrentNode);
}
Variant NodeTableObject::GetParentNode(const Call&) {
  return ObjectFor(mTable->ParentNode());
}
Variant NodeTableObject::GetHasNodes(const Call&) {
  return Variant(mTable->HasNodes());
}
Variant NodeTableObject::GetAllowDuplicateId(const Call&) {
  return Variant(mTable->AllowDuplicateId);
}

Variant NodeTableObject::PutAllowDuplicateId(const Call& call) {
  mTable->AllowDuplicateId = ToBool(call[0]);
  return {};
}

Variant NodeTableObject::GetAddLowerCase(const Call&) {
  return Variant(mTable->AddLowerCase);
}

Variant NodeTableObject::PutAddLowerCase(const Call& call) {
  mTable->AddLowerCase = ToBool(call[0]);
  return {};
}

Variant NodeTableObject::CollectFlag(const Call& call) {
  mTable->CollectFlag(ToInt32(call[0]));
  return {};
}

Variant NodeTableObject::CollectFlags(const Call& call) {
  mTable->CollectFlags(ValuesOf(call[0]));
  return {};
}

// An array of objects from 1 to the number of collected tables.
Variant NodeTableObject::GetNTArray(const Call&) {
  const auto tables = mTable->NTArray();
  Variant result;
  SAFEARRAY* array = ::SafeArrayCreateVector(VT_VARIANT, 1, static_cast<ULONG>(tables.size()));
  if (array == nullptr) throw std::bad_alloc();
  result.Get().vt = VT_ARRAY | VT_VARIANT;
  result.Get().parray = array;
  for (LONG index = 1; index <= static_cast<LONG>(tables.size()); ++index) {
    const auto& table = tables[static_cast<std::size_t>(index - 1)];
    Variant element(static_cast<IDispatch*>(nullptr));
    if (table) element = Variant(Make<NodeTableObject>(table).Get());
    if (FAILED(::SafeArrayPutElement(array, &index, &element.Get()))) throw std::bad_alloc();
  }
  return result;
}

Variant NodeTableObject::SaveToFile(const Call& call) {
  mTable->SaveToFile(ToText(call[0]));
  return {};
}

Variant NodeTableObject::LoadFromFile(const Call& call) {
  mTable->LoadFromFile(ToText(call[0]));
  return {};
}

Variant NodeTableObject::DebugDispNodeD(const Call& call) {
  return Variant(std::string_view(mTable->DebugDispNodeD(OwnNode(call[0]))));
}

Variant NodeTableObject::DebugDispNodeA(const Call& call) {
  return Variant(std::string_view(mTable->DebugDispNodeA(OwnNode(call[0]))));
}

}  // namespace plotvane::control::com
