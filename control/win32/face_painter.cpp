#include "control/win32/face_painter.h"

#include <algorithm>
#include <string>
#include <vector>

#include "control/mnemonic.h"
#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {

namespace {

OwnedFont ScaledFont(HFONT font, const PictureScale& scale) {
  LOGFONTW description{};
  ::GetObjectW(font, sizeof description, &description);
  description.lfHeight = scale.Height(static_cast<int>(description.lfHeight));
  return OwnedFont(::CreateFontIndirectW(&description));
}

PixelRect Inset(const PixelRect& rect, int pixels) {
  return {rect.left + pixels, rect.top + pixels, std::max(rect.width - 2 * pixels, 0),
          std::max(rect.height - 2 * pixels, 0)};
}

// The caption up to its mnemonic and the mnemonic itself, as they are seen; the second is empty without one.
struct Mnemonic {
  std::wstring before;
  std::wstring letter;
};

Mnemonic FindMnemonic(std::string_view caption) {
  const char letter = MnemonicOf(caption);
  if (letter == '\0') return {};
  std::size_t place = caption.find('&');
  while (caption[place + 1] == '&') place = caption.find('&', place + 2);
  return {ToWide(CaptionWithoutMnemonic(caption.substr(0, place))), ToWide(caption.substr(place + 1, 1))};
}

}  // namespace

FacePainter::FacePainter(HDC target, const PictureScale& scale, HFONT font)
    : mTarget(target),
      mScale(scale),
      mSaved(target),
      mScaledFont(ScaledFont(font, scale)),
      mScreen(::CreateCompatibleDC(nullptr)),
      mScreenFont(mScreen.Get(), font),
      mTargetFont(target, mScaledFont.Get()) {
  ::GetTextMetricsW(mScreen.Get(), &mMetrics);
  ::SetBkMode(target, TRANSPARENT);
  ::SetTextAlign(target, TA_LEFT | TA_TOP);
  ::SetTextColor(target, ::GetSysColor(COLOR_BTNTEXT));
}

void FacePainter::Fill(const PixelRect& rect, int colour) const {
  const RECT area = mScale.Rect(rect);
  const OwnedBrush brush(::CreateSolidBrush(::GetSysColor(colour)));
  ::FillRect(mTarget, &area, brush.Get());
}

// ---- Boxes ----

void FacePainter::Frame(const PixelRect& rect, const Edge& edge) const {
  Fill({rect.left, rect.top, rect.width, 1}, edge.topLeft);
  Fill({rect.left, rect.top, 1, rect.height}, edge.topLeft);
  Fill({rect.left, rect.Bottom() - 1, rect.width, 1}, edge.bottomRight);
  Fill({rect.Right() - 1, rect.top, 1, rect.height}, edge.bottomRight);
}

void FacePainter::Button(const PixelRect& rect) const {
  Fill(rect, COLOR_BTNFACE);
  Frame(rect, {COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW});
  Frame(Inset(rect, 1), {COLOR_3DLIGHT, COLOR_BTNSHADOW});
}

void FacePainter::Box(const PixelRect& rect, int colour) const {
  Fill(rect, colour);
  Frame(rect, {COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT});
  Frame(Inset(rect, 1), {COLOR_3DDKSHADOW, COLOR_3DLIGHT});
}

// ---- Texts ----

int FacePainter::WidthOf(std::wstring_view text) const {
  SIZE size{};
  ::GetTextExtentPoint32W(mScreen.Get(), text.data(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

// Each character where the screen has it, whatever widths the target's font has.
void FacePainter::WriteAt(int column, const PixelRect& clip, std::wstring_view text) const {
  const int row = clip.top + (clip.height - static_cast<int>(mMetrics.tmHeight)) / 2;
  std::vector<INT> steps;
  for (std::size_t length = 1; length <= text.size(); ++length) {
    const int from = mScale.X(column + WidthOf(text.substr(0, length - 1)));
    steps.push_back(mScale.X(column + WidthOf(text.substr(0, length))) - from);
  }
  const RECT area = mScale.Rect(clip);
  ::ExtTextOutW(mTarget, mScale.X(column), mScale.Y(row), ETO_CLIPPED, &area, text.data(),
                static_cast<UINT>(text.size()), steps.data());
}

void FacePainter::Text(const PixelRect& rect, std::string_view text) const {
  WriteAt(rect.left, rect, ToWide(text));
}

void FacePainter::DrawCaption(const PixelRect& rect, std::string_view caption, bool centred) const {
  const std::wstring seen = ToWide(CaptionWithoutMnemonic(caption));
  const int column = rect.left + (centred ? (rect.width - WidthOf(seen)) / 2 : 0);
  WriteAt(column, rect, seen);
  const Mnemonic mnemonic = FindMnemonic(caption);
  const int row = rect.top + (rect.height - static_cast<int>(mMetrics.tmHeight)) / 2 +
                  static_cast<int>(mMetrics.tmAscent) + 1;
  Fill({column + WidthOf(mnemonic.before), row, WidthOf(mnemonic.letter), 1}, COLOR_BTNTEXT);
}

void FacePainter::CentredCaption(const PixelRect& rect, std::string_view caption) const {
  DrawCaption(rect, caption, true);
}

void FacePainter::Caption(const PixelRect& rect, std::string_view caption) const {
  DrawCaption(rect, caption, false);
}

// ---- Arrows ----

void FacePainter::ArrowUp(const PixelRect& rect) const {
  const int rows = std::max(std::min(rect.width, rect.height) / 4, 1);
  const int top = rect.top + (rect.height - rows) / 2;
  for (int row = 0; row < rows; ++row)
    Fill({rect.left + rect.width / 2 - row, top + row, 2 * row + 1, 1}, COLOR_BTNTEXT);
}

void FacePainter::ArrowDown(const PixelRect& rect) const {
  const int rows = std::max(std::min(rect.width, rect.height) / 4, 1);
  const int top = rect.top + (rect.height - rows) / 2;
  for (int row = 0; row < rows; ++row) {
    const int half = rows - 1 - row;
    Fill({rect.left + rect.width / 2 - half, top + row, 2 * half + 1, 1}, COLOR_BTNTEXT);
  }
}

}  // namespace plotvane::control::win32
