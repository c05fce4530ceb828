// SlotStack: what clsStack and clsStackl share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"

namespace plotvane::engine {

// A stack over numbered slots. Popping leaves the slot as it was; the slots are never given back.
template <typename Element>
class SlotStack {
 public:
  [[nodiscard]] bool EmptyStack() const noexcept { return mTop <= 0; }

  // The top item; an empty text or 0 when there is none.
  Element Pop() {
    if (EmptyStack()) return Element{};
    return mItems[static_cast<std::size_t>(--mTop)];
  }

  // RunTimeError 6 beyond 32,767 items: the top is a 16-bit number.
  void Push(Element item) {
    if (mTop == std::numeric_limits<std::int16_t>::max()) {
      throw platform::RunTimeError(platform::StandardError::Overflow);
    }
    const auto slot = static_cast<std::size_t>(mTop);
    if (slot == mItems.size()) mItems.resize(mItems.size() + kGrowth);
    mItems[slot] = std::move(item);
    ++mTop;
  }

  // As newly made: empty, with one slot.
  void MakeNew() {
    mItems.resize(1);
    mTop = 0;
  }

  // A copy of the items, the first pushed first; empty for an empty stack.
  [[nodiscard]] std::vector<Element> GetArray() const { return {mItems.begin(), mItems.begin() + mTop}; }

  // How many items fit before the stack grows: 1, then 7, 13, …
  [[nodiscard]] std::size_t Slots() const noexcept { return mItems.size(); }

 private:
  static constexpr std::size_t kGrowth = 6;

  std::vector<Element> mItems = std::vector<Element>(1);
  std::int16_t mTop = 0;
};

}  // namespace plotvane::engine
