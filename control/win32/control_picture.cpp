#include "control/win32/control_picture.h"

#include <algorithm>

#include "control/win32/handles.h"
#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

RECT ToRect(const PixelRect& rect) {
  return {rect.left, rect.top, rect.Right(), rect.Bottom()};
}

void DrawTextIn(HDC context, const PixelRect& rect, std::string_view text, UINT format) {
  RECT area = ToRect(rect);
  ::DrawTextW(context, ToWide(text).c_str(), -1, &area, format | DT_SINGLELINE | DT_VCENTER);
}

void DrawBox(HDC context, const PixelRect& rect, std::string_view text, int backgroundColour) {
  if (rect.IsEmpty()) return;
  RECT area = ToRect(rect);
  ::FillRect(context, &area, ::GetSysColorBrush(backgroundColour));
  ::DrawEdge(context, &area, EDGE_SUNKEN, BF_RECT);
  constexpr int kInset = 4;
  const PixelRect inner{rect.left + kInset, rect.top, rect.width - 2 * kInset, rect.height};
  DrawTextIn(context, inner, text, DT_LEFT | DT_NOPREFIX);
}

void DrawItem(HDC context, const ToolBarItemText& item, const PixelRect& rect, std::string_view number) {
  if (rect.IsEmpty()) return;
  RECT area = ToRect(rect);
  switch (item.kind) {
    case ItemKind::Button:
      ::DrawFrameControl(context, &area, DFC_BUTTON, DFCS_BUTTONPUSH);
      DrawTextIn(context, rect, item.caption, DT_CENTER);
      break;
    case ItemKind::Label: DrawTextIn(context, rect, item.caption, DT_LEFT); break;
    case ItemKind::EditBox: DrawBox(context, rect, number, COLOR_WINDOW); break;
    case ItemKind::Spinner: {
      RECT upper{area.left, area.top, area.right, (area.top + area.bottom) / 2};
      RECT lower{area.left, upper.bottom, area.right, area.bottom};
      ::DrawFrameControl(context, &upper, DFC_SCROLL, DFCS_SCROLLUP);
      ::DrawFrameControl(context, &lower, DFC_SCROLL, DFCS_SCROLLDOWN);
      break;
    }
  }
}

PixelSize SizeOf(const ControlLayout& layout) {
  return {layout.surface.width, layout.surface.Bottom() + layout.simple.height + layout.statusBar1.height};
}

void DrawFace(HDC context, const ControlLayout& layout, const PictureParts& parts) {
  const SelectScope font(context, parts.font);
  ::SetBkMode(context, TRANSPARENT);
  ::SetTextColor(context, ::GetSysColor(COLOR_BTNTEXT));
  const PixelSize size = SizeOf(layout);
  const RECT whole{0, 0, size.width, size.height};
  ::FillRect(context, &whole, ::GetSysColorBrush(COLOR_BTNFACE));
  const auto text = [&](TextBox box) -> const std::string& {
    return parts.texts.at(static_cast<std::size_t>(box));
  };
  for (const ToolBarItemText& item : kToolBarItems) {
    DrawItem(context, item, layout.items.at(IndexOf(item.item)), text(TextBox::txtUserCurY));
  }
  DrawBox(context, layout.simple, text(TextBox::txtSimple), COLOR_BTNFACE);
  DrawBox(context, layout.statusBar1, text(TextBox::txtStatusBar1), COLOR_BTNFACE);
  const PixelRect& surface = layout.surface;
  ::BitBlt(context, surface.left, surface.top, surface.width, surface.height, parts.surface.Context(), 0, 0,
           SRCCOPY);
}

// The whole control in its own pixels; what is put together here is sent on as plain pixels, which every kind
// of device context takes.
class Canvas32 {
 public:
  Canvas32(int width, int height) : mWidth(std::max(width, 1)), mHeight(std::max(height, 1)) {
    mInfo.bmiHeader.biSize = sizeof mInfo.bmiHeader;
    mInfo.bmiHeader.biWidth = mWidth;
    mInfo.bmiHeader.biHeight = -mHeight;
    mInfo.bmiHeader.biPlanes = 1;
    mInfo.bmiHeader.biBitCount = 32;
    mInfo.bmiHeader.biCompression = BI_RGB;
    mContext.Reset(::CreateCompatibleDC(nullptr));
    mBitmap.Reset(::CreateDIBSection(mContext.Get(), &mInfo, DIB_RGB_COLORS, &mBits, nullptr, 0));
  }
  [[nodiscard]] HDC Context() const noexcept { return mContext.Get(); }
  [[nodiscard]] HBITMAP Bitmap() const noexcept { return mBitmap.Get(); }

  void StretchTo(HDC target, const RECT& rect) const {
    ::GdiFlush();
    const int oldMode = ::SetStretchBltMode(target, COLORONCOLOR);
    ::StretchDIBits(target, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, 0, 0, mWidth,
                    mHeight, mBits, &mInfo, DIB_RGB_COLORS, SRCCOPY);
    ::SetStretchBltMode(target, oldMode);
  }

 private:
  int mWidth;
  int mHeight;
  BITMAPINFO mInfo{};
  OwnedMemoryContext mContext;
  OwnedBitmap mBitmap;
  void* mBits = nullptr;
};

// Metafiles and printers have more than the pixels of a screen.
bool WantsLines(HDC target) {
  const int technology = ::GetDeviceCaps(target, TECHNOLOGY);
  return ::GetObjectType(target) == OBJ_ENHMETADC || technology == DT_METAFILE ||
         technology == DT_RASPRINTER || technology == DT_PLOTTER;
}

// The plotting surface over its pixels in the picture of the whole control.
void DrawLines(HDC target, const RECT& rect, PixelSize whole, const ControlLayout& layout,
               const PictureParts& parts) {
  const auto x = [&](int column) {
    return rect.left + ::MulDiv(column, static_cast<int>(rect.right - rect.left), std::max(whole.width, 1));
  };
  const auto y = [&](int row) {
    return rect.top + ::MulDiv(row, static_cast<int>(rect.bottom - rect.top), std::max(whole.height, 1));
  };
  const PixelRect& surface = layout.surface;
  const RECT area{x(surface.left), y(surface.top), x(surface.Right()), y(surface.Bottom())};
  parts.surface.Steps().DrawTo(target, area, {surface.width, surface.height});
}

}  // namespace

void DrawControlPicture(HDC target, const RECT& rect, const PictureParts& parts) {
  ControlLayout layout = parts.layout;
  if (layout.surface.IsEmpty()) layout.surface = {0, 0, parts.pictureSize.width, parts.pictureSize.height};
  const PixelSize size = SizeOf(layout);
  const Canvas32 canvas(size.width, size.height);
  {
    const SelectScope selected(canvas.Context(), canvas.Bitmap());
    DrawFace(canvas.Context(), layout, parts);
  }
  canvas.StretchTo(target, rect);
  if (WantsLines(target) && parts.surface.Steps().IsComplete()) DrawLines(target, rect, size, layout, parts);
}

}  // namespace plotvane::control::win32
