// Life in containers: a strict site, Wine's AtlAxWin, every order of ending, pictures and persistence.
#include <gtest/gtest.h>

#include <array>

#include "tests/wine/host.h"

namespace plotvane::tests {
namespace {

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

TEST_F(Hosting, a_whole_life_in_a_strict_container) {
  const auto control = As<IOleControl>(graph.Get());
  const auto inPlace = As<IOleInPlaceObject>(graph.Get());
  const auto view = As<IViewObjectEx>(graph.Get());
  const auto stream = As<IPersistStreamInit>(graph.Get());
  // Created.
  DWORD status = 0;
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473U);
  EXPECT_EQ(Do(OLEIVERB_SHOW), E_UNEXPECTED) << "there is no site yet";
  // Sited, with new state.
  EXPECT_EQ(object->SetClientSite(site.Get()), S_OK);
  EXPECT_EQ(site->Count("UserMode"), 1);
  ComPtr<IOleClientSite> told;
  EXPECT_EQ(object->GetClientSite(told.Receive()), S_OK);
  EXPECT_EQ(told.Get(), static_cast<IOleClientSite*>(site.Get()));
  EXPECT_EQ(stream->InitNew(), S_OK);
  EXPECT_EQ(object->SetHostNames(L"Test", L"Document"), S_OK);
  // Sized before it is active.
  SIZEL extent{10583, 7938};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
  SIZEL now{};
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &now), S_OK);
  EXPECT_EQ(now.cx, 10583);
  EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
  // Active in place.
  EXPECT_EQ(ControlWindow(), nullptr);
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  EXPECT_TRUE(site->inPlace);
  EXPECT_EQ(::GetParent(ControlWindow()), window.Get());
  RECT client{};
  ::GetClientRect(ControlWindow(), &client);
  EXPECT_EQ(client.right, 400);
  EXPECT_EQ(client.bottom, 300);
  // Once more changes nothing.
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  EXPECT_EQ(site->Count("OnInPlaceActivate"), 1);
  // Moved and resized.
  const RECT moved{10, 20, 310, 270};
  EXPECT_EQ(inPlace->SetObjectRects(&moved, &moved), S_OK);
  ::GetClientRect(ControlWindow(), &client);
  EXPECT_EQ(client.right, 300);
  EXPECT_EQ(client.bottom, 250);
  LONG width = 0;
  EXPECT_EQ(graph->GetGraphWidth(&width), S_OK);
  EXPECT_GT(width, 0);
  EXPECT_LE(width, 300);
  EXPECT_EQ(inPlace->SetObjectRects(nullptr, nullptr), E_POINTER);
  // Hidden and shown.
  EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
  EXPECT_FALSE(::IsWindowVisible(ControlWindow()));
  EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
  EXPECT_TRUE(::IsWindowVisible(ControlWindow()));
  // With user interface, and without again.
  EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_TRUE(site->userInterface);
  EXPECT_TRUE(static_cast<bool>(site->activeObject));
  EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
  EXPECT_FALSE(site->userInterface);
  EXPECT_FALSE(static_cast<bool>(site->activeObject));
  EXPECT_TRUE(site->inPlace);
  PumpMessages();
  // Draws itself anywhere.
  const HDC metafile = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  const RECTL bounds{0, 0, 400, 300};
  EXPECT_EQ(
      view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, metafile, &bounds, &bounds, nullptr, 0),
      S_OK);
  ::DeleteEnhMetaFile(::CloseEnhMetaFile(metafile));
  EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, metafile, &bounds, nullptr, nullptr, 0),
            DV_E_DVASPECT);
  // The container's keys are its own.
  CONTROLINFO info{};
  info.cb = sizeof info;
  EXPECT_EQ(control->GetControlInfo(&info), S_OK);
  EXPECT_GT(info.cAccel, 0);
  ::DestroyAcceleratorTable(info.hAccel);
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  // Saves nothing, loads nothing.
  EXPECT_EQ(stream->IsDirty(), S_FALSE);
  ULARGE_INTEGER size{};
  EXPECT_EQ(stream->GetSizeMax(&size), S_OK);
  EXPECT_EQ(size.QuadPart, 0U);
  // Deactivated, activated again.
  EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
  EXPECT_FALSE(site->inPlace);
  EXPECT_EQ(ControlWindow(), nullptr);
  EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK) << "twice";
  EXPECT_EQ(Do(OLEIVERB_PRIMARY), S_OK);
  EXPECT_TRUE(site->userInterface);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  // Closed and let go.
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_FALSE(site->inPlace);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
}

