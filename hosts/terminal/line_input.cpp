#include "hosts/terminal/line_input.h"

#include <histedit.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string_view>
#include <utility>

#include "hosts/terminal/completion.h"
#include "hosts/terminal/history_file.h"
#include "hosts/terminal/interrupt.h"

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

  bool IsTerminal() const noexcept override { return false; }
};

char* Prompt(EditLine*) {
  static char prompt[] = "> ";
  return prompt;
}

// Where the editor shows itself: results alone go to a standard output that is a file.
std::FILE* Screen() {
  return ::isatty(STDOUT_FILENO) == 1 ? stdout : stderr;
}

// Ctrl-C ends the reading of a line, which then begins afresh.
class TerminalInput : public LineInput {
 public:
  explicit TerminalInput(std::function<std::vector<std::string>()> names)
      : mNames(std::move(names)),
        mHistory(::history_init()),
        mEditor(::el_init("plotvane", stdin, Screen(), stderr)) {
    HistEvent event{};
    ::history(mHistory.get(), &event, H_SETSIZE, static_cast<int>(kHistoryLines));
    ::history(mHistory.get(), &event, H_SETUNIQUE, 1);
    for (const std::string& line : LoadHistory(mHistoryPath)) Remember(line);
    EditLine* const editor = mEditor.get();
    ::el_set(editor, EL_CLIENTDATA, this);
    ::el_set(editor, EL_PROMPT, &Prompt);
    ::el_set(editor, EL_EDITOR, "emacs");
    ::el_set(editor, EL_HIST, ::history, mHistory.get());
    ::el_set(editor, EL_ADDFN, "complete-name", "Complete the name before the cursor", &CompleteName);
    ::el_set(editor, EL_BIND, "^I", "complete-name", nullptr);
    ::el_source(editor, nullptr);
  }

  ~TerminalInput() override { AppendHistory(mHistoryPath, mTyped); }

  TerminalInput(const TerminalInput&) = delete;
  TerminalInput& operator=(const TerminalInput&) = delete;

  std::optional<std::string> Next() override {
    if (MustEnd()) return std::nullopt;
    int count = 0;
    const char* line = ::el_gets(mEditor.get(), &count);
    while (line == nullptr && !MustEnd() && TakeInterrupt()) {
      Show("^C\n");
      line = ::el_gets(mEditor.get(), &count);
    }
    if (line == nullptr || count <= 0) {
      Show("\n");
      return std::nullopt;
    }
    std::string text = WithoutLineEnd({line, static_cast<std::size_t>(count)});
    if (!text.empty()) {
      Remember(text);
      mTyped.push_back(text);
    }
    return text;
  }

  bool IsTerminal() const noexcept override { return true; }

 private:
  struct EndHistory {
    void operator()(History* history) const noexcept { ::history_end(history); }
  };
  struct EndEditor {
    void operator()(EditLine* editor) const noexcept { ::el_end(editor); }
  };

  void Remember(const std::string& line) {
    HistEvent event{};
    ::history(mHistory.get(), &event, H_ENTER, line.c_str());
  }

  static TerminalInput& Of(EditLine* editor) {
    void* self = nullptr;
    ::el_get(editor, EL_CLIENTDATA, &self);
    return *static_cast<TerminalInput*>(self);
  }

  static unsigned char CompleteName(EditLine* editor, int) {
    const LineInfo* line = ::el_line(editor);
    const std::string_view typed(line->buffer, static_cast<std::size_t>(line->cursor - line->buffer));
    const Completion completion = Complete(typed, Of(editor).mNames());
    if (completion.choices.empty()) return CC_ERROR;
    if (!completion.rest.empty()) {
      ::el_insertstr(editor, completion.rest.c_str());
      return CC_REFRESH;
    }
    if (completion.choices.size() == 1) return CC_NORM;
    Show("\n");
    for (const std::string& choice : completion.choices) Show(choice + "  ");
    Show("\n");
    return CC_REDISPLAY;
  }

  static void Show(const std::string& text) {
    std::fputs(text.c_str(), Screen());
    std::fflush(Screen());
  }

  std::function<std::vector<std::string>()> mNames;
  std::filesystem::path mHistoryPath = HistoryPath();
  std::vector<std::string> mTyped;
  std::unique_ptr<History, EndHistory> mHistory;
  std::unique_ptr<EditLine, EndEditor> mEditor;
};

}  // namespace

std::unique_ptr<LineInput> OpenLineInput(std::function<std::vector<std::string>()> names) {
  if (::isatty(STDIN_FILENO) == 1) return std::make_unique<TerminalInput>(std::move(names));
  return std::make_unique<StreamInput>();
}

}  // namespace plotvane::terminal
