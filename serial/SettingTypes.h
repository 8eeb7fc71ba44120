// The choices that the thermal core's imaging settings offer. The numbers are the interface's, not the wire's.
#pragma once

#include <cstdint>

/// When the core flat-field corrects itself.
enum class FFCModes : uint32_t {
  Manual = 0,     ///< only on command
  Automatic = 1,  ///< by period and by change of temperature
  External = 2,   ///< on the signal of an external line
};

/// What the core's expansion bus carries.
enum class XPBusModes : uint32_t { Off = 0, Bt656 = 1, Cmos = 2 };

enum class LVDSModes : uint32_t { Off = 0, On = 1 };

/// What a pixel of a digital output is. LVDS offers the first two.
enum class DigitalOutputDepth : uint32_t {
  Bits14 = 0,       ///< raw values
  Bits8 = 1,        ///< after gain control
  Bits8Bayer = 2,   ///< after gain control, colours in a Bayer pattern
  Bits16YCbCr = 3,  ///< after gain control, in colour
};

enum class TestPatterns : uint32_t {
  Off = 0,
  Ramp = 1,
  VerticalBars = 2,
  HorizontalShade = 3,
  Factory = 4,
  ColorBars = 5,
  SteppedRamp = 6,
};

enum class ExternalSyncModes : uint32_t { Off = 0, Master = 1, Slave = 2 };

/// Colours of the core's own video; raw values have none.
enum class Palettes : uint32_t {
  WhiteHot = 0,
  BlackHot = 1,
  Fusion = 2,
  Rainbow = 3,
  Glowbow = 4,
  Ironbow1 = 5,
  Ironbow2 = 6,
  Sepia = 7,
  Color1 = 8,
  Color2 = 9,
  IceAndFire = 10,
  Rain = 11,
  RedHot = 12,
  GreenHot = 13,
};

/// How the core's own video is stretched to 8 bits; raw values are not touched.
enum class AGCTypes : uint32_t {
  PlateauHistogram = 0,
  OnceBright = 1,
  AutoBright = 2,
  Manual = 3,
  Reserved = 4,
  Linear = 5,
};

/// The unit of the isotherm thresholds.
enum class ThresholdUnits : uint32_t { Celsius = 0, Percent = 1 };

enum class VideoColorModes : uint32_t { Monochrome = 0, Color = 1 };

/// How the spot meter shows in the core's own video.
enum class SpotDisplayModes : uint32_t { Off = 0, Number = 1, Bar = 2, NumberAndBar = 3 };

enum class SpotMeterModes : uint32_t { Off = 0, Fahrenheit = 1, Celsius = 2 };

/// Standard and frame rate of the core's video.
enum class VideoStandards : uint32_t {
  Ntsc = 0,
  Pal = 1,
  Reserved = 2,  ///< the core has no such standard; setting it does nothing
  Ntsc60Hz = 3,
  Pal50Hz = 4,
};
