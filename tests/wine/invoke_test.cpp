// Late-bound calls with everything that callers pass, and the errors that come back.
#include <gtest/gtest.h>

#include "control/com/host_object.h"
#include "tests/wine/control_fixture.h"

namespace plotvane::tests {
namespace {

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

TEST_F(Control, an_argument_left_out_counts_as_missing_in_every_way) {
  const auto function = MakeFunction("x");
  const auto sink = Make<EventSink>();
  Connect(graph.Get(), DIID___Graph, sink.Get());
  const Variant array = ArrayOf({function.Get()});
  Variant missing = Variant::Missing();
  // A missing RedrawGraph is true: each of these draws.
  EXPECT_EQ(CallByName(graph.Get(), L"SetYArray", kCall, {array}).status, S_OK);
  EXPECT_EQ(sink->plotDone, 1);
  EXPECT_EQ(CallByName(graph.Get(), L"SetYArray", kCall, {array, missing}).status, S_OK);
  EXPECT_EQ(sink->plotDone, 2);
  EXPECT_EQ(CallByName(graph.Get(), L"SetYArray", kCall, {array, control::com::ReferenceTo(missing)}).status,
            S_OK);
  EXPECT_EQ(sink->plotDone, 3);
  // Named alone: v is the identifier 0.
  VARIANT value = array.Get();
  DISPID name = 0;
  DISPPARAMS named{&value, &name, 1, 1};
  auto member = const_cast<LPOLESTR>(L"SetYArray");
  DISPID id = 0;
  ASSERT_EQ(graph->GetIDsOfNames(IID_NULL, &member, 1, 0, &id), S_OK);
  EXPECT_EQ(graph->Invoke(id, IID_NULL, 0, kCall, &named, nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(sink->plotDone, 4);
  EXPECT_EQ(CallByName(graph.Get(), L"SetYArray", kCall, {array, Variant(false)}).status, S_OK);
  EXPECT_EQ(sink->plotDone, 4);
}

TEST_F(Control, a_method_may_be_called_as_method_or_property) {
  const CallResult call = CallByName(graph.Get(), L"GetGraphWidth", static_cast<WORD>(kCall | kGet));
  EXPECT_EQ(call.status, S_OK);
  EXPECT_EQ(control::com::ToInt32(call.value.Get()), 400);
  EXPECT_EQ(CallByName(graph.Get(), L"Xmin", static_cast<WORD>(kCall | kGet)).status, S_OK);
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

}  // namespace
}  // namespace plotvane::tests
