// Plotvane.ocx as a file and a module: its entry points, its resources, what keeps it loaded.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/wine/host.h"

namespace plotvane::tests {
namespace {

class Module : public testing::Test {
 protected:
  HRESULT GetClassObject(REFCLSID id, REFIID iid, void** object) {
    using Entry = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);
    return reinterpret_cast<Entry>(
        reinterpret_cast<void*>(::GetProcAddress(library.Module(), "DllGetClassObject")))(id, iid, object);
  }

  Apartment apartment;
  Library library;
};

TEST_F(Module, has_the_entry_points_of_a_server) {
  for (const char* name :
       {"DllGetClassObject", "DllCanUnloadNow", "DllRegisterServer", "DllUnregisterServer", "DllInstall"}) {
    EXPECT_NE(::GetProcAddress(library.Module(), name), nullptr) << name;
  }
}

TEST_F(Module, makes_its_one_class_and_no_other) {
  void* object = this;
  EXPECT_EQ(GetClassObject(IID_IDispatch, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
  object = this;
  EXPECT_EQ(GetClassObject(CLSID_Graph, IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(GetClassObject(CLSID_Graph, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(Module, stays_loaded_as_long_as_anything_of_it_is_held) {
  EXPECT_TRUE(library.CanUnload());
  auto factory = library.Factory();
  EXPECT_FALSE(library.CanUnload()) << "a class factory";
  factory->LockServer(TRUE);
  factory.Reset();
  EXPECT_FALSE(library.CanUnload()) << "a lock";
  library.Factory()->LockServer(FALSE);
  EXPECT_TRUE(library.CanUnload());
  auto graph = library.CreateGraph();
  Variant table;
  ComPtr<IDispatch> surface;
  graph->get_VarTable(table.Receive());
  graph->get_PIC(surface.Receive());
  graph.Reset();
  surface.Reset();
  EXPECT_FALSE(library.CanUnload()) << "a table handed out";
  table = Variant();
  EXPECT_TRUE(library.CanUnload());
}

TEST_F(Module, brings_type_library_toolbox_picture_and_manifest) {
  struct Resource {
    const wchar_t* type;
    int id;
  };
  const Resource resources[]{{L"TYPELIB", 1}, {RT_BITMAP, 101}, {RT_MANIFEST, 2}, {RT_VERSION, 1}};
  for (const Resource& resource : resources) {
    EXPECT_NE(::FindResourceW(library.Module(), MAKEINTRESOURCEW(resource.id), resource.type), nullptr)
        << resource.id;
  }
  const HBITMAP picture = ::LoadBitmapW(library.Module(), MAKEINTRESOURCEW(101));
  BITMAP size{};
  ASSERT_NE(::GetObjectW(picture, sizeof size, &size), 0);
  EXPECT_EQ(size.bmWidth, 16);
  EXPECT_EQ(size.bmHeight, 16);
  ::DeleteObject(picture);
}

TEST_F(Module, tells_its_version) {
  const HRSRC found = ::FindResourceW(library.Module(), MAKEINTRESOURCEW(1), RT_VERSION);
  ASSERT_NE(found, nullptr);
  const auto bytes = static_cast<const char*>(::LockResource(::LoadResource(library.Module(), found)));
  const std::string content(bytes, ::SizeofResource(library.Module(), found));
  // VS_FIXEDFILEINFO begins with this number; two words on are the upper and the lower half of the version.
  const std::size_t start = content.find("\xBD\x04\xEF\xFE");
  ASSERT_NE(start, std::string::npos);
  VS_FIXEDFILEINFO version{};
  content.copy(reinterpret_cast<char*>(&version), sizeof version, start);
  EXPECT_EQ(HIWORD(version.dwFileVersionMS), 45);
  EXPECT_EQ(LOWORD(version.dwFileVersionMS), 0);
  EXPECT_EQ(version.dwFileType, static_cast<DWORD>(VFT_DLL));
}

TEST_F(Module, can_be_loaded_anywhere_and_runs_no_data) {
  const auto base = reinterpret_cast<const char*>(library.Module());
  const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const void* const place = base + dos->e_lfanew;
  const WORD flags = static_cast<const IMAGE_NT_HEADERS*>(place)->OptionalHeader.DllCharacteristics;
  EXPECT_NE(flags & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE, 0);
  EXPECT_NE(flags & IMAGE_DLLCHARACTERISTICS_NX_COMPAT, 0);
  constexpr WORD kHighEntropy = 0x0020;
  if constexpr (sizeof(void*) == 8) {
    EXPECT_NE(flags & kHighEntropy, 0);
  }
}

}  // namespace
}  // namespace plotvane::tests
