// Focus: the path of a function point by point, its record in a file, and what a copy carries.
#include "graph/clsYGraph.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "platform/open_files.h"
#include "tests/graph/run_time_error.h"

namespace plotvane::graph {
namespace {

using platform::FileMode;
using platform::ScopedFile;
using test::ErrorOf;

clsYGraph WithPoints(std::int16_t count) {
  clsYGraph function;
  function.Redimension(count);
  return function;
}

TEST(ClsYGraph, a_new_path_is_empty_and_stands_at_its_first_point) {
  const clsYGraph function;
  EXPECT_EQ(function.NumberOfPixels(), 0);
  EXPECT_EQ(function.CurrentPixelIndex(), 1);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(function.GetXPath()); }), 9);
}

TEST(ClsYGraph, next_at_the_last_point_wraps_to_the_first_and_says_so) {
  clsYGraph function = WithPoints(2);
  EXPECT_TRUE(function.NextPixel());
  EXPECT_EQ(function.CurrentPixelIndex(), 2);
  EXPECT_FALSE(function.NextPixel());
  EXPECT_EQ(function.CurrentPixelIndex(), 1);
}

TEST(ClsYGraph, previous_at_the_first_point_wraps_to_the_last_and_says_so) {
  clsYGraph function = WithPoints(3);
  EXPECT_FALSE(function.PreviousPixel());
  EXPECT_EQ(function.CurrentPixelIndex(), 3);
  EXPECT_TRUE(function.PreviousPixel());
  EXPECT_EQ(function.CurrentPixelIndex(), 2);
}

TEST(ClsYGraph, saving_moves_on_without_wrapping) {
  clsYGraph function = WithPoints(2);
  function.SetIsBadPixel(true);
  function.SaveXYPathThenNext(-1, 7);
  function.SaveXYPathThenNext(1, 8);
  EXPECT_EQ(function.CurrentPixelIndex(), 3);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(function.GetYPath()); }), 9);
  EXPECT_EQ(ErrorOf([&] { function.SetIsBadPixel(true); }), 9);
  EXPECT_EQ(ErrorOf([&] { function.SaveXYPathThenNext(1, 1); }), 9);
  function.SetPixelToFirst();
  EXPECT_EQ(function.GetXPath(), -1);
  EXPECT_EQ(function.GetYPath(), 7);
  EXPECT_FALSE(function.GetIsBadPixel());
}

TEST(ClsYGraph, coordinates_and_flags_are_written_at_the_index) {
  clsYGraph function = WithPoints(2);
  function.NextPixel();
  function.SetXPath(-32768);
  function.SetYPath(32767);
  function.SetIsBadPixel(true);
  EXPECT_EQ(function.GetXPath(), -32768);
  EXPECT_EQ(function.GetYPath(), 32767);
  EXPECT_TRUE(function.GetIsBadPixel());
}

TEST(ClsYGraph, redimension_clears_everything) {
  clsYGraph function = WithPoints(2);
  function.SaveXYPathThenNext(5, 6);
  function.SetIsBadPixel(true);
  function.Redimension(3);
  EXPECT_EQ(function.NumberOfPixels(), 3);
  EXPECT_EQ(function.CurrentPixelIndex(), 1);
  do {
    EXPECT_EQ(function.GetXPath(), 0);
    EXPECT_EQ(function.GetYPath(), 0);
    EXPECT_FALSE(function.GetIsBadPixel());
  } while (function.NextPixel());
  EXPECT_EQ(ErrorOf([&] { function.Redimension(-1); }), 9);
}

TEST(ClsYGraph, a_copy_carries_neither_the_path_nor_its_validity) {
  clsYGraph from = WithPoints(4);
  from.Equation = "x^2";
  from.Enabled = true;
  from.DrawStyle = 3;
  from.DrawColor = 255;
  from.QuickRedraw = true;
  clsYGraph to;
  to.CopyData(from);
  EXPECT_EQ(to.Equation, "x^2");
  EXPECT_TRUE(to.Enabled);
  EXPECT_EQ(to.DrawStyle, 3);
  EXPECT_EQ(to.DrawColor, 255);
  EXPECT_FALSE(to.QuickRedraw);
  EXPECT_EQ(to.NumberOfPixels(), 0);
}

class ClsYGraphRecord : public testing::Test {
 protected:
  ~ClsYGraphRecord() override { std::filesystem::remove(mPath); }

  void WriteText(const std::string& text) const { std::ofstream(mPath, std::ios::binary) << text; }
  [[nodiscard]] std::string ReadText() const {
    std::ostringstream text;
    text << std::ifstream(mPath, std::ios::binary).rdbuf();
    return text.str();
  }
  [[nodiscard]] std::int32_t Load(clsYGraph& function) const {
    const ScopedFile file(mPath, FileMode::Input);
    return ErrorOf([&] { function.LoadDataFromOpenFile(file.Number()); });
  }

  std::string mPath = testing::TempDir() + "plotvane_function_record.txt";
};

TEST_F(ClsYGraphRecord, is_one_line_of_four_fields) {
  clsYGraph function;
  function.Equation = "say(\"x\")";
  function.Enabled = true;
  function.DrawStyle = -2;
  function.DrawColor = 16711680;
  {
    const ScopedFile file(mPath, FileMode::Output);
    function.SaveDataToOpenFile(file.Number());
    function.Enabled = false;
    function.SaveDataToOpenFile(file.Number());
  }
  EXPECT_EQ(ReadText(),
            "\"say(\"\"x\"\")\",#TRUE#,-2,16711680\r\n"
            "\"say(\"\"x\"\")\",#FALSE#,-2,16711680\r\n");
}

TEST_F(ClsYGraphRecord, is_read_back_without_path_and_validity) {
  WriteText("\"sin(x)\",#TRUE#,1,255\r\n");
  clsYGraph function;
  ASSERT_EQ(Load(function), 0);
  EXPECT_EQ(function.Equation, "sin(x)");
  EXPECT_TRUE(function.Enabled);
  EXPECT_EQ(function.DrawStyle, 1);
  EXPECT_EQ(function.DrawColor, 255);
  EXPECT_FALSE(function.QuickRedraw);
}

TEST_F(ClsYGraphRecord, a_damaged_record_is_refused_and_changes_nothing) {
  struct Case {
    const char* text;
    std::int32_t error;
  };
  for (const Case& c : {Case{"", 62},
                        {"\"x\",#TRUE#,1\r\n", 62},
                        {"\"x\",#TRUE#,1,2,3\r\n", 62},
                        {"1,#TRUE#,1,2\r\n", 13},
                        {"\"x\",1,1,2\r\n", 13},
                        {"\"x\",#TRUE#,\"a\",2\r\n", 13},
                        {"\"x\",#TRUE#,1,#TRUE#\r\n", 13},
                        {"\"x\",#TRUE#,1,3000000000\r\n", 6}}) {
    WriteText(c.text);
    clsYGraph function;
    function.Equation = "before";
    function.DrawStyle = 77;
    EXPECT_EQ(Load(function), c.error) << c.text;
    EXPECT_EQ(function.Equation, "before") << c.text;
    EXPECT_EQ(function.DrawStyle, 77) << c.text;
  }
}

TEST_F(ClsYGraphRecord, needs_an_open_file) {
  clsYGraph function;
  EXPECT_EQ(ErrorOf([&] { function.SaveDataToOpenFile(77); }), 52);
  EXPECT_EQ(ErrorOf([&] { function.LoadDataFromOpenFile(0); }), 52);
}

}  // namespace
}  // namespace plotvane::graph
