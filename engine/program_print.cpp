#include <array>

#include "engine/program.h"
#include "platform/number_text.h"

namespace plotvane::engine {
namespace {

template <class... Operations>
constexpr std::array<std::string_view, sizeof...(Operations)> NamesOf(
    operations::List<Operations...> /*list*/) {
  return {Operations::kName...};
}

constexpr auto kNamesOfTwo = NamesOf(operations::OfTwo{});
constexpr auto kNamesOfOne = NamesOf(operations::OfOne{});

std::string SlotText(const Program& program, Slot slot) {
  if (program.KindOf(slot) == SlotKind::Constant) return platform::ShortestNumberText(program.NumberAt(slot));
  if (program.KindOf(slot) == SlotKind::Varying) return "varying";
  for (const ProgramVariable& variable : program.Variables()) {
    if (variable.slot == slot) return variable.name;
  }
  return "#" + std::to_string(slot);
}

std::string StepText(const Program& program, const Step& step) {
  switch (step.form) {
    case StepForm::OfAccumulator: return OperationName(step.code);
    case StepForm::SlotRight: return OperationName(step.code) + " " + SlotText(program, step.place);
    case StepForm::SlotLeft: return OperationName(step.code) + " left " + SlotText(program, step.place);
    case StepForm::Load: return "load " + SlotText(program, step.place);
    case StepForm::Store: return "store " + SlotText(program, step.place);
    case StepForm::Call: break;
  }
  const CallPlan& call = program.Calls()[step.place];
  return "call " + std::string(call.function->name) + " #" + std::to_string(call.first);
}

}  // namespace

std::string OperationName(OperationCode code) {
  if (code < operations::kFirstOfOne) return std::string(kNamesOfTwo[code]);
  if (code < operations::kFirstFunction) return std::string(kNamesOfOne[code - operations::kFirstOfOne]);
  const std::size_t place = code - operations::kFirstFunction;
  for (const functions::Function& function : functions::kCatalogue) {
    if (static_cast<std::size_t>(function.operation) != place / 2) continue;
    return std::string(function.name) + (place % 2 != 0 ? " in degrees" : "");
  }
  return "?";
}

std::string Program::Print() const {
  std::string text = "when the table changed\n";
  for (const Step& step : mUniformSteps) text += "  " + StepText(*this, step) + "\n";
  text += "for each value\n";
  for (const Step& step : mVaryingSteps) text += "  " + StepText(*this, step) + "\n";
  return text;
}

}  // namespace plotvane::engine
