#include "graph/colours.h"

#include <array>
#include <cstddef>

namespace plotvane::graph {

namespace {

// By the system's index, 0x00BBGGRR.
constexpr std::array<std::uint32_t, 25> kSystemColours{
    0xC0C0C0,  //  0 scroll bar
    0x808000,  //  1 desktop
    0x800000,  //  2 active caption
    0x808080,  //  3 inactive caption
    0xC0C0C0,  //  4 menu
    0xFFFFFF,  //  5 window background
    0x000000,  //  6 window frame
    0x000000,  //  7 menu text
    0x000000,  //  8 window text
    0xFFFFFF,  //  9 caption text
    0xC0C0C0,  // 10 active border
    0xC0C0C0,  // 11 inactive border
    0x808080,  // 12 application workspace
    0x800000,  // 13 highlight
    0xFFFFFF,  // 14 highlighted text
    0xC0C0C0,  // 15 button face
    0x808080,  // 16 button shadow
    0x808080,  // 17 grey text
    0x000000,  // 18 button text
    0xC0C0C0,  // 19 inactive caption text
    0xFFFFFF,  // 20 button highlight
    0x000000,  // 21 dark shadow
    0xC0C0C0,  // 22 light edge
    0x000000,  // 23 tooltip text
    0xE1FFFF,  // 24 tooltip background
};

}  // namespace

std::uint32_t ResolveColour(Colour colour) noexcept {
  if (colour >= 0) return static_cast<std::uint32_t>(colour) & 0xFFFFFFu;
  const std::size_t index = static_cast<std::uint32_t>(colour) & 0xFFu;
  return index < kSystemColours.size() ? kSystemColours[index] : 0;
}

}  // namespace plotvane::graph