TEST_F(Hosting, ends_in_the_order_close_site_release) {
  Activate();
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  End();
  EXPECT_FALSE(site->inPlace);
}

TEST_F(Hosting, ends_by_taking_the_site_away) {
  Activate();
  Do(OLEIVERB_UIACTIVATE);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_FALSE(site->userInterface);
  EXPECT_FALSE(site->inPlace);
  End();
}

TEST_F(Hosting, ends_by_release_without_close) {
  Activate();
  object.Reset();
  graph.Reset();
  EXPECT_FALSE(site->inPlace);
  EXPECT_TRUE(library.CanUnload());
}

TEST_F(Hosting, ends_after_the_parent_took_the_window) {
  Activate();
  window.Destroy();
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  End();
  EXPECT_FALSE(site->inPlace);
}

TEST_F(Hosting, ends_after_deactivation_only) {
  Activate();
  EXPECT_EQ(As<IOleInPlaceObject>(graph.Get())->InPlaceDeactivate(), S_OK);
  object.Reset();
  graph.Reset();
  EXPECT_TRUE(library.CanUnload());
}

TEST_F(Hosting, plots_the_same_with_and_without_a_window) {
  Activate();
  const auto function = MakeFunction("x^2/10");
  Variant array = ArrayOf({function.Get()});
  EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
  EXPECT_TRUE(control::com::ToBool(function->Field(L"QuickRedraw").Get()));
  LONG before = 0;
  graph->GetGraphWidth(&before);
  As<IOleInPlaceObject>(graph.Get())->InPlaceDeactivate();
  LONG after = 0;
  EXPECT_EQ(graph->GetGraphWidth(&after), S_OK);
  EXPECT_EQ(after, before);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  End();
}

TEST_F(Hosting, a_container_that_refuses_leaves_the_control_inactive) {
  const auto refusing = Make<EventSink>();  // no site interface at all
  EXPECT_EQ(object->SetClientSite(site.Get()), S_OK);
  site->actions["OnInPlaceActivate"] = [&] { As<IOleInPlaceObject>(graph.Get())->InPlaceDeactivate(); };
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), E_ABORT);
  EXPECT_FALSE(site->inPlace);
  EXPECT_EQ(ControlWindow(), nullptr);
  site->actions.clear();
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  End();
}

TEST_F(Hosting, in_a_designer_no_host_code_is_evaluated) {
  site->userMode = false;
  Activate();
  const auto function = MakeFunction("x");
  Variant array = ArrayOf({function.Get()});
  Variant later(false);
  EXPECT_EQ(graph->SetYArray(&array.Get(), &later.Get()), S_OK);
  // Clicks on the picture mean nothing.
  const HWND control = ControlWindow();
  for (HWND child = ::GetWindow(control, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    ::SendMessageW(child, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 20));
    ::SendMessageW(child, WM_LBUTTONUP, 0, MAKELPARAM(20, 20));
  }
  PumpMessages();
  EXPECT_EQ(function->calls[L"Equation"], 0);
  End();
}

TEST_F(Hosting, a_container_without_ambient_properties_counts_as_running) {
  site->hasUserMode = false;
  Activate();
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  End();
}

TEST_F(Hosting, quick_activation_does_what_the_single_calls_do) {
  const auto sink = Make<EventSink>();
  QACONTAINER container{};
  QACONTROL control{};
  container.cbSize = sizeof container;
  container.pClientSite = site.Get();
  container.pUnkEventSink = sink.Get();
  control.cbSize = sizeof control;
  ASSERT_EQ(As<IQuickActivate>(graph.Get())->QuickActivate(&container, &control), S_OK);
  EXPECT_EQ(control.dwMiscStatus, 131473U);
  EXPECT_NE(control.dwEventCookie, 0U);
  EXPECT_EQ(graph->PlotAllY(), S_OK);
  EXPECT_EQ(sink->plotDone, 1);
  End();
}

// ---- Keys ----

TEST_F(Hosting, the_container_is_asked_for_every_key_first) {
  Activate();
  ASSERT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
  ASSERT_TRUE(static_cast<bool>(site->activeObject));
  MSG message{};
  message.hwnd = ControlWindow();
  message.message = WM_KEYDOWN;
  message.wParam = VK_F7;  // a key without a meaning
  EXPECT_EQ(site->activeObject->TranslateAccelerator(&message), S_FALSE);
  EXPECT_EQ(site->Count("TranslateAccelerator"), 1);
  EXPECT_EQ(site->activeObject->TranslateAccelerator(nullptr), E_POINTER);
  End();
}

