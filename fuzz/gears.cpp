#include "fuzz/gears.h"

#include <array>
#include <bit>
#include <cstdint>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include "engine/clsExp.h"
#include "engine/curve.h"
#include "identifiers/clsVarTable.h"
#include "platform/number_text.h"
#include "platform/random.h"

namespace plotvane::fuzz {
namespace {

using engine::clsExp;
using identifiers::clsExNode;
using identifiers::clsVarTable;
using platform::Value;

// One expression object over its own table.
struct Gear {
  explicit Gear(bool compiled) {
    expression.SetVarTable(table);
    expression.SetCompiledReplay(compiled);
    expression.SetAcceptNumericResultOnly(true);
  }
  std::shared_ptr<clsVarTable> table = std::make_shared<clsVarTable>();
  clsExp expression;
};

std::string ValueText(const Value& value) {
  switch (value.GetKind()) {
    case Value::Kind::Empty: return "empty";
    case Value::Kind::Boolean: return value.Boolean() ? "True" : "False";
    case Value::Kind::Number: {
      std::ostringstream out;
      out << value.Number() << " (" << std::hex << std::bit_cast<std::uint64_t>(value.Number()) << ")";
      return out.str();
    }
    default: return "'" + value.Text() + "'";
  }
}

// Everything of an expression object that its users can see after an evaluation, one line each.
std::string Seen(const clsExp& expression) {
  const engine::clsStdErrObj& error = expression.ErrObj();
  std::ostringstream out;
  out << "graph error " << error.WasOkGraphErr << "\nstandard " << error.StandardErrorNum << ' '
      << error.StandardErrorDescription << "\ncustom " << error.CustomErrorNum << ' '
      << error.CustomErrorDescription << "\nflags " << expression.ErrorOccurred()
      << expression.ErrorAlreadySet() << "\nspelling " << expression.e_Spelling() << "\nbracket "
      << expression.PopPar() << '\n';
  return out.str();
}

void AppendRecords(const clsExNode& node, std::string& text) {
  std::vector<const clsExNode*> waiting{&node};
  while (!waiting.empty()) {
    const clsExNode& record = *waiting.back();
    waiting.pop_back();
    text += record.Id + " = " + ValueText(record.Value) + " type " + std::to_string(record.Type()) + " " +
            record.Description + "\n";
    if (record.LeftExists) waiting.push_back(record.Left);
    if (record.RightExists) waiting.push_back(record.Right);
  }
}

std::string Seen(const clsVarTable& table) {
  std::string text;
  if (table.Records().HasNodes()) AppendRecords(*table.Records().HeadNode(), text);
  return text;
}

Value ParseValue(std::string_view text) {
  if (text.empty()) return Value();
  if (text == "True" || text == "False") return Value(text == "True");
  if (text.front() == '\'') return Value(text.substr(1));
  const auto number = platform::LeadingNumber(text);
  return Value(number.Ok() ? number.Get() : 0.0);
}

void Act(clsVarTable& table, std::string_view line) {
  const std::size_t equals = line.find('=');
  const std::size_t arrow = line.find('>');
  if (line.front() == '-') {
    table.Remove(line.substr(1));
  } else if (equals != std::string_view::npos && line.front() == '#') {
    table.ChangeConstant(line.substr(1, equals - 1), ParseValue(line.substr(equals + 1)));
  } else if (equals != std::string_view::npos) {
    static_cast<void>(table.Change(line.substr(0, equals), ParseValue(line.substr(equals + 1))));
  } else if (arrow != std::string_view::npos) {
    table.Rename(line.substr(0, arrow), line.substr(arrow + 1));
  }
}

void SetMode(clsExp& expression, std::string_view word) {
  if (word == "@degrees") expression.SetDegreeMode(true);
  if (word == "@radians") expression.SetRadianMode(true);
  if (word == "@graph") expression.ErrObj().GraphMode = true;
  if (word == "@strict") expression.ErrObj().GraphMode = false;
  if (word == "@decimal") expression.SetAcceptNumericResultOnly(false);
  if (word == "@fixed") static_cast<void>(expression.SetFormatMode("fixed"));
}

class Comparison {
 public:
  explicit Comparison(std::string_view script) : mRest(script) {}

