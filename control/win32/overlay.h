// Overlay: the rubber band and the trace marker, shown over the picture without being drawn into it.
#pragma once

#include <windows.h>

#include <array>
#include <functional>

#include "control/face.h"
#include "control/win32/handles.h"

namespace plotvane::control::win32 {

class Overlay {
 public:
  // Told of each part of the surface that looks different from now on.
  using Changed = std::function<void(const RECT&)>;

  Overlay();
  Overlay(const Overlay&) = delete;
  Overlay& operator=(const Overlay&) = delete;

  void SetChanged(Changed changed) { mChanged = std::move(changed); }

  [[nodiscard]] LineControl& Line(BoxLine line) { return mLines.at(static_cast<std::size_t>(line)); }
  void SetMarkerVisible(bool visible);
  void MoveMarker(graph::PixelPoint topLeft);

  // Inverts what is shown. Each pixel once, also where edges meet.
  void Invert(HDC context) const;

 private:
  class Edge : public LineControl {
   public:
    void SetVisible(bool visible) override;
    void Place(graph::PixelPoint from, graph::PixelPoint to) override;

    Overlay* owner = nullptr;
    bool visible = false;
    RECT rect{};
  };

  void Announce(const RECT& area) const;

  std::array<Edge, kBoxLineCount> mLines;
  bool mMarkerVisible = false;
  RECT mMarker{0, 0, kTraceMarkerSize, kTraceMarkerSize};
  Changed mChanged;
};

}  // namespace plotvane::control::win32
