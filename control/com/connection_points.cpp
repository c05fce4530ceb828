#include "control/com/connection_points.h"

#include <olectl.h>

#include <utility>

#include "control/com/enumerator.h"
#include "control/com/fence.h"
#include "control/win32/floating_point_state.h"

namespace plotvane::control::com {

std::vector<ComPtr<IUnknown>> ConnectionPoint::Sinks() const {
  std::vector<ComPtr<IUnknown>> sinks;
  for (const auto& [cookie, sink] : mSinks) sinks.push_back(sink);
  return sinks;
}

void ConnectionPoint::Disconnect() noexcept {
  mContainer = nullptr;
  // Out of the member first: a sink's release may come back here.
  const auto sinks = std::exchange(mSinks, {});
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
  if (iid == nullptr) return E_POINTER;
  *iid = mOutgoing;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
  if (container == nullptr) return E_POINTER;
  *container = mContainer;
  if (mContainer == nullptr) return E_UNEXPECTED;
  mContainer->AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  return Fence([&]() -> HRESULT {
    if (mContainer == nullptr) return CONNECT_E_CANNOTCONNECT;
    // A sink for events may answer for the event interface or for plain automation.
    ComPtr<IUnknown> connected;
    const win32::HostFloatingPoint hostState;
    if (FAILED(sink->QueryInterface(mOutgoing, connected.ReceiveVoid())) &&
        FAILED(sink->QueryInterface(IID_IDispatch, connected.ReceiveVoid()))) {
      return CONNECT_E_CANNOTCONNECT;
    }
    mSinks.emplace(++mLastCookie, std::move(connected));
    *cookie = mLastCookie;
    return S_OK;
  });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) noexcept {
  // Taken out before it is released, for the release may come back here.
  const auto sink = mSinks.extract(cookie);
  return sink.empty() ? CONNECT_E_NOCONNECTION : S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Fence([&] {
    std::vector<Giving<CONNECTDATA>::Kept> list;
    for (const auto& [cookie, sink] : mSinks) list.push_back({sink, cookie});
    *connections = Enumerate<IEnumConnections, CONNECTDATA>(std::move(list));
  });
}

}  // namespace plotvane::control::com
