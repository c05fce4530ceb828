// Fence: nothing but a status leaves a COM method, and every failure carries error information.
#pragma once

#include <windows.h>

#include <exception>
#include <new>
#include <type_traits>

#include "control/com/error_info.h"
#include "control/win32/floating_point_state.h"

namespace plotvane::control::com {

// Runs `body` with the system's floating-point state; S_OK (or the status that it returns) or the status of
// what it threw.
template <typename Body>
HRESULT Fence(Body&& body) noexcept {
  const win32::OwnFloatingPoint ownState;
  try {
    if constexpr (std::is_same_v<decltype(body()), HRESULT>) {
      return body();
    } else {
      body();
      return S_OK;
    }
  } catch (const HostError& error) {
    return Report(error);
  } catch (const platform::RunTimeError& error) {
    return Report(error);
  } catch (const std::bad_alloc&) {
    return Report(platform::RunTimeError(platform::StandardError::OutOfMemory));
  } catch (...) {
    return Report(E_UNEXPECTED);
  }
}

}  // namespace plotvane::control::com
