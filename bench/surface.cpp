#include "bench/measures.h"

namespace plotvane::bench {

void RegisterSurface() {}
void RegisterPicture(const std::string& /*plotvane*/) {}

}  // namespace plotvane::bench
