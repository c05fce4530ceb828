// The ten functions of the pictures, all of them within -10 to 10, in the words of every peer.
#pragma once

#include <array>

namespace plotvane::bench {

struct PictureFunction {
  const char* plotvane;
  const char* gnuplot;
  double (*native)(double x);
};

[[nodiscard]] const std::array<PictureFunction, 10>& PictureFunctions();

inline constexpr int kPictureWidth = 1920;
inline constexpr int kPictureHeight = 1080;

}  // namespace plotvane::bench
