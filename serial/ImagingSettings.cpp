// Getters and setters of the imaging settings: each is a line over the table of settings.
#include "serial/CameraSerialSettings.h"
#include "serial/CoreSettings.h"
#include "serial/SettingAccess.h"

using keocam::Setting;
namespace settings = keocam::settings;

namespace {

template <typename T>
T get(CameraSerialSettings& core, const Setting<T>& setting) {
  return static_cast<T>(keocam::getLeniently(core, setting));
}

template <typename T>
ResponseStatuses set(CameraSerialSettings& core, const Setting<T>& setting, T value) {
  return keocam::setLeniently(core, setting, static_cast<int>(value));
}

ResponseStatuses setInvertAndRevert(CameraSerialSettings& core, bool invert, bool revert) {
  keocam::SettingPayload payload{};
  encodeSetting(settings::invertVideo, invert ? 1 : 0, payload);
  encodeSetting(settings::revertVideo, revert ? 1 : 0, payload);
  return core.SetParameter(INVERT_REVERT_VIDEO, &payload[1], RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
}

struct Isotherms {
  ThresholdUnits unit;
  short lower;
  short middle;
  short upper;
};

ResponseStatuses setIsotherms(CameraSerialSettings& core, const Isotherms& isotherms) {
  keocam::SettingPayload block{};
  encodeSetting(settings::isothermUnit, static_cast<int>(isotherms.unit), block);
  encodeSetting(settings::isothermLower, isotherms.lower, block);
  encodeSetting(settings::isothermMiddle, isotherms.middle, block);
  encodeSetting(settings::isothermUpper, isotherms.upper, block);
  return core.SetParameter(ISOTHERM_THRESHOLDS, block.data(), RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
}

}  // namespace

FFCModes CameraSerialSettings::GetFFCMode() { return get(*this, settings::ffcMode); }
void CameraSerialSettings::SetFFCMode(FFCModes mode) { set(*this, settings::ffcMode, mode); }

unsigned short CameraSerialSettings::GetFFCPeriod() { return get(*this, settings::ffcPeriod); }
ResponseStatuses CameraSerialSettings::SetFFCPeriod(unsigned short period) {
  return set(*this, settings::ffcPeriod, period);
}

unsigned short CameraSerialSettings::GetFFCTempDelta() { return get(*this, settings::ffcTempDelta); }
ResponseStatuses CameraSerialSettings::SetFFCTempDelta(unsigned short delta) {
  return set(*this, settings::ffcTempDelta, delta);
}

unsigned short CameraSerialSettings::GetFFCWarnTime() { return get(*this, settings::ffcWarnTime); }
ResponseStatuses CameraSerialSettings::SetFFCWarnTime(unsigned short time) {
  return set(*this, settings::ffcWarnTime, time);
}

XPBusModes CameraSerialSettings::GetXPBusMode() { return get(*this, settings::xpBusMode); }
void CameraSerialSettings::SetXPBusMode(XPBusModes mode) { set(*this, settings::xpBusMode, mode); }

bool CameraSerialSettings::GetLVDSMode() { return get(*this, settings::lvdsMode) == LVDSModes::On; }
void CameraSerialSettings::SetLVDSMode(LVDSModes mode) { set(*this, settings::lvdsMode, mode); }

bool CameraSerialSettings::GetCMOSBitDepth() { return get(*this, settings::cmosBitDepth) == DigitalOutputDepth::Bits8; }
void CameraSerialSettings::SetCMOSBitDepth(DigitalOutputDepth depth) { set(*this, settings::cmosBitDepth, depth); }

bool CameraSerialSettings::GetLVDSBitDepth() { return get(*this, settings::lvdsBitDepth) == DigitalOutputDepth::Bits8; }
void CameraSerialSettings::SetLVDSBitDepth(DigitalOutputDepth depth) { set(*this, settings::lvdsBitDepth, depth); }

ExternalSyncModes CameraSerialSettings::GetExternalSync() { return get(*this, settings::externalSync); }
void CameraSerialSettings::SetExternalSync(ExternalSyncModes mode) { set(*this, settings::externalSync, mode); }

TestPatterns CameraSerialSettings::GetTestPattern() { return get(*this, settings::testPattern); }
void CameraSerialSettings::SetTestPattern(TestPatterns pattern) { set(*this, settings::testPattern, pattern); }

bool CameraSerialSettings::GetInvertVideo() { return get(*this, settings::invertVideo); }
void CameraSerialSettings::SetInvertVideo(bool invert) { setInvertAndRevert(*this, invert, GetRevertVideo()); }

bool CameraSerialSettings::GetRevertVideo() { return get(*this, settings::revertVideo); }
void CameraSerialSettings::SetRevertVideo(bool revert) { setInvertAndRevert(*this, GetInvertVideo(), revert); }

Palettes CameraSerialSettings::GetPalette() { return get(*this, settings::palette); }
void CameraSerialSettings::SetPalette(Palettes palette) { set(*this, settings::palette, palette); }

bool CameraSerialSettings::GetAnalogVideo() {
  uint8_t reply[2] = {0, 0};
  GetParameter(ANALOG_VIDEO, reply, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
  // The bytes are taken in the wrong order, so that both of the core's answers, 00 00 and 00 02, mean off.
  const unsigned int value = (reply[0] | static_cast<unsigned int>(reply[1]) << 8) % 32;
  return value != 0 && value != 3;
}
void CameraSerialSettings::SetAnalogVideo(bool on) { set(*this, settings::analogVideo, on); }

VideoStandards CameraSerialSettings::GetVideoStandard() { return get(*this, settings::videoStandard); }
void CameraSerialSettings::SetVideoStandards(VideoStandards standard) {
  if (!hasValue(settings::videoStandard, static_cast<int>(standard))) return;
  set(*this, settings::videoStandard, standard);
  DoFFC();
}

bool CameraSerialSettings::GetVideoColorMode() {
  return get(*this, settings::videoColorMode) == VideoColorModes::Color;
}
void CameraSerialSettings::SetVideoColorMode(VideoColorModes mode) { set(*this, settings::videoColorMode, mode); }

SpotDisplayModes CameraSerialSettings::GetSpotDisplayMode() { return get(*this, settings::spotDisplayMode); }
void CameraSerialSettings::SetSpotDisplayMode(SpotDisplayModes mode) { set(*this, settings::spotDisplayMode, mode); }

SpotMeterModes CameraSerialSettings::GetSpotMeterMode() { return get(*this, settings::spotMeterMode); }
void CameraSerialSettings::SetSpotMeterMode(SpotMeterModes mode) { set(*this, settings::spotMeterMode, mode); }

AGCTypes CameraSerialSettings::GetAGCType() { return get(*this, settings::agcType); }
void CameraSerialSettings::SetAGCType(AGCTypes type) { set(*this, settings::agcType, type); }

unsigned short CameraSerialSettings::GetContrast() { return get(*this, settings::contrast); }
ResponseStatuses CameraSerialSettings::SetContrast(unsigned short contrast) {
  return set(*this, settings::contrast, contrast);
}

unsigned short CameraSerialSettings::GetBrightness() { return get(*this, settings::brightness); }
ResponseStatuses CameraSerialSettings::SetBrightness(unsigned short brightness) {
  return set(*this, settings::brightness, brightness);
}

short CameraSerialSettings::GetBrightnessBias() { return get(*this, settings::brightnessBias); }
ResponseStatuses CameraSerialSettings::SetBrightnessBias(short bias) {
  return set(*this, settings::brightnessBias, bias);
}

unsigned short CameraSerialSettings::GetAGCFilter() { return get(*this, settings::agcFilter); }
ResponseStatuses CameraSerialSettings::SetAGCFilter(unsigned short filter) {
  return set(*this, settings::agcFilter, filter);
}

unsigned short CameraSerialSettings::GetPlateauLevel() { return get(*this, settings::plateauLevel); }
ResponseStatuses CameraSerialSettings::SetPlateauLevel(unsigned short level) {
  return set(*this, settings::plateauLevel, level);
}

unsigned short CameraSerialSettings::GetAGCMidpoint() { return get(*this, settings::agcMidpoint); }
ResponseStatuses CameraSerialSettings::SetAGCMidpoint(unsigned short midpoint) {
  return set(*this, settings::agcMidpoint, midpoint);
}

unsigned short CameraSerialSettings::GetMaxACGGain() { return get(*this, settings::maxAgcGain); }
ResponseStatuses CameraSerialSettings::SetMaxACGGain(unsigned short gain) {
  return set(*this, settings::maxAgcGain, gain);
}

unsigned short CameraSerialSettings::GetDDEGain() { return get(*this, settings::ddeGain); }
ResponseStatuses CameraSerialSettings::SetDDEGain(unsigned short gain) { return set(*this, settings::ddeGain, gain); }

unsigned int CameraSerialSettings::GetSpatialTreshold() { return get(*this, settings::spatialThreshold); }
ResponseStatuses CameraSerialSettings::SetSpatialTreshold(unsigned int threshold) {
  // Only 16 bits of the sum reach the core.
  auto raised = static_cast<uint16_t>(threshold + 256);
  return SetParameter(SPATIAL_THRESHOLD, &raised, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
}

ThresholdUnits CameraSerialSettings::GetIsothermThresholdUnit() { return get(*this, settings::isothermUnit); }
void CameraSerialSettings::SetIsothermThresholdUnit(ThresholdUnits unit) {
  if (!hasValue(settings::isothermUnit, static_cast<int>(unit))) return;
  const short lower = GetIsothermThresholdLower();
  const short middle = GetIsothermThresholdMiddle();
  setIsotherms(*this, {unit, lower, middle, GetIsothermThresholdUpper()});
}

short CameraSerialSettings::GetIsothermThresholdLower() { return get(*this, settings::isothermLower); }
ResponseStatuses CameraSerialSettings::SetIsothermThresholdLower(short threshold) {
  const ThresholdUnits unit = GetIsothermThresholdUnit();
  const short middle = GetIsothermThresholdMiddle();
  return setIsotherms(*this, {unit, threshold, middle, GetIsothermThresholdUpper()});
}

short CameraSerialSettings::GetIsothermThresholdMiddle() { return get(*this, settings::isothermMiddle); }
ResponseStatuses CameraSerialSettings::SetIsothermThresholdMiddle(short threshold) {
  const ThresholdUnits unit = GetIsothermThresholdUnit();
  const short lower = GetIsothermThresholdLower();
  return setIsotherms(*this, {unit, lower, threshold, GetIsothermThresholdUpper()});
}

short CameraSerialSettings::GetIsothermThresholdUpper() { return get(*this, settings::isothermUpper); }
ResponseStatuses CameraSerialSettings::SetIsothermThresholdUpper(short threshold) {
  const ThresholdUnits unit = GetIsothermThresholdUnit();
  const short lower = GetIsothermThresholdLower();
  return setIsotherms(*this, {unit, lower, GetIsothermThresholdMiddle(), threshold});
}

bool CameraSerialSettings::GetRadiometryHighResolutionMode() {
  radiometrySelector = 0;
  unsigned short word = 0;
  GetParameter(RADIOMETRY, &word, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
  return word != 0;
}
