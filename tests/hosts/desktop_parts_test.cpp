// Focus: the icon, the printed page on a metafile that stands for the printer, and the commands with their keys.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <map>
#include <set>
#include <string>

#include "hosts/desktop/automation_object.h"
#include "hosts/desktop/commands.h"
#include "hosts/desktop/control_host.h"
#include "hosts/desktop/main_window.h"
#include "hosts/desktop/picture.h"
#include "hosts/desktop/resource.h"

namespace plotvane::desktop {
namespace {

using testing::Gt;

// The character behind the "&" of a caption, in upper case; 0 without one.
wchar_t Mnemonic(const std::wstring& caption) {
  const std::size_t at = caption.find(L'&');
  return at + 1 < caption.size() ? static_cast<wchar_t>(std::towupper(caption[at + 1])) : L'\0';
}

TEST(Commands, each_has_a_mnemonic_of_its_own_in_its_menu) {
  std::map<std::wstring, std::set<wchar_t>> menus;
  for (const CommandEntry& entry : Commands()) {
    if (entry.command == Command::None) continue;
    const wchar_t mnemonic = Mnemonic(entry.caption);
    EXPECT_NE(mnemonic, L'\0') << testing::PrintToString(std::wstring(entry.caption));
    EXPECT_TRUE(menus[entry.menu].insert(mnemonic).second) << testing::PrintToString(std::wstring(entry.caption));
  }
}

TEST(Commands, menus_keep_clear_of_the_other_mnemonics_of_the_window) {
  std::set<std::wstring> menus;
  for (const CommandEntry& entry : Commands()) menus.insert(entry.menu);
  // The control's toolbar, then the labels and rows of the panel.
  std::set<wchar_t> taken{L'G', L'Z', L'I', L'O', L'B', L'R', L'T', L'E', L'Y', L'C', L'A'};
  for (const std::wstring& menu : menus) {
    EXPECT_TRUE(taken.insert(Mnemonic(menu)).second) << testing::PrintToString(menu);
  }
}

TEST(Commands, a_key_belongs_to_one_command_and_stands_in_its_caption) {
  std::set<std::pair<int, int>> keys;
  for (const CommandEntry& entry : Commands()) {
    if (entry.key == 0) continue;
    EXPECT_TRUE(keys.insert({entry.modifiers, entry.key}).second);
    EXPECT_NE(std::wstring(entry.caption).find(L'\t'), std::wstring::npos);
  }
}

constexpr COLORREF kRed = RGB(255, 0, 0);

// The red line y = x for the control.
class Line final : public AutomationObject<> {
 public:
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* members) override {
    const std::wstring name = names[0];
    members[0] = name == L"Equation" ? 1 : name == L"Enabled" ? 2 : name == L"QuickRedraw" ? 3 : 4;
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override {
    if ((flags & DISPATCH_PROPERTYPUT) != 0) return S_OK;
    V_VT(result) = member == 1 ? VT_BSTR : member == 4 ? VT_I4 : VT_BOOL;
    if (member == 1) V_BSTR(result) = ::SysAllocString(L"x");
    if (member == 2) V_BOOL(result) = VARIANT_TRUE;
    if (member == 3) V_BOOL(result) = VARIANT_FALSE;
    if (member == 4) V_I4(result) = static_cast<LONG>(kRed);
    return S_OK;
  }
};

class PrintedPage : public testing::Test {
 protected:
  PrintedPage()
      : mWindow(::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr,
                                  nullptr, nullptr)),
        mControl(mWindow, [] { return RECT{0, 0, 400, 300}; }, [] {}) {
    VARIANT functions{};
    V_VT(&functions) = VT_ARRAY | VT_DISPATCH;
    V_ARRAY(&functions) = ::SafeArrayCreateVector(VT_DISPATCH, 1, 1);
    static_cast<IDispatch**>(V_ARRAY(&functions)->pvData)[0] = new Line;
    mControl.Graph().SetYArray(&functions, nullptr);
    ::VariantClear(&functions);
  }
  ~PrintedPage() override { ::DestroyWindow(mWindow); }

  class Ole {
   public:
    Ole() { static_cast<void>(::OleInitialize(nullptr)); }
    ~Ole() { ::OleUninitialize(); }
  };

