// PNG pictures as rows of colours, for comparing what was drawn with what is on file.
#pragma once

#include <png.h>

#include <cstdint>
#include <string>
#include <vector>

#include "graph/raster_surface.h"

namespace plotvane::graph::test {

struct Picture {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint32_t> pixels;  // 0x00BBGGRR
  friend bool operator==(const Picture&, const Picture&) = default;
};

inline Picture PictureOf(const RasterSurface& surface) {
  Picture picture{surface.Width(), surface.Height(), {}};
  for (std::int32_t y = 0; y < picture.height; ++y)
    for (std::int32_t x = 0; x < picture.width; ++x) picture.pixels.push_back(surface.ColourAt(x, y));
  return picture;
}

// An empty picture when the file cannot be read.
inline Picture ReadPng(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return {};
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
  if (png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) == 0) return {};
  Picture picture{static_cast<std::int32_t>(image.width), static_cast<std::int32_t>(image.height), {}};
  for (std::size_t i = 0; i < bytes.size(); i += 3)
    picture.pixels.push_back(bytes[i] | static_cast<std::uint32_t>(bytes[i + 1]) << 8 |
                             static_cast<std::uint32_t>(bytes[i + 2]) << 16);
  return picture;
}

}  // namespace plotvane::graph::test
