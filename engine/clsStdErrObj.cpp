#include "engine/clsStdErrObj.h"

#include "engine/clsExp.h"
#include "engine/error_catalogue.h"
#include "platform/standard_error.h"

namespace plotvane::engine {

void clsStdErrObj::SetErrDescriptions() {
  if (StandardErrorNum == 0 || CustomErrorNum != 0) ComposeCustomDescription();
  if (StandardErrorNum != 0) ComposeStandardDescription();
}

void clsStdErrObj::GEP(std::int32_t standardErrNum, std::int32_t customErrNum) {
  const bool tolerated = IsOkGraphErr(standardErrNum, customErrNum);
  if (!tolerated) {
    StandardErrorNum = standardErrNum;
    CustomErrorNum = customErrNum;
  }
  MarkOwner();
  if (!tolerated) SetErrDescriptions();
}

void clsStdErrObj::ClearLastErrors() {
  StandardErrorNum = 0;
  CustomErrorNum = 0;
  CustomErrorDescription.clear();
  StandardErrorDescription.clear();
  if (ExpObj) ExpObj->SetErrorFlags(false, false);
}

bool clsStdErrObj::IsOkGraphErr(std::int32_t standardErrNum, std::int32_t customErrNum) {
  using platform::StandardError;
  const bool tolerable = standardErrNum == static_cast<std::int32_t>(StandardError::InvalidCall) ||
                         standardErrNum == static_cast<std::int32_t>(StandardError::DivisionByZero) ||
                         customErrNum == static_cast<std::int32_t>(functions::CustomError::CannotStore) ||
                         (standardErrNum == 0 && customErrNum == 0);
  WasOkGraphErr = GraphMode && tolerable;
  return WasOkGraphErr;
}

void clsStdErrObj::MarkOwner() {
  if (ExpObj) ExpObj->SetErrorFlags(true, true);
}

void clsStdErrObj::ComposeCustomDescription() {
  if (!ExpObj) return;
  CustomErrorDescription = CustomErrorText(CustomErrorNum, ExpObj->e_Spelling(), ExpObj->PopPar());
}

void clsStdErrObj::ComposeStandardDescription() {
  StandardErrorDescription = platform::StandardErrorText(StandardErrorNum);
}

}  // namespace plotvane::engine
