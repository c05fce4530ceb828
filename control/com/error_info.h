// Errors on their way between the system and automation: standard error n is the status 0x800A0000 + n, any
// other status travels as its own number, and an error-information object carries the texts.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <string>

#include "control/com/com_ptr.h"
#include "platform/runtime_error.h"

namespace plotvane::control::com {

// An error that an object of the host raised; what it said goes back to the host unchanged.
class HostError : public platform::RunTimeError {
 public:
  // `status` is a failure; `source` and `helpFile` may be empty, an empty `text` stands for the standard one.
  HostError(HRESULT status, const std::string& text, std::string source, std::string helpFile,
            std::uint32_t helpContext);

  [[nodiscard]] HRESULT Status() const noexcept { return mStatus; }
  [[nodiscard]] const std::string& Source() const noexcept { return mSource; }
  [[nodiscard]] const std::string& HelpFile() const noexcept { return mHelpFile; }
  [[nodiscard]] std::uint32_t HelpContext() const noexcept { return mHelpContext; }

 private:
  HRESULT mStatus;
  std::string mSource;
  std::string mHelpFile;
  std::uint32_t mHelpContext;
};

// The standard error number of a failed status: n of 0x800A0000 + n, the number that stands for one of
// automation's own failures (a type mismatch is 13, an unknown name 438, …), else the status itself.
[[nodiscard]] std::int32_t StandardErrorOf(HRESULT status) noexcept;
// The status of a standard error number; the reverse of the above for numbers up to 65535 and for statuses.
[[nodiscard]] HRESULT StatusOf(std::int32_t standardError) noexcept;

// The text that belongs to a failed status.
[[nodiscard]] std::string StandardErrorTextOf(HRESULT status);

// Throws what a failed call to an object of the host reported through its EXCEPINFO, whose strings are freed.
[[noreturn]] void ThrowHostError(HRESULT status, EXCEPINFO& info);

// Leaves an error-information object for the caller of the present member, and gives the status to return.
// Never fails: without memory there is only the status.
HRESULT Report(const platform::RunTimeError& error) noexcept;
HRESULT Report(const HostError& error) noexcept;
HRESULT Report(HRESULT status) noexcept;

// Takes the thread's error information (left by the member just called, which returned `status`) into `info`.
void TakeErrorInfo(HRESULT status, EXCEPINFO& info) noexcept;

}  // namespace plotvane::control::com
