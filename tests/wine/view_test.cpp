// The picture of the control: drawn into any device context, and as data.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <set>
#include <vector>

#include "control/win32/handles.h"
#include "tests/wine/hosting_fixture.h"

namespace plotvane::tests {
namespace {

constexpr LONG kRed = RGB(255, 0, 0);

class View : public Hosting {
 protected:
  View() { object->SetExtent(DVASPECT_CONTENT, &mExtent); }

  void PlotInRed(const char* equation) {
    mFunction = MakeFunction(equation, kRed);
    Variant array = ArrayOf({mFunction.Get()});
    ASSERT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
  }

  LONG SurfaceHeight() {
    LONG height = 0;
    EXPECT_EQ(graph->GetGraphHeight(&height), S_OK);
    return height;
  }

  ComPtr<NamedObject> mFunction;

 private:
  SIZEL mExtent = kExtent;
};

// ---- Metafiles: lines and texts, no pixels ----

// EMR_SMALLTEXTOUT, which not every header names.
constexpr std::size_t kSmallTextOut = 108;

struct Records {
  std::array<int, 256> count{};
  std::vector<POINTL> ends;  // of lines in the red pen
  bool red = false;

  [[nodiscard]] int Lines() const { return count[EMR_LINETO] + count[EMR_POLYLINE16] + count[EMR_POLYLINE]; }
  [[nodiscard]] int Texts() const { return count[EMR_EXTTEXTOUTW] + count[kSmallTextOut]; }
  [[nodiscard]] int Bitmaps() const {
    return count[EMR_STRETCHDIBITS] + count[EMR_SETDIBITSTODEVICE] + paintedBitmaps;
  }
  int paintedBitmaps = 0;
  std::set<DWORD> redPens;
};

// A filled rectangle is recorded as a painting call without a bitmap of its own.
bool HasBitmap(const ENHMETARECORD& record) {
  if (record.iType == EMR_BITBLT) return reinterpret_cast<const EMRBITBLT&>(record).cbBitsSrc != 0;
  if (record.iType == EMR_STRETCHBLT) return reinterpret_cast<const EMRSTRETCHBLT&>(record).cbBitsSrc != 0;
  return false;
}

int CALLBACK TakeRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM target) {
  auto& records = *reinterpret_cast<Records*>(target);
  ++records.count.at(record->iType % 256);
  if (HasBitmap(*record)) ++records.paintedBitmaps;
  if (record->iType == EMR_CREATEPEN) {
    const auto& pen = reinterpret_cast<const EMRCREATEPEN&>(*record);
    records.redPens.erase(pen.ihPen);
    if (pen.lopn.lopnColor == static_cast<COLORREF>(kRed)) records.redPens.insert(pen.ihPen);
  }
  if (record->iType == EMR_SELECTOBJECT) {
    const DWORD handle = reinterpret_cast<const EMRSELECTOBJECT&>(*record).ihObject;
    records.red = records.redPens.count(handle) != 0;
  }
  if (record->iType == EMR_LINETO && records.red) {
    records.ends.push_back(reinterpret_cast<const EMRLINETO&>(*record).ptl);
  }
  return 1;
}

Records RecordsOf(HENHMETAFILE metafile) {
  Records records;
  ::EnumEnhMetaFile(nullptr, metafile, reinterpret_cast<ENHMFENUMPROC>(TakeRecord), &records, nullptr);
  return records;
}

// Pixels of a screen in hundredths of a millimetre, by its own account of its size.
LONG HundredthsOf(int pixels, int pixelsIndex, int millimetresIndex) {
  const control::win32::WindowContext screen(nullptr);
  return ::MulDiv(pixels, ::GetDeviceCaps(screen.Get(), millimetresIndex) * 100,
                  ::GetDeviceCaps(screen.Get(), pixelsIndex));
}

// An enhanced metafile with a frame of the control's size, deleted at the end.
class Metafile {
 public:
  explicit Metafile(const std::function<void(HDC)>& draw) {
    const RECT frame{0, 0, HundredthsOf(kWidth, HORZRES, HORZSIZE), HundredthsOf(kHeight, VERTRES, VERTSIZE)};
    const HDC context = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    draw(context);
    mHandle = ::CloseEnhMetaFile(context);
  }
  ~Metafile() { ::DeleteEnhMetaFile(mHandle); }
  Metafile(const Metafile&) = delete;
  Metafile& operator=(const Metafile&) = delete;
  [[nodiscard]] HENHMETAFILE Get() const noexcept { return mHandle; }

