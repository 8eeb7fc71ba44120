// A scripted core, and the process-wide radiometric model as it is at load; put back afterwards.
#pragma once

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "calibration/Calibration.h"
#include "radiometry/RadiometricModel.h"
#include "serial/CoreTemperature.h"
#include "tests/unit/serial/CoreTest.h"

/// All of the model that can be assigned.
class ModelAtLoad {
 public:
  ModelAtLoad() { coreTemperature = 20.0; }
  ~ModelAtLoad() {
    for (const Value& value : values_) *value.global = value.at_load;
    coreTemperature = 20.0;
  }
  ModelAtLoad(const ModelAtLoad&) = delete;
  ModelAtLoad& operator=(const ModelAtLoad&) = delete;

 private:
  struct Value {
    double* global;
    double at_load;
  };
  // Read when the first test begins, which is before anything has changed them.
  inline static const std::vector<Value> values_ = [] {
    std::vector<Value> values;
    for (double* const global : {&emissivity,
                                 &reflectedTemperature,
                                 &atmosphericTemperature,
                                 &distance,
                                 &humidity,
                                 &ExternalOpticsTemperature,
                                 &ExternalOpticsTransmission,
                                 &R,
                                 &B,
                                 &F,
                                 &O,
                                 &J1,
                                 &RThg,
                                 &K1,
                                 &K2,
                                 &X,
                                 &Alpha1,
                                 &Alpha2,
                                 &Beta1,
                                 &Beta2,
                                 &TauAtm,
                                 &Matm,
                                 &Mbgr,
                                 &UpperCameraLimit,
                                 &LowerCameraLimit}) {
      values.push_back({global, *global});
    }
    return values;
  }();
};

class RadiometryTest : public CoreTest {
 protected:
  RadiometryTest() { coreTemperatureTimer = time(nullptr); }
  ~RadiometryTest() override {
    calibrationVect.clear();
    currentLensNumber = 0;
  }

  static constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  static constexpr double kInfinity = std::numeric_limits<double>::infinity();

  /// Puts the constants of the low range in force, as SetGainMode does, with nothing sent.
  void useLowRange() {
    R = 366544.0, B = 1428.0, F = 1.0, O = 342.0, J1 = 22.1396484, RThg = 16556.0;
    core_.RecalculateConstants();
  }
  void useMiddleRange() {
    R = 56829.0, B = 1470.0, F = 1.0, O = 754.0, J1 = 3.0694580078125, RThg = 18514.0;
    core_.RecalculateConstants();
  }

  /// A lens whose corrections differ in every range and row.
  static CalibrationStruct& addLens(bool slopes_valid = true, bool has_1500 = true) {
    CalibrationStruct& lens = calibrationVect.emplace_back();
    lens.lens = "L" + std::to_string(calibrationVect.size());
    lens.slopesValid = slopes_valid ? 1 : 0;
    lens.has1500Range = has_1500 ? 1 : 0;
    for (int range = 0; range < 3; ++range) {
      for (int row = 0; row < 60; ++row) {
        const double points[5] = {0.5 + 0.01 * row + range, 0.01 + 0.001 * range, 1e-5 + 1e-7 * row, -2.0 + 0.02 * row,
                                  range < 2 ? 0.02 : 1e-11};
        for (int point = 0; point < 5; ++point) lens.data[range][row][point] = points[point];
        if (range == 2) lens.data[range][row][3] = 1e-8;
        if (range < 2) lens.slopes[range][row] = 30.0 + 0.1 * row;
      }
    }
    return lens;
  }

  ModelAtLoad model_;
};
