// Recorded token lists, and the two stacks.
#include <gtest/gtest.h>

#include "engine/clsStack.h"
#include "engine/clsStackl.h"
#include "platform/runtime_error.h"
#include "tests/engine/calculator.h"

namespace plotvane::engine::test {
namespace {

TEST(PreParsedExpression, a_recording_ends_with_the_end_token) {
  Calculator calculator;
  EXPECT_EQ(calculator.Record("1+2"), "3");
  clsPreParsedExpression& list = *calculator.expression.GetPPE();
  EXPECT_EQ(list.NumberOfTokens(), 4);
  std::string kinds;
  std::string token;
  std::string spelling;
  list.SetNextToBeginning();
  while (list.GetNext(token, spelling)) kinds += "[" + token + " " + spelling + "]";
  EXPECT_EQ(kinds, "[num 1][+ +][num 2][ ]");
  EXPECT_EQ(list.GetSpellingString(), "1+2");
}

TEST(PreParsedExpression, the_spelling_string_has_nothing_between_the_tokens) {
  Calculator calculator;
  for (const auto& [line, expected] :
       {std::pair{"2 * pi", "2*pi"}, {"1 mod 2", "1mod2"}, {"&H1F", "1f"}, {" 1 + ( 2 )", "1+(2)"}}) {
    calculator.Record(line);
    EXPECT_EQ(calculator.expression.GetPPE()->GetSpellingString(), expected);
  }
}

TEST(PreParsedExpression, GetNext_past_the_end_is_false_and_leaves_the_arguments_alone) {
  clsPreParsedExpression list;
  list.Add("num", "1");
  std::string token = "t";
  std::string spelling = "s";
  EXPECT_TRUE(list.GetNext(token, spelling));
  EXPECT_EQ(token, "num");
  EXPECT_EQ(spelling, "1");
  for (int i = 0; i < 3; ++i) {
    token = "t";
    EXPECT_FALSE(list.GetNext(token, spelling));
    EXPECT_EQ(token, "t");
  }
  list.SetNextToBeginning();
  EXPECT_TRUE(list.GetNext(token, spelling));
  EXPECT_EQ(token, "num");
}

TEST(PreParsedExpression, RemoveAll_leaves_nothing_and_begins_again) {
  clsPreParsedExpression list;
  list.Add("num", "1");
  std::string token;
  std::string spelling;
  EXPECT_TRUE(list.GetNext(token, spelling));
  list.RemoveAll();
  EXPECT_EQ(list.NumberOfTokens(), 0);
  EXPECT_FALSE(list.GetNext(token, spelling));
  list.Add("id", "x");
  list.SetNextToBeginning();
  EXPECT_TRUE(list.GetNext(token, spelling));
  EXPECT_EQ(spelling, "x");
}

TEST(PreParsedExpression, kinds_that_no_rule_knows_come_back_as_they_were) {
  clsPreParsedExpression list;
  list.Add("strange", "words");
  list.Add("+", "plus");
  std::string token;
  std::string spelling;
  EXPECT_TRUE(list.GetNext(token, spelling));
  EXPECT_EQ(token + "/" + spelling, "strange/words");
  EXPECT_TRUE(list.GetNext(token, spelling));
  EXPECT_EQ(token + "/" + spelling, "+/plus");
}

TEST(PreParsedExpression, a_list_made_by_hand_is_evaluated_by_its_kinds) {
  auto list = std::make_shared<clsPreParsedExpression>();
  list->Add("num", "6");
  list->Add("*", "times");
  list->Add("num", "7");
  clsExp expression;
  platform::Value result;
  EXPECT_TRUE(expression.EvaluatePreParsedExpression(list, result));
  EXPECT_EQ(result.ToText(), "42");
}

TEST(PreParsedExpression, takes_32767_tokens_and_not_one_more) {
  clsPreParsedExpression list;
  for (int i = 0; i < 32767; ++i) list.Add("num", "1");
  EXPECT_EQ(list.NumberOfTokens(), 32767);
  EXPECT_THROW(list.Add("num", "1"), platform::RunTimeError);
  EXPECT_FALSE(list.Append(Token{}));
  EXPECT_EQ(list.NumberOfTokens(), 32767);
}

TEST(PreParsedExpression, a_copy_changes_by_itself) {
  clsPreParsedExpression list;
  list.Add("num", "1");
  clsPreParsedExpression copy = list;
  copy.Add("num", "2");
  EXPECT_EQ(list.GetSpellingString(), "1");
  EXPECT_EQ(copy.GetSpellingString(), "12");
}

TEST(Stack, pops_what_was_pushed_last_and_the_empty_text_when_empty) {
  clsStack stack;
  EXPECT_TRUE(stack.EmptyStack());
  EXPECT_EQ(stack.Pop(), "");
  stack.Push("(");
  stack.Push("[");
  EXPECT_FALSE(stack.EmptyStack());
  EXPECT_EQ(stack.GetArray(), (std::vector<std::string>{"(", "["}));
  EXPECT_EQ(stack.Pop(), "[");
  EXPECT_EQ(stack.Pop(), "(");
  EXPECT_EQ(stack.Pop(), "");
  EXPECT_TRUE(stack.GetArray().empty());
}

TEST(Stack, grows_by_six_slots) {
  clsStackl stack;
  EXPECT_EQ(stack.Slots(), 1U);
  EXPECT_EQ(stack.Pop(), 0);
  for (std::int32_t item = 1; item <= 7; ++item) stack.Push(item);
  EXPECT_EQ(stack.Slots(), 7U);
  stack.Push(8);
  EXPECT_EQ(stack.Slots(), 13U);
  for (std::int32_t item = 8; item >= 1; --item) EXPECT_EQ(stack.Pop(), item);
}

TEST(Stack, a_push_beyond_32767_items_is_error_6) {
  clsStackl stack;
  for (std::int32_t item = 1; item <= 32767; ++item) stack.Push(item);
  EXPECT_THROW(stack.Push(0), platform::RunTimeError);
  EXPECT_EQ(stack.Pop(), 32767);
}

}  // namespace
}  // namespace plotvane::engine::test
