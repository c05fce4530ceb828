#include "control/action.h"

#include <array>

namespace plotvane::control {
namespace {

struct ActionRow {
  Action action;
  std::string_view caption;
  graph::PointerKind pointer;
};

constexpr ActionRow kNone{Action::None, graph::kRedrawHint, graph::PointerKind::Arrow};

constexpr std::array<ActionRow, 4> kArmed{{
    {Action::zin, "Zoom In", graph::PointerKind::ZoomIn},
    {Action::zout, "Zoom Out", graph::PointerKind::ZoomOut},
    {Action::zbox, "Zoom Box", graph::PointerKind::Cross},
    {Action::trace, "Trace Function", graph::PointerKind::SizeWestEast},
}};

const ActionRow& RowOf(Action action) noexcept {
  for (const ActionRow& row : kArmed) {
    if (row.action == action) return row;
  }
  return kNone;
}

}  // namespace

std::string_view ActionCaption(Action action) noexcept {
  return RowOf(action).caption;
}

graph::PointerKind ActionPointer(Action action) noexcept {
  return RowOf(action).pointer;
}

}  // namespace plotvane::control
