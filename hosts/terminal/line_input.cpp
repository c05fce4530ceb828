#include "hosts/terminal/line_input.h"

#include <histedit.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <string_view>

namespace plotvane::terminal {

namespace {

std::string WithoutLineEnd(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return std::string(line);
}

class StreamInput : public LineInput {
 public:
  std::optional<std::string> Next() override {
    std::string line;
    if (!std::getline(std::cin, line)) return std::nullopt;
    return WithoutLineEnd(line);
  }
};

char* Prompt(EditLine*) {
  static char prompt[] = "> ";
  return prompt;
}

// Line editing and history of this session.
class TerminalInput : public LineInput {
 public:
  TerminalInput() : mHistory(::history_init()), mEditor(::el_init("plotvane", stdin, stdout, stderr)) {
    HistEvent event{};
    ::history(mHistory.get(), &event, H_SETSIZE, 1000);
    ::el_set(mEditor.get(), EL_PROMPT, &Prompt);
    ::el_set(mEditor.get(), EL_EDITOR, "emacs");
    ::el_set(mEditor.get(), EL_HIST, ::history, mHistory.get());
    ::el_source(mEditor.get(), nullptr);
  }

  std::optional<std::string> Next() override {
    int count = 0;
    const char* line = ::el_gets(mEditor.get(), &count);
    if (line == nullptr || count <= 0) return std::nullopt;
    std::string text = WithoutLineEnd({line, static_cast<std::size_t>(count)});
    HistEvent event{};
    if (!text.empty()) ::history(mHistory.get(), &event, H_ENTER, text.c_str());
    return text;
  }

 private:
  struct EndHistory {
    void operator()(History* history) const noexcept { ::history_end(history); }
  };
  struct EndEditor {
    void operator()(EditLine* editor) const noexcept { ::el_end(editor); }
  };

  std::unique_ptr<History, EndHistory> mHistory;
  std::unique_ptr<EditLine, EndEditor> mEditor;
};

}  // namespace

std::unique_ptr<LineInput> OpenLineInput() {
  if (::isatty(STDIN_FILENO) == 1) return std::make_unique<TerminalInput>();
  return std::make_unique<StreamInput>();
}

}  // namespace plotvane::terminal
