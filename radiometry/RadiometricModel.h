// The radiometric model in force: what an object's temperature follows from, process-wide, shared by all cameras.
//
// Applications may assign any of these. TauAtm, Matm and Mbgr follow from others:
// CameraSerialSettings::RecalculateConstants brings them up to date after that, and the setters of
// CameraSerialSettings do it themselves. Nothing guards them: a thread that converts while another assigns may mix old
// and new. keocam::PinnedConverter keeps a camera's own.
//
// The response of the sensor, RThg / (exp(B / T) - F) for a black body of T kelvin, and the terms of the measurement
// formula (object, reflection, atmosphere) are those customary in thermography with microbolometers.
#pragma once

/// @name The object and its surroundings
extern double emissivity;              ///< 0 to 1
extern double reflectedTemperature;    ///< kelvin
extern double atmosphericTemperature;  ///< kelvin
extern double distance;                ///< metres from camera to object
extern double humidity;                ///< relative, 0.5 for 50 %

/// @name Optics before the lens, such as a window
extern double ExternalOpticsTemperature;   ///< kelvin; nothing reads it
extern double ExternalOpticsTransmission;  ///< 0 to 1

/// @name The camera's response, of the range last set
extern double R;     ///< for TempToRaw alone
extern double B;     ///< kelvin
extern double F;     ///< without unit
extern double O;     ///< counts without radiation; 0 until a range has been set
extern double J1;    ///< counts per unit of signal
extern double RThg;  ///< signal, the R of the way from raw value to temperature
extern double K1;    ///< for TempToRaw alone; the library leaves it 0
extern double K2;    ///< for TempToRaw alone; the library leaves it 0

/// @name Absorption by the atmosphere: two bands, X of the first and 1 - X of the second
extern double X;
extern double Alpha1;  ///< without water vapour, per square root of a metre
extern double Alpha2;
extern double Beta1;  ///< by water vapour, per square root of a metre and of a gram per cubic metre
extern double Beta2;

/// @name What follows from the above; 0 until first calculated
extern double TauAtm;  ///< the atmosphere's transmission
extern double Matm;    ///< signal of the atmosphere
extern double Mbgr;    ///< signal of what the object reflects

/// @name Bounds of what RawToTemp reports before its correction, degrees Celsius. They are the same in all ranges.
extern double UpperCameraLimit;
extern double LowerCameraLimit;

/// Transmission of the atmosphere over `distance`, from water vapour in grams per cubic metre as a cubic polynomial of
/// the temperature. It may come out slightly above 1. Stores nothing.
double CalculateTauAtm();

/// Signal of a black body of a temperature in kelvin.
double CalculateM(double kelvin);

/// Signal that a raw value stands for.
double CalculateMap(unsigned short raw);

/// The part of it that the object emits itself, without reflection and atmosphere.
double CalculateMobj(unsigned short raw);

/// Degrees Celsius of that object, neither limited nor corrected. NaN where there is no such temperature.
double CalculateTemperature(unsigned short raw);
