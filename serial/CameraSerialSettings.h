// Control of a camera's thermal core over the serial port that the camera bridges.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "PvDevice.h"
#include "PvDeviceSerial.h"
#include "serial/FunctionCodes.h"
#include "serial/ResponseStatuses.h"
#include "serial/SettingTypes.h"

/// One object per connected camera; the device must be connected, and its bridge set to the core's 57600 baud, 8N1,
/// which SetDefault does.
///
/// Every operation is one exchange or a few, each of which opens the port, asks, waits for the answer and closes the
/// port again. It blocks its caller meanwhile, some 20 ms as a rule; a silent core costs a getter 0.1 s and a setter
/// 0.5 s per exchange, an isotherm's 0.8 s. Changes of range take seconds, those of lenses minutes. There is no lock:
/// operations of one camera must not overlap. A failed exchange is reported by a line on standard error.
///
/// Getters cannot say that their exchange failed: they then return what an answer of zeros means, which is 0, off or
/// the first choice unless their comment says otherwise. Setters of a choice or a switch return nothing; a value that
/// is none of the choices is not sent. Setters of a number return the status: CAM_RANGE_ERROR, with nothing sent, for a
/// number above the bound that their comment gives; without a bound all values are sent. Applications that need to know
/// use keocam::readSetting and its like in serial/CoreSettings.h and serial/CoreReadings.h, which return
/// the value together with its status and check the whole answer. In the members here, as applications rely on, the
/// status byte of an answer alone decides.
class CameraSerialSettings {
 public:
  /// Which temperatures the camera measures.
  enum RangeModes : uint32_t {
    LowRange = 0,
    MiddleRange = 1,
    HighRange = 2,  ///< +400 to +1500 degrees Celsius
  };

  /// The cores that there are, named by the code in their part number. Its first digits are mostly the width.
  enum Resolution : uint32_t {
    Resolution640 = 0,  ///< 640 x 512
    Resolution336 = 1,  ///< 336 x 256
    Resolution324 = 2,  ///< 320 x 256
    Resolution168 = 3,  ///< 160 x 128
    Resolution162 = 4,  ///< 160 x 128
    Resolution160 = 5,  ///< 160 x 128
  };

  /// `device` is not owned and must outlive the last exchange. Nothing is sent.
  CameraSerialSettings(PvDevice* device, PvDeviceSerial serialPort);
  virtual ~CameraSerialSettings();

  PvDevice* GetPvDevice();
  /// Does nothing: the device is the constructor's. Make a new object for another device.
  void SetPvDevice(PvDevice* device);
  PvDeviceSerial GetPvDeviceSerial();
  /// The port that exchanges use from now on.
  void SetPvDeviceSerial(PvDeviceSerial serialPort);

  /// Whether the start-up sequence tells its steps on standard output. Errors are always told.
  bool GetDebugMessages();
  void SetDebugMessages(bool debugMessages);

  // Messages.

  /// CRC-16/XMODEM of `length` bytes with its two bytes exchanged, so that a little-endian host stores it as the wire
  /// wants it. 0 for a length of 0 or less.
  unsigned short CalculateCRC(void* data, int length);
  /// A request of `byteCount` + 10 bytes in a new array, which the caller deletes with delete[]. A null payload stands
  /// for zeros.
  unsigned char* prepareMessage(unsigned char functionCode, unsigned short byteCount, unsigned char* payload);
  /// Sends a request with `byteCount` bytes of payload, waits `waitMicroseconds` (none if negative), then up to 500 ms
  /// for the answer. Returns it in a new array of 1024 bytes, which the caller deletes with delete[], if the core
  /// answered CAM_OK, else null. What the answer does not fill is zero.
  unsigned char* sendMessage(unsigned char* frame, unsigned short byteCount, int waitMicroseconds);
  /// What the status byte of a reply means; UNKNOWN_ERROR for null. Reads the first two bytes.
  ResponseStatuses GetResponse(unsigned char* reply);
  /// The status' name; "UNKNOWN_ERROR" for those above 7.
  std::string ResponseToString(ResponseStatuses status);

