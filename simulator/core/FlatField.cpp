#include "simulator/core/FlatField.h"

#include <algorithm>
#include <cmath>

namespace simulator {

FlatField::FlatField(uint64_t closed_for_ns, SensorTemperature sensor_celsius, uint64_t now_ns)
    : closed_for_ns_(closed_for_ns),
      sensor_celsius_(std::move(sensor_celsius)),
      corrected_ns_(now_ns),
      closed_until_ns_(now_ns),
      looked_ns_(now_ns),
      corrected_celsius_(sensor_celsius_(now_ns)) {}

void FlatField::correct(uint64_t now_ns) {
  corrected_ns_ = now_ns;
  closed_until_ns_ = now_ns + closed_for_ns_;
  corrected_celsius_ = sensor_celsius_(now_ns);
  ++count_;
}

bool FlatField::wanted(const FlatFieldRules& rules, uint64_t now_ns) const {
  if (closed(now_ns)) return false;
  if (rules.period_ns != kNever && now_ns - corrected_ns_ >= rules.period_ns) return true;
  return rules.delta_celsius > 0 && std::fabs(driftCelsius(now_ns)) >= rules.delta_celsius;
}

void FlatField::advance(const FlatFieldRules& rules, uint64_t now_ns) {
  const uint64_t step_ns = std::max(kNanosecondsPerSecond, (now_ns - looked_ns_) / 1000);
  while (looked_ns_ < now_ns) {
    uint64_t next_ns = std::min(now_ns, looked_ns_ + step_ns);
    if (rules.period_ns != kNever) {
      // At the moment itself, but not while the shutter is still closed from the last time.
      const uint64_t due_ns = std::max(corrected_ns_ + rules.period_ns, closed_until_ns_);
      if (due_ns > looked_ns_) next_ns = std::min(next_ns, due_ns);
    }
    looked_ns_ = next_ns;
    if (wanted(rules, next_ns)) correct(next_ns);
  }
}

void FlatField::restart(uint64_t open_ns) {
  corrected_ns_ = closed_until_ns_ = looked_ns_ = open_ns;
  corrected_celsius_ = sensor_celsius_(open_ns);
}

}  // namespace simulator
