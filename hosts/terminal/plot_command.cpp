#include "hosts/terminal/plot_command.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cstdint>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "engine/clsExp.h"
#include "graph/clsYGraph.h"
#include "graph/graph_engine.h"
#include "graph/raster_surface.h"
#include "hosts/terminal/equation_check.h"
#include "hosts/terminal/exit_status.h"
#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/number_list.h"
#include "hosts/terminal/output_file.h"
#include "hosts/terminal/png_file.h"
#include "hosts/terminal/progress.h"
#include "hosts/terminal/silent_frame.h"
#include "hosts/terminal/svg_surface.h"
#include "platform/safe_save.h"

namespace plotvane::terminal {

namespace {

using graph::GraphEngine;

constexpr int kMostPixels = 32767;  // a side of the surface
constexpr int kWidestPen = 30;

enum class Zoom { None, Standard, Trig, Integer, Decimal };

struct PlotOptions {
  std::vector<std::string> equations;
  std::string range;
  Zoom zoom = Zoom::None;
  std::string scale;
  std::string size = "640x480";
  int step = 1;
  bool dots = false;
  bool grid = false;
  bool noAxis = false;
  bool noDivisions = false;
  int pen = 1;
  bool degrees = false;
  std::string output;
};

// The functions take turns; red is lowest.
constexpr std::array<graph::Colour, 10> kColours{0xC00000, 0x0000D0, 0x008000, 0xA000A0, 0x0070E0,
                                                 0x909000, 0x400080, 0x606060, 0x004080, 0x80C000};

struct PixelSize {
  std::int32_t width;
  std::int32_t height;
};

// "640x480"; error 2 of the program for anything else.
PixelSize ReadSize(const std::string& text) {
  PixelSize size{};
  char between = 0;
  char after = 0;
  std::istringstream input(text);
  const bool read = input >> size.width >> between >> size.height && between == 'x' && !(input >> after);
  if (!read || size.width < 1 || size.height < 1 || size.width > kMostPixels || size.height > kMostPixels)
    throw CLI::ValidationError(
        "--size", "needs WxH with sides from 1 to " + std::to_string(kMostPixels) + ", got \"" + text + "\"");
  return size;
}

bool EndsWith(const std::string& path, const std::string& ending) {
  return path.size() > ending.size() &&
         CLI::detail::to_lower(path.substr(path.size() - ending.size())) == ending;
}

// A graph without a window, set up from the options; draws once.
class Plot {
 public:
  // CLI::ValidationError for options that are no numbers; RunTimeError for a range that cannot be shown.
  Plot(const PlotOptions& options, std::shared_ptr<graph::DrawingSurface> surface)
      : mGraph(mExpression, mFrame) {
    mExpression.CreateNewVarTable();
    mExpression.SetStopFlag(&InterruptFlag());
    mGraph.PIC = std::move(surface);
    mGraph.SetPenWidth(static_cast<std::int16_t>(options.pen));
    mGraph.SetDegreeMode(options.degrees);
    mGraph.SetPlotPixelStep(static_cast<std::int16_t>(options.step));
    mGraph.PlotStyle = options.dots ? graph::DRAWDOT : graph::DRAWLINE;
    mGraph.ShowAxis = !options.noAxis;
    mGraph.ShowAxisDivisions = !options.noDivisions;
    mGraph.ShowGrid = options.grid;
    mGraph.ReadSurfaceSize();
    SetRange(options);
    SetScale(options);
  }

  [[nodiscard]] const GraphEngine& Graph() const noexcept { return mGraph; }

  // Throws Interrupted after Ctrl-C.
  void Draw(const PlotOptions& options) {
    std::vector<std::shared_ptr<graph::YFunction>> functions;
    for (const std::string& equation : options.equations) {
      auto function = std::make_shared<graph::clsYGraph>();
      function->Equation = equation;
      function->Enabled = true;
      function->DrawColor = kColours[functions.size() % kColours.size()];
      functions.push_back(std::move(function));
    }
    mGraph.SetYArray(std::move(functions));
    ThrowIfInterrupted();
  }

 private:
  void SetRange(const PlotOptions& options) {
    if (!options.range.empty()) {
      const std::vector<double> edges = ReadNumbers("--range", options.range, 4);
      mGraph.Xmin = edges[0];
      mGraph.Xmax = edges[1];
      mGraph.Ymin = edges[2];
      mGraph.Ymax = edges[3];
    }
    mGraph.PrepareGraph();
    if (!mFrame.Message().empty()) throw CLI::ValidationError("--range", mFrame.Message());
    switch (options.zoom) {
      case Zoom::None: break;
      case Zoom::Standard: mGraph.ZStandard(); break;
      case Zoom::Trig: mGraph.ZTrig(); break;
      case Zoom::Integer: mGraph.ZInt(); break;
      case Zoom::Decimal: mGraph.ZDec(); break;
    }
  }

