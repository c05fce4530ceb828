// Hosting: a control in a strict container.
#pragma once

#include <gtest/gtest.h>

#include "tests/wine/bitmap.h"
#include "tests/wine/strict_site.h"

namespace plotvane::tests {

inline constexpr int kWidth = 400;
inline constexpr int kHeight = 300;
inline constexpr SIZEL kExtent{10583, 7938};  // that many pixels at 96 dots per inch

class Hosting : public testing::Test {
 protected:
  Apartment apartment;
  Library library;
  HostWindow window;
  ComPtr<StrictSite> site = Make<StrictSite>(window.Get());
  ComPtr<::_Graph> graph = library.CreateGraph();
  ComPtr<IOleObject> object = As<IOleObject>(graph.Get());

  HRESULT Do(LONG verb) {
    return object->DoVerb(verb, nullptr, site.Get(), 0, window.Get(), &site->position);
  }
  void Activate() {
    SIZEL extent = kExtent;
    ASSERT_EQ(object->SetClientSite(site.Get()), S_OK);
    ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  }
  HRESULT Draw(HDC context, const RECTL& bounds) {
    return As<IViewObject>(graph.Get())
        ->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &bounds, &bounds, nullptr, 0);
  }
  // The control as a container draws it, at its own size.
  Bitmap Picture() {
    Bitmap bitmap(kWidth, kHeight);
    EXPECT_EQ(Draw(bitmap.Context(), {0, 0, kWidth, kHeight}), S_OK);
    return bitmap;
  }
  HWND ControlWindow() {
    HWND control = nullptr;
    As<IOleInPlaceObject>(graph.Get())->GetWindow(&control);
    return control;
  }
  void End() {
    if (object) object->Close(OLECLOSE_NOSAVE);
    if (object) object->SetClientSite(nullptr);
    object.Reset();
    graph.Reset();
  }
};

}  // namespace plotvane::tests
