// Message boxes, input boxes: their contents as the portable control gives them to the face.
#pragma once

#include <string>
#include <string_view>

#include "graph/graph_types.h"

namespace plotvane::control {

using graph::MessageIcon;

// The title of a message box whose contents name none.
inline constexpr std::string_view kDefaultTitle = "Plotvane";

// A message box with an OK button.
struct MessageContents {
  std::string text;
  std::string title = std::string(kDefaultTitle);
  MessageIcon icon = MessageIcon::None;
  friend bool operator==(const MessageContents&, const MessageContents&) = default;
};

struct InputRequest {
  std::string_view prompt;
  std::string_view title;
  std::string_view defaultText;
};

}  // namespace plotvane::control
