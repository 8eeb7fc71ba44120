// The model against tables of an independent implementation with 50 digits.
#include "radiometry/LensCorrection.h"
#include "radiometry/Radiance.h"
#include "radiometry/SensorModel.h"
#include "tests/unit/radiometry/GoldenTable.h"
#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

class GoldenTest : public RadiometryTest {
 protected:
  /// What is asked of every value: 1e-9 of it, however the tables bound the rounding.
  static constexpr double kRelative = 1e-9;

  // Where terms cancel, rounding is more than that of the result; the table knows by how much. Steps may be ordered
  // otherwise than in the table.
  static void expectValue(double value, const GoldenRow& row, const std::string& name) {
    const double expected = row.number(name);
    if (std::isnan(expected)) {
      EXPECT_TRUE(std::isnan(value)) << name << " of " << row.line();
      return;
    }
    if (std::isinf(expected)) {
      EXPECT_EQ(value, expected) << name << " of " << row.line();
      return;
    }
    const double bound = std::max(kRelative * std::abs(expected), 4 * row.number(name + "_error"));
    EXPECT_NEAR(value, expected, bound) << name << " of " << row.line();
    if (std::abs(value - expected) > kRelative * std::abs(expected)) ++beyond_relative;
    ++compared;
  }

  /// Puts the constants of a gain in force.
  void useGain(const std::string& name) {
    static const std::vector<GoldenRow> gains = goldenTable("gains.csv");
    for (const GoldenRow& gain : gains) {
      if (gain.text("name") != name) continue;
      R = gain.number("R"), B = gain.number("B"), F = gain.number("F"), O = gain.number("O");
      J1 = gain.number("J1"), RThg = gain.number("RThg");
      core_.RecalculateConstants();
      return;
    }
    FAIL() << "no gain " << name;
  }

  void useObject(const GoldenRow& row) {
    emissivity = row.number("emissivity");
    reflectedTemperature = row.number("reflected_kelvin");
    atmosphericTemperature = row.number("atmospheric_kelvin");
    distance = row.number("distance_m");
    humidity = row.number("humidity");
    ExternalOpticsTransmission = row.number("optics_transmission");
    useGain(row.text("gain"));
  }

  void TearDown() override {
    RadiometryTest::TearDown();
    RecordProperty("compared", compared);
    RecordProperty("beyond_1e-9_but_within_rounding", beyond_relative);
  }

  inline static int compared = 0;
  inline static int beyond_relative = 0;
  void SetUp() override { compared = beyond_relative = 0; }
};

TEST_F(GoldenTest, Gains_AreThoseOfTheRanges) {
  for (const auto& [range, name] : std::vector<std::pair<RangeModes, std::string>>{
           {CameraSerialSettings::LowRange, "low"}, {CameraSerialSettings::MiddleRange, "middle"}}) {
    core_.SetGainMode(range);
    const std::vector<double> set = {R, B, F, O, J1, RThg};
    useGain(name);
    EXPECT_EQ(set, (std::vector<double>{R, B, F, O, J1, RThg})) << name;
  }
}

TEST_F(GoldenTest, Transmission) {
  for (const GoldenRow& row : goldenTable("transmission.csv")) {
    atmosphericTemperature = row.number("atmospheric_kelvin");
    humidity = row.number("humidity");
    distance = row.number("distance_m");
    X = row.number("X");
    Alpha1 = row.number("Alpha1");
    Alpha2 = row.number("Alpha2");
    Beta1 = row.number("Beta1");
    Beta2 = row.number("Beta2");
    expectValue(keocam::waterVapour(atmosphericTemperature - 273.15, humidity), row, "water");
    expectValue(CalculateTauAtm(), row, "tau");
  }
  EXPECT_GT(compared, 400);
}

TEST_F(GoldenTest, BlackBody) {
  for (const GoldenRow& row : goldenTable("black_body.csv")) {
    useGain(row.text("gain"));
    expectValue(CalculateM(row.number("kelvin")), row, "signal");
  }
  EXPECT_EQ(compared, 100);
}

TEST_F(GoldenTest, DerivedConstants) {
  for (const GoldenRow& row : goldenTable("constants.csv")) {
    useObject(row);
    expectValue(TauAtm, row, "tau");
    expectValue(Matm, row, "atmospheric_signal");
    expectValue(Mbgr, row, "background_signal");
  }
  EXPECT_EQ(compared, 75);
}

TEST_F(GoldenTest, Temperature) {
  for (const GoldenRow& row : goldenTable("temperature.csv")) {
    useObject(row);
    const auto raw = static_cast<unsigned short>(row.number("raw"));
    expectValue(CalculateMobj(raw), row, "object_signal");
    expectValue(CalculateTemperature(raw), row, "celsius");
  }
  EXPECT_GT(compared, 2500);
}

TEST_F(GoldenTest, Correction) {
  CalibrationStruct& lens = addLens();
  for (const GoldenRow& row : goldenTable("correction.csv")) {
    const auto range = static_cast<unsigned int>(row.number("range"));
    lens.slopesValid = static_cast<uint8_t>(row.number("slopes_valid"));
    for (unsigned int in = 0; in < 3; ++in) {
      // In the other ranges something else, so that a mistaken range shows.
      for (int point = 0; point < 5; ++point) {
        lens.data[in][20][point] = in == range ? row.number("c" + std::to_string(point)) : 1e3;
      }
      if (in < 2) lens.slopes[in][20] = in == range ? row.number("slope") : 1e6;
    }
    core_.rangeMode = static_cast<RangeModes>(range);
    expectValue(core_.calibrateTemperatureC(row.number("uncorrected_celsius")), row, "celsius");
  }
  EXPECT_GT(compared, 900);
}

TEST_F(GoldenTest, TemperatureLinear_IsTheVeryDouble) {
  core_.radiometryMode = true;
  for (const GoldenRow& row : goldenTable("linear.csv")) {
    core_.radiometryHighResolutionMode = row.number("high_resolution") != 0;
    EXPECT_EQ(core_.RawToTemp(static_cast<unsigned short>(row.number("raw"))), row.number("celsius")) << row.line();
  }
}

TEST_F(GoldenTest, TempToRaw) {
  for (const GoldenRow& row : goldenTable("temp_to_raw.csv")) {
    R = row.number("R"), B = row.number("B"), F = row.number("F"), O = row.number("O");
    K1 = row.number("K1"), K2 = row.number("K2");
    EXPECT_EQ(core_.TempToRaw(row.number("kelvin")), static_cast<unsigned int>(row.number("raw"))) << row.line();
  }
}

}  // namespace
