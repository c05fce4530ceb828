// Focus: the desktop host, worked from outside in a real window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/hosts/desktop_fixture.h"

namespace plotvane::desktop_test {
namespace {

using testing::Contains;
using testing::Gt;
using testing::HasSubstr;

TEST_F(DesktopHost, shows_sample_functions_in_their_colours_on_start) {
  DesktopDriver host(Program());
  const Picture graph = host.Graph();
  EXPECT_THAT(graph.Count(kY1), Gt(100));
  EXPECT_THAT(graph.Count(kY2), Gt(100));
  EXPECT_THAT(graph.Count(kY3), Gt(100));
  EXPECT_EQ(host.Title(), L"Untitled - Plotvane");
}

TEST_F(DesktopHost, plots_an_equation_while_it_is_typed) {
  DesktopDriver host(Program());
  EXPECT_EQ(host.Graph().Count(kY5), 0);
  host.Type(host.Equation(5), L"x/2+3");
  EXPECT_THAT(host.Graph().Count(kY5), Gt(100));
  EXPECT_EQ(host.Title(), L"Untitled (changed) - Plotvane");
}

TEST_F(DesktopHost, marks_a_bad_equation_with_the_engines_text) {
  DesktopDriver host(Program());
  host.Type(host.Equation(3), L"(x+2]");
  EXPECT_EQ(host.ErrorText(), L"Y3: Expected a match to '(', and got ']'");
  host.Type(host.Equation(3), L"(x+2)");
  EXPECT_EQ(host.ErrorText(), L"");
}

TEST_F(DesktopHost, saved_functions_give_the_same_picture_after_a_restart) {
  const std::filesystem::path file = mFolder / "mine.pvf";
  Picture before;
  {
    DesktopDriver host(Program());
    host.Type(host.Equation(3), L"x^3/50");
    before = host.Graph();
    host.Press(L'S', {VK_CONTROL, VK_SHIFT});
    host.AnswerFileDialog(file);
    ASSERT_TRUE(WaitUntil([&] { return host.Title() == L"mine.pvf - Plotvane"; })) << "not saved";
    EXPECT_TRUE(host.Close());
  }
  EXPECT_THAT(Bytes(file), HasSubstr("\"x^3/50\",#TRUE#,1,32768\r\n"));

  DesktopDriver host(Program());
  host.Press(L'O', {VK_CONTROL});
  host.AnswerFileDialog(file);
  ASSERT_TRUE(WaitUntil([&] { return host.Title() == L"mine.pvf - Plotvane"; })) << "not opened";
  EXPECT_EQ(host.Graph(), before);
}

TEST_F(DesktopHost, calculator_line_moves_a_curve_that_uses_its_variable) {
  DesktopDriver host(Program());
  host.Type(host.Calculator(), L"a=2");
  host.Press(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return host.History().size() == 1; }));
  EXPECT_EQ(host.History().front(), L"a=2  =  2");
  EXPECT_THAT(host.Variables(), Contains(std::wstring(L"a = 2")));

  host.Type(host.Equation(5), L"a*x");
  const Picture two = host.Graph();
  EXPECT_THAT(two.Count(kY5), Gt(100));
  host.Type(host.Calculator(), L"a=-1");
  host.Press(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return host.History().size() == 2; }));
  const Picture other = host.Graph();
  EXPECT_THAT(other.Count(kY5), Gt(100));
  EXPECT_NE(two, other);
}

TEST_F(DesktopHost, results_follow_the_number_mode) {
  DesktopDriver host(Program());
  EXPECT_EQ(host.Calculate(L"250+5"), L"250+5  =  255");
  host.Choose(L'N', L'H');
  EXPECT_EQ(host.Calculate(L"250+5"), L"250+5  =  &HFF");
  host.Choose(L'N', L'B');
  EXPECT_EQ(host.Calculate(L"5"), L"5  =  &B101");
  host.Choose(L'N', L'O');
  EXPECT_EQ(host.Calculate(L"8"), L"8  =  &O10");
  host.Choose(L'N', L'D');
  EXPECT_EQ(host.Calculate(L"250+5"), L"250+5  =  255");
}

