// clsYGraph: one Y function with the pixel path that it was last drawn along.
#pragma once

#include <cstdint>
#include <string>

#include "graph/path_cache.h"
#include "graph/y_function.h"

namespace plotvane::graph {

class clsYGraph : public YFunction {
 public:
  std::string Equation;        // the expression in x
  bool Enabled = false;        // plot this function
  std::int32_t DrawStyle = 0;  // kept with the function; the drawing does not use it
  std::int32_t DrawColor = 0;  // colour of its points and lines
  bool QuickRedraw = false;    // the path is valid and may be replayed

  // Walking along the path and changing it; see graph/path_cache.h.
  bool NextPixel() noexcept { return mPath.NextPixel(); }
  bool PreviousPixel() noexcept { return mPath.PreviousPixel(); }
  [[nodiscard]] std::int16_t CurrentPixelIndex() const noexcept { return mPath.CurrentPixelIndex(); }
  [[nodiscard]] bool GetIsBadPixel() const { return mPath.GetIsBadPixel(); }
  void SetIsBadPixel(bool bad) { mPath.SetIsBadPixel(bad); }
  [[nodiscard]] std::int16_t GetXPath() const { return mPath.GetXPath(); }
  void SetXPath(std::int16_t column) { mPath.SetXPath(column); }
  [[nodiscard]] std::int16_t GetYPath() const { return mPath.GetYPath(); }
  void SetYPath(std::int16_t row) { mPath.SetYPath(row); }
  void SetPixelToFirst() noexcept { mPath.SetPixelToFirst(); }
  void Redimension(std::int16_t numOfPixels) { mPath.Redimension(numOfPixels); }
  void SaveXYPathThenNext(std::int16_t varX, std::int16_t varY) { mPath.SaveXYPathThenNext(varX, varY); }
  [[nodiscard]] std::int16_t NumberOfPixels() const noexcept { return mPath.NumberOfPixels(); }

  // One record of the four fields Equation, Enabled, DrawStyle, DrawColor in the open text file of that
  // number; errors as in platform/open_files.h, 13 for a field of the wrong kind. A failed read changes nothing. Neither these nor CopyData
  // carry QuickRedraw or the path: such a function has to be evaluated afresh.
  void SaveDataToOpenFile(std::int16_t file) const;
  void LoadDataFromOpenFile(std::int16_t file);

  void CopyData(const clsYGraph& other);

  // YFunction
  [[nodiscard]] std::string GetEquation() override { return Equation; }
  [[nodiscard]] bool GetEnabled() override { return Enabled; }
  [[nodiscard]] std::int32_t GetDrawStyle() override { return DrawStyle; }
  [[nodiscard]] std::int32_t GetDrawColor() override { return DrawColor; }
  [[nodiscard]] bool GetQuickRedraw() override { return QuickRedraw; }
  void SetQuickRedraw(bool valid) override { QuickRedraw = valid; }
  [[nodiscard]] PathCache& Path() override { return mPath; }

 private:
  PathCache mPath;
};

}  // namespace plotvane::graph
