#include "functions/compute.h"

#include "functions/operations.h"

namespace plotvane::functions {

ErrorPair CheckCount(const Function& function, std::size_t count) noexcept {
  if (count < function.least) return {platform::StandardError::None, CustomError::MissingArguments};
  if (count > function.most) return {platform::StandardError::None, CustomError::TooManyArguments};
  return {};
}

Trapped Compute(const Function& function, AngleMode mode, std::span<const platform::Value> arguments) {
  const std::size_t count = arguments.size();
  if (const ErrorPair wrongCount = CheckCount(function, count); !wrongCount.None()) return wrongCount;
  NumericArguments numbers;
  numbers.count = count;
  for (std::size_t i = 0; i < count; ++i) {
    numbers.values[i] = arguments[i].ToNumber();
    if (!numbers.values[i].Ok()) return numbers.values[i];
  }
  for (std::size_t i = count; i < kMostArguments; ++i) numbers.values[i] = DefaultArgument(function, i);
  return Run(function.operation, mode, numbers);
}

}  // namespace plotvane::functions