TEST_F(Hosting, a_mnemonic_presses_its_button) {
  Activate();
  const auto control = As<IOleControl>(graph.Get());
  CONTROLINFO info{};
  info.cb = sizeof info;
  ASSERT_EQ(control->GetControlInfo(&info), S_OK);
  // Each mnemonic is there for containers that compare keys and for those that compare characters.
  std::vector<ACCEL> entries(info.cAccel);
  ::CopyAcceleratorTableW(info.hAccel, entries.data(), info.cAccel);
  ::DestroyAcceleratorTable(info.hAccel);
  EXPECT_EQ(entries.size() % 3, 0U);
  int graphKeys = 0;
  for (const ACCEL& entry : entries) {
    EXPECT_NE(entry.fVirt & FALT, 0);
    if (entry.key == 'G' || entry.key == 'g') ++graphKeys;
  }
  EXPECT_EQ(graphKeys, 3);
  // The button that draws the graph.
  const auto sink = Make<EventSink>();
  Connect(graph.Get(), DIID___Graph, sink.Get());
  MSG message{};
  message.message = WM_SYSCHAR;
  message.wParam = 'g';
  EXPECT_EQ(control->OnMnemonic(&message), S_OK);
  EXPECT_EQ(sink->plotDone, 1);
  End();
}

// ---- Pictures ----

int CALLBACK CountRecords(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM counts) {
  ++reinterpret_cast<std::array<int, 256>*>(counts)->at(record->iType % 256);
  return 1;
}

TEST_F(Hosting, the_data_object_gives_metafiles_and_a_bitmap) {
  const auto data = As<IDataObject>(graph.Get());
  SIZEL extent{10583, 7938};
  object->SetExtent(DVASPECT_CONTENT, &extent);
  FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
  STGMEDIUM medium{};
  EXPECT_EQ(data->QueryGetData(&format), S_OK);
  const auto function = MakeFunction("sin(x)");
  Variant array = ArrayOf({function.Get()});
  ASSERT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
  ASSERT_EQ(data->GetData(&format, &medium), S_OK);
  ASSERT_EQ(medium.tymed, static_cast<DWORD>(TYMED_ENHMF));
  std::array<int, 256> records{};
  ::EnumEnhMetaFile(nullptr, medium.hEnhMetaFile, reinterpret_cast<ENHMFENUMPROC>(CountRecords), &records,
                    nullptr);
  // The curve and the axes are lines, not only pixels.
  EXPECT_GT(records[EMR_LINETO] + records[EMR_POLYLINE16] + records[EMR_POLYLINE], 300);
  ::ReleaseStgMedium(&medium);

  format.cfFormat = CF_METAFILEPICT;
  format.tymed = TYMED_MFPICT;
  ASSERT_EQ(data->GetData(&format, &medium), S_OK);
  const auto picture = static_cast<METAFILEPICT*>(::GlobalLock(medium.hMetaFilePict));
  EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
  EXPECT_EQ(picture->xExt, 10583);
  ::GlobalUnlock(medium.hMetaFilePict);
  ::ReleaseStgMedium(&medium);

  format.cfFormat = CF_DIB;
  format.tymed = TYMED_HGLOBAL;
  ASSERT_EQ(data->GetData(&format, &medium), S_OK);
  const auto header = static_cast<BITMAPINFOHEADER*>(::GlobalLock(medium.hGlobal));
  EXPECT_EQ(header->biWidth, 400);
  EXPECT_EQ(header->biHeight, 300);
  ::GlobalUnlock(medium.hGlobal);
  ::ReleaseStgMedium(&medium);

  format.cfFormat = CF_TEXT;
  EXPECT_EQ(data->GetData(&format, &medium), DV_E_FORMATETC);
  ComPtr<IEnumFORMATETC> formats;
  ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.Receive()), S_OK);
  std::array<FORMATETC, 5> list{};
  ULONG count = 0;
  EXPECT_EQ(formats->Next(5, list.data(), &count), S_FALSE);
  EXPECT_EQ(count, 3U);
  End();
}

// ---- Persistence ----

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

// ---- Class information ----

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

// ---- Unloading ----

BOOL CALLBACK CountWindow(HWND, LPARAM counter) {
  ++*reinterpret_cast<int*>(counter);
  return TRUE;
}

