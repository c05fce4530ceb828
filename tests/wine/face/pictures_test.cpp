// Pictures of the control at three sizes and of every dialog, at the resolution of the test's Wine; each
// shown text fits its control.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "control/mnemonic.h"
#include "control/win32/cursors.h"
#include "control/win32/handles.h"
#include "control/win32/resolution.h"
#include "control/win32/wide_text.h"
#include "host.h"
#include "screen_settings.h"

namespace plotvane::test {
namespace {

// The width of a caption in the font of the control.
int NeededWidth(std::string_view caption, int dpi) {
  const control::win32::OwnedFont font = control::win32::MakeFaceFont(dpi);
  const control::win32::WindowContext context(nullptr);
  const control::win32::SelectScope selected(context.Get(), font.Get());
  return control::win32::MeasureText(context.Get(), control::CaptionWithoutMnemonic(caption)).width;
}

// A child that is shown, in pixels of its parent.
struct Child {
  HWND window;
  RECT place;
  LONG style;
  std::string text;

  [[nodiscard]] bool Is(std::string_view className) const { return HasClass(window, className); }
  [[nodiscard]] bool IsGroup() const { return Is("Button") && (style & BS_TYPEMASK) == BS_GROUPBOX; }
  [[nodiscard]] bool IsOption() const { return Is("Button") && (style & BS_TYPEMASK) == BS_AUTORADIOBUTTON; }
  [[nodiscard]] int Width() const { return static_cast<int>(place.right - place.left); }
  [[nodiscard]] int Height() const { return static_cast<int>(place.bottom - place.top); }
};

std::vector<Child> ShownChildren(HWND parent) {
  std::vector<Child> children;
  for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (!::IsWindowVisible(child)) continue;
    RECT place = ScreenRect(child);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    children.push_back({child, place, ::GetWindowLongW(child, GWL_STYLE), TextOf(child)});
  }
  return children;
}

void ExpectInsideAndApart(HWND parent) {
  RECT client{};
  ::GetClientRect(parent, &client);
  const std::vector<Child> children = ShownChildren(parent);
  for (std::size_t i = 0; i < children.size(); ++i) {
    const RECT& place = children[i].place;
    EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= client.right &&
                place.bottom <= client.bottom)
        << children[i].text;
    for (std::size_t k = 0; k < i; ++k) {
      RECT common{};
      const bool groups = children[i].IsGroup() || children[k].IsGroup();
      const bool overlap = ::IntersectRect(&common, &place, &children[k].place) != FALSE;
      EXPECT_FALSE(overlap && !groups) << children[i].text << " and " << children[k].text;
    }
  }
}

// The height of a text that is broken into lines of that width.
int NeededHeight(std::string_view text, int width, int dpi) {
  const control::win32::OwnedFont font = control::win32::MakeFaceFont(dpi);
  const control::win32::WindowContext context(nullptr);
  const control::win32::SelectScope selected(context.Get(), font.Get());
  RECT lines{0, 0, width, 0};
  ::DrawTextW(context.Get(), control::win32::ToWide(text).c_str(), -1, &lines, DT_CALCRECT | DT_WORDBREAK);
  return static_cast<int>(lines.bottom);
}

void ExpectTextsFit(HWND parent, int dpi) {
  const int gap = 4 * dpi / USER_DEFAULT_SCREEN_DPI;
  const int indicator = 14 * dpi / USER_DEFAULT_SCREEN_DPI;  // the circle of an option
  for (const Child& child : ShownChildren(parent)) {
    const int needed = NeededWidth(child.text, dpi);
    if (child.Is("Static")) {
      EXPECT_LE(NeededHeight(child.text, child.Width(), dpi), child.Height()) << child.text;
    } else if (child.IsOption()) {
      EXPECT_LE(needed + indicator, child.Width()) << child.text;
    } else if (child.Is("Button")) {
      EXPECT_LE(needed + gap, child.Width()) << child.text;
    }
  }
}

class Pictures : public testing::TestWithParam<int> {
 protected:
  [[nodiscard]] std::string Suffix() const { return "-" + std::to_string(GetParam()); }
  [[nodiscard]] std::string Size(int width, int height) const {
    const auto scaled = [](int pixels) {
      return std::to_string(pixels * GetParam() / USER_DEFAULT_SCREEN_DPI);
    };
    return "--size " + scaled(width) + "x" + scaled(height) + " \"sin(x)*5\" \"x^2-6\"";
  }

  ScreenResolution resolution{GetParam()};
};

struct PictureSize {
  const char* name;
  int width;
  int height;
};

