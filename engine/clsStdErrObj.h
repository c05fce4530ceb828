// clsStdErrObj: the last error of one expression object, in numbers and words.
#pragma once

#include <cstdint>
#include <string>

#include "functions/call_context.h"

namespace plotvane::engine {

class clsExp;

class clsStdErrObj : public functions::ErrorSink {
 public:
  bool GraphMode = false;
  bool WasOkGraphErr = false;
  std::int32_t StandardErrorNum = 0;
  std::int32_t CustomErrorNum = 0;
  std::string CustomErrorDescription;
  std::string StandardErrorDescription;
  clsExp* ExpObj = nullptr;  // the owner; not owned here

  void SetErrDescriptions();
  void GEP(std::int32_t standardErrNum, std::int32_t customErrNum) override;
  void ClearLastErrors();
  bool IsOkGraphErr(std::int32_t standardErrNum, std::int32_t customErrNum);
};

}  // namespace plotvane::engine