TEST_F(DesktopHost, fixed_mode_asks_for_its_places) {
  DesktopDriver host(Program());
  host.Choose(L'N', L'F');
  host.Type(::GetDlgItem(host.OpenedDialog(), 11), L"3");
  host.Press(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return host.Dialog() == nullptr; }));
  EXPECT_EQ(host.Calculate(L"2/3"), L"2/3  =  .667");
}

TEST_F(DesktopHost, places_that_are_cancelled_or_no_number_leave_the_mode) {
  DesktopDriver host(Program());
  host.Choose(L'N', L'F');
  PressButton(host.OpenedDialog(), IDCANCEL);
  EXPECT_EQ(host.Calculate(L"1/4"), L"1/4  =  0.25");
  host.Choose(L'N', L'F');
  host.Type(::GetDlgItem(host.OpenedDialog(), 11), L"many");
  host.Press(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return host.Dialog() != nullptr && DialogText(host.Dialog()).starts_with(L"The dec"); }));
  EXPECT_EQ(DialogText(host.Dialog()), L"The decimal places are a number from -100 to 127.");
  PressButton(host.Dialog(), IDOK);
  EXPECT_EQ(host.Calculate(L"1/4"), L"1/4  =  0.25");
}

TEST_F(DesktopHost, degrees_count_for_the_curves_and_the_calculator) {
  DesktopDriver host(Program());
  const Picture radians = host.Graph();
  EXPECT_EQ(host.Calculate(L"sin(0.5)"), L"sin(0.5)  =  0.479425538604203");
  host.Choose(L'V', L'D');
  EXPECT_EQ(host.Calculate(L"sin(30)"), L"sin(30)  =  0.5");
  EXPECT_NE(host.Graph(), radians);
  host.Choose(L'V', L'R');
  EXPECT_EQ(host.Calculate(L"cos(0)"), L"cos(0)  =  1");
  EXPECT_EQ(host.Graph(), radians);
}

TEST_F(DesktopHost, shows_the_error_of_the_row_that_is_worked_on) {
  DesktopDriver host(Program());
  host.Type(host.Equation(3), L"(x+2]");
  host.Type(host.Equation(6), L"nosuch");
  EXPECT_TRUE(WaitUntil([&] { return host.ErrorText() == L"Y6: Undefined function or identifier."; }));
  host.Type(host.Equation(6), L"x");
  EXPECT_TRUE(WaitUntil([&] { return host.ErrorText() == L"Y3: Expected a match to '(', and got ']'"; }));
}

TEST_F(DesktopHost, an_equation_is_right_as_soon_as_its_variable_exists) {
  DesktopDriver host(Program());
  host.Type(host.Equation(5), L"slope*x");
  EXPECT_TRUE(WaitUntil([&] { return host.ErrorText() == L"Y5: Undefined function or identifier."; }));
  EXPECT_EQ(host.Graph().Count(kY5), 0);
  EXPECT_EQ(host.Calculate(L"slope=2"), L"slope=2  =  2");
  EXPECT_TRUE(WaitUntil([&] { return host.ErrorText().empty(); }));
  EXPECT_THAT(host.Graph().Count(kY5), Gt(100));
}

TEST_F(DesktopHost, a_calculation_that_fails_shows_the_engines_text) {
  DesktopDriver host(Program());
  EXPECT_EQ(host.Calculate(L"1/0"), L"1/0  -  Division by zero");
}

TEST_F(DesktopHost, up_in_the_calculator_and_enter_in_its_history_bring_a_line_back) {
  DesktopDriver host(Program());
  EXPECT_EQ(host.Calculate(L"1+1"), L"1+1  =  2");
  EXPECT_EQ(host.Calculate(L"20+2"), L"20+2  =  22");
  host.Press(VK_UP);
  host.Press(VK_UP);
  host.Press(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return host.History().size() == 3; }));
  EXPECT_EQ(host.History().back(), L"1+1  =  2");
  host.Press(VK_TAB);
  ASSERT_TRUE(WaitUntil([&] { return host.Focus() == host.HistoryList(); }));
  host.Press(VK_HOME);
  host.Press(VK_DOWN);
  host.Press(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return host.Focus() == host.Calculator(); }));
  host.Press(VK_RETURN);
  ASSERT_TRUE(WaitUntil([&] { return host.History().size() == 4; }));
  EXPECT_EQ(host.History().back(), L"20+2  =  22");
}

}  // namespace
}  // namespace plotvane::desktop_test
