// Focus: what the desktop host opens, saves and copies, and that nothing is lost on the way, worked from outside.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wincodec.h>
#include <wrl/client.h>

#include <string>

#include "tests/hosts/desktop_fixture.h"

namespace plotvane::desktop_test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Gt;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kOneFunction = "\"x/3\",#TRUE#,1,32768\r\n";

// The text of the message box that opens, which is answered with OK.
std::wstring Complaint(const DesktopDriver& host) {
  const HWND box = host.OpenedDialog();
  const std::wstring text = DialogText(box);
  PressButton(box, IDOK);
  return text;
}

TEST_F(DesktopHost, refuses_files_that_hold_no_functions_and_keeps_its_own) {
  const auto damaged = Write(L"damaged.pvf", "\"x\",#TRUE#,1\r\n");
  const auto picture = Write(L"picture.pvf", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
  DesktopDriver host(Program());
  const Picture before = host.Graph();
  for (const auto& file : {damaged, picture}) {
    host.Press(L'O', {VK_CONTROL});
    host.AnswerFileDialog(file);
    EXPECT_THAT(Complaint(host), HasSubstr(file.filename().wstring() + L" cannot be opened: ")) << file;
    EXPECT_EQ(host.Title(), L"Untitled - Plotvane");
  }
  EXPECT_EQ(host.Graph(), before);
}

TEST_F(DesktopHost, opens_the_file_that_its_command_line_names) {
  const auto file = Write(L"one line.pvf", kOneFunction);
  DesktopDriver host(Program(), L"\"" + file.wstring() + L"\"");
  ASSERT_TRUE(WaitUntil([&] { return host.Title() == L"one line.pvf - Plotvane"; }));
  EXPECT_THAT(host.Graph().Count(RGB(0, 0x80, 0)), Gt(100));
}

TEST_F(DesktopHost, tells_of_a_file_of_its_command_line_that_is_missing_and_goes_on) {
  DesktopDriver host(Program(), L"\"" + (mFolder / "missing.pvf").wstring() + L"\"");
  EXPECT_EQ(Complaint(host), L"missing.pvf cannot be opened: File not found");
  EXPECT_EQ(host.Title(), L"Untitled - Plotvane");
  host.Type(host.Equation(5), L"x");
  EXPECT_THAT(host.Graph().Count(kY5), Gt(100));
}

TEST_F(DesktopHost, a_file_that_may_not_be_written_survives_and_the_change_stays_unsaved) {
  const auto file = Write(L"mine.pvf", kOneFunction);
  DesktopDriver host(Program(), L"\"" + file.wstring() + L"\"");
  host.Type(host.Equation(2), L"x");
  {
    const ReadOnly locked(file);
    host.Press(L'S', {VK_CONTROL});
    EXPECT_EQ(Complaint(host), L"mine.pvf cannot be saved: Path/File access error");
  }
  EXPECT_EQ(host.Title(), L"mine.pvf (changed) - Plotvane");
  EXPECT_EQ(Bytes(file), kOneFunction);
  host.Press(L'S', {VK_CONTROL});
  ASSERT_TRUE(WaitUntil([&] { return host.Title() == L"mine.pvf - Plotvane"; }));
  EXPECT_THAT(Bytes(file), HasSubstr("\"x\",#TRUE#"));
}

TEST_F(DesktopHost, a_file_that_another_program_holds_survives_and_nothing_is_left_beside_it) {
  const auto file = Write(L"mine.pvf", kOneFunction);
  DesktopDriver host(Program(), L"\"" + file.wstring() + L"\"");
  host.Type(host.Equation(2), L"x");
  const HANDLE held = ::CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  host.Press(L'S', {VK_CONTROL});
  EXPECT_THAT(Complaint(host), HasSubstr(L"mine.pvf cannot be saved: "));
  ::CloseHandle(held);
  EXPECT_EQ(Bytes(file), kOneFunction);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(mFolder), {}), 1);
}

TEST_F(DesktopHost, variables_are_saved_and_come_back_after_a_restart) {
  const auto file = mFolder / "mine.pvv";
  {
    DesktopDriver host(Program());
    host.Calculate(L"a=2");
    host.Calculate(L"name=1/8");
    host.Choose(L'F', L'R');
    host.AnswerFileDialog(file);
    ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(file); }));
    EXPECT_TRUE(host.Close()) << "saved variables need no question";
  }
  EXPECT_THAT(Bytes(file), AllOf(HasSubstr("\"a\",2,2,\"\"\r\n"), HasSubstr("\"name\",0.125,2,\"\"\r\n")));

  DesktopDriver host(Program());
  host.Type(host.Equation(5), L"a*x");
  EXPECT_EQ(host.Graph().Count(kY5), 0);
  host.Choose(L'F', L'V');
  host.AnswerFileDialog(file);
  ASSERT_TRUE(WaitUntil([&] { return host.Variables().size() == 2; }));
  EXPECT_THAT(host.Variables(), AllOf(Contains(std::wstring(L"a = 2")), Contains(std::wstring(L"name = 0.125"))));
  EXPECT_THAT(host.Graph().Count(kY5), Gt(100));
}