 private:
  HENHMETAFILE mHandle = nullptr;
};

TEST_F(View, a_metafile_gets_the_curve_as_lines_and_no_pixels) {
  graph->put_ToolBarVisible(VARIANT_FALSE);  // the surface begins in the first row
  PlotInRed("x/2");
  const double height = SurfaceHeight();
  const Metafile metafile([&](HDC context) { EXPECT_EQ(Draw(context, {0, 0, kWidth, kHeight}), S_OK); });
  const Records records = RecordsOf(metafile.Get());
  EXPECT_EQ(records.Bitmaps(), 0);
  ASSERT_GT(records.ends.size(), 350U) << "one line for each column but the first";
  for (const POINTL& end : records.ends) {
    // The range is 20 wide and 20 high: the columns' share to the right of the middle is that of y above it,
    // halved.
    const double right = (static_cast<double>(end.x) - kWidth / 2.0) / kWidth;
    EXPECT_NEAR(static_cast<double>(end.y), height / 2 - right * height / 2, 1.01) << end.x;
  }
}

TEST_F(View, a_metafile_of_ten_times_the_size_has_ten_times_the_resolution) {
  graph->put_ToolBarVisible(VARIANT_FALSE);
  PlotInRed("5");
  const Metafile metafile([&](HDC context) { EXPECT_EQ(Draw(context, {100, 200, 4100, 3200}), S_OK); });
  const Records records = RecordsOf(metafile.Get());
  ASSERT_FALSE(records.ends.empty());
  const double row = SurfaceHeight() / 4.0;  // the curve is in the nearest whole one
  for (const POINTL& end : records.ends) ASSERT_NEAR(static_cast<double>(end.y), 200 + row * 10, 5);
  EXPECT_GE(records.ends.front().x, 100 - 10) << "a line may begin in the column before the first";
  EXPECT_LE(records.ends.back().x, 4100);
}

TEST_F(View, toolbar_and_status_boxes_are_texts_and_rectangles_in_a_metafile) {
  Activate();
  PlotInRed("sin(x)");
  const Metafile metafile([&](HDC context) { EXPECT_EQ(Draw(context, {0, 0, kWidth, kHeight}), S_OK); });
  const Records records = RecordsOf(metafile.Get());
  EXPECT_EQ(records.Bitmaps(), 0);
  EXPECT_GE(records.Texts(), 8) << "one for each button";
  End();
}

TEST_F(View, what_the_host_drew_itself_is_in_the_metafile_too) {
  PlotInRed("5");
  LONG handle = 0;
  graph->GetGraphHDC(&handle);
  const auto context = reinterpret_cast<HDC>(static_cast<LONG_PTR>(handle));
  ::SetPixel(context, 30, 20, RGB(0, 255, 0));
  const Metafile metafile([&](HDC target) { EXPECT_EQ(Draw(target, {0, 0, kWidth, kHeight}), S_OK); });
  // Nobody can say how it came there: pixels are all that is known.
  EXPECT_EQ(RecordsOf(metafile.Get()).Bitmaps(), 1);
  const Bitmap played(kWidth, kHeight);
  played.Play(metafile.Get());
  EXPECT_GT(played.Count(RGB(0, 255, 0)), 0);
}

// Leaves the pictures beside the test program, for people to look at.
TEST_F(View, a_played_metafile_looks_like_the_screen) {
  Activate();
  PlotInRed("5*sin(x)");
  const Bitmap screen = Picture();
  screen.Save("control-on-screen.bmp");
  const Metafile metafile([&](HDC context) { EXPECT_EQ(Draw(context, {0, 0, kWidth, kHeight}), S_OK); });
  const Bitmap played(kWidth, kHeight);
  played.Play(metafile.Get());
  played.Save("control-from-metafile.bmp");
  constexpr int kTripled = 3;
  const Bitmap large(kTripled * kWidth, kTripled * kHeight);
  large.Play(metafile.Get());
  large.Save("control-from-metafile-large.bmp");
  // A metafile keeps places to a fraction of a pixel, so an edge may fall one pixel aside.
  const int red = screen.Count(kRed);
  EXPECT_GT(red, 300);
  EXPECT_NEAR(played.Count(kRed), red, red / 10.0);
  EXPECT_LT(screen.DifferentPixels(played), kWidth * kHeight / 20);
  End();
}

TEST_F(View, drawing_gives_the_device_context_back_as_it_was) {
  PlotInRed("sin(x)");
  const Bitmap bitmap(kWidth, kHeight);
  const HGDIOBJ pen = ::GetCurrentObject(bitmap.Context(), OBJ_PEN);
  const HGDIOBJ brush = ::GetCurrentObject(bitmap.Context(), OBJ_BRUSH);
  const HGDIOBJ font = ::GetCurrentObject(bitmap.Context(), OBJ_FONT);
  ::SetTextAlign(bitmap.Context(), TA_RIGHT | TA_BOTTOM);
  ::SetTextColor(bitmap.Context(), RGB(1, 2, 3));
  EXPECT_EQ(Draw(bitmap.Context(), {0, 0, kWidth, kHeight}), S_OK);
  EXPECT_EQ(::GetCurrentObject(bitmap.Context(), OBJ_PEN), pen);
  EXPECT_EQ(::GetCurrentObject(bitmap.Context(), OBJ_BRUSH), brush);
  EXPECT_EQ(::GetCurrentObject(bitmap.Context(), OBJ_FONT), font);
  EXPECT_EQ(::GetTextAlign(bitmap.Context()), static_cast<UINT>(TA_RIGHT | TA_BOTTOM));
  EXPECT_EQ(::GetTextColor(bitmap.Context()), RGB(1, 2, 3));
  EXPECT_EQ(::GetClipRgn(bitmap.Context(), control::win32::OwnedRegion(::CreateRectRgn(0, 0, 1, 1)).Get()),
            0);
}

// ---- Clipped and shifted ----

TEST_F(View, a_clip_region_of_the_container_bounds_the_drawing) {
  PlotInRed("5");
  const Bitmap whole = Picture();
  const Bitmap part(kWidth, kHeight);
  part.Fill(RGB(9, 9, 9));
  const control::win32::OwnedRegion region(::CreateRectRgn(100, 50, 200, 100));
  ::SelectClipRgn(part.Context(), region.Get());
  EXPECT_EQ(Draw(part.Context(), {0, 0, kWidth, kHeight}), S_OK);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const bool inside = x >= 100 && x < 200 && y >= 50 && y < 100;
      ASSERT_EQ(part.At(x, y), inside ? whole.At(x, y) : RGB(9, 9, 9)) << x << " " << y;
    }
  }
}

