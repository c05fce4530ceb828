#include "functions/catalogue.h"

#include <optional>

#include "platform/ascii.h"

namespace plotvane::functions {

namespace {

using platform::LowerCase;

constexpr std::size_t kLongestName = std::ranges::max(kCatalogue, {}, [](const Function& function) {
                                       return function.name.size();
                                     }).name.size();

// A perfect hash: FNV-1a over the lower-cased name from the first start value under which no two names of the
// catalogue share a slot.
constexpr std::size_t kSlotCount = 1024;

constexpr std::size_t Slot(std::string_view name, std::uint32_t start) noexcept {
  std::uint32_t hash = start;
  for (const char character : name) {
    hash = (hash ^ static_cast<unsigned char>(LowerCase(character))) * 16777619U;
  }
  return (hash ^ (hash >> 16U)) % kSlotCount;
}

constexpr std::uint8_t kEmptySlot = 0xFF;
static_assert(kCatalogue.size() < kEmptySlot);

struct Index {
  std::uint32_t start = 0;
  std::array<std::uint8_t, kSlotCount> slots{};
};

// False when two names share a slot; two equal names always do.
constexpr bool Fill(Index& index) {
  index.slots.fill(kEmptySlot);
  for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
    std::uint8_t& slot = index.slots[Slot(kCatalogue[i].name, index.start)];
    if (slot != kEmptySlot) return false;
    slot = static_cast<std::uint8_t>(i);
  }
  return true;
}

constexpr std::optional<Index> MakeIndex() {
  Index index;
  for (index.start = 1; index.start < 200; ++index.start) {
    if (Fill(index)) return index;
  }
  return std::nullopt;
}

constexpr bool NamesAreUnique() {
  for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (kCatalogue[i].name == kCatalogue[j].name) return false;
    }
  }
  return true;
}
static_assert(NamesAreUnique());

constexpr std::optional<Index> kMadeIndex = MakeIndex();
static_assert(kMadeIndex.has_value(), "no start value keeps all names apart: enlarge kSlotCount");
constexpr Index kIndex = *kMadeIndex;

constexpr bool IsLowerCase(std::string_view text) {
  return std::ranges::all_of(text, [](char character) { return LowerCase(character) == character; });
}
static_assert(std::ranges::all_of(kCatalogue, IsLowerCase, &Function::name));

}  // namespace

const Function* FindFunction(std::string_view name) noexcept {
  if (name.empty() || name.size() > kLongestName) return nullptr;
  const std::uint8_t slot = kIndex.slots[Slot(name, kIndex.start)];
  if (slot == kEmptySlot) return nullptr;
  const Function& function = kCatalogue[slot];
  return platform::EqualIgnoringCase(name, function.name) ? &function : nullptr;
}

std::string CallForm(const Function& function) {
  std::string form(function.name);
  form += '(';
  std::size_t position = 0;
  std::string_view rest = function.parameters;
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(", "), rest.size());
    if (position > 0) form += position < function.least ? ", " : " [, ";
    form += rest.substr(0, comma);
    rest.remove_prefix(std::min(comma + 2, rest.size()));
    ++position;
  }
  form.append(static_cast<std::size_t>(function.most - function.least), ']');
  form += ')';
  return form;
}

}  // namespace plotvane::functions
