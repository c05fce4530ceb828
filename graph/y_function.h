// YFunction: the five fields that the plotter reads from a function, and the pixel path kept for it.
#pragma once

#include <cstdint>
#include <string>

namespace plotvane::graph {

class PathCache;

// Implemented by clsYGraph, and by the adapter over a host's automation object. A host's object may raise
// errors of its own: they come as platform::RunTimeError from any member.
class YFunction {
 public:
  virtual ~YFunction() = default;

  [[nodiscard]] virtual std::string GetEquation() = 0;
  [[nodiscard]] virtual bool GetEnabled() = 0;
  [[nodiscard]] virtual std::int32_t GetDrawStyle() = 0;
  [[nodiscard]] virtual std::int32_t GetDrawColor() = 0;
  [[nodiscard]] virtual bool GetQuickRedraw() = 0;
  virtual void SetQuickRedraw(bool valid) = 0;

  // The path of pixels drawn last, kept beside the function.
  [[nodiscard]] virtual PathCache& Path() = 0;
};

}  // namespace plotvane::graph
