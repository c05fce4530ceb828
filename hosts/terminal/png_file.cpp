#include "hosts/terminal/png_file.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "hosts/terminal/output_file.h"

namespace plotvane::terminal {

namespace {

using graph::RasterSurface;

struct Rgb {
  png_byte red, green, blue;
};

constexpr Rgb SplitColour(std::uint32_t colour) noexcept {
  return {static_cast<png_byte>(colour), static_cast<png_byte>(colour >> 8),
          static_cast<png_byte>(colour >> 16)};
}

// The picture in the form of the PNG library: one byte a pixel with a colour map, or three without.
struct Picture {
  std::vector<png_byte> bytes;
  std::vector<Rgb> map;
};

class ColourMap {
 public:
  // The colour's place in the map, where it is added when it is new; nothing when the map is full.
  std::optional<png_byte> IndexOf(std::uint32_t colour) {
    if (!mColours.empty() && mColours[mLast] == colour) return static_cast<png_byte>(mLast);
    mLast = static_cast<std::size_t>(std::ranges::find(mColours, colour) - mColours.begin());
    if (mLast == mColours.size()) {
      if (mLast == kMost) return std::nullopt;
      mColours.push_back(colour);
    }
    return static_cast<png_byte>(mLast);
  }

  [[nodiscard]] std::vector<Rgb> Colours() const {
    std::vector<Rgb> colours;
    for (const std::uint32_t colour : mColours) colours.push_back(SplitColour(colour));
    return colours;
  }

 private:
  static constexpr std::size_t kMost = 256;
  std::vector<std::uint32_t> mColours;
  std::size_t mLast = 0;
};

// Calls `use` with each pixel from the top left; false as soon as it returns false.
template <typename Use>
bool ForEachPixel(const RasterSurface& surface, Use use) {
  std::vector<std::uint32_t> row(static_cast<std::size_t>(surface.Width()));
  for (std::int32_t y = 0; y < surface.Height(); ++y) {
    surface.CopyRow(y, row);
    for (const std::uint32_t colour : row)
      if (!use(colour)) return false;
  }
  return true;
}

std::size_t PixelCount(const RasterSurface& surface) {
  return static_cast<std::size_t>(surface.Width()) * static_cast<std::size_t>(surface.Height());
}

std::optional<Picture> MappedPicture(const RasterSurface& surface) {
  Picture picture;
  picture.bytes.resize(PixelCount(surface));
  ColourMap map;
  auto next = picture.bytes.begin();
  const bool fits = ForEachPixel(surface, [&](std::uint32_t colour) {
    const std::optional<png_byte> index = map.IndexOf(colour);
    if (index) *next++ = *index;
    return index.has_value();
  });
  if (!fits) return std::nullopt;
  picture.map = map.Colours();
  return picture;
}

Picture TrueColourPicture(const RasterSurface& surface) {
  Picture picture;
  picture.bytes.reserve(PixelCount(surface) * sizeof(Rgb));
  ForEachPixel(surface, [&](std::uint32_t colour) {
    const Rgb rgb = SplitColour(colour);
    picture.bytes.insert(picture.bytes.end(), {rgb.red, rgb.green, rgb.blue});
    return true;
  });
  return picture;
}

}  // namespace

void WritePng(const RasterSurface& surface, const std::string& path) {
  std::optional<Picture> mapped = MappedPicture(surface);
  const bool fits = mapped.has_value();
  const Picture picture = fits ? std::move(*mapped) : TrueColourPicture(surface);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(surface.Width());
  image.height = static_cast<png_uint_32>(surface.Height());
  image.format = fits ? PNG_FORMAT_RGB_COLORMAP : PNG_FORMAT_RGB;
  image.flags = PNG_IMAGE_FLAG_FAST;
  image.colormap_entries = static_cast<png_uint_32>(picture.map.size());
  OutputFile file(path);
  if (png_image_write_to_stdio(&image, file.Handle(), 0, picture.bytes.data(), 0, picture.map.data()) == 0) {
    file.Check();
    throw std::runtime_error(image.message);
  }
  file.Close();
}

}  // namespace plotvane::terminal
