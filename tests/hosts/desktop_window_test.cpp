// Focus: the window of the desktop host: what it asks, its keys, its sizes, and how it starts without its control.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <string>
#include <vector>

#include "tests/hosts/desktop_fixture.h"

namespace plotvane::desktop_test {
namespace {

using testing::Ge;
using testing::Gt;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Le;

constexpr const wchar_t* kFunctionsQuestion = L"The functions have changed. Save them?";
constexpr const wchar_t* kVariablesQuestion = L"The variables have changed. Save them?";

// Waits for this question and answers it.
testing::AssertionResult Answer(const DesktopDriver& host, const wchar_t* question, int button) {
  const HWND box = host.OpenedDialog();
  const std::wstring text = DialogText(box);
  PressButton(box, button);
  if (text == question) return testing::AssertionSuccess();
  return testing::AssertionFailure() << testing::PrintToString(text);
}

void AskToClose(const DesktopDriver& host) { ::PostMessageW(host.Window(), WM_CLOSE, 0, 0); }

TEST_F(DesktopHost, closes_without_a_question_when_nothing_is_lost) {
  DesktopDriver host(Program());
  EXPECT_TRUE(host.Close());
}

TEST_F(DesktopHost, closing_asks_about_functions_and_stays_when_cancelled) {
  DesktopDriver host(Program());
  host.Type(host.Equation(4), L"x");
  AskToClose(host);
  EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDCANCEL));
  EXPECT_EQ(host.Title(), L"Untitled (changed) - Plotvane");
  host.Choose(L'F', L'X');
  EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDNO));
  EXPECT_EQ(host.Status(), 0);
}

TEST_F(DesktopHost, closing_saves_when_told_to_and_stays_when_the_file_is_not_named) {
  DesktopDriver host(Program());
  host.Type(host.Equation(4), L"x+4");
  AskToClose(host);
  EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDYES));
  PressButton(host.OpenedDialog(), IDCANCEL);
  EXPECT_EQ(host.Title(), L"Untitled (changed) - Plotvane");
  AskToClose(host);
  EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDYES));
  host.AnswerFileDialog(mFolder / "kept.pvf");
  EXPECT_EQ(host.Status(), 0);
  EXPECT_THAT(Bytes(mFolder / "kept.pvf"), HasSubstr("\"x+4\""));
}

TEST_F(DesktopHost, closing_asks_about_variables) {
  DesktopDriver host(Program());
  host.Calculate(L"a=2");
  AskToClose(host);
  EXPECT_TRUE(Answer(host, kVariablesQuestion, IDCANCEL));
  AskToClose(host);
  EXPECT_TRUE(Answer(host, kVariablesQuestion, IDYES));
  host.AnswerFileDialog(mFolder / "kept.pvv");
  EXPECT_EQ(host.Status(), 0);
  EXPECT_THAT(Bytes(mFolder / "kept.pvv"), HasSubstr("\"a\",2,2,\"\""));
}

TEST_F(DesktopHost, a_new_or_another_document_asks_about_the_old_one) {
  DesktopDriver host(Program());
  host.Type(host.Equation(5), L"x/2");
  const Picture before = host.Graph();
  EXPECT_THAT(before.Count(kY5), Gt(100));
  for (const WORD command : {WORD{L'N'}, WORD{L'O'}}) {
    host.Press(command, {VK_CONTROL});
    EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDCANCEL));
  }
  EXPECT_EQ(host.Graph(), before);
  host.Press(L'N', {VK_CONTROL});
  EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDNO));
  ASSERT_TRUE(WaitUntil([&] { return host.Title() == L"Untitled - Plotvane"; }));
  EXPECT_EQ(host.Graph().Count(kY5), 0);
}

TEST_F(DesktopHost, the_end_of_the_users_session_waits_for_the_answer) {
  DesktopDriver host(Program());
  host.Type(host.Equation(4), L"x");
  const auto ask = [&] {
    return std::async(std::launch::async, [&] { return ::SendMessageW(host.Window(), WM_QUERYENDSESSION, 0, 0); });
  };
  auto refused = ask();
  EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDCANCEL));
  EXPECT_EQ(refused.get(), FALSE);
  auto accepted = ask();
  EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDNO));
  EXPECT_EQ(accepted.get(), TRUE);
}

