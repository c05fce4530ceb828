#include "hosts/terminal/calc_command.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/clsExp.h"
#include "functions/catalogue.h"
#include "hosts/terminal/calc_report.h"
#include "hosts/terminal/exit_status.h"
#include "hosts/terminal/function_help.h"
#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/line_input.h"
#include "hosts/terminal/progress.h"
#include "hosts/terminal/variable_file.h"
#include "identifiers/clsVarTable.h"
#include "platform/runtime_error.h"

namespace plotvane::terminal {

namespace {

struct CalcOptions {
  std::string mode = "decimal";
  int places = 0;
  bool degrees = false;
  std::string variables;  // path of a file of identifiers; empty without one
  bool chemistry = false;
  ReportForm report = ReportForm::Text;
  bool numeric = false;
  bool graph = false;
  bool replay = false;
  std::vector<std::string> expressions;
};

// The one expression object and table of variables that all lines share.
class Calculator {
 public:
  // RunTimeError when a file cannot be read.
  explicit Calculator(const CalcOptions& options) : mReport(options.report), mReplay(options.replay) {
    mExpression.SetVarTable(mTable);
    mExpression.SetStopFlag(&InterruptFlag());
    if (options.chemistry) mTable->LoadOriginalChemData();
    if (!options.variables.empty()) mVariables.emplace(options.variables, *mTable);
    mExpression.SetFormatMode(options.mode);
    mExpression.SetFixedDecimalPlaces(platform::Value(static_cast<double>(options.places)));
    mExpression.SetDegreeMode(options.degrees);
    mExpression.SetAcceptNumericResultOnly(options.numeric);
    mExpression.ErrObj().GraphMode = options.graph;
  }

  void Calculate(const std::string& line) {
    platform::Value result;
    if (EvaluateWithNote(line, result)) {
      ReportResult(std::cout, mReport, result.ToText());
    } else {
      ReportFailure(std::cout, std::cerr, mReport, mExpression.ErrObj());
      mAllWell = false;
    }
  }

  // Of all functions and identifiers.
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names = mTable->Records().Ids();
    for (const functions::Function& function : functions::kCatalogue) names.emplace_back(function.name);
    return names;
  }

  // To the file that they came from; nothing without one. RunTimeError when it cannot be written.
  void SaveVariables() const {
    if (mVariables) mVariables->Save();
  }

  [[nodiscard]] int Status() const noexcept { return mAllWell ? kAllWell : kSomethingFailed; }

 private:
  bool EvaluateWithNote(const std::string& line, platform::Value& result) {
    const Progress::Work work(mProgress);
    return Evaluate(line, result);
  }

  bool Evaluate(const std::string& line, platform::Value& result) {
    if (!mReplay) return mExpression.Evaluate(line, result);
    mExpression.EvaluateThenSavePreParsedExpression(line, result);
    return mExpression.EvaluateCurrentPreParsedExpression(result);
  }

  std::shared_ptr<identifiers::clsVarTable> mTable = std::make_shared<identifiers::clsVarTable>();
  std::optional<VariableFile> mVariables;
  engine::clsExp mExpression;
  Progress mProgress;
  ReportForm mReport;
  bool mReplay;
  bool mAllWell = true;
};

// An interrupt stops the line that is being calculated; the user goes on with the next.
void CalculateTyped(Calculator& calculator, const std::string& line) {
  if (!MustEnd()) TakeInterrupt();
  if (const auto help = HelpFor(line)) {
    std::cout << *help;
  } else {
    calculator.Calculate(line);
  }
}

// An interrupt ends the whole run.
void CalculateGiven(Calculator& calculator, const std::string& line) {
  ThrowIfInterrupted();
  calculator.Calculate(line);
  ThrowIfInterrupted();
}

void CalculateInput(Calculator& calculator) {
  const auto input = OpenLineInput([&calculator] { return calculator.Names(); });
  const auto calculate = input->IsTerminal() ? CalculateTyped : CalculateGiven;
  while (const auto line = input->Next()) calculate(calculator, *line);
  if (!input->IsTerminal()) ThrowIfInterrupted();  // while it waited for a line
}

int RunCalc(const CalcOptions& options) {
  try {
    Calculator calculator(options);
    if (options.expressions.empty()) CalculateInput(calculator);
    for (const std::string& expression : options.expressions) CalculateGiven(calculator, expression);
    calculator.SaveVariables();
    if (MustEnd()) throw Interrupted();  // at the prompt: nothing that was typed is lost
    std::cout.flush();
    return std::cout ? calculator.Status() : kSomethingFailed;
  } catch (const platform::RunTimeError& error) {
    std::cerr << "plotvane: " << error.what() << '\n';
    return kSomethingFailed;
  }
}

}  // namespace

void AddCalcCommand(CLI::App& program, int& status) {
  const auto options = std::make_shared<CalcOptions>();
  CLI::App* command = program.add_subcommand("calc", "Evaluate expressions");
  command->add_option("--mode", options->mode, "How results are shown")
      ->check(CLI::IsMember({"decimal", "fixed", "octal", "hexadecimal", "binary"}, CLI::ignore_case))
      ->type_name("MODE");
  command->add_option("--places", options->places, "Decimal places of fixed mode, -100 to 127")
      ->check(CLI::Range(-100, 127));
  command->add_flag("--degrees", options->degrees, "Angles in degrees instead of radians");
  command
      ->add_option("--variables", options->variables,
                   "Load variables from a file before, save them to it after")
      ->type_name("FILE");
  command->add_flag("--chem", options->chemistry, "Know the symbols of the chemical elements");
  const std::map<std::string, ReportForm> forms{{"text", ReportForm::Text}, {"tsv", ReportForm::Tsv}};
  command->add_option("--report", options->report, "text, or tsv: ok and the result, err and the error")
      ->transform(CLI::CheckedTransformer(forms, CLI::ignore_case).description(""))
      ->type_name("FORM");
  command->add_flag("--numeric", options->numeric, "Accept numeric results only");
  command->add_flag("--graph", options->graph, "Tolerate errors as a graph does");
  command->add_flag("--replay", options->replay, "Record each line and print the result of its replay");
  command
      ->add_option("expressions", options->expressions, "Expressions; without any, lines of standard input")
      ->type_name("EXPRESSION");
  command->positionals_at_end(false);
  command->callback([options, &status] { status = RunCalc(*options); });
}

}  // namespace plotvane::terminal
