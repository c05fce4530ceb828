// clsStdErrObj: the last error of one expression object, in numbers and words.
//
// An error is a pair: a standard number of the platform's catalogue (division by zero, overflow, …) and a
// custom number 1 to 15 of the engine's own catalogue (engine/error_catalogue.h). At most one of the two is
// not zero.
#pragma once

#include <cstdint>
#include <string>

#include "functions/errors.h"

namespace plotvane::engine {

class clsExp;

class clsStdErrObj : public functions::ErrorSink {
 public:
  // Set by whoever evaluates for a graph: errors at single points are then tolerated, see IsOkGraphErr.
  bool GraphMode = false;
  // The result of the last IsOkGraphErr.
  bool WasOkGraphErr = false;
  // The last recorded error; 0 for none. A tolerated error is not recorded.
  std::int32_t StandardErrorNum = 0;
  std::int32_t CustomErrorNum = 0;
  std::string CustomErrorDescription;
  std::string StandardErrorDescription;
  // The owner, whose failure flags are set and whose current spelling is quoted; may be null. Not owned.
  clsExp* ExpObj = nullptr;

  // Composes the texts for the numbers held. A text that is not composed keeps what it was: the custom text
  // when only the standard number is set, the standard text when that number is 0, the custom one without an
  // owner.
  void SetErrDescriptions();

  // Records an error and marks the owner as failed. A tolerated error only marks the owner: the numbers and
  // texts of the error before stay.
  void GEP(std::int32_t standardErrNum, std::int32_t customErrNum) override;

  // Both numbers 0, both texts empty, the owner's failure flags down; GraphMode and WasOkGraphErr stay.
  void ClearLastErrors();

  // Both numbers 0 and both texts empty.
  [[nodiscard]] bool IsClear() const noexcept {
    return (StandardErrorNum | CustomErrorNum) == 0 && CustomErrorDescription.empty() &&
           StandardErrorDescription.empty();
  }

  // Whether a graph goes on after this error: in GraphMode the standard errors 5 and 11, the custom error 9
  // (deliberately), and the pair 0, 0.
  bool IsOkGraphErr(std::int32_t standardErrNum, std::int32_t customErrNum);

 private:
  void MarkOwner();
  void ComposeCustomDescription();
  void ComposeStandardDescription();
};

}  // namespace plotvane::engine
