// The members of _Graph from outside, early and late bound, with everything that callers pass.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/wine/host.h"

namespace plotvane::tests {
namespace {

constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
constexpr WORD kPutRef = DISPATCH_PROPERTYPUTREF;
constexpr WORD kCall = DISPATCH_METHOD;
constexpr HRESULT Standard(int number) {
  return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

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

TEST_F(Control, element_zero_of_the_array_is_never_read) {
  const auto function = MakeFunction("x");
  Variant array = ArrayOf({function.Get()});
  LONG zero = 0;
  Variant text("not an object");
  ::SafeArrayPutElement(array.Get().parray, &zero, &text.Get());
  EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
  EXPECT_TRUE(control::com::ToBool(function->Field(L"QuickRedraw").Get()));
}

TEST_F(Control, without_redraw_nothing_is_drawn_until_asked) {
  const auto function = MakeFunction("x");
  const auto sink = Make<EventSink>();
  Connect(graph.Get(), DIID___Graph, sink.Get());
  EXPECT_EQ(SetFunctions({function.Get()}, false), S_OK);
  EXPECT_EQ(sink->plotDone, 0);
  EXPECT_EQ(function->calls[L"Equation"], 0);
}

// Values by every route that a caller may take, into a 64-bit float field.
TEST_F(Control, numbers_come_in_every_dress) {
  double real = 2.5;
  short whole = 3;
  Bstr text(std::string_view("4.25"));
  BSTR raw = text.Get();
  Variant inner(7.0);
  Variant referred = Variant();
  referred.Get().vt = VT_BYREF | VT_R8;
  referred.Get().pdblVal = &real;
  Variant shortReference = Variant();
  shortReference.Get().vt = VT_BYREF | VT_I2;
  shortReference.Get().piVal = &whole;
  Variant textReference = Variant();
  textReference.Get().vt = VT_BYREF | VT_BSTR;
  textReference.Get().pbstrVal = &raw;
  Variant variantReference = Variant();
  variantReference.Get().vt = VT_BYREF | VT_VARIANT;
  variantReference.Get().pvarVal = &inner.Get();
  Variant chain = Variant();
  chain.Get().vt = VT_BYREF | VT_VARIANT;
  chain.Get().pvarVal = &variantReference.Get();
  struct Row {
    Variant value;
    double expected;
  };
  const Row rows[]{{Variant(1.5), 1.5},
                   {Variant(std::int16_t{-4}), -4},
                   {Variant(std::int32_t{70000}), 70000},
                   {Variant("2.5"), 2.5},
                   {Variant(true), -1},
                   {Variant(), 0},
                   {referred, 2.5},
                   {shortReference, 3},
                   {textReference, 4.25},
                   {variantReference, 7},
                   {chain, 7}};
  for (const Row& row : rows) {
    EXPECT_EQ(CallByName(graph.Get(), L"Xmin", kPut, {row.value}).status, S_OK);
    EXPECT_EQ(Number(L"Xmin"), row.expected);
  }
}

TEST_F(Control, by_reference_properties_take_values_and_references) {
  VARIANT_BOOL on = VARIANT_TRUE;
  Variant reference;
  reference.Get().vt = VT_BYREF | VT_BOOL;
  reference.Get().pboolVal = &on;
  EXPECT_EQ(CallByName(graph.Get(), L"DegreeMode", kPut, {Variant(true)}).status, S_OK);
  EXPECT_TRUE(Flag(L"DegreeMode"));
  EXPECT_EQ(CallByName(graph.Get(), L"DegreeMode", kPut, {Variant(std::int32_t{0})}).status, S_OK);
  EXPECT_FALSE(Flag(L"DegreeMode"));
  EXPECT_EQ(CallByName(graph.Get(), L"DegreeMode", kPut, {reference}).status, S_OK);
  EXPECT_TRUE(Flag(L"DegreeMode"));
  EXPECT_EQ(CallByName(graph.Get(), L"XMinStringEval", kPut, {Variant("2*3")}).status, S_OK);
  EXPECT_EQ(Number(L"Xmin"), 6);
  EXPECT_EQ(CallByName(graph.Get(), L"PlotPixelStep", kPut, {Variant("3")}).status, S_OK);
  EXPECT_EQ(Number(L"PlotPixelStep"), 3);
}

TEST_F(Control, arguments_may_be_named_and_locales_do_not_matter) {
  // ZoomInPixel(PixelX, PixelY) with the names the other way round: 0 and 1 are their identifiers.
  Variant y(150.0);
  Variant x(200.0);
  VARIANT values[]{y.Get(), x.Get()};
  DISPID names[]{1, 0};
  DISPPARAMS arguments{values, names, 2, 2};
  constexpr LCID kGerman = 0x407;
  LPOLESTR asked[]{const_cast<LPOLESTR>(L"zoominpixel"), const_cast<LPOLESTR>(L"pixelx"),
                   const_cast<LPOLESTR>(L"PIXELY")};
  DISPID found[3]{};
  EXPECT_EQ(graph->GetIDsOfNames(IID_NULL, asked, 3, kGerman, found), S_OK);
  EXPECT_EQ(found[0], 0x60030032);
  EXPECT_EQ(found[1], 0);
  EXPECT_EQ(found[2], 1);
  EXPECT_EQ(graph->Invoke(found[0], IID_NULL, kGerman, kCall, &arguments, nullptr, nullptr, nullptr), S_OK);
  // The centre of 400 x 300 pixels: the range shrinks to a quarter about it.
  EXPECT_NEAR(Number(L"W"), 5, 1e-12);
}

TEST_F(Control, put_and_putref_together_write_an_object) {
  const auto table = MakeTable();
  EXPECT_EQ(
      CallByName(graph.Get(), L"VarTable", static_cast<WORD>(kPut | kPutRef), {Variant(table.Get())}).status,
      S_OK);
  EXPECT_EQ(CallByName(graph.Get(), L"VarTable", kPut, {Variant(table.Get())}).status, S_OK);
  EXPECT_EQ(CallByName(graph.Get(), L"VarTable", kPutRef, {Variant(table.Get())}).status, S_OK);
  EXPECT_EQ(CallByName(graph.Get(), L"VarTable", kGet).value.Get().pdispVal,
            static_cast<IDispatch*>(table.Get()));
}

TEST_F(Control, calls_that_cannot_be_made_say_why) {
  struct Row {
    const wchar_t* name;
    WORD kinds;
    std::vector<Variant> arguments;
    HRESULT expected;
  };
  const Row rows[]{
      {L"NoSuchMember", kCall, {}, DISP_E_UNKNOWNNAME},
      {L"PlotAllY", kCall, {Variant(1.0)}, DISP_E_BADPARAMCOUNT},
      {L"PlotAllY", kGet, {}, DISP_E_MEMBERNOTFOUND},
      {L"PlotAllY", kPut, {Variant(1.0)}, DISP_E_MEMBERNOTFOUND},
      {L"GetGraphWidth", kPut, {Variant(1.0)}, DISP_E_MEMBERNOTFOUND},
      {L"ZNum", kCall, {}, DISP_E_PARAMNOTOPTIONAL},
      {L"SetYArray", kCall, {}, DISP_E_PARAMNOTOPTIONAL},
      {L"Xmin", kPutRef, {Variant(1.0)}, DISP_E_MEMBERNOTFOUND},
      {L"ZoomInPixel", kCall, {Variant(1.0), Variant(2.0), Variant(3.0)}, DISP_E_BADPARAMCOUNT},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(CallByName(graph.Get(), row.name, row.kinds, row.arguments).status, row.expected)
        << control::com::Utf8(row.name);
  }
}

TEST_F(Control, errors_carry_their_source_and_text_late_bound) {
  const CallResult call = CallByName(graph.Get(), L"SetYArray", kCall, {Variant(5.0)});
  EXPECT_EQ(call.status, DISP_E_EXCEPTION);
  EXPECT_EQ(call.raised, Standard(13));
  EXPECT_EQ(call.source, "Plotvane.Graph");
  EXPECT_EQ(call.text, "Type mismatch");
}

TEST_F(Control, errors_carry_their_source_and_text_early_bound) {
  EXPECT_EQ(As<ISupportErrorInfo>(graph.Get())->InterfaceSupportsErrorInfo(IID__Graph), S_OK);
  Variant number(5.0);
  EXPECT_EQ(graph->putref_VarTable(&number.Get()), Standard(424));
  ComPtr<IErrorInfo> error;
  ASSERT_EQ(::GetErrorInfo(0, error.Receive()), S_OK);
  Bstr text;
  Bstr source;
  error->GetDescription(text.Receive());
  error->GetSource(source.Receive());
  EXPECT_EQ(text.Text(), "Object required");
  EXPECT_EQ(source.Text(), "Plotvane.Graph");
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

// ---- The host's own table ----

TEST_F(Control, a_host_table_is_asked_by_names_only_once) {
  const auto table = MakeTable();
  const auto function = MakeFunction("a*x+a");
  EXPECT_TRUE(control::com::ToBool(
      CallByName(table.Get(), L"Change", kCall, {Variant("a"), Variant(2.0)}).value.Get()));
  Variant object(table.Get());
  ASSERT_EQ(graph->putref_VarTable(&object.Get()), S_OK);
  short step = 20;
  graph->put_PlotPixelStep(&step);
  table->nameLookups = 0;
  table->calls.clear();
  ASSERT_EQ(SetFunctions({function.Get()}), S_OK);
  // 400 columns in steps of 20 are 20 points; one store before the recording and one to give x back.
  constexpr int kPoints = 20;
  EXPECT_EQ(table->nameLookups, 2);
  EXPECT_EQ(table->calls[L"Change"], kPoints + 2);
  // x is saved once; the expression names a twice and x once at each point and once while it is recorded.
  EXPECT_EQ(table->calls[L"GetIdValue"], 1 + 3 * (kPoints + 1));
  ASSERT_EQ(graph->PlotAllY(), S_OK);
  EXPECT_EQ(table->nameLookups, 2);
}

TEST_F(Control, an_error_of_the_host_passes_unchanged) {
  const auto table = Make<NamedObject>();
  table->Define(L"GetIdValue", [](Arguments&, WORD) { return Variant(false); });
  table->Define(L"Change", [](Arguments&, WORD) -> Variant {
    throw RaisedError{static_cast<HRESULT>(0x80040201), L"MyTable", L"The table is locked"};
  });
  Variant object(table.Get());
  graph->putref_VarTable(&object.Get());
  const auto function = MakeFunction("x");
  EXPECT_EQ(SetFunctions({function.Get()}, false), S_OK);
  const CallResult call = CallByName(graph.Get(), L"PlotAllY", kCall);
  EXPECT_EQ(call.raised, static_cast<HRESULT>(0x80040201));
  EXPECT_EQ(call.source, "MyTable");
  EXPECT_EQ(call.text, "The table is locked");
}

TEST_F(Control, a_function_without_its_fields_is_error_438) {
  const auto empty = Make<NamedObject>();
  EXPECT_EQ(SetFunctions({empty.Get()}), Standard(438));
}

TEST_F(Control, a_host_surface_is_drawn_on_by_name) {
  const auto surface = MakeSurface(200, 100);
  const auto function = MakeFunction("x");
  ASSERT_EQ(graph->putref_PIC(surface.Get()), S_OK);
  ComPtr<IDispatch> read;
  EXPECT_EQ(graph->get_PIC(read.Receive()), S_OK);
  EXPECT_EQ(read.Get(), static_cast<IDispatch*>(surface.Get()));
  LONG width = 0;
  EXPECT_EQ(graph->GetGraphWidth(&width), S_OK);
  EXPECT_EQ(width, 200);
  EXPECT_EQ(SetFunctions({function.Get()}), S_OK);
  EXPECT_GE(surface->calls[L"Clear"], 1);
  EXPECT_GE(surface->calls[L"DrawLine"], 50);
  EXPECT_EQ(graph->putref_PIC(nullptr), S_OK);
  EXPECT_EQ(graph->PlotAllY(), Standard(91));
}

TEST_F(Control, its_own_surface_and_table_are_one_object_each_and_come_home) {
  ComPtr<IDispatch> surface;
  ComPtr<IDispatch> again;
  ASSERT_EQ(graph->get_PIC(surface.Receive()), S_OK);
  ASSERT_EQ(graph->get_PIC(again.Receive()), S_OK);
  EXPECT_EQ(surface.Get(), again.Get());
  Variant picture;
  EXPECT_EQ(graph->GetGraphPicture(picture.Receive()), S_OK);
  EXPECT_EQ(picture.Get().pdispVal, surface.Get());
  EXPECT_EQ(
      CallByName(surface.Get(), L"SetPixel", kCall, {Variant(1.0), Variant(2.0), Variant(255.0)}).status,
      S_OK);
  EXPECT_EQ(control::com::ToDouble(CallByName(surface.Get(), L"ScaleWidth", kGet).value.Get()), 400);

  // Two controls with one table.
  const auto other = library.CreateGraph();
  Variant table;
  ASSERT_EQ(graph->get_VarTable(table.Receive()), S_OK);
  ASSERT_EQ(other->putref_VarTable(&table.Get()), S_OK);
  EXPECT_EQ(CallByName(table.Get().pdispVal, L"Change", kCall, {Variant("k"), Variant(3.0)}).status, S_OK);
  Bstr text(std::string_view("k*2"));
  BSTR raw = text.Get();
  EXPECT_EQ(other->put_XMaxStringEval(&raw), S_OK);
  double xmax = 0;
  other->get_Xmax(&xmax);
  EXPECT_EQ(xmax, 6);
}

TEST_F(Control, a_table_handed_out_outlives_the_control) {
  Variant table;
  ASSERT_EQ(graph->get_VarTable(table.Receive()), S_OK);
  graph.Reset();
  Variant value;
  EXPECT_TRUE(control::com::ToBool(
      CallByName(table.Get().pdispVal, L"IdExists", kCall, {Variant("pi")}).value.Get()));
}

// ---- The control's own table by name ----

TEST_F(Control, the_table_answers_its_operations_by_name) {
  Variant holder;
  ASSERT_EQ(graph->get_VarTable(holder.Receive()), S_OK);
  IDispatch* table = holder.Get().pdispVal;
  const auto truth = [&](const wchar_t* name, std::vector<Variant> arguments) {
    const CallResult call = CallByName(table, name, kCall, std::move(arguments));
    EXPECT_EQ(call.status, S_OK) << control::com::Utf8(name) << " " << call.text;
    return control::com::ToBool(call.value.Get());
  };
  Variant value;
  Variant type;
  Variant description;
  const auto out = [](Variant& target) {
    Variant reference;
    reference.Get().vt = VT_BYREF | VT_VARIANT;
    reference.Get().pvarVal = &target.Get();
    return reference;
  };
  EXPECT_TRUE(truth(L"Change", {Variant("x1"), Variant(2.5)}));
  EXPECT_TRUE(truth(L"GetIdValue", {Variant("X1"), out(value)}));
  EXPECT_EQ(control::com::ToDouble(value.Get()), 2.5);
  EXPECT_FALSE(truth(L"Change", {Variant("pi"), Variant(3.0)}));
  EXPECT_TRUE(truth(L"ChangeConstant", {Variant("k"), Variant(1.0), Variant("a constant")}));
  EXPECT_TRUE(truth(L"GetId", {Variant("k"), out(value), out(type), out(description)}));
  EXPECT_EQ(control::com::ToInt32(type.Get()), 4);
  EXPECT_EQ(control::com::ToText(description.Get()), "a constant");
  EXPECT_FALSE(truth(L"Remove", {Variant("k")}));
  EXPECT_EQ(CallByName(table, L"ConstWriteAccess", kPut, {Variant(true)}).status, S_OK);
  EXPECT_TRUE(truth(L"Remove", {Variant("k")}));
  EXPECT_TRUE(truth(L"Rename", {Variant("x1"), Variant("x2")}));
  EXPECT_TRUE(truth(L"IdExists", {Variant("x2")}));
  EXPECT_TRUE(truth(L"GetIdType", {Variant("x2"), out(type)}));
  EXPECT_EQ(control::com::ToInt32(type.Get()), 2);
  const CallResult collected = CallByName(table, L"CollectFlag", kCall, {Variant(9.0)});
  ASSERT_EQ(collected.status, S_OK);
  IDispatch* nodes = collected.value.Get().pdispVal;
  EXPECT_TRUE(control::com::ToBool(CallByName(nodes, L"Search", kCall, {Variant("PI")}).value.Get()));
  const CallResult node = CallByName(nodes, L"CurrentNode", kGet);
  ASSERT_EQ(node.value.Type(), VT_DISPATCH);
  EXPECT_EQ(control::com::ToText(CallByName(node.value.Get().pdispVal, L"Id", kGet).value.Get()), "Pi");
  EXPECT_FALSE(control::com::ToBool(CallByName(nodes, L"Search", kCall, {Variant("x2")}).value.Get()));
}

// ---- Not to be trusted: every kind of value at every place that takes one ----

struct Input {
  const char* name;
  Variant value;
};

// Kinds of values that a host could hand in by mistake; none is an array of objects.
std::vector<Input> StrangeValues() {
  std::vector<Input> inputs;
  const auto add = [&](const char* name, Variant value) { inputs.push_back({name, std::move(value)}); };
  const auto ofType = [](VARTYPE type) {
    Variant value;
    value.Get().vt = type;
    return value;
  };
  add("empty", Variant());
  add("null", ofType(VT_NULL));
  add("zero", Variant(std::int32_t{0}));
  add("number", Variant(1.5));
  add("large number", Variant(1e300));
  add("not a number", Variant(std::numeric_limits<double>::quiet_NaN()));
  add("infinity", Variant(std::numeric_limits<double>::infinity()));
  add("boolean", Variant(true));
  add("text", Variant("text"));
  add("empty text", Variant(""));
  add("number as text", Variant("12"));
  add("date", ofType(VT_DATE));
  add("currency", ofType(VT_CY));
  add("byte", ofType(VT_UI1));
  add("error", ofType(VT_ERROR));
  add("unset object", Variant(static_cast<IDispatch*>(nullptr)));
  add("unset unknown", ofType(VT_UNKNOWN));
  Variant texts;
  texts.Get().vt = VT_ARRAY | VT_BSTR;
  texts.Get().parray = ::SafeArrayCreateVector(VT_BSTR, 0, 3);
  add("array of texts", texts);
  Variant numbers;
  numbers.Get().vt = VT_ARRAY | VT_R8;
  numbers.Get().parray = ::SafeArrayCreateVector(VT_R8, 0, 3);
  add("array of numbers", numbers);
  Variant empties;
  empties.Get().vt = VT_ARRAY | VT_VARIANT;
  empties.Get().parray = ::SafeArrayCreateVector(VT_VARIANT, 0, 3);
  add("array of nothing", empties);
  Variant null;
  null.Get().vt = VT_ARRAY | VT_VARIANT;
  add("null array", null);
  return inputs;
}

TEST_F(Control, SetYArray_refuses_what_is_no_array_of_objects_and_keeps_its_functions) {
  const auto kept = MakeFunction("x");
  ASSERT_EQ(SetFunctions({kept.Get()}), S_OK);
  for (const Input& input : StrangeValues()) {
    const bool isArray = (input.value.Type() & VT_ARRAY) != 0;
    const HRESULT expected = !isArray                                  ? Standard(13)
                             : std::string(input.name) == "null array" ? Standard(9)
                                                                       : Standard(424);
    Variant value = input.value;
    EXPECT_EQ(graph->SetYArray(&value.Get(), nullptr), expected) << input.name;
    EXPECT_EQ(CallByName(graph.Get(), L"SetYArray", kCall, {input.value}).raised, expected) << input.name;
    kept->calls.clear();
    graph->PlotAllY();
    EXPECT_EQ(kept->calls[L"Enabled"], 1) << input.name;
  }
}

TEST_F(Control, SetYArray_takes_arrays_of_every_shape_by_the_rules) {
  const auto function = MakeFunction("x");
  const auto vector = [&](VARTYPE type, LONG lower, ULONG count) {
    Variant value;
    value.Get().vt = static_cast<VARTYPE>(VT_ARRAY | type);
    value.Get().parray = ::SafeArrayCreateVector(type, lower, count);
    for (LONG index = lower; index < lower + static_cast<LONG>(count); ++index) {
      Variant element(function.Get());
      void* stored = type == VT_VARIANT ? static_cast<void*>(&element.Get()) : element.Get().pdispVal;
      ::SafeArrayPutElement(value.Get().parray, &index, stored);
    }
    return value;
  };
  SAFEARRAYBOUND square[]{{2, 0}, {2, 0}};
  Variant plane;
  plane.Get().vt = VT_ARRAY | VT_VARIANT;
  plane.Get().parray = ::SafeArrayCreate(VT_VARIANT, 2, square);
  struct Row {
    const char* name;
    Variant value;
    HRESULT expected;
  };
  Row rows[]{
      {"objects from 0", vector(VT_DISPATCH, 0, 3), S_OK},
      {"objects from 1", vector(VT_DISPATCH, 1, 2), S_OK},
      {"unknowns", vector(VT_UNKNOWN, 0, 3), S_OK},
      {"variants from 1", vector(VT_VARIANT, 1, 2), S_OK},
      {"variants from -1", vector(VT_VARIANT, -1, 4), S_OK},
      {"only element 0", vector(VT_VARIANT, 0, 1), S_OK},
      {"lower bound 2", vector(VT_VARIANT, 2, 3), Standard(9)},
      {"upper bound -1", vector(VT_VARIANT, -1, 1), Standard(9)},
      {"no elements", vector(VT_VARIANT, 0, 0), Standard(9)},
      {"two dimensions", plane, Standard(9)},
  };
  Variant huge;
  huge.Get().vt = VT_ARRAY | VT_VARIANT;
  huge.Get().parray = ::SafeArrayCreateVector(VT_VARIANT, 0, 32769);
  for (Row& row : rows) EXPECT_EQ(graph->SetYArray(&row.value.Get(), nullptr), row.expected) << row.name;
  EXPECT_EQ(graph->SetYArray(&huge.Get(), nullptr), Standard(6));
  // By reference, as a script's variable comes.
  Variant array = vector(VT_VARIANT, 0, 2);
  Variant reference;
  reference.Get().vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  reference.Get().pparray = &array.Get().parray;
  EXPECT_EQ(graph->SetYArray(&reference.Get(), nullptr), S_OK);
  Variant variable;
  variable.Get().vt = VT_BYREF | VT_VARIANT;
  variable.Get().pvarVal = &array.Get();
  EXPECT_EQ(CallByName(graph.Get(), L"SetYArray", kCall, {variable, Variant(false)}).status, S_OK);
}

TEST_F(Control, RedrawGraph_that_is_no_truth_value_changes_nothing) {
  const auto kept = MakeFunction("x");
  const auto other = MakeFunction("x^2");
  ASSERT_EQ(SetFunctions({kept.Get()}), S_OK);
  Variant array = ArrayOf({other.Get()});
  Variant strange("perhaps");
  EXPECT_EQ(graph->SetYArray(&array.Get(), &strange.Get()), Standard(13));
  kept->calls.clear();
  graph->PlotAllY();
  EXPECT_EQ(kept->calls[L"Enabled"], 1);
  EXPECT_EQ(other->calls[L"Enabled"], 0);
}

TEST_F(Control, VarTable_refuses_what_is_no_object_and_keeps_its_table) {
  const auto table = MakeTable();
  for (const Input& input : StrangeValues()) {
    Variant object(table.Get());
    ASSERT_EQ(graph->putref_VarTable(&object.Get()), S_OK);
    Variant value = input.value;
    const bool unset = value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN;
    EXPECT_EQ(graph->putref_VarTable(&value.Get()), unset ? S_OK : Standard(424)) << input.name;
    Variant now;
    EXPECT_EQ(graph->get_VarTable(now.Receive()), S_OK);
    EXPECT_EQ(now.Get().pdispVal, unset ? nullptr : static_cast<IDispatch*>(table.Get())) << input.name;
  }
}

TEST_F(Control, PIC_refuses_what_is_no_object_and_keeps_its_surface) {
  ComPtr<IDispatch> own;
  ASSERT_EQ(graph->get_PIC(own.Receive()), S_OK);
  for (const Input& input : StrangeValues()) {
    const bool unset = input.value.Type() == VT_DISPATCH || input.value.Type() == VT_UNKNOWN;
    for (const WORD kinds : {kPut, kPutRef}) {
      const CallResult call = CallByName(graph.Get(), L"PIC", kinds, {input.value});
      EXPECT_EQ(call.status, unset ? S_OK : DISP_E_EXCEPTION) << input.name;
      if (!unset) {
        EXPECT_EQ(call.raised, Standard(424)) << input.name;
      }
    }
    ComPtr<IDispatch> now;
    graph->get_PIC(now.Receive());
    EXPECT_EQ(now.Get(), unset ? nullptr : own.Get()) << input.name;
    graph->putref_PIC(own.Get());
  }
}

TEST_F(Control, by_reference_numbers_refuse_what_does_not_convert) {
  for (const wchar_t* name : {L"PenWidth", L"PlotPixelStep", L"DegreeMode"}) {
    for (const Input& input : StrangeValues()) {
      const double before = Number(name);
      const CallResult call = CallByName(graph.Get(), name, kPut, {input.value});
      const std::string text = input.name;
      const bool refused = (input.value.Type() & VT_ARRAY) != 0 || text == "null" || text == "error" ||
                           text == "text" || text == "empty text" || text == "unset object" ||
                           text == "unset unknown";
      if (refused) {
        EXPECT_TRUE(FAILED(call.status)) << control::com::Utf8(name) << " " << input.name;
        EXPECT_EQ(Number(name), before) << input.name;
      } else if (text != "large number" && text != "not a number" && text != "infinity") {
        EXPECT_EQ(call.status, S_OK) << control::com::Utf8(name) << " " << input.name;
      }
    }
  }
}

TEST_F(Control, numbers_too_large_for_16_bits_are_error_6) {
  for (const wchar_t* name : {L"PenWidth", L"PlotPixelStep"}) {
    const CallResult call = CallByName(graph.Get(), name, kPut, {Variant(1e300)});
    EXPECT_EQ(call.raised, Standard(6));
    EXPECT_EQ(Number(name), 1);
  }
}

}  // namespace
}  // namespace plotvane::tests
