#include "control/com/registration.h"

#include <olectl.h>

#include <algorithm>

#include "Plotvane.h"
#include "control/com/type_library.h"

namespace plotvane::control::com {

namespace {

constexpr wchar_t kName[] = L"Plotvane Graph";
constexpr wchar_t kProgId[] = L"Plotvane.Graph";
constexpr wchar_t kControlCategory[] = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
// The system's own marshalling by type library, for dual interfaces and for event interfaces.
constexpr wchar_t kDualMarshaller[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kDispatchMarshaller[] = L"{00020420-0000-0000-C000-000000000046}";
// Version 45.0 as the registry writes versions of type libraries: hexadecimal.
constexpr wchar_t kVersion[] = L"45.0";
constexpr wchar_t kHexVersion[] = L"2d.0";
constexpr wchar_t kLocale[] = L"409";
constexpr wchar_t kLibraryIsOfControls[] = L"2";
constexpr wchar_t kToolboxBitmap[] = L", 101";

constexpr bool k64Bits = sizeof(void*) == 8;
constexpr const wchar_t* kPlatform = k64Bits ? L"win64" : L"win32";
constexpr const wchar_t* kOtherPlatform = k64Bits ? L"win32" : L"win64";

std::wstring GuidText(REFGUID guid) {
  std::wstring text(39, L'\0');
  text.resize(static_cast<std::size_t>(::StringFromGUID2(guid, text.data(), 39)) - 1);
  return text;
}

std::wstring LibraryKey() {
  return L"TypeLib\\" + GuidText(LIBID_Plotvane) + L"\\" + kHexVersion;
}

void AddClass(std::vector<RegistryEntry>& entries, const std::wstring& path) {
  const std::wstring key = L"CLSID\\" + GuidText(CLSID_Graph);
  const auto add = [&](const std::wstring& subkey, const std::wstring& value) {
    entries.push_back({key + subkey, L"", value});
  };
  add(L"", kName);
  add(L"\\Control", L"");
  add(L"\\Implemented Categories", L"");
  add(L"\\Implemented Categories\\" + std::wstring(kControlCategory), L"");
  add(L"\\InprocServer32", path);
  entries.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
  add(L"\\MiscStatus", L"0");
  add(L"\\MiscStatus\\1", std::to_wstring(kMiscStatus));
  add(L"\\ProgID", kProgId);
  add(L"\\Programmable", L"");
  add(L"\\ToolboxBitmap32", path + kToolboxBitmap);
  add(L"\\TypeLib", GuidText(LIBID_Plotvane));
  add(L"\\Verb", L"");
  add(L"\\Verb\\0", L"&Edit,0,2");
  add(L"\\Version", kVersion);
  add(L"\\VersionIndependentProgID", kProgId);
}

void AddLibrary(std::vector<RegistryEntry>& entries, const std::wstring& path) {
  const std::wstring key = LibraryKey();
  entries.push_back({L"TypeLib\\" + GuidText(LIBID_Plotvane), L"", L"", true});
  entries.push_back({key, L"", L"Plotvane function graphing control", true});
  entries.push_back({key + L"\\" + kLocale, L"", L"", true});
  entries.push_back({key + L"\\" + kLocale + L"\\" + kPlatform, L"", path});
  entries.push_back({key + L"\\FLAGS", L"", kLibraryIsOfControls, true});
  entries.push_back({key + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\')), true});
}

void AddInterface(std::vector<RegistryEntry>& entries, REFGUID guid, const wchar_t* name,
                  const wchar_t* marshaller) {
  const std::wstring key = L"Interface\\" + GuidText(guid);
  entries.push_back({key, L"", name});
  entries.push_back({key + L"\\ProxyStubClsid32", L"", marshaller});
  entries.push_back({key + L"\\TypeLib", L"", GuidText(LIBID_Plotvane)});
  entries.push_back({key + L"\\TypeLib", L"Version", kHexVersion});
}

// A key of the registry, closed when done.
class Key {
 public:
  Key() noexcept = default;
  ~Key() {
    if (mKey != nullptr) ::RegCloseKey(mKey);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  [[nodiscard]] HKEY Get() const noexcept { return mKey; }
  [[nodiscard]] HKEY* Receive() noexcept { return &mKey; }

 private:
  HKEY mKey = nullptr;
};

LSTATUS OpenClasses(RegistrationScope scope, REGSAM access, Key& classes) {
  const HKEY root = scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
  return ::RegCreateKeyExW(root, L"Software\\Classes", 0, nullptr, 0, access, nullptr, classes.Receive(),
                           nullptr);
}

LSTATUS WriteEntry(HKEY classes, const RegistryEntry& entry) {
  Key key;
  const LSTATUS made = ::RegCreateKeyExW(classes, entry.key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                                         key.Receive(), nullptr);
  if (made != ERROR_SUCCESS || (entry.name.empty() && entry.value.empty())) return made;
  const auto size = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
  return ::RegSetValueExW(key.Get(), entry.name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(entry.value.c_str()), size);
}

// The entry's value, then its key when nothing is left in it.
LSTATUS RemoveEntry(HKEY classes, const RegistryEntry& entry) {
  DWORD keys = 0;
  DWORD values = 0;
  {
    Key key;
    const LSTATUS opened =
        ::RegOpenKeyExW(classes, entry.key.c_str(), 0, KEY_SET_VALUE | KEY_QUERY_VALUE, key.Receive());
    if (opened == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
    if (opened != ERROR_SUCCESS) return opened;
    const LSTATUS removed = ::RegDeleteValueW(key.Get(), entry.name.c_str());
    if (removed != ERROR_SUCCESS && removed != ERROR_FILE_NOT_FOUND) return removed;
    const LSTATUS counted = ::RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                               &values, nullptr, nullptr, nullptr, nullptr);
    if (counted != ERROR_SUCCESS) return counted;
  }
  return keys == 0 && values == 0 ? ::RegDeleteKeyW(classes, entry.key.c_str()) : ERROR_SUCCESS;
}

// Whether the control of the other number of bits is registered: both share the key of the type library.
bool OtherPlatformIsRegistered(HKEY classes) {
  Key key;
  const std::wstring path = LibraryKey() + L"\\" + kLocale + L"\\" + kOtherPlatform;
  return ::RegOpenKeyExW(classes, path.c_str(), 0, KEY_QUERY_VALUE, key.Receive()) == ERROR_SUCCESS;
}

}  // namespace

std::vector<RegistryEntry> RegistryEntries(const std::wstring& path) {
  std::vector<RegistryEntry> entries;
  // A user who never registered anything has none of these.
  for (const wchar_t* parent : {L"CLSID", L"TypeLib", L"Interface"}) entries.push_back({parent, L"", L"", true});
  entries.push_back({kProgId, L"", kName, true});
  entries.push_back({std::wstring(kProgId) + L"\\CLSID", L"", GuidText(CLSID_Graph), true});
  AddClass(entries, path);
  AddLibrary(entries, path);
  AddInterface(entries, IID__Graph, L"_Graph", kDualMarshaller);
  AddInterface(entries, DIID___Graph, L"__Graph", kDispatchMarshaller);
  return entries;
}

HRESULT Register(RegistrationScope scope) {
  Key classes;
  const LSTATUS opened = OpenClasses(scope, KEY_CREATE_SUB_KEY, classes);
  if (opened != ERROR_SUCCESS) return HRESULT_FROM_WIN32(static_cast<DWORD>(opened));
  for (const RegistryEntry& entry : RegistryEntries(ThisModulePath())) {
    const LSTATUS written = WriteEntry(classes.Get(), entry);
    if (written == ERROR_SUCCESS) continue;
    static_cast<void>(Unregister(scope));
    return HRESULT_FROM_WIN32(static_cast<DWORD>(written));
  }
  return S_OK;
}

HRESULT Unregister(RegistrationScope scope) {
  Key classes;
  const LSTATUS opened = OpenClasses(scope, KEY_CREATE_SUB_KEY | KEY_QUERY_VALUE, classes);
  if (opened != ERROR_SUCCESS) return HRESULT_FROM_WIN32(static_cast<DWORD>(opened));
  const bool keepShared = OtherPlatformIsRegistered(classes.Get());
  LSTATUS result = ERROR_SUCCESS;
  std::vector<RegistryEntry> entries = RegistryEntries(ThisModulePath());
  std::reverse(entries.begin(), entries.end());
  for (const RegistryEntry& entry : entries) {
    if (entry.shared && keepShared) continue;
    const LSTATUS removed = RemoveEntry(classes.Get(), entry);
    if (result == ERROR_SUCCESS) result = removed;
  }
  return HRESULT_FROM_WIN32(static_cast<DWORD>(result));
}

}  // namespace plotvane::control::com
