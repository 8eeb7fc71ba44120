// Temperatures end to end: what a connected camera measures of a scene, in each range and mode, against the truth.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "calibration/Calibration.h"
#include "pv/aravis/StreamDetails.h"
#include "radiometry/RadiometricModel.h"
#include "radiometry/RangeChange.h"
#include "radiometry/TemperatureConverter.h"
#include "simulator/calibration/CalibrationText.h"
#include "simulator/calibration/TemperatureCorrection.h"
#include "simulator/core/VideoPicture.h"
#include "simulator/scene/SceneText.h"
#include "tests/e2e/CoreCamera.h"

namespace {

using simulator::TemperatureSceneSettings;

constexpr double kTolerance_celsius = 0.05;
/// What is coarser than the tolerance is right to half a count, and the scene's counts to some thousandths.
constexpr double kCountTolerance = 0.51;
constexpr uint64_t kCalibrationSeed = 7;

/// An object as both sides are told it is. The core is told whole degrees only of what is reflected, and none below 0.
struct Object {
  const char* name;
  simulator::Surroundings surroundings;
  bool core_is_told;  ///< nothing of it is below 0 degrees
};

constexpr Object kObjects[] = {
    {"as from the start", {0.95, 20, 20, 1, 0.5}, true},    {"shiny and cold around", {0.6, -10, 5, 30, 0.2}, false},
    {"shiny and warm around", {0.6, 60, 30, 1, 0.9}, true}, {"black, damp and far", {1.0, 0, 25, 30, 0.9}, true},
    {"black and dry", {1.0, 60, -15, 1, 0.2}, false},       {"dull, dry and far", {0.95, 60, 35, 30, 0.2}, true},
    {"dull and damp", {0.95, -10, 10, 1, 0.9}, false}};

/// How wrong a core may be that is told the emissivity in whole 8192ths: the part that got lost of the difference
/// between the object's radiance and what it mirrors, in kelvin.
double coarseEmissivity_kelvin(const simulator::Surroundings& object, double celsius) {
  constexpr double kPlanckB_kelvin = 1428.0;
  const auto radiance = [](double kelvin) { return 1.0 / std::expm1(kPlanckB_kelvin / kelvin); };
  const double kelvin = celsius + 273.15;
  const double per_kelvin = radiance(kelvin + 0.5) - radiance(kelvin - 0.5);
  const double lost = object.emissivity - std::floor(object.emissivity * 8192.0) / 8192.0;
  const double mirrored = radiance(object.reflected_celsius + 273.15);
  return lost / object.emissivity * std::fabs(radiance(kelvin) - mirrored) / per_kelvin;
}

enum class Mode { Raw, HighResolution, LowResolution };

/// A range and mode, and a scene whose temperatures both have values for.
struct Measurement {
  RangeModes range;
  Mode mode;
  const char* scene;
};

constexpr Measurement kMeasurements[] = {
    {CameraSerialSettings::LowRange, Mode::Raw, "gradient:low=-35,high=150"},
    {CameraSerialSettings::LowRange, Mode::Raw, "blackbodies:low=-10,high=120,plates=8"},
    {CameraSerialSettings::LowRange, Mode::HighResolution, "gradient:low=-35,high=150"},
    {CameraSerialSettings::LowRange, Mode::LowResolution, "hot-spot:low=-20,high=140"},
    {CameraSerialSettings::MiddleRange, Mode::Raw, "gradient:low=-30,high=540"},
    {CameraSerialSettings::MiddleRange, Mode::HighResolution, "gradient:low=-30,high=370"},
    {CameraSerialSettings::MiddleRange, Mode::LowResolution, "hot-spot:low=30,high=600"},
    {CameraSerialSettings::HighRange, Mode::Raw, "gradient:low=400,high=540"},
    {CameraSerialSettings::HighRange, Mode::HighResolution, "gradient:low=300,high=370"},
    {CameraSerialSettings::HighRange, Mode::LowResolution, "gradient:low=400,high=1500"}};

e2e::CoreCameraOptions coreAt(double core_celsius) {
  e2e::CoreCameraOptions options;
  options.core_celsius = core_celsius;
  options.shutter_ms = 50;
  return options;
}

class TemperatureCamera : public e2e::CoreCamera {
 public:
  explicit TemperatureCamera(double core_celsius) : CoreCamera(coreAt(core_celsius)) {
    core().isRadiometric = true;
    // As after a minute: a library just loaded takes the core for 20 degrees warm until then.
    core().GetSensorTemperature();
    camera().StartAcquisition();
  }
  ~TemperatureCamera() {
    camera().StopAcquisition();
    calibrationVect.clear();
    currentLensNumber = 0;
    core().isRadiometric = core().radiometryMode = false;
    tellHost(kObjects[0].surroundings);
  }
  TemperatureCamera(const TemperatureCamera&) = delete;
  TemperatureCamera& operator=(const TemperatureCamera&) = delete;

