// The host is not to be trusted: every kind of value at every place that takes one.
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "control/com/host_object.h"
#include "tests/wine/control_fixture.h"

namespace plotvane::tests {
namespace {

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

// Values as scripts hand them in: plain, and as a variable of theirs.
std::vector<Variant> PlainAndAsVariable(Variant& value) {
  return {value, control::com::ReferenceTo(value)};
}

TEST_F(Control, by_reference_numbers_refuse_what_does_not_convert) {
  for (const wchar_t* name : {L"PenWidth", L"PlotPixelStep", L"DegreeMode"}) {
    for (Input& input : StrangeValues()) {
      const std::string text = input.name;
      const bool refused = (input.value.Type() & VT_ARRAY) != 0 || text == "null" || text == "error" ||
                           text == "text" || text == "empty text" || text == "unset object" ||
                           text == "unset unknown";
      for (const Variant& value : PlainAndAsVariable(input.value)) {
        const double before = Number(name);
        const CallResult call = CallByName(graph.Get(), name, kPut, {value});
        if (refused) {
          EXPECT_TRUE(FAILED(call.status)) << control::com::Utf8(name) << " " << input.name;
          EXPECT_EQ(Number(name), before) << input.name;
        } else if (text != "large number" && text != "not a number" && text != "infinity") {
          EXPECT_EQ(call.status, S_OK) << control::com::Utf8(name) << " " << input.name;
        }
      }
    }
  }
}

TEST_F(Control, expression_texts_refuse_what_is_no_text_and_keep_text_and_number) {
  for (Input& input : StrangeValues()) {
    const std::string name = input.name;
    const bool refused = (input.value.Type() & VT_ARRAY) != 0 || name == "null" || name == "error" ||
                         name == "unset object" || name == "unset unknown";
    for (const Variant& value : PlainAndAsVariable(input.value)) {
      ASSERT_EQ(CallByName(graph.Get(), L"XMinStringEval", kPut, {Variant("-7")}).status, S_OK);
      const CallResult call = CallByName(graph.Get(), L"XMinStringEval", kPut, {value});
      EXPECT_EQ(SUCCEEDED(call.status), !refused) << input.name;
      if (!refused) continue;
      EXPECT_EQ(control::com::ToText(CallByName(graph.Get(), L"XMinStringEval", kGet).value.Get()), "-7")
          << name;
      EXPECT_EQ(Number(L"Xmin"), -7) << name;
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