BOOL CALLBACK Collect(HWND window, LPARAM longer) {
  reinterpret_cast<std::vector<HWND>*>(longer)->push_back(window);
  return TRUE;
}

std::vector<HWND> Children(HWND window) {
  std::vector<HWND> children;
  ::EnumChildWindows(window, &Collect, reinterpret_cast<LPARAM>(&children));
  return children;
}

std::wstring Described(HWND window) {
  wchar_t text[128];
  wchar_t kind[64];
  ::GetClassNameW(window, kind, 64);
  ::SendMessageW(window, WM_GETTEXT, 128, reinterpret_cast<LPARAM>(text));
  return std::wstring(kind) + L" " + std::to_wstring(::GetDlgCtrlID(window)) + L" '" + text + L"'";
}

TEST_F(DesktopHost, tab_leads_to_every_box_list_and_button_and_back) {
  DesktopDriver host(Program());
  host.Type(host.Equation(1), L"x");
  ASSERT_EQ(host.Focus(), host.Equation(1));
  std::vector<HWND> visited;
  for (int i = 0; i < 100; ++i) {
    const HWND before = host.Focus();
    visited.push_back(before);
    host.Press(VK_TAB);
    ASSERT_TRUE(WaitUntil([&] { return host.Focus() != before; }, std::chrono::seconds(5))) << "stays at " << testing::PrintToString(Described(before));
    if (host.Focus() == host.Equation(1)) break;
  }
  EXPECT_EQ(host.Focus(), host.Equation(1)) << "the way round never ends";
  std::vector<std::wstring> missed;
  for (const HWND child : Children(host.Window())) {
    const bool stop = (::GetWindowLongW(child, GWL_STYLE) & WS_TABSTOP) != 0;
    if (!stop || ::IsWindowVisible(child) == FALSE || ::IsWindowEnabled(child) == FALSE) continue;
    const bool reached = std::ranges::any_of(
        visited, [child](HWND focus) { return focus == child || ::IsChild(child, focus) != FALSE; });
    if (!reached) missed.push_back(Described(child));
  }
  EXPECT_THAT(missed, IsEmpty());
  EXPECT_THAT(visited.size(), Ge(33u));  // three for each function, the calculator and its lists
}

TEST_F(DesktopHost, the_keyboard_is_at_y1_first_and_comes_back_to_where_it_was) {
  DesktopDriver host(Program());
  EXPECT_TRUE(WaitUntil([&] { return ::GetDlgCtrlID(host.Focus()) == 1000; })) << "the switch of Y1";
  host.Type(host.Equation(4), L"x");
  AskToClose(host);
  EXPECT_TRUE(Answer(host, kFunctionsQuestion, IDCANCEL));
  EXPECT_TRUE(WaitUntil([&] { return host.Focus() == host.Equation(4); }));
}

TEST_F(DesktopHost, alt_with_a_letter_leads_to_the_lists_and_into_the_control) {
  DesktopDriver host(Program());
  host.Press(L'C', {VK_MENU});
  EXPECT_TRUE(WaitUntil([&] { return host.Focus() == host.Calculator(); }));
  host.Press(L'3', {VK_MENU});  // switches Y3 off
  EXPECT_TRUE(WaitUntil([&] { return host.Graph().Count(kY3) == 0; }));
  host.Press(L'Y', {VK_MENU});
  EXPECT_TRUE(WaitUntil([&] { return ::IsChild(host.Control(), host.Focus()) != FALSE; }));
}

TEST_F(DesktopHost, space_on_a_colour_opens_the_choice_of_colours) {
  DesktopDriver host(Program());
  host.Type(host.Equation(1), L"x");
  host.Press(VK_TAB);
  ASSERT_TRUE(WaitUntil([&] { return host.Focus() == host.Colour(1); }));
  host.Press(VK_SPACE);
  PressButton(host.OpenedDialog(), IDCANCEL);
  EXPECT_THAT(host.Graph().Count(kY1), Gt(100));
}