  /// Gives the library and the camera the same lens.
  void calibrate(unsigned version) {
    simulator::CalibrationOptions options;
    options.version = version;
    options.seed = kCalibrationSeed;
    options.sensor = {160, 128};
    options.lenses = simulator::usualLenses(2, version >= 3 ? 2 : 0);
    core().setCalibrationData(simulator::calibrationText(options), simulator::versionText(version), "KEOD2001");
    currentLensNumber = 1;
    correction_ = std::make_shared<simulator::TemperatureCorrection>(lensDataOf(options, 1).points, version);
  }

  void tellHost(const simulator::Surroundings& object) {
    core().SetEmissivity(object.emissivity);
    core().SetReflectedTemperatureC(object.reflected_celsius);
    core().SetAtmospericTemperatureC(object.atmospheric_celsius);
    core().SetDistance(object.distance_m);
    core().SetHumidity(object.humidity);
  }

  void setMode(Mode mode) {
    core().SetRadiometryMode(mode != Mode::Raw);
    if (mode != Mode::Raw) core().SetRadiometryHighResolutionMode(mode == Mode::HighResolution);
  }

  /// Lets the camera see the scene, and measures every pixel of its next frame.
  testing::AssertionResult measures(const char* text, const simulator::Surroundings& object) {
    TemperatureSceneSettings scene = simulator::parseScene(text);
    scene.surroundings = object;
    scene.correction = correction_;
    const bool high = core().GetRangeMode() == CameraSerialSettings::HighRange;
    scene.low_gain_range = high ? simulator::CalibrationRange::High : simulator::CalibrationRange::Middle;
    const uint64_t first_block = simulated().show(scene);
    for (int frames = 0; frames < 100; ++frames) {
      camera().buffer = nullptr;
      if (camera().RetreiveBuffer() == nullptr) return testing::AssertionFailure() << "no frame within a second";
      const uint64_t block_id = keocam::detailsOf(*camera().buffer).block_id;
      const auto video = simulatedCore().videoOf(block_id);
      const bool due = block_id >= first_block && video && !video->frozen;
      const testing::AssertionResult result = due ? isTruth(*video, object) : testing::AssertionSuccess();
      camera().ReleaseBuffer();
      if (due) return result;
    }
    return testing::AssertionFailure() << "none of a hundred frames was of the scene";
  }

  /// Of the frames measured so far.
  double largestError_celsius() const { return largest_error_celsius_; }

