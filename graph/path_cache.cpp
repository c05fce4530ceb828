#include "graph/path_cache.h"

#include "graph/checked_arithmetic.h"
#include "platform/runtime_error.h"

namespace plotvane::graph {

bool PathCache::NextPixel() noexcept {
  const bool more = mIndex < NumberOfPixels();
  mIndex = more ? static_cast<std::int16_t>(mIndex + 1) : std::int16_t{1};
  return more;
}

bool PathCache::PreviousPixel() noexcept {
  const bool more = mIndex > 1;
  mIndex = more ? static_cast<std::int16_t>(mIndex - 1) : NumberOfPixels();
  return more;
}

void PathCache::Redimension(std::int16_t numOfPixels) {
  if (numOfPixels < 0) throw platform::RunTimeError(platform::StandardError::SubscriptOutOfRange);
  mPoints.assign(static_cast<std::size_t>(numOfPixels), Point{});
  mIndex = 1;
}

void PathCache::SaveXYPathThenNext(std::int16_t x, std::int16_t y) {
  Current() = {{x, y}, false};
  mIndex = Checked16(mIndex + 1);
}

// The position of the current point; error 9 outside the path.
std::size_t PathCache::Position() const {
  if (mIndex < 1 || mIndex > NumberOfPixels())
    throw platform::RunTimeError(platform::StandardError::SubscriptOutOfRange);
  return static_cast<std::size_t>(mIndex - 1);
}

}  // namespace plotvane::graph
