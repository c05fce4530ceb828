// Where the picture of the graph goes on a printed page.
#pragma once

namespace plotvane::desktop {

// In the printer's dots. The paper is larger than the area that can be printed on, which is where dots count from.
struct Page {
  int width = 0;
  int height = 0;
  int dotsPerInchX = 0;
  int dotsPerInchY = 0;
  int paperWidth = 0;
  int paperHeight = 0;
  int areaLeft = 0;  // of the printable area on the paper
  int areaTop = 0;
};

struct PagePlace {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// The largest place with the proportions of a picture of width × height square pixels that keeps half an inch from the
// paper's edges: at the top, in the middle of the page's width. A paper without so much room is filled.
[[nodiscard]] PagePlace FitPage(const Page& page, int width, int height);

}  // namespace plotvane::desktop
