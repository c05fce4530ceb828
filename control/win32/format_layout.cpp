#include "control/win32/format_layout.h"

#include <array>

#include "control/format_texts.h"

namespace plotvane::control::win32 {
namespace {

constexpr int kWidth = 290;
constexpr int kHeight = 224;

// In the order of FormatGroup.
constexpr std::array<DialogRect, kFormatGroupCount> kGroupRects{{
    {7, 20, 135, 28},    // coordinate
    {148, 20, 135, 28},  // draw style
    {7, 52, 135, 28},    // grid
    {7, 84, 135, 58},    // axis
    {13, 107, 123, 29},  // divisions, inside the axis group
    {148, 52, 135, 28},  // angle mode
    {148, 84, 135, 58},  // pen style
    {7, 146, 276, 50},   // plot density
}};

constexpr DialogRect kNoteRect{7, 7, 276, 8};
constexpr DialogRect kPenWidthLabelRect{154, 97, 40, 8};
constexpr DialogRect kPreviewLabelRect{234, 94, 40, 8};
constexpr DialogRect kPreviewRect{234, 104, 42, 32};
constexpr DialogRect kHighDensityRect{13, 174, 264, 8};
constexpr DialogRect kLowDensityRect{13, 184, 264, 8};
constexpr DialogRect kSaveRect{140, 203, 78, 14};
constexpr DialogRect kCancelRect{223, 203, 60, 14};

struct BarRects {
  DialogRect bar;
  DialogRect box;
};
// In the order of FormatBar.
constexpr std::array<BarRects, kFormatBarCount> kBarRects{{
    {{154, 114, 72, 11}, {198, 95, 28, 12}},
    {{13, 159, 226, 11}, {245, 158, 32, 12}},
}};

constexpr int kOptionHeight = 10;

const DialogRect& RectOf(FormatGroup group) {
  return kGroupRects.at(static_cast<std::size_t>(group));
}

// The two options of a group stand side by side under its caption.
DialogRect OptionRect(const FormatOptionText& option, bool second) {
  const DialogRect& group = RectOf(option.group);
  const int firstWidth = group.width * 13 / 24;  // the longest caption is a first one
  const int left = second ? 8 + firstWidth : 6;
  const int width = second ? group.width - 14 - firstWidth : firstWidth;
  return {group.left + left, group.top + 12, width, kOptionHeight};
}

void AddGroup(DialogTemplate& description, FormatGroup group) {
  const auto index = static_cast<std::size_t>(group);
  description.Add({L"BUTTON", kFormatGroupCaptions.at(index), kGroupRects.at(index), BS_GROUPBOX | WS_GROUP,
                   kFirstGroup + static_cast<int>(index)});
}

// Each group with its options: a radio group begins at its first option.
void AddOptions(DialogTemplate& description) {
  for (std::size_t i = 0; i < kFormatOptionCount; ++i) {
    const FormatOptionText& option = kFormatOptions.at(i);
    const bool second = i % 2 != 0;
    if (!second) AddGroup(description, option.group);
    const DWORD groupStart = second ? 0 : WS_GROUP | WS_TABSTOP;
    description.Add({L"BUTTON", option.caption, OptionRect(option, second), BS_AUTORADIOBUTTON | groupStart,
                     kFirstOption + static_cast<int>(i)});
  }
}

// Screen readers take the label or group before the box for its name; the bar's text, which is never shown,
// is its own.
void AddBar(DialogTemplate& description, FormatBar bar) {
  const auto index = static_cast<std::size_t>(bar);
  const BarRects& rects = kBarRects.at(index);
  const int number = static_cast<int>(index);
  description.Add(
      {L"EDIT", "", rects.box, WS_TABSTOP | ES_AUTOHSCROLL, kFirstBox + number, WS_EX_CLIENTEDGE});
  description.Add(
      {L"SCROLLBAR", kFormatBars.at(index).subject, rects.bar, WS_TABSTOP | SBS_HORZ, kFirstBar + number});
}

void AddText(DialogTemplate& description, std::string_view text, const DialogRect& rect, int id,
             DWORD style) {
  description.Add({L"STATIC", text, rect, SS_NOTIFY | style, id});
}

}  // namespace

DialogTemplate DescribeFormatDialog() {
  DialogTemplate description(kFormatCaption, kWidth, kHeight, 0);
  AddText(description, kFormatNote, kNoteRect, kNoteText, SS_LEFT);
  AddOptions(description);

  AddGroup(description, FormatGroup::PenStyle);
  AddText(description, kPenWidthLabel.caption, kPenWidthLabelRect, kPenWidthText, SS_LEFT);
  AddBar(description, FormatBar::hscPenWidth);
  AddText(description, kPreviewLabel.caption, kPreviewLabelRect, kPreviewText, SS_LEFT);
  description.Add({L"STATIC", "", kPreviewRect, SS_OWNERDRAW | SS_NOTIFY, kPreviewPicture, WS_EX_CLIENTEDGE});

  AddGroup(description, FormatGroup::PlotDensity);
  AddBar(description, FormatBar::hscPlotDensity);
  AddText(description, kHighDensityLabel.caption, kHighDensityRect, kHighDensityText, SS_LEFT);
  AddText(description, kLowDensityLabel.caption, kLowDensityRect, kLowDensityText, SS_RIGHT);

  description.Add(
      {L"BUTTON", kFormatOk.caption, kSaveRect, WS_TABSTOP | WS_GROUP | BS_PUSHBUTTON, kSaveAndClose});
  description.Add({L"BUTTON", kFormatCancel.caption, kCancelRect, WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL});
  return description;
}

}  // namespace plotvane::control::win32
