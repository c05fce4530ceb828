// Registration leaves what containers look for, and unregistration leaves nothing, whatever else lies beside
// it.
#include <gtest/gtest.h>

#include <map>

#include "tests/wine/host.h"

namespace plotvane::tests {
namespace {

constexpr wchar_t kClass[] = L"CLSID\\{B29F6C7E-4501-4683-AA2A-BCD9B27DE50C}";
constexpr wchar_t kLibrary[] = L"TypeLib\\{01841141-9162-4B56-B92E-0E7F9D27490D}\\2d.0";
constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr const wchar_t* kOther = sizeof(void*) == 8 ? L"win32" : L"win64";

// Every key and value below a key, as text.
using Snapshot = std::map<std::wstring, std::wstring>;

// `label` names the root in the snapshot.
void Collect(HKEY root, const std::wstring& label, const std::wstring& path, Snapshot& snapshot) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  snapshot[label + path + L"\\"] = L"";
  wchar_t name[300];
  wchar_t value[1000];
  for (DWORD index = 0;; ++index) {
    DWORD length = 300;
    DWORD size = sizeof value - sizeof(wchar_t);
    const LSTATUS status =
        ::RegEnumValueW(key, index, name, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(value), &size);
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) break;
    // A long value is told by its length: none of the control's is.
    if (status == ERROR_MORE_DATA) {
      snapshot[label + path + L"\\:" + name] = std::to_wstring(size);
      continue;
    }
    value[size / sizeof(wchar_t)] = L'\0';
    snapshot[label + path + L"\\:" + name] = value;
  }
  for (DWORD index = 0; ::RegEnumKeyW(key, index, name, 300) == ERROR_SUCCESS; ++index) {
    Collect(root, label, path.empty() ? name : path + L"\\" + name, snapshot);
  }
  ::RegCloseKey(key);
}

class Registration : public testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    ASSERT_EQ(::RegCreateKeyExW(Root(), L"Software\\Classes", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                &mClasses, nullptr),
              ERROR_SUCCESS);
    static_cast<void>(Install(false));
  }
  void TearDown() override { ::RegCloseKey(mClasses); }

  [[nodiscard]] static HKEY Root() { return GetParam() ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE; }

  HRESULT Install(bool install) {
    const auto entry = [&](const char* name) {
      return reinterpret_cast<void*>(::GetProcAddress(library.Module(), name));
    };
    if (GetParam()) {
      return reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(BOOL, LPCWSTR)>(entry("DllInstall"))(
          install ? TRUE : FALSE, L"user");
    }
    return reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)()>(
        entry(install ? "DllRegisterServer" : "DllUnregisterServer"))();
  }

  // All of the registry that a program can write.
  static Snapshot Now() {
    Snapshot snapshot;
    Collect(HKEY_LOCAL_MACHINE, L"Machine: ", L"Software", snapshot);
    Collect(HKEY_CURRENT_USER, L"User: ", L"", snapshot);
    return snapshot;
  }

  // What is in one of two and not in the other, by the key.
  static std::wstring Difference(const Snapshot& one, const Snapshot& other) {
    std::wstring lines;
    for (const auto& [name, value] : one) {
      const auto found = other.find(name);
      if (found == other.end() || found->second != value) lines += name + L"=" + value + L"\n";
    }
    return lines;
  }
  static void ExpectSame(const Snapshot& now, const Snapshot& before) {
    EXPECT_EQ(Difference(now, before), L"") << "new or changed";
    EXPECT_EQ(Difference(before, now), L"") << "gone or changed";
  }

  static std::wstring Path(const std::wstring& key) {
    return (GetParam() ? L"User: Software\\Classes\\" : L"Machine: Software\\Classes\\") + key;
  }

  std::wstring Value(const std::wstring& key, const wchar_t* name = L"") {
    wchar_t value[1000]{};
    DWORD size = sizeof value - sizeof(wchar_t);
    ::RegGetValueW(mClasses, key.c_str(), name, RRF_RT_REG_SZ, nullptr, value, &size);
    return value;
  }

  void Seed(const std::wstring& key, const wchar_t* value) {
    ::RegSetKeyValueW(mClasses, key.c_str(), nullptr, REG_SZ, value,
                      static_cast<DWORD>((::wcslen(value) + 1) * sizeof(wchar_t)));
  }

  Apartment apartment;
  Library library;
  HKEY mClasses = nullptr;
};