TEST_F(View, an_empty_clip_region_lets_nothing_through) {
  PlotInRed("5");
  const Bitmap bitmap(kWidth, kHeight);
  bitmap.Fill(RGB(9, 9, 9));
  const control::win32::OwnedRegion nothing(::CreateRectRgn(0, 0, 0, 0));
  ::SelectClipRgn(bitmap.Context(), nothing.Get());
  EXPECT_EQ(Draw(bitmap.Context(), {0, 0, kWidth, kHeight}), S_OK);
  EXPECT_EQ(bitmap.Count(RGB(9, 9, 9)), kWidth * kHeight);
}

TEST_F(View, bounds_elsewhere_and_a_shifted_origin_move_the_picture) {
  PlotInRed("5");
  const Bitmap whole = Picture();
  const Bitmap moved(kWidth + 60, kHeight + 40);
  moved.Fill(RGB(9, 9, 9));
  ::SetViewportOrgEx(moved.Context(), 20, 10, nullptr);
  EXPECT_EQ(Draw(moved.Context(), {30, 20, 30 + kWidth, 20 + kHeight}), S_OK);
  for (int y = 0; y < kHeight; y += 7) {
    for (int x = 0; x < kWidth; x += 7) ASSERT_EQ(moved.At(x + 50, y + 30), whole.At(x, y)) << x << " " << y;
  }
  EXPECT_EQ(moved.At(49, 100), RGB(9, 9, 9));
  EXPECT_EQ(moved.At(50 + kWidth, 100), RGB(9, 9, 9));
  EXPECT_EQ(moved.At(100, 29), RGB(9, 9, 9));
}

TEST_F(View, bounds_without_area_draw_nothing) {
  const Bitmap bitmap(kWidth, kHeight);
  bitmap.Fill(RGB(9, 9, 9));
  EXPECT_EQ(Draw(bitmap.Context(), {10, 10, 10, 10}), S_OK);
  EXPECT_EQ(bitmap.Count(RGB(9, 9, 9)), kWidth * kHeight);
}

TEST_F(View, a_container_may_show_a_part_of_the_window) {
  Activate();
  const auto inPlace = As<IOleInPlaceObject>(graph.Get());
  const auto visiblePart = [&] {
    const control::win32::OwnedRegion region(::CreateRectRgn(0, 0, 0, 0));
    RECT box{};
    if (::GetWindowRgn(ControlWindow(), region.Get()) == ERROR)
      ::GetClientRect(ControlWindow(), &box);
    else
      ::GetRgnBox(region.Get(), &box);
    return box;
  };
  const RECT position{10, 20, 310, 270};
  struct Row {
    const char* name;
    RECT clip;
    RECT expected;  // in the window's own pixels
  };
  constexpr Row kRows[]{
      {"all of it", {10, 20, 310, 270}, {0, 0, 300, 250}},
      {"more than all", {0, 0, 1000, 1000}, {0, 0, 300, 250}},
      {"shifted to the right", {110, 20, 410, 270}, {100, 0, 300, 250}},
      {"the middle", {60, 70, 110, 120}, {50, 50, 100, 100}},
      {"nothing given", {0, 0, 0, 0}, {0, 0, 300, 250}},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(inPlace->SetObjectRects(&position, &row.clip), S_OK);
    const RECT part = visiblePart();
    EXPECT_TRUE(::EqualRect(&part, &row.expected))
        << row.name << ": " << part.left << " " << part.top << " " << part.right << " " << part.bottom;
  }
  EXPECT_EQ(inPlace->SetObjectRects(&position, nullptr), S_OK);
  End();
}