TEST_F(DesktopHost, the_toolbar_can_be_hidden_and_the_format_dialog_opens) {
  DesktopDriver host(Program());
  const Picture with = host.Graph();
  host.Choose(L'V', L'T');
  EXPECT_NE(host.Graph(), with);
  host.Choose(L'V', L'T');
  EXPECT_EQ(host.Graph(), with);
  host.Choose(L'V', L'F');
  const HWND format = host.OpenedDialog();
  ::PostMessageW(format, WM_CLOSE, 0, 0);
  EXPECT_TRUE(WaitUntil([&] { return ::IsWindow(format) == FALSE || ::IsWindowVisible(format) == FALSE; }));
}

RECT PlaceIn(HWND parent, HWND child) {
  RECT place;
  ::GetWindowRect(child, &place);
  ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

// Whether all boxes lie inside the window, none over another.
void ExpectTidy(HWND window) {
  RECT client;
  ::GetClientRect(window, &client);
  std::vector<HWND> children;
  for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (::IsWindowVisible(child) != FALSE) children.push_back(child);
  }
  for (std::size_t i = 0; i < children.size(); ++i) {
    const RECT place = PlaceIn(window, children[i]);
    const std::string who = testing::PrintToString(Described(children[i]));
    EXPECT_THAT(place.left, Ge(0)) << who;
    EXPECT_THAT(place.top, Ge(0)) << who;
    EXPECT_THAT(place.right, Le(client.right)) << who;
    EXPECT_THAT(place.bottom, Le(client.bottom)) << who;
    EXPECT_THAT(place.right - place.left, Gt(8)) << who;
    EXPECT_THAT(place.bottom - place.top, Gt(8)) << who;
    for (std::size_t j = 0; j < i; ++j) {
      const RECT other = PlaceIn(window, children[j]);
      RECT both;
      EXPECT_EQ(::IntersectRect(&both, &place, &other), FALSE)
          << who << " lies on " << testing::PrintToString(Described(children[j]));
    }
  }
}

TEST_F(DesktopHost, keeps_all_its_boxes_in_sight_in_every_size) {
  DesktopDriver host(Program());
  for (const SIZE size : {SIZE{1, 1}, SIZE{600, 540}, SIZE{1200, 560}, SIZE{600, 1000}, SIZE{1270, 1010}}) {
    ::SetWindowPos(host.Window(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER);
    const Picture graph = host.Graph();
    ExpectTidy(host.Window());
    RECT client;
    ::GetClientRect(host.Window(), &client);
    const RECT control = PlaceIn(host.Window(), host.Control());
    EXPECT_EQ(control.right, client.right);
    EXPECT_EQ(control.bottom, client.bottom);
    EXPECT_EQ(control.top, 0);
    EXPECT_THAT(graph.Count(kY1), Gt(100));
  }
}

TEST_F(DesktopHost, minimised_and_restored_shows_what_it_showed) {
  DesktopDriver host(Program());
  const Picture before = host.Graph();
  ::ShowWindow(host.Window(), SW_MINIMIZE);
  ASSERT_TRUE(WaitUntil([&] { return ::IsIconic(host.Window()) != FALSE; }));
  ::ShowWindow(host.Window(), SW_RESTORE);
  ASSERT_TRUE(WaitUntil([&] { return ::IsIconic(host.Window()) == FALSE; }));
  EXPECT_EQ(host.Graph(), before);
}

TEST_F(DesktopHost, without_its_control_says_how_to_register_it) {
  HKEY registered = nullptr;
  ASSERT_NE(::RegOpenKeyExW(HKEY_CLASSES_ROOT, L"Plotvane.Graph", 0, KEY_READ, &registered), ERROR_SUCCESS)
      << "the control is registered: this test would prove nothing";
  const auto alone = mFolder / "PlotvaneHost.exe";
  std::filesystem::copy_file(Program(), alone);
  const RunningProgram host(alone.wstring());
  const HWND box = host.OpenedDialog();
  EXPECT_EQ(DialogText(box),
            L"The graph control cannot be made. Put Plotvane.ocx and Plotvane.manifest beside this program, or register "
            L"the control once: regsvr32 Plotvane.ocx");
  PressButton(box, IDOK);
  EXPECT_EQ(host.Status(), 1);
}

}  // namespace
}  // namespace plotvane::desktop_test
