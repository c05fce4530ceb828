// Focus: the desktop host, worked from outside in a real window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/hosts/desktop_driver.h"

namespace plotvane::desktop_test {
namespace {

using testing::Contains;
using testing::Gt;
using testing::HasSubstr;

constexpr COLORREF kY1 = RGB(0x00, 0x40, 0xC0);
constexpr COLORREF kY2 = RGB(0xD0, 0x00, 0x00);
constexpr COLORREF kY3 = RGB(0x00, 0x80, 0x00);
constexpr COLORREF kY5 = RGB(0x80, 0x00, 0x80);

std::wstring Program() {
  wchar_t path[MAX_PATH];
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::filesystem::path tests = path;
  return (tests.parent_path() / PLOTVANE_HOST_FROM_TESTS).lexically_normal().wstring();
}

class DesktopHost : public testing::Test {
 protected:
  DesktopHost() {
    wchar_t folder[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    mFolder = std::filesystem::path(folder) / ("plotvane-host-" + std::to_string(::GetCurrentProcessId()));
    std::filesystem::remove_all(mFolder);
    std::filesystem::create_directory(mFolder);
  }
  ~DesktopHost() override {
    std::error_code ignored;
    std::filesystem::remove_all(mFolder, ignored);
  }

  std::filesystem::path mFolder;
};

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
    host.AnswerFileDialog(file.wstring());
    ASSERT_TRUE(WaitUntil([&] { return host.Title() == L"mine.pvf - Plotvane"; })) << "not saved";
    EXPECT_TRUE(host.Close());
  }
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  EXPECT_THAT(bytes, HasSubstr("\"x^3/50\",#TRUE#,1,32768\r\n"));

  DesktopDriver host(Program());
  host.Press(L'O', {VK_CONTROL});
  host.AnswerFileDialog(file.wstring());
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

TEST_F(DesktopHost, asks_before_it_loses_a_change) {
  DesktopDriver host(Program());
  host.Type(host.Equation(4), L"x");
  EXPECT_EQ(host.Graph().width > 0, true);
  ::PostMessageW(host.Window(), WM_CLOSE, 0, 0);
  ASSERT_TRUE(WaitUntil([&] { return host.Dialog() != nullptr; }));
  host.PressButton(host.Dialog(), IDCANCEL);
  EXPECT_TRUE(::IsWindow(host.Window()));
  ::PostMessageW(host.Window(), WM_CLOSE, 0, 0);
  ASSERT_TRUE(WaitUntil([&] { return host.Dialog() != nullptr; }));
  host.PressButton(host.Dialog(), IDNO);
  EXPECT_TRUE(WaitUntil([&] { return ::IsWindow(host.Window()) == FALSE; }));
}

TEST_F(DesktopHost, refuses_a_damaged_file_and_keeps_its_functions) {
  const std::filesystem::path file = mFolder / "damaged.pvf";
  std::ofstream(file, std::ios::binary) << "\"x\",#TRUE#,1\r\n";
  DesktopDriver host(Program());
  const Picture before = host.Graph();
  host.Press(L'O', {VK_CONTROL});
  host.AnswerFileDialog(file.wstring());
  ASSERT_TRUE(WaitUntil([&] { return host.Dialog() != nullptr; }));
  host.PressButton(host.Dialog(), IDOK);
  EXPECT_EQ(host.Title(), L"Untitled - Plotvane");
  EXPECT_EQ(host.Graph(), before);
}

}  // namespace
}  // namespace plotvane::desktop_test
