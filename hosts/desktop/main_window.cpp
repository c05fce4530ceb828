// The window of the desktop host: making, messages, layout. Files and pictures are in main_window_files.cpp.
#include "hosts/desktop/main_window.h"

#include <windowsx.h>

#include "hosts/desktop/formula_check.h"
#include "hosts/desktop/function_object.h"
#include "hosts/desktop/picture.h"
#include "hosts/desktop/prompt.h"
#include "hosts/desktop/resource.h"
#include "hosts/desktop/shared_table.h"
#include "hosts/desktop/text.h"
#include "hosts/desktop/variable_list.h"

namespace plotvane::desktop {

using platform::RunTimeError;

namespace {

constexpr const wchar_t* kClassName = L"PlotvaneHost";
constexpr int kPanelWidth = 300;
constexpr int kMargin = 8;
constexpr SIZE kWindowSize{1000, 700};
constexpr SIZE kSmallestWindow{560, 520};  // all boxes and a few lines of the lists

int DpiOf(HWND window) {
  // Not there before Windows 10.
  using GetDpi = UINT(WINAPI*)(HWND);
  const HMODULE user = ::GetModuleHandleW(L"user32.dll");
  if (const auto getDpi = reinterpret_cast<GetDpi>(reinterpret_cast<void*>(::GetProcAddress(user, "GetDpiForWindow")))) {
    return static_cast<int>(getDpi(window));
  }
  const HDC screen = ::GetDC(nullptr);
  const int dpi = ::GetDeviceCaps(screen, LOGPIXELSX);
  ::ReleaseDC(nullptr, screen);
  return dpi;
}

// The program's icon in one of the system's sizes (SM_CXICON, SM_CXSMICON).
HICON Icon(int size) {
  const int pixels = ::GetSystemMetrics(size);
  return static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_PLOTVANE), IMAGE_ICON, pixels,
                                         pixels, LR_SHARED));
}

}  // namespace

MainWindow::MainWindow() {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = &Procedure;
  kind.hInstance = ::GetModuleHandleW(nullptr);
  kind.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  kind.hIcon = Icon(SM_CXICON);
  kind.hIconSm = Icon(SM_CXSMICON);
  kind.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
  kind.lpszClassName = kClassName;
  ::RegisterClassExW(&kind);
  mWindow = ::CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, L"Plotvane", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                              CW_USEDEFAULT, CW_USEDEFAULT, kWindowSize.cx, kWindowSize.cy, nullptr, MakeMenuBar(),
                              ::GetModuleHandleW(nullptr), this);
  if (mWindow == nullptr) throw RunTimeError(static_cast<std::int32_t>(::GetLastError()), "No window can be made.");
  mAccelerators = MakeAccelerators();
  mScale.dpi = DpiOf(mWindow);

  mFunctions = std::make_unique<FunctionPanel>(
      mWindow, mDocument,
      FunctionPanel::Owner{[this] { Plot(); }, [this](const std::string& equation) {
                             double left = 0;
                             mControl->Graph().get_Xmin(&left);
                             mChecker->SetDegreeMode(Degrees());
                             return EquationError(*mChecker, equation, left);
                           }});
  mControl = std::make_unique<ControlHost>(mWindow, [this] { return ControlBounds(); }, [] {});
  OwnedVariant table;
  if (FAILED(mControl->Graph().get_VarTable(&table)) || V_VT(&table.Get()) != VT_DISPATCH) {
    throw RunTimeError(E_FAIL, "The control keeps no variables.");
  }
  mTable = V_DISPATCH(&table.Get());
  const auto shared = std::make_shared<SharedTable>(mTable);
  mCalculator = std::make_unique<Calculator>(shared);
  mChecker = std::make_unique<engine::clsExp>();
  mChecker->SetVarTable(shared);
  mCalculations = std::make_unique<CalculatorPanel>(
      mWindow, *mCalculator,
      CalculatorPanel::Owner{[this] { mCalculator->Expression().SetDegreeMode(Degrees()); },
                             [this] { VariablesMayHaveChanged(); }});
  MakeFont();
  OnSize();
  HandFunctionsOver();
  DocumentReplaced();
}

