// The thermal palette.
#include "apps/keocam/picture/Palette.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

TEST(Palette, Ends_AreDarkVioletAndNearlyWhite) {
  const Rgb cold = thermalPalette().front();
  EXPECT_GT(cold.blue, cold.red);
  EXPECT_GT(cold.red, cold.green);
  EXPECT_LT(lightnessOf(cold), 8.0);
  EXPECT_GT(lightnessOf(thermalPalette().back()), 98.0);
}

TEST(Palette, Lightness_GrowsEvenlyFromStepToStep) {
  const Palette& palette = thermalPalette();
  const double first = lightnessOf(palette.front());
  const double step = (lightnessOf(palette.back()) - first) / static_cast<double>(palette.size() - 1);
  for (std::size_t i = 1; i < palette.size(); ++i) {
    EXPECT_GT(lightnessOf(palette[i]), lightnessOf(palette[i - 1])) << i;
    EXPECT_NEAR(lightnessOf(palette[i]), first + static_cast<double>(i) * step, 0.6) << i;
  }
}

TEST(Palette, Hues_GoFromVioletOverRedAndOrangeToYellow) {
  const Palette& palette = thermalPalette();
  const auto at = [&](double part) { return palette[static_cast<std::size_t>(part * 255.0)]; };
  EXPECT_GT(at(0.15).blue, at(0.15).red) << "violet";
  EXPECT_GT(at(0.45).red, 2 * at(0.45).blue) << "red";
  EXPECT_GT(at(0.45).red, 2 * at(0.45).green) << "red";
  EXPECT_GT(at(0.68).green, 2 * at(0.68).blue) << "orange";
  EXPECT_GT(at(0.85).green, 180) << "yellow";
  EXPECT_LT(at(0.85).blue, 120) << "yellow";
}

TEST(Palette, Lightness_OfBlackAndWhite) {
  EXPECT_DOUBLE_EQ(lightnessOf({0, 0, 0}), 0.0);
  EXPECT_NEAR(lightnessOf({255, 255, 255}), 100.0, 1e-9);
}

}  // namespace
}  // namespace keocam::cli
