// The layout: nothing clipped, nothing overlapping, the surface fills the rest, at every size and resolution.
#include <gtest/gtest.h>

#include "control/layout.h"

namespace plotvane::control::test {
namespace {

// A font whose characters are as wide as the digits; it grows with the resolution.
FaceMetrics MetricsAt(int dpi) {
  FaceMetrics metrics;
  metrics.dpi = dpi;
  metrics.lineHeight = ScalePixels(13, dpi);
  metrics.digitWidth = ScalePixels(6, dpi);
  for (std::size_t i = 0; i < kToolBarItemCount; ++i) {
    metrics.captionWidths[i] =
        metrics.digitWidth * static_cast<int>(CaptionWithoutMnemonic(kToolBarItems[i].caption).size());
  }
  return metrics;
}

bool Overlap(const PixelRect& a, const PixelRect& b) {
  return !a.IsEmpty() && !b.IsEmpty() && a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() &&
         b.top < a.Bottom();
}

bool Within(const PixelRect& inner, const PixelRect& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.Right() <= outer.Right() &&
         inner.Bottom() <= outer.Bottom();
}

constexpr int kResolutions[] = {96, 120, 144, 192};

TEST(Layout, holds_its_promises_from_one_pixel_to_thousands_at_every_resolution) {
  for (const int dpi : kResolutions) {
    const FaceMetrics metrics = MetricsAt(dpi);
    for (const int width : {1, 20, 63, 100, 200, 333, 500, 800, 1920, 7680}) {
      for (const int height : {1, 15, 40, 90, 200, 377, 600, 1080, 4320}) {
        const ControlLayout layout = LayOut({width, height}, true, metrics);
        SCOPED_TRACE(testing::Message() << width << "x" << height << " at " << dpi);
        const PixelRect control{0, 0, width, height};
        EXPECT_GE(layout.surface.height, 1);
        EXPECT_EQ(layout.surface.width, width);
        for (const PixelRect& part : {layout.surface, layout.simple, layout.statusBar1}) {
          EXPECT_TRUE(Within(part, control));
        }
        EXPECT_EQ(
            layout.toolBar.height + layout.surface.height + layout.simple.height + layout.statusBar1.height,
            height);
        for (std::size_t i = 0; i < kToolBarItemCount; ++i) {
          const PixelRect& item = layout.items[i];
          if (item.IsEmpty()) continue;
          EXPECT_TRUE(Within(item, layout.toolBar)) << kToolBarItems[i].name;
          EXPECT_GE(item.width, metrics.captionWidths[i]) << kToolBarItems[i].name;
          EXPECT_GE(item.height, metrics.lineHeight) << kToolBarItems[i].name;
          for (std::size_t k = 0; k < i; ++k) EXPECT_FALSE(Overlap(item, layout.items[k]));
        }
      }
    }
  }
}

TEST(Layout, a_wide_control_has_all_buttons_in_one_row) {
  for (const int dpi : kResolutions) {
    const ControlLayout layout = LayOut({ScalePixels(700, dpi), ScalePixels(400, dpi)}, true, MetricsAt(dpi));
    int right = 0;
    for (std::size_t i = 0; i < kToolBarItemCount; ++i) {
      EXPECT_GE(layout.items[i].left, right) << kToolBarItems[i].name;
      right = layout.items[i].Right();
    }
    EXPECT_EQ(layout.items[IndexOf(ToolBarItem::cmdGraph)].top,
              layout.items[IndexOf(ToolBarItem::cmdEval)].top);
  }
}

TEST(Layout, a_narrow_control_wraps_the_buttons_and_keeps_the_number_box_with_its_label) {
  const ControlLayout layout = LayOut({200, 400}, true, MetricsAt(96));
  EXPECT_GT(layout.items[IndexOf(ToolBarItem::cmdEval)].top,
            layout.items[IndexOf(ToolBarItem::cmdGraph)].Bottom());
  const PixelRect& label = layout.items[IndexOf(ToolBarItem::lblUserCurY)];
  const PixelRect& box = layout.items[IndexOf(ToolBarItem::txtUserCurY)];
  const PixelRect& spinner = layout.items[IndexOf(ToolBarItem::vscUpDown)];
  EXPECT_EQ(label.Right(), box.left);
  EXPECT_EQ(box.Right(), spinner.left);
  EXPECT_EQ(box.top, spinner.top);
}

TEST(Layout, the_toolbar_leaves_half_of_the_height_to_the_surface) {
  const ControlLayout layout = LayOut({80, 200}, true, MetricsAt(96));
  EXPECT_FALSE(layout.toolBar.IsEmpty());
  EXPECT_GE(layout.surface.height, layout.toolBar.height);
  EXPECT_TRUE(layout.items[IndexOf(ToolBarItem::txtUserCurY)].IsEmpty());
}

TEST(Layout, the_status_boxes_give_way_in_a_low_control) {
  const ControlLayout layout = LayOut({400, 60}, true, MetricsAt(96));
  EXPECT_TRUE(layout.simple.IsEmpty());
  EXPECT_TRUE(layout.statusBar1.IsEmpty());
}

TEST(Layout, without_toolbar_the_surface_begins_at_the_top) {
  const ControlLayout layout = LayOut({400, 300}, false, MetricsAt(96));
  EXPECT_TRUE(layout.toolBar.IsEmpty());
  EXPECT_EQ(layout.surface.top, 0);
  for (const PixelRect& item : layout.items) EXPECT_TRUE(item.IsEmpty());
}

TEST(Layout, the_status_boxes_are_two_lines_at_the_bottom) {
  const ControlLayout layout = LayOut({500, 400}, true, MetricsAt(96));
  EXPECT_EQ(layout.surface.Bottom(), layout.simple.top);
  EXPECT_EQ(layout.simple.Bottom(), layout.statusBar1.top);
  EXPECT_EQ(layout.statusBar1.Bottom(), 400);
}

TEST(Layout, distances_grow_with_the_resolution) {
  EXPECT_EQ(ScalePixels(3, 96), 3);
  EXPECT_EQ(ScalePixels(3, 120), 4);
  EXPECT_EQ(ScalePixels(3, 144), 5);
  EXPECT_EQ(ScalePixels(3, 192), 6);
  EXPECT_EQ(ScalePixels(1, 24), 1);
}

}  // namespace
}  // namespace plotvane::control::test
