// Registration: the control's entries in the registry, written by one list and removed by the same list
// backwards.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include <string>
#include <vector>

namespace plotvane::control::com {

// RECOMPOSEONRESIZE, CANTLINKINSIDE, INSIDEOUT, ACTIVATEWHENVISIBLE, SETCLIENTSITEFIRST.
inline constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                     OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;
static_assert(kMiscStatus == 131473);

enum class RegistrationScope { Machine, User };

struct RegistryEntry {
  std::wstring key;    // below Software\Classes
  std::wstring name;   // empty for the key's default value
  std::wstring value;  // a text; nothing is written when both this and the name are empty
  // Belongs to the 32- and the 64-bit control together: removed by the one that goes last.
  bool shared = false;
};

// What registering the library file `path` writes, parents before their children.
[[nodiscard]] std::vector<RegistryEntry> RegistryEntries(const std::wstring& path);

// Writes all entries for this module's file; on a failure those written are removed again. The status is the
// system's.
HRESULT Register(RegistrationScope scope);
// Removes all entries that are there; keys into which somebody else wrote something stay with that.
HRESULT Unregister(RegistrationScope scope);

}  // namespace plotvane::control::com
