// The members of _Graph from outside: first values, what each does at once, and the events.
#include <gtest/gtest.h>

#include "tests/wine/control_fixture.h"

namespace plotvane::tests {
namespace {

TEST_F(Control, a_new_control_has_the_written_values) {
  struct Row {
    const wchar_t* name;
    double value;
  };
  constexpr Row kRows[]{{L"W", 20},    {L"H", 20},     {L"W_2", 0},      {L"H_2", 0},
                        {L"Xmax", 10}, {L"Xmin", -10}, {L"Ymax", 10},    {L"Ymin", -10},
                        {L"Xscl", 1},  {L"Yscl", 1},   {L"GCStyle", 1},  {L"PlotStyle", 2},
                        {L"ZX", 4},    {L"ZY", 4},     {L"PenWidth", 1}, {L"PlotPixelStep", 1}};
  for (const Row& row : kRows) EXPECT_EQ(Number(row.name), row.value) << control::com::Utf8(row.name);
  for (const wchar_t* name :
       {L"ShowAxis", L"ShowAxisDivisions", L"RedrawGridOnResize", L"RedrawAxisOnResize", L"ToolBarVisible"}) {
    EXPECT_TRUE(Flag(name)) << control::com::Utf8(name);
  }
  for (const wchar_t* name : {L"ShowGrid", L"RedrawAll", L"DegreeMode"}) EXPECT_FALSE(Flag(name));
  for (const wchar_t* name : {L"ZXStr", L"YSclStr", L"XMinStringEval"}) {
    EXPECT_EQ(control::com::ToText(CallByName(graph.Get(), name, kGet).value.Get()), "");
  }
}

TEST_F(Control, without_a_site_the_surface_is_400_by_300) {
  LONG width = 0;
  LONG height = 0;
  LONG context = 0;
  EXPECT_EQ(graph->GetGraphWidth(&width), S_OK);
  EXPECT_EQ(graph->GetGraphHeight(&height), S_OK);
  EXPECT_EQ(graph->GetGraphHDC(&context), S_OK);
  EXPECT_EQ(width, 400);
  EXPECT_EQ(height, 300);
  EXPECT_NE(::GetDeviceCaps(reinterpret_cast<HDC>(static_cast<LONG_PTR>(context)), BITSPIXEL), 0);
}

TEST_F(Control, a_plotted_line_is_on_the_device_context) {
  const auto line = MakeFunction("0*x+5", 0x0000FF);
  ASSERT_EQ(SetFunctions({line.Get()}), S_OK);
  LONG context = 0;
  graph->GetGraphHDC(&context);
  // y = 5 of -10 to 10 on 300 rows: row round(300 - 15 / (20 / 300)) = 75.
  EXPECT_EQ(::GetPixel(reinterpret_cast<HDC>(static_cast<LONG_PTR>(context)), 100, 75), RGB(255, 0, 0));
}

TEST_F(Control, step_below_one_and_unchanged_degrees_leave_redraw_alone) {
  graph->PlotAllY();
  EXPECT_FALSE(Flag(L"RedrawAll"));
  for (const short step : {short{0}, short{-3}, short{1}}) {
    short value = step;
    EXPECT_EQ(graph->put_PlotPixelStep(&value), S_OK);
    EXPECT_EQ(Number(L"PlotPixelStep"), 1);
    EXPECT_FALSE(Flag(L"RedrawAll"));
  }
  VARIANT_BOOL off = VARIANT_FALSE;
  EXPECT_EQ(graph->put_DegreeMode(&off), S_OK);
  EXPECT_FALSE(Flag(L"RedrawAll"));
}

TEST_F(Control, writing_an_edge_does_not_redraw) {
  const auto sink = Make<EventSink>();
  Connect(graph.Get(), DIID___Graph, sink.Get());
  graph->put_Xmin(-5);
  EXPECT_EQ(sink->plotDone, 0);
  EXPECT_EQ(Number(L"Xmin"), -5);
}

TEST_F(Control, null_pointers_are_refused) {
  EXPECT_EQ(graph->get_Xmin(nullptr), E_POINTER);
  EXPECT_EQ(graph->get_XMinStr(nullptr), E_POINTER);
  EXPECT_EQ(graph->get_PIC(nullptr), E_POINTER);
  EXPECT_EQ(graph->get_VarTable(nullptr), E_POINTER);
  EXPECT_EQ(graph->put_PenWidth(nullptr), E_POINTER);
  EXPECT_EQ(graph->put_DegreeMode(nullptr), E_POINTER);
  EXPECT_EQ(graph->put_XMinStringEval(nullptr), E_POINTER);
  EXPECT_EQ(graph->ZoomInPixel(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(graph->ZNum(nullptr), E_POINTER);
  EXPECT_EQ(graph->SetYArray(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(graph->GetGraphHDC(nullptr), E_POINTER);
  // A null automation string is the empty text.
  EXPECT_EQ(graph->put_XMinStr(nullptr), S_OK);
}

TEST_F(Control, element_zero_of_the_array_is_never_read) {
  const auto function = MakeFunction("x");
  Variant array = ArrayOf({function.Get()});
  LONG zero = 0;
  Variant text("not an object");
  ::SafeArrayPutElement(array.Get().parray, &zero, &text.Get());
  EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
  EXPECT_TRUE(control::com::ToBool(function->Field(L"QuickRedraw").Get()));
}

TEST_F(Control, one_object_twice_in_the_array_is_one_function_drawn_twice) {
  const auto function = MakeFunction("x");
  ASSERT_EQ(SetFunctions({function.Get(), function.Get()}), S_OK);
  EXPECT_EQ(function->calls[L"Enabled"], 2);
  EXPECT_TRUE(control::com::ToBool(function->Field(L"QuickRedraw").Get()));
  // Both places share the object's path: it is kept once, and both are drawn from it without evaluation.
  const auto table = MakeTable();
  Variant object(table.Get());
  ASSERT_EQ(graph->putref_VarTable(&object.Get()), S_OK);
  ASSERT_EQ(graph->PlotAllY(), S_OK);
  table->calls.clear();
  function->calls.clear();
  ASSERT_EQ(graph->PlotAllY(), S_OK);
  EXPECT_EQ(function->calls[L"Enabled"], 2);
  EXPECT_LE(table->calls[L"Change"], 2) << "at most x given back for each";
  // One place less leaves the other its path.
  ASSERT_EQ(SetFunctions({function.Get()}), S_OK);
  EXPECT_LE(table->calls[L"Change"], 3);
}

TEST_F(Control, without_redraw_nothing_is_drawn_until_asked) {
  const auto function = MakeFunction("x");
  const auto sink = Make<EventSink>();
  Connect(graph.Get(), DIID___Graph, sink.Get());
  EXPECT_EQ(SetFunctions({function.Get()}, false), S_OK);
  EXPECT_EQ(sink->plotDone, 0);
  EXPECT_EQ(function->calls[L"Equation"], 0);
}

TEST_F(Control, plotting_raises_the_event_once) {
  const auto sink = Make<EventSink>();
  const DWORD cookie = Connect(graph.Get(), DIID___Graph, sink.Get());
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  EXPECT_EQ(sink->plotDone, 1);
  EXPECT_EQ(graph->ZStandard(), S_OK);
  EXPECT_EQ(sink->plotDone, 2);
  Disconnect(graph.Get(), DIID___Graph, cookie);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  EXPECT_EQ(sink->plotDone, 2);
}

TEST_F(Control, frozen_events_are_raised_afterwards) {
  const auto sink = Make<EventSink>();
  Connect(graph.Get(), DIID___Graph, sink.Get());
  const auto control = As<IOleControl>(graph.Get());
  control->FreezeEvents(TRUE);
  graph->PlotAllY();
  EXPECT_EQ(sink->plotDone, 0);
  control->FreezeEvents(FALSE);
  EXPECT_EQ(sink->plotDone, 1);
}

// Takes the news of written properties.
class PropertySink final : public Implements<IPropertyNotifySink> {
 public:
  std::vector<DISPID> changed;
  HRESULT STDMETHODCALLTYPE OnChanged(DISPID property) noexcept override {
    changed.push_back(property);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) noexcept override { return S_OK; }
};

TEST_F(Control, written_properties_are_announced) {
  const auto sink = Make<PropertySink>();
  const DWORD cookie = Connect(graph.Get(), IID_IPropertyNotifySink, sink.Get());
  graph->put_Xmin(-5);
  short step = 2;
  graph->put_PlotPixelStep(&step);
  EXPECT_EQ(sink->changed, (std::vector<DISPID>{0x4003000E, 0x68030000}));
  // A refused write is no news.
  Variant number(5.0);
  EXPECT_EQ(graph->putref_VarTable(&number.Get()), Standard(424));
  EXPECT_EQ(sink->changed.size(), 2U);
  Disconnect(graph.Get(), IID_IPropertyNotifySink, cookie);
  graph->put_Xmin(-6);
  EXPECT_EQ(sink->changed.size(), 2U);
}

}  // namespace
}  // namespace plotvane::tests
