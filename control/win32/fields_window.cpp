#include "control/win32/fields_window.h"

#include <utility>

#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

// Dialog units.
constexpr int kMargin = 7;
constexpr int kRowHeight = 17;
constexpr int kTextHeight = 8;
constexpr int kLabelWidth = 84;
constexpr int kListWidth = 130;
constexpr int kListHeight = 12;
constexpr int kDroppedHeight = 80;
constexpr int kWidth = 2 * kMargin + kLabelWidth + kListWidth;
constexpr int kCharactersPerLine = 50;  // of the note, cautiously
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;
constexpr int kButtonGap = 4;

constexpr int kFirstLabel = 100;
constexpr int kFirstList = 200;
constexpr int kNote = 300;

int NoteHeight(std::string_view note) {
  return (static_cast<int>(note.size()) / kCharactersPerLine + 1) * kTextHeight;
}

int FieldIndex(std::size_t field) {
  return static_cast<int>(field);
}

}  // namespace

std::shared_ptr<FieldsWindow> FieldsWindow::Make(HINSTANCE module, std::shared_ptr<void> moduleLock,
                                                 const FieldsDialogText& text,
                                                 std::weak_ptr<DialogEvents> events) {
  auto window = std::make_shared<FieldsWindow>(std::move(moduleLock), text, std::move(events));
  static_cast<void>(window->CreateModeless(module, window->Describe()));
  return window;
}

FieldsWindow::FieldsWindow(std::shared_ptr<void> moduleLock, const FieldsDialogText& text,
                           std::weak_ptr<DialogEvents> events)
    : mModuleLock(std::move(moduleLock)), mText(text), mEvents(std::move(events)) {}

DialogTemplate FieldsWindow::Describe() const {
  const int fieldsHeight = static_cast<int>(mText.fields.size()) * kRowHeight;
  const int noteTop = kMargin + fieldsHeight + kMargin / 2;
  const int buttonsTop = noteTop + NoteHeight(mText.note) + kMargin;
  DialogTemplate description(mText.caption, kWidth, buttonsTop + kButtonHeight + kMargin, 0);

  int top = kMargin;
  for (std::size_t field = 0; field < mText.fields.size(); ++field, top += kRowHeight) {
    const int labelTop = top + (kListHeight - kTextHeight) / 2;
    description.Add({L"STATIC",
                     mText.fields[field].label,
                     {kMargin, labelTop, kLabelWidth, kTextHeight},
                     SS_LEFT,
                     kFirstLabel + FieldIndex(field)});
    description.Add({L"COMBOBOX",
                     "",
                     {kMargin + kLabelWidth, top, kListWidth, kDroppedHeight},
                     WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL,
                     kFirstList + FieldIndex(field)});
  }
  description.Add({L"STATIC",
                   mText.note,
                   {kMargin, noteTop, kWidth - 2 * kMargin, NoteHeight(mText.note)},
                   SS_LEFT | SS_NOPREFIX,
                   kNote});
  const int cancelLeft = kWidth - kMargin - kButtonWidth;
  const int okLeft = cancelLeft - kButtonGap - kButtonWidth;
  description.Add({L"BUTTON",
                   mText.ok.caption,
                   {okLeft, buttonsTop, kButtonWidth, kButtonHeight},
                   WS_TABSTOP | BS_DEFPUSHBUTTON,
                   IDOK});
  description.Add({L"BUTTON",
                   mText.cancel.caption,
                   {cancelLeft, buttonsTop, kButtonWidth, kButtonHeight},
                   WS_TABSTOP | BS_PUSHBUTTON,
                   IDCANCEL});
  return description;
}

HWND FieldsWindow::List(std::size_t field) const noexcept {
  return Item(kFirstList + FieldIndex(field));
}

void FieldsWindow::HandleInit(Tooltips& tooltips) {
  for (std::size_t field = 0; field < mText.fields.size(); ++field)
    tooltips.Add(List(field), mText.fieldTooltip);
  tooltips.Add(Item(IDOK), mText.ok.tooltip);
  tooltips.Add(Item(IDCANCEL), mText.cancel.tooltip);
}

void FieldsWindow::HandleCommand(int id, int /*notification*/) {
  const auto events = mEvents.lock();
  if (!events) return;
  if (id == IDOK) events->OkPressed();
  if (id == IDCANCEL) events->CancelPressed();
}

void FieldsWindow::HandleDestroyed() {
  if (const auto events = mEvents.lock()) events->DialogClosed();
}

// The first field has the focus and its text is selected, ready to be typed over.
void FieldsWindow::Show() {
  ShowDialog();
  ::SetFocus(List(0));
  ::SendMessageW(List(0), CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

void FieldsWindow::Close() {
  mEvents.reset();
  DestroyDialog();
}

void FieldsWindow::SetEditText(std::size_t field, std::string_view text) {
  ::SetWindowTextW(List(field), ToWide(text).c_str());
}

std::string FieldsWindow::GetEditText(std::size_t field) {
  return WindowText(List(field));
}

void FieldsWindow::ClearEntries(std::size_t field) {
  ::SendMessageW(List(field), CB_RESETCONTENT, 0, 0);
}

void FieldsWindow::AddEntry(std::size_t field, std::string_view text) {
  const std::wstring wide = ToWide(text);
  ::SendMessageW(List(field), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str()));
}

}  // namespace plotvane::control::win32
