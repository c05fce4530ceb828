#include "hosts/desktop/page_layout.h"

#include <algorithm>
#include <cmath>

namespace plotvane::desktop {

namespace {

struct Span {
  int begin;
  int end;
  [[nodiscard]] int Length() const { return end - begin; }
};

// The printable dots of one direction that keep half an inch from both edges of the paper.
Span WithinMargins(int area, int paper, int areaBegin, int dotsPerInch) {
  const int margin = dotsPerInch / 2;
  const Span kept{std::max(0, margin - areaBegin), std::min(area, paper - margin - areaBegin)};
  return kept.Length() > 0 ? kept : Span{0, area};
}

}  // namespace

PagePlace FitPage(const Page& page, int width, int height) {
  const Span across = WithinMargins(page.width, page.paperWidth, page.areaLeft, page.dotsPerInchX);
  const Span down = WithinMargins(page.height, page.paperHeight, page.areaTop, page.dotsPerInchY);
  // Inches for each pixel; the printer's dots need not be square.
  const double scale = std::min(static_cast<double>(across.Length()) / page.dotsPerInchX / width,
                                static_cast<double>(down.Length()) / page.dotsPerInchY / height);
  const int placeWidth = static_cast<int>(std::lround(scale * width * page.dotsPerInchX));
  const int placeHeight = static_cast<int>(std::lround(scale * height * page.dotsPerInchY));
  const int left = across.begin + (across.Length() - placeWidth) / 2;
  return {left, down.begin, left + placeWidth, down.begin + placeHeight};
}

}  // namespace plotvane::desktop