MainWindow::~MainWindow() {
  mCalculations.reset();
  mFunctions.reset();
  mCalculator.reset();
  mChecker.reset();
  mTable.Reset();
  mControl.reset();
  if (mWindow != nullptr) {
    ::SetWindowLongPtrW(mWindow, GWLP_USERDATA, 0);
    ::DestroyWindow(mWindow);
  }
  if (mFont != nullptr) ::DeleteObject(mFont);
  if (mAccelerators != nullptr) ::DestroyAcceleratorTable(mAccelerators);
}

void MainWindow::Show(int how) {
  ::ShowWindow(mWindow, how);
  ::UpdateWindow(mWindow);
}

void MainWindow::ShowSamples() {
  mDocument.LoadSamples();
  DocumentReplaced();
}

void MainWindow::Open(const std::filesystem::path& file) {
  Run([&] { LoadDocument(file); });
}

bool MainWindow::TranslateMessage(MSG& message) {
  if (message.hwnd != mWindow && ::IsChild(mWindow, message.hwnd) == FALSE) return false;
  if (::TranslateAcceleratorW(mWindow, mAccelerators, &message) != 0) return true;
  if (mCalculations->OnKey(message)) return true;
  if (mControl->TranslateKey(message)) return true;
  return ::IsDialogMessageW(mWindow, &message) != FALSE;
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(longer);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  auto* const self = reinterpret_cast<MainWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr || self->mCalculations == nullptr) return ::DefWindowProcW(window, message, wide, longer);
  try {
    return self->Handle(message, wide, longer);
  } catch (const std::exception& error) {
    self->ShowError(error.what());
    return 0;
  }
}

LRESULT MainWindow::Handle(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_SIZE: OnSize(); return 0;
    case WM_COMMAND: OnCommand(wide); return 0;
    case WM_INITMENUPOPUP: OnMenuOpens(); return 0;
    case WM_NEXTDLGCTL: OnNextControl(wide, LOWORD(longer) != 0); return 0;
    case WM_ACTIVATE: OnActivate(LOWORD(wide) != WA_INACTIVE); return 0;
    case WM_CLOSE: OnClose(); return 0;
    case WM_QUERYENDSESSION: return MayLoseDocument() && MayLoseVariables() ? TRUE : FALSE;
    case WM_DPICHANGED: OnDpiChanged(HIWORD(wide), *reinterpret_cast<const RECT*>(longer)); return 0;
    case WM_DRAWITEM: return mFunctions->OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(longer)) ? TRUE : FALSE;
    case WM_CTLCOLOREDIT:
      if (HBRUSH brush = mFunctions->OnEditColour(reinterpret_cast<HWND>(longer), reinterpret_cast<HDC>(wide))) {
        return reinterpret_cast<LRESULT>(brush);
      }
      break;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(longer)->ptMinTrackSize = {mScale(kSmallestWindow.cx), mScale(kSmallestWindow.cy)};
      return 0;
    default: break;
  }
  return ::DefWindowProcW(mWindow, message, wide, longer);
}

void MainWindow::OnSize() {
  RECT client;
  ::GetClientRect(mWindow, &client);
  if (client.right == 0 || client.bottom == 0) return;  // minimised
  const LONG margin = mScale(kMargin);
  RECT panel{margin, margin, mScale(kPanelWidth) - margin, client.bottom - margin};
  panel.top = mFunctions->Layout(panel, mScale, mFont);
  mCalculations->Layout(panel, mScale, mFont);
  mControl->Resize();
  PlotAfresh();
}

