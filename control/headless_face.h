// HeadlessFace: a face without a window: keeps what it is told and draws into memory.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "control/face.h"
#include "graph/raster_surface.h"

namespace plotvane::control {

// A line that is only remembered.
class StoredLine : public LineControl {
 public:
  void SetVisible(bool newVisible) override { visible = newVisible; }
  void Place(graph::PixelPoint newFrom, graph::PixelPoint newTo) override {
    from = newFrom;
    to = newTo;
  }
  bool visible = false;
  graph::PixelPoint from;
  graph::PixelPoint to;
};

// The content of a dialog of lists that nobody sees.
class StoredFieldsView : public FieldsView {
 public:
  explicit StoredFieldsView(const FieldsDialogText& text)
      : editTexts(text.fields.size()), entries(text.fields.size()) {}
  void Show() override { shown = true; }
  void Close() override { shown = false; }
  void SetEditText(std::size_t field, std::string_view text) override { editTexts.at(field) = text; }
  [[nodiscard]] std::string GetEditText(std::size_t field) override { return editTexts.at(field); }
  void ClearEntries(std::size_t field) override { entries.at(field).clear(); }
  void AddEntry(std::size_t field, std::string_view text) override { entries.at(field).emplace_back(text); }

  bool shown = false;
  std::vector<std::string> editTexts;
  std::vector<std::vector<std::string>> entries;
};

// The content of a format dialog that nobody sees.
class StoredFormatView : public FormatView {
 public:
  void Show() override { shown = true; }
  void Close() override { shown = false; }
  void SetOption(FormatOption option, bool selected) override {
    options.at(static_cast<std::size_t>(option)) = selected;
  }
  void SetDivisionsEnabled(bool enabled) override { divisionsEnabled = enabled; }
  void SetBar(FormatBar bar, int value) override { bars.at(static_cast<std::size_t>(bar)) = value; }
  void SetBox(FormatBar bar, std::string_view text) override {
    boxes.at(static_cast<std::size_t>(bar)) = text;
  }
  [[nodiscard]] std::string GetBox(FormatBar bar) override { return boxes.at(static_cast<std::size_t>(bar)); }
  void SetBoxColour(FormatBar bar, BoxColour colour) override {
    colours.at(static_cast<std::size_t>(bar)) = colour;
  }
  [[nodiscard]] graph::DrawingSurface& Preview() override { return preview; }
  void ShowMessage(const MessageContents& contents) override { messages.push_back(contents); }

  bool shown = false;
  std::array<bool, kFormatOptionCount> options{};
  bool divisionsEnabled = true;
  std::array<int, kFormatBarCount> bars{};
  std::array<std::string, kFormatBarCount> boxes;
  std::array<BoxColour, kFormatBarCount> colours{};
  graph::RasterSurface preview{40, 40};
  std::vector<MessageContents> messages;
};

class HeadlessFace : public Face {
 public:
  HeadlessFace();

  [[nodiscard]] std::string GetText(TextBox box) override { return mTexts.at(static_cast<std::size_t>(box)); }
  void SetText(TextBox box, std::string_view text) override {
    mTexts.at(static_cast<std::size_t>(box)) = text;
  }
  void RefreshText(TextBox /*box*/) override {}
  void SetFocus(TextBox /*box*/) override {}

  [[nodiscard]] FaceMetrics Metrics() override;
  void Apply(const ControlLayout& layout) override;
  void ResetSpinner() override {}

  [[nodiscard]] std::shared_ptr<graph::DrawingSurface> Surface() override { return mSurface; }
  [[nodiscard]] LineControl& ZoomBoxLine(BoxLine line) override { return StoredZoomBoxLine(line); }
  void SetTraceMarkerVisible(bool visible) override { mMarkerVisible = visible; }
  void MoveTraceMarker(graph::PixelPoint topLeft) override { mMarkerTopLeft = topLeft; }

  // Nobody answers: boxes close at once, nothing is chosen.
  void ShowMessage(const MessageContents& /*contents*/) override {}
  [[nodiscard]] std::string AskInput(const InputRequest& /*request*/) override { return {}; }
  [[nodiscard]] std::optional<ZoomCommand> PopUpMenu(std::span<const ZoomMenuEntry> /*entries*/) override {
    return std::nullopt;
  }
  [[nodiscard]] std::shared_ptr<FieldsView> CreateFieldsView(const FieldsDialogText& text,
                                                             std::weak_ptr<DialogEvents> events) override;
  [[nodiscard]] std::shared_ptr<FormatView> CreateFormatView(std::weak_ptr<FormatEvents> events) override;

  // ---- What was told ----
  [[nodiscard]] graph::RasterSurface& Picture() noexcept { return *mSurface; }
  [[nodiscard]] StoredLine& StoredZoomBoxLine(BoxLine line) {
    return mLines.at(static_cast<std::size_t>(line));
  }
  [[nodiscard]] bool TraceMarkerVisible() const noexcept { return mMarkerVisible; }
  [[nodiscard]] graph::PixelPoint TraceMarkerTopLeft() const noexcept { return mMarkerTopLeft; }

 private:
  std::array<std::string, kTextBoxCount> mTexts;
  std::array<StoredLine, kBoxLineCount> mLines;
  std::shared_ptr<graph::RasterSurface> mSurface;
  bool mMarkerVisible = false;
  graph::PixelPoint mMarkerTopLeft;
};

}  // namespace plotvane::control
