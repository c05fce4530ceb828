#include "functions/operations.h"

#include "functions/arithmetic.h"
#include "functions/financial.h"
#include "functions/formulas.h"
#include "functions/unary_formulas.h"

namespace plotvane::functions {

namespace {

using Arguments = const NumericArguments&;
using Runner = Trapped (*)(Arguments);

template <Trapped (*kOperation)(Trapped)>
Trapped One(Arguments a) {
  return kOperation(a.values[0]);
}

template <Trapped (*kOperation)(Trapped, Trapped)>
Trapped Two(Arguments a) {
  return kOperation(a.values[0], a.values[1]);
}

template <Trapped (*kOperation)(Trapped, Trapped, Trapped)>
Trapped Three(Arguments a) {
  return kOperation(a.values[0], a.values[1], a.values[2]);
}

template <Trapped (*kOperation)(Trapped, Trapped, Trapped, Trapped)>
Trapped Four(Arguments a) {
  return kOperation(a.values[0], a.values[1], a.values[2], a.values[3]);
}

template <Trapped (*kOperation)(Trapped, Trapped, Trapped, Trapped, Trapped)>
Trapped Five(Arguments a) {
  return kOperation(a.values[0], a.values[1], a.values[2], a.values[3], a.values[4]);
}

template <Trapped (*kOperation)(Trapped, Trapped, Trapped, Trapped, Trapped, Trapped)>
Trapped Six(Arguments a) {
  return kOperation(a.values[0], a.values[1], a.values[2], a.values[3], a.values[4], a.values[5]);
}

// Two operations under one name, told apart by the number of arguments.
template <Trapped (*kWithOne)(Trapped), Trapped (*kWithTwo)(Trapped, Trapped)>
Trapped OneOrTwo(Arguments a) {
  return a.count < 2 ? kWithOne(a.values[0]) : kWithTwo(a.values[0], a.values[1]);
}

// What carries out an operation.
struct Row {
  Runner radians = nullptr;
  Runner degrees = nullptr;
  AngleRule rule = AngleRule::None;
  bool filled = false;  // instead of comparing addresses, which sanitized builds cannot do at compile time
};

template <class Formula>
Trapped RunTrapped(Arguments a) {
  return Formula::template Apply<Trapped>(a.values[0]);
}

// Make stands before its use: not every compiler instantiates it in time otherwise.
class Table {
 public:
  template <AngleRule kRule, auto kFormula>
  constexpr void Make(Operation operation) {
    using Radians = WithAngles<kRule, AngleMode::Radians, kFormula>;
    using Degrees = WithAngles<kRule, AngleMode::Degrees, kFormula>;
    At(operation) = {RunTrapped<Radians>, RunTrapped<Degrees>, kRule, true};
  }

  constexpr Table() {
    ForEachUnary(*this);
    Add(Operation::Rnd, One<RandomFromSeed>);
    Add(Operation::Random, OneOrTwo<RandomBelow, RandomBetween>);
    Add(Operation::RandomInt, OneOrTwo<RandomWholeBelow, RandomWholeBetween>);
    Add(Operation::Factorial, One<Factorial>);
    Add(Operation::LogN, Two<formulas::LogN<Trapped>>);
    Add(Operation::NCr, Two<Combinations>);
    Add(Operation::NPr, Two<Permutations>);
    Add(Operation::Gcf, Two<GreatestCommonFactor>);
    Add(Operation::Lcm, Two<LeastCommonMultiple>);
    Add(Operation::DecimalMod, Two<formulas::DecimalMod<Trapped>>);
    Add(Operation::Round, Two<formulas::Round<Trapped>>);
    Add(Operation::Rgb, Three<ColourNumber>);
    Add(Operation::Sln, Three<financial::StraightLine>);
    Add(Operation::NPer, Five<financial::NumberOfPeriods>);
    Add(Operation::Pmt, Five<financial::Payment>);
    Add(Operation::Pv, Five<financial::PresentValue>);
    Add(Operation::Fv, Five<financial::FutureValue>);
    Add(Operation::Rate, Six<financial::InterestRate>);
    Add(Operation::Syd, Four<financial::SumOfYears>);
    Add(Operation::IPmt, Six<financial::InterestPart>);
    Add(Operation::PPmt, Six<financial::PrincipalPart>);
  }

  [[nodiscard]] constexpr const Row& operator[](Operation operation) const {
    return mRows[static_cast<std::size_t>(operation)];
  }

 private:
  constexpr Row& At(Operation operation) { return mRows[static_cast<std::size_t>(operation)]; }
  constexpr void Add(Operation operation, Runner runner) {
    At(operation) = {.radians = runner, .degrees = runner, .filled = true};
  }

  std::array<Row, kOperationCount> mRows{};
};

constexpr Table kTable;

static_assert(std::ranges::all_of(kCatalogue, [](const Function& function) {
  const Row& row = kTable[function.operation];
  return function.IsCalculus() ? !row.filled : row.filled && row.rule == function.angle;
}));

}  // namespace

Trapped Run(Operation operation, AngleMode mode, const NumericArguments& arguments) {
  const Row& row = kTable[operation];
  return (mode == AngleMode::Degrees ? row.degrees : row.radians)(arguments);
}

}  // namespace plotvane::functions
