// A real pass of an active satellite as a list of passes hands it to its chart.
#pragma once

#include <optional>

#include "prediction/mPass.h"
#include "shell/base/mForms.h"

namespace halvorine {

/// The first pass of a slot within twenty days from CurrentDate, above 10 degrees, and visible where told;
/// its culmination is the chosen moment.
inline std::optional<PassChart> FirstPass(int slot, bool visibleOnly) {
  struct First : PassWatcher {
    std::optional<PassRecord> found;
    void Found(const PassRecord& pass) override {
      if (!found) found = pass;
    }
  } first;
  PassQuery query;
  query.tStart = PassStart(CurrentDate);
  query.tEnd = query.tStart + 20;
  query.threshold = 10;
  query.visibleOnly = visibleOnly;
  const TickHold hold;
  CancelRequested = false;
  PassEngine(query, first).RunSlots(slot, slot);
  if (!first.found) return std::nullopt;
  PassChart chart;
  chart.rise = first.found->rise.date;
  chart.culmination = chart.selected = first.found->culmination.date;
  chart.set = first.found->set.date;
  chart.elements = ElementSets[slot];
  chart.lines = ElementLines[slot];
  return chart;
}

}  // namespace halvorine
