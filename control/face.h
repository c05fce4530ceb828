// Face: what the portable control asks of a window system.
//
// A face shows what it is told and holds no rule of the system; what the user does comes back as plain events
// to `Gestures` (control/gestures.h). A face works without a window too, before one is made and after it is
// gone: texts and visibilities are kept, boxes and menus answer as if they were cancelled, so that the
// control never has to ask whether it is on a screen.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "control/dialog_view.h"
#include "control/layout.h"
#include "control/line_control.h"
#include "control/messages.h"
#include "control/zoom_menu.h"
#include "graph/drawing_surface.h"

namespace plotvane::control {

enum class TextBox { txtSimple, txtStatusBar1, txtUserCurY };
inline constexpr std::size_t kTextBoxCount = 3;

// The edges of the zoom box, in the order in which clsLineBox takes them.
enum class BoxLine { linSelT, linSelB, linSelL, linSelR };
inline constexpr std::size_t kBoxLineCount = 4;

// The trace marker `shpTraceBox`: a square frame of one pixel in inverse colour; its side in pixels.
inline constexpr int kTraceMarkerSize = 7;

// The surface of a control that has no window: its size in pixels.
inline constexpr PixelSize kDefaultSurfaceSize{400, 300};

class Face {
 public:
  virtual ~Face() = default;

  // ---- One-line boxes ----
  [[nodiscard]] virtual std::string GetText(TextBox box) = 0;
  virtual void SetText(TextBox box, std::string_view text) = 0;
  // Paints the box at once, for texts shown during long work.
  virtual void RefreshText(TextBox box) = 0;
  virtual void SetFocus(TextBox box) = 0;

  // ---- Layout ----
  [[nodiscard]] virtual FaceMetrics Metrics() = 0;
  // Places the controls and gives the surface its size.
  virtual void Apply(const ControlLayout& layout) = 0;
  // Sets the spinner back to kSpinnerRest without an event.
  virtual void ResetSpinner() = 0;

  // ---- Surface and what is shown over it ----
  // The control's own picture `picGraph`; one object for the whole life of the face.
  [[nodiscard]] virtual std::shared_ptr<graph::DrawingSurface> Surface() = 0;
  // Lives as long as the face.
  [[nodiscard]] virtual LineControl& ZoomBoxLine(BoxLine line) = 0;
  virtual void SetTraceMarkerVisible(bool visible) = 0;
  // The upper left corner of the marker, in surface pixels.
  virtual void MoveTraceMarker(graph::PixelPoint topLeft) = 0;

  // ---- Boxes, menu and dialogs; the host may do anything while they are open ----
  virtual void ShowMessage(const MessageContents& contents) = 0;
  // The text entered; empty when cancelled.
  [[nodiscard]] virtual std::string AskInput(const InputRequest& request) = 0;
  // Shown under the pointer; nothing when none is chosen.
  [[nodiscard]] virtual std::optional<ZoomCommand> PopUpMenu(std::span<const ZoomMenuEntry> entries) = 0;
  // The views are not shown yet. Events come as long as `events` lives.
  [[nodiscard]] virtual std::shared_ptr<FieldsView> CreateFieldsView(const FieldsDialogText& text,
                                                                     std::weak_ptr<DialogEvents> events) = 0;
  [[nodiscard]] virtual std::shared_ptr<FormatView> CreateFormatView(std::weak_ptr<FormatEvents> events) = 0;
};

}  // namespace plotvane::control
