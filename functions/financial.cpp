#include "functions/financial.h"

namespace plotvane::functions::financial {

Trapped StraightLine(Trapped cost, Trapped salvage, Trapped life) {
  return (cost - salvage) / life;
}

}  // namespace plotvane::functions::financial
