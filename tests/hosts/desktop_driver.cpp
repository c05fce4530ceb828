#include "tests/hosts/desktop_driver.h"

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace plotvane::desktop_test {

namespace {

// The identifiers that the host gives its boxes.
constexpr int kColourId = 1100;
constexpr int kEquationId = 1200;
constexpr int kErrorId = 1300;
constexpr int kCalculatorId = 1401;
constexpr int kHistoryId = 1402;
constexpr int kVariablesId = 1404;

std::wstring TextOf(HWND window) {
  std::wstring text(512, L'\0');
  const LRESULT length = ::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::vector<std::wstring> LinesOf(HWND list) {
  std::vector<std::wstring> lines;
  const LRESULT count = ::SendMessageW(list, LB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    const auto line = static_cast<WPARAM>(i);
    std::wstring text(static_cast<std::size_t>(::SendMessageW(list, LB_GETTEXTLEN, line, 0)) + 1, L'\0');
    ::SendMessageW(list, LB_GETTEXT, line, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    lines.push_back(text);
  }
  return lines;
}

void SendKey(WORD key, bool down) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
  ::SendInput(1, &input, sizeof input);
}

void SendCharacter(wchar_t character) {
  for (const DWORD up : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE | up;
    ::SendInput(1, &input, sizeof input);
  }
}

void Click(HWND window) {
  RECT place;
  ::GetWindowRect(window, &place);
  ::SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
  INPUT input{};
  input.type = INPUT_MOUSE;
  for (const DWORD button : {DWORD{MOUSEEVENTF_LEFTDOWN}, DWORD{MOUSEEVENTF_LEFTUP}}) {
    input.mi.dwFlags = button;
    ::SendInput(1, &input, sizeof input);
  }
}

struct Search {
  DWORD process;
  const wchar_t* kind;
  HWND found;
};

BOOL CALLBACK Examine(HWND window, LPARAM longer) {
  auto& search = *reinterpret_cast<Search*>(longer);
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  wchar_t kind[64];
  ::GetClassNameW(window, kind, 64);
  if (process != search.process || std::wstring(kind) != search.kind || ::IsWindowVisible(window) == FALSE) return TRUE;
  search.found = window;
  return FALSE;
}

HWND FindTopWindow(DWORD process, const wchar_t* kind) {
  Search search{process, kind, nullptr};
  ::EnumWindows(&Examine, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

int Picture::Count(COLORREF colour) const {
  const DWORD wanted = (DWORD{GetRValue(colour)} << 16) | (DWORD{GetGValue(colour)} << 8) | GetBValue(colour);
  return static_cast<int>(std::ranges::count(pixels, wanted));
}

std::wstring DialogText(HWND dialog) {
  std::wstring text;
  for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    wchar_t kind[64];
    ::GetClassNameW(child, kind, 64);
    const std::wstring label = ::lstrcmpiW(kind, L"Static") == 0 ? TextOf(child) : L"";
    if (!label.empty()) text += (text.empty() ? L"" : L"\n") + label;
  }
  return text;
}

void PressButton(HWND dialog, int id) {
  ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(id),
                 reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
  WaitUntil([dialog] { return ::IsWindow(dialog) == FALSE; });
}

RunningProgram::RunningProgram(const std::wstring& program, const std::wstring& arguments) {
  std::wstring command = L"\"" + program + L"\" " + arguments;
  STARTUPINFOW start{};
  start.cb = sizeof start;
  if (::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &mProcess) ==
      FALSE) {
    throw std::runtime_error("the program does not start");
  }
}

RunningProgram::~RunningProgram() {
  ::TerminateProcess(mProcess.hProcess, 1);
  ::WaitForSingleObject(mProcess.hProcess, 5000);
  ::CloseHandle(mProcess.hThread);
  ::CloseHandle(mProcess.hProcess);
}

HWND RunningProgram::FindWindow(const wchar_t* kind) const { return FindTopWindow(mProcess.dwProcessId, kind); }

HWND RunningProgram::OpenedDialog() const {
  if (!WaitUntil([this] { return Dialog() != nullptr; })) throw std::runtime_error("no dialog opened");
  return Dialog();
}

int RunningProgram::Status() const {
  DWORD status = 0;
  if (::WaitForSingleObject(mProcess.hProcess, 20000) != WAIT_OBJECT_0) return -1;
  ::GetExitCodeProcess(mProcess.hProcess, &status);
  return static_cast<int>(status);
}

DesktopDriver::DesktopDriver(const std::wstring& program, const std::wstring& arguments)
    : RunningProgram(program, arguments) {
  WaitUntil([this] { return (mWindow = FindWindow(L"PlotvaneHost")) != nullptr; }, std::chrono::seconds(60));
  if (mWindow == nullptr) throw std::runtime_error("the desktop host shows no window");
  Activate();
}

void DesktopDriver::Activate() {
  ::SetForegroundWindow(mWindow);
  WaitUntil([this] { return ::GetForegroundWindow() == mWindow; }, std::chrono::seconds(5));
}

std::wstring DesktopDriver::Title() const { return TextOf(mWindow); }
HWND DesktopDriver::Equation(int n) const { return ::GetDlgItem(mWindow, kEquationId + n - 1); }
HWND DesktopDriver::Colour(int n) const { return ::GetDlgItem(mWindow, kColourId + n - 1); }
HWND DesktopDriver::HistoryList() const { return ::GetDlgItem(mWindow, kHistoryId); }
HWND DesktopDriver::Calculator() const { return ::GetDlgItem(mWindow, kCalculatorId); }
std::wstring DesktopDriver::ErrorText() const { return TextOf(::GetDlgItem(mWindow, kErrorId)); }
std::vector<std::wstring> DesktopDriver::History() const { return LinesOf(::GetDlgItem(mWindow, kHistoryId)); }
std::vector<std::wstring> DesktopDriver::Variables() const { return LinesOf(::GetDlgItem(mWindow, kVariablesId)); }

HWND DesktopDriver::Focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  ::GetGUIThreadInfo(::GetWindowThreadProcessId(mWindow, nullptr), &info);
  return info.hwndFocus;
}

// The one child that the host did not make itself, and so without one of its numbers.
HWND DesktopDriver::Control() const {
  for (HWND child = ::GetWindow(mWindow, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (::GetDlgCtrlID(child) < 1000) return child;
  }
  return nullptr;
}

std::wstring DesktopDriver::Calculate(const std::wstring& line) {
  const std::size_t before = History().size();
  Type(Calculator(), line);
  Press(VK_RETURN);
  if (!WaitUntil([&] { return History().size() == before + 1; })) throw std::runtime_error("no answer");
  return History().back();
}

void DesktopDriver::Choose(wchar_t menu, wchar_t command) {
  Activate();
  Press(static_cast<WORD>(menu), {VK_MENU});
  // The host is in the loop of its menu before it takes the second key.
  const DWORD thread = ::GetWindowThreadProcessId(mWindow, nullptr);
  WaitUntil([thread] {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(thread, &info);
    return (info.flags & GUI_INMENUMODE) != 0;
  });
  WaitUntil([this] { return FindWindow(L"#32768") != nullptr; });
  Press(static_cast<WORD>(command));
  WaitUntil([this] { return FindWindow(L"#32768") == nullptr; });
}

void DesktopDriver::Type(HWND box, const std::wstring& text) {
  // A click may be lost while windows of other programs come and go on the screen.
  for (int i = 0; i < 3 && Focus() != box; ++i) {
    Click(box);
    WaitUntil([&] { return Focus() == box; }, std::chrono::seconds(5));
  }
  Press(VK_HOME);
  Press(VK_END, {VK_SHIFT});
  Press(VK_DELETE);
  WaitUntil([box] { return TextOf(box).empty(); });
  for (const wchar_t character : text) SendCharacter(character);
  WaitUntil([box, &text] { return TextOf(box) == text; });
}

void DesktopDriver::Press(WORD key, const std::vector<WORD>& held) {
  for (const WORD modifier : held) SendKey(modifier, true);
  SendKey(key, true);
  SendKey(key, false);
  for (const WORD modifier : held) SendKey(modifier, false);
}

HWND DesktopDriver::NameFile(const std::filesystem::path& path) {
  const HWND dialog = OpenedDialog();
  constexpr int kNameBox = 0x480;    // edt1
  constexpr int kNameList = 0x47C;   // cmb13, which holds the name in newer dialogs
  HWND name = nullptr;
  WaitUntil([&] {
    name = ::GetDlgItem(dialog, kNameBox);
    if (name == nullptr) name = ::GetDlgItem(dialog, kNameList);
    return name != nullptr;
  });
  ::SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
  ::PostMessageW(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(::GetDlgItem(dialog, IDOK)));
  return dialog;
}

void DesktopDriver::AnswerFileDialog(const std::filesystem::path& path) {
  const HWND dialog = NameFile(path);
  WaitUntil([dialog] { return ::IsWindow(dialog) == FALSE; });
}

Picture DesktopDriver::CaptureGraph() const {
  const HDC screen = ::GetDC(nullptr);
  RECT place;
  ::GetWindowRect(Control(), &place);
  const POINT corner{place.left, place.top};
  Picture picture;
  picture.width = static_cast<int>(place.right - place.left);
  picture.height = static_cast<int>(place.bottom - place.top);
  picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));

  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = picture.width;
  info.bmiHeader.biHeight = -picture.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const HDC memory = ::CreateCompatibleDC(screen);
  const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, picture.width, picture.height);
  const HGDIOBJ before = ::SelectObject(memory, bitmap);
  ::BitBlt(memory, 0, 0, picture.width, picture.height, screen, corner.x, corner.y, SRCCOPY);
  ::SelectObject(memory, before);
  ::GetDIBits(screen, bitmap, 0, static_cast<UINT>(picture.height), picture.pixels.data(), &info, DIB_RGB_COLORS);
  ::DeleteObject(bitmap);
  ::DeleteDC(memory);
  ::ReleaseDC(nullptr, screen);
  for (DWORD& pixel : picture.pixels) pixel &= 0xFFFFFF;
  return picture;
}

Picture DesktopDriver::Graph() {
  Activate();
  Picture now;
  WaitUntil([&] {
    Picture next = CaptureGraph();
    const bool still = next == now;
    now = std::move(next);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    return still;
  });
  return now;
}

bool DesktopDriver::Close() {
  ::PostMessageW(mWindow, WM_CLOSE, 0, 0);
  return Status() == 0;
}

}  // namespace plotvane::desktop_test