// ---- Data ----

TEST_F(View, the_data_object_gives_metafiles_and_a_bitmap) {
  const auto data = As<IDataObject>(graph.Get());
  FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
  STGMEDIUM medium{};
  EXPECT_EQ(data->QueryGetData(&format), S_OK);
  PlotInRed("sin(x)");
  ASSERT_EQ(data->GetData(&format, &medium), S_OK);
  ASSERT_EQ(medium.tymed, static_cast<DWORD>(TYMED_ENHMF));
  const Records records = RecordsOf(medium.hEnhMetaFile);
  EXPECT_GT(records.Lines(), 300);
  // The picture fills its frame, whatever size the screen claims to have.
  ENHMETAHEADER frame{};
  ::GetEnhMetaFileHeader(medium.hEnhMetaFile, sizeof frame, &frame);
  EXPECT_EQ(frame.rclFrame.right, kExtent.cx);
  EXPECT_NEAR(HundredthsOf(static_cast<int>(frame.rclBounds.right) + 1, HORZRES, HORZSIZE), kExtent.cx, 60);
  EXPECT_NEAR(HundredthsOf(static_cast<int>(frame.rclBounds.bottom) + 1, VERTRES, VERTSIZE), kExtent.cy, 60);
  EXPECT_EQ(records.Bitmaps(), 0);
  ::ReleaseStgMedium(&medium);

  format.cfFormat = CF_METAFILEPICT;
  format.tymed = TYMED_MFPICT;
  ASSERT_EQ(data->GetData(&format, &medium), S_OK);
  const auto picture = static_cast<METAFILEPICT*>(::GlobalLock(medium.hMetaFilePict));
  EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
  EXPECT_EQ(picture->xExt, 10583);
  const Bitmap played(kWidth, kHeight);
  ::SetMapMode(played.Context(), MM_ANISOTROPIC);
  ::SetViewportExtEx(played.Context(), kWidth, kHeight, nullptr);
  EXPECT_TRUE(::PlayMetaFile(played.Context(), picture->hMF));
  EXPECT_GT(played.Count(kRed), 300);
  played.Save("control-from-old-metafile.bmp");
  ::GlobalUnlock(medium.hMetaFilePict);
  ::ReleaseStgMedium(&medium);

  format.cfFormat = CF_DIB;
  format.tymed = TYMED_HGLOBAL;
  ASSERT_EQ(data->GetData(&format, &medium), S_OK);
  const auto header = static_cast<BITMAPINFOHEADER*>(::GlobalLock(medium.hGlobal));
  EXPECT_EQ(header->biWidth, kWidth);
  EXPECT_EQ(header->biHeight, kHeight);
  ::GlobalUnlock(medium.hGlobal);
  ::ReleaseStgMedium(&medium);
}

TEST_F(View, the_data_object_refuses_what_it_does_not_have) {
  const auto data = As<IDataObject>(graph.Get());
  struct Row {
    FORMATETC format;
    HRESULT expected;
  };
  const Row rows[]{
      {{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, DV_E_FORMATETC},
      {{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, DV_E_TYMED},
      {{CF_ENHMETAFILE, nullptr, DVASPECT_ICON, -1, TYMED_ENHMF}, DV_E_DVASPECT},
      {{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, 0, TYMED_ENHMF}, DV_E_LINDEX},
  };
  for (Row row : rows) {
    STGMEDIUM medium{};
    EXPECT_EQ(data->QueryGetData(&row.format), row.expected);
    EXPECT_EQ(data->GetData(&row.format, &medium), row.expected);
    EXPECT_EQ(medium.tymed, static_cast<DWORD>(TYMED_NULL));
  }
  ComPtr<IEnumFORMATETC> formats;
  ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.Receive()), S_OK);
  std::array<FORMATETC, 5> list{};
  ULONG count = 0;
  EXPECT_EQ(formats->Next(5, list.data(), &count), S_FALSE);
  EXPECT_EQ(count, 3U);
}

}  // namespace
}  // namespace plotvane::tests
