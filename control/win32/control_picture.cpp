#include "control/win32/control_picture.h"

#include <algorithm>

#include "control/win32/face_painter.h"
#include "control/win32/handles.h"
#include "control/win32/picture_scale.h"

namespace plotvane::control::win32 {
namespace {

constexpr int kTextInset = 4;  // between the edge of a box and its text

void DrawBox(const FacePainter& painter, const PixelRect& rect, std::string_view text, int backgroundColour) {
  if (rect.IsEmpty()) return;
  painter.Box(rect, backgroundColour);
  painter.Text({rect.left + kTextInset, rect.top, rect.width - 2 * kTextInset, rect.height}, text);
}

void DrawSpinner(const FacePainter& painter, const PixelRect& rect) {
  const int half = rect.height / 2;
  const PixelRect upper{rect.left, rect.top, rect.width, half};
  const PixelRect lower{rect.left, rect.top + half, rect.width, rect.height - half};
  painter.Button(upper);
  painter.ArrowUp(upper);
  painter.Button(lower);
  painter.ArrowDown(lower);
}

void DrawItem(const FacePainter& painter, const ToolBarItemText& item, const PixelRect& rect,
              std::string_view number) {
  if (rect.IsEmpty()) return;
  switch (item.kind) {
    case ItemKind::Button:
      painter.Button(rect);
      painter.CentredCaption(rect, item.caption);
      break;
    case ItemKind::Label: painter.Caption(rect, item.caption); break;
    case ItemKind::EditBox: DrawBox(painter, rect, number, COLOR_WINDOW); break;
    case ItemKind::Spinner: DrawSpinner(painter, rect); break;
  }
}

PixelSize SizeOf(const ControlLayout& layout) {
  return {layout.surface.width, layout.surface.Bottom() + layout.simple.height + layout.statusBar1.height};
}

// Everything but the surface.
void DrawFace(const FacePainter& painter, const ControlLayout& layout, const PictureParts& parts) {
  const PixelSize size = SizeOf(layout);
  painter.Fill({0, 0, size.width, size.height}, COLOR_BTNFACE);
  const auto text = [&](TextBox box) -> const std::string& {
    return parts.texts.at(static_cast<std::size_t>(box));
  };
  for (const ToolBarItemText& item : kToolBarItems) {
    DrawItem(painter, item, layout.items.at(IndexOf(item.item)), text(TextBox::txtUserCurY));
  }
  DrawBox(painter, layout.simple, text(TextBox::txtSimple), COLOR_BTNFACE);
  DrawBox(painter, layout.statusBar1, text(TextBox::txtStatusBar1), COLOR_BTNFACE);
}

// A picture in pixels of its own; what is put together here is sent on as plain pixels, which every kind of
// device context takes.
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

void CopySurface(HDC canvas, const PictureParts& parts, const PixelRect& place) {
  ::BitBlt(canvas, place.left, place.top, place.width, place.height, parts.surface.Context(), 0, 0, SRCCOPY);
}

// At the target's own resolution. Where the steps of the surface are not known, its pixels.
void DrawAsLines(HDC target, const RECT& rect, const ControlLayout& layout, const PictureParts& parts) {
  const PictureScale scale(rect, SizeOf(layout));
  DrawFace(FacePainter(target, scale, parts.font), layout, parts);
  const PixelRect& surface = layout.surface;
  const RECT area = scale.Rect(surface);
  if (parts.surface.Steps().IsComplete()) {
    parts.surface.Steps().DrawTo(target, area, {surface.width, surface.height});
    return;
  }
  const Canvas32 canvas(surface.width, surface.height);
  {
    const SelectScope selected(canvas.Context(), canvas.Bitmap());
    CopySurface(canvas.Context(), parts, {0, 0, surface.width, surface.height});
  }
  canvas.StretchTo(target, area);
}

void DrawAsPixels(HDC target, const RECT& rect, const ControlLayout& layout, const PictureParts& parts) {
  const PixelSize size = SizeOf(layout);
  const Canvas32 canvas(size.width, size.height);
  {
    const SelectScope selected(canvas.Context(), canvas.Bitmap());
    const PictureScale ownPixels({0, 0, size.width, size.height}, size);
    DrawFace(FacePainter(canvas.Context(), ownPixels, parts.font), layout, parts);
    CopySurface(canvas.Context(), parts, layout.surface);
  }
  canvas.StretchTo(target, rect);
}

}  // namespace

void DrawControlPicture(HDC target, const RECT& rect, const PictureParts& parts) {
  ControlLayout layout = parts.layout;
  if (layout.surface.IsEmpty()) layout.surface = {0, 0, parts.pictureSize.width, parts.pictureSize.height};
  if (WantsLines(target)) {
    DrawAsLines(target, rect, layout, parts);
  } else {
    DrawAsPixels(target, rect, layout, parts);
  }
}

}  // namespace plotvane::control::win32