  // Any parameter by its code.

  /// Reads a parameter into `value`: 2 bytes in the host's order, or as many as they come for SERIAL_NUMBER (8),
  /// VERSION (8), FFC_PERIOD and FFC_TEMP_DELTA (4), ANALOG_VIDEO, TEMPERATURE and SHUTTER_TEMPERATURE (2),
  /// ISOTHERM_THRESHOLDS (6) and CAMERA_PART_NUMBER (32), big-endian as the core sends them. `value` is left untouched
  /// on failure, and may be null to drop what comes. TEMPERATURE reads the sensor that `temperatureSensor` tells,
  /// RADIOMETRY the switch that `radiometrySelector` tells; a selector out of its range is sent as zeros.
  /// CAM_NOT_READABLE for SET_DEFAULTS, CAMERA_RESET and RESTORE_FACTORY_DEFAULTS; UNKNOWN_ERROR for NO_OPERATION and
  /// unknown codes, for RADIOMETRIC_NONE with RADIOMETRIC_PARAMETER and for an exchange that failed; else the core's
  /// status. Reading DO_FFC is the same message as the command.
  ResponseStatuses GetParameter(FunctionCodes code, void* value, RadiometricParameters radiometric,
                                DigitalOutputModes output);
  /// Writes a parameter from `value`: one byte for choices and switches, a 16-bit number in the host's order for
  /// numbers, two bytes as they lie for ANALOG_VIDEO, six for ISOTHERM_THRESHOLDS; not looked at for a command.
  /// CAM_RANGE_ERROR, with nothing sent, for a value that the core would not take, for a null value where there must be
  /// one, and for DIGITAL_OUTPUT_MODE and RADIOMETRIC_PARAMETER without a selector of theirs. RADIOMETRY with a
  /// `radiometrySelector` out of range is sent as zeros. CAM_NOT_WRITABLE and CAM_UNDEFINED_FUNCTION_ERROR for codes
  /// that cannot be written; UNKNOWN_ERROR for an exchange that failed; else the core's status. AGC_TYPE ends the
  /// process for 0 to 10, see SetAGCType.
  ResponseStatuses SetParameter(FunctionCodes code, void* value, RadiometricParameters radiometric,
                                DigitalOutputModes output);

  /// @name Flat-field correction (FFC)
  FFCModes GetFFCMode();
  void SetFFCMode(FFCModes mode);
  /// Frames from one automatic correction to the next, in the high-gain state; 0 to 30000, 0 for none.
  unsigned short GetFFCPeriod();
  ResponseStatuses SetFFCPeriod(unsigned short period);
  /// The change of the core's temperature that makes an automatic correction; 0 to 10 in the core's own steps.
  unsigned short GetFFCTempDelta();
  ResponseStatuses SetFFCTempDelta(unsigned short delta);
  /// How long before a correction the core's own video warns of it, in frames; 0 to 600.
  unsigned short GetFFCWarnTime();
  ResponseStatuses SetFFCWarnTime(unsigned short time);

  /// @name Digital outputs and synchronisation
  XPBusModes GetXPBusMode();
  void SetXPBusMode(XPBusModes mode);
  bool GetLVDSMode();  ///< true: on
  void SetLVDSMode(LVDSModes mode);
  /// True for DigitalOutputDepth::Bits8 and nothing else. keocam::settings::cmosBitDepth tells all depths apart.
  bool GetCMOSBitDepth();
  void SetCMOSBitDepth(DigitalOutputDepth depth);
  bool GetLVDSBitDepth();  ///< true for DigitalOutputDepth::Bits8
  /// Bits14 and Bits8 only.
  void SetLVDSBitDepth(DigitalOutputDepth depth);
  ExternalSyncModes GetExternalSync();
  void SetExternalSync(ExternalSyncModes mode);
  TestPatterns GetTestPattern();
  void SetTestPattern(TestPatterns pattern);

