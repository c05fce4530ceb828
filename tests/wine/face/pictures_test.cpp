// Pictures of the control at three sizes and of every dialog, at the resolution of the test's Wine; each
// shown text fits its control.
#include <gtest/gtest.h>

#include "control/mnemonic.h"
#include "control/win32/cursors.h"
#include "control/win32/handles.h"
#include "control/win32/resolution.h"
#include "host.h"

namespace plotvane::test {
namespace {

// The resolution of every program that is started from now on; put back with the object.
class ScreenResolution {
 public:
  explicit ScreenResolution(int dpi) { Set(dpi); }
  ~ScreenResolution() { Set(USER_DEFAULT_SCREEN_DPI); }
  ScreenResolution(const ScreenResolution&) = delete;
  ScreenResolution& operator=(const ScreenResolution&) = delete;

 private:
  static void Set(int dpi) {
    const auto value = static_cast<DWORD>(dpi);
    ::RegSetKeyValueW(HKEY_CURRENT_USER, L"Control Panel\\Desktop", L"LogPixels", REG_DWORD, &value,
                      sizeof value);
  }
};

// The width of a caption in the font of the control.
int NeededWidth(std::string_view caption, int dpi) {
  const control::win32::OwnedFont font = control::win32::MakeFaceFont(dpi);
  const control::win32::WindowContext context(nullptr);
  const control::win32::SelectScope selected(context.Get(), font.Get());
  return control::win32::MeasureText(context.Get(), control::CaptionWithoutMnemonic(caption)).width;
}

int ClientWidth(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  return static_cast<int>(client.right);
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

TEST_P(Pictures, of_three_sizes_show_every_caption_in_full) {
  constexpr PictureSize kSizes[] = {{"small", 240, 200}, {"middle", 480, 360}, {"large", 600, 480}};
  for (const PictureSize& size : kSizes) {
    const FaceOnScreen face(Size(size.width, size.height));
    SavePicture(face.Top(), std::string("control-") + size.name + Suffix());
    for (const char* caption :
         {"&Graph", "&Zoom", "Z&In", "Z&Out", "Z&Box", "&Range...", "&Trace", "&Eval"}) {
      const HWND button = face.Button(caption);
      if (!::IsWindowVisible(button)) continue;
      EXPECT_GE(ClientWidth(button), NeededWidth(caption, GetParam()) + 4) << caption << " " << size.name;
    }
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

TEST_P(Pictures, of_the_dialogs) {
  const FaceOnScreen face(Size(480, 360));
  Click(face.Button("&Range..."));
  SavePicture(WaitForTop("Edit Range", kDialogClass), "edit-range" + Suffix());
  EXPECT_TRUE(Dismiss("Edit Range"));
  face.ChooseZoom('e');
  SavePicture(WaitForTop("Zoom Factors", kDialogClass), "zoom-factors" + Suffix());
  EXPECT_TRUE(Dismiss("Zoom Factors"));
  face.HostKey(VK_F2);
  SavePicture(WaitForTop("Format", kDialogClass), "format" + Suffix());
  EXPECT_TRUE(Dismiss("Format"));
  Click(face.Button("&Zoom"));
  SavePicture(face.Top(), "menu" + Suffix());
  PressKey(VK_ESCAPE);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, Pictures, testing::Values(96, 120, 144, 192),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace plotvane::test
