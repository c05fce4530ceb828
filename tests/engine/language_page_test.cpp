// docs/language.md: every example on the page gives what the page says.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "tests/engine/calculator.h"

namespace plotvane::engine::test {
namespace {

struct Example {
  std::string line;
  std::string expected;
};

std::string Trimmed(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  text.erase(0, text.find_first_not_of(' '));
  return text;
}

// The examples of each block, in their order.
std::vector<std::vector<Example>> ReadBlocks(const std::string& path) {
  const std::string arrow = "→";
  std::ifstream page(path);
  std::vector<std::vector<Example>> blocks;
  bool inBlock = false;
  for (std::string line; std::getline(page, line);) {
    if (line == "```calc") blocks.emplace_back();
    if (line.starts_with("```")) {
      inBlock = line == "```calc";
    } else if (inBlock) {
      const std::size_t at = line.find(arrow);
      EXPECT_NE(at, std::string::npos) << line;
      blocks.back().push_back({Trimmed(line.substr(0, at)), Trimmed(line.substr(at + arrow.size()))});
    }
  }
  return blocks;
}

// The page does not tell the two catalogues apart by a sign.
std::string AsOnThePage(std::string report) {
  if (report.starts_with("error *")) report.erase(6, 1);
  return report;
}

TEST(LanguagePage, every_example_gives_what_the_page_says) {
  const auto blocks = ReadBlocks(LANGUAGE_PAGE);
  ASSERT_GE(blocks.size(), 8U);
  for (const auto& block : blocks) {
    Calculator calculator;
    for (const Example& example : block) {
      EXPECT_EQ(AsOnThePage(calculator.Report(example.line)), example.expected) << example.line;
    }
  }
}

TEST(LanguagePage, the_table_of_number_modes) {
  std::ifstream page(LANGUAGE_PAGE);
  int rows = 0;
  for (std::string line; std::getline(page, line);) {
    for (const char* mode : {"decimal", "fixed", "octal", "hexadecimal", "binary"}) {
      if (!line.starts_with("| " + std::string(mode) + " |")) continue;
      Calculator calculator;
      calculator.expression.SetFormatMode(mode);
      calculator.expression.SetFixedDecimalPlaces(platform::Value(2.0));
      EXPECT_EQ("| " + std::string(mode) + " | " + calculator.Report("255") + " | " +
                    calculator.Report("2/3") + " | " + calculator.Report("1<2") + " |",
                line);
      ++rows;
    }
  }
  EXPECT_EQ(rows, 5);
}

}  // namespace
}  // namespace plotvane::engine::test
