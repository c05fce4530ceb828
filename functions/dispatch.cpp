#include "functions/dispatch.h"

#include <algorithm>
#include <array>

#include "functions/operations.h"
#include "platform/conversions.h"

namespace plotvane::functions {

namespace {

using platform::Value;

// An argument list as read: all arguments are evaluated and counted, those beyond the most that any function
// takes are not kept.
struct ValueList {
  std::array<Value, kMostArguments> values;
  std::size_t count = 0;

  [[nodiscard]] std::span<const Value> Kept() const {
    return {values.data(), std::min(count, values.size())};
  }
};

// Reads a bracketed list, `readOne(position)` for each argument; false after an error was raised.
template <class ReadOne>
bool ReadList(CallContext& context, std::size_t& count, ReadOne readOne) {
  count = 0;
  if (!context.OpenArguments()) return false;
  if (context.AtEmptyList()) return true;
  while (readOne(count)) {
    ++count;
    const ArgumentEnd end = context.EndArgument();
    if (end != ArgumentEnd::Comma) return end == ArgumentEnd::Closed;
  }
  return false;
}

bool ReadValues(CallContext& context, ValueList& list) {
  return ReadList(context, list.count, [&](std::size_t position) {
    Value surplus;
    return context.ReadValue(position < kMostArguments ? list.values[position] : surplus);
  });
}

struct CalculusList {
  ValueList list;  // values at their positions; expression and variable stay empty there
  std::shared_ptr<RecordedArgument> expression;
  std::string variable;
};

bool ReadCalculusList(const Function& function, CallContext& context, CalculusList& read) {
  return ReadList(context, read.list.count, [&](std::size_t position) {
    switch (CalculusArgumentAt(function, position)) {
      case CalculusArgument::Expression:
        read.expression = context.RecordExpression();
        return read.expression != nullptr;
      case CalculusArgument::Variable: return context.ReadName(read.variable);
      case CalculusArgument::Value: break;
    }
    Value surplus;
    return context.ReadValue(position < kMostArguments ? read.list.values[position] : surplus);
  });
}

Trapped ToOrder(const Value& value) {
  const Trapped number = value.ToNumber();
  if (!number.Ok()) return number;
  const auto order = platform::ToInt16(number.Get());
  return order.Ok() ? Trapped(static_cast<double>(order.Get())) : Trapped(order.Error());
}

// The numbers of a calculus call, converted in the order of its arguments.
ErrorPair Convert(const Function& function, const CalculusList& read, CalculusCall& call) {
  const std::span<const Value> values = read.list.Kept();
  std::size_t next = 0;
  if (function.operation == Operation::NDerivative) {
    const Trapped order = ToOrder(values[next++]);
    if (!order.Ok()) return order.Error();
    call.n = static_cast<std::int16_t>(order.Get());
  }
  next += 2;  // expression and variable
  const bool isDerivative =
      function.operation == Operation::Derivative || function.operation == Operation::NDerivative;
  std::array<double*, 3> targets{&call.from, isDerivative ? &call.step : &call.to, &call.step};
  call.step = DefaultStep(function);
  for (std::size_t target = 0; next < values.size(); ++next, ++target) {
    const Trapped number = values[next].ToNumber();
    if (!number.Ok()) return number.Error();
    *targets[target] = number.Get();
  }
  return {};
}

constexpr CalculusOperation ToCalculus(Operation operation) {
  switch (operation) {
    case Operation::LIntegral: return CalculusOperation::LIntegral;
    case Operation::Derivative: return CalculusOperation::Derivative;
    case Operation::NDerivative: return CalculusOperation::NDerivative;
    default: return CalculusOperation::SigmaSum;
  }
}

bool RaiseUnlessNone(CallContext& context, ErrorPair error) {
  if (!error.None()) context.Raise(error);
  return error.None();
}

bool CallCalculus(const Function& function, CallContext& context, Value& value) {
  CalculusList read;
  if (!ReadCalculusList(function, context, read)) return false;
  if (!RaiseUnlessNone(context, CheckCount(function, read.list.count))) return false;
  CalculusCall call;
  call.operation = ToCalculus(function.operation);
  call.expression = std::move(read.expression);
  call.variable = std::move(read.variable);
  if (!RaiseUnlessNone(context, Convert(function, read, call))) return false;
  double result = 0;
  if (!context.RunCalculus(call, result)) return false;
  value = Value(result);
  return true;
}

// Counts the whole list, of which `values` may be the front.
Trapped ComputeCounted(const Function& function, AngleMode mode, std::span<const Value> values,
                       std::size_t count) {
  const ErrorPair wrongCount = CheckCount(function, count);
  if (!wrongCount.None()) return wrongCount;
  NumericArguments arguments;
  arguments.count = count;
  for (std::size_t i = 0; i < count; ++i) {
    arguments.values[i] = values[i].ToNumber();
    if (!arguments.values[i].Ok()) return arguments.values[i];
  }
  for (std::size_t i = count; i < kMostArguments; ++i) arguments.values[i] = DefaultArgument(function, i);
  return Run(function.operation, mode, arguments);
}

}  // namespace

ErrorPair CheckCount(const Function& function, std::size_t count) noexcept {
  if (count < function.least) return {platform::StandardError::None, CustomError::MissingArguments};
  if (count > function.most) return {platform::StandardError::None, CustomError::TooManyArguments};
  return {};
}

Trapped Compute(const Function& function, AngleMode mode, std::span<const Value> arguments) {
  return ComputeCounted(function, mode, arguments, arguments.size());
}

bool Call(const Function& function, CallContext& context, Value& value) {
  if (function.IsCalculus()) return CallCalculus(function, context, value);
  ValueList list;
  if (!ReadValues(context, list)) return false;
  const Trapped result = ComputeCounted(function, context.GetAngleMode(), list.Kept(), list.count);
  if (!RaiseUnlessNone(context, result.Error())) return false;
  value = Value(result.Get());
  return true;
}

bool Dispatch(std::string_view name, CallContext& context, Value& value, bool& notAFunction) {
  const Function* function = FindFunction(name);
  notAFunction = function == nullptr;
  return function != nullptr && Call(*function, context, value);
}

}  // namespace plotvane::functions
