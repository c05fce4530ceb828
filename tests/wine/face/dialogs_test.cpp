// The dialogs, worked from another program through a message loop that knows nothing of them.
#include <gtest/gtest.h>

#include "host.h"

namespace plotvane::test {
namespace {

// ---- Edit Range, Zoom Factors ----

HWND Field(HWND dialog, int index) {
  return FindByClass(dialog, "ComboBox", index);
}

std::vector<std::string> Entries(HWND list) {
  std::vector<std::string> entries;
  const auto count = ::SendMessageW(list, CB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    const auto length = ::SendMessageW(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    ::SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
    entries.emplace_back(text.begin(), text.begin() + length);
  }
  return entries;
}

HWND OpenRange(const FaceOnScreen& face) {
  Click(face.Button("&Range..."));
  return WaitForTop("Edit Range", kDialogClass);
}

HWND OpenZoomFactors(const FaceOnScreen& face) {
  face.ChooseZoom('e');
  return WaitForTop("Zoom Factors", kDialogClass);
}

bool Closes(HWND dialog) {
  return WaitUntil([&] { return !::IsWindow(dialog); });
}

TEST(RangeDialog, shows_the_range_with_labels_note_and_buttons) {
  const FaceOnScreen face;
  const HWND dialog = OpenRange(face);
  ASSERT_NE(dialog, nullptr);
  SavePicture(dialog, "edit-range");
  for (const char* text : {"&1    X Minimum: ", "&2    X Maximum:", "&3    Y Minimum:", "&4    Y Maximum:",
                           "&5    X Axis Division:", "&6    Y Axis Division:", "&OK", "&Cancel",
                           "Enter a number for each field.  If you enter a expression it will be evaluated. "
                           "The expression will then "
                           "be saved to the combo box for further editing."}) {
    EXPECT_NE(FindByText(dialog, text), nullptr) << text;
  }
  constexpr const char* kValues[] = {"-10", "10", "-10", "10", "1", "1"};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(TextOf(Field(dialog, i)), kValues[i]);
    EXPECT_EQ(Entries(Field(dialog, i)), (std::vector<std::string>{kValues[i], ""}));
  }
  EXPECT_EQ(::GetWindow(dialog, GW_OWNER), nullptr);
}

TEST(RangeDialog, tab_mnemonics_and_enter_work_and_the_expression_is_offered_again) {
  const FaceOnScreen face;
  HWND dialog = OpenRange(face);
  RetypeText("0");  // the focus begins in the first field
  PressKey(VK_TAB);
  RetypeText("5*2");
  PressKey('6', VK_MENU);
  RetypeText("2");
  PressKey(VK_RETURN);
  EXPECT_TRUE(Closes(dialog));
  EXPECT_TRUE(face.SimpleBecomes(kHint));
  EXPECT_EQ(face.GetRange(), (Range{0, 10, -10, 10}));
  EXPECT_EQ(face.Number(L"Yscl"), 2);
  dialog = OpenRange(face);
  EXPECT_EQ(TextOf(Field(dialog, 0)), "0");
  EXPECT_EQ(TextOf(Field(dialog, 1)), "10");
  EXPECT_EQ(Entries(Field(dialog, 1)), (std::vector<std::string>{"10", "5*2"}));
  EXPECT_EQ(TextOf(Field(dialog, 5)), "2");
}

TEST(RangeDialog, an_earlier_entry_can_be_chosen_from_its_list) {
  const FaceOnScreen face;
  HWND dialog = OpenRange(face);
  PressKey('2', VK_MENU);
  RetypeText("5*2");
  PressKey(VK_RETURN);
  ASSERT_TRUE(Closes(dialog));
  dialog = OpenRange(face);
  PressKey('2', VK_MENU);
  RetypeText("7");
  PressKey(VK_DOWN);  // the number that the dialog began with
  EXPECT_EQ(TextOf(Field(dialog, 1)), "10");
  PressKey(VK_DOWN);  // the text entered before
  EXPECT_EQ(TextOf(Field(dialog, 1)), "5*2");
  PressKey(VK_RETURN);
  ASSERT_TRUE(Closes(dialog));
  EXPECT_EQ(face.GetRange(), kStandardRange);
}

TEST(RangeDialog, a_text_that_is_no_expression_leaves_its_number) {
  const FaceOnScreen face;
  HWND dialog = OpenRange(face);
  RetypeText("5*");
  PressKey(VK_TAB);
  RetypeText("20");
  PressKey(VK_RETURN);
  ASSERT_TRUE(Closes(dialog));
  EXPECT_EQ(face.GetRange(), (Range{-10, 20, -10, 10}));
}

TEST(RangeDialog, escape_cancel_and_the_close_box_write_nothing) {
  const FaceOnScreen face;
  for (int way = 0; way < 3; ++way) {
    const HWND dialog = OpenRange(face);
    ASSERT_EQ(TextOf(Field(dialog, 0)), "-10");
    RetypeText("5");
    if (way == 0) PressKey(VK_ESCAPE);
    if (way == 1) Click(FindByText(dialog, "&Cancel"));
    if (way == 2) ::PostMessageW(dialog, WM_CLOSE, 0, 0);
    EXPECT_TRUE(Closes(dialog)) << way;
    EXPECT_EQ(face.GetRange(), kStandardRange);
  }
}

TEST(RangeDialog, an_empty_range_is_refused_by_both_messages) {
  const FaceOnScreen face;
  const HWND dialog = OpenRange(face);
  RetypeText("10");
  PressKey('3', VK_MENU);
  RetypeText("10");
  PressKey(VK_RETURN);
  EXPECT_EQ(TakeMessage("Plotvane"), "Invalid Range! You should change X Max and X Min");
  EXPECT_EQ(TakeMessage("Plotvane"), "Invalid Range! You should change Y Max and Y Min");
  EXPECT_TRUE(Closes(dialog));
}

TEST(RangeDialog, the_control_stays_usable_while_it_is_open) {
  const FaceOnScreen face;
  const HWND dialog = OpenRange(face);
  Click(face.Button("Z&In"));
  EXPECT_TRUE(face.SimpleBecomes("Zoom In"));
  EXPECT_TRUE(::IsWindowVisible(dialog));
}

TEST(ZoomFactorsDialog, keeps_the_factors_and_redraws_nothing) {
  const FaceOnScreen face;
  HWND dialog = OpenZoomFactors(face);
  ASSERT_NE(dialog, nullptr);
  SavePicture(dialog, "zoom-factors");
  EXPECT_NE(FindByText(dialog, "&X Zoom Factor:"), nullptr);
  EXPECT_NE(FindByText(dialog, "&Y Zoom Factor:"), nullptr);
  EXPECT_EQ(TextOf(Field(dialog, 0)), "4");
  EXPECT_EQ(Entries(Field(dialog, 0)), std::vector<std::string>{""});
  RetypeText("1/3");
  PressKey('Y', VK_MENU);
  RetypeText("2");
  Click(FindByText(dialog, "&OK"));
  EXPECT_TRUE(Closes(dialog));
  EXPECT_EQ(face.Number(L"ZX"), static_cast<double>(1.0F / 3.0F));
  EXPECT_EQ(face.Number(L"ZY"), 2);
  EXPECT_EQ(face.GetRange(), kStandardRange);
  dialog = OpenZoomFactors(face);
  EXPECT_EQ(TextOf(Field(dialog, 0)), "0.3333333");
  EXPECT_EQ(TextOf(Field(dialog, 1)), "2");
  EXPECT_EQ(Entries(Field(dialog, 0)), std::vector<std::string>{"1/3"});
}

// ---- Format ----

class FormatOnScreen : public testing::Test {
 protected:
  void SetUp() override { Open(); }
  void Open() {
    face.Press(HostKey::ShowFormat);
    dialog = WaitForTop("Format", kDialogClass);
    ASSERT_NE(dialog, nullptr);
  }
  [[nodiscard]] HWND Option(const char* caption) const { return FindByText(dialog, caption); }
  // In the order of their making: pen width, plot density.
  [[nodiscard]] HWND Box(int index) const { return FindByClass(dialog, "Edit", index); }
  [[nodiscard]] HWND Bar(int index) const { return FindByClass(dialog, "ScrollBar", index); }
  [[nodiscard]] static bool HasColour(HWND box, COLORREF colour) { return Capture(box).Count(colour) > 0; }
  void Enter(int index, const char* text) const {
    Click(Box(index));
    RetypeText(text);
    PressKey(VK_RETURN);
  }
  void Save() const {
    Click(FindByText(dialog, "&Save And Close"));
    EXPECT_TRUE(Closes(dialog));
  }