void MainWindow::OnDpiChanged(int dpi, const RECT& suggested) {
  mScale.dpi = dpi;
  MakeFont();
  ::SetWindowPos(mWindow, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

// The keyboard goes back to where it was, at first to Y1.
void MainWindow::OnActivate(bool active) {
  const HWND focus = ::GetFocus();
  if (!active) {
    if (::IsChild(mWindow, focus) != FALSE) mFocus = focus;
    return;
  }
  if (::IsIconic(mWindow) != FALSE) return;
  ::SetFocus(::IsChild(mWindow, mFocus) != FALSE ? mFocus : ::GetNextDlgTabItem(mWindow, nullptr, FALSE));
}

// What IsDialogMessage asks of a dialog when it follows a label's mnemonic: a certain control, or the next or previous one.
void MainWindow::OnNextControl(WPARAM wide, bool certain) {
  ::SetFocus(certain ? reinterpret_cast<HWND>(wide) : ::GetNextDlgTabItem(mWindow, ::GetFocus(), wide != 0));
}

void MainWindow::OnCommand(WPARAM wide) {
  const int id = LOWORD(wide);
  const int notification = HIWORD(wide);
  if (mFunctions->OnCommand(id, notification) || mCalculations->OnCommand(id, notification)) return;
  Run([&] { Perform(static_cast<Command>(id)); });
}

void MainWindow::OnMenuOpens() {
  const HMENU menu = ::GetMenu(mWindow);
  const auto check = [menu](Command command, bool on) {
    ::CheckMenuItem(menu, static_cast<UINT>(command), on ? MF_CHECKED : MF_UNCHECKED);
  };
  const bool degrees = Degrees();
  VARIANT_BOOL toolBar = VARIANT_FALSE;
  mControl->Graph().get_ToolBarVisible(&toolBar);
  check(Command::Degrees, degrees);
  check(Command::Radians, !degrees);
  check(Command::ToolBar, toolBar != VARIANT_FALSE);
  for (const Command mode :
       {Command::Decimal, Command::Fixed, Command::Octal, Command::Hexadecimal, Command::Binary}) {
    check(mode, mode == mNumberMode);
  }
}

void MainWindow::OnClose() {
  if (!MayLoseDocument() || !MayLoseVariables()) return;
  ::PostQuitMessage(0);
}

void MainWindow::Run(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception& error) {
    ShowError(error.what());
  }
}

void MainWindow::Perform(Command command) {
  switch (command) {
    case Command::None: break;
    case Command::New: NewDocument(); break;
    case Command::Open: OpenDocument(); break;
    case Command::Save: static_cast<void>(SaveDocument()); break;
    case Command::SaveAs: static_cast<void>(SaveDocumentAs()); break;
    case Command::OpenVariables: OpenVariables(); break;
    case Command::SaveVariables: static_cast<void>(SaveVariables()); break;
    case Command::Print: PrintPicture(mWindow, *mControl, WindowText(mWindow)); break;
    case Command::Exit: ::PostMessageW(mWindow, WM_CLOSE, 0, 0); break;
    case Command::CopyPicture: CopyPicture(mWindow, *mControl); break;
    case Command::SavePng: SavePicture(true); break;
    case Command::SaveEmf: SavePicture(false); break;
    case Command::Plot: PlotAfresh(); break;
    case Command::Format: mControl->Graph().ShowFormatEditor(); break;
    case Command::ToolBar: ToggleToolBar(); break;
    case Command::Radians: SetDegrees(false); break;
    case Command::Degrees: SetDegrees(true); break;
    case Command::Decimal:
    case Command::Fixed:
    case Command::Octal:
    case Command::Hexadecimal:
    case Command::Binary: SetNumberMode(command); break;
    case Command::About:
      ::MessageBoxW(mWindow, L"Plotvane\n\nFunction-graphing control and calculator engine.", L"About Plotvane",
                    MB_OK | MB_ICONINFORMATION);
      break;
  }
}

// The control has the last word on the angle unit: its dialog changes it, too.
bool MainWindow::Degrees() {
  VARIANT_BOOL degrees = VARIANT_FALSE;
  mControl->Graph().get_DegreeMode(&degrees);
  return degrees != VARIANT_FALSE;
}

void MainWindow::SetDegrees(bool on) {
  VARIANT_BOOL value = on ? VARIANT_TRUE : VARIANT_FALSE;
  mControl->Graph().put_DegreeMode(&value);
  PlotAfresh();
}

void MainWindow::SetNumberMode(Command command) {
  if (command == Command::Fixed && !AskFixedPlaces()) return;
  constexpr struct {
    Command command;
    const char* word;
  } kModes[] = {{Command::Decimal, "decimal"},
                {Command::Fixed, "fixed"},
                {Command::Octal, "octal"},
                {Command::Hexadecimal, "hexadecimal"},
                {Command::Binary, "binary"}};
  for (const auto& mode : kModes) {
    if (mode.command == command) mCalculator->Expression().SetFormatMode(mode.word);
  }
  mNumberMode = command;
}

// False when there is no new answer: the mode stays then.
bool MainWindow::AskFixedPlaces() {
  engine::clsExp& expression = mCalculator->Expression();
  const std::wstring answer = Prompt(mWindow, L"Fixed", L"Decimal places (-100 to 127):",
                                     std::to_wstring(expression.GetFixedDecimalPlaces()));
  if (answer.empty()) return false;
  if (expression.SetFixedDecimalPlaces(platform::Value(ToUtf8(answer)))) return true;
  ShowError("The decimal places are a number from -100 to 127.");
  return false;
}

void MainWindow::ToggleToolBar() {
  VARIANT_BOOL shown = VARIANT_FALSE;
  mControl->Graph().get_ToolBarVisible(&shown);
  mControl->Graph().put_ToolBarVisible(shown == VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE);
  PlotAfresh();
}

// The control takes elements 1 to the upper bound of the array.
void MainWindow::HandFunctionsOver() {
  SAFEARRAYBOUND bounds{kFunctionCount, 1};
  OwnedVariant functions;
  V_VT(&functions.Get()) = VT_ARRAY | VT_DISPATCH;
  V_ARRAY(&functions.Get()) = ::SafeArrayCreate(VT_DISPATCH, 1, &bounds);
  for (LONG index = 1; index <= static_cast<LONG>(kFunctionCount); ++index) {
    ComPtr<IDispatch> function;
    function.Attach(new FunctionObject(mDocument.Function(static_cast<std::size_t>(index - 1))));
    ::SafeArrayPutElement(V_ARRAY(&functions.Get()), &index, function.Get());
  }
  OwnedVariant redraw;
  V_VT(&redraw.Get()) = VT_BOOL;
  V_BOOL(&redraw.Get()) = VARIANT_FALSE;
  if (FAILED(mControl->Graph().SetYArray(&functions, &redraw))) {
    throw RunTimeError(E_FAIL, "The control does not take the functions.");
  }
}

void MainWindow::DocumentReplaced() {
  mFunctions->Refresh();
  PlotAfresh();
  ShowTitle();
}

void MainWindow::Plot() {
  mControl->Graph().PlotAllY();
  ShowTitle();
}

void MainWindow::PlotAfresh() {
  mControl->Graph().put_RedrawAll(VARIANT_TRUE);
  Plot();
}

void MainWindow::VariablesMayHaveChanged() {
  const std::vector<std::string> before = mVariables;
  ShowVariables();
  if (before == mVariables) return;
  mFunctions->CheckAll();
  PlotAfresh();
}

void MainWindow::ShowVariables() {
  mVariables = ListVariables(*mTable.Get());
  mCalculations->ShowVariables(mVariables);
}

void MainWindow::ShowTitle() {
  const std::wstring name = mDocument.File().empty() ? L"Untitled" : mDocument.File().filename().wstring();
  const std::wstring title = name + (mDocument.Changed() ? L" (changed) - Plotvane" : L" - Plotvane");
  if (WindowText(mWindow) != title) ::SetWindowTextW(mWindow, title.c_str());
}

void MainWindow::MakeFont() {
  if (mFont != nullptr) ::DeleteObject(mFont);
  mFont = ::CreateFontW(-mScale(12), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                        CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, L"Tahoma");
}

void MainWindow::ShowError(const std::string& text) {
  ::MessageBoxW(mWindow, ToWide(text).c_str(), L"Plotvane", MB_OK | MB_ICONEXCLAMATION);
}

RECT MainWindow::ControlBounds() const {
  RECT client;
  ::GetClientRect(mWindow, &client);
  const LONG left = mScale(kPanelWidth);
  return {left, 0, client.right > left ? client.right : left, client.bottom};
}

}  // namespace plotvane::desktop
