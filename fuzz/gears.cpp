#include "fuzz/gears.h"

#include <array>
#include <atomic>
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
#include "platform/variable_table.h"

namespace plotvane::fuzz {
namespace {

using engine::clsExp;
using identifiers::clsExNode;
using identifiers::clsVarTable;
using platform::Value;

// A table of a host's own over the same variables: everything passes through the two members.
class HostTable : public platform::VariableTable {
 public:
  explicit HostTable(std::shared_ptr<clsVarTable> table) : mTable(std::move(table)) {}
  bool GetIdValue(std::string_view id, Value& value) override { return mTable->GetIdValue(id, value); }
  bool Change(std::string_view id, const Value& value) override { return mTable->Change(id, value); }

 private:
  std::shared_ptr<clsVarTable> mTable;
};

// One expression object over its own table.
struct Gear {
  Gear(bool compiled, const std::atomic<bool>* stop) {
    expression.SetVarTable(table);
    expression.SetCompiledReplay(compiled);
    expression.SetAcceptNumericResultOnly(true);
    expression.SetStopFlag(stop);
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

// The stores: what stands before and after "=", and the sign before the name.
void Store(clsVarTable& table, std::string_view name, const Value& value) {
  switch (name.empty() ? ' ' : name.front()) {
    case '#': table.ChangeConstant(name.substr(1), value); break;
    case '$': table.ChangeReserved(name.substr(1), value); break;
    case '%': table.Change(name.substr(1), value, 0, "described"); break;
    default: static_cast<void>(table.Change(name, value)); break;
  }
}

void Act(clsVarTable& table, std::string_view line) {
  const std::size_t equals = line.find('=');
  const std::size_t arrow = line.find('>');
  if (line.front() == '-') {
    table.Remove(line.substr(1));
  } else if (line == "+") {
    table.LoadOtherConstData();
  } else if (equals != std::string_view::npos) {
    Store(table, line.substr(0, equals), ParseValue(line.substr(equals + 1)));
  } else if (arrow != std::string_view::npos) {
    table.Rename(line.substr(0, arrow), line.substr(arrow + 1));
  }
}

void SetMode(Gear& gear, std::string_view word) {
  clsExp& expression = gear.expression;
  if (word == "@degrees") expression.SetDegreeMode(true);
  if (word == "@radians") expression.SetRadianMode(true);
  if (word == "@graph") expression.ErrObj().GraphMode = true;
  if (word == "@strict") expression.ErrObj().GraphMode = false;
  if (word == "@decimal") expression.SetAcceptNumericResultOnly(false);
  if (word == "@fixed") static_cast<void>(expression.SetFormatMode("fixed"));
  if (word == "@open") gear.table->ConstWriteAccess = gear.table->ReservedWriteAccess = true;
  if (word == "@closed") gear.table->ConstWriteAccess = gear.table->ReservedWriteAccess = false;
}

void SetTable(Gear& gear, std::string_view word) {
  if (word.empty()) gear.table = std::make_shared<clsVarTable>();
  if (word == "host") return gear.expression.SetVarTable(std::make_shared<HostTable>(gear.table));
  if (word == "none") return gear.expression.SetVarTable(nullptr);
  gear.expression.SetVarTable(gear.table);
}

class Comparison {
 public:
  Comparison(std::string_view script, const std::atomic<bool>* stop)
      : mRest(script), mStop(stop), mExact(false, stop), mCompiled(true, stop) {}

  std::string Run() {
    const std::string_view text = TakeLine();
    Record(text);
    while (mDifference.empty() && !mRest.empty() && !Stopped()) {
      const std::string_view line = TakeLine();
      if (line.empty()) continue;
      Act(line, text);
      Replay();
    }
    return mDifference;
  }

 private:
  [[nodiscard]] bool Stopped() const { return mStop && *mStop; }

  void Act(std::string_view line, std::string_view text) {
    const std::string_view rest = line.substr(1);
    if (line.front() == '~') return Plot(rest);
    if (line == "!") return Record(text);
    for (Gear* gear : {&mExact, &mCompiled}) {
      switch (line.front()) {
        case '!': gear->expression.SetPPE(std::make_shared<engine::clsPreParsedExpression>()); break;
        case '@': SetMode(*gear, line); break;
        case '^': SetTable(*gear, rest); break;
        default: fuzz::Act(*gear->table, line); break;
      }
    }
    if (line.front() == '!') Record(rest);
  }

  std::string_view TakeLine() {
    const std::size_t end = std::min(mRest.find('\n'), mRest.size());
    const std::string_view line = mRest.substr(0, end);
    mRest.remove_prefix(std::min(end + 1, mRest.size()));
    return line;
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
    // A curve needs a table.
    if (!mExact.expression.GetVarTable()) return;
    mCompiledCurve.Plan(xs);
    for (const double x : xs) {
      if (Stopped()) return;
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
    if (!mDifference.empty() || Stopped()) return;
    const std::string exactText = ValueText(exact) + "\n" + Seen(mExact.expression) + Seen(*mExact.table);
    const std::string compiledText =
        ValueText(compiled) + "\n" + Seen(mCompiled.expression) + Seen(*mCompiled.table);
    const bool sameRandom = mRandom.Last() == platform::SharedRandomGenerator().Last();
    if (exactOk == compiledOk && exactText == compiledText && sameRandom) return;
    mDifference = std::string(what) + ": exact " + std::to_string(exactOk) + " " + exactText + "\ncompiled " +
                  std::to_string(compiledOk) + " " + compiledText;
  }

  std::string_view mRest;
  const std::atomic<bool>* mStop;
  Gear mExact;
  Gear mCompiled;
  engine::Curve mExactCurve{mExact.expression, "x"};
  engine::Curve mCompiledCurve{mCompiled.expression, "x"};
  platform::RandomGenerator mRandom;
  std::string mDifference;
};

}  // namespace

std::string DifferenceBetweenGears(std::string_view script, const std::atomic<bool>* stop) {
  return Comparison(script, stop).Run();
}

}  // namespace plotvane::fuzz
