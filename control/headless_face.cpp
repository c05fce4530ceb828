#include "control/headless_face.h"

namespace plotvane::control {

HeadlessFace::HeadlessFace()
    : mSurface(
          std::make_shared<graph::RasterSurface>(kDefaultSurfaceSize.width, kDefaultSurfaceSize.height)) {}

// Six pixels for each character, as wide as the digits of the font at 96 dots per inch.
FaceMetrics HeadlessFace::Metrics() {
  FaceMetrics metrics;
  for (std::size_t i = 0; i < kToolBarItemCount; ++i) {
    const std::string shown = CaptionWithoutMnemonic(kToolBarItems[i].caption);
    metrics.captionWidths[i] = metrics.digitWidth * static_cast<int>(shown.size());
  }
  return metrics;
}

void HeadlessFace::Apply(const ControlLayout& layout) {
  mSurface->Resize(layout.surface.width, layout.surface.height);
}

std::shared_ptr<FieldsView> HeadlessFace::CreateFieldsView(const FieldsDialogText& text,
                                                           std::weak_ptr<DialogEvents> /*events*/) {
  return std::make_shared<StoredFieldsView>(text);
}

std::shared_ptr<FormatView> HeadlessFace::CreateFormatView(std::weak_ptr<FormatEvents> /*events*/) {
  return std::make_shared<StoredFormatView>();
}

}  // namespace plotvane::control
