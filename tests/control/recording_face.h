// A face that records what the control asks of it and answers from prepared lists.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "control/graph.h"
#include "control/headless_face.h"
#include "graph/clsYGraph.h"
#include "platform/runtime_error.h"

namespace plotvane::control::test {

// A dialog of lists that says when it is closed.
class WatchedFieldsView : public StoredFieldsView {
 public:
  using StoredFieldsView::StoredFieldsView;
  void Close() override {
    StoredFieldsView::Close();
    if (onClose) onClose();
  }
  std::function<void()> onClose;
};

class RecordingFace : public HeadlessFace {
 public:
  void SetText(TextBox box, std::string_view text) override {
    HeadlessFace::SetText(box, text);
    if (box == TextBox::txtSimple) simpleTexts.emplace_back(text);
  }
  void SetFocus(TextBox box) override { focused = box; }
  void ResetSpinner() override { ++spinnerResets; }
  void Apply(const ControlLayout& layout) override {
    layouts.push_back(layout);
    HeadlessFace::Apply(layout);
  }
  void ShowMessage(const MessageContents& contents) override {
    messages.push_back(contents);
    if (whileBoxIsOpen) whileBoxIsOpen();
  }
  [[nodiscard]] std::string AskInput(const InputRequest& request) override {
    prompts.emplace_back(request.prompt);
    titles.emplace_back(request.title);
    defaults.emplace_back(request.defaultText);
    if (whileBoxIsOpen) whileBoxIsOpen();
    return answer;
  }
  [[nodiscard]] std::optional<ZoomCommand> PopUpMenu(std::span<const ZoomMenuEntry> entries) override {
    menuSizes.push_back(entries.size());
    if (whileBoxIsOpen) whileBoxIsOpen();
    return menuChoice;
  }
  [[nodiscard]] std::shared_ptr<FieldsView> CreateFieldsView(const FieldsDialogText& text,
                                                             std::weak_ptr<DialogEvents> events) override {
    fieldsText = &text;
    fields = std::make_shared<WatchedFieldsView>(text);
    fieldsEvents = std::move(events);
    return fields;
  }
  [[nodiscard]] std::shared_ptr<FormatView> CreateFormatView(std::weak_ptr<FormatEvents> events) override {
    format = std::make_shared<StoredFormatView>();
    formatEvents = std::move(events);
    return format;
  }

  [[nodiscard]] std::string Simple() { return GetText(TextBox::txtSimple); }
  [[nodiscard]] std::string Status() { return GetText(TextBox::txtStatusBar1); }
  [[nodiscard]] graph::PointerKind Pointer() { return Picture().Pointer(); }
  [[nodiscard]] bool BoxVisible() { return StoredZoomBoxLine(BoxLine::linSelT).visible; }

  // Prepared answers.
  std::string answer;
  std::optional<ZoomCommand> menuChoice;
  std::function<void()> whileBoxIsOpen;

  // Recorded.
  std::vector<std::string> simpleTexts;
  std::vector<MessageContents> messages;
  std::vector<std::string> prompts, titles, defaults;
  std::vector<std::size_t> menuSizes;
  std::vector<ControlLayout> layouts;
  std::optional<TextBox> focused;
  int spinnerResets = 0;
  const FieldsDialogText* fieldsText = nullptr;
  std::shared_ptr<WatchedFieldsView> fields;
  std::weak_ptr<DialogEvents> fieldsEvents;
  std::shared_ptr<StoredFormatView> format;
  std::weak_ptr<FormatEvents> formatEvents;
};

inline std::shared_ptr<graph::clsYGraph> MakeFunction(std::string_view equation, bool enabled = true) {
  auto function = std::make_shared<graph::clsYGraph>();
  function->Equation = equation;
  function->Enabled = enabled;
  return function;
}

// A control of the default size with its face: 400 × 300 pixels of surface, standard range.
struct Control {
  std::shared_ptr<RecordingFace> face = std::make_shared<RecordingFace>();
  std::shared_ptr<Graph> graph = Graph::Create(face);

  [[nodiscard]] Gestures& Events() const { return graph->Events(); }
  [[nodiscard]] graph::GraphEngine& Engine() const { return graph->Engine(); }
  void Press(ToolBarItem item) const { graph->Events().ToolBarPressed(item); }

  // The functions with these equations, drawn once.
  void SetFunctions(const std::vector<std::string>& equations) const {
    std::vector<std::shared_ptr<graph::YFunction>> functions;
    for (const std::string& equation : equations) functions.push_back(MakeFunction(equation));
    graph->SetYArray(functions);
  }
};

inline constexpr std::string_view kHint = "Left click on the graph to redraw using the current functions";

// A surface of a host that fails: every drawing call is an error of that number.
class FailingSurface : public graph::RasterSurface {
 public:
  FailingSurface() : RasterSurface(100, 100) {}
  void Clear() override { throw platform::RunTimeError(57, "Device I/O error"); }
};

// One that refuses its pen and its pointer.
class StubbornSurface : public graph::RasterSurface {
 public:
  StubbornSurface() : RasterSurface(100, 100) {}
  void SetPenWidth(std::int16_t) override { throw platform::RunTimeError(57, "Device I/O error"); }
  void SetPointer(graph::PointerKind) override { throw platform::RunTimeError(57, "Device I/O error"); }
};

}  // namespace plotvane::control::test
