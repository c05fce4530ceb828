// clsStackl: clsStack for 32-bit whole numbers.
#pragma once

#include <cstdint>

#include "engine/slot_stack.h"

namespace plotvane::engine {

class clsStackl : public SlotStack<std::int32_t> {};

}  // namespace plotvane::engine
