// What the object is: persistence that keeps nothing, class information, aggregation, what it refuses.
#include <gtest/gtest.h>

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
