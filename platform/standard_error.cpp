#include "platform/standard_error.h"

#include <algorithm>
#include <array>

namespace plotvane::platform {

namespace {

struct Entry {
  StandardError error;
  std::string_view text;
};

constexpr std::array kTexts{
    Entry{StandardError::InvalidCall, "Invalid procedure call or argument"},
    Entry{StandardError::Overflow, "Overflow"},
    Entry{StandardError::OutOfMemory, "Out of memory"},
    Entry{StandardError::SubscriptOutOfRange, "Subscript out of range"},
    Entry{StandardError::DivisionByZero, "Division by zero"},
    Entry{StandardError::TypeMismatch, "Type mismatch"},
    Entry{StandardError::UserInterrupt, "User interrupt occurred"},
    Entry{StandardError::OutOfStackSpace, "Out of stack space"},
    Entry{StandardError::BadFileNumber, "Bad file name or number"},
    Entry{StandardError::FileNotFound, "File not found"},
    Entry{StandardError::BadFileMode, "Bad file mode"},
    Entry{StandardError::FileAlreadyOpen, "File already open"},
    Entry{StandardError::DeviceIoError, "Device I/O error"},
    Entry{StandardError::DiskFull, "Disk full"},
    Entry{StandardError::InputPastEnd, "Input past end of file"},
    Entry{StandardError::PermissionDenied, "Permission denied"},
    Entry{StandardError::PathFileAccess, "Path/File access error"},
    Entry{StandardError::PathNotFound, "Path not found"},
    Entry{StandardError::ObjectNotSet, "Object variable or With block variable not set"},
    Entry{StandardError::ObjectRequired, "Object required"},
    Entry{StandardError::MemberNotFound, "Object doesn't support this property or method"},
};

static_assert(std::ranges::is_sorted(kTexts, {}, &Entry::error));

}  // namespace

std::string_view StandardErrorText(std::int32_t number) noexcept {
  const auto found = std::ranges::lower_bound(kTexts, static_cast<StandardError>(number), {}, &Entry::error);
  if (found != kTexts.end() && found->error == static_cast<StandardError>(number)) return found->text;
  return "Application-defined or object-defined error";
}

std::string_view StandardErrorText(StandardError error) noexcept {
  return StandardErrorText(static_cast<std::int32_t>(error));
}

}  // namespace plotvane::platform
