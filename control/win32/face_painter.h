// FacePainter: the boxes, buttons and texts of the control drawn into any device context.
//
// Only filled rectangles and text, so that metafiles and printers take it at their own resolution. Nothing is
// asked of the target, for metafiles have no answers: texts are measured on the screen.
#pragma once

#include <windows.h>

#include <string_view>

#include "control/geometry.h"
#include "control/win32/handles.h"
#include "control/win32/picture_scale.h"

namespace plotvane::control::win32 {

// Rectangles are in the control's own pixels.
class FacePainter {
 public:
  // `font` is that of the controls, made for their pixels.
  FacePainter(HDC target, const PictureScale& scale, HFONT font);
  FacePainter(const FacePainter&) = delete;
  FacePainter& operator=(const FacePainter&) = delete;

  // Colours are the system's, COLOR_….
  void Fill(const PixelRect& rect, int colour) const;
  // A filled rectangle with an edge of two pixels that rises above its surroundings or lies below them.
  void Button(const PixelRect& rect) const;
  void Box(const PixelRect& rect, int colour) const;
  // Within the rectangle and in the middle of its height.
  void Text(const PixelRect& rect, std::string_view text) const;
  // The same with its mnemonic underlined.
  void CentredCaption(const PixelRect& rect, std::string_view caption) const;
  void Caption(const PixelRect& rect, std::string_view caption) const;
  // A small triangle in the middle.
  void ArrowUp(const PixelRect& rect) const;
  void ArrowDown(const PixelRect& rect) const;

 private:
  struct Edge {
    int topLeft;
    int bottomRight;
  };
  void Frame(const PixelRect& rect, const Edge& edge) const;
  void DrawCaption(const PixelRect& rect, std::string_view caption, bool centred) const;
  [[nodiscard]] int WidthOf(std::wstring_view text) const;
  void WriteAt(int column, const PixelRect& clip, std::wstring_view text) const;

  HDC mTarget;
  PictureScale mScale;
  SavedContext mSaved;
  OwnedFont mScaledFont;
  OwnedMemoryContext mScreen;  // measures
  SelectScope mScreenFont;
  SelectScope mTargetFont;
  TEXTMETRICW mMetrics{};
};

}  // namespace plotvane::control::win32
