// EventSink: receives the one event of the control.
#pragma once

#include <functional>

#include "hosts/desktop/automation_object.h"

namespace plotvane::desktop {

class EventSink final : public AutomationObject<> {
 public:
  // `events`: the identifier of the event interface. `plotDone`: called at the end of each plot.
  EventSink(REFIID events, std::function<void()> plotDone) : mEvents(events), mPlotDone(std::move(plotDone)) {}

  STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 private:
  ~EventSink() override = default;
  [[nodiscard]] void* Find(REFIID iid) override;

  IID mEvents;
  std::function<void()> mPlotDone;
};

}  // namespace plotvane::desktop
