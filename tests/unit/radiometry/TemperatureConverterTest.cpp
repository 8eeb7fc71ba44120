// Whole frames: the same as pixel by pixel, whatever has changed in between.
#include "radiometry/TemperatureConverter.h"

#include <cstring>
#include <functional>
#include <numeric>
#include <random>
#include <thread>

#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

template <typename T>
bool sameBits(const T& a, const T& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

std::vector<uint16_t> everyRawValue() {
  std::vector<uint16_t> values(65536);
  std::iota(values.begin(), values.end(), uint16_t{0});
  return values;
}

class TemperatureConverterTest : public RadiometryTest {
 protected:
  TemperatureConverterTest() { useLowRange(); }

  /// Every raw value, in all types and units, against RawToTemp.
  void expectSameAsPixelByPixel(const std::string& what) {
    std::vector<double> celsius(raw_.size());
    std::vector<double> kelvin(raw_.size());
    std::vector<float> float_celsius(raw_.size());
    std::vector<float> float_kelvin(raw_.size());
    std::vector<uint16_t> centikelvin(raw_.size());
    converter_.convert(raw_.data(), raw_.size(), celsius.data());
    converter_.convert(raw_.data(), raw_.size(), kelvin.data(), keocam::TemperatureUnit::Kelvin);
    converter_.convert(raw_.data(), raw_.size(), float_celsius.data());
    converter_.convert(raw_.data(), raw_.size(), float_kelvin.data(), keocam::TemperatureUnit::Kelvin);
    converter_.convertToCentikelvin(raw_.data(), raw_.size(), centikelvin.data());
    std::size_t different = 0;
    for (std::size_t i = 0; i < raw_.size(); ++i) {
      const double expected = core_.RawToTemp(raw_[i]);
      const double expected_kelvin = expected + 273.15;
      const double hundredths = std::round(expected_kelvin * 100.0);
      const uint16_t expected_centikelvin =
          !(hundredths > 0) ? uint16_t{0} : static_cast<uint16_t>(std::min(hundredths, 65535.0));
      different += !sameBits(celsius[i], expected) || !sameBits(kelvin[i], expected_kelvin) ||
                   !sameBits(float_celsius[i], static_cast<float>(expected)) ||
                   !sameBits(float_kelvin[i], static_cast<float>(expected_kelvin)) ||
                   centikelvin[i] != expected_centikelvin;
    }
    EXPECT_EQ(different, 0U) << what;
  }

  std::vector<double> converted() {
    std::vector<double> result(raw_.size());
    converter_.convert(raw_.data(), raw_.size(), result.data());
    return result;
  }

  std::vector<uint16_t> raw_ = everyRawValue();
  keocam::TemperatureConverter converter_{core_};
};

TEST_F(TemperatureConverterTest, EveryRawValue_InEveryMode) {
  for (const bool calibrated : {false, true}) {
    if (calibrated) addLens();
    for (const unsigned int range : {0U, 1U, 2U, 7U}) {
      core_.rangeMode = static_cast<RangeModes>(range);
      range == 0 ? useLowRange() : useMiddleRange();
      for (const int mode : {0, 1, 2}) {
        core_.radiometryMode = mode != 0;
        core_.radiometryHighResolutionMode = mode == 2;
        expectSameAsPixelByPixel("calibrated " + std::to_string(calibrated) + " range " + std::to_string(range) +
                                 " mode " + std::to_string(mode));
      }
    }
  }
}

// Each change alone must be noticed, assignments to globals too.
TEST_F(TemperatureConverterTest, AnyChange_IsNoticed) {
  addLens();
  addLens().data[0][20][3] = 9.0;
  calibrationVect[1].data[1][20][3] = 9.0;
  const std::vector<std::pair<std::string, std::function<void()>>> changes = {
      {"emissivity", [] { emissivity = 0.8; }},
      {"optics", [] { ExternalOpticsTransmission = 0.9; }},
      {"reflected", [this] { core_.SetReflectedTemperatureC(60.0); }},
      {"atmosphere", [this] { core_.SetAtmospericTemperatureC(35.0); }},
      {"distance", [this] { core_.SetDistance(80.0); }},
      {"humidity", [this] { core_.SetHumidity(0.95); }},
      {"TauAtm", [] { TauAtm = 0.7; }},
      {"Matm", [] { Matm += 50.0; }},
      {"Mbgr", [] { Mbgr += 50.0; }},
      {"O", [] { O += 100.0; }},
      {"J1", [] { J1 *= 1.1; }},
      {"B", [] { B *= 1.01; }},
      {"F", [] { F = 0.9; }},
      {"RThg", [] { RThg *= 1.02; }},
      {"UpperCameraLimit", [] { UpperCameraLimit = 150.0; }},
      {"LowerCameraLimit", [] { LowerCameraLimit = -10.0; }},
      {"lens", [] { currentLensNumber = 1; }},
      {"core temperature", [] { coreTemperature = 33.0; }},
      {"calibration", [] { calibrationVect[1].data[0][33][0] += 1.0; }},
      {"switch-over", [] { calibrationVect[1].slopes[0][33] += 20.0; }},
      {"slopes", [] { calibrationVect[1].slopesValid = 0; }},
      {"range", [this] { core_.rangeMode = CameraSerialSettings::HighRange; }},
      {"no calibration", [] { calibrationVect.clear(); }},
      {"radiometry mode", [this] { core_.radiometryMode = true; }},
      {"resolution", [this] { core_.radiometryHighResolutionMode = true; }},
  };
  std::vector<double> before = converted();
  for (const auto& [what, change] : changes) {
    change();
    const std::vector<double> after = converted();
    EXPECT_NE(std::memcmp(before.data(), after.data(), after.size() * sizeof(double)), 0) << what;
    std::size_t different = 0;
    for (std::size_t i = 0; i < raw_.size(); i += 7) different += !sameBits(after[i], core_.RawToTemp(raw_[i]));
    EXPECT_EQ(different, 0U) << what;
    before = after;
  }
}

TEST_F(TemperatureConverterTest, RandomModels_GiveTheSameBits) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> ordinary(-400.0, 400.0);
  const auto number = [&] {
    if (random() % 2 == 0) return ordinary(random);
    double value = 0;
    const uint64_t bits = random();
    std::memcpy(&value, &bits, sizeof value);
    return value;
  };
  CalibrationStruct& lens = addLens();
  for (int i = 0; i < 24; ++i) {
    for (double* const global : {&emissivity, &reflectedTemperature, &atmosphericTemperature, &distance, &humidity,
                                 &ExternalOpticsTransmission, &B, &F, &O, &J1, &RThg, &X}) {
      *global = number();
    }
    core_.RecalculateConstants();
    for (double& point : lens.data[i % 3][20]) point = number();
    coreTemperature = i % 4 == 0 ? number() : 20.0;
    core_.rangeMode = static_cast<RangeModes>(i % 4);
    expectSameAsPixelByPixel("model " + std::to_string(i));
    converter_.model().raw(number());
  }
}

