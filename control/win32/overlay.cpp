#include "control/win32/overlay.h"

#include <algorithm>

namespace plotvane::control::win32 {
namespace {

void AddRect(HRGN region, const RECT& rect) {
  const OwnedRegion part(::CreateRectRgnIndirect(&rect));
  ::CombineRgn(region, region, part.Get(), RGN_OR);
}

// The frame of one pixel just inside `rect`.
void AddFrame(HRGN region, const RECT& rect) {
  AddRect(region, {rect.left, rect.top, rect.right, rect.top + 1});
  AddRect(region, {rect.left, rect.bottom - 1, rect.right, rect.bottom});
  AddRect(region, {rect.left, rect.top, rect.left + 1, rect.bottom});
  AddRect(region, {rect.right - 1, rect.top, rect.right, rect.bottom});
}

}  // namespace

Overlay::Overlay() {
  for (Edge& line : mLines) line.owner = this;
}

void Overlay::Edge::SetVisible(bool newVisible) {
  if (newVisible == visible) return;
  visible = newVisible;
  owner->Announce(rect);
}

// Both ends belong to the line.
void Overlay::Edge::Place(graph::PixelPoint from, graph::PixelPoint to) {
  if (visible) owner->Announce(rect);
  rect = {std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
          std::max(from.y, to.y) + 1};
  if (visible) owner->Announce(rect);
}

void Overlay::SetMarkerVisible(bool visible) {
  if (visible == mMarkerVisible) return;
  mMarkerVisible = visible;
  Announce(mMarker);
}

void Overlay::MoveMarker(graph::PixelPoint topLeft) {
  if (mMarkerVisible) Announce(mMarker);
  mMarker = {topLeft.x, topLeft.y, topLeft.x + kTraceMarkerSize, topLeft.y + kTraceMarkerSize};
  if (mMarkerVisible) Announce(mMarker);
}

void Overlay::Invert(HDC context) const {
  const OwnedRegion region(::CreateRectRgn(0, 0, 0, 0));
  for (const Edge& line : mLines) {
    if (line.visible) AddRect(region.Get(), line.rect);
  }
  if (mMarkerVisible) AddFrame(region.Get(), mMarker);
  ::InvertRgn(context, region.Get());
}

void Overlay::Announce(const RECT& area) const {
  if (mChanged) mChanged(area);
}

}  // namespace plotvane::control::win32
