// Everything that a core remembers, and what requests do to it. No bytes, no lock, no clock of its own.
#pragma once

#include <cstdint>

#include "simulator/Bytes.h"
#include "simulator/core/CoreIdentity.h"
#include "simulator/core/CoreRequest.h"
#include "simulator/core/CoreSettings.h"
#include "simulator/core/CoreTemperatures.h"
#include "simulator/core/FlashCommands.h"
#include "simulator/core/FlashMemory.h"
#include "simulator/core/FlatField.h"
#include "simulator/scene/CoreResponse.h"

namespace simulator {

struct CoreStateOptions {
  CoreIdentity identity;
  ThermalProfile thermal;
  uint64_t seed = 1;
  uint64_t shutter_ns = 500 * kNanosecondsPerMillisecond;
  uint64_t reset_ns = 1500 * kNanosecondsPerMillisecond;
  FlashGeometry flash;
  uint64_t erase_ns = 200 * kNanosecondsPerMillisecond;
};

/// Time is an argument of every call and must not run backwards.
class CoreState {
 public:
  CoreState(const CoreStateOptions& options, uint64_t power_on_ns);
  CoreState(const CoreState&) = delete;
  CoreState& operator=(const CoreState&) = delete;

  /// Carries out a request whose status is Ok. A request that sets something gets its own payload back. The flash may
  /// still refuse what is asked of it.
  CoreAnswer perform(const CoreRequest& request, const Bytes& request_payload, uint64_t now_ns);

  /// Lets the automatic corrections happen that are due.
  void advance(uint64_t now_ns);

  bool radiometric() const { return isRadiometric(options_.identity); }
  /// True from a reset until the core is back.
  bool starting(uint64_t now_ns) const { return now_ns < started_ns_; }
  bool shutterClosed(uint64_t now_ns) const { return flat_field_.closed(now_ns); }
  uint64_t ffcCount() const { return flat_field_.count(); }
  uint64_t powerOnNs() const { return power_on_ns_; }
  const CoreSettings& present() const { return present_; }
  const CoreSettings& powerOn() const { return power_on_; }
  CoreTemperatures temperatures(uint64_t now_ns) const;
  FlashMemory& flash() { return flash_; }
  const FlashMemory& flash() const { return flash_; }
  double driftCelsius(uint64_t now_ns) const { return flat_field_.driftCelsius(now_ns); }
  /// How the core turns temperatures into values: what its settings and its own temperature say.
  CoreResponse response(uint64_t now_ns) const;

 private:
  Bytes command(FunctionCode code, std::size_t answer_bytes, uint64_t now_ns);
  Bytes reading(Reading reading, uint64_t now_ns) const;
  FlatFieldRules flatFieldRules() const;

  CoreStateOptions options_;
  uint64_t power_on_ns_;
  uint64_t started_ns_;
  CoreSettings present_;
  CoreSettings power_on_;
  FlatField flat_field_;
  FlashMemory flash_;
};

}  // namespace simulator
