// Precedence: every pair of binary operators, and every prefix operator against every binary one.
#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>

#include "tests/engine/calculator.h"

namespace plotvane::engine::test {
namespace {

struct Strength {
  const char* spelling;
  int rank;  // the greater binds tighter
};

// From the tightest to the loosest; operators of one rank stand side by side.
constexpr std::array kBinary{
    Strength{"e", 10},  Strength{"^", 9},   Strength{"*", 8},   Strength{"/", 8},    Strength{"\\", 7},
    Strength{"mod", 6}, Strength{"+", 5},   Strength{"-", 5},   Strength{"==", 4},   Strength{"<", 4},
    Strength{">", 4},   Strength{"<>", 4},  Strength{"<=", 4},  Strength{">=", 4},   Strength{"and", 3},
    Strength{"or", 2},  Strength{"xor", 1}, Strength{"eqv", 0}, Strength{"imp", -1},
};
constexpr int kSignTakes = 9;  // a sign takes the operators of this rank and above
constexpr int kNotTakes = 4;

// Operands that tell the groupings apart; what a grouping gives is compared whole, errors included.
constexpr std::array<std::array<const char*, 3>, 12> kOperands{{
    {"7", "2", "3"},
    {"2", "3", "2"},
    {"5", "1", "0"},
    {"1", "5", "4"},
    {"12", "5", "2"},
    {"0", "3", "6"},
    {"(-1)", "2", "0"},
    {"3", "(-2)", "(-1)"},
    {"(-1)", "(-1)", "(-1)"},
    {"0", "0", "(-1)"},
    {"1", "1", "(-1)"},
    {"12", "13", "5"},
}};

std::string Join(const std::string& a, const std::string& b, const std::string& c) {
  return a + " " + b + " " + c;
}

TEST(Precedence, every_pair_of_binary_operators_groups_by_rank_and_to_the_left) {
  Calculator calculator;
  std::set<std::string> toldApart;
  for (const Strength& first : kBinary) {
    for (const Strength& second : kBinary) {
      const std::string pair = std::string(first.spelling) + " " + second.spelling;
      for (const auto& [a, b, c] : kOperands) {
        const std::string bare = Join(Join(a, first.spelling, b), second.spelling, c);
        const std::string left = Join("(" + Join(a, first.spelling, b) + ")", second.spelling, c);
        const std::string right = Join(a, first.spelling, "(" + Join(b, second.spelling, c) + ")");
        const bool groupsLeft = first.rank >= second.rank;
        EXPECT_EQ(calculator.Report(bare), calculator.Report(groupsLeft ? left : right)) << bare;
        if (calculator.Report(left) != calculator.Report(right)) toldApart.insert(pair);
      }
    }
  }
  // Only those for which both groupings mean the same.
  for (const char* same : {"* *", "+ +", "+ -", "and and", "or or", "xor xor", "eqv eqv", "* /", "xor eqv",
                           "eqv xor", "* e", "imp or"}) {
    toldApart.insert(same);
  }
  for (const Strength& first : kBinary) {
    for (const Strength& second : kBinary) {
      const std::string pair = std::string(first.spelling) + " " + second.spelling;
      EXPECT_TRUE(toldApart.contains(pair)) << pair;
    }
  }
}

// a first PREFIX b second c: the prefix reads its operand at its own level, wherever it stands.
void CheckPrefix(const std::string& prefix, int takes) {
  Calculator calculator;
  for (const Strength& second : kBinary) {
    for (const auto& [a, b, c] : kOperands) {
      const std::string taken = prefix + " (" + Join(b, second.spelling, c) + ")";
      const std::string alone = Join("(" + prefix + " " + b + ")", second.spelling, c);
      const std::string bare = prefix + " " + Join(b, second.spelling, c);
      EXPECT_EQ(calculator.Report(bare), calculator.Report(second.rank >= takes ? taken : alone)) << bare;
      for (const Strength& first : kBinary) {
        const std::string whole = Join(a, first.spelling, bare);
        const std::string operand = "(" + (second.rank >= takes ? taken : alone) + ")";
        const std::string leftFirst =
            Join("(" + Join(a, first.spelling, "(" + prefix + " " + b + ")") + ")", second.spelling, c);
        const bool belongsToOperand = second.rank >= takes || second.rank > first.rank;
        EXPECT_EQ(calculator.Report(whole),
                  calculator.Report(belongsToOperand ? Join(a, first.spelling, operand) : leftFirst))
            << whole;
      }
    }
  }
}

TEST(Precedence, minus_takes_power_and_exponent_before_it_negates) {
  CheckPrefix("-", kSignTakes);
}
TEST(Precedence, plus_takes_power_and_exponent_too) {
  CheckPrefix("+", kSignTakes);
}
TEST(Precedence, not_takes_everything_down_to_comparisons) {
  CheckPrefix("not", kNotTakes);
}

TEST(Precedence, postfix_operators_stand_beside_power) {
  Calculator calculator;
  for (const char* postfix : {"!", "%"}) {
    for (const Strength& first : kBinary) {
      const std::string bare = Join("2", first.spelling, "3") + postfix;
      const std::string expected = first.rank >= kSignTakes
                                       ? "(" + Join("2", first.spelling, "3") + ")" + postfix
                                       : Join("2", first.spelling, std::string("(3") + postfix + ")");
      EXPECT_EQ(calculator.Report(bare), calculator.Report(expected)) << bare;
      const std::string before = std::string("3") + postfix + " " + first.spelling + " 2";
      const std::string grouped =
          first.rank > kSignTakes ? before : std::string("(3") + postfix + ") " + first.spelling + " 2";
      EXPECT_EQ(calculator.Report(before), calculator.Report(grouped)) << before;
    }
  }
}

TEST(Precedence, known_lines) {
  constexpr std::array kCases{
      Case{"2^3^2", "64"},    Case{"-2^2", "-4"},           Case{"-2*3", "-6"},
      Case{"50%", "0.5"},     Case{"2^3%", "0.08"},         Case{"7\\2*2", "1"},
      Case{"7 mod 3*2", "1"}, Case{"2^-2^2", "0.0625"},     Case{"2e-3^2", "2E-09"},
      Case{"- -2", "2"},      Case{"3!!", "720"},           Case{"-3!", "-6"},
      Case{"2*-3", "-6"},     Case{"not 1 < 2 and 4", "0"}, Case{"2^2e1", "1048576"},
      Case{"8/4/2", "1"},     Case{"10-4-3", "3"},          Case{"2^3!", "40320"},
      Case{"1e2e1", "1000"},  Case{"not not 5", "5"},
  };
  Calculator calculator;
  for (const Case& row : kCases) EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
}

TEST(Operators, values) {
  constexpr std::array kCases{
      Case{"1<2", "True"},
      Case{"2<=2", "True"},
      Case{"2>=3", "False"},
      Case{"2==2", "True"},
      Case{"2<>2", "False"},
      Case{"True+True", "-2"},
      Case{"-True", "1"},
      Case{"+True", "True"},
      Case{"True and False", "False"},
      Case{"True or 0", "-1"},
      Case{"True xor True", "False"},
      Case{"False imp False", "True"},
      Case{"True eqv False", "False"},
      Case{"6 and 3", "2"},
      Case{"6 or 3", "7"},
      Case{"6 xor 3", "5"},
      Case{"6 eqv 3", "-6"},
      Case{"6 imp 3", "-5"},
      Case{"not 5", "-6"},
      Case{"not True", "False"},
      Case{"True==-1", "True"},
      Case{"False<True", "False"},
      Case{"2.5 and 7", "2"},
      Case{"3.5 mod 3", "1"},
      Case{"-7 mod 3", "-1"},
      Case{"-7\\2", "-3"},
      Case{"7.5\\2", "4"},
      Case{"-2147483648\\-1", "error 6: Overflow"},
      Case{"-2147483648 mod -1", "0"},
      Case{"2147483648 and 1", "error 6: Overflow"},
      Case{"not 2147483648", "error 6: Overflow"},
      Case{"1/0", "error 11: Division by zero"},
      Case{"0/0", "error 11: Division by zero"},
      Case{"7\\0", "error 11: Division by zero"},
      Case{"7 mod 0.4", "error 11: Division by zero"},
      Case{"0^-1", "error 11: Division by zero"},
      Case{"0^0", "1"},
      Case{"(-8)^(1/3)", "error 5: Invalid procedure call or argument"},
      Case{"(-8)^3", "-512"},
      Case{"1e308*10", "error 6: Overflow"},
      Case{"171!", "error 6: Overflow"},
      Case{"-1e308-1e308", "error 6: Overflow"},
      Case{"10^400", "error 6: Overflow"},
      Case{"0e400", "error 6: Overflow"},
      Case{"2.5!", "2"},
  };
  Calculator calculator;
  for (const Case& row : kCases) EXPECT_EQ(calculator.Report(row.line), row.expected) << row.line;
}

}  // namespace
}  // namespace plotvane::engine::test