  std::string Run() {
    const std::string_view text = TakeLine();
    Record(text);
    while (mDifference.empty() && !mRest.empty()) {
      const std::string_view line = TakeLine();
      if (line.empty()) continue;
      if (line.front() == '!')
        Record(text);
      else if (line.front() == '~')
        Plot(line.substr(1));
      else
        Change(line);
      Replay();
    }
    return mDifference;
  }

 private:
  std::string_view TakeLine() {
    const std::size_t end = std::min(mRest.find('\n'), mRest.size());
    const std::string_view line = mRest.substr(0, end);
    mRest.remove_prefix(std::min(end + 1, mRest.size()));
    return line;
  }

  void Change(std::string_view line) {
    for (Gear* gear : {&mExact, &mCompiled}) {
      if (line.front() == '@')
        SetMode(gear->expression, line);
      else
        Act(*gear->table, line);
    }
  }

  void Record(std::string_view text) {
    Value exact;
    Value compiled;
    mRandom = platform::SharedRandomGenerator();
    const bool exactOk = mExact.expression.EvaluateThenSavePreParsedExpression(text, exact);
    SwapRandom();
    const bool compiledOk = mCompiled.expression.EvaluateThenSavePreParsedExpression(text, compiled);
    Compare("recording", exactOk, exact, compiledOk, compiled);
  }

  void Replay() {
    Value exact;
    Value compiled;
    mRandom = platform::SharedRandomGenerator();
    const bool exactOk = mExact.expression.EvaluateCurrentPreParsedExpression(exact);
    SwapRandom();
    const bool compiledOk = mCompiled.expression.EvaluateCurrentPreParsedExpression(compiled);
    Compare("replay", exactOk, exact, compiledOk, compiled);
  }

  // A curve whose points are planned in blocks, against single evaluations.
  void Plot(std::string_view numbers) {
    std::istringstream in{std::string(numbers)};
    double from = -1;
    double width = 0.125;
    in >> from >> width;
    std::array<double, 128> xs{};
    for (std::size_t i = 0; i < xs.size(); ++i) xs[i] = from + static_cast<double>(i) * width;
    mCompiledCurve.Plan(xs);
    for (const double x : xs) {
      double exact = 0;
      double compiled = 0;
      mRandom = platform::SharedRandomGenerator();
      const bool exactOk = mExactCurve.At(x, exact);
      SwapRandom();
      const bool compiledOk = mCompiledCurve.At(x, compiled);
      Compare("curve", exactOk, Value(exact), compiledOk, Value(compiled));
    }
  }

  // All expression objects share one generator: the second gear draws from the state that the first one began
  // with.
  void SwapRandom() { std::swap(mRandom, platform::SharedRandomGenerator()); }

  void Compare(const char* what, bool exactOk, const Value& exact, bool compiledOk, const Value& compiled) {
    if (!mDifference.empty()) return;
    const std::string exactText = ValueText(exact) + "\n" + Seen(mExact.expression) + Seen(*mExact.table);
    const std::string compiledText =
        ValueText(compiled) + "\n" + Seen(mCompiled.expression) + Seen(*mCompiled.table);
    const bool sameRandom = mRandom.Last() == platform::SharedRandomGenerator().Last();
    if (exactOk == compiledOk && exactText == compiledText && sameRandom) return;
    mDifference = std::string(what) + ": exact " + std::to_string(exactOk) + " " + exactText + "\ncompiled " +
                  std::to_string(compiledOk) + " " + compiledText;
  }

  std::string_view mRest;
  Gear mExact{false};
  Gear mCompiled{true};
  engine::Curve mExactCurve{mExact.expression, "x"};
  engine::Curve mCompiledCurve{mCompiled.expression, "x"};
  platform::RandomGenerator mRandom;
  std::string mDifference;
};

}  // namespace

std::string DifferenceBetweenGears(std::string_view script) {
  return Comparison(script).Run();
}

}  // namespace plotvane::fuzz