  /// @name Picture
  /// One value on the core holds both: each setter reads the other first and, if that fails, takes it for off.
  bool GetInvertVideo();
  void SetInvertVideo(bool invert);
  bool GetRevertVideo();
  void SetRevertVideo(bool revert);

  /// @name The core's own video. Raw values are not touched by these.
  /// All 14 are sent and read back by their number.
  Palettes GetPalette();
  void SetPalette(Palettes palette);
  /// Always false with a core of today, whether the video is on or off; applications rely on it. The truth is
  /// keocam::settings::analogVideo.
  bool GetAnalogVideo();
  void SetAnalogVideo(bool on);
  bool GetVideoColorMode();  ///< true: colour
  void SetVideoColorMode(VideoColorModes mode);
  VideoStandards GetVideoStandard();
  /// A standard that the core has is followed by a flat-field correction, whatever the outcome.
  void SetVideoStandards(VideoStandards standard);
  SpotDisplayModes GetSpotDisplayMode();
  void SetSpotDisplayMode(SpotDisplayModes mode);
  SpotMeterModes GetSpotMeterMode();
  void SetSpotMeterMode(SpotMeterModes mode);

  /// @name Gain control and detail of the core's own video
  AGCTypes GetAGCType();
  /// Ends the process by SIGSEGV for every type, with nothing sent; a defect that is kept as it is. Applications call
  /// keocam::writeSetting with keocam::settings::agcType instead.
  void SetAGCType(AGCTypes type);
  unsigned short GetContrast();
  ResponseStatuses SetContrast(unsigned short contrast);  ///< 0 to 255
  unsigned short GetBrightness();
  ResponseStatuses SetBrightness(unsigned short brightness);  ///< 0 to 16383
  short GetBrightnessBias();
  ResponseStatuses SetBrightnessBias(short bias);
  unsigned short GetAGCFilter();
  ResponseStatuses SetAGCFilter(unsigned short filter);  ///< 0 to 255
  unsigned short GetPlateauLevel();
  ResponseStatuses SetPlateauLevel(unsigned short level);  ///< 0 to 4095
  unsigned short GetAGCMidpoint();
  ResponseStatuses SetAGCMidpoint(unsigned short midpoint);  ///< 0 to 255
  unsigned short GetMaxACGGain();
  ResponseStatuses SetMaxACGGain(unsigned short gain);  ///< 0 to 255
  unsigned short GetDDEGain();
  ResponseStatuses SetDDEGain(unsigned short gain);
  /// 4294967040 (-256) if the exchange failed.
  unsigned int GetSpatialTreshold();
  /// 0 to 65279: the core holds 256 more, of which only 16 bits are sent.
  ResponseStatuses SetSpatialTreshold(unsigned int threshold);

  /// @name Isotherms
  /// One block on the core holds unit and thresholds: each setter reads the three others first, in an exchange each,
  /// and, if that fails, takes them for 0 and percent. Thresholds are in the block's unit; the lower one is -128 to
  /// 127.
  ThresholdUnits GetIsothermThresholdUnit();  ///< percent if the exchange failed
  void SetIsothermThresholdUnit(ThresholdUnits unit);
  short GetIsothermThresholdLower();
  /// The low byte of `threshold` is sent.
  ResponseStatuses SetIsothermThresholdLower(short threshold);
  short GetIsothermThresholdMiddle();
  ResponseStatuses SetIsothermThresholdMiddle(short threshold);
  short GetIsothermThresholdUpper();
  ResponseStatuses SetIsothermThresholdUpper(short threshold);

  // Radiometry. These stand on the model in force, see radiometry/RadiometricModel.h.

