// The exported model and its free functions.
#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

class RadiometricModelTest : public RadiometryTest {};

TEST_F(RadiometricModelTest, ValuesAtLoad) {
  const std::vector<std::pair<double, double>> values = {
      {emissivity, 0.95},
      {reflectedTemperature, 293.15},
      {atmosphericTemperature, 293.15},
      {distance, 1.0},
      {humidity, 0.5},
      {ExternalOpticsTemperature, 293.15},
      {ExternalOpticsTransmission, 1.0},
      {R, 366544.0},
      {B, 1428.0},
      {F, 1.0},
      {O, 0.0},
      {J1, 22.1396484},
      {RThg, 16556.0},
      {X, 1.0},
      {Alpha1, 0.006569},
      {Alpha2, 0.01262},
      {Beta1, -0.002276},
      {Beta2, -0.00667},
      {TauAtm, 0.0},
      {Matm, 0.0},
      {Mbgr, 0.0},
      {K1, 0.0},
      {K2, 0.0},
      {UpperCameraLimit, 550.0},
      {LowerCameraLimit, -40.0},
      {coreTemperature, 20.0},
  };
  for (std::size_t i = 0; i < values.size(); ++i) EXPECT_EQ(values[i].first, values[i].second) << i;
}

// Figures worked out by hand for the low range.
TEST_F(RadiometricModelTest, WorkedFigures) {
  useLowRange();
  EXPECT_NEAR(TauAtm, 1.0000916, 5e-8);
  EXPECT_NEAR(CalculateTemperature(5000), 54.5217, 5e-5);
  EXPECT_NEAR(CalculateTemperature(3000), 16.0846, 5e-5);
  EXPECT_DOUBLE_EQ(CalculateMap(5000), (5000 - 342.0) / 22.1396484);
  EXPECT_NEAR(CalculateM(293.15), 16556.0 / (std::exp(1428.0 / 293.15) - 1.0), 1e-10);
}

TEST_F(RadiometricModelTest, NoDistance_TransmitsAll) {
  distance = 0.0;
  EXPECT_EQ(CalculateTauAtm(), 1.0);
  X = 0.25;
  EXPECT_EQ(CalculateTauAtm(), 1.0);
}

TEST_F(RadiometricModelTest, Transmission_IsNotLimitedToOne) {
  useLowRange();
  EXPECT_GT(TauAtm, 1.0);
}

TEST_F(RadiometricModelTest, TransmissionIsOnlyReturned) {
  TauAtm = 0.25;
  EXPECT_NE(CalculateTauAtm(), 0.25);
  EXPECT_EQ(TauAtm, 0.25);
}

TEST_F(RadiometricModelTest, BeforeARange_TemperaturesMeanNothing) {
  // No transmission: the object's signal is infinite, and so is what the logarithm is taken of, less one.
  EXPECT_TRUE(std::isinf(CalculateMobj(5000)));
  EXPECT_FALSE(std::isfinite(CalculateTemperature(5000)));
  EXPECT_EQ(core_.RawToTemp(5000), UpperCameraLimit);
}

TEST_F(RadiometricModelTest, ReflectedPart_CountsTheOpticsToo) {
  useLowRange();
  ExternalOpticsTransmission = 0.8;
  const double map = CalculateMap(6000);
  const double expected = (map - TauAtm * (1 - 0.95 * 0.8) * Mbgr - (1 - TauAtm) * Matm) / (0.95 * TauAtm * 0.8);
  EXPECT_NEAR(CalculateMobj(6000), expected, 1e-11);
}

TEST_F(RadiometricModelTest, EmissivityAndOptics_CountAtOnce_TheRestOnceRecalculated) {
  useLowRange();
  const double before = CalculateTemperature(6000);
  emissivity = 0.7;
  const double with_emissivity = CalculateTemperature(6000);
  EXPECT_NE(with_emissivity, before);
  reflectedTemperature = 350.0;
  atmosphericTemperature = 310.0;
  distance = 40.0;
  humidity = 0.9;
  EXPECT_EQ(CalculateTemperature(6000), with_emissivity);
  core_.RecalculateConstants();
  EXPECT_NE(CalculateTemperature(6000), with_emissivity);
}

TEST_F(RadiometricModelTest, OpticsTemperatureAndSpareConstants_CountForNothing) {
  useLowRange();
  const double before = CalculateTemperature(6000);
  ExternalOpticsTemperature = 400.0;
  R = K1 = K2 = 7.0;
  core_.RecalculateConstants();
  EXPECT_EQ(CalculateTemperature(6000), before);
}

TEST_F(RadiometricModelTest, NoSignal_IsAbsoluteZero_LessIsNoTemperature) {
  useLowRange();
  Matm = Mbgr = 0.0;
  EXPECT_EQ(CalculateTemperature(342), -273.15);
  EXPECT_TRUE(std::isnan(CalculateTemperature(341)));
}

TEST_F(RadiometricModelTest, TempToRaw_WithoutK1_IsSaturatedOrZero) {
  EXPECT_EQ(core_.TempToRaw(300.0), 4294967295U);
  K2 = -1e9;
  EXPECT_EQ(core_.TempToRaw(300.0), 0U);
}

TEST_F(RadiometricModelTest, TempToRaw_TruncatesAndSaturates) {
  K1 = 1.0;
  O = 342.0;
  const double value = 366544.0 / (std::exp(1428.0 / 300.0) - 1.0) - 342.0;
  EXPECT_EQ(core_.TempToRaw(300.0), static_cast<unsigned int>(value));
  EXPECT_EQ(core_.TempToRaw(kNaN), 0U);
  EXPECT_EQ(core_.TempToRaw(0.0), 0U) << "less the offset it is negative";
  EXPECT_EQ(core_.TempToRaw(kInfinity), 4294967295U);
  K1 = 1e-9;
  EXPECT_EQ(core_.TempToRaw(300.0), 4294967295U);
}

}  // namespace
