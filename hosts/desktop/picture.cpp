#include "hosts/desktop/picture.h"

#include <commdlg.h>
#include <wincodec.h>

#include <memory>
#include <type_traits>

#include "platform/paths.h"
#include "platform/runtime_error.h"
#include "platform/safe_save.h"

namespace plotvane::desktop {

using Microsoft::WRL::ComPtr;

namespace {

struct CloseDevice {
  void operator()(HDC device) const { ::DeleteDC(device); }
};
struct CloseObject {
  void operator()(void* object) const { ::DeleteObject(object); }
};
struct FreeMemory {
  void operator()(HGLOBAL memory) const { ::GlobalFree(memory); }
};
struct CloseMetafile {
  void operator()(HENHMETAFILE metafile) const { ::DeleteEnhMetaFile(metafile); }
};
template <typename Handle, typename Close>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Close>;
using OwnedDevice = Owned<HDC, CloseDevice>;
using OwnedBitmap = Owned<HBITMAP, CloseObject>;
using OwnedMemory = Owned<HGLOBAL, FreeMemory>;
using OwnedMetafile = Owned<HENHMETAFILE, CloseMetafile>;

void Check(HRESULT status, const char* what) {
  if (FAILED(status)) throw platform::RunTimeError(status, what);
}

void Require(bool fine, const char* what) {
  if (!fine) throw platform::RunTimeError(HRESULT_FROM_WIN32(::GetLastError()), what);
}

// The picture in a bitmap of 32 bits a pixel, top row first.
OwnedBitmap DrawBitmap(ControlHost& control) {
  const SIZE pixels = control.GraphSize();
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = pixels.cx;
  info.bmiHeader.biHeight = -pixels.cy;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  OwnedBitmap bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  OwnedDevice device(::CreateCompatibleDC(nullptr));
  Require(bitmap && device, "There is not enough memory for the picture.");
  const HGDIOBJ before = ::SelectObject(device.get(), bitmap.get());
  const RECT place{0, 0, pixels.cx, pixels.cy};
  ::FillRect(device.get(), &place, ::GetSysColorBrush(COLOR_WINDOW));
  const HRESULT drawn = control.DrawGraph(device.get(), place);
  ::GdiFlush();
  ::SelectObject(device.get(), before);
  Check(drawn, "The control could not draw its picture.");
  return bitmap;
}

// The same as programs take it from the clipboard: a header, then rows of 32 bits a pixel from the bottom.
OwnedMemory DrawPackedBitmap(ControlHost& control) {
  const SIZE pixels = control.GraphSize();
  const OwnedBitmap bitmap = DrawBitmap(control);
  const auto bytes = static_cast<std::size_t>(pixels.cx) * static_cast<std::size_t>(pixels.cy) * sizeof(DWORD);
  OwnedMemory memory(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(BITMAPINFOHEADER) + bytes));
  Require(memory != nullptr, "There is not enough memory for the picture.");
  auto* const header = static_cast<BITMAPINFOHEADER*>(::GlobalLock(memory.get()));
  header->biSize = sizeof *header;
  header->biWidth = pixels.cx;
  header->biHeight = pixels.cy;
  header->biPlanes = 1;
  header->biBitCount = 32;
  header->biCompression = BI_RGB;
  const HDC screen = ::GetDC(nullptr);
  const int rows = ::GetDIBits(screen, bitmap.get(), 0, static_cast<UINT>(pixels.cy), header + 1,
                               reinterpret_cast<BITMAPINFO*>(header), DIB_RGB_COLORS);
  ::ReleaseDC(nullptr, screen);
  ::GlobalUnlock(memory.get());
  Require(rows == pixels.cy, "There is not enough memory for the picture.");
  return memory;
}

// The picture as vectors; to a file when `file` is not null.
OwnedMetafile DrawMetafile(ControlHost& control, const wchar_t* file) {
  const SIZE pixels = control.GraphSize();
  const HDC screen = ::GetDC(nullptr);
  // The frame of a metafile is in 1/100 mm.
  const RECT frame{0, 0,
                   ::MulDiv(static_cast<int>(pixels.cx), 100 * ::GetDeviceCaps(screen, HORZSIZE),
                            ::GetDeviceCaps(screen, HORZRES)),
                   ::MulDiv(static_cast<int>(pixels.cy), 100 * ::GetDeviceCaps(screen, VERTSIZE),
                            ::GetDeviceCaps(screen, VERTRES))};
  const HDC device = ::CreateEnhMetaFileW(screen, file, &frame, L"Plotvane\0Graph\0");
  ::ReleaseDC(nullptr, screen);
  Require(device != nullptr, "The metafile cannot be made.");
  const HRESULT drawn = control.DrawGraph(device, {0, 0, pixels.cx, pixels.cy});
  OwnedMetafile metafile(::CloseEnhMetaFile(device));
  Check(drawn, "The control could not draw its picture.");
  Require(metafile != nullptr, "The metafile cannot be written.");
  return metafile;
}

void EncodePng(HBITMAP bitmap, SIZE pixels, const std::filesystem::path& file) {
  ComPtr<IWICImagingFactory> factory;
  Check(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           IID_PPV_ARGS(factory.GetAddressOf())),
        "This system cannot write PNG pictures.");
  ComPtr<IWICBitmap> source;
  Check(factory->CreateBitmapFromHBITMAP(bitmap, nullptr, WICBitmapIgnoreAlpha, source.GetAddressOf()),
        "There is not enough memory for the picture.");
  ComPtr<IWICStream> stream;
  Check(factory->CreateStream(stream.GetAddressOf()), "The file cannot be written.");
  Check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE), "The file cannot be written.");
  ComPtr<IWICBitmapEncoder> encoder;
  Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.GetAddressOf()),
        "This system cannot write PNG pictures.");
  Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache), "The file cannot be written.");
  ComPtr<IWICBitmapFrameEncode> frame;
  Check(encoder->CreateNewFrame(frame.GetAddressOf(), nullptr), "The file cannot be written.");
  Check(frame->Initialize(nullptr), "The file cannot be written.");
  Check(frame->SetSize(static_cast<UINT>(pixels.cx), static_cast<UINT>(pixels.cy)), "The file cannot be written.");
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  Check(frame->SetPixelFormat(&format), "The file cannot be written.");
  Check(frame->WriteSource(source.Get(), nullptr), "The file cannot be written.");
  Check(frame->Commit(), "The file cannot be written.");
  Check(encoder->Commit(), "The file cannot be written.");
}

