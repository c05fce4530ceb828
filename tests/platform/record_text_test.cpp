// Records of comma-separated fields: exact bytes when written, tolerance and refusals when read.
#include "platform/record_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/platform/run_time_error_number.h"

namespace plotvane::platform {
namespace {

using tests::RunTimeErrorNumber;
using Fields = std::vector<Value>;

std::vector<Fields> ReadAll(const std::string& bytes, std::size_t count) {
  std::istringstream stream(bytes);
  RecordReader reader(stream);
  std::vector<Fields> records;
  while (reader.HasRecord()) records.push_back(reader.ReadRecord(count));
  return records;
}

std::int32_t ReadError(const std::string& bytes, std::size_t count) {
  return RunTimeErrorNumber([&] { (void)ReadAll(bytes, count); });
}

TEST(RecordText, writes_each_kind_of_field_in_its_form) {
  struct Case {
    Fields fields;
    const char* text;
  };
  const Case cases[] = {
      {{Value("Pi"), Value(3.14159265358979), Value(9.0), Value("Pi")},
       "\"Pi\",3.14159265358979,9,\"Pi\"\r\n"},
      {{Value("gc"), Value(6.67259e-11)}, "\"gc\",6.67259E-11\r\n"},
      {{Value(true), Value(false)}, "#TRUE#,#FALSE#\r\n"},
      {{Value("x"), Value(), Value(2.0), Value("")}, "\"x\",,2,\"\"\r\n"},
      {{Value("say \"ah\"")}, "\"say \"\"ah\"\"\"\r\n"},
      {{Value("a,b\r\nc")}, "\"a,b\r\nc\"\r\n"},
      {{Value(-0.1 - 0.2), Value(1e15), Value(-0.0)}, "-0.30000000000000004,1E+15,0\r\n"},
      {{Value(), Value()}, ",\r\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(RecordText(c.fields), c.text);
}

TEST(RecordReader, reads_back_what_was_written) {
  const Fields fields = {Value("a \"quoted\"\r\n, text"), Value(1.0 / 3), Value(true), Value(),
                         Value("\xC3\xA9")};
  const std::string bytes = RecordText(fields) + RecordText(fields);
  EXPECT_EQ(ReadAll(bytes, fields.size()), (std::vector<Fields>{fields, fields}));
}

TEST(RecordReader, takes_other_programs_line_ends_blanks_and_a_byte_order_mark) {
  const std::vector<Fields> expected = {{Value("x"), Value(5.0)}, {Value("y"), Value(6.0)}};
  const char* const cases[] = {
      "\"x\",5\r\n\"y\",6\r\n",
      "\"x\",5\n\"y\",6\n",
      "\"x\",5\n\"y\",6",
      "\"x\",5\r\n\"y\",6\r",
      "\xEF\xBB\xBF\"x\",5\n\"y\",6\n",
      "\n\r\n  \t\n\"x\",5\n\n\n\"y\",6\n\n \n",
      "  \"x\" ,\t5 \r\n\"y\" , 6",
  };
  for (const char* bytes : cases) EXPECT_EQ(ReadAll(bytes, 2), expected) << bytes;
}

TEST(RecordReader, keeps_line_ends_inside_quotes) {
  EXPECT_EQ(ReadAll("\"a\nb\r\nc\rd\",1\n", 2), (std::vector<Fields>{{Value("a\nb\r\nc\rd"), Value(1.0)}}));
}

TEST(RecordReader, reads_nothing_from_an_empty_file) {
  for (const char* bytes : {"", "\r\n", "\n\n \t", "\xEF\xBB\xBF", "\xEF\xBB\xBF\r\n"}) {
    EXPECT_TRUE(ReadAll(bytes, 2).empty()) << bytes;
  }
}

TEST(RecordReader, refuses_a_damaged_record_as_input_past_the_end) {
  const char* const cases[] = {
      "\"x\"\n",      // too few fields
      "\"x\",5,6\n",  // too many
      "\"x\",5,\n",   // too many, the last one empty
      "\"x,5\n",      // a quote that never closes
      "\"x\",\"5",    // the same at the end
      "\"x\"y,5\n",   // characters after a closing quote
      "\"x\" \"y\",5\n",
      "abc\n",  // too few fields, though the kind is wrong as well
      "a,b,c\n",
  };
  for (const char* bytes : cases) EXPECT_EQ(ReadError(bytes, 2), 62) << bytes;
}

TEST(RecordReader, refuses_a_field_that_is_no_text_number_or_boolean) {
  const char* const cases[] = {"x,5\n",        "\"x\",abc\n",  "\"x\",5 6\n",   "\"x\",#YES#\n",
                               "\"x\",5\r6\n", "\"x\",&HFF\n", "\"x\",a\"b\"\n"};
  for (const char* bytes : cases) EXPECT_EQ(ReadError(bytes, 2), 13) << bytes;
  EXPECT_EQ(ReadError("\"x\",1e999\n", 2), 6);
}

TEST(RecordReader, goes_on_after_a_damaged_record) {
  for (const char* damaged : {"\"x\"\n", "\"x\"y,5\n", "\"x\",5,6\n", "\"x\",no\n"}) {
    std::istringstream stream(damaged + std::string("\"y\",6\n"));
    RecordReader reader(stream);
    EXPECT_NE(RunTimeErrorNumber([&] { (void)reader.ReadRecord(2); }), 0);
    EXPECT_EQ(reader.ReadRecord(2), (Fields{Value("y"), Value(6.0)})) << damaged;
  }
}

TEST(RecordReader, fails_past_the_end) {
  std::istringstream stream("\n");
  RecordReader reader(stream);
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)reader.ReadRecord(1); }), 62);
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)reader.ReadLine(); }), 62);
}

TEST(RecordReader, survives_gigantic_lines_and_rubbish) {
  EXPECT_EQ(ReadError(std::string(10'000'000, 'x'), 2), 13);
  EXPECT_EQ(ReadError(std::string(10'000'000, '\0'), 2), 13);
  EXPECT_EQ(ReadError(std::string(10'000'000, ','), 2), 62);
  EXPECT_EQ(ReadError(std::string(10'000'000, '"') + "x", 2), 62);
  const std::string text(1'000'000, 'x');
  EXPECT_EQ(ReadAll("\"" + text + "\"", 1), (std::vector<Fields>{{Value(text)}}));
  EXPECT_EQ(ReadError("\xEF\xBB\n", 2), 62);  // only the front of a byte-order mark
}

TEST(RecordReader, reads_plain_lines_as_they_are) {
  std::istringstream stream(
      "\xEF\xBB\xBF"
      " a \r\n\n\"b\nlast");
  RecordReader reader(stream);
  std::vector<std::string> lines;
  while (!reader.AtEnd()) lines.push_back(reader.ReadLine());
  EXPECT_EQ(lines, (std::vector<std::string>{" a ", "", "\"b", "last"}));
}

}  // namespace
}  // namespace plotvane::platform
