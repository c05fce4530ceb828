// MainWindow: the desktop host's one window: functions and calculator on the left, the control filling the rest.
#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "hosts/desktop/calculator_panel.h"
#include "hosts/desktop/commands.h"
#include "hosts/desktop/control_host.h"
#include "hosts/desktop/function_document.h"
#include "hosts/desktop/function_panel.h"
#include "hosts/desktop/late_bound.h"
#include "hosts/desktop/variable_file.h"

namespace plotvane::desktop {

class MainWindow {
 public:
  // Throws platform::RunTimeError with a text for the user when the control cannot be made.
  MainWindow();
  ~MainWindow();
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  void Show(int how);
  // Instead of no functions: samples, or those of a file. A file that cannot be opened is told.
  void ShowSamples();
  void Open(const std::filesystem::path& file);

  // Keys that belong to the window, the control or a menu; true when the message is done with.
  bool TranslateMessage(MSG& message);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  LRESULT Handle(UINT message, WPARAM wide, LPARAM longer);
  void OnSize();
  void OnDpiChanged(int dpi, const RECT& suggested);
  void OnCommand(WPARAM wide);
  void OnMenuOpens();
  void OnActivate(bool active);
  void OnNextControl(WPARAM wide, bool certain);
  void OnClose();

  void Run(const std::function<void()>& work);
  void Perform(Command command);
  void NewDocument();
  void OpenDocument();
  void LoadDocument(const std::filesystem::path& file);
  bool SaveDocument();
  bool SaveDocumentAs();
  void SaveDocumentTo(const std::filesystem::path& file);
  void OpenVariables();
  bool SaveVariables();
  void SavePicture(bool png);
  void SetDegrees(bool on);
  void SetNumberMode(Command command);
  bool AskFixedPlaces();
  [[nodiscard]] bool Degrees();
  void ToggleToolBar();

  // True when nothing is lost: saved, not changed, or the user said so.
  [[nodiscard]] bool MayLoseDocument();
  [[nodiscard]] bool MayLoseVariables();

  void HandFunctionsOver();
  void DocumentReplaced();
  void Plot();
  void PlotAfresh();
  void VariablesMayHaveChanged();
  void ShowVariables();
  void ShowTitle();
  void MakeFont();
  void ShowError(const std::string& text);
  [[nodiscard]] RECT ControlBounds() const;

  HWND mWindow = nullptr;
  HACCEL mAccelerators = nullptr;
  HFONT mFont = nullptr;
  Scale mScale;
  HWND mFocus = nullptr;  // what had the keyboard when the window was last left
  FunctionDocument mDocument;
  std::unique_ptr<ControlHost> mControl;
  ComPtr<IDispatch> mTable;
  std::unique_ptr<Calculator> mCalculator;
  std::unique_ptr<engine::clsExp> mChecker;  // checks equations, apart from the calculator's settings
  std::unique_ptr<FunctionPanel> mFunctions;
  std::unique_ptr<CalculatorPanel> mCalculations;
  VariableFile mVariableFile;
  std::vector<std::string> mVariables;       // as listed last
  std::vector<std::string> mSavedVariables;  // as they stand in their file
  Command mNumberMode = Command::Decimal;
};

}  // namespace plotvane::desktop
