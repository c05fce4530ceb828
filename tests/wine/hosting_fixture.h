// Hosting: a control in a strict container.
#pragma once

#include <gtest/gtest.h>

#include "tests/wine/strict_site.h"

namespace plotvane::tests {

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
    SIZEL extent{10583, 7938};  // 400 x 300 pixels at 96 dots per inch
    ASSERT_EQ(object->SetClientSite(site.Get()), S_OK);
    ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    ASSERT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
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
