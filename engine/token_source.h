// TokenSource: where an evaluation takes its tokens from, text or a recorded list.
#pragma once

#include "engine/token.h"

namespace plotvane::engine {

class TokenSource {
 public:
  virtual ~TokenSource() = default;

  // The next token; past the last one the End token, again and again.
  [[nodiscard]] virtual Token Next() = 0;
};

}  // namespace plotvane::engine
