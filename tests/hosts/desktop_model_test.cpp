// Focus: what the desktop host keeps: its functions and their file, the calculator line, the check of equations.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "hosts/desktop/calculator.h"
#include "hosts/desktop/formula_check.h"
#include "hosts/desktop/function_document.h"
#include "hosts/desktop/page_layout.h"
#include "hosts/desktop/variable_file.h"
#include "identifiers/clsVarTable.h"
#include "platform/runtime_error.h"

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace plotvane::desktop {
namespace {

using platform::RunTimeError;
using platform::Value;

class FunctionFile : public testing::Test {
 protected:
  FunctionFile()
      : mFolder(std::filesystem::temp_directory_path() /
                (std::string("plotvane-") + testing::UnitTest::GetInstance()->current_test_info()->name())) {
    std::filesystem::remove_all(mFolder);
    std::filesystem::create_directory(mFolder);
  }
  ~FunctionFile() override { std::filesystem::remove_all(mFolder); }

  [[nodiscard]] std::filesystem::path Write(const std::string& bytes) const {
    const std::filesystem::path file = mFolder / "functions.pvf";
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }
  [[nodiscard]] static std::string Read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  std::filesystem::path mFolder;
};

TEST_F(FunctionFile, holds_one_record_for_each_of_the_ten_functions) {
  FunctionDocument document;
  document.Function(0)->Equation = "sin(x)";
  document.Function(0)->DrawColor = 255;
  document.Function(2)->Equation = "say \"x\"";
  document.Function(2)->Enabled = false;
  document.Save(mFolder / "a.pvf");
  const std::string bytes = Read(mFolder / "a.pvf");
  EXPECT_THAT(bytes, testing::StartsWith("\"sin(x)\",#TRUE#,1,255\r\n"));
  EXPECT_THAT(bytes, testing::HasSubstr("\"say \"\"x\"\"\",#FALSE#,1,"));
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 10);
}

TEST_F(FunctionFile, saved_and_opened_again_gives_the_same_functions) {
  FunctionDocument first;
  first.LoadSamples();
  first.Function(9)->Equation = "a*x";
  first.Save(mFolder / "a.pvf");
  FunctionDocument second;
  second.Load(mFolder / "a.pvf");
  for (std::size_t i = 0; i < kFunctionCount; ++i) {
    EXPECT_EQ(second.Function(i)->Equation, first.Function(i)->Equation);
    EXPECT_EQ(second.Function(i)->Enabled, first.Function(i)->Enabled);
    EXPECT_EQ(second.Function(i)->DrawColor, first.Function(i)->DrawColor);
  }
  EXPECT_EQ(second.File(), mFolder / "a.pvf");
  EXPECT_FALSE(second.Changed());
}

TEST_F(FunctionFile, with_fewer_records_leaves_the_other_functions_empty) {
  FunctionDocument document;
  document.LoadSamples();
  document.Load(Write("\"x^3\",#TRUE#,1,0\r\n"));
  EXPECT_EQ(document.Function(0)->Equation, "x^3");
  for (std::size_t i = 1; i < kFunctionCount; ++i) EXPECT_EQ(document.Function(i)->Equation, "");
}

TEST_F(FunctionFile, that_is_damaged_missing_or_too_long_changes_nothing) {
  std::string eleven;
  for (int i = 0; i < 11; ++i) eleven += "\"x\",#TRUE#,1,0\r\n";
  const std::string damaged[] = {"\"x\",#TRUE#,1\r\n", "\"x\",#TRUE#,1,0\r\n\"never closed", "rubbish", eleven,
                                 "\"x\",5,\"y\",0\r\n"};
  for (const std::string& bytes : damaged) {
    FunctionDocument document;
    document.LoadSamples();
    const std::string before = document.Function(0)->Equation;
    EXPECT_THROW(document.Load(Write(bytes)), RunTimeError) << bytes;
    EXPECT_EQ(document.Function(0)->Equation, before) << bytes;
    EXPECT_TRUE(document.File().empty()) << bytes;
  }
  FunctionDocument document;
  EXPECT_THROW(document.Load(mFolder / "missing.pvf"), RunTimeError);
  EXPECT_THROW(document.Load(mFolder), RunTimeError);
}

TEST_F(FunctionFile, survives_a_save_that_fails) {
  FunctionDocument document;
  EXPECT_THROW(document.Save(mFolder / "no such folder" / "a.pvf"), RunTimeError);
  EXPECT_TRUE(document.File().empty());
}

#ifndef _WIN32
// While it lives no file of this process may grow beyond some bytes.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : mHandler(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &mBefore);
    const rlimit small{bytes, mBefore.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &mBefore);
    std::signal(SIGXFSZ, mHandler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit mBefore{};
  void (*mHandler)(int);
};

TEST_F(FunctionFile, survives_a_disk_that_becomes_full_while_it_is_saved) {
  const std::filesystem::path file = Write("\"x\",#TRUE#,1,0\r\n");
  FunctionDocument document;
  document.Load(file);
  document.Function(0)->Equation = std::string(10000, '1');
  document.Touch(0);
  {
    const FullDisk full(4096);
    EXPECT_THROW(document.Save(file), RunTimeError);
  }
  EXPECT_TRUE(document.Changed());
  EXPECT_EQ(Read(file), "\"x\",#TRUE#,1,0\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(mFolder), {}), 1);
  document.Save(file);
  EXPECT_FALSE(document.Changed());
}

TEST_F(FunctionFile, of_variables_survives_a_full_disk) {
  const std::filesystem::path file = Write("\"c\",5,4,\"\"\r\n");
  VariableFile variables;
  variables.Read(file);
  const FullDisk full(8);
  EXPECT_THROW(variables.Save(file, [](const std::string& path) { std::ofstream(path) << ""; }), RunTimeError);
  EXPECT_EQ(Read(file), "\"c\",5,4,\"\"\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(mFolder), {}), 1);
}
#endif

TEST_F(FunctionFile, of_variables_keeps_what_is_no_variable) {
  VariableFile variables;
  variables.Read(Write("\"speed\",5,4,\"fixed\"\r\n\"b\",1,2,\"\"\r\n\"a\",7,8,\"\"\r\n"));
  // b is gone since, a has become an ordinary variable.
  variables.Save(mFolder / "new.pvv", [](const std::string& path) {
    std::ofstream(path, std::ios::binary) << "\"z\",1,2,\"\"\r\n\"A\",3,2,\"\"\r\n";
  });
  EXPECT_EQ(Read(mFolder / "new.pvv"), "\"z\",1,2,\"\"\r\n\"speed\",5,4,\"fixed\"\r\n\"A\",3,2,\"\"\r\n");
}

TEST_F(FunctionFile, of_variables_that_is_damaged_or_missing_is_refused_as_a_whole) {
  VariableFile variables;
  EXPECT_THROW(variables.Read(Write("\"c\",5,4,\"\"\r\n\"d\",1\r\n")), RunTimeError);
  EXPECT_THROW(variables.Read(mFolder / "missing.pvv"), RunTimeError);
  variables.Save(mFolder / "new.pvv", [](const std::string& path) { std::ofstream(path) << ""; });
  EXPECT_EQ(Read(mFolder / "new.pvv"), "");
}

// A sheet of 8 by 10 inches at 100 dots an inch that can be printed on up to its edges.
constexpr Page kSheet{800, 1000, 100, 100, 800, 1000, 0, 0};

void ExpectPlace(const PagePlace& place, int left, int top, int right, int bottom) {
  EXPECT_EQ(place.left, left);
  EXPECT_EQ(place.top, top);
  EXPECT_EQ(place.right, right);
  EXPECT_EQ(place.bottom, bottom);
}

TEST(PageLayout, fills_the_width_between_margins_of_half_an_inch) {
  ExpectPlace(FitPage(kSheet, 400, 200), 50, 50, 750, 400);
}

TEST(PageLayout, fills_the_height_with_a_tall_picture_in_the_middle) {
  ExpectPlace(FitPage(kSheet, 100, 200), 175, 50, 625, 950);
}

TEST(PageLayout, counts_what_cannot_be_printed_on_as_margin) {
  // A quarter of an inch all round, and more than half an inch on the left.
  ExpectPlace(FitPage({750, 950, 100, 100, 800, 1000, 25, 25}, 400, 200), 25, 25, 725, 375);
  ExpectPlace(FitPage({700, 950, 100, 100, 800, 1000, 75, 25}, 675, 200), 0, 25, 675, 225);
}

TEST(PageLayout, keeps_proportions_where_dots_are_not_square) {
  ExpectPlace(FitPage({800, 2000, 100, 200, 800, 2000, 0, 0}, 400, 200), 50, 100, 750, 800);
}

TEST(PageLayout, gives_up_margins_on_paper_too_small_for_them) {
  ExpectPlace(FitPage({90, 1000, 100, 100, 90, 1000, 0, 0}, 90, 100), 0, 50, 90, 150);
}

TEST_F(FunctionFile, loading_keeps_the_objects_that_the_control_was_given) {
  FunctionDocument document;
  const auto first = document.Function(0);
  first->QuickRedraw = true;
  document.Load(Write("\"x\",#TRUE#,1,0\r\n"));
  EXPECT_EQ(document.Function(0), first);
  EXPECT_EQ(first->Equation, "x");
  EXPECT_FALSE(first->QuickRedraw);
}

TEST(FunctionDocument, knows_whether_it_differs_from_its_file) {
  FunctionDocument document;
  EXPECT_FALSE(document.Changed());
  document.Touch(3);
  EXPECT_TRUE(document.Changed());
  document.Clear();
  EXPECT_FALSE(document.Changed());
}

TEST(FunctionDocument, touching_a_function_drops_its_drawn_path) {
  FunctionDocument document;
  document.Function(3)->QuickRedraw = true;
  document.Touch(3);
  EXPECT_FALSE(document.Function(3)->QuickRedraw);
}

TEST(CalculatorLine, answers_in_the_number_mode_of_its_time) {
  Calculator calculator(std::make_shared<identifiers::clsVarTable>());
  EXPECT_EQ(calculator.Calculate("254+1")->answer, "255");
  calculator.Expression().SetFormatMode("hexadecimal");
  EXPECT_EQ(calculator.Calculate("254+1")->answer, "&HFF");
}

TEST(CalculatorLine, shows_the_error_of_the_engine) {
  Calculator calculator(std::make_shared<identifiers::clsVarTable>());
  const Calculator::Line* const line = calculator.Calculate("(1+2]");
  ASSERT_NE(line, nullptr);
  EXPECT_TRUE(line->failed);
  EXPECT_EQ(line->answer, "Expected a match to '(', and got ']'");
}

TEST(CalculatorLine, shares_its_variables_with_the_table_it_was_given) {
  const auto table = std::make_shared<identifiers::clsVarTable>();
  Calculator calculator(table);
  ASSERT_NE(calculator.Calculate("a=2"), nullptr);
  Value value;
  ASSERT_TRUE(table->GetIdValue("a", value));
  EXPECT_EQ(value.ToNumber().Get(), 2);
}

TEST(CalculatorLine, ignores_an_empty_line) {
  Calculator calculator(std::make_shared<identifiers::clsVarTable>());
  EXPECT_EQ(calculator.Calculate(""), nullptr);
  EXPECT_EQ(calculator.Calculate("  \t"), nullptr);
  EXPECT_TRUE(calculator.History().empty());
}

TEST(CalculatorLine, walks_through_its_history_and_stays_at_the_ends) {
  Calculator calculator(std::make_shared<identifiers::clsVarTable>());
  EXPECT_EQ(calculator.Older(), "");
  calculator.Calculate("1");
  calculator.Calculate("2");
  EXPECT_EQ(calculator.Older(), "2");
  EXPECT_EQ(calculator.Older(), "1");
  EXPECT_EQ(calculator.Older(), "1");
  EXPECT_EQ(calculator.Newer(), "2");
  EXPECT_EQ(calculator.Newer(), "");
  EXPECT_EQ(calculator.Newer(), "");
}

struct Equation {
  const char* text;
  const char* error;
};

TEST(EquationCheck, follows_the_test_of_the_plotter) {
  constexpr Equation kEquations[] = {
      {"", ""},
      {"sin(x)", ""},
      {"1/x", ""},    // undefined at 0, which a plot tolerates
      {"sqr(x-1)", ""},
      {"sin(x", "Syntax error. Expecting closing parenthesis but got: ''"},
      {"x)", "Syntax error ')'"},
      {"nosuch", "Undefined function or identifier."},
      {"1;2", "Result is not numeric. A numeric result is required."},
  };
  engine::clsExp expression;
  expression.CreateNewVarTable();
  for (const Equation& equation : kEquations) {
    EXPECT_EQ(EquationError(expression, equation.text, 0), equation.error) << equation.text;
  }
}

TEST(EquationCheck, leaves_x_and_the_settings_as_they_were) {
  engine::clsExp expression;
  expression.CreateNewVarTable();
  ASSERT_TRUE(expression.GetVarTable()->Change("x", Value(7.0)));
  EXPECT_EQ(EquationError(expression, "x+1", -10), "");
  Value x;
  ASSERT_TRUE(expression.GetVarTable()->GetIdValue("x", x));
  EXPECT_EQ(x.ToNumber().Get(), 7);
  EXPECT_FALSE(expression.GetAcceptNumericResultOnly());
  EXPECT_FALSE(expression.ErrObj().GraphMode);
}

}  // namespace
}  // namespace plotvane::desktop