  /// @name Object parameters
  /// Those of the process, which all cameras share. Getters do not ask the core. Setters do nothing if the value is
  /// the present one; else they store it, and RecalculateConstants follows. Only emissivity is limited.
  double GetEmissivity();
  /// 0.5 to 1, which others are brought to. A radiometric core is told, in any mode.
  void SetEmissivity(double emissivityValue);
  double GetReflectedTemperatureK();
  double GetReflectedTemperatureC();
  /// The core is told while it is in radiometry mode, in whole degrees Celsius; 0 for those below.
  void SetReflectedTemperatureK(double kelvin);
  void SetReflectedTemperatureC(double celsius);
  double GetAtmosphericTemperatureK();
  double GetAtmospericTemperatureC();
  /// The core is told while it is in radiometry mode, in hundredths of a degree Celsius; 0 for those below 0.
  void SetAtmosphericTemperatureK(double kelvin);
  void SetAtmospericTemperatureC(double celsius);
  double GetDistance();  ///< metres
  void SetDistance(double metres);
  double GetHumidity();  ///< relative, 0.5 for 50 %
  void SetHumidity(double fraction);

  /// @name Object parameters in the core, which uses them in radiometry mode. The process' own stay as they are.
  /// keocam::readCoreObjectParameter and its like in radiometry/CoreObjectParameters.h tell the status too.
  void SetRadEmissivityTemp(double emissivityValue);  ///< 0.5 to 1, which others are brought to
  void SetRadReflectedTemp(double kelvin);            ///< as SetReflectedTemperatureK tells it
  void SetRadAtmosphericTemp(double kelvin);          ///< as SetAtmosphericTemperatureK tells it
  double GetRadEmissivityTemp();
  double GetRadReflectedTemp();  ///< kelvin; 273.15 if the exchange failed
  /// Kelvin; 273.15 if the exchange failed. Prints two lines on standard output, "0" and the result, as it always has.
  double GetRadAtmosphericTemp();
  /// Tells the core the process' three.
  void SetRadiometricParameters();

  /// @name Radiometry mode, in which the core sends temperatures instead of raw counts
  bool GetIsRadiometric();   ///< `isRadiometric`; does not ask the core
  bool GetRadiometryMode();  ///< `radiometryMode`; does not ask the core
  /// Switching on tells the core the process' object parameters, and chooses the high resolution in LowRange, the low
  /// one in the other two ranges. A core that is not radiometric is not asked, and the mode is then off.
  void SetRadiometryMode(bool on);
  /// 0.04 K per count if high, else 0.4 K.
  void SetRadiometryHighResolutionMode(bool high);
  /// Asks the core; sets `radiometrySelector` to 0.
  bool GetRadiometryHighResolutionMode();

  /// @name Ranges
  RangeModes GetRangeMode();  ///< the range last accepted
  /// Sets the core's gain, the model's constants and the resolution of radiometry mode, has the core use the lens'
  /// table of that range, and corrects the flat field. Takes 2 to 4 seconds. HighRange needs a lens that has it, see
  /// GetHighRangeLensAvailable; else a line on standard error says so, and nothing changes. Without a calibration the
  /// range in force is applied once more, whichever was asked for. Throws std::out_of_range if there are lenses but not
  /// the selected one. keocam::changeRange in radiometry/RangeChange.h tells what came of it.
  void SetRangeMode(RangeModes mode);
  /// The gain, the constants and the correction of a range, for SetRangeMode; the range in force stays.
  void SetGainMode(RangeModes mode);

