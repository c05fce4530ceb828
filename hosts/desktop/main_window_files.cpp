// What the desktop host opens and saves: functions, variables, pictures.
#include "hosts/desktop/main_window.h"

#include <commdlg.h>

#include "hosts/desktop/picture.h"
#include "hosts/desktop/text.h"
#include "identifiers/clsVarTable.h"

namespace plotvane::desktop {

namespace {

// Filters are pairs of texts, each ended by a NUL, with one more at the end.
struct FileKind {
  const wchar_t* filter;
  const wchar_t* extension;
};

constexpr FileKind kFunctions{L"Functions (*.pvf)\0*.pvf\0All files (*.*)\0*.*\0", L"pvf"};
constexpr FileKind kVariables{L"Variables (*.pvv)\0*.pvv\0All files (*.*)\0*.*\0", L"pvv"};
constexpr FileKind kPng{L"PNG pictures (*.png)\0*.png\0", L"png"};
constexpr FileKind kEmf{L"Enhanced metafiles (*.emf)\0*.emf\0", L"emf"};

enum class FileDialog { Open, Save };

// The file that the user chose; empty when cancelled.
std::filesystem::path AskFile(HWND owner, FileDialog dialog, const FileKind& kind) {
  std::wstring name(32768, L'\0');
  OPENFILENAMEW choice{};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = owner;
  choice.lpstrFilter = kind.filter;
  choice.lpstrDefExt = kind.extension;
  choice.lpstrFile = name.data();
  choice.nMaxFile = static_cast<DWORD>(name.size());
  choice.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  if (dialog == FileDialog::Open) {
    choice.Flags |= OFN_FILEMUSTEXIST;
    if (::GetOpenFileNameW(&choice) == FALSE) return {};
  } else {
    choice.Flags |= OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST;
    if (::GetSaveFileNameW(&choice) == FALSE) return {};
  }
  return name.c_str();
}

// `work` on a file; its failure names the file: "mine.pvf cannot be opened: Path not found".
template <typename Work>
void WithFile(const std::filesystem::path& file, const char* what, Work work) {
  try {
    work();
  } catch (const platform::RunTimeError& error) {
    throw platform::RunTimeError(error.Number(), ToUtf8(file.filename().wstring()) + " cannot be " + what + ": " +
                                                     error.what());
  }
}

enum class Answer { Save, Discard, Stay };

Answer AskToSave(HWND owner, const std::wstring& question) {
  switch (::MessageBoxW(owner, question.c_str(), L"Plotvane", MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES: return Answer::Save;
    case IDNO: return Answer::Discard;
    default: return Answer::Stay;
  }
}

}  // namespace

bool MainWindow::MayLoseDocument() {
  if (!mDocument.Changed()) return true;
  switch (AskToSave(mWindow, L"The functions have changed. Save them?")) {
    case Answer::Save: return SaveDocument();
    case Answer::Discard: return true;
    case Answer::Stay: break;
  }
  return false;
}

bool MainWindow::MayLoseVariables() {
  ShowVariables();
  if (mVariables == mSavedVariables) return true;
  switch (AskToSave(mWindow, L"The variables have changed. Save them?")) {
    case Answer::Save: return SaveVariables();
    case Answer::Discard: return true;
    case Answer::Stay: break;
  }
  return false;
}

void MainWindow::NewDocument() {
  if (!MayLoseDocument()) return;
  mDocument.Clear();
  DocumentReplaced();
}

void MainWindow::OpenDocument() {
  if (!MayLoseDocument()) return;
  const std::filesystem::path file = AskFile(mWindow, FileDialog::Open, kFunctions);
  if (!file.empty()) LoadDocument(file);
}

void MainWindow::LoadDocument(const std::filesystem::path& file) {
  WithFile(file, "opened", [&] { mDocument.Load(file); });
  DocumentReplaced();
}

bool MainWindow::SaveDocument() {
  if (mDocument.File().empty()) return SaveDocumentAs();
  SaveDocumentTo(mDocument.File());
  return true;
}

bool MainWindow::SaveDocumentAs() {
  const std::filesystem::path file = AskFile(mWindow, FileDialog::Save, kFunctions);
  if (file.empty()) return false;
  SaveDocumentTo(file);
  return true;
}

void MainWindow::SaveDocumentTo(const std::filesystem::path& file) {
  WithFile(file, "saved", [&] { mDocument.Save(file); });
  ShowTitle();
}

// The file's variables join those that are there, replacing the ones of the same name. It is read as a whole before the
// table sees it, so that a damaged file changes nothing.
void MainWindow::OpenVariables() {
  if (!MayLoseVariables()) return;
  const std::filesystem::path file = AskFile(mWindow, FileDialog::Open, kVariables);
  if (file.empty()) return;
  const bool unchanged = mVariables == mSavedVariables;
  WithFile(file, "opened", [&] {
    mVariableFile.Read(file);
    OwnedVariant path;
    PutValue(platform::Value(ToUtf8(file.wstring())), path.Get());
    CallByName(*mTable.Get(), L"LoadTypeFromFile", DISPATCH_METHOD, {path.Get()}, nullptr);
  });
  VariablesMayHaveChanged();
  if (unchanged) mSavedVariables = mVariables;
}

bool MainWindow::SaveVariables() {
  const std::filesystem::path file = AskFile(mWindow, FileDialog::Save, kVariables);
  if (file.empty()) return false;
  WithFile(file, "saved", [&] {
    mVariableFile.Save(file, [this](const std::string& newPath) {
      OwnedVariant type;
      PutValue(platform::Value(static_cast<double>(identifiers::kVariableType)), type.Get());
      OwnedVariant path;
      PutValue(platform::Value(newPath), path.Get());
      CallByName(*mTable.Get(), L"SaveTypeToFile", DISPATCH_METHOD, {type.Get(), path.Get()}, nullptr);
    });
  });
  ShowVariables();
  mSavedVariables = mVariables;
  return true;
}

void MainWindow::SavePicture(bool png) {
  const std::filesystem::path file = AskFile(mWindow, FileDialog::Save, png ? kPng : kEmf);
  if (file.empty()) return;
  WithFile(file, "saved", [&] { (png ? SavePng : SaveEmf)(*mControl, file); });
}

}  // namespace plotvane::desktop
