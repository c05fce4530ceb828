// Focus: digit texts to numbers and back.
#include <gtest/gtest.h>

#include "functions/clsMath.h"

namespace plotvane::functions {
namespace {

using platform::StandardError;

struct RecordingSink : ErrorSink {
  int standard = -1;
  int custom = -1;
  void GEP(std::int32_t standardErrNum, std::int32_t customErrNum) override {
    standard = standardErrNum;
    custom = customErrNum;
  }
};

TEST(NumberBases, digit_texts_are_read_from_the_right) {
  clsMath math;
  struct Case {
    const char* digits;
    int base;
    double value;
  };
  for (const Case& given : {Case{"777", 8, 511},
                            {"101", 2, 5},
                            {"0", 2, 0},
                            {"", 2, 0},
                            {"2101", 3, 64},
                            {"88", 9, 80},
                            {"20", 9, 18},
                            {"11", 10, 11},
                            {"0000000007", 8, 7}}) {
    EXPECT_EQ(math.StrBaseNToDec(given.digits, given.base).Get(), given.value) << given.digits;
  }
  EXPECT_EQ(math.StrOctToDec("17").Get(), 15);
  EXPECT_EQ(math.StrBinToDec("1111").Get(), 15);
  EXPECT_EQ(math.StrBinToDec("1" + std::string(52, '0')).Get(), 4503599627370496.0);
}

TEST(NumberBases, a_character_is_a_digit_when_its_text_is_smaller_than_the_bases_text) {
  RecordingSink sink;
  clsMath math(&sink);
  struct Case {
    const char* digits;
    int base;
  };
  for (const Case& given : {Case{"102", 2},
                            {"8", 8},
                            {"9", 9},
                            {"2", 10},
                            {"12", 10},
                            {"A", 16},
                            {"2", 16},
                            {"-1", 2},
                            {" 1", 8},
                            {"1.1", 2},
                            {"/", 8}}) {
    sink = {};
    const Trapped result = math.StrBaseNToDec(given.digits, given.base);
    EXPECT_EQ(result.Error(), (ErrorPair{StandardError::None, CustomError::BaseDigits})) << given.digits;
    EXPECT_EQ(sink.standard, 0);
    EXPECT_EQ(sink.custom, 6);
  }
}

TEST(NumberBases, digits_too_many_for_a_number_overflow) {
  clsMath math;
  EXPECT_EQ(math.StrOctToDec("1" + std::string(400, '0')).Error().standard, StandardError::Overflow);
  EXPECT_EQ(math.StrOctToDec(std::string(400, '0') + "7").Get(), 7);
}

TEST(NumberBases, decimal_and_hexadecimal_texts_are_read_as_far_as_they_go) {
  clsMath math;
  EXPECT_EQ(math.StrToDec(" 12.5x").Get(), 12.5);
  EXPECT_EQ(math.StrToDec("x").Get(), 0);
  EXPECT_EQ(math.StrToHex("FF").Get(), 255);
  EXPECT_EQ(math.StrToHex("ffff").Get(), 65535);
  EXPECT_EQ(math.StrToHex("FFFFFFFF").Get(), 4294967295.0);
  EXPECT_EQ(math.StrToHex("").Get(), 0);
}

TEST(NumberBases, binary_texts_hold_the_whole_part) {
  clsMath math;
  struct Case {
    double number;
    int bytes;
    std::string text;
  };
  const std::vector<Case> cases{
      {0, 0, "0"},
      {5, 0, "101"},
      {5.99, 0, "101"},
      {-0.5, 0, "0"},
      {65535, 0, std::string(16, '1')},
      {65536, 0, "1" + std::string(16, '0')},
      {4294967296.0, 0, "1" + std::string(32, '0')},
      {-1, 0, std::string(16, '1')},
      {-1.5, 0, std::string(16, '1')},
      {-32768, 0, "1" + std::string(15, '0')},
      {-32769, 0, std::string(16, '1') + "0111111111111111"},
      {-2147483649.0, 0, std::string(32, '1') + "0" + std::string(31, '1')},
      {-9223372036854775808.0, 0, "1" + std::string(63, '0')},
      {255, 1, "11111111"},
      {-128, 1, "10000000"},
      {-1, 3, std::string(24, '1')},
      {-1, 8, std::string(64, '1')},
      {5, 8, "101"},
  };
  for (const Case& given : cases) {
    const auto text = math.Binary(given.number, given.bytes);
    EXPECT_EQ(text.Get(), given.text) << given.number;
  }
}

TEST(NumberBases, binary_texts_must_fit_their_width) {
  clsMath math;
  struct Case {
    double number;
    int bytes;
  };
  for (const Case& given : {Case{256, 1},
                            {-129, 1},
                            {65536, 2},
                            {-32769, 2},
                            {18446744073709551616.0, 8},
                            {18446744073709551616.0, 0},
                            {-9223372036854777856.0, 0},
                            {1e300, 0},
                            {-1e300, 8}}) {
    EXPECT_EQ(math.Binary(given.number, given.bytes).Error(), StandardError::Overflow) << given.number;
  }
  EXPECT_EQ(math.Binary(1, 9).Error(), StandardError::InvalidCall);
  EXPECT_EQ(math.Binary(1, -1).Error(), StandardError::InvalidCall);
  EXPECT_EQ(math.Binary(platform::Value("x")).Error(), StandardError::TypeMismatch);
}

}  // namespace
}  // namespace plotvane::functions
