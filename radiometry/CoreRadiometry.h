// The core's own radiometry with value and status together: its object parameters, its mode, its gain. The whole answer
// is checked and nothing is printed; errors are those of keocam::readSetting.
#pragma once

#include <string_view>

#include "serial/CameraSerialSettings.h"
#include "serial/CoreValue.h"

namespace keocam {

/// An object parameter that the core holds, as a row.
struct CoreObjectParameter {
  const char* name;     ///< such as "reflected-temperature"
  const char* meaning;  ///< a line for a person
  const char* unit;     ///< "°C", or empty
  RadiometricParameters code;
  double lowest;  ///< what the core takes, both ends included
  double highest;
  double steps_per_unit;
};

namespace core_parameters {
extern const CoreObjectParameter emissivity;              ///< 0.5 to 1
extern const CoreObjectParameter reflectedTemperature;    ///< degrees Celsius, 0 to 655.35
extern const CoreObjectParameter atmosphericTemperature;  ///< degrees Celsius, 0 to 655.35
}  // namespace core_parameters

struct CoreObjectParameters {
  const CoreObjectParameter* const* first;
  std::size_t count;
  const CoreObjectParameter* const* begin() const { return first; }
  const CoreObjectParameter* const* end() const { return first + count; }
};
/// Those three, in that order.
CoreObjectParameters allCoreObjectParameters();

/// The parameter of this name, or null.
const CoreObjectParameter* findCoreObjectParameter(std::string_view name);

/// What the core holds, in the parameter's unit. The process-wide parameters stay as they are.
CoreValue<double> readCoreObjectParameter(CameraSerialSettings& core, const CoreObjectParameter& parameter);

/// Writes it, to the nearest step: unlike SetRadReflectedTemp, fractions of a degree too. CAM_RANGE_ERROR, with nothing
/// sent, for a value that the core does not take. The process-wide parameters stay as they are.
ResponseStatuses writeCoreObjectParameter(CameraSerialSettings& core, const CoreObjectParameter& parameter,
                                          double value);

/// Whether the core sends temperatures.
CoreValue<bool> readRadiometryMode(CameraSerialSettings& core);
/// Switches it; on success `core.radiometryMode` says so. Nothing else is sent, and `core.isRadiometric` is not asked.
ResponseStatuses writeRadiometryMode(CameraSerialSettings& core, bool on);

/// Whether these are 0.04 K per count, else 0.4 K.
CoreValue<bool> readHighResolution(CameraSerialSettings& core);
/// On success `core.radiometryHighResolutionMode` says so.
ResponseStatuses writeHighResolution(CameraSerialSettings& core, bool high);

/// Whether the core's gain is high, which is LowRange's; low gain is that of MiddleRange and HighRange. A core that
/// chooses its gain by itself, which this interface never tells it to, is taken for one in high gain.
CoreValue<bool> readHighGain(CameraSerialSettings& core);

/// Makes the host's side agree with a core that is left as it is: `isRadiometric` by its part number, the mode and
/// resolution of radiometry, the range by its gain, whose constants are put in force, and, of a radiometric core, the
/// three object parameters. The gain tells LowRange from the others only: `otherwise` says which those are. On failure
/// the status of the exchange that failed is returned, and nothing has changed.
ResponseStatuses adoptCoreState(CameraSerialSettings& core, RangeModes otherwise = CameraSerialSettings::MiddleRange);

}  // namespace keocam