Page PageOf(HDC printer) {
  const auto get = [printer](int what) { return ::GetDeviceCaps(printer, what); };
  return {get(HORZRES),       get(VERTRES),        get(LOGPIXELSX),      get(LOGPIXELSY),
          get(PHYSICALWIDTH), get(PHYSICALHEIGHT), get(PHYSICALOFFSETX), get(PHYSICALOFFSETY)};
}

// One document of a printer; thrown away unless it is finished.
class PrintJob {
 public:
  PrintJob(HDC printer, const std::wstring& title) : mPrinter(printer) {
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = title.c_str();
    Require(::StartDocW(printer, &document) > 0, "Printing cannot start.");
    mOpen = true;
  }
  ~PrintJob() {
    if (mOpen) ::AbortDoc(mPrinter);
  }
  PrintJob(const PrintJob&) = delete;
  PrintJob& operator=(const PrintJob&) = delete;

  template <typename Draw>
  void AddPage(Draw draw) {
    Require(::StartPage(mPrinter) > 0, "The page cannot be printed.");
    draw();
    Require(::EndPage(mPrinter) > 0, "The page cannot be printed.");
  }
  void Finish() {
    Require(::EndDoc(mPrinter) > 0, "Printing cannot be finished.");
    mOpen = false;
  }

 private:
  HDC mPrinter;
  bool mOpen = false;
};

}  // namespace

void CopyPicture(HWND owner, ControlHost& control) {
  OwnedMemory bitmap = DrawPackedBitmap(control);
  OwnedMetafile metafile = DrawMetafile(control, nullptr);
  Require(::OpenClipboard(owner) != FALSE, "The clipboard is in use by another program.");
  ::EmptyClipboard();
  // From here on the clipboard owns what it took.
  if (::SetClipboardData(CF_ENHMETAFILE, metafile.get()) != nullptr) static_cast<void>(metafile.release());
  if (::SetClipboardData(CF_DIB, bitmap.get()) != nullptr) static_cast<void>(bitmap.release());
  ::CloseClipboard();
}

void SavePng(ControlHost& control, const std::filesystem::path& file) {
  const OwnedBitmap bitmap = DrawBitmap(control);
  platform::SaveSafely(platform::TextFromPath(file), [&](const std::string& newPath) {
    EncodePng(bitmap.get(), control.GraphSize(), platform::PathFromText(newPath));
  });
}

void SaveEmf(ControlHost& control, const std::filesystem::path& file) {
  platform::SaveSafely(platform::TextFromPath(file), [&](const std::string& newPath) {
    static_cast<void>(DrawMetafile(control, platform::PathFromText(newPath).c_str()));
  });
}

void DrawPage(HDC device, const Page& page, ControlHost& control) {
  const SIZE pixels = control.GraphSize();
  const PagePlace place = FitPage(page, static_cast<int>(pixels.cx), static_cast<int>(pixels.cy));
  Check(control.DrawGraph(device, {place.left, place.top, place.right, place.bottom}),
        "The control could not draw its picture.");
}

void PrintPicture(HWND owner, ControlHost& control, const std::wstring& title) {
  PRINTDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.Flags = PD_RETURNDC | PD_NOPAGENUMS | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE;
  if (::PrintDlgW(&dialog) == FALSE) {
    if (::CommDlgExtendedError() == 0) return;
    throw platform::RunTimeError(E_FAIL, "No printer can be used.");
  }
  ::GlobalFree(dialog.hDevMode);
  ::GlobalFree(dialog.hDevNames);
  const OwnedDevice printer(dialog.hDC);
  PrintJob job(printer.get(), title);
  job.AddPage([&] { DrawPage(printer.get(), PageOf(printer.get()), control); });
  job.Finish();
}

}  // namespace plotvane::desktop