 private:
  testing::AssertionResult isTruth(const simulator::CoreVideo& video, const simulator::Surroundings& object) {
    const std::vector<double> truth = trueTemperatures(*simulated().scene(), 160, 128, video);
    const auto* const raw = reinterpret_cast<const uint16_t*>(camera().buffer->GetDataPointer());
    std::vector<double> celsius(truth.size());
    keocam::TemperatureConverter converter(core());
    converter.convert(raw, celsius.size(), celsius.data());
    const keocam::TemperatureModel model = converter.model();
    for (std::size_t i = 0; i < truth.size(); ++i) {
      const double told_kelvin = core().radiometryMode ? coarseEmissivity_kelvin(object, truth[i]) : 0.0;
      const double count_celsius = std::fabs(model.celsius(static_cast<uint16_t>(raw[i] + 1)) - celsius[i]);
      const double error = std::fabs(celsius[i] - truth[i]);
      largest_error_celsius_ = std::max(largest_error_celsius_, error);
      const double allowed = std::max(kTolerance_celsius, kCountTolerance * count_celsius) + told_kelvin;
      if (!(error <= allowed)) {
        return testing::AssertionFailure() << "pixel " << i << " of value " << raw[i] << " is " << celsius[i]
                                           << " C in place of " << truth[i] << " C";
      }
      if (i % 97 == 0 && core().RawToTemp(raw[i]) != celsius[i]) {
        return testing::AssertionFailure() << "RawToTemp of " << raw[i] << " is not " << celsius[i] << " C";
      }
    }
    return testing::AssertionSuccess();
  }

  std::shared_ptr<const simulator::TemperatureCorrection> correction_;
  double largest_error_celsius_ = 0;
};

struct Setup {
  const char* name;
  double core_celsius;
  unsigned version;  ///< of the calibration; 0: none
};

constexpr Setup kSetups[] = {{"WithoutCalibration", 25.0, 0}, {"StraightLine_CoreAt30", 30.2, 2},
                             {"TwoLines_CoreAt0", 0.4, 3},    {"TwoLines_CoreAt12", 12.3, 3},
                             {"TwoLines_CoreAt38", 37.5, 3},  {"TwoLines_CoreAbove59", 64.0, 3}};

class TemperatureEndToEnd : public testing::TestWithParam<Setup> {};

TEST_P(TemperatureEndToEnd, EveryPixelInEveryRangeAndMode_IsTheTruth) {
  TemperatureCamera camera(GetParam().core_celsius);
  if (GetParam().version != 0) camera.calibrate(GetParam().version);
  int measured = 0;
  for (const RangeModes range :
       {CameraSerialSettings::LowRange, CameraSerialSettings::MiddleRange, CameraSerialSettings::HighRange}) {
    // Only grammar 3 has the high range.
    if (range == CameraSerialSettings::HighRange && GetParam().version < 3) continue;
    ASSERT_EQ(keocam::changeRange(camera.core(), range).end, keocam::RangeChangeEnd::Changed);
    for (const Measurement& measurement : kMeasurements) {
      if (measurement.range != range) continue;
      camera.setMode(measurement.mode);
      for (const Object& object : kObjects) {
        if (measurement.mode != Mode::Raw && !object.core_is_told) continue;
        camera.tellHost(object.surroundings);
        EXPECT_TRUE(camera.measures(measurement.scene, object.surroundings))
            << "range " << range << ", " << measurement.scene << ", " << object.name;
        ++measured;
      }
    }
  }
  EXPECT_EQ(measured, GetParam().version < 3 ? 37 : 52);
  EXPECT_TRUE(camera.coreGotSoundFramesOnly(50));
  RecordProperty("largest_error_celsius", std::to_string(camera.largestError_celsius()));
}

INSTANTIATE_TEST_SUITE_P(Setups, TemperatureEndToEnd, testing::ValuesIn(kSetups),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(TemperatureMistakes, HostThatKnowsTheObjectWrong_MeasuresWrong) {
  TemperatureCamera camera(25.0);
  ASSERT_EQ(keocam::changeRange(camera.core(), CameraSerialSettings::LowRange).end, keocam::RangeChangeEnd::Changed);
  const simulator::Surroundings shiny{0.6, 20, 20, 1, 0.5};
  EXPECT_FALSE(camera.measures("uniform:celsius=100", shiny));
  EXPECT_GT(camera.largestError_celsius(), 15);
  camera.tellHost(shiny);
  EXPECT_TRUE(camera.measures("uniform:celsius=100", shiny));
}

}  // namespace
