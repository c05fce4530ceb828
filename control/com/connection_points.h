// ConnectionPoint: the sinks that a host connected to one outgoing interface of the control.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>
#include <vector>

#include "control/com/implements.h"

namespace plotvane::control::com {

class ConnectionPoint final : public Implements<IConnectionPoint> {
 public:
  // `container` owns this point and calls Disconnect before it ends.
  ConnectionPoint(REFIID outgoing, IConnectionPointContainer* container) noexcept
      : mOutgoing(outgoing), mContainer(container) {}

  // The connected sinks, each still alive while the caller talks to it although it may disconnect meanwhile.
  [[nodiscard]] std::vector<ComPtr<IUnknown>> Sinks() const;
  // Lets go of all sinks and of the container.
  void Disconnect() noexcept;

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) noexcept override;
  HRESULT STDMETHODCALLTYPE
  GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) noexcept override;

 private:
  IID mOutgoing;
  IConnectionPointContainer* mContainer;  // not counted; null after Disconnect
  std::map<DWORD, ComPtr<IUnknown>> mSinks;
  DWORD mLastCookie = 0;
};

}  // namespace plotvane::control::com
