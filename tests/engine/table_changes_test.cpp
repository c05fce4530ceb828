// Focus: whatever happens to the table of variables between two evaluations, a compiled replay and a planned
// curve see it as the exact evaluator does.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/clsExp.h"
#include "engine/curve.h"
#include "identifiers/clsVarTable.h"
#include "tests/engine/host_table.h"
#include "tests/platform/temporary_directory.h"

namespace plotvane::engine::test {
namespace {

using identifiers::clsVarTable;
using identifiers::kConstantBit;
using identifiers::kVariableType;
using platform::Value;

// One expression object, its table, and a curve of it whose points are announced.
struct Gear {
  Gear(const std::string& text, bool compiled) {
    expression.SetVarTable(table);
    expression.SetCompiledReplay(compiled);
    expression.SetAcceptNumericResultOnly(true);
    for (const char* name : {"x", "y", "z"}) EXPECT_TRUE(table->Change(name, Value(2.0)));
    Value unused;
    EXPECT_TRUE(expression.EvaluateThenSavePreParsedExpression(text, unused)) << text;
    if (compiled) curve.Plan(std::array{1.0, 2.0, 3.0, 4.0});
  }
  std::shared_ptr<clsVarTable> table = std::make_shared<clsVarTable>();
  clsExp expression;
  Curve curve{expression, "x"};
};

std::string Bits(double number) {
  return std::to_string(std::bit_cast<std::uint64_t>(number));
}

// What users see of one point of the curve and of one replay, errors included.
std::string Seen(Gear& gear, double x) {
  std::string seen;
  double y = -1;
  try {
    seen += gear.curve.At(x, y) ? "value " + Bits(y) : "failure";
  } catch (const platform::RunTimeError& error) {
    seen += error.what();
  }
  const auto tell = [&](const char* what) {
    const clsStdErrObj& error = gear.expression.ErrObj();
    seen += std::string(what) + std::to_string(error.StandardErrorNum) + error.StandardErrorDescription +
            std::to_string(error.CustomErrorNum) + error.CustomErrorDescription;
  };
  tell(" then ");
  Value value;
  seen += gear.expression.EvaluateCurrentPreParsedExpression(value)
              ? " replay " + Bits(value.ToNumber().Get())
              : " replay failed";
  tell(" then ");
  for (const char* name : {"x", "y", "z", "q"}) {
    Value held("nothing");
    static_cast<void>(gear.table->GetIdValue(name, held));
    seen += std::string(" ") + name + "=" + (held.IsNumber() ? Bits(held.Number()) : held.ToText());
  }
  return seen;
}

struct Change {
  const char* name;
  std::function<void(Gear&)> act;
};

// A file of variables to load.
std::string SaveVariables(const std::string& path) {
  clsVarTable table;
  EXPECT_TRUE(table.Change("y", Value(11.0)) && table.Change("q", Value(12.0)));
  table.SaveTypeToFile(kVariableType, path);
  return path;
}

std::vector<Change> Changes(const std::string& file) {
  const auto store = [](const char* name, const Value& value) {
    return [name, value](Gear& gear) { static_cast<void>(gear.table->Change(name, value)); };
  };
  return {
      {"nothing", [](Gear&) {}},
      {"a number", store("y", Value(5.0))},
      {"a truth value", store("y", Value(true))},
      {"a text", store("y", Value("7"))},
      {"a text that is no number", store("y", Value("seven"))},
      {"an empty value", store("y", Value())},
      {"x as a truth value", store("x", Value(true))},
      {"a new name", store("q", Value(1.0))},
      {"a removal", [](Gear& gear) { gear.table->Remove("y"); }},
      {"the removal of x", [](Gear& gear) { gear.table->Remove("x"); }},
      {"a removal and a new store",
       [](Gear& gear) {
         gear.table->Remove("z");
         static_cast<void>(gear.table->Change("z", Value(9.0)));
       }},
      {"a rename", [](Gear& gear) { gear.table->Rename("y", "q"); }},
      {"a rename onto another", [](Gear& gear) { gear.table->Rename("z", "y"); }},
      {"a rename back", [](Gear& gear) { gear.table->Rename("q", "y"); }},
      {"a type and a description", [](Gear& gear) { gear.table->Change("y", Value(6.0), 0, "described"); }},
      {"x with a type", [](Gear& gear) { gear.table->Change("x", Value(6.0), kConstantBit); }},
      {"a constant", [](Gear& gear) { gear.table->ChangeConstant("y", Value(3.0)); }},
      {"x as a constant", [](Gear& gear) { gear.table->ChangeConstant("x", Value(3.0)); }},
      {"a reserved name", [](Gear& gear) { gear.table->ChangeReserved("z", Value(4.0)); }},
      {"write access",
       [](Gear& gear) { gear.table->ConstWriteAccess = gear.table->ReservedWriteAccess = true; }},
      {"a loaded file", [file](Gear& gear) { gear.table->LoadTypeFromFile(file); }},
      {"loaded constants", [](Gear& gear) { gear.table->LoadOtherConstData(); }},
      {"another table",
       [](Gear& gear) {
         gear.table = std::make_shared<clsVarTable>();
         static_cast<void>(gear.table->Change("x", Value(1.0)) && gear.table->Change("y", Value(8.0)));
         gear.expression.SetVarTable(gear.table);
       }},
      {"a host's table", [](Gear& gear) { gear.expression.SetVarTable(std::make_shared<HostTable>()); }},
      {"no table", [](Gear& gear) { gear.expression.SetVarTable(nullptr); }},
      {"the table again", [](Gear& gear) { gear.expression.SetVarTable(gear.table); }},
      {"degrees", [](Gear& gear) { gear.expression.SetDegreeMode(true); }},
      {"another list",
       [](Gear& gear) {
         Value unused;
         static_cast<void>(gear.expression.EvaluateThenSavePreParsedExpression("x-y", unused));
       }},
  };
}

TEST(TableChanges, every_two_in_a_row_are_seen_as_the_exact_evaluator_sees_them) {
  const tests::TemporaryDirectory directory;
  const std::vector<Change> changes = Changes(SaveVariables(directory.File("variables.txt")));
  for (const char* text : {"sin(x)+y*z", "x^2", "y", "x*(y and z)+pi", "ss(k*y,k,1,3)+x", "y=y+x"}) {
    for (const Change& first : changes) {
      for (const Change& second : changes) {
        Gear exact(text, false);
        Gear compiled(text, true);
        ASSERT_EQ(Seen(compiled, 1), Seen(exact, 1)) << text;
        int x = 2;
        for (const Change* change : {&first, &second}) {
          change->act(exact);
          change->act(compiled);
          ASSERT_EQ(Seen(compiled, x), Seen(exact, x)) << text << ": " << first.name << ", " << second.name;
          ++x;
        }
        ASSERT_EQ(Seen(compiled, x), Seen(exact, x)) << text << ": " << first.name << ", " << second.name;
      }
    }
  }
}

}  // namespace
}  // namespace plotvane::engine::test
