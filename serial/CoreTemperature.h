// The core's temperature as last read: process-wide, of the camera that was asked last.
#pragma once

#include <ctime>

/// Degrees Celsius; 20 until a sensor temperature has been read.
extern double coreTemperature;

/// When it was read; the time of loading the library until then.
extern time_t coreTemperatureTimer;
