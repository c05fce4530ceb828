// EventSink: receives the one event of the control.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <functional>

namespace plotvane::desktop {

// Reference counted; made with `new`, the first reference is the maker's.
class EventSink final : public IDispatch {
 public:
  // `events`: the identifier of the event interface. `plotDone`: called at the end of each plot.
  EventSink(REFIID events, std::function<void()> plotDone) : mEvents(events), mPlotDone(std::move(plotDone)) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++mReferences; }
  STDMETHODIMP_(ULONG) Release() override;

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
  STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 private:
  ~EventSink() = default;

  IID mEvents;
  std::function<void()> mPlotDone;
  std::atomic<ULONG> mReferences = 1;
};

}  // namespace plotvane::desktop
