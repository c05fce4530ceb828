#include "engine/replay.h"

#include <utility>

#include "engine/compile.h"

namespace plotvane::engine {

using identifiers::clsExNode;
using identifiers::clsVarTable;

BoundProgram::BoundProgram(std::shared_ptr<const TokenList> tokens, std::shared_ptr<clsVarTable> table,
                           functions::AngleMode angleMode, std::string_view varying)
    : mTokens(std::move(tokens)), mTable(std::move(table)), mAngleMode(angleMode), mVarying(varying) {
  Recompile();
  mReady = mProgram && ReadVariables();
}

// A variable that is missing or of another kind counts as a number here: ReadVariables refuses it as long as
// it is.
void BoundProgram::Recompile() {
  const CompileOptions options{mAngleMode, mVarying, [this](std::string_view name) {
                                 const clsExNode* record = mTable->FindRecord(name);
                                 return record && record->Value.IsBoolean();
                               }};
  mProgram = Compile(*mTokens, options);
  ++mCompilations;
  Bind();
}

void BoundProgram::Bind() {
  mSeenGeneration = mTable->Generation();
  mSeenChanges = mTable->Changes();
  mVaryingRecord = mVarying.empty() ? nullptr : mTable->FindRecord(mVarying);
  if (mVaryingRecord && !clsVarTable::IsPlainVariable(*mVaryingRecord)) mVaryingRecord = nullptr;
  mRecords.clear();
  if (!mProgram) return;
  for (const ProgramVariable& variable : mProgram->Variables()) {
    mRecords.push_back(mTable->FindRecord(variable.name));
  }
}

bool BoundProgram::RefreshNow() {
  mSeenChanges = mTable->Changes();
  if (mSeenGeneration != mTable->Generation()) Bind();
  mReady = mProgram && ReadVariables();
  return mReady;
}

bool BoundProgram::ReadVariables() {
  ++mRefreshments;
  const std::vector<ProgramVariable>& variables = mProgram->Variables();
  for (std::size_t i = 0; i < variables.size(); ++i) {
    const clsExNode* record = mRecords[i];
    if (!record) return false;
    const platform::Value& value = record->Value;
    if (!value.IsNumber() && !value.IsBoolean()) return false;
    if (value.IsBoolean() != variables[i].isBoolean) {
      // The other kind of value needs other steps.
      Recompile();
      return ReadVariables();
    }
    const double number = value.IsNumber() ? value.Number() : value.Boolean() ? -1.0 : 0.0;
    if (number - number != 0) return false;
    mProgram->SetVariable(variables[i], number);
  }
  return mProgram->RunUniform();
}

}  // namespace plotvane::engine
