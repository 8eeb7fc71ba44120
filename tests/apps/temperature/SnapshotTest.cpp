// The formats of snapshots, and the options for their colours.
#include "apps/keocam/temperature/Snapshot.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "FailureText.h"
#include "MeasuredFrame.h"
#include "apps/keocam/temperature/SnapshotColours.h"
#include "apps/keocam/temperature/SnapshotEncoders.h"

namespace keocam::cli {
namespace {

struct Taken {
  explicit Taken(const DisplayUnit& in_unit = kCelsius) : unit(in_unit) {}

  std::string text(std::vector<uint8_t> (*encode)(const Snapshot&)) const {
    const std::vector<uint8_t> bytes = encode(snapshot());
    return {bytes.begin(), bytes.end()};
  }
  Snapshot snapshot() const { return {frame, conditions, unit, {&thermalPalette(), {}}}; }

  TemperatureFrame frame = smallFrame();
  Conditions conditions = usualConditions();
  const DisplayUnit& unit;
};

TEST(Snapshot, Extension_TellsTheFormat) {
  EXPECT_EQ(formatOf("a.tiff").encode, encodeTiffOf);
  EXPECT_EQ(formatOf("/b.c/a.TIF").encode, encodeTiffOf);
  EXPECT_EQ(formatOf("a.b.png").encode, encodePngOf);
  EXPECT_EQ(formatOf("a.CSV").encode, encodeCsvOf);
  EXPECT_EQ(formatOf("a.raw").encode, encodeRawOf);
}

TEST(Snapshot, OtherNames_AreRefusedWithTheFormatsThereAre) {
  for (const char* const wrong : {"", "a", "png", ".png", "a.jpg", "a.png/", "a.", "a.tiffx"}) {
    const std::string text = failureTextOf(ExitStatus::Usage, [&] { formatOf(wrong); });
    EXPECT_TRUE(mentions(text, ".tiff, .tif, .png, .csv, .raw")) << text;
  }
}

TEST(Snapshot, Csv_IsPlainNumbersARowEach) {
  EXPECT_EQ(Taken().text(encodeCsvOf), "10.000,11.000,12.000,13.000\n14.000,15.000,16.000,\n");
  EXPECT_EQ(Taken(kFahrenheit).text(encodeCsvOf), "50.000,51.800,53.600,55.400\n57.200,59.000,60.800,\n");
}

TEST(Snapshot, Raw_IsLittleEndianWithoutAHeader) {
  Taken taken;
  taken.frame.raw.counts = {0x0102, 0x3FFF, 0, 1, 2, 3, 4, 0xABCD};
  EXPECT_EQ(encodeRawOf(taken.snapshot()),
            (std::vector<uint8_t>{0x02, 0x01, 0xFF, 0x3F, 0, 0, 1, 0, 2, 0, 3, 0, 4, 0, 0xCD, 0xAB}));
}

TEST(Snapshot, Description_BeginsAsImageJReadsIt) {
  const std::string text = imageDescription(Taken(kKelvin).snapshot());
  EXPECT_EQ(text,
            "ImageJ=1.11a\n"
            "unit=pixel\n"
            "vunit=K\n"
            "min=283.150\n"
            "max=289.150\n"
            "TemperatureUnit=K\n"
            "Model=KEOsim-640\n"
            "SerialNumber=KEOD2001\n"
            "Lens=L25mm\n"
            "Range=low\n"
            "ComputedBy=host\n"
            "Emissivity=0.9\n"
            "ReflectedApparentTemperature=303.15\n"
            "AtmosphericTemperature=293.15\n"
            "ObjectDistance=2.5 m\n"
            "RelativeHumidity=0.4\n"
            "CoreTemperature=298.25\n"
            "Time=2026-11-21T09:15:36.123Z\n");
}

TEST(Snapshot, DescriptionOfForeignLetters_IsAscii) {
  Taken taken;
  taken.conditions.lens = "Linse für 25 mm\n";
  for (const char c : imageDescription(taken.snapshot())) EXPECT_LT(static_cast<unsigned char>(c), 0x80);
}

TEST(SnapshotColours, WithoutOptions_AreTheThermalPaletteOverThePicturesSpan) {
  const SnapshotColours colours = coloursFor(formatOf("a.png"), "", {});
  EXPECT_EQ(colours.palette, &thermalPalette());
  EXPECT_FALSE(colours.span);
}

TEST(SnapshotColours, PaletteAndSpan_AreTaken) {
  const SnapshotColours colours = coloursFor(formatOf("a.png"), "white-hot", {"-10", "35.5"});
  EXPECT_EQ(colours.palette, findPalette("white-hot"));
  EXPECT_EQ(colours.span->low, -10.0);
  EXPECT_EQ(colours.span->high, 35.5);
}

TEST(SnapshotColours, WhatMakesNoSense_IsRefused) {
  const auto refusal = [](const char* path, const char* palette, const std::vector<std::string>& span) {
    return failureTextOf(ExitStatus::Usage, [&] { coloursFor(formatOf(path), palette, span); });
  };
  EXPECT_TRUE(mentions(refusal("a.png", "whitehot", {}), "did you mean \"white-hot\""));
  EXPECT_TRUE(mentions(refusal("a.tiff", "thermal", {}), ".png"));
  EXPECT_TRUE(mentions(refusal("a.csv", "", {"1", "2"}), ".png"));
  const std::vector<std::vector<std::string>> spans = {{"5", "5"},   {"6", "5"},     {"5", "5.05"},
                                                       {"nan", "5"}, {"0", "inf"},   {"x", "5"},
                                                       {"5"},        {"0", "1e300"}, {"-1e300", "0"}};
  for (const auto& span : spans) EXPECT_TRUE(mentions(refusal("a.png", "", span), "--span takes two")) << span[0];
}

}  // namespace
}  // namespace keocam::cli
