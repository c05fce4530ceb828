#include "control/face_frame.h"

#include <utility>

namespace plotvane::control {

FaceFrame::FaceFrame(std::shared_ptr<Face> face, const clsLineBox& zoomBox)
    : mFace(std::move(face)), mZoomBox(zoomBox) {}

void FaceFrame::SetSimpleText(std::string_view text) {
  mFace->SetText(TextBox::txtSimple, text);
}

void FaceFrame::RefreshSimpleText() {
  mFace->RefreshText(TextBox::txtSimple);
}

void FaceFrame::SetStatusBarText(std::string_view text) {
  mFace->SetText(TextBox::txtStatusBar1, text);
}

void FaceFrame::ShowMessage(std::string_view text, std::string_view title, graph::MessageIcon icon) {
  mFace->ShowMessage({std::string(text), std::string(title.empty() ? kDefaultTitle : title), icon});
}

std::string FaceFrame::UserCurYText() {
  return mFace->GetText(TextBox::txtUserCurY);
}

void FaceFrame::FocusUserCurY() {
  mFace->SetFocus(TextBox::txtUserCurY);
}

graph::PixelBox FaceFrame::ZoomBox() {
  return {mZoomBox.Left(), mZoomBox.Top(), mZoomBox.Width(), mZoomBox.Height()};
}

void FaceFrame::ShowTraceMarker(bool visible) {
  mFace->SetTraceMarkerVisible(visible);
}

void FaceFrame::PlaceTraceMarker(graph::PixelPoint topLeft) {
  mFace->MoveTraceMarker(topLeft);
}

graph::PixelExtent FaceFrame::TraceMarkerSize() {
  return {kTraceMarkerSize, kTraceMarkerSize};
}

void FaceFrame::RaisePlotDone() {
  const auto handler = PlotDone;  // the handler may replace or clear the event
  if (handler) handler();
}

}  // namespace plotvane::control
