#include "control/com/error_info.h"

#include <oleauto.h>

#include <array>
#include <exception>
#include <string_view>
#include <utility>

#include "control/com/bstr.h"
#include "control/win32/floating_point_state.h"

namespace plotvane::control::com {

namespace {

using platform::StandardError;

constexpr std::string_view kSource = "Plotvane.Graph";
constexpr std::int32_t kLargestNumber = 0xFFFF;

// Standard errors as statuses: severity "error", the facility of control errors.
constexpr std::uint32_t kStandardErrors = 0x800A0000;

struct StatusNumber {
  HRESULT status;
  StandardError number;
};

constexpr std::array kAutomationFailures{
    StatusNumber{DISP_E_UNKNOWNNAME, StandardError::MemberNotFound},
    StatusNumber{DISP_E_MEMBERNOTFOUND, StandardError::MemberNotFound},
    StatusNumber{DISP_E_TYPEMISMATCH, StandardError::TypeMismatch},
    StatusNumber{DISP_E_BADVARTYPE, StandardError::TypeMismatch},
    StatusNumber{DISP_E_OVERFLOW, StandardError::Overflow},
    StatusNumber{DISP_E_BADINDEX, StandardError::SubscriptOutOfRange},
    StatusNumber{DISP_E_DIVBYZERO, StandardError::DivisionByZero},
    StatusNumber{E_OUTOFMEMORY, StandardError::OutOfMemory},
};

struct ErrorTexts {
  std::string_view source;
  std::string_view text;
  std::string_view helpFile;
  std::uint32_t helpContext = 0;
};

void LeaveErrorInfo(const ErrorTexts& texts) {
  ComPtr<ICreateErrorInfo> create;
  if (FAILED(::CreateErrorInfo(create.Receive()))) return;
  create->SetSource(Bstr(texts.source).Get());
  create->SetDescription(Bstr(texts.text).Get());
  if (!texts.helpFile.empty()) create->SetHelpFile(Bstr(texts.helpFile).Get());
  create->SetHelpContext(texts.helpContext);
  ::SetErrorInfo(0, ComPtr<IErrorInfo>::From(create.Get()).Get());
}

HRESULT ReportTexts(HRESULT status, const ErrorTexts& texts) noexcept {
  try {
    LeaveErrorInfo(texts);
  } catch (const std::exception&) {
    ::SetErrorInfo(0, nullptr);
  }
  return status;
}

std::string TakeText(BSTR& text) {
  std::string taken = TextOf(text);
  ::SysFreeString(std::exchange(text, nullptr));
  return taken;
}

}  // namespace

HostError::HostError(HRESULT status, const std::string& text, std::string source, std::string helpFile,
                     std::uint32_t helpContext)
    : RunTimeError(StandardErrorOf(status), text.empty() ? StandardErrorTextOf(status) : text),
      mStatus(status),
      mSource(std::move(source)),
      mHelpFile(std::move(helpFile)),
      mHelpContext(helpContext) {}

std::int32_t StandardErrorOf(HRESULT status) noexcept {
  const auto bits = static_cast<std::uint32_t>(status);
  if ((bits & 0xFFFF0000) == kStandardErrors && bits != kStandardErrors)
    return static_cast<std::int32_t>(bits & 0xFFFF);
  for (const StatusNumber& failure : kAutomationFailures) {
    if (failure.status == status) return static_cast<std::int32_t>(failure.number);
  }
  return static_cast<std::int32_t>(status);
}

HRESULT StatusOf(std::int32_t standardError) noexcept {
  if (standardError < 0) return static_cast<HRESULT>(standardError);
  if (standardError == 0 || standardError > kLargestNumber) return E_FAIL;
  return static_cast<HRESULT>(kStandardErrors + static_cast<std::uint32_t>(standardError));
}

std::string StandardErrorTextOf(HRESULT status) {
  return std::string(platform::StandardErrorText(StandardErrorOf(status)));
}

void ThrowHostError(HRESULT status, EXCEPINFO& info) {
  if (status == DISP_E_EXCEPTION) {
    if (info.pfnDeferredFillIn != nullptr) {
      const win32::HostFloatingPoint hostState;
      static_cast<void>(info.pfnDeferredFillIn(&info));
    }
    // An error is told by its status, or by an old-style code that counts as a standard error.
    if (info.scode != S_OK)
      status = info.scode;
    else if (info.wCode != 0)
      status = StatusOf(info.wCode);
    if (SUCCEEDED(status)) status = E_FAIL;
  } else {
    // The call itself failed: an unknown name is the standard error 438, and so on.
    status = StatusOf(StandardErrorOf(status));
  }
  const std::string text = TakeText(info.bstrDescription);
  std::string source = TakeText(info.bstrSource);
  std::string helpFile = TakeText(info.bstrHelpFile);
  throw HostError(status, text, std::move(source), std::move(helpFile), info.dwHelpContext);
}

HRESULT Report(const platform::RunTimeError& error) noexcept {
  return ReportTexts(StatusOf(error.Number()), {kSource, error.what(), {}});
}

HRESULT Report(const HostError& error) noexcept {
  return ReportTexts(error.Status(), {error.Source().empty() ? kSource : std::string_view(error.Source()),
                                      error.what(), error.HelpFile(), error.HelpContext()});
}

HRESULT Report(HRESULT status) noexcept {
  try {
    return ReportTexts(status, {kSource, StandardErrorTextOf(status), {}});
  } catch (const std::exception&) {
    return status;
  }
}

void TakeErrorInfo(HRESULT status, EXCEPINFO& info) noexcept {
  info = EXCEPINFO{};
  info.scode = status;
  ComPtr<IErrorInfo> error;
  if (::GetErrorInfo(0, error.Receive()) != S_OK) return;
  error->GetSource(&info.bstrSource);
  error->GetDescription(&info.bstrDescription);
  error->GetHelpFile(&info.bstrHelpFile);
  error->GetHelpContext(&info.dwHelpContext);
}

}  // namespace plotvane::control::com