TEST_P(Registration, leaves_what_containers_look_for_and_takes_all_of_it_back) {
  const Snapshot before = Now();
  ASSERT_EQ(Install(true), S_OK);
  const std::wstring key = kClass;
  const std::wstring path = Value(key + L"\\InprocServer32");
  EXPECT_NE(path.find(L"Plotvane.ocx"), std::wstring::npos);
  EXPECT_EQ(Value(key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
  EXPECT_EQ(Value(key + L"\\ProgID"), L"Plotvane.Graph");
  EXPECT_EQ(Value(key + L"\\VersionIndependentProgID"), L"Plotvane.Graph");
  EXPECT_EQ(Value(key + L"\\Version"), L"45.0");
  EXPECT_EQ(Value(key + L"\\MiscStatus"), L"0");
  EXPECT_EQ(Value(key + L"\\MiscStatus\\1"), L"131473");
  EXPECT_EQ(Value(key + L"\\ToolboxBitmap32"), path + L", 101");
  EXPECT_EQ(Value(key + L"\\Verb\\0"), L"&Edit,0,2");
  EXPECT_EQ(Value(L"Plotvane.Graph\\CLSID"), L"{B29F6C7E-4501-4683-AA2A-BCD9B27DE50C}");
  EXPECT_EQ(Value(std::wstring(kLibrary) + L"\\409\\" + kPlatform), path);
  EXPECT_EQ(Value(std::wstring(kLibrary) + L"\\FLAGS"), L"2");
  EXPECT_EQ(Value(L"Interface\\{CE749D65-CC58-4FD9-AD3B-983B2D7B7766}\\TypeLib", L"Version"), L"2d.0");
  const Snapshot registered = Now();
  for (const wchar_t* subkey :
       {L"Control", L"Programmable", L"Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}"}) {
    EXPECT_EQ(registered.count(Path(key) + L"\\" + subkey + L"\\"), 1U);
  }
  // Not a document for "Insert Object", not safe for scripting.
  EXPECT_EQ(registered.count(Path(key) + L"\\Insertable\\"), 0U);
  EXPECT_EQ(
      registered.count(Path(key) + L"\\Implemented Categories\\{7DD95801-9882-11CF-9FA9-00AA006C42C4}\\"),
      0U);
  // Twice is as good as once.
  EXPECT_EQ(Install(true), S_OK);
  ExpectSame(Now(), registered);
  EXPECT_EQ(Install(false), S_OK);
  ExpectSame(Now(), before);
  EXPECT_EQ(Install(false), S_OK) << "nothing to remove";
}

TEST_P(Registration, leaves_the_control_of_the_other_bitness_usable) {
  ASSERT_EQ(Install(true), S_OK);
  const std::wstring other = std::wstring(kLibrary) + L"\\409\\" + kOther;
  const std::wstring otherClass = L"Wow6432Node\\" + std::wstring(kClass) + L"\\InprocServer32";
  Seed(other, L"C:\\Other\\Plotvane.ocx");
  Seed(otherClass, L"C:\\Other\\Plotvane.ocx");
  EXPECT_EQ(Install(false), S_OK);
  EXPECT_EQ(Value(other), L"C:\\Other\\Plotvane.ocx");
  EXPECT_EQ(Value(otherClass), L"C:\\Other\\Plotvane.ocx");
  EXPECT_EQ(Value(L"Plotvane.Graph\\CLSID"), L"{B29F6C7E-4501-4683-AA2A-BCD9B27DE50C}");
  EXPECT_EQ(Value(std::wstring(kLibrary) + L"\\FLAGS"), L"2");
  EXPECT_EQ(Value(kClass), L"") << "its own class is gone";
  EXPECT_EQ(Value(std::wstring(kLibrary) + L"\\409\\" + kPlatform), L"");
  ::RegDeleteTreeW(mClasses, other.c_str());
  ::RegDeleteTreeW(mClasses, (L"Wow6432Node\\" + std::wstring(kClass)).c_str());
  EXPECT_EQ(Install(true), S_OK);
  EXPECT_EQ(Install(false), S_OK);
  EXPECT_EQ(Value(L"Plotvane.Graph\\CLSID"), L"");
}

TEST_P(Registration, coming_after_the_control_of_the_other_bitness_leaves_every_key_of_it) {
  // The other one was here first: its share of the type library and its class.
  const std::wstring other = std::wstring(kLibrary) + L"\\409\\" + kOther;
  const std::wstring otherClass = L"Wow6432Node\\" + std::wstring(kClass);
  ASSERT_EQ(Install(true), S_OK);
  Seed(other, L"C:\\Other\\Plotvane.ocx");
  Seed(otherClass + L"\\InprocServer32", L"C:\\Other\\Plotvane.ocx");
  Seed(otherClass + L"\\ProgID", L"Plotvane.Graph");
  ASSERT_EQ(Install(false), S_OK);
  const Snapshot before = Now();
  ASSERT_EQ(Install(true), S_OK);
  EXPECT_EQ(Value(other), L"C:\\Other\\Plotvane.ocx");
  EXPECT_NE(Value(std::wstring(kLibrary) + L"\\409\\" + kPlatform), L"");
  ASSERT_EQ(Install(false), S_OK);
  ExpectSame(Now(), before);
  ::RegDeleteTreeW(mClasses, other.c_str());
  ::RegDeleteTreeW(mClasses, otherClass.c_str());
  EXPECT_EQ(Install(true), S_OK);
  EXPECT_EQ(Install(false), S_OK);
}

INSTANTIATE_TEST_SUITE_P(Scopes, Registration, testing::Bool(),
                         [](const auto& scope) { return scope.param ? "user" : "machine"; });

// ---- Without registration ----

std::wstring BesideTheLibrary(const wchar_t* file) {
  const std::wstring path = Library::Path();
  return path.substr(0, path.find_last_of(L'\\') + 1) + file;
}

TEST(Manifest, the_control_is_created_by_its_name_without_registration) {
  const Apartment apartment;
  CLSID id{};
  ASSERT_NE(::CLSIDFromProgID(L"Plotvane.Graph", &id), S_OK) << "the control is registered";
  const std::wstring manifest = BesideTheLibrary(L"Plotvane.manifest");
  const std::wstring folder = BesideTheLibrary(L"");
  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
  description.lpSource = manifest.c_str();
  description.lpAssemblyDirectory = folder.c_str();
  const HANDLE context = ::CreateActCtxW(&description);
  ASSERT_NE(context, INVALID_HANDLE_VALUE) << ::GetLastError();
  ULONG_PTR cookie = 0;
  ASSERT_TRUE(::ActivateActCtx(context, &cookie));
  ASSERT_EQ(::CLSIDFromProgID(L"Plotvane.Graph", &id), S_OK);
  // The system answers an alias of the class, which is as good as the class itself.
  {
    ComPtr<::_Graph> graph;
    ASSERT_EQ(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID__Graph, graph.ReceiveVoid()), S_OK);
    EXPECT_EQ(CallByName(graph.Get(), L"PlotAllY", DISPATCH_METHOD).status, S_OK);
    DWORD status = 0;
    EXPECT_EQ(As<IOleObject>(graph.Get())->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, 131473U);
  }
  ::CoFreeUnusedLibraries();
  ::DeactivateActCtx(0, cookie);
  ::ReleaseActCtx(context);
}

}  // namespace
}  // namespace plotvane::tests
