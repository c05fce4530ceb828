// Focus: plotvane calc: its options, both reports, lines of standard input, exit statuses.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "tests/hosts/program_run.h"

namespace plotvane::terminal::test {
namespace {

using namespace std::string_literals;
using Words = std::vector<std::string>;

Outcome Calc(Words words) {
  words.insert(words.begin(), "calc");
  return RunProgram(words);
}

Outcome CalcLines(Words words, const std::string& lines) {
  const std::string path = testing::TempDir() + "plotvane_lines.txt";
  std::ofstream(path, std::ios::binary) << lines;
  words.insert(words.begin(), "calc");
  return RunProgram(words, path);
}

TEST(CalcCommand, expressions_of_the_command_line_share_their_variables) {
  const Outcome outcome = Calc({"x=2", "x^10", "1;2"});
  EXPECT_EQ(outcome.out, "2\n1024\n1 : 2\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST(CalcCommand, an_expression_may_begin_with_a_sign_or_a_bracket) {
  EXPECT_EQ(Calc({"-2^2"}).out, "-4\n");
  EXPECT_EQ(Calc({"--", "-2^2", "-(1)"}).out, "-4\n-1\n");
  EXPECT_EQ(Calc({"x=3", "-x^2", "-(1)", "-sqr(x+1)"}).out, "3\n-9\n-1\n-2\n");
  EXPECT_EQ(Calc({"x=3", "--", "--x", "-x"}).out, "3\n2\n-2\n");
  EXPECT_EQ(Calc({"[1+2]*3", "{2}"}).out, "9\n2\n");
}

TEST(CalcCommand, options_are_known_before_between_and_behind_the_expressions) {
  EXPECT_EQ(Calc({"-x", "--mode", "octal", "x=-8", "--degrees", "sin(-90)", "--places=2", "-x"}).out,
            Calc({"--mode", "octal", "--degrees", "--places", "2", "--", "-x", "x=-8", "sin(-90)", "-x"}).out);
  EXPECT_EQ(Calc({"x=8", "--mode", "octal", "-x+9"}).out, "&O10\n&O1\n");
  EXPECT_EQ(Calc({"--mode", "fixed", "--places", "-2", "-1234"}).out, "-1200\n");
  EXPECT_EQ(Calc({"-1", "--help"}).status, 0);
  EXPECT_EQ(Calc({"--mode"}).status, 2);
}

TEST(CalcCommand, lines_go_on_after_an_error) {
  const Outcome outcome = CalcLines({}, "1+1\n1/0\nfoo\n2+2");
  EXPECT_EQ(outcome.out, "2\n4\n");
  EXPECT_EQ(outcome.err, "Division by zero\nUndefined function or identifier.\n");
  EXPECT_EQ(outcome.status, 1);
}

TEST(CalcCommand, lines_end_with_or_without_a_carriage_return) {
  EXPECT_EQ(CalcLines({}, "1+1\r\n2+2\r\n3+3").out, "2\n4\n6\n");
  EXPECT_EQ(CalcLines({"--report", "tsv"}, "1\r\r\n").out, "ok\t1\n");
}

TEST(CalcCommand, the_tsv_report_has_a_line_for_each_line) {
  const Outcome outcome = CalcLines({"--report", "tsv"}, "2^3^2\n1+2;3*4\n(1+2]\n1/0\n\n\x0b\n1+\0002\n"s);
  EXPECT_EQ(outcome.out, std::string("ok\t64\nok\t3 : 12\nerr\t0\t2\t\tExpected a match to '(', and got ']'\n"
                                     "err\t11\t0\tDivision by zero\t\nerr\t0\t1\t\tSyntax error ''\n"
                                     "err\t0\t1\t\tSyntax error '\x0b'\nerr\t0\t1\t\tSyntax error '") +
                             std::string(1, '\0') + "'\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST(CalcCommand, tabs_and_line_ends_inside_a_text_are_escaped) {
  EXPECT_EQ(Calc({"--report", "tsv", "&\t", "&\n", "&\r"}).out,
            "err\t0\t7\t\tInvalid base specification '&\\t'\nerr\t0\t7\t\tInvalid base specification '&\\n'\n"
            "err\t0\t7\t\tInvalid base specification '&\\r'\n");
}

TEST(CalcCommand, options) {
  EXPECT_EQ(Calc({"--mode", "hexadecimal", "255"}).out, "&HFF\n");
  EXPECT_EQ(Calc({"--mode", "fixed", "--places", "2", "2/3"}).out, ".67\n");
  EXPECT_EQ(Calc({"--mode", "fixed", "--places", "-2", "1234"}).out, "1200\n");
  EXPECT_EQ(Calc({"--degrees", "sin(30)"}).out, "0.5\n");
  EXPECT_EQ(Calc({"--numeric", "--report", "tsv", "1;2"}).out,
            "err\t0\t8\t\tResult is not numeric. A numeric result is required.\n");
  EXPECT_EQ(Calc({"--graph", "--report", "tsv", "1/0", "foo"}).out,
            "err\t0\t0\t\t\nerr\t0\t12\t\tUndefined function or identifier.\n");
  EXPECT_EQ(Calc({"--replay", "&H10", "y++", "y"}).out, "16\n1\n2\n");
  EXPECT_EQ(Calc({"--chem", "he"}).status, 0);
  EXPECT_EQ(Calc({"he"}).status, 1);
}

TEST(CalcCommand, bad_usage_is_one_line_and_status_2) {
  for (const Words& words : {Words{"--bogus"}, Words{"--mode", "hex", "1"}, Words{"--places", "128", "1"},
                             Words{"--places", "two", "1"}, Words{"--report", "xml", "1"}, Words{"--mode"}}) {
    const Outcome outcome = Calc(words);
    EXPECT_EQ(outcome.status, 2) << words[0];
    EXPECT_EQ(outcome.out, "") << words[0];
    EXPECT_TRUE(outcome.err.starts_with("plotvane: ")) << outcome.err;
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
  }
  EXPECT_EQ(RunProgram({}).status, 2);
  EXPECT_EQ(RunProgram({"frobnicate"}).status, 2);
  EXPECT_EQ(RunProgram({"--help"}).status, 0);
  EXPECT_EQ(RunProgram({"--version"}).out, "plotvane 45.0.0\n");
}

TEST(CalcCommand, a_variable_file_that_cannot_be_read_is_status_1) {
  const std::string path = testing::TempDir() + "plotvane_damaged.txt";
  std::ofstream(path) << "\"x\n";
  const Outcome outcome = Calc({"--variables", path, "1"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "plotvane: Input past end of file\n");
}

}  // namespace
}  // namespace plotvane::terminal::test