// Items and surface from the top, then the two status boxes, nothing left over.
void ExpectSurfaceFillsTheRest(const FaceOnScreen& face) {
  RECT client{};
  ::GetClientRect(face.Control(), &client);
  LONG stripBottom = 0;
  LONG boxesTop = client.bottom;
  LONG boxesHeight = 0;
  RECT surface{};
  for (const Child& child : ShownChildren(face.Control())) {
    const bool isBox = child.Is("Edit") && child.window != face.NumberBox();
    if (child.window == face.Surface()) {
      surface = child.place;
    } else if (isBox) {
      EXPECT_EQ(child.Width(), client.right);
      boxesTop = std::min(boxesTop, child.place.top);
      boxesHeight += child.Height();
    } else {
      stripBottom = std::max(stripBottom, child.place.bottom);
    }
  }
  EXPECT_EQ(surface.left, 0);
  EXPECT_EQ(surface.right, client.right);
  EXPECT_EQ(surface.bottom, boxesTop);
  EXPECT_EQ(boxesTop + boxesHeight, client.bottom);
  EXPECT_GE(surface.top, stripBottom);
  EXPECT_LE(surface.top, stripBottom + 8);
}

TEST_P(Pictures, of_the_control_from_very_small_to_very_large) {
  constexpr PictureSize kSizes[] = {
      {"tiny", 124, 60}, {"small", 240, 200}, {"middle", 480, 360}, {"large", 1200, 900}};
  for (const PictureSize& size : kSizes) {
    SCOPED_TRACE(size.name);
    const FaceOnScreen face(Size(size.width, size.height));
    TakePointerAway();
    ExpectInsideAndApart(face.Control());
    ExpectTextsFit(face.Control(), GetParam());
    ExpectSurfaceFillsTheRest(face);
    SavePicture(face.Top(), std::string("control-") + size.name + Suffix());
  }
}

// The figure of a pointer on white: how many of its pixels are black, and how wide it is.
struct Figure {
  int black = 0;
  int width = 0;
};

Figure DrawPointer(graph::PointerKind kind) {
  constexpr int kSide = 64;
  control::win32::SurfaceCursors cursors;
  const control::win32::WindowContext screen(nullptr);
  const control::win32::OwnedMemoryContext memory(::CreateCompatibleDC(screen.Get()));
  const control::win32::OwnedBitmap bitmap(::CreateCompatibleBitmap(screen.Get(), kSide, kSide));
  const control::win32::SelectScope selected(memory.Get(), bitmap.Get());
  ::PatBlt(memory.Get(), 0, 0, kSide, kSide, WHITENESS);
  ::DrawIconEx(memory.Get(), 0, 0, cursors.Get(kind), 0, 0, 0, nullptr, DI_NORMAL);
  Figure figure;
  for (int x = 0; x < kSide; ++x) {
    const int before = figure.black;
    for (int y = 0; y < kSide; ++y) figure.black += ::GetPixel(memory.Get(), x, y) == RGB(0, 0, 0);
    if (figure.black > before) figure.width = x + 1;
  }
  return figure;
}

TEST(Pointers, the_magnifiers_are_drawn_and_differ_by_the_upright_of_the_plus) {
  const Figure in = DrawPointer(graph::PointerKind::ZoomIn);
  const Figure out = DrawPointer(graph::PointerKind::ZoomOut);
  EXPECT_GT(out.black, 100);
  EXPECT_GT(out.width, 24);
  EXPECT_EQ(in.width, out.width);
  // Two strokes of 9 by 2 pixels that cross in 2 by 2.
  EXPECT_NEAR(in.black - out.black, 14, 4);
}

class DialogPictures : public Pictures {
 protected:
  void Take(const char* title, const std::string& name) const {
    const HWND dialog = WaitForTop(title, kDialogClass);
    ASSERT_NE(dialog, nullptr) << title;
    TakePointerAway();
    ExpectInsideAndApart(dialog);
    ExpectTextsFit(dialog, GetParam());
    SavePicture(dialog, name + Suffix());
    EXPECT_TRUE(Dismiss(title));
  }
};

TEST_P(DialogPictures, show_every_text_in_full_and_nothing_overlaps) {
  const FaceOnScreen face(Size(480, 360));
  Click(face.Button("&Range..."));
  Take("Edit Range", "edit-range");
  face.ChooseZoom('e');
  Take("Zoom Factors", "zoom-factors");
  face.Press(HostKey::ShowFormat);
  Take("Format", "format");
  face.ChooseZoom('n');
  Take("Zoom Num", "zoom-number");
  Click(face.Button("&Eval"));
  Take("Evaluate Function", "evaluate");
  Click(face.Button("&Zoom"));
  SavePicture(face.Top(), "menu" + Suffix());
  PressKey(VK_ESCAPE);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, DialogPictures, testing::Values(96, 120, 144, 192),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Resolutions, Pictures, testing::Values(96, 120, 144, 192),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace plotvane::test
