// A connection that leaves nothing out, and the log of it: a radiometric core that sleeps through the first message,
// lenses and a speed class that the calibration gives, object parameters that differ from the defaults, debug messages.
#pragma once

#include <string>

#include "PvStreamGEV.h"
#include "tests/unit/calibration/CalibrationTexts.h"
#include "tests/unit/camera/AnsweringCoreTest.h"
#include "tests/unit/camera/ScriptedCamera.h"

class WholeConnectTest : public AnsweringCoreTest<ScriptedCameraTest> {
 protected:
  WholeConnectTest() {
    calibrationVect.emplace_back().lens = "L99mm";  // of the camera that connected before
    emissivity = 0.8;
    atmosphericTemperature = 300.0;
    reflectedTemperature = 310.0;
    humidity = 0.9;
    answering_.unheard = 1;
    // The object that has the debug messages' switch is made inside of Connect, so that they go on inside of it, too.
    scripted::network().during.emplace("PvDevice::GetParameters",
                                       [this] { camera_.serialSettings->SetDebugMessages(true); });
    // Neither the calibration nor the making of that object is a call. What there is of them shows between calls.
    scripted::network().during.emplace("PvDevice::IsConnected", [this] { log().add(atHand()); });
  }
  ~WholeConnectTest() override {
    scripted::network().during.clear();
    delete camera_.pipeline;
    PvStream::Free(camera_.stream);
    PvDevice::Free(camera_.device);
  }

  std::string atHand() const {
    std::string text = camera_.serialSettings != nullptr ? "at hand: core object, lenses" : "at hand: lenses";
    for (const std::string& lens : lensesInForce()) text += " " + lens;
    return text + ", speed " + std::to_string(CamSpeed.speed);
  }

  static std::string calibration() {
    calibration_texts::Lens first;
    calibration_texts::Lens second;
    second.name = "L50mm";
    return record(first) + record(second);
  }

  /// The objects that the camera has.
  std::string left() const {
    std::string names;
    if (camera_.device != nullptr) names += " device";
    if (camera_.stream != nullptr) names += " stream";
    if (camera_.pipeline != nullptr) names += " pipeline";
    if (camera_.serialSettings != nullptr) names += " core";
    return names;
  }

  ScriptedCamera camera_{info(), calibration(), "03", "KEOE2001"};
};

/// The whole log.
inline Events wholeConnect() {
  return joined({
      // No device is asked whether it is connected before there is one.
      {"out: Camera: Connecting to Cam A.\\n", "PvDevice::CreateAndConnect Cam A",
       "PvStream::CreateAndOpen 192.0.2.10"},
      // The stream is settled before there are buffers to wait for it.
      {"PvDeviceGEV::NegotiatePacketSize 0 0", "PvDeviceGEV::SetStreamDestination 192.0.2.1 50123 0"},
      {"PvPipeline::PvPipeline", "PvDevice::GetPayloadSize", "PvPipeline::SetBufferCount 2",
       "PvPipeline::SetBufferSize 655360"},
      // The core's object and the calibration come only once the device has been found to be still there, and both
      // before the start-up, which begins with the second question.
      {"PvDevice::IsConnected", "at hand: lenses L99mm, speed 1"},
      {"PvDevice::IsConnected", "at hand: core object, lenses L25mm L50mm, speed 2"},
      {startUpLine("Setting default settings")},
      // The line to the core is set up before the first message on it.
      featureEvents(),
      unansweredWriteEvents(0),
      writeEvents(0),
      {startUpLine("Checking part number")},
      readEvents(102),
      // The video standard of the calibration's speed class, with the correction that goes with it, before the size.
      writeEvents(114, {0x00, 0x04}),
      writeEvents(12),
      {startUpLine("Camera part number: 46640001X-FRNLX"), startUpLine("Resolution: 640x512")},
      {"PvGenParameterArray::SetIntegerValue Width 640", "PvGenParameterArray::SetIntegerValue Height 512"},
      {startUpLine("Checking for radiometry: 1"), startUpLine("Setting radiometry")},
      radiometricStartUpEvents(),
      {"PvStream::IsOpen"},
  });
}