  /// @name Temperatures of pixels. keocam::TemperatureConverter converts whole frames, with the same results.
  /// Degrees Celsius of a pixel's raw value: by the model, from LowerCameraLimit to UpperCameraLimit, or as the core
  /// sends it in radiometry mode; then calibrateTemperatureC. NaN where the model has no temperature for it.
  double RawToTemp(unsigned short raw);
  /// A raw value for a temperature in kelvin by the constants `R`, `K1` and `K2`, of which the library leaves the last
  /// two 0: it is of use once they are set. No atmosphere, emissivity or correction. 0 for negative values and NaN, at
  /// most 4294967295. keocam::TemperatureModel::raw is the inverse of RawToTemp.
  unsigned int TempToRaw(double kelvin);
  /// Brings TauAtm, Matm and Mbgr up to date after the object parameters or constants were assigned directly.
  void RecalculateConstants();
  /// The selected lens' correction of a temperature in degrees Celsius, in the present range, at the core's temperature
  /// to the nearest degree. More than 60 seconds after that was last read it is read first. Without a calibration,
  /// nothing is read and the temperature is returned as it is. Throws std::out_of_range if there are lenses but not the
  /// selected one.
  double calibrateTemperatureC(double celsius);

  /// @name Commands
  /// 0 if the core answers, else -1.
  int DoNothing();
  /// One flat-field correction. The core may answer before it is done.
  ResponseStatuses DoFFC();
  /// Makes the present settings those that the core powers up with.
  ResponseStatuses DoSetDefaults();
  /// Restarts the core, which may be silent for seconds after its answer.
  ResponseStatuses DoCameraReset();
  /// Makes the factory's settings the present ones and those that the core powers up with.
  ResponseStatuses DoRestoreFactoryDefaults();

  /// @name Temperatures, in degrees Celsius
  double GetShutterTemperature();
  /// Also stored in coreTemperature, and the time in coreTemperatureTimer, even if the exchange failed.
  double GetSensorTemperature();
  double GetHousingTemperature();

  /// @name Identity
  unsigned int GetCameraSerialNumber();
  /// Ends the process after it has read the numbers; a defect that is kept as it is. Applications call
  /// keocam::readSerialNumbers instead.
  unsigned int GetSensorSerialNumber();
  /// The versions come with their two bytes exchanged: 1 reads as 256. keocam::readVersions gives plain numbers.
  unsigned short GetSWMajorVersion();
  unsigned short GetSWMinorVersion();
  unsigned short GetFWMajorVersion();
  unsigned short GetFWMinorVersion();

  // Identification. All but CheckPartNumber go by the part number in use, and ask nothing of the core.

  /// Asks the core for its part number. Returns 0, or -1 if that failed: the part numbers are then the former ones, and
  /// GetIsSupported is false. One of the alternative form, which tells a model, is replaced by that which stands for
  /// the model. An unknown one is no failure.
  int CheckPartNumber();
  /// Imposes the part number that stands for a core, and calls it supported. A value that is no resolution leaves the
  /// part number as it is.
  void SetPartNumber(Resolution resolution, bool fast);
  std::string GetCameraPartNumber();  ///< as the core last told it
  std::string GetPartNumber();        ///< the one in use
  bool GetIsSupported();              ///< the part number in use is known
  /// Pixels; -1 for an unknown part number. These two, GetManufacturer and GetModel throw std::out_of_range for a part
  /// number of fewer than 5 characters, GetIsFastVideoSpeed below 11 and CheckIsRadimetric below 12.
  int GetResolutionX();
  int GetResolutionY();
  bool GetIsFastVideoSpeed();
  bool CheckIsRadimetric();       ///< the core can measure temperatures
  std::string GetManufacturer();  ///< empty for an unknown part number
  std::string GetModel();         ///< "KEO_" and GetResolutionX
  /// As the calibration tells it: 0 slow, 1 fast, 2 fastest. Where it does not, GetIsFastVideoSpeed.
  int GetCameraSpeed();

  /// Brings device and core into the state that the rest assumes, which Camera::Connect does too: 14-bit frames of the
  /// core's size, the bridge at 57600 baud, radiometry where the core has it, default object parameters, automatic
  /// flat-field correction, LowRange; then corrects the flat field. Takes 3 seconds and a few exchanges. Returns 0, or
  /// -1 if the device is not connected or the core does not tell its part number, after up to 5 seconds; video then
  /// comes as the core happens to be set. Nothing else is a failure: a core of an unknown part number, for which
  /// GetIsSupported is false, keeps the device's frame size. Throws std::out_of_range for a part number of fewer than
  /// 12 characters.
  int SetDefault();