  void SetScale(const PlotOptions& options) {
    if (options.scale.empty()) return;
    const std::vector<double> scales = ReadNumbers("--scale", options.scale, 2);
    mGraph.Xscl = scales[0];
    mGraph.Yscl = scales[1];
  }

  engine::clsExp mExpression;
  SilentFrame mFrame;
  GraphEngine mGraph;
};

void WriteSvg(const SvgSurface& surface, const std::string& path) {
  std::ostringstream text;
  surface.Write(text);
  OutputFile file(path);
  file.Write(text.str());
  file.Close();
}

// Draws on a surface of the right kind and hands it to `write` with the path of a file to fill.
template <typename Surface, typename WriteSurface>
void DrawInto(const PlotOptions& options, WriteSurface write) {
  const PixelSize size = ReadSize(options.size);
  Progress progress;
  const Progress::Work work(progress);
  const auto surface = std::make_shared<Surface>(size.width, size.height);
  Plot plot(options, surface);
  CheckEquations(options.equations, options.degrees, plot.Graph().Xmin, plot.Graph().Xmax);
  plot.Draw(options);
  try {
    platform::SaveSafely(options.output, [&](const std::string& path) { write(*surface, path); });
  } catch (const std::runtime_error& error) {
    throw std::runtime_error("cannot write " + options.output + ": " + error.what());
  }
}

int RunPlot(const PlotOptions& options) {
  const bool png = EndsWith(options.output, ".png");
  if (!png && !EndsWith(options.output, ".svg"))
    throw CLI::ValidationError("-o", "needs a file ending in .png or .svg, got \"" + options.output + "\"");
  try {
    if (png) {
      DrawInto<graph::RasterSurface>(options, WritePng);
    } else {
      DrawInto<SvgSurface>(options, WriteSvg);
    }
  } catch (const CLI::Error&) {
    throw;
  } catch (const std::exception& error) {
    std::cerr << "plotvane: " << error.what() << '\n';
    return kSomethingFailed;
  }
  return kAllWell;
}

}  // namespace

void AddPlotCommand(CLI::App& program, int& status) {
  const auto options = std::make_shared<PlotOptions>();
  CLI::App* command = program.add_subcommand("plot", "Draw functions of x into a picture");
  command->add_option("equations", options->equations, "Functions of x")->required()->type_name("EQUATION");
  command->add_option("-o,--output", options->output, "The picture to write, .png or .svg")
      ->required()
      ->type_name("FILE");
  CLI::Option* range =
      command
          ->add_option("--range", options->range, "The part of the plane to show; -10,10,-10,10 without it")
          ->type_name("XMIN,XMAX,YMIN,YMAX");
  const std::map<std::string, Zoom> zooms{{"standard", Zoom::Standard},
                                          {"trig", Zoom::Trig},
                                          {"integer", Zoom::Integer},
                                          {"decimal", Zoom::Decimal}};
  command->add_option("--zoom", options->zoom, "A preset range")
      ->transform(CLI::CheckedTransformer(zooms, CLI::ignore_case).description(""))
      ->type_name("standard|trig|integer|decimal")
      ->excludes(range);
  command->add_option("--scale", options->scale, "Distances between divisions")->type_name("XSCL,YSCL");
  command->add_option("--size", options->size, "Size of the picture in pixels")
      ->type_name("WxH")
      ->capture_default_str();
  command->add_option("--step", options->step, "Pixel columns from one point to the next")
      ->check(CLI::Range(1, kMostPixels))
      ->type_name("N");
  command->add_flag("--dots", options->dots, "Dots instead of joined lines");
  command->add_flag("--grid", options->grid, "Show the grid");
  command->add_flag("--no-axis", options->noAxis, "Leave the axes and their divisions out");
  command->add_flag("--no-divisions", options->noDivisions, "Leave the divisions of the axes out");
  command->add_option("--pen", options->pen, "Width of the pen in pixels")
      ->check(CLI::Range(1, kWidestPen))
      ->type_name("N");
  command->add_flag("--degrees", options->degrees, "Angles in degrees instead of radians");
  command->callback([options, &status] { status = RunPlot(*options); });
}

}  // namespace plotvane::terminal
