// clsStack: a stack of texts that grows by six slots at a time; the evaluator's stack of opening brackets.
#pragma once

#include <string>
#include <string_view>

#include "engine/slot_stack.h"

namespace plotvane::engine {

class clsStack : public SlotStack<std::string> {};

}  // namespace plotvane::engine
