// Control: a control without a container, for the tests of its members.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "tests/wine/host.h"

namespace plotvane::tests {

inline constexpr WORD kGet = DISPATCH_PROPERTYGET;
inline constexpr WORD kPut = DISPATCH_PROPERTYPUT;
inline constexpr WORD kPutRef = DISPATCH_PROPERTYPUTREF;
inline constexpr WORD kCall = DISPATCH_METHOD;

class Control : public testing::Test {
 protected:
  Apartment apartment;
  Library library;
  ComPtr<::_Graph> graph = library.CreateGraph();

  double Number(const wchar_t* name) {
    return control::com::ToDouble(CallByName(graph.Get(), name, kGet).value.Get());
  }
  bool Flag(const wchar_t* name) {
    return control::com::ToBool(CallByName(graph.Get(), name, kGet).value.Get());
  }

  HRESULT SetFunctions(const std::vector<IDispatch*>& functions, bool redraw = true) {
    Variant array = ArrayOf(functions);
    Variant flag(redraw);
    return graph->SetYArray(&array.Get(), &flag.Get());
  }
};

}  // namespace plotvane::tests
