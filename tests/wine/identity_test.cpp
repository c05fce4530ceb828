// What the object is: persistence that keeps nothing, class information, aggregation, what it refuses.
#include <gtest/gtest.h>

#include <string>

#include "tests/wine/hosting_fixture.h"

namespace plotvane::tests {
namespace {

TEST_F(Hosting, nothing_is_saved_and_nothing_is_read) {
  ComPtr<IStream> stream;
  ASSERT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive()), S_OK);
  graph->put_Xmin(-3);
  const auto persist = As<IPersistStreamInit>(graph.Get());
  EXPECT_EQ(persist->Save(stream.Get(), TRUE), S_OK);
  STATSTG stat{};
  stream->Stat(&stat, STATFLAG_NONAME);
  EXPECT_EQ(stat.cbSize.QuadPart, 0U);
  EXPECT_EQ(persist->Load(stream.Get()), S_OK);
  double xmin = 0;
  graph->get_Xmin(&xmin);
  EXPECT_EQ(xmin, -3);
  EXPECT_TRUE(static_cast<bool>(As<IPersistStorage>(graph.Get())));
  EXPECT_TRUE(static_cast<bool>(As<IPersistPropertyBag>(graph.Get())));
  CLSID id{};
  EXPECT_EQ(persist->GetClassID(&id), S_OK);
  EXPECT_TRUE(::IsEqualCLSID(id, CLSID_Graph));
}

// Fails the test when anything is read or written.
class StrictBag final : public Implements<IPropertyBag> {
 public:
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT*, IErrorLog*) noexcept override {
    ADD_FAILURE() << "asked for " << control::com::Utf8(name);
    return E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT*) noexcept override {
    ADD_FAILURE() << "wrote " << control::com::Utf8(name);
    return E_FAIL;
  }
};

TEST_F(Hosting, a_property_bag_stays_untouched) {
  const auto bag = Make<StrictBag>();
  const auto persist = As<IPersistPropertyBag>(graph.Get());
  EXPECT_EQ(persist->InitNew(), S_OK);
  EXPECT_EQ(persist->Load(bag.Get(), nullptr), S_OK);
  EXPECT_EQ(persist->Save(bag.Get(), TRUE, TRUE), S_OK);
  EXPECT_EQ(persist->Save(nullptr, TRUE, TRUE), E_POINTER);
}

TEST_F(Hosting, a_storage_gets_the_class_and_nothing_else) {
  ComPtr<IStorage> storage;
  ASSERT_EQ(
      ::StgCreateDocfile(nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE,
                         0, storage.Receive()),
      S_OK);
  const auto persist = As<IPersistStorage>(graph.Get());
  EXPECT_EQ(persist->InitNew(storage.Get()), S_OK);
  EXPECT_EQ(persist->IsDirty(), S_FALSE);
  EXPECT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
  EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
  EXPECT_EQ(persist->HandsOffStorage(), S_OK);
  EXPECT_EQ(persist->Load(storage.Get()), S_OK);
  CLSID id{};
  EXPECT_EQ(::ReadClassStg(storage.Get(), &id), S_OK);
  EXPECT_TRUE(::IsEqualCLSID(id, CLSID_Graph));
  ComPtr<IEnumSTATSTG> elements;
  ASSERT_EQ(storage->EnumElements(0, nullptr, 0, elements.Receive()), S_OK);
  STATSTG element{};
  EXPECT_EQ(elements->Next(1, &element, nullptr), S_FALSE);
}

TEST_F(Hosting, one_verb_and_a_name_are_offered) {
  ComPtr<IEnumOLEVERB> verbs;
  ASSERT_EQ(object->EnumVerbs(verbs.Receive()), S_OK);
  OLEVERB verb{};
  ASSERT_EQ(verbs->Next(1, &verb, nullptr), S_OK);
  EXPECT_EQ(verb.lVerb, OLEIVERB_PRIMARY);
  EXPECT_EQ(std::wstring(verb.lpszVerbName), L"&Edit");
  ::CoTaskMemFree(verb.lpszVerbName);
  EXPECT_EQ(verbs->Next(1, &verb, nullptr), S_FALSE);
  LPOLESTR name = nullptr;
  ASSERT_EQ(object->GetUserType(USERCLASSTYPE_FULL, &name), S_OK);
  EXPECT_EQ(std::wstring(name), L"Plotvane Graph");
  ::CoTaskMemFree(name);
  EXPECT_EQ(Do(OLEIVERB_OPEN), E_NOTIMPL) << "it has no window of its own";
  EXPECT_EQ(Do(5), OLEOBJ_S_INVALIDVERB);
}

TEST_F(Hosting, refused_interfaces_are_not_there) {
  for (const IID& iid : {IID_ISpecifyPropertyPages, IID_IPointerInactive}) {
    ComPtr<IUnknown> none;
    EXPECT_EQ(graph->QueryInterface(iid, none.ReceiveVoid()), E_NOINTERFACE);
  }
  constexpr IID kObjectSafety{0xcb5bdc81, 0x93c1, 0x11cf, {0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0, 0x64}};
  ComPtr<IUnknown> none;
  EXPECT_EQ(graph->QueryInterface(kObjectSafety, none.ReceiveVoid()), E_NOINTERFACE);
}

TEST_F(Hosting, class_information_names_the_events) {
  const auto info = As<IProvideClassInfo2>(graph.Get());
  GUID events{};
  EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  EXPECT_TRUE(::IsEqualGUID(events, DIID___Graph));
  ComPtr<ITypeInfo> type;
  EXPECT_EQ(info->GetClassInfo(type.Receive()), S_OK);
  ComPtr<IEnumConnectionPoints> points;
  EXPECT_EQ(As<IConnectionPointContainer>(graph.Get())->EnumConnectionPoints(points.Receive()), S_OK);
  IConnectionPoint* list[3]{};
  ULONG count = 0;
  EXPECT_EQ(points->Next(3, list, &count), S_FALSE);
  ASSERT_EQ(count, 2U);
  list[0]->Release();
  list[1]->Release();
}

TEST_F(Hosting, the_class_can_be_part_of_another_object) {
  const auto outer = Make<EventSink>();
  ComPtr<IUnknown> inner;
  EXPECT_EQ(library.Factory()->CreateInstance(outer.Get(), IID__Graph, inner.ReceiveVoid()),
            CLASS_E_NOAGGREGATION);
  ASSERT_EQ(library.Factory()->CreateInstance(outer.Get(), IID_IUnknown, inner.ReceiveVoid()), S_OK);
  const auto part = As<::_Graph>(inner.Get());
  ASSERT_TRUE(static_cast<bool>(part));
  EXPECT_TRUE(control::com::SameObject(part.Get(), outer.Get()));
  double xmin = 0;
  EXPECT_EQ(part->get_Xmin(&xmin), S_OK);
  EXPECT_EQ(xmin, -10);
}

}  // namespace
}  // namespace plotvane::tests
