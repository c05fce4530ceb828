// Ten functions into a surface in memory: PlotAllY beside a plain loop that clears, samples and draws.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <vector>

#include "bench/measures.h"
#include "bench/picture_functions.h"
#include "engine/clsExp.h"
#include "graph/clsYGraph.h"
#include "graph/graph_engine.h"
#include "graph/raster_surface.h"
#include "hosts/terminal/silent_frame.h"

namespace plotvane::bench {
namespace {

// The least that such a program must do: four bytes a pixel, one sample a column, Bresenham's lines.
class PlainPlot {
 public:
  void Draw() {
    std::ranges::fill(mPixels, 0xFFFFFFU);
    std::uint32_t colour = 1;
    for (const PictureFunction& function : PictureFunctions()) DrawFunction(function, colour++);
  }

  [[nodiscard]] std::size_t Drawn() const {
    return mPixels.size() - static_cast<std::size_t>(std::ranges::count(mPixels, 0xFFFFFFU));
  }

 private:
  void DrawFunction(const PictureFunction& function, std::uint32_t colour) {
    int before = Row(function.native(-10.0));
    for (int column = 1; column < kPictureWidth; ++column) {
      const int row = Row(function.native(-10.0 + 20.0 * column / kPictureWidth));
      DrawLine(column - 1, before, column, row, colour);
      before = row;
    }
  }

  static int Row(double y) { return static_cast<int>(std::lround((10.0 - y) * kPictureHeight / 20.0)); }

  void DrawLine(int x, int y, int toX, int toY, std::uint32_t colour) {
    const int width = std::abs(toX - x);
    const int height = -std::abs(toY - y);
    const int stepX = x < toX ? 1 : -1;
    const int stepY = y < toY ? 1 : -1;
    int error = width + height;
    while (x != toX || y != toY) {
      SetPixel(x, y, colour);
      const int twice = 2 * error;
      if (twice >= height) {
        error += height;
        x += stepX;
      }
      if (twice <= width) {
        error += width;
        y += stepY;
      }
    }
  }

  void SetPixel(int x, int y, std::uint32_t colour) {
    if (x < 0 || x >= kPictureWidth || y < 0 || y >= kPictureHeight) return;
    mPixels[static_cast<std::size_t>(y) * kPictureWidth + static_cast<std::size_t>(x)] = colour;
  }

  std::vector<std::uint32_t> mPixels =
      std::vector<std::uint32_t>(static_cast<std::size_t>(kPictureWidth) * kPictureHeight);
};

// The system's own plot of the same, without axes: every function is evaluated afresh in each pass.
class OwnPlot {
 public:
  OwnPlot() : mGraph(mExpression, mFrame) {
    mExpression.CreateNewVarTable();
    mGraph.PIC = mSurface;
    mGraph.ShowAxis = false;
    mGraph.ShowAxisDivisions = false;
    mGraph.ReadSurfaceSize();
    mGraph.PrepareGraph();
    std::vector<std::shared_ptr<graph::YFunction>> functions;
    for (const PictureFunction& entry : PictureFunctions()) {
      auto function = std::make_shared<graph::clsYGraph>();
      function->Equation = entry.plotvane;
      function->Enabled = true;
      function->DrawColor = static_cast<graph::Colour>(functions.size()) + 1;
      functions.push_back(std::move(function));
    }
    mGraph.SetYArray(std::move(functions), false);
  }

  void Draw() {
    mGraph.RedrawAll = true;
    mGraph.PlotAllY();
  }

  [[nodiscard]] std::size_t Drawn() const {
    std::size_t drawn = 0;
    for (int y = 0; y < kPictureHeight; ++y) {
      for (int x = 0; x < kPictureWidth; ++x) drawn += mSurface->ColourAt(x, y) != 0xFFFFFFU ? 1U : 0U;
    }
    return drawn;
  }

 private:
  engine::clsExp mExpression;
  terminal::SilentFrame mFrame;
  std::shared_ptr<graph::RasterSurface> mSurface =
      std::make_shared<graph::RasterSurface>(kPictureWidth, kPictureHeight);
  graph::GraphEngine mGraph;
};

// Both pictures show about the same number of drawn pixels (columns differ by one, rows by rounding).
bool DrawAlike(const PlainPlot& plain, const OwnPlot& own) {
  const auto plainDrawn = static_cast<double>(plain.Drawn());
  return plainDrawn > 0 && std::abs(static_cast<double>(own.Drawn()) / plainDrawn - 1) < 0.02;
}

void TimePlainPlot(benchmark::State& state) {
  PlainPlot plot;
  for ([[maybe_unused]] const auto pass : state) {
    plot.Draw();
    benchmark::ClobberMemory();
  }
}

void TimeOwnPlot(benchmark::State& state) {
  PlainPlot plain;
  OwnPlot plot;
  plain.Draw();
  plot.Draw();
  if (!DrawAlike(plain, plot)) return state.SkipWithError("wrong picture");
  for ([[maybe_unused]] const auto pass : state) {
    plot.Draw();
    benchmark::ClobberMemory();
  }
}

}  // namespace

void RegisterSurface() {
  benchmark::RegisterBenchmark("plain_plot/picture", TimePlainPlot);
  benchmark::RegisterBenchmark("plot/picture", TimeOwnPlot);
}

}  // namespace plotvane::bench
