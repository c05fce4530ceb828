// How the control looks to people and to screen readers: system colours, a change of the resolution, names,
// tooltips.
#include <gtest/gtest.h>

#include <oleacc.h>

#include <array>

#include "control/mnemonic.h"
#include "control/win32/wide_text.h"
#include "host.h"
#include "screen_settings.h"

namespace plotvane::test {
namespace {

// ---- System colours ----

void ExpectOnlySystemColours(const FaceOnScreen& face) {
  TakePointerAway();
  const Picture button = Capture(face.Button("&Graph"));
  EXPECT_GT(button.Count(kHighContrastFace), 100);
  EXPECT_GT(button.Count(kHighContrastFaceText), 10);
  const Picture label = Capture(face.Button("&Y:"));
  EXPECT_GT(label.Count(kHighContrastFaceText), 2);
  EXPECT_GT(label.Count(kHighContrastFace), label.width * label.height / 2);
  const Picture number = Capture(face.NumberBox());
  EXPECT_GT(number.Count(kHighContrastWindow), 100);
  EXPECT_GT(number.Count(kHighContrastWindowText), 2);
  for (int box = 1; box <= 2; ++box) {
    const Picture status = Capture(FindByClass(face.Control(), "Edit", box));
    EXPECT_GT(status.Count(kHighContrastFace), 1000) << box;
    EXPECT_GT(status.Count(kHighContrastFaceText), 50) << box;
  }
  const Picture surface = Capture(face.Surface());
  const int axes = surface.Count(kHighContrastWindowText);
  EXPECT_GE(axes, surface.width + surface.height - 10);  // without the few pixels of the curve on them
  EXPECT_GT(surface.Count(RGB(255, 0, 0)), 100);         // the curve
  EXPECT_EQ(surface.Count(kHighContrastWindow) + axes + surface.Count(RGB(255, 0, 0)),
            surface.width * surface.height);
}

TEST(SystemColours, a_palette_of_high_contrast_is_used_everywhere) {
  const HighContrastPalette palette;
  const FaceOnScreen face("\"x\"");
  ExpectOnlySystemColours(face);
  SavePicture(face.Top(), "high-contrast");
}

TEST(SystemColours, a_change_while_the_control_is_shown_redraws_the_picture_with_its_curve) {
  const SystemColours kept;
  const FaceOnScreen face("\"x\"");
  const int plotted = Capture(face.Surface()).Count(RGB(255, 0, 0));
  const std::string status = face.Status();
  face.Press(HostKey::ChangeSystemColours);
  EXPECT_TRUE(WaitUntil([&] { return Capture(face.Surface()).Count(kHighContrastWindow) > 1000; }));
  ExpectOnlySystemColours(face);
  EXPECT_EQ(Capture(face.Surface()).Count(RGB(255, 0, 0)), plotted);
  EXPECT_EQ(face.Status(), status);  // no resize
}

TEST(SystemColours, the_dialogs_follow_them) {
  const HighContrastPalette palette;
  const FaceOnScreen face;
  Click(face.Button("&Range..."));
  HWND dialog = WaitForTop("Edit Range", kDialogClass);
  ASSERT_NE(dialog, nullptr);
  const Picture label = Capture(FindByText(dialog, "&2    X Maximum:"));
  EXPECT_GT(label.Count(kHighContrastFace), 100);
  EXPECT_EQ(label.Count(RGB(255, 255, 255)), 0);
  EXPECT_GT(Capture(FindByClass(dialog, "ComboBox", 1)).Count(kHighContrastWindowText), 5);
  SavePicture(dialog, "high-contrast-range");
  EXPECT_TRUE(Dismiss("Edit Range"));
  face.Press(HostKey::ShowFormat);
  dialog = WaitForTop("Format", kDialogClass);
  ASSERT_NE(dialog, nullptr);
  const HWND pen = FindByClass(dialog, "Edit", 0);
  EXPECT_GT(Capture(pen).Count(kHighContrastWindow), 50);
  EXPECT_GT(Capture(pen).Count(kHighContrastWindowText), 2);
  const HWND preview = ::GetWindow(FindByText(dialog, "Preview"), GW_HWNDNEXT);
  EXPECT_GT(Capture(preview).Count(kHighContrastWindow), 500);
  EXPECT_GT(Capture(preview).Count(kHighContrastWindowText), 0);
  SavePicture(dialog, "high-contrast-format");
}

TEST(SystemColours, an_open_preview_follows_a_change) {
  const SystemColours kept;
  const FaceOnScreen face;
  face.Press(HostKey::ShowFormat);
  const HWND dialog = WaitForTop("Format", kDialogClass);
  ASSERT_NE(dialog, nullptr);
  face.Press(HostKey::ChangeSystemColours);
  const HWND preview = ::GetWindow(FindByText(dialog, "Preview"), GW_HWNDNEXT);
  EXPECT_TRUE(WaitUntil([&] { return Capture(preview).Count(kHighContrastWindow) > 500; }));
}

// ---- Resolution ----

SIZE SizeOf(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  return {client.right, client.bottom};
}

TEST(Resolution, a_control_that_moves_to_a_window_of_another_resolution_lays_out_anew) {
  const ScreenResolution resolution(192);
  const FaceOnScreen face("--size 900x700 \"x\"");
  const HWND control = face.Control();
  const HWND button = face.Button("&Graph");
  const SIZE before = SizeOf(button);
  face.Press(HostKey::MoveToUnscaledWindow);
  const SIZE after = SizeOf(button);
  // Seen from here, at 192 dots per inch, the system doubles all pixels of such a window: what looks the same
  // has half as many. Without a new layout the button would look twice as large.
  EXPECT_NEAR(after.cx, before.cx, before.cx / 10.0);
  EXPECT_NEAR(after.cy, before.cy, before.cy / 10.0);
  const SIZE surface = SizeOf(FindByClass(control, "PlotvaneSurface"));
  EXPECT_EQ(TextOf(FindByClass(control, "Edit", 2)),
            "Width=" + std::to_string(surface.cx / 2) + " pixels   Height=" + std::to_string(surface.cy / 2) +
                " pixels");
}

// ---- Screen readers ----

std::string AccessibleName(HWND window) {
  ::OleInitialize(nullptr);
  std::string name = "(none)";
  void* object = nullptr;
  if (SUCCEEDED(::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                             &object))) {
    auto* const accessible = static_cast<IAccessible*>(object);
    VARIANT self{};
    V_VT(&self) = VT_I4;
    V_I4(&self) = CHILDID_SELF;
    BSTR text = nullptr;
    if (accessible->get_accName(self, &text) == S_OK && text != nullptr)
      name = control::win32::FromWide(text);
    ::SysFreeString(text);
    accessible->Release();
  }
  ::OleUninitialize();
  return name;
}

TEST(Names, screen_readers_get_a_name_for_every_control) {
  const FaceOnScreen face;
  const HWND control = face.Control();
  for (const char* caption : {"&Graph", "&Zoom", "Z&In", "Z&Out", "Z&Box", "&Range...", "&Trace", "&Eval"}) {
    EXPECT_EQ(AccessibleName(face.Button(caption)), control::CaptionWithoutMnemonic(caption));
  }
  EXPECT_EQ(AccessibleName(face.NumberBox()), "Y:");
  EXPECT_EQ(AccessibleName(FindByClass(control, "msctls_updown32")), "Function number");
  EXPECT_EQ(AccessibleName(FindByClass(control, "Edit", 1)), "Message");
  EXPECT_EQ(AccessibleName(FindByClass(control, "Edit", 2)), "Position");
  EXPECT_EQ(AccessibleName(face.Surface()), "Plot");
  EXPECT_EQ(AccessibleName(control), "Plotvane Graph");
}

// The label that stands right before a control, where screen readers look for its name.
std::string LabelBefore(HWND control) {
  return TextOf(::GetWindow(control, GW_HWNDPREV));
}

TEST(Names, the_boxes_lists_and_bars_of_the_dialogs_have_labels) {
  const FaceOnScreen face;
  Click(face.Button("&Range..."));
  const HWND range = WaitForTop("Edit Range", kDialogClass);
  constexpr const char* kLabels[] = {"&1    X Minimum: ", "&2    X Maximum:",       "&3    Y Minimum:",
                                     "&4    Y Maximum:",  "&5    X Axis Division:", "&6    Y Axis Division:"};
  for (int field = 0; field < 6; ++field) {
    EXPECT_EQ(LabelBefore(FindByClass(range, "ComboBox", field)), kLabels[field]);
  }
  EXPECT_TRUE(Dismiss("Edit Range"));
  face.Press(HostKey::ShowFormat);
  const HWND format = WaitForTop("Format", kDialogClass);
  EXPECT_EQ(AccessibleName(FindByClass(format, "Edit", 0)), "Pen Width");
  EXPECT_EQ(LabelBefore(FindByClass(format, "Edit", 1)), "Plot &Density");
  EXPECT_EQ(AccessibleName(FindByClass(format, "ScrollBar", 0)), "Pen width");
  EXPECT_EQ(AccessibleName(FindByClass(format, "ScrollBar", 1)), "Plot density");
}

// ---- Tooltips ----

struct Tip {
  const char* caption;  // of the control, or of the label before it
  const char* text;
};

// Now and then the pointer is moved a little, as a person would do.
bool TipAppears(HWND control, const char* text) {
  RECT client{};
  ::GetClientRect(control, &client);
  for (int tries = 0; tries < 10; ++tries) {
    MoveTo(control, client.right / 2 + tries % 2, client.bottom / 2);
    if (WaitUntil([&] { return FindTooltip(text) != nullptr; }, 2000)) return true;
  }
  return false;
}

TEST(Tooltips, every_button_and_the_number_box_show_theirs) {
  const FaceOnScreen face;
  constexpr Tip kTips[] = {{"&Graph", "Graph the functions"},
                           {"Z&Box", "Zoom Box"},
                           {"&Eval", "Evaluate the graph at a particular domain value"},
                           {"&Range...", "Change the Range (and Domain) of the graph intervals"},
                           {"&Trace", "Trace the cursor over the points on the graph"},
                           {"&Zoom", "Choose between many zoom styles"},
                           {"Z&Out", "Zoom Out"},
                           {"Z&In", "Zoom In"}};
  for (const Tip& tip : kTips) EXPECT_TRUE(TipAppears(face.Button(tip.caption), tip.text)) << tip.text;
  EXPECT_TRUE(TipAppears(face.NumberBox(), "Function to be used in things like a Trace"));
}

TEST(Tooltips, the_fields_and_buttons_of_the_range_and_factor_dialogs_show_theirs) {
  const FaceOnScreen face;
  constexpr const char* kField = "Enter a new value or select the previously entered or original value";
  Click(face.Button("&Range..."));
  const HWND range = WaitForTop("Edit Range", kDialogClass);
  for (int field = 0; field < 6; ++field) {
    EXPECT_TRUE(TipAppears(FindByText(range, "&OK"), "Exit and update range"));
    EXPECT_TRUE(TipAppears(FindByClass(range, "ComboBox", field), kField)) << field;
  }
  EXPECT_TRUE(TipAppears(FindByText(range, "&Cancel"), "Exit without saving"));
  EXPECT_TRUE(Dismiss("Edit Range"));
  face.ChooseZoom('e');
  const HWND factors = WaitForTop("Zoom Factors", kDialogClass);
  EXPECT_TRUE(TipAppears(FindByText(factors, "&OK"), "Save and Continue"));
  EXPECT_TRUE(TipAppears(FindByClass(factors, "ComboBox", 0), kField));
  EXPECT_TRUE(TipAppears(FindByText(factors, "&Cancel"), "Forget I ever came here"));
  EXPECT_TRUE(TipAppears(FindByClass(factors, "ComboBox", 1), kField));
}

TEST(Tooltips, the_options_boxes_and_labels_of_the_format_dialog_show_theirs) {
  const FaceOnScreen face;
  face.Press(HostKey::ShowFormat);
  const HWND dialog = WaitForTop("Format", kDialogClass);
  constexpr Tip kTips[] = {
      {"Rectangular GC", "Uses XY continually updated coordinate display"},
      {"PolarGC", "Uses Radius-Angle polar continually updated coordinate display"},
      {"Draw Line", "Connect the points on the graph with lines"},
      {"Draw Dot", "Draw only the single points on the graph"},
      {"Grid On", "Make grid lines visible"},
      {"Grid Off", "Do not show grid lines"},
      {"Axis On", "Make the standard (x=0, y=0) axis visible"},
      {"Axis Off", "Do not show the axis"},
      {"On", "Show scale divisions on the axis"},
      {"Off", "Make the axis single lines only"},
      {"Radians", "Trigonometric and inverse trigonometric functions use radians"},
      {"Degrees", "Trigonometric and inverse trigonometric functions use degrees"},
      {"Preview", "The pen width is the width of the axis and graphs of the functions. Here is a prieview."},
      {"Lower Density (Faster Speed, Poorer Quality)",
       "Low density corresponds to a high plot-pixel step value along the X-axis."},
      {"Higher Density (Slower Speed, Better Quality)",
       "High density corresponds to a low plot-pixel step value along the X-axis."},
  };
  for (const Tip& tip : kTips) EXPECT_TRUE(TipAppears(FindByText(dialog, tip.caption), tip.text)) << tip.text;
  EXPECT_TRUE(
      TipAppears(FindByClass(dialog, "Edit", 0), "Change the value of the pen width and press <Enter>"));
  EXPECT_TRUE(TipAppears(FindByClass(dialog, "Edit", 1),
                         "Change the plot step value (plot density) and press <Enter>."));
}

}  // namespace
}  // namespace plotvane::test
