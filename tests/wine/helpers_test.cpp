// The small helpers of the COM server, each for itself.
#include <gtest/gtest.h>

#include <limits>

#include "control/com/call_arguments.h"
#include "control/com/enumerator.h"
#include "control/com/error_info.h"
#include "control/com/himetric.h"
#include "control/com/host_object.h"
#include "tests/wine/strict_site.h"

namespace plotvane::tests {
namespace {

using control::com::CallArguments;
using control::com::ToValue;
using control::com::WriteBack;
using platform::RunTimeError;
using platform::Value;

int NumberOf(const std::function<void()>& operation) {
  try {
    operation();
    return 0;
  } catch (const RunTimeError& error) {
    return error.Number();
  }
}

// ---- ComPtr and Implements ----

TEST(ComPtr, shares_and_releases_each_reference_once) {
  const long before = control::com::LiveObjectCount();
  {
    const auto object = Make<EventSink>();
    const ComPtr<EventSink> copy = object;
    ComPtr<EventSink> moved = copy;
    const ComPtr<EventSink> target = std::move(moved);
    EXPECT_FALSE(static_cast<bool>(moved));
    EXPECT_EQ(control::com::LiveObjectCount(), before + 1);
    EXPECT_EQ(object->AddRef(), 4U);
    EXPECT_EQ(object->Release(), 3U);
  }
  EXPECT_EQ(control::com::LiveObjectCount(), before);
}

TEST(Implements, answers_each_interface_its_bases_and_nothing_else) {
  const auto site = Make<StrictSite>(nullptr);
  for (const IID& iid : {IID_IUnknown, IID_IOleClientSite, IID_IOleWindow, IID_IOleInPlaceSite,
                         IID_IOleControlSite, IID_IOleInPlaceUIWindow, IID_IOleInPlaceFrame, IID_IDispatch}) {
    ComPtr<IUnknown> found;
    EXPECT_EQ(site->QueryInterface(iid, found.ReceiveVoid()), S_OK);
  }
  void* found = site.Get();
  EXPECT_EQ(site->QueryInterface(IID_IOleObject, &found), E_NOINTERFACE);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(site->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(Implements, has_one_identity_whatever_interface_asks) {
  const auto site = Make<StrictSite>(nullptr);
  const auto one = As<IUnknown>(static_cast<IOleClientSite*>(site.Get()));
  const auto other = As<IUnknown>(static_cast<IOleControlSite*>(site.Get()));
  EXPECT_EQ(one.Get(), other.Get());
}

// ---- Bstr ----

TEST(Bstr, keeps_texts_of_every_script_and_length) {
  for (const char* text : {"", "sin(x)", "\xC3\xA4\xE2\x82\xAC", "\xF0\x9D\x84\x9E"}) {
    EXPECT_EQ(Bstr(std::string_view(text)).Text(), text);
  }
  EXPECT_EQ(control::com::TextOf(nullptr), "");
}

// ---- Variant ----

TEST(Variant, becomes_the_value_of_an_identifier) {
  EXPECT_EQ(ToValue(Variant().Get()), Value());
  EXPECT_EQ(ToValue(Variant(true).Get()), Value(true));
  EXPECT_EQ(ToValue(Variant(std::int16_t{-3}).Get()), Value(-3.0));
  EXPECT_EQ(ToValue(Variant("12").Get()), Value("12"));
  Variant date;
  date.Get().vt = VT_DATE;
  date.Get().date = 2.5;
  EXPECT_EQ(ToValue(date.Get()), Value(2.5));
  Variant null;
  null.Get().vt = VT_NULL;
  EXPECT_EQ(NumberOf([&] { static_cast<void>(ToValue(null.Get())); }), 13);
}

TEST(Variant, an_object_stands_for_its_default_property) {
  // The first member defined has the identifier 1, not that of a default property: such an object has none.
  const auto object = MakeFunction("x");
  EXPECT_EQ(NumberOf([&] { static_cast<void>(ToValue(Variant(object.Get()).Get())); }), 438);
  EXPECT_EQ(NumberOf([&] { static_cast<void>(ToValue(Variant(static_cast<IDispatch*>(nullptr)).Get())); }),
            91);
}

TEST(Variant, a_default_property_is_converted_like_any_value) {
  const auto holder = Make<NamedObject>();
  holder->DefineDefault([] { return Variant("12"); });
  const Variant object(holder.Get());
  EXPECT_EQ(control::com::ToDouble(object.Get()), 12);
  EXPECT_EQ(control::com::ToText(object.Get()), "12");
  EXPECT_EQ(ToValue(object.Get()), Value("12"));
  const auto none = MakeFunction("x");
  EXPECT_EQ(NumberOf([&] { static_cast<void>(control::com::ToDouble(Variant(none.Get()).Get())); }), 438);
  // An object in an object is no value.
  const auto outer = Make<NamedObject>();
  outer->DefineDefault([&] { return Variant(holder.Get()); });
  EXPECT_EQ(NumberOf([&] { static_cast<void>(control::com::ToDouble(Variant(outer.Get()).Get())); }), 13);
}

TEST(Variant, conversions_fail_with_the_standard_numbers) {
  EXPECT_EQ(NumberOf([] { static_cast<void>(control::com::ToInt16(Variant(40000.0).Get())); }), 6);
  EXPECT_EQ(NumberOf([] { static_cast<void>(control::com::ToDouble(Variant("text").Get())); }), 13);
  EXPECT_EQ(NumberOf([] { static_cast<void>(control::com::ToBool(Variant("maybe").Get())); }), 13);
  EXPECT_EQ(control::com::ToInt16(Variant(2.5).Get()), 2) << "halves go to even";
  EXPECT_TRUE(control::com::ToBool(Variant("True").Get()));
}

TEST(Variant, references_are_followed_to_their_end) {
  Variant number(4.5);
  Variant one = control::com::ReferenceTo(number);
  const Variant two = control::com::ReferenceTo(one);
  EXPECT_EQ(control::com::ToDouble(two.Get()), 4.5);
}

// ---- CallArguments ----

TEST(CallArguments, come_last_first_with_named_ones_in_front) {
  VARIANT given[3]{};
  given[0] = Variant(std::int32_t{10}).Get();  // named: parameter 2
  given[1] = Variant(std::int32_t{1}).Get();   // the second by place
  given[2] = Variant(std::int32_t{0}).Get();   // the first by place
  DISPID names[]{2};
  const CallArguments arguments({given, names, 3, 1}, 4);
  EXPECT_EQ(arguments.At(0)->lVal, 0);
  EXPECT_EQ(arguments.At(1)->lVal, 1);
  EXPECT_EQ(arguments.At(2)->lVal, 10);
  EXPECT_EQ(arguments.At(3), nullptr);
  EXPECT_EQ(arguments.PlaceOf(0), 2U);
}

TEST(CallArguments, refuse_too_many_unknown_and_doubled_ones) {
  VARIANT given[2]{};
  const auto status = [](const DISPPARAMS& parameters, std::size_t count) {
    try {
      const CallArguments arguments(parameters, count);
      return S_OK;
    } catch (const control::com::BadCall& bad) {
      return bad.Status();
    }
  };
  DISPID unknown[]{5};
  DISPID doubled[]{0};
  EXPECT_EQ(status({given, nullptr, 2, 0}, 1), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(status({given, unknown, 1, 1}, 2), DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(status({given, doubled, 2, 1}, 2), DISP_E_BADPARAMCOUNT);
}

TEST(CallArguments, results_go_back_in_the_type_of_the_variable) {
  std::int16_t number = 0;
  BSTR text = ::SysAllocString(L"before");
  Variant any;
  VARIANT shortReference{};
  shortReference.vt = VT_BYREF | VT_I2;
  shortReference.piVal = &number;
  VARIANT textReference{};
  textReference.vt = VT_BYREF | VT_BSTR;
  textReference.pbstrVal = &text;
  VARIANT anyReference{};
  anyReference.vt = VT_BYREF | VT_VARIANT;
  anyReference.pvarVal = &any.Get();
  WriteBack(shortReference, Variant(7.0));
  WriteBack(textReference, Variant(7.5));
  WriteBack(anyReference, Variant(7.5));
  EXPECT_EQ(number, 7);
  EXPECT_EQ(control::com::TextOf(text), "7.5");
  EXPECT_EQ(control::com::ToDouble(any.Get()), 7.5);
  EXPECT_EQ(NumberOf([&] { WriteBack(shortReference, Variant(1e10)); }), 6);
  EXPECT_EQ(number, 7);
  VARIANT value = Variant(std::int32_t{1}).Get();
  WriteBack(value, Variant(2.0));
  EXPECT_EQ(value.lVal, 1) << "an argument by value takes no result";
  ::SysFreeString(text);
}

// ---- Errors ----

TEST(Errors, travel_there_and_back) {
  struct Row {
    HRESULT status;
    std::int32_t number;
  };
  constexpr Row kRows[]{{static_cast<HRESULT>(0x800A000D), 13},
                        {static_cast<HRESULT>(0x800A01A8), 424},
                        {DISP_E_UNKNOWNNAME, 438},
                        {DISP_E_TYPEMISMATCH, 13},
                        {DISP_E_OVERFLOW, 6},
                        {E_OUTOFMEMORY, 7}};
  for (const Row& row : kRows) {
    EXPECT_EQ(control::com::StandardErrorOf(row.status), row.number);
    EXPECT_EQ(control::com::StandardErrorOf(control::com::StatusOf(row.number)), row.number);
  }
  constexpr auto kOwn = static_cast<HRESULT>(0x80040201);
  EXPECT_EQ(control::com::StatusOf(control::com::StandardErrorOf(kOwn)), kOwn);
}

// ---- Enumerator ----

TEST(Enumerator, gives_skips_rewinds_and_clones) {
  ComPtr<IEnumFORMATETC> list =
      ComPtr<IEnumFORMATETC>::Adopt(control::com::Enumerate<IEnumFORMATETC, FORMATETC>(
          {{1, nullptr, 1, -1, 1}, {2, nullptr, 1, -1, 1}, {3, nullptr, 1, -1, 1}}));
  FORMATETC formats[3]{};
  ULONG count = 0;
  EXPECT_EQ(list->Next(2, formats, &count), S_OK);
  EXPECT_EQ(formats[1].cfFormat, 2);
  ComPtr<IEnumFORMATETC> clone;
  EXPECT_EQ(list->Clone(clone.Receive()), S_OK);
  EXPECT_EQ(list->Next(2, formats, &count), S_FALSE);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(clone->Next(1, formats, nullptr), S_OK);
  EXPECT_EQ(formats[0].cfFormat, 3);
  EXPECT_EQ(list->Reset(), S_OK);
  EXPECT_EQ(list->Skip(2), S_OK);
  EXPECT_EQ(list->Skip(2), S_FALSE);
  EXPECT_EQ(list->Next(2, formats, nullptr), E_POINTER);
}

// ---- Sizes ----

TEST(Himetric, a_size_in_pixels_survives_the_way_there_and_back) {
  for (int side = 0; side < 3000; side += 7) {
    const control::PixelSize size{side, 3000 - side};
    EXPECT_EQ(control::com::PixelsOf(control::com::HimetricOf(size)), size);
  }
}

}  // namespace
}  // namespace plotvane::tests
