// The member that brings a core, and the device that it is in, into the state that the rest of the library assumes.
#include <unistd.h>

#include <string>

#include "base/Log.h"
#include "calibration/Calibration.h"
#include "serial/CameraSerialSettings.h"

namespace {

constexpr int kWakeAttempts = 10;
constexpr int32_t kFastestClass = 2;

struct EnumFeature {
  const char* name;
  const char* value;
};

// Raw counts, and the line that the core speaks. The selector stands before what belongs to the port that it names.
constexpr EnumFeature kFeatures[] = {
    {"PixelFormat", "Mono14"},     {"TestPattern", "Off"},       {"BulkSelector", "Bulk0"}, {"BulkMode", "UART"},
    {"BulkBaudRate", "Baud57600"}, {"BulkNumOfStopBits", "One"}, {"BulkParity", "None"},
};

struct Step {
  const char* message;
  void (*run)(CameraSerialSettings& core);
};

constexpr Step kSteps[] = {
    {"Setting default values for emissivity, atmosferic temperature, reflected temperature and humidity",
     [](CameraSerialSettings& core) {
       core.SetEmissivity(0.95);
       core.SetAtmospericTemperatureC(20.0);
       core.SetReflectedTemperatureC(20.0);
       core.SetHumidity(0.5);
     }},
    {"Setting FFC mode to AUTO", [](CameraSerialSettings& core) { core.SetFFCMode(FFCModes::Automatic); }},
    {"Setting XP BUS mode to CMOS", [](CameraSerialSettings& core) { core.SetXPBusMode(XPBusModes::Cmos); }},
    {"Setting digital depth to 14bit",
     [](CameraSerialSettings& core) { core.SetCMOSBitDepth(DigitalOutputDepth::Bits14); }},
    // The blank at its end is part of the text.
    {"Setting Range mode to low ",
     [](CameraSerialSettings& core) {
       core.SetRangeMode(CameraSerialSettings::LowRange);
       sleep(1);
     }},
    {"Doing FFC",
     [](CameraSerialSettings& core) {
       core.GetSensorTemperature();
       core.DoFFC();
     }},
};

std::string line(const std::string& message) { return "CameraSerialSettings::SetDefault(): " + message; }

void tell(const CameraSerialSettings& core, const std::string& message) {
  if (core.debugMessages) keocam::printLine(line(message));
}

int fail(const char* message) {
  keocam::printErrorLine(line(message));
  return -1;
}

void setUpDevice(PvGenParameterArray& features) {
  for (const EnumFeature& feature : kFeatures) features.SetEnumValue(feature.name, feature.value);
  features.SetBooleanValue("BulkLoopback", false);
}

// A core that has just been powered on, or has noise in its receiver, does not take the first message.
void wake(CameraSerialSettings& core) {
  for (int attempt = 0; attempt < kWakeAttempts; ++attempt) {
    if (core.DoNothing() == 0) return;
  }
}

}  // namespace

int CameraSerialSettings::SetDefault() {
  if (device == nullptr || !device->IsConnected()) return fail("Camera device not connected");
  keocam::printLine(line("Setting default settings"));
  PvGenParameterArray& features = *device->GetParameters();
  setUpDevice(features);
  wake(*this);

  tell(*this, "Checking part number");
  if (CheckPartNumber() != 0) return fail("Camera communication error");
  if (CamSpeed.speed == kFastestClass) SetVideoStandards(VideoStandards::Ntsc60Hz);
  tell(*this, "Camera part number: " + GetCameraPartNumber());
  const int width = GetResolutionX();
  const int height = GetResolutionY();
  tell(*this, "Resolution: " + std::to_string(width) + "x" + std::to_string(height));
  features.SetIntegerValue("Width", width);
  features.SetIntegerValue("Height", height);

  isRadiometric = CheckIsRadimetric();
  tell(*this, std::string("Checking for radiometry: ") + (isRadiometric ? "1" : "0"));
  if (isRadiometric) {
    tell(*this, "Setting radiometry");
    SetRadiometryMode(true);
    SetRadiometryHighResolutionMode(true);
  }
  for (const Step& step : kSteps) {
    tell(*this, step.message);
    step.run(*this);
  }
  return 0;
}
