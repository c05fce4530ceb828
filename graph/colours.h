// Colour numbers as hosts write them, resolved to plain colours where there is no system to ask.
#pragma once

#include <cstdint>

#include "graph/drawing_surface.h"

namespace plotvane::graph {

// System colours that a surface itself draws with: bit 31 and the system's index.
inline constexpr Colour kWindowBackground = static_cast<Colour>(0x80000005u);
inline constexpr Colour kWindowText = static_cast<Colour>(0x80000008u);

// A plain colour 0x00BBGGRR. Bits 24 to 30 of a number that is not negative are ignored; system colours are
// those of a plain black-on-white desktop, an index that the system does not know is black.
[[nodiscard]] std::uint32_t ResolveColour(Colour colour) noexcept;

}  // namespace plotvane::graph
