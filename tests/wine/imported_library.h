// What a compiler that can import type libraries makes of
//   #import "Plotvane.ocx" raw_interfaces_only no_namespace
// as far as the example in docs/hosting.md uses it.
#pragma once

#include <windows.h>

#include <comdef.h>

#include "Plotvane.h"

_COM_SMARTPTR_TYPEDEF(_Graph, __uuidof(_Graph));
