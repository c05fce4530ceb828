#include "driver.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "control/win32/handles.h"
#include "control/win32/wide_text.h"
#include "host_messages.h"

namespace plotvane::test {
namespace {

using control::win32::FromWide;
using control::win32::ToWide;

std::string ClassOf(HWND window) {
  wchar_t name[64]{};
  ::GetClassNameW(window, name, 64);
  return FromWide(name);
}

struct Search {
  std::function<bool(HWND)> matches;
  HWND found = nullptr;
};

BOOL CALLBACK Visit(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (!search.matches(window)) return TRUE;
  search.found = window;
  return FALSE;
}

HWND FindChild(HWND parent, std::function<bool(HWND)> matches) {
  Search search{std::move(matches), nullptr};
  ::EnumChildWindows(parent, &Visit, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void Mouse(DWORD what) {
  ::mouse_event(what, 0, 0, 0, 0);
}

void Key(WORD key, bool up) {
  ::keybd_event(static_cast<BYTE>(key), static_cast<BYTE>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC)),
                up ? KEYEVENTF_KEYUP : 0, 0);
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, int milliseconds) {
  for (const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(milliseconds);;) {
    if (condition()) return true;
    if (::GetTickCount64() > end) return false;
    ::Sleep(10);
  }
}

void Settle() {
  const HWND host = ::FindWindowW(kHostClass, nullptr);
  if (host == nullptr) return;
  const auto last = reinterpret_cast<UINT_PTR>(::GetPropW(host, kAtRestProperty));
  const UINT_PTR number = last % 1000 + 1;
  ::PostMessageW(host, kComeToRestMessage, number, 0);
  WaitUntil([&] {
    return !::IsWindow(host) || reinterpret_cast<UINT_PTR>(::GetPropW(host, kAtRestProperty)) == number;
  });
}

// ---- Windows ----

std::string TextOf(HWND window) {
  const auto length = ::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0);
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  const auto copied = ::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(copied));
  return FromWide(text);
}

bool HasClass(HWND window, std::string_view className) {
  return ::lstrcmpiW(ToWide(ClassOf(window)).c_str(), ToWide(className).c_str()) == 0;
}