  Ole mOle;
  HWND mWindow;
  ControlHost mControl;
};

constexpr int kPlaceLeft = 40;

struct Drawn {
  RECT red{100000, 100000, -100000, -100000};  // around the lines of that colour
  int lines = 0;
};

bool PenIsRed(HDC device) {
  const HGDIOBJ pen = ::GetCurrentObject(device, OBJ_PEN);
  if (LOGPEN plain{}; ::GetObjectW(pen, sizeof plain, &plain) == sizeof plain) return plain.lopnColor == kRed;
  EXTLOGPEN extended{};
  ::GetObjectW(pen, sizeof extended, &extended);
  return extended.elpColor == kRed;
}

int CALLBACK NoteRecord(HDC device, HANDLETABLE* handles, const ENHMETARECORD* record, int count, LPARAM longer) {
  auto& drawn = *reinterpret_cast<Drawn*>(longer);
  // Played, so that the device knows how the record's units map to its pixels.
  const auto add = [&](LONG x, LONG y) {
    POINT point{x, y};
    ::LPtoDP(device, &point, 1);
    if (!PenIsRed(device) || point.x < kPlaceLeft) return;  // the first stroke begins outside
    RECT& red = drawn.red;
    red = {std::min(red.left, point.x), std::min(red.top, point.y), std::max(red.right, point.x),
           std::max(red.bottom, point.y)};
  };
  if (record->iType == EMR_POLYLINE16) {
    const auto& line = *reinterpret_cast<const EMRPOLYLINE16*>(record);
    for (DWORD i = 0; i < line.cpts; ++i) add(line.apts[i].x, line.apts[i].y);
    ++drawn.lines;
  } else if (record->iType == EMR_LINETO) {
    const auto& line = *reinterpret_cast<const EMRLINETO*>(record);
    POINT from{};
    ::GetCurrentPositionEx(device, &from);
    add(from.x, from.y);
    add(line.ptl.x, line.ptl.y);
    ++drawn.lines;
  }
  return ::PlayEnhMetaFileRecord(device, handles, record, static_cast<UINT>(count));
}

TEST_F(PrintedPage, has_the_picture_as_lines_in_its_proportions_within_the_margins) {
  // A sheet of 4 by 6 inches at 100 dots an inch, a tenth of an inch of which cannot be printed on.
  const Page page{380, 580, 100, 100, 400, 600, 10, 10};
  const HDC screen = ::GetDC(nullptr);
  const RECT frame{0, 0, ::MulDiv(380, 100 * ::GetDeviceCaps(screen, HORZSIZE), ::GetDeviceCaps(screen, HORZRES)),
                   ::MulDiv(580, 100 * ::GetDeviceCaps(screen, VERTSIZE), ::GetDeviceCaps(screen, VERTRES))};
  const HDC recorder = ::CreateEnhMetaFileW(screen, nullptr, &frame, nullptr);
  ASSERT_NE(recorder, nullptr);
  DrawPage(recorder, page, mControl);
  const HENHMETAFILE metafile = ::CloseEnhMetaFile(recorder);
  ASSERT_NE(metafile, nullptr);

  Drawn drawn;
  const HDC memory = ::CreateCompatibleDC(screen);
  const RECT sheet{0, 0, 380, 580};
  ::EnumEnhMetaFile(memory, metafile, &NoteRecord, &drawn, &sheet);
  ::DeleteDC(memory);
  ::DeleteEnhMetaFile(metafile);
  ::ReleaseDC(nullptr, screen);

  EXPECT_THAT(drawn.lines, Gt(2));
  // Half an inch from the paper's edges is 40 dots from those of the printable area: 300 dots wide. The line y = x of the
  // standard range goes from one corner of the graph to the other.
  const SIZE graph = mControl.GraphSize();
  const double height = 300.0 * static_cast<double>(graph.cy) / static_cast<double>(graph.cx);
  EXPECT_NEAR(drawn.red.left, kPlaceLeft, 2);
  EXPECT_NEAR(drawn.red.right, 340, 2);
  EXPECT_NEAR(drawn.red.top, 40, 2);
  EXPECT_NEAR(drawn.red.bottom, 40 + height, 2);
}

TEST(Icon, is_in_the_window_and_in_the_program_in_every_size) {
  const HRESULT ole = ::OleInitialize(nullptr);
  {
    const MainWindow window;
    const HWND handle = ::FindWindowW(L"PlotvaneHost", nullptr);
    ASSERT_NE(handle, nullptr);
    EXPECT_NE(::GetClassLongPtrW(handle, GCLP_HICON), 0u);
    EXPECT_NE(::GetClassLongPtrW(handle, GCLP_HICONSM), 0u);
  }
  if (SUCCEEDED(ole)) ::OleUninitialize();
  const HMODULE program = ::LoadLibraryExW(PLOTVANE_HOST_FROM_TESTS, nullptr, LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_NE(program, nullptr);
  for (const int size : {16, 24, 32, 48, 256}) {
    const auto icon = static_cast<HICON>(
        ::LoadImageW(program, MAKEINTRESOURCEW(IDI_PLOTVANE), IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
    ICONINFO info{};
    ASSERT_NE(::GetIconInfo(icon, &info), FALSE) << size;
    BITMAP bitmap{};
    ::GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, size);
    ::DeleteObject(info.hbmColor);
    ::DeleteObject(info.hbmMask);
    ::DestroyIcon(icon);
  }
  ::FreeLibrary(program);
}

}  // namespace
}  // namespace plotvane::desktop
