// Focus: zooms as the host calls them: range, preparation, drawing and messages together.
#include <gtest/gtest.h>

#include "tests/graph/test_graph.h"

namespace plotvane::graph::test {
namespace {

bool Drew(const Log& log) {
  return !LinesStarting(log, "PlotDone").empty();
}

TEST(ZoomOperations, moving_the_range_prepares_but_does_not_draw) {
  TestGraph test(400, 200);
  test.graph.RedrawAll = false;
  test.graph.SetCurrentPoint({3, 4});
  test.graph.MoveRangeToPointXY();
  EXPECT_EQ(test.graph.Xmin, -7);
  EXPECT_EQ(test.graph.Ymax, 14);
  EXPECT_TRUE(test.graph.RedrawAll);
  EXPECT_FALSE(Drew(test.log));
}

TEST(ZoomOperations, zooming_in_about_a_point) {
  TestGraph test(400, 200);
  test.graph.ZX = test.graph.ZY = 2;
  test.graph.ZStandard();
  test.graph.SetCurrentPoint({1, 1});
  test.log.clear();
  test.graph.ZoomInXY();
  EXPECT_EQ(test.graph.Xmin, -4);
  EXPECT_EQ(test.graph.Xmax, 6);
  EXPECT_EQ(test.graph.Ymin, -4);
  EXPECT_EQ(test.graph.Ymax, 6);
  EXPECT_EQ(test.graph.XPixelSize, 0.025);
  EXPECT_TRUE(Drew(test.log));
}

TEST(ZoomOperations, zooming_out_multiplies_the_old_size_even_when_the_edges_were_written) {
  TestGraph test(400, 200);
  test.graph.Xmax = 1000;  // W stays 20
  test.graph.SetCurrentPoint({0, 0});
  test.graph.ZoomOutXY();
  EXPECT_EQ(test.graph.Xmin, -40);
  EXPECT_EQ(test.graph.Xmax, 40);
}

TEST(ZoomOperations, the_clicked_pixel_becomes_the_centre) {
  TestGraph test(400, 200);
  test.graph.ZX = test.graph.ZY = 2;
  test.graph.ZoomInPixel(299.4f, 49.5f);  // column 299 is x = 5, row 50 is y = 5
  EXPECT_DOUBLE_EQ(test.graph.Xmin, 0);
  EXPECT_DOUBLE_EQ(test.graph.Xmax, 10);
  EXPECT_DOUBLE_EQ(test.graph.Ymin, 0);
  EXPECT_DOUBLE_EQ(test.graph.Ymax, 10);
  test.graph.ZStandard();
  test.graph.ZoomOutPixel(199, 100);
  EXPECT_EQ(test.graph.Xmin, -20);
  EXPECT_EQ(test.graph.Ymax, 20);
}

TEST(ZoomOperations, a_pixel_outside_16_bits_is_an_overflow) {
  TestGraph test(400, 200);
  EXPECT_EQ(ErrorOf([&] { test.graph.ZoomInPixel(1e9f, 0); }), 6);
  EXPECT_FALSE(Drew(test.log));
}

TEST(ZoomOperations, a_zero_factor_fails_before_anything_is_drawn) {
  TestGraph test(400, 200);
  test.graph.ZX = 0;
  EXPECT_EQ(ErrorOf([&] { test.graph.ZoomInXY(); }), 11);
  EXPECT_FALSE(Drew(test.log));
}

TEST(ZoomOperations, a_factor_below_one_works_the_other_way_round) {
  TestGraph test(400, 200);
  test.graph.ZX = test.graph.ZY = 0.5f;
  test.graph.ZoomInXY();
  EXPECT_EQ(test.graph.Xmax, 20);
}

TEST(ZoomOperations, zooming_to_a_box_draws) {
  TestGraph test(400, 200);
  test.frame.zoomBox = {199, 50, 100, 20};
  test.graph.ZBoxPixel();
  EXPECT_DOUBLE_EQ(test.graph.Xmin, 0);
  EXPECT_DOUBLE_EQ(test.graph.Xmax, 5);
  EXPECT_EQ(test.graph.XPixelSize, 5.0 / 400);
  EXPECT_TRUE(Drew(test.log));
}

TEST(ZoomOperations, an_empty_box_is_refused_with_a_message_and_loses_the_width) {
  TestGraph test(400, 200);
  test.frame.zoomBox = {50, 50, 0, 20};
  test.graph.ZBoxPixel();
  EXPECT_EQ(test.log,
            (Log{"message Invalid selection. Neither height nor width can be zero!|ZBox Range Error|error"}));
  EXPECT_EQ(test.graph.W, 0);
  EXPECT_EQ(test.graph.Xmin, -10);
  // A later zoom multiplies the zero, until a preset sets the width again.
  test.log.clear();
  test.graph.ZoomOutXY();
  EXPECT_EQ(test.graph.W, 0);
  EXPECT_EQ(test.log[0], "message Invalid Range! You should change X Max and X Min||none");
  test.graph.ZStandard();
  EXPECT_EQ(test.graph.W, 20);
}

TEST(ZoomOperations, presets_prepare_and_draw) {
  TestGraph test(400, 200);
  test.graph.ZStandard();
  EXPECT_EQ(test.graph.XPixelSize, 0.05);
  EXPECT_EQ(test.graph.YPixelSize, 0.1);
  EXPECT_TRUE(Drew(test.log));
  test.log.clear();
  test.graph.SetDegreeMode(true);
  test.graph.ZTrig();
  EXPECT_EQ(test.graph.Xmax, 405);
  EXPECT_EQ(test.graph.XPixelSize, 810.0 / 400);
  EXPECT_TRUE(Drew(test.log));
}

TEST(ZoomOperations, number_windows_keep_their_pixel_size_exactly) {
  TestGraph test(401, 200);
  test.graph.ZInt();
  EXPECT_EQ(test.graph.XPixelSize, 1);  // 402 / 401 from the edges
  EXPECT_EQ(test.graph.Xmax, 201);
  test.graph.ZDec();
  EXPECT_EQ(test.graph.XPixelSize, 0.1);
  EXPECT_TRUE(Drew(test.log));
  EXPECT_FALSE(test.graph.RedrawAll);
  EXPECT_EQ(ErrorOf([&] { test.graph.ZNum(0); }), 11);
}

}  // namespace
}  // namespace plotvane::graph::test