HWND FindTop(std::string_view title, std::string_view className) {
  Search search{[&](HWND window) {
                  wchar_t text[128]{};
                  ::GetWindowTextW(window, text, 128);
                  return ::IsWindowVisible(window) && FromWide(text) == title &&
                         (className.empty() || HasClass(window, className));
                },
                nullptr};
  ::EnumWindows(&Visit, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND WaitForTop(std::string_view title, std::string_view className) {
  HWND found = nullptr;
  WaitUntil([&] { return (found = FindTop(title, className)) != nullptr; });
  if (found != nullptr) Settle();
  return found;
}

HWND FindTooltip(std::string_view text) {
  Search search{[&](HWND window) {
                  return ::IsWindowVisible(window) && HasClass(window, "tooltips_class32") &&
                         TextOf(window) == text;
                },
                nullptr};
  ::EnumWindows(&Visit, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND FindByText(HWND parent, std::string_view text) {
  return FindChild(parent, [&](HWND window) { return TextOf(window) == text; });
}

HWND FindByClass(HWND parent, std::string_view className, int index) {
  return FindChild(parent, [&](HWND window) { return HasClass(window, className) && index-- == 0; });
}

bool IsChecked(HWND option) {
  return ::SendMessageW(option, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

RECT ScreenRect(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  return rect;
}

// ---- Real input ----

void MoveTo(HWND window, int x, int y) {
  POINT at{x, y};
  ::ClientToScreen(window, &at);
  ::SetCursorPos(at.x, at.y);
  Mouse(MOUSEEVENTF_MOVE);
  Settle();
}

void TakePointerAway() {
  ::SetCursorPos(::GetSystemMetrics(SM_CXSCREEN) - 1, 0);
  Mouse(MOUSEEVENTF_MOVE);
  Settle();
}

void ButtonDown(bool right) {
  Mouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
  Settle();
}

void ButtonUp(bool right) {
  Mouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
  Settle();
}

void ClickAt(HWND window, int x, int y, bool right) {
  MoveTo(window, x, y);
  ButtonDown(right);
  ButtonUp(right);
}

void Click(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  ClickAt(window, client.right / 2, client.bottom / 2);
}

void PressKey(WORD key, WORD held) {
  if (held != 0) Key(held, false);
  Key(key, false);
  Key(key, true);
  if (held != 0) Key(held, true);
  Settle();
}

void TypeText(std::string_view text) {
  for (const char character : text) {
    const SHORT code = ::VkKeyScanW(static_cast<WCHAR>(character));
    const bool shift = (code & 0x100) != 0;
    if (shift) Key(VK_SHIFT, false);
    Key(static_cast<WORD>(code & 0xFF), false);
    Key(static_cast<WORD>(code & 0xFF), true);
    if (shift) Key(VK_SHIFT, true);
  }
  Settle();
}

void RetypeText(std::string_view text) {
  PressKey(VK_HOME);
  PressKey(VK_END, VK_SHIFT);
  PressKey(VK_DELETE);
  TypeText(text);
}

// ---- Pictures ----

COLORREF PixelAt(HWND window, int x, int y) {
  POINT at{x, y};
  ::ClientToScreen(window, &at);
  const control::win32::WindowContext screen(nullptr);
  return ::GetPixel(screen.Get(), at.x, at.y);
}

int Picture::Count(COLORREF colour) const {
  return static_cast<int>(std::count(pixels.begin(), pixels.end(), colour));
}

Picture Capture(HWND window) {
  Settle();
  const RECT rect = ScreenRect(window);
  Picture picture{rect.right - rect.left, rect.bottom - rect.top, {}};
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = picture.width;
  info.bmiHeader.biHeight = -picture.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  const control::win32::WindowContext screen(nullptr);
  const control::win32::OwnedMemoryContext memory(::CreateCompatibleDC(screen.Get()));
  const control::win32::OwnedBitmap bitmap(
      ::CreateDIBSection(screen.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  const control::win32::SelectScope selected(memory.Get(), bitmap.Get());
  ::BitBlt(memory.Get(), 0, 0, picture.width, picture.height, screen.Get(), rect.left, rect.top, SRCCOPY);
  ::GdiFlush();
  const auto* const first = static_cast<const RGBQUAD*>(bits);
  std::transform(first, first + picture.width * picture.height, std::back_inserter(picture.pixels),
                 [](const RGBQUAD& pixel) { return RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue); });
  return picture;
}

void SavePicture(HWND window, const std::string& name) {
  const char* const folder = std::getenv("PLOTVANE_PICTURES");
  if (folder == nullptr) return;
  const Picture picture = Capture(window);
  std::FILE* const file = std::fopen((std::string(folder) + "/" + name + ".ppm").c_str(), "wb");
  if (file == nullptr) return;
  std::fprintf(file, "P6 %d %d 255\n", picture.width, picture.height);
  for (const COLORREF pixel : picture.pixels) {
    const BYTE parts[] = {GetRValue(pixel), GetGValue(pixel), GetBValue(pixel)};
    std::fwrite(parts, 1, sizeof parts, file);
  }
  std::fclose(file);
}

// ---- The program ----

Program::Program(const std::string& commandLine, std::string_view title) {
  TakePointerAway();  // no window opens under it
  std::wstring line = ToWide(commandLine);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &mProcess);
  mTop = WaitForTop(title);
}

Program::~Program() {
  Close();
  if (Running()) ::TerminateProcess(mProcess.hProcess, 1);
  ::WaitForSingleObject(mProcess.hProcess, 5000);
  ::CloseHandle(mProcess.hThread);
  ::CloseHandle(mProcess.hProcess);
}

bool Program::Running() const {
  return ::WaitForSingleObject(mProcess.hProcess, 0) == WAIT_TIMEOUT;
}

int Program::Close() {
  if (Running()) ::PostMessageW(mTop, WM_CLOSE, 0, 0);
  if (::WaitForSingleObject(mProcess.hProcess, 20'000) != WAIT_OBJECT_0) return -1;
  DWORD status = 0;
  ::GetExitCodeProcess(mProcess.hProcess, &status);
  return static_cast<int>(status);
}

}  // namespace plotvane::test