  FaceOnScreen face;
  HWND dialog = nullptr;
};

TEST_F(FormatOnScreen, shows_its_groups_options_labels_and_buttons) {
  SavePicture(dialog, "format");
  for (const char* text : {"Change the format settings and style of the graph window.",
                           "Graphing &Coordinate",
                           "Rectangular GC",
                           "PolarGC",
                           "&Draw Style",
                           "Draw Line",
                           "Draw Dot",
                           "&Grid",
                           "Grid On",
                           "Grid Off",
                           "&Axis",
                           "Axis On",
                           "Axis Off",
                           "Divisions",
                           "On",
                           "Off",
                           "Angle &Mode",
                           "Radians",
                           "Degrees",
                           "&Pen Style",
                           "Pen &Width",
                           "Preview",
                           "Plot &Density",
                           "Lower Density (Faster Speed, Poorer Quality)",
                           "Higher Density (Slower Speed, Better Quality)",
                           "&Save And Close",
                           "Cancel (Esc)"}) {
    EXPECT_NE(FindByText(dialog, text), nullptr) << text;
  }
  for (const char* on : {"Rectangular GC", "Draw Line", "Grid Off", "Axis On", "On", "Radians"}) {
    EXPECT_TRUE(IsChecked(Option(on))) << on;
  }
  EXPECT_EQ(TextOf(Box(0)), "1");
  EXPECT_EQ(TextOf(Box(1)), "1");
}

TEST_F(FormatOnScreen, saves_what_was_chosen) {
  for (const char* option : {"PolarGC", "Draw Dot", "Grid On", "Off", "Degrees"}) Click(Option(option));
  Enter(0, "3");
  Enter(1, "20");
  Save();
  EXPECT_EQ(face.Number(L"GCStyle"), 2);
  EXPECT_EQ(face.Number(L"PlotStyle"), 1);
  EXPECT_NE(face.Number(L"ShowGrid"), 0);
  EXPECT_NE(face.Number(L"ShowAxis"), 0);
  EXPECT_EQ(face.Number(L"ShowAxisDivisions"), 0);
  EXPECT_NE(face.Number(L"DegreeMode"), 0);
  EXPECT_EQ(face.Number(L"PenWidth"), 3);
  EXPECT_EQ(face.Number(L"PlotPixelStep"), 20);
  Open();
  for (const char* option : {"PolarGC", "Draw Dot", "Grid On", "Off", "Degrees"}) {
    EXPECT_TRUE(IsChecked(Option(option))) << option;
  }
  EXPECT_EQ(TextOf(Box(0)), "3");
  EXPECT_EQ(TextOf(Box(1)), "20");
}

TEST_F(FormatOnScreen, escape_saves_nothing) {
  Click(Option("Grid On"));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(Closes(dialog));
  EXPECT_EQ(face.Number(L"ShowGrid"), 0);
  Open();
  EXPECT_TRUE(IsChecked(Option("Grid Off")));
}

TEST_F(FormatOnScreen, axis_off_greys_the_divisions) {
  Click(Option("Axis Off"));
  EXPECT_FALSE(::IsWindowEnabled(Option("Divisions")));
  EXPECT_FALSE(::IsWindowEnabled(Option("On")));
  SavePicture(dialog, "format-axis-off");
  Click(Option("Axis On"));
  EXPECT_TRUE(::IsWindowEnabled(Option("Divisions")));
}

TEST_F(FormatOnScreen, the_divisions_of_a_switched_off_axis_are_saved_all_the_same) {
  Click(Option("Off"));
  Click(Option("Axis Off"));
  Save();
  EXPECT_EQ(face.Number(L"ShowAxis"), 0);
  EXPECT_EQ(face.Number(L"ShowAxisDivisions"), 0);
}

TEST_F(FormatOnScreen, a_typed_value_without_enter_is_not_saved) {
  Click(Box(0));
  RetypeText("9");
  Click(Box(1));
  RetypeText("9");
  Save();
  EXPECT_EQ(face.Number(L"PenWidth"), 1);
  EXPECT_EQ(face.Number(L"PlotPixelStep"), 1);
}

TEST_F(FormatOnScreen, typing_is_red_until_enter_accepts_it) {
  Click(Box(0));
  RetypeText("7.9");
  EXPECT_TRUE(HasColour(Box(0), RGB(255, 0, 0)));
  SavePicture(dialog, "format-typing");
  PressKey(VK_RETURN);
  EXPECT_EQ(TextOf(Box(0)), "7");
  EXPECT_FALSE(HasColour(Box(0), RGB(255, 0, 0)));
  EXPECT_EQ(::GetScrollPos(Bar(0), SB_CTL), 7);
  EXPECT_TRUE(::IsWindow(dialog));  // Enter does not save
}

struct Refusal {
  int box;
  const char* typed;
  const char* title;
  const char* text;
};

TEST_F(FormatOnScreen, values_outside_the_bounds_are_refused) {
  constexpr Refusal kRefusals[] = {
      {0, "31", "Invalid Pen Width", "Pen width cannot be greater than 30"},
      {0, "0", "Invalid Pen Width", "Pen width cannot be less than 1"},
      {1, "1001", "Invalid Plot Density", "Plot density cannot be greater than 1000"},
      {1, "0", "Invalid Plot Density", "Plot density cannot be less than 1"},
  };
  for (const Refusal& row : kRefusals) {
    Enter(row.box, row.typed);
    EXPECT_EQ(TakeMessage(row.title), row.text);
    EXPECT_EQ(TextOf(Box(row.box)), row.typed);
    EXPECT_EQ(::GetScrollPos(Bar(row.box), SB_CTL), 1);
  }
}

TEST_F(FormatOnScreen, the_bars_step_one_by_their_arrows_and_ten_on_the_density_track) {
  const RECT bar = ScreenRect(Bar(1));
  const int width = bar.right - bar.left;
  const int height = bar.bottom - bar.top;
  ClickAt(Bar(1), width - 5, height / 2);  // the right arrow
  EXPECT_EQ(TextOf(Box(1)), "2");
  ClickAt(Bar(1), width / 2, height / 2);  // the track
  EXPECT_EQ(TextOf(Box(1)), "12");
  ClickAt(Bar(1), 5, height / 2);
  EXPECT_EQ(TextOf(Box(1)), "11");
  const RECT pen = ScreenRect(Bar(0));
  ClickAt(Bar(0), (pen.right - pen.left) - 25, (pen.bottom - pen.top) / 2);
  EXPECT_EQ(TextOf(Box(0)), "2");
}

TEST_F(FormatOnScreen, dragging_a_bar_changes_its_box_all_the_way) {
  RECT client{};
  ::GetClientRect(Bar(0), &client);
  const int thumb = client.bottom + client.bottom / 2;  // right of the arrow, which is as wide as high
  MoveTo(Bar(0), thumb, client.bottom / 2);
  ButtonDown();
  int last = 1;
  for (int x = thumb + 8; x < client.right - 2 * client.bottom; x += 8) {
    MoveTo(Bar(0), x, client.bottom / 2);
    const int shown = std::stoi(TextOf(Box(0)));
    EXPECT_GT(shown, last);
    last = shown;
  }
  EXPECT_GT(last, 15);
  ButtonUp();
  EXPECT_EQ(::GetScrollPos(Bar(0), SB_CTL), last);
  EXPECT_EQ(TextOf(Box(0)), std::to_string(last));
}

TEST_F(FormatOnScreen, the_preview_shows_the_pen) {
  Enter(0, "20");
  MoveTo(dialog, 5, 5);  // no tooltip over the preview
  Settle();
  const HWND label = FindByText(dialog, "Preview");
  const HWND preview = ::GetWindow(label, GW_HWNDNEXT);
  RECT client{};
  ::GetClientRect(preview, &client);
  EXPECT_EQ(PixelAt(preview, client.right / 2, client.bottom / 2), RGB(0, 0, 0));
  EXPECT_EQ(PixelAt(preview, client.right / 2 + 8, client.bottom / 2), RGB(0, 0, 0));
  EXPECT_EQ(PixelAt(preview, client.right / 2 + 13, client.bottom / 2), RGB(255, 255, 255));
  SavePicture(dialog, "format-preview");
}

}  // namespace
}  // namespace plotvane::test