TEST_F(DesktopHost, constants_of_a_variable_file_stay_in_it) {
  const auto file = Write(L"mine.pvv", "\"speed\",5,4,\"fixed\"\r\n\"a\",2,2,\"\"\r\n");
  DesktopDriver host(Program());
  host.Choose(L'F', L'V');
  host.AnswerFileDialog(file);
  ASSERT_TRUE(WaitUntil([&] { return host.Variables().size() == 1; }));
  EXPECT_EQ(host.Calculate(L"a=speed+1"), L"a=speed+1  =  6");
  host.Choose(L'F', L'R');
  host.AnswerFileDialog(mFolder / "other.pvv");
  ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(mFolder / "other.pvv"); }));
  EXPECT_TRUE(WaitUntil([&] { return Bytes(mFolder / "other.pvv").starts_with("\"x\"") ||
                                     Bytes(mFolder / "other.pvv").starts_with("\"speed\""); }));
  EXPECT_THAT(Bytes(mFolder / "other.pvv"), AllOf(HasSubstr("\"speed\",5,4,\"fixed\"\r\n"), HasSubstr("\"a\",6,2,\"\"\r\n")));
}

TEST_F(DesktopHost, a_damaged_variable_file_changes_no_variable) {
  const auto file = Write(L"damaged.pvv", "\"a\",7,2,\"\"\r\n\"b\",1\r\n");
  DesktopDriver host(Program());
  host.Calculate(L"a=2");
  host.Choose(L'F', L'V');
  PressButton(host.OpenedDialog(), IDNO);  // to the question whether to save a
  host.AnswerFileDialog(file);
  EXPECT_EQ(Complaint(host), L"damaged.pvv cannot be opened: Input past end of file");
  EXPECT_EQ(host.Variables(), std::vector<std::wstring>{L"a = 2"});
}

Picture DecodePng(const std::filesystem::path& file) {
  using Microsoft::WRL::ComPtr;
  ::CoInitialize(nullptr);
  Picture picture;
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICBitmapDecoder> decoder;
  ComPtr<IWICBitmapFrameDecode> frame;
  ComPtr<IWICFormatConverter> converter;
  UINT width = 0;
  UINT height = 0;
  const bool read =
      SUCCEEDED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory))) &&
      SUCCEEDED(factory->CreateDecoderFromFilename(file.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnLoad,
                                                   &decoder)) &&
      SUCCEEDED(decoder->GetFrame(0, &frame)) && SUCCEEDED(frame->GetSize(&width, &height)) &&
      SUCCEEDED(factory->CreateFormatConverter(&converter)) &&
      SUCCEEDED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone, nullptr, 0,
                                      WICBitmapPaletteTypeCustom));
  if (!read) return picture;
  picture.width = static_cast<int>(width);
  picture.height = static_cast<int>(height);
  picture.pixels.resize(std::size_t{width} * height);
  converter->CopyPixels(nullptr, width * 4, width * height * 4, reinterpret_cast<BYTE*>(picture.pixels.data()));
  for (DWORD& pixel : picture.pixels) pixel &= 0xFFFFFF;
  return picture;
}

// What a metafile shows in a bitmap of that size.
Picture Play(HENHMETAFILE metafile, int width, int height) {
  Picture picture{width, height, std::vector<DWORD>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))};
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HDC device = ::CreateCompatibleDC(nullptr);
  const HGDIOBJ before = ::SelectObject(device, bitmap);
  const RECT place{0, 0, width, height};
  ::PlayEnhMetaFile(device, metafile, &place);
  ::GdiFlush();
  std::copy_n(static_cast<const DWORD*>(bits), picture.pixels.size(), picture.pixels.begin());
  ::SelectObject(device, before);
  ::DeleteDC(device);
  ::DeleteObject(bitmap);
  return picture;
}

struct Records {
  int lines = 0;
  int bitmaps = 0;
};

int CALLBACK CountRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM longer) {
  auto& records = *reinterpret_cast<Records*>(longer);
  switch (record->iType) {
    case EMR_LINETO:
    case EMR_POLYLINE:
    case EMR_POLYLINE16:
    case EMR_POLYPOLYLINE:
    case EMR_POLYPOLYLINE16: ++records.lines; break;
    case EMR_STRETCHBLT:
    case EMR_STRETCHDIBITS:
    case EMR_SETDIBITSTODEVICE: ++records.bitmaps; break;
    case EMR_BITBLT:  // without a source it fills
      if (reinterpret_cast<const EMRBITBLT*>(record)->cbBitsSrc > 0) ++records.bitmaps;
      break;
    default: break;
  }
  return 1;
}