TEST_F(TemperatureConverterTest, PixelsOnly_ThenMore_ThenNone) {
  const std::vector<uint16_t> values = {0, 3000, 16383, 5000};
  std::vector<double> celsius(values.size(), 1.0);
  converter_.convert(values.data(), values.size(), celsius.data());
  for (std::size_t i = 0; i < values.size(); ++i) EXPECT_TRUE(sameBits(celsius[i], core_.RawToTemp(values[i])));
  const std::vector<uint16_t> more = {16384, 65535, 16383};
  converter_.convert(more.data(), more.size(), celsius.data());
  for (std::size_t i = 0; i < more.size(); ++i) EXPECT_TRUE(sameBits(celsius[i], core_.RawToTemp(more[i])));
  converter_.convert(nullptr, 0, static_cast<float*>(nullptr));
}

TEST_F(TemperatureConverterTest, Centikelvin_RoundsAndSaturates) {
  core_.radiometryMode = true;
  const std::vector<uint16_t> values = {0, 1, 2, 1638, 1639, 65535};
  std::vector<uint16_t> centikelvin(values.size());
  converter_.convertToCentikelvin(values.data(), values.size(), centikelvin.data());
  EXPECT_EQ(centikelvin, (std::vector<uint16_t>{0, 40, 80, 65520, 65535, 65535}));
}

