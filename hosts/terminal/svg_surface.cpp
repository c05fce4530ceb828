#include "hosts/terminal/svg_surface.h"

#include <algorithm>

#include "graph/colours.h"

namespace plotvane::terminal {

using graph::Colour;
using graph::PixelPoint;

namespace {

std::string Position(PixelPoint point) {
  return std::to_string(point.x) + " " + std::to_string(point.y);
}

std::string HexColour(std::uint32_t colour) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "#";
  for (const unsigned shift : {4u, 0u, 12u, 8u, 20u, 16u}) text += kDigits[colour >> shift & 15u];
  return text;
}

}  // namespace

// The shape that is being drawn, or a new one when the kind, colour or pen is another.
SvgSurface::Shape& SvgSurface::Continue(Kind kind, Colour colour) {
  const std::uint32_t plain = graph::ResolveColour(colour);
  const bool same = !mShapes.empty() && mShapes.back().kind == kind && mShapes.back().colour == plain &&
                    mShapes.back().penWidth == mPenWidth;
  if (!same) mShapes.push_back({kind, plain, mPenWidth, {}, {}});
  return mShapes.back();
}

void SvgSurface::SetPixel(PixelPoint point, Colour colour) {
  Continue(Kind::Dots, colour).path += "M" + Position(point) + "h0";
}

void SvgSurface::SetPixel(PixelPoint point) {
  SetPixel(point, graph::kWindowText);
}

void SvgSurface::Line(PixelPoint from, PixelPoint to, Colour colour) {
  Shape& shape = Continue(Kind::Lines, colour);
  if (shape.path.empty() || shape.end != from) shape.path += "M" + Position(from);
  shape.path += "L" + Position(to);
  shape.end = to;
}

void SvgSurface::Line(PixelPoint from, PixelPoint to) {
  Line(from, to, graph::kWindowText);
}

void SvgSurface::WriteShape(std::ostream& output, const Shape& shape) {
  const bool thin = shape.penWidth <= 1;
  const char* thinCap = shape.kind == Kind::Dots ? "square" : "butt";
  output << "<path stroke=\"" << HexColour(shape.colour) << "\" stroke-width=\""
         << std::max<int>(shape.penWidth, 1) << "\" stroke-linecap=\"" << (thin ? thinCap : "round")
         << "\" d=\"" << shape.path << "\"/>\n";
}

void SvgSurface::Write(std::ostream& output) const {
  output << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << mWidth << "\" height=\"" << mHeight
         << "\" viewBox=\"0 0 " << mWidth << ' ' << mHeight << "\">\n"
         << "<rect width=\"100%\" height=\"100%\" fill=\""
         << HexColour(graph::ResolveColour(graph::kWindowBackground)) << "\"/>\n"
         << "<g transform=\"translate(0.5 0.5)\" fill=\"none\" stroke-linejoin=\"round\">\n";
  for (const Shape& shape : mShapes) WriteShape(output, shape);
  output << "</g>\n</svg>\n";
}

}  // namespace plotvane::terminal
