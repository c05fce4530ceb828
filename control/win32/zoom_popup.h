// The pop-up menu of cmdZoom.
#pragma once

#include <windows.h>

#include <optional>
#include <span>

#include "control/zoom_menu.h"

namespace plotvane::control::win32 {

// Shows the menu under the pointer and waits for the choice; nothing when none is made.
[[nodiscard]] std::optional<ZoomCommand> ShowZoomPopup(HWND owner, std::span<const ZoomMenuEntry> entries);

}  // namespace plotvane::control::win32
