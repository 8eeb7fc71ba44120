// What a frame asks the thermal core for: its function code, and the selectors inside two of them.
#pragma once

#include <cstdint>

/// The function code byte of a frame.
enum FunctionCodes : uint8_t {
  NO_OPERATION = 0,
  SET_DEFAULTS = 1,
  CAMERA_RESET = 2,
  RESTORE_FACTORY_DEFAULTS = 3,
  SERIAL_NUMBER = 4,
  VERSION = 5,
  CODE_10 = 10,  ///< the core's gain mode
  FFC_MODE = 11,
  DO_FFC = 12,
  FFC_PERIOD = 13,
  FFC_TEMP_DELTA = 14,
  ANALOG_VIDEO = 15,
  PALETTE = 16,
  INVERT_REVERT_VIDEO = 17,
  DIGITAL_OUTPUT_MODE = 18,
  AGC_TYPE = 19,
  CONTRAST = 20,
  BRIGHTNESS = 21,
  BRIGHTNESS_BIAS = 24,
  SPOT_METER_MODE = 31,
  TEMPERATURE = 32,
  EXTERNAL_SYNC = 33,
  CODE_34 = 34,
  ISOTHERM_THRESHOLDS = 35,
  TEST_PATTERN = 37,
  VIDEO_COLOR_MODE = 38,
  CODE_42 = 42,
  SPOT_DISPLAY_MODE = 43,
  DDE_GAIN = 44,
  FFC_WARN_TIME = 60,
  AGC_FILTER = 62,
  PLATEAU_LEVEL = 63,
  SHUTTER_TEMPERATURE = 77,
  AGC_MIDPOINT = 85,
  CAMERA_PART_NUMBER = 102,
  MAX_AGC_GAIN = 106,
  VIDEO_STANDARD = 114,
  RADIOMETRY = 142,
  CODE_226 = 226,
  SPATIAL_THRESHOLD = 227,
  RADIOMETRIC_PARAMETER = 229,
};

/// Which object parameter RADIOMETRIC_PARAMETER means; RADIOMETRIC_NONE with every other code.
enum RadiometricParameters : uint32_t {
  RADIOMETRIC_NONE = 0,
  RADIOMETRIC_EMISSIVITY = 1,
  RADIOMETRIC_PARAMETER_2 = 2,
  RADIOMETRIC_PARAMETER_3 = 3,
  RADIOMETRIC_REFLECTED_TEMPERATURE = 4,
  RADIOMETRIC_ATMOSPHERIC_TEMPERATURE = 5,
};

/// Which part of DIGITAL_OUTPUT_MODE is meant; DIGITAL_OUTPUT_NONE with every other code.
enum DigitalOutputModes : uint32_t {
  XP_BUS_MODE = 0,
  LVDS_MODE = 1,
  CMOS_BIT_DEPTH = 2,
  LVDS_BIT_DEPTH = 3,
  DIGITAL_OUTPUT_NONE = 4,
};