Records CountRecords(HENHMETAFILE metafile) {
  Records records;
  ::EnumEnhMetaFile(nullptr, metafile, &CountRecord, &records, nullptr);
  return records;
}

// What the tallest window of the control shows, between its toolbar and the boxes below.
Picture GraphAlone(DesktopDriver& host) {
  const Picture shown = host.Graph();
  RECT widest{};
  for (HWND child = ::GetWindow(host.Control(), GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    RECT place;
    ::GetWindowRect(child, &place);
    if (place.bottom - place.top > widest.bottom - widest.top) widest = place;
  }
  RECT control;
  ::GetWindowRect(host.Control(), &control);
  const auto width = static_cast<std::size_t>(shown.width);
  Picture graph{shown.width, static_cast<int>(widest.bottom - widest.top), {}};
  const auto first = shown.pixels.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(widest.top - control.top) * width);
  graph.pixels.assign(first, first + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(graph.height) * width));
  return graph;
}

void ExpectSampleCurves(const Picture& picture) {
  for (const COLORREF colour : {kY1, kY2, kY3}) EXPECT_THAT(picture.Count(colour), Gt(100)) << colour;
}

TEST_F(DesktopHost, saves_the_picture_as_png) {
  DesktopDriver host(Program());
  const Picture graph = GraphAlone(host);
  host.Choose(L'P', L'P');
  host.AnswerFileDialog(mFolder / "picture.png");
  ASSERT_TRUE(WaitUntil([&] { return DecodePng(mFolder / "picture.png").width > 0; }));
  const Picture saved = DecodePng(mFolder / "picture.png");
  ExpectSampleCurves(saved);
  EXPECT_TRUE(saved == graph) << "the file does not hold what the screen shows";
}

TEST_F(DesktopHost, saves_the_picture_as_lines_in_a_metafile) {
  DesktopDriver host(Program());
  const Picture graph = GraphAlone(host);
  host.Choose(L'P', L'E');
  host.AnswerFileDialog(mFolder / "picture.emf");
  ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(mFolder / "picture.emf"); }));
  const HENHMETAFILE metafile = ::GetEnhMetaFileW((mFolder / "picture.emf").c_str());
  ASSERT_NE(metafile, nullptr);
  ExpectSampleCurves(Play(metafile, graph.width, graph.height));
  const Records records = CountRecords(metafile);
  EXPECT_THAT(records.lines, Gt(4));
  EXPECT_EQ(records.bitmaps, 0);
  ::DeleteEnhMetaFile(metafile);
}

TEST_F(DesktopHost, a_picture_that_cannot_be_replaced_survives) {
  const auto file = Write(L"old.png", "the picture before");
  const ReadOnly locked(file);
  DesktopDriver host(Program());
  host.Choose(L'P', L'P');
  const HWND dialog = host.NameFile(file);
  ASSERT_TRUE(WaitUntil([&] { return host.Dialog() != nullptr && host.Dialog() != dialog; })) << "no question";
  PressButton(host.Dialog(), IDYES);  // it may be replaced
  ASSERT_TRUE(WaitUntil([&] { return ::IsWindow(dialog) == FALSE; }));
  EXPECT_EQ(Complaint(host), L"old.png cannot be saved: Path/File access error");
  EXPECT_EQ(Bytes(file), "the picture before");
}

TEST_F(DesktopHost, copies_the_picture_as_lines_and_as_a_bitmap) {
  DesktopDriver host(Program());
  const Picture graph = GraphAlone(host);
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  ::EmptyClipboard();
  ::CloseClipboard();
  host.Press(L'C', {VK_CONTROL, VK_SHIFT});
  ASSERT_TRUE(WaitUntil([] {
    return ::IsClipboardFormatAvailable(CF_ENHMETAFILE) != FALSE && ::IsClipboardFormatAvailable(CF_DIB) != FALSE;
  }));
  ASSERT_TRUE(WaitUntil([] { return ::OpenClipboard(nullptr) != FALSE; }));
  const auto metafile = static_cast<HENHMETAFILE>(::GetClipboardData(CF_ENHMETAFILE));
  ASSERT_NE(metafile, nullptr);
  ExpectSampleCurves(Play(metafile, graph.width, graph.height));
  EXPECT_THAT(CountRecords(metafile).lines, Gt(4));
  const HANDLE copied = ::GetClipboardData(CF_DIB);
  ASSERT_NE(copied, nullptr) << ::GetLastError();
  const auto& bitmap = *static_cast<const BITMAPINFOHEADER*>(::GlobalLock(copied));
  EXPECT_EQ(bitmap.biWidth, graph.width);
  EXPECT_EQ(std::abs(bitmap.biHeight), graph.height);
  ::GlobalUnlock(copied);
  ::CloseClipboard();
}

}  // namespace
}  // namespace plotvane::desktop_test
