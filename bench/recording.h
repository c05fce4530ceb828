// A workload recorded in an expression object with a table of its own.
#pragma once

#include <stdexcept>

#include "bench/workloads.h"
#include "engine/clsExp.h"
#include "platform/value.h"

namespace plotvane::bench {

struct Recording {
  // Stores the coefficients and an x, then records; throws when that fails.
  explicit Recording(const Workload& workload);

  engine::clsExp expression;
};

}  // namespace plotvane::bench
