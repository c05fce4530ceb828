#include "control/layout.h"

#include <algorithm>
#include <vector>

namespace plotvane::control {
namespace {

// Distances at 96 dots per inch.
constexpr int kStripMargin = 3;
constexpr int kItemGap = 2;
constexpr int kLabelGap = 6;  // before the label, which belongs to the box after it
constexpr int kButtonPaddingX = 8;
constexpr int kButtonPaddingY = 5;
constexpr int kLeastButtonWidth = 36;
constexpr int kBoxPadding = 4;
constexpr int kBoxLineGap = 2;  // above and below the line of a box
constexpr int kBoxEdge = 2;     // the sunken edge, in pixels at every resolution
constexpr int kNumberDigits = 5;
constexpr int kSpinnerWidth = 17;

// Of a one-line box with its edge.
int BoxHeight(const FaceMetrics& metrics) {
  return metrics.lineHeight + 2 * (kBoxEdge + ScalePixels(kBoxLineGap, metrics.dpi));
}

// Controls that stay side by side in one row: a button alone, or the label with its box and spinner.
struct ItemGroup {
  std::size_t first;
  std::size_t count;
  int width;
};

class StripLayout {
 public:
  StripLayout(int stripWidth, const FaceMetrics& metrics)
      : mMetrics(metrics),
        mMargin(Scaled(kStripMargin)),
        mGap(Scaled(kItemGap)),
        mRowHeight(metrics.lineHeight + 2 * Scaled(kButtonPaddingY)),
        mStripWidth(stripWidth) {}

  [[nodiscard]] int HeightOfRows(int rows) const {
    return rows <= 0 ? 0 : 2 * mMargin + rows * mRowHeight + (rows - 1) * mGap;
  }

  // Fills `items` row by row as long as the strip is not higher than `greatestHeight`; returns its height.
  int Place(int greatestHeight, std::array<PixelRect, kToolBarItemCount>& items) const {
    int row = 0;
    int left = mMargin;
    int usedRows = 0;
    for (const ItemGroup& group : Groups()) {
      if (group.width + 2 * mMargin > mStripWidth) continue;
      if (left + group.width + mMargin > mStripWidth) {
        ++row;
        left = mMargin;
      }
      if (HeightOfRows(row + 1) > greatestHeight) break;
      PlaceGroup(group, left, mMargin + row * (mRowHeight + mGap), items);
      left += group.width + mGap;
      usedRows = row + 1;
    }
    return HeightOfRows(usedRows);
  }

 private:
  [[nodiscard]] int Scaled(int pixels) const { return ScalePixels(pixels, mMetrics.dpi); }

  [[nodiscard]] int ItemWidth(std::size_t index) const {
    const int caption = mMetrics.captionWidths[index];
    switch (kToolBarItems[index].kind) {
      case ItemKind::Button:
        return std::max(caption + 2 * Scaled(kButtonPaddingX), Scaled(kLeastButtonWidth));
      case ItemKind::Label: return caption + Scaled(kLabelGap) + Scaled(kBoxPadding);
      case ItemKind::EditBox: return kNumberDigits * mMetrics.digitWidth + 2 * Scaled(kBoxPadding);
      case ItemKind::Spinner: return Scaled(kSpinnerWidth);
    }
    return 0;
  }

  [[nodiscard]] int ItemHeight(ItemKind kind) const {
    switch (kind) {
      case ItemKind::Label: return mMetrics.lineHeight;
      case ItemKind::EditBox:
      case ItemKind::Spinner: return BoxHeight(mMetrics);
      case ItemKind::Button: break;
    }
    return mRowHeight;
  }

  [[nodiscard]] std::vector<ItemGroup> Groups() const {
    std::vector<ItemGroup> groups;
    for (std::size_t i = 0; i < kToolBarItemCount; ++i) {
      const bool startsGroup =
          kToolBarItems[i].kind == ItemKind::Button || kToolBarItems[i].kind == ItemKind::Label;
      if (startsGroup) groups.push_back({i, 0, 0});
      ++groups.back().count;
      groups.back().width += ItemWidth(i);
    }
    return groups;
  }

  void PlaceGroup(const ItemGroup& group, int left, int top,
                  std::array<PixelRect, kToolBarItemCount>& items) const {
    for (std::size_t i = group.first; i < group.first + group.count; ++i) {
      const int height = ItemHeight(kToolBarItems[i].kind);
      const int gap = kToolBarItems[i].kind == ItemKind::Label ? Scaled(kLabelGap) : 0;
      items[i] = {left + gap, top + (mRowHeight - height) / 2, ItemWidth(i) - gap, height};
      left += ItemWidth(i);
    }
  }

  const FaceMetrics& mMetrics;
  int mMargin;
  int mGap;
  int mRowHeight;
  int mStripWidth;
};

}  // namespace

int ScalePixels(int pixels, int dpi) noexcept {
  const int scaled = (pixels * dpi + 48) / 96;
  return pixels > 0 ? std::max(scaled, 1) : scaled;
}

ControlLayout LayOut(PixelSize control, bool toolBarVisible, const FaceMetrics& metrics) {
  const int width = std::max(control.width, 1);
  const int height = std::max(control.height, 1);
  ControlLayout layout;

  const int boxHeight = BoxHeight(metrics);
  const bool statusShown = 4 * boxHeight <= height;
  const int statusTop = statusShown ? height - 2 * boxHeight : height;
  if (statusShown) {
    layout.simple = {0, statusTop, width, boxHeight};
    layout.statusBar1 = {0, statusTop + boxHeight, width, boxHeight};
  }

  const int stripHeight = toolBarVisible ? StripLayout(width, metrics).Place(statusTop / 2, layout.items) : 0;
  if (stripHeight > 0) layout.toolBar = {0, 0, width, stripHeight};
  layout.surface = {0, stripHeight, width, statusTop - stripHeight};
  return layout;
}

}  // namespace plotvane::control