TEST_F(TemperatureConverterTest, CoreTemperature_IsReadOncePerCall_WhenDue) {
  addLens();
  converted();
  EXPECT_EQ(takeRequests(), Log{});
  scripted::passTime_ms(61'000);
  // The core is silent, and still asked but once for all pixels.
  converted();
  EXPECT_EQ(takeRequests(), requests({{32, {0x00, 0x00}}}));
  scripted::passTime_ms(61'000);
  replyTo(32, {0x01, 0x76});
  converted();
  EXPECT_EQ(coreTemperature, 37.4);
  EXPECT_EQ(takeRequests(), requests({{32, {0x00, 0x00}}}));
}

TEST_F(TemperatureConverterTest, SelectedLensThatThereIsNot_Throws) {
  addLens();
  currentLensNumber = 3;
  EXPECT_THROW(converted(), std::out_of_range);
  EXPECT_THROW(converter_.pin(), std::out_of_range);
}

TEST_F(TemperatureConverterTest, Inverse_RoundTrips) {
  addLens();
  // The two lines meet, so that there is one raw value for each temperature.
  for (int range = 0; range < 2; ++range) {
    for (int row = 0; row < 60; ++row) {
      auto& c = calibrationVect[0].data[range][row];
      calibrationVect[0].slopes[range][row] = (c[3] - c[0]) / (c[1] - c[4]);
    }
  }
  for (const unsigned int range : {0U, 1U, 2U}) {
    range == 0 ? useLowRange() : useMiddleRange();
    core_.rangeMode = static_cast<RangeModes>(range);
    emissivity = 0.8;
    core_.SetDistance(20.0 + range);
    for (const int mode : {0, 1, 2}) {
      core_.radiometryMode = mode != 0;
      core_.radiometryHighResolutionMode = mode == 2;
      const keocam::TemperatureModel model = converter_.model();
      int compared = 0;
      for (unsigned int raw = 0; raw < 16384; raw += 61) {
        const double celsius = model.celsius(static_cast<uint16_t>(raw));
        // On a limit, many raw values have one temperature.
        const double uncorrected = model.sensor().celsius(static_cast<uint16_t>(raw));
        if (std::isnan(celsius) || (mode == 0 && (uncorrected <= -40.0 || uncorrected >= 550.0))) continue;
        EXPECT_NEAR(model.raw(celsius), raw, 1e-6) << range << mode;
        ++compared;
      }
      EXPECT_GT(compared, 140) << range << mode;
    }
  }
}

TEST_F(TemperatureConverterTest, Inverse_OfWhatNoRawValueHas_IsNone) {
  const keocam::TemperatureModel model = converter_.model();
  for (const double celsius : {-41.0, 551.0, kNaN, kInfinity, -kInfinity}) EXPECT_TRUE(std::isnan(model.raw(celsius)));
  EXPECT_FALSE(std::isnan(model.raw(-40.0)));
}

TEST_F(TemperatureConverterTest, Pinned_KeepsItsCamera) {
  addLens();
  coreTemperature = 30.0;
  const keocam::PinnedConverter first = converter_.pin();
  const std::vector<double> expected = converted();

  // Another camera connects: other lens, range, object.
  CameraSerialSettings other(device_.get(), kPort);
  calibrationVect.clear();
  addLens(false).data[1][20][0] = 5.0;
  other.rangeMode = CameraSerialSettings::MiddleRange;
  useMiddleRange();
  coreTemperature = 41.0;
  other.SetEmissivity(0.7);
  keocam::TemperatureConverter other_converter(other);
  const keocam::PinnedConverter second = other_converter.pin();

  std::vector<double> celsius(raw_.size());
  first.convert(raw_.data(), raw_.size(), celsius.data());
  EXPECT_EQ(std::memcmp(celsius.data(), expected.data(), celsius.size() * sizeof(double)), 0);
  EXPECT_EQ(first.coreTemperatureC(), 30.0);
  EXPECT_EQ(first.object().emissivity, 0.95);
  second.convert(raw_.data(), raw_.size(), celsius.data());
  std::size_t different = 0;
  for (std::size_t i = 0; i < raw_.size(); ++i) different += !sameBits(celsius[i], other.RawToTemp(raw_[i]));
  EXPECT_EQ(different, 0U);
  EXPECT_TRUE(sameBits(second.celsius(5000), other.RawToTemp(5000)));
}

TEST_F(TemperatureConverterTest, Pinned_FollowsObjectAndCoreTemperature) {
  addLens();
  const keocam::PinnedConverter pinned = converter_.pin();
  const keocam::ObjectParameters object{0.6, 320.0, 290.0, 30.0, 0.8};
  const keocam::PinnedConverter changed = pinned.withObject(object).atCoreTemperature(47.0);
  EXPECT_EQ(pinned.celsius(6000), core_.RawToTemp(6000)) << "the first is as it was";

  core_.SetEmissivity(0.6);
  core_.SetReflectedTemperatureK(320.0);
  core_.SetAtmosphericTemperatureK(290.0);
  core_.SetDistance(30.0);
  core_.SetHumidity(0.8);
  coreTemperature = 47.0;
  for (unsigned int raw = 0; raw < 16384; raw += 7) {
    EXPECT_TRUE(sameBits(changed.celsius(static_cast<uint16_t>(raw)), core_.RawToTemp(static_cast<uint16_t>(raw))));
  }
  EXPECT_EQ(changed.coreTemperatureC(), 47.0);
  EXPECT_EQ(changed.object().distance, 30.0);
}

TEST_F(TemperatureConverterTest, Pinned_OutlivesItsConverterAndCalibration) {
  addLens();
  std::unique_ptr<keocam::PinnedConverter> pinned;
  {
    keocam::TemperatureConverter converter(core_);
    pinned = std::make_unique<keocam::PinnedConverter>(converter.pin());
  }
  const double expected = core_.RawToTemp(5000);
  calibrationVect.clear();
  EXPECT_EQ(pinned->celsius(5000), expected);
  EXPECT_NE(pinned->atCoreTemperature(50.0).celsius(5000), expected);
}

TEST_F(TemperatureConverterTest, Pinned_ServesManyThreadsAtOnce) {
  addLens();
  const keocam::PinnedConverter pinned = converter_.pin();
  std::vector<double> expected(raw_.size());
  for (std::size_t i = 0; i < raw_.size(); ++i) expected[i] = core_.RawToTemp(raw_[i]);
  std::vector<std::thread> threads;
  std::vector<std::vector<double>> results(4, std::vector<double>(raw_.size()));
  for (auto& result : results) {
    threads.emplace_back([&] {
      std::vector<float> kelvin(raw_.size());
      pinned.convert(raw_.data(), raw_.size(), kelvin.data(), keocam::TemperatureUnit::Kelvin);
      pinned.convert(raw_.data(), raw_.size(), result.data());
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const auto& result : results) {
    EXPECT_EQ(std::memcmp(result.data(), expected.data(), expected.size() * sizeof(double)), 0);
  }
}

}  // namespace
