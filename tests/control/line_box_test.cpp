// clsLineBox: four lines that always outline the rectangle between two corners.
#include <gtest/gtest.h>

#include "control/clsLineBox.h"
#include "control/headless_face.h"

namespace plotvane::control::test {
namespace {

struct Lines {
  StoredLine top, bottom, left, right;
};

struct Box : testing::Test {
  Box() { box.SetLineCntls(lines.top, lines.bottom, lines.left, lines.right); }
  Lines lines;
  clsLineBox box;
};
using LineBox = Box;

TEST_F(LineBox, shows_and_hides_all_four_lines_together) {
  for (const bool visible : {true, false}) {
    box.Visible(visible);
    EXPECT_EQ(box.Visible(), visible);
    for (const StoredLine* line : {&lines.top, &lines.bottom, &lines.left, &lines.right}) {
      EXPECT_EQ(line->visible, visible);
    }
  }
}

struct MoveRow {
  std::int16_t left, top;
  std::int32_t width, height;
  graph::PixelBox expected;
};

TEST_F(LineBox, places_the_lines_as_the_edges_of_the_rectangle) {
  constexpr MoveRow kRows[] = {
      {10, 20, 30, 40, {10, 20, 30, 40}},
      {10, 20, 0, 0, {10, 20, 0, 0}},
      {40, 60, -30, -40, {10, 20, 30, 40}},
      {40, 20, -30, 40, {10, 20, 30, 40}},
      {5, 5, -15, 3, {-10, 5, 15, 3}},
      {-32768, 0, 65535, 1, {-32768, 0, 32767, 1}},  // a size beyond 16 bits is clamped
  };
  for (const MoveRow& row : kRows) {
    box.Move(row.left, row.top, row.width, row.height);
    const graph::PixelBox& e = row.expected;
    EXPECT_EQ((graph::PixelBox{box.Left(), box.Top(), box.Width(), box.Height()}), e);
    const auto right = static_cast<std::int16_t>(e.left + e.width);
    const auto bottom = static_cast<std::int16_t>(e.top + e.height);
    EXPECT_EQ(lines.top.from, (graph::PixelPoint{e.left, e.top}));
    EXPECT_EQ(lines.top.to, (graph::PixelPoint{right, e.top}));
    EXPECT_EQ(lines.bottom.from, (graph::PixelPoint{e.left, bottom}));
    EXPECT_EQ(lines.bottom.to, (graph::PixelPoint{right, bottom}));
    EXPECT_EQ(lines.left.from, (graph::PixelPoint{e.left, e.top}));
    EXPECT_EQ(lines.left.to, (graph::PixelPoint{e.left, bottom}));
    EXPECT_EQ(lines.right.from, (graph::PixelPoint{right, e.top}));
    EXPECT_EQ(lines.right.to, (graph::PixelPoint{right, bottom}));
  }
}

TEST_F(LineBox, each_side_is_written_on_its_own) {
  box.Move(1, 2, 3, 4);
  box.Left(10);
  box.Top(20);
  box.Width(30);
  box.Height(40);
  EXPECT_EQ((graph::PixelBox{box.Left(), box.Top(), box.Width(), box.Height()}),
            (graph::PixelBox{10, 20, 30, 40}));
  EXPECT_EQ(lines.right.to, (graph::PixelPoint{40, 60}));
}

TEST(LineBoxAlone, works_without_lines) {
  clsLineBox box;
  box.Visible(true);
  box.Move(1, 2, 3, 4);
  EXPECT_EQ(box.Width(), 3);
}

}  // namespace
}  // namespace plotvane::control::test