int WindowCount() {
  int count = 0;
  ::EnumThreadWindows(::GetCurrentThreadId(), &CountWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

TEST(Unloading, the_library_leaves_and_comes_back) {
  const Apartment apartment;
  for (int round = 0; round < 5; ++round) {
    {
      const Library library;
      HostWindow window;
      const auto site = Make<StrictSite>(window.Get());
      const auto graph = library.CreateGraph();
      const auto object = As<IOleObject>(graph.Get());
      object->SetClientSite(site.Get());
      EXPECT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position),
                S_OK);
      EXPECT_EQ(graph->ShowFormatEditor(), S_OK);
      PumpMessages();
      EXPECT_FALSE(library.CanUnload());
      object->Close(OLECLOSE_NOSAVE);
      object->SetClientSite(nullptr);
    }
    PumpMessages();
    EXPECT_EQ(::GetModuleHandleW(L"Plotvane.ocx"), nullptr);
  }
}

TEST(Unloading, a_thousand_windows_leave_nothing_behind) {
  const Apartment apartment;
  const Library library;
  HostWindow window;
  PumpMessages();
  const int before = WindowCount();
  for (int life = 0; life < 1000; ++life) {
    const auto site = Make<StrictSite>(window.Get());
    const auto graph = library.CreateGraph();
    const auto object = As<IOleObject>(graph.Get());
    object->SetClientSite(site.Get());
    ASSERT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, window.Get(), &site->position),
              S_OK);
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
  }
  PumpMessages();
  EXPECT_EQ(WindowCount(), before);
  EXPECT_EQ(::GetWindow(window.Get(), GW_CHILD), nullptr);
  EXPECT_TRUE(library.CanUnload());
}

// ---- Wine's own container ----

class AtlHosting : public testing::TestWithParam<const wchar_t*> {};

TEST_P(AtlHosting, lives_in_AtlAxWin) {
  const Apartment apartment;
  const HMODULE atl = ::LoadLibraryW(GetParam());
  ASSERT_NE(atl, nullptr);
  const auto initialise =
      reinterpret_cast<BOOL(WINAPI*)()>(reinterpret_cast<void*>(::GetProcAddress(atl, "AtlAxWinInit")));
  const auto getControl = reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(
      reinterpret_cast<void*>(::GetProcAddress(atl, "AtlAxGetControl")));
  ASSERT_TRUE(initialise());
  const bool plain = std::wstring(GetParam()) == L"atl.dll";
  HostWindow window;
  for (int round = 0; round < 3; ++round) {
    const HWND host =
        ::CreateWindowExW(0, plain ? L"AtlAxWin" : L"AtlAxWin100", L"Plotvane.Graph", WS_CHILD | WS_VISIBLE,
                          0, 0, 400, 300, window.Get(), nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(host, nullptr);
    PumpMessages();
    {
      ComPtr<IUnknown> control;
      ASSERT_EQ(getControl(host, control.Receive()), S_OK);
      const auto graph = As<::_Graph>(control.Get());
      ASSERT_TRUE(static_cast<bool>(graph));
      const auto function = MakeFunction("sin(x)");
      const auto sink = Make<EventSink>();
      const DWORD cookie = Connect(graph.Get(), DIID___Graph, sink.Get());
      Variant array = ArrayOf({function.Get()});
      EXPECT_EQ(graph->SetYArray(&array.Get(), nullptr), S_OK);
      EXPECT_EQ(sink->plotDone, 1);
      ::SetWindowPos(host, nullptr, 0, 0, 350 + 10 * round, 250, SWP_NOZORDER);
      PumpMessages();
      LONG width = 0;
      EXPECT_EQ(graph->GetGraphWidth(&width), S_OK);
      EXPECT_LE(width, 350 + 10 * round);
      EXPECT_GT(width, 200);
      ::ShowWindow(host, SW_HIDE);
      PumpMessages();
      ::ShowWindow(host, SW_SHOW);
      PumpMessages();
      EXPECT_EQ(graph->ZTrig(), S_OK);
      Disconnect(graph.Get(), DIID___Graph, cookie);
    }
    ::DestroyWindow(host);
    PumpMessages();
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, AtlHosting, testing::Values(L"atl.dll", L"atl100.dll"),
                         [](const auto& version) { return version.index == 0 ? "atl" : "atl100"; });

}  // namespace
}  // namespace plotvane::tests