  // Calibration and lenses. These stand on the calibration in force, see calibration/Calibration.h.

  /// Replaces the calibration in force by that of a text: its lenses, and with version 3 and above the speed class of
  /// the serial number, with others none; the first lens is selected, and nothing is sent. An empty text, or a version
  /// that is negative as a 32-bit number, leaves no lenses. Throws std::invalid_argument (version, a "BB:" without
  /// digit or at the text's end, serial number), std::out_of_range (a version too large, a value beyond the text's end,
  /// a serial number of fewer than 4 characters) and std::length_error (a table larger than its place); lenses before
  /// the fault are then in force. Each lens takes 4 MB, none of them on the stack; without that memory it throws
  /// std::bad_alloc, and none is in force.
  void setCalibrationData(std::string calibrationText, std::string calibrationVersion, std::string serialNumber);
  /// The lenses' names, in the order of the calibration.
  std::vector<std::string> GetAvailibleLenses();
  /// The lens whose tables the core holds, see CheckCameraSffc; it becomes the selected one. Empty if there is none;
  /// without lenses nothing is sent.
  std::string GetCurrentLense();
  /// Selects a lens: the first of that very name. Returns 1, or 0 for an unknown lens, which a line on standard error
  /// names and which changes nothing. Waits a second; then, if the
  /// lens has tables, writes them into the core, which takes minutes, makes the core use them, corrects the flat field,
  /// and waits another second. The lens is selected whether that succeeds or not: keocam::changeLens tells, reports
  /// progress and can be cancelled.
  int SetLens(std::string name);
  /// False while SetLens or keocam::changeLens changes tables. Any thread may ask; the member behind it is not to be
  /// read there.
  bool isSetLensReady();
  /// The selected lens measures in HighRange; false without lenses. Throws std::out_of_range if there are lenses but
  /// not that one.
  bool GetHighRangeLensAvailable();
  /// Makes the core use the table of the present range. 0, or -1 if the core does not answer.
  int changeSFFCLens();
  /// Writes the selected lens' table for LowRange into the core. 0, or -1 on failure: nothing is touched if the core
  /// does not say where its table is or has one of another size; later failures leave it partly erased or written. Each
  /// piece is sent once, and of its answer nothing is looked at: keocam::changeLens sends again what got lost.
  /// Throws std::out_of_range if there is no such lens.
  int switchSFFC1();
  /// The same for the table of MiddleRange and HighRange.
  int switchSFFC2();
  /// The index of the first lens whose table the core holds, by four samples of 128 bytes of the table for MiddleRange;
  /// it becomes the selected one. -1 if there is none, if there are no lenses (nothing is then sent), or if the core
  /// does not say where its table is. A sample that does not come whole matches no lens.
  int CheckCameraSffc();

  PvDevice* device;
  PvDeviceSerial serialPort;
  bool isRadiometric = false;   ///< the core can measure temperatures; set by SetDefault
  bool radiometryMode = false;  ///< radiometry is switched on
  bool radiometryHighResolutionMode = false;
  std::string cameraPartNumber;     ///< as read from the core
  std::string partNumber;           ///< the one in use
  bool isSupported = false;         ///< the part number in use is known
  uint32_t temperatureSensor = 0;   ///< what TEMPERATURE reads: 0 sensor, 1 housing
  uint32_t radiometrySelector = 1;  ///< what RADIOMETRY means: 0 high resolution, 1 radiometry itself
  bool debugMessages = false;
  bool setLensReady = true;  ///< false while a lens change is under way
  RangeModes rangeMode = LowRange;
};

using RangeModes = CameraSerialSettings::RangeModes;
