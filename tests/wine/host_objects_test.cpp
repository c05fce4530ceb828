// Objects that the host hands in (functions, a table, a surface), and the control's own handed out.
#include <gtest/gtest.h>

#include "tests/wine/control_fixture.h"

namespace plotvane::tests {
namespace {

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

}  // namespace
}  // namespace plotvane::tests
