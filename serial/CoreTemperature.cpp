#include "serial/CoreTemperature.h"

double coreTemperature = 20.0;
time_t coreTemperatureTimer = time(nullptr);
