// What tests of a core's start-up begin with, a core that answers, and end with: no calibration in force.
#pragma once

#include "calibration/Calibration.h"
#include "tests/unit/camera/AnsweringCore.h"
#include "tests/unit/camera/StartUpEvents.h"
#include "tests/unit/radiometry/RadiometryTest.h"

template <typename Base>
class AnsweringCoreTest : public Base {
 protected:
  ~AnsweringCoreTest() override {
    calibrationVect.clear();
    currentLensNumber = 0;
    CamSpeed = {};
  }

  static Events lensesInForce() {
    Events names;
    for (const CalibrationStruct& lens : calibrationVect) names.push_back(lens.lens);
    return names;
  }

  ModelAtLoad model_;
  AnsweringCore answering_;
};
