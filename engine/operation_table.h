// Codes of the operations, and tables over all of them made from the one list in engine/operations.h.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "engine/operations.h"
#include "functions/unary_formulas.h"

namespace plotvane::engine {

// A place in the tables: first the operations of two numbers, then those of one, then the functions of one
// number for either angle mode.
using OperationCode = std::uint16_t;

namespace operations {

inline constexpr std::size_t kFirstOfOne = OfTwo::kSize;
inline constexpr std::size_t kFirstFunction = kFirstOfOne + OfOne::kSize;
inline constexpr std::size_t kCodeCount = kFirstFunction + 2 * functions::kOperationCount;

template <class Operation, class... Operations>
consteval std::size_t PlaceIn(List<Operations...> /*list*/) {
  constexpr std::array<bool, sizeof...(Operations)> kSame{std::is_same_v<Operation, Operations>...};
  std::size_t place = 0;
  while (!kSame[place]) ++place;  // running past the end does not compile
  return place;
}

template <class Operation>
inline constexpr OperationCode kOfTwo = static_cast<OperationCode>(PlaceIn<Operation>(OfTwo{}));
template <class Operation>
inline constexpr OperationCode kOfOne = static_cast<OperationCode>(kFirstOfOne + PlaceIn<Operation>(OfOne{}));

[[nodiscard]] constexpr OperationCode CodeOfFunction(functions::Operation operation,
                                                     functions::AngleMode mode) {
  const std::size_t degrees = mode == functions::AngleMode::Degrees ? 1 : 0;
  return static_cast<OperationCode>(kFirstFunction + 2 * static_cast<std::size_t>(operation) + degrees);
}

// Whether the operands may change places without a difference in any bit of a result that is finite.
[[nodiscard]] constexpr bool IsCommutative(OperationCode code) noexcept {
  return code == kOfTwo<Add> || code == kOfTwo<Multiply>;
}

template <class Operation, class... Operations>
consteval bool IsIn(List<Operations...> /*list*/) {
  return (std::is_same_v<Operation, Operations> || ...);
}
template <class Operation>
inline constexpr bool kIsOfTwo = IsIn<Operation>(OfTwo{});

template <class Operation>
consteval OperationCode CodeOf() {
  if constexpr (kIsOfTwo<Operation>) {
    return kOfTwo<Operation>;
  } else {
    return kOfOne<Operation>;
  }
}

// A table of Forms, one for every pair of operations: Maker::ForPair<First, Second>() gives them.
template <class Forms, class Maker>
class PairTable {
 public:
  constexpr PairTable() { FillAll(PairedFirst{}); }

  // Null when the two are no pair.
  [[nodiscard]] constexpr const Forms* Find(OperationCode first, OperationCode second) const noexcept {
    const std::size_t a = PlaceOf(first, kFirsts);
    const std::size_t b = PlaceOf(second, kSeconds);
    const bool found = a < PairedFirst::kSize && b < PairedSecond::kSize;
    return found ? &mForms[a * PairedSecond::kSize + b] : nullptr;
  }

 private:
  template <class... Operations>
  static constexpr std::array<OperationCode, sizeof...(Operations)> Codes(List<Operations...> /*list*/) {
    return {CodeOf<Operations>()...};
  }
  static constexpr auto kFirsts = Codes(PairedFirst{});
  static constexpr auto kSeconds = Codes(PairedSecond{});

  template <class Array>
  [[nodiscard]] static constexpr std::size_t PlaceOf(OperationCode code, const Array& codes) noexcept {
    return static_cast<std::size_t>(std::ranges::find(codes, code) - codes.begin());
  }

  template <class... Firsts>
  constexpr void FillAll(List<Firsts...> /*list*/) {
    std::size_t place = 0;
    (FillAfter<Firsts>(PairedSecond{}, place), ...);
  }
  template <class First, class... Seconds>
  constexpr void FillAfter(List<Seconds...> /*list*/, std::size_t& place) {
    ((mForms[place++] = Maker::template ForPair<First, Seconds>()), ...);
  }

  std::array<Forms, PairedFirst::kSize * PairedSecond::kSize> mForms{};
};

// A table of Forms, one for every code. `Maker` has two templates of static functions that give the forms of
// an operation: ForOne<Operation>() and ForTwo<Operation>().
template <class Forms, class Maker>
class Table {
 public:
  constexpr Table() {
    FillTwo(OfTwo{});
    FillOne(OfOne{});
    functions::ForEachUnary(*this);
  }

  [[nodiscard]] constexpr const Forms& operator[](OperationCode code) const noexcept { return mForms[code]; }

  // Called back by ForEachUnary.
  template <functions::AngleRule kRule, auto kFormula>
  constexpr void Make(functions::Operation operation) {
    using enum functions::AngleMode;
    mForms[CodeOfFunction(operation, Radians)] =
        Maker::template ForOne<functions::WithAngles<kRule, Radians, kFormula>>();
    mForms[CodeOfFunction(operation, Degrees)] =
        Maker::template ForOne<functions::WithAngles<kRule, Degrees, kFormula>>();
  }

 private:
  template <class... Operations>
  constexpr void FillTwo(List<Operations...> /*list*/) {
    std::size_t place = 0;
    ((mForms[place++] = Maker::template ForTwo<Operations>()), ...);
  }
  template <class... Operations>
  constexpr void FillOne(List<Operations...> /*list*/) {
    std::size_t place = kFirstOfOne;
    ((mForms[place++] = Maker::template ForOne<Operations>()), ...);
  }

  std::array<Forms, kCodeCount> mForms{};
};

}  // namespace operations

// The name of a code for printed programs: "add", "sin", "sin in degrees".
[[nodiscard]] std::string OperationName(OperationCode code);

// False for the codes of functions that are no function of one real number.
[[nodiscard]] bool HasOperation(OperationCode code) noexcept;

}  // namespace plotvane::engine
