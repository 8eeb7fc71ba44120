// What tests of setCalibrationData start from, and end with: no calibration in force.
#pragma once

#include <functional>
#include <string>

#include "calibration/Calibration.h"
#include "serial/CameraSerialSettings.h"
#include "tests/unit/ScriptedTest.h"
#include "tests/unit/calibration/CalibrationTexts.h"

class CalibrationDataTest : public ScriptedTest {
 protected:
  CalibrationDataTest() { CamSpeed = {false, 1}; }
  ~CalibrationDataTest() override {
    calibrationVect.clear();
    currentLensNumber = 0;
    CamSpeed = {false, 1};
  }

  void set(const std::string& text, const std::string& version, const std::string& serial = "KEOD2001") {
    core_.setCalibrationData(text, version, serial);
  }

  static const CalibrationStruct& lens(std::size_t index = 0) { return calibrationVect.at(index); }

  template <typename Exception>
  static std::string messageOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const Exception& exception) {
      return exception.what();
    }
    return "no exception";
  }

  CameraSerialSettings core_{nullptr, PvDeviceSerialBulk0};
};
