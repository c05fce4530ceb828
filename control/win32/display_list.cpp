#include "control/win32/display_list.h"

#include <algorithm>
#include <utility>

#include "control/win32/handles.h"
#include "control/win32/picture_scale.h"

namespace plotvane::control::win32 {

namespace {

void FillBox(HDC target, const RECT& box, COLORREF colour) {
  const OwnedBrush brush(::CreateSolidBrush(colour));
  ::FillRect(target, &box, brush.Get());
}

void DrawDot(HDC target, const PictureScale& scale, graph::PixelPoint point, COLORREF colour, int penWidth) {
  const RECT box{scale.X(point.x - penWidth / 2), scale.Y(point.y - penWidth / 2),
                 std::max(scale.X(point.x - penWidth / 2 + penWidth), scale.X(point.x - penWidth / 2) + 1),
                 std::max(scale.Y(point.y - penWidth / 2 + penWidth), scale.Y(point.y - penWidth / 2) + 1)};
  if (penWidth == 1) {
    FillBox(target, box, colour);
    return;
  }
  const OwnedBrush brush(::CreateSolidBrush(colour));
  const HGDIOBJ oldBrush = ::SelectObject(target, brush.Get());
  const HGDIOBJ oldPen = ::SelectObject(target, ::GetStockObject(NULL_PEN));
  ::Ellipse(target, box.left, box.top, box.right, box.bottom);
  ::SelectObject(target, oldPen);
  ::SelectObject(target, oldBrush);
}

}  // namespace

COLORREF PlainColour(graph::Colour colour) noexcept {
  const auto bits = static_cast<std::uint32_t>(colour);
  if (colour >= 0) return bits & 0xFFFFFFu;
  return ::GetSysColor(static_cast<int>(bits & 0xFFu));
}

void DisplayList::Clear() noexcept {
  mSteps.clear();
  mComplete = true;
}

void DisplayList::GiveUp() noexcept {
  mSteps.clear();
  mComplete = false;
}

void DisplayList::Add(const DrawingStep& step) {
  if (!mComplete) return;
  if (mSteps.size() == kMostSteps) {
    GiveUp();
  } else {
    mSteps.push_back(step);
  }
}

void DisplayList::DrawTo(HDC target, const RECT& area, PixelSize size) const {
  const SavedContext saved(target);
  ::IntersectClipRect(target, area.left, area.top, area.right, area.bottom);
  FillBox(target, area, ::GetSysColor(COLOR_WINDOW));
  const PictureScale scale(area, size);
  OwnedPen pen;
  const DrawingStep* last = nullptr;
  for (const DrawingStep& step : mSteps) {
    const int width = std::max<int>(step.penWidth, 1);
    if (!step.isLine) {
      DrawDot(target, scale, step.from, PlainColour(step.colour), width);
      continue;
    }
    if (last == nullptr || last->colour != step.colour || last->penWidth != step.penWidth) {
      OwnedPen next(::CreatePen(PS_SOLID, scale.Length(width), PlainColour(step.colour)));
      ::SelectObject(target, next.Get());
      pen = std::move(next);
    }
    last = &step;
    ::MoveToEx(target, scale.X(step.from.x), scale.Y(step.from.y), nullptr);
    ::LineTo(target, scale.X(step.to.x), scale.Y(step.to.y));
  }
  ::SelectObject(target, ::GetStockObject(BLACK_PEN));
}

}  // namespace plotvane::control::win32
