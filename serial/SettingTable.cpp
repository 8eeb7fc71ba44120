// The rows of all settings: the names, numbers and words of each.
#include <algorithm>
#include <array>

#include "serial/CoreSettings.h"

namespace keocam {
namespace {

// Value, wire, name. Where value and wire differ, the interface's order is not the core's.
constexpr std::array<SettingChoice, 2> kSwitch = {{{0, 0, "off"}, {1, 1, "on"}}};
constexpr std::array<SettingChoice, 2> kAnalogVideo = {{{0, 2, "off"}, {1, 0, "on"}}};
constexpr std::array<SettingChoice, 3> kFfcModes = {{{0, 0, "manual"}, {1, 1, "automatic"}, {2, 2, "external"}}};
constexpr std::array<SettingChoice, 3> kXpBusModes = {{{0, 0, "off"}, {1, 1, "bt656"}, {2, 2, "cmos"}}};
constexpr std::array<SettingChoice, 4> kCmosDepths = {
    {{0, 0, "14-bit"}, {1, 1, "8-bit"}, {2, 2, "8-bit-bayer"}, {3, 3, "16-bit-ycbcr"}}};
constexpr std::array<SettingChoice, 2> kLvdsDepths = {{{0, 0, "14-bit"}, {1, 1, "8-bit"}}};
constexpr std::array<SettingChoice, 7> kTestPatterns = {{
    {0, 0, "off"},
    {1, 1, "ramp"},
    {2, 3, "vertical-bars"},
    {3, 4, "horizontal-shade"},
    {4, 5, "factory"},
    {5, 6, "color-bars"},
    {6, 8, "stepped-ramp"},
}};
constexpr std::array<SettingChoice, 3> kExternalSyncModes = {{{0, 0, "off"}, {1, 2, "master"}, {2, 1, "slave"}}};
constexpr std::array<SettingChoice, 14> kPalettes = {{
    {0, 0, "white-hot"},
    {1, 1, "black-hot"},
    {2, 2, "fusion"},
    {3, 3, "rainbow"},
    {4, 4, "glowbow"},
    {5, 5, "ironbow-1"},
    {6, 6, "ironbow-2"},
    {7, 7, "sepia"},
    {8, 8, "color-1"},
    {9, 9, "color-2"},
    {10, 10, "ice-and-fire"},
    {11, 11, "rain"},
    {12, 12, "red-hot"},
    {13, 13, "green-hot"},
}};
constexpr std::array<SettingChoice, 2> kColorModes = {{{0, 0, "monochrome"}, {1, 1, "color"}}};
constexpr std::array<SettingChoice, 5> kVideoStandards = {
    {{0, 0, "ntsc"}, {1, 1, "pal"}, {2, kNotOnTheWire, "reserved"}, {3, 4, "ntsc-60hz"}, {4, 5, "pal-50hz"}}};
constexpr std::array<SettingChoice, 4> kSpotDisplayModes = {
    {{0, 0, "off"}, {1, 1, "number"}, {2, 2, "bar"}, {3, 3, "number-and-bar"}}};
constexpr std::array<SettingChoice, 3> kSpotMeterModes = {{{0, 0, "off"}, {1, 1, "fahrenheit"}, {2, 2, "celsius"}}};
constexpr std::array<SettingChoice, 6> kAgcTypes = {{
    {0, 0, "plateau-histogram"},
    {1, 1, "once-bright"},
    {2, 2, "auto-bright"},
    {3, 3, "manual"},
    {4, 4, "reserved"},
    {5, 5, "linear"},
}};
constexpr std::array<SettingChoice, 2> kThresholdUnits = {{{0, 0, "celsius"}, {1, 1, "percent"}}};

template <std::size_t N>
constexpr SettingChoices of(const std::array<SettingChoice, N>& choices) {
  return {choices.data(), choices.size()};
}

struct Words {
  const char* name;
  const char* meaning;
  const char* unit = "";
};

template <std::size_t N>
constexpr SettingRow choice(const Words& words, FunctionCodes code, const std::array<SettingChoice, N>& choices,
                            SettingForm form = SettingForm::Choice) {
  return {words.name, words.meaning, words.unit, code, DIGITAL_OUTPUT_NONE, form, of(choices)};
}

template <std::size_t N>
constexpr SettingRow digitalOutput(const Words& words, DigitalOutputModes output,
                                   const std::array<SettingChoice, N>& choices) {
  return {words.name, words.meaning, words.unit, DIGITAL_OUTPUT_MODE, output, SettingForm::Choice, of(choices)};
}

constexpr SettingRow number(const Words& words, FunctionCodes code, SettingForm form = SettingForm::Word) {
  return {words.name, words.meaning, words.unit, code, DIGITAL_OUTPUT_NONE, form, {}};
}

}  // namespace

namespace settings {

constexpr Setting<FFCModes> ffcMode{choice({"ffc-mode", "when the core corrects its flat field"}, FFC_MODE, kFfcModes)};
constexpr Setting<unsigned short> ffcPeriod{
    number({"ffc-period", "time between automatic corrections, 0 for none", "frames"}, FFC_PERIOD)};
constexpr Setting<unsigned short> ffcTempDelta{
    number({"ffc-temp-delta", "change of temperature that makes an automatic correction"}, FFC_TEMP_DELTA)};
constexpr Setting<unsigned short> ffcWarnTime{
    number({"ffc-warn-time", "warning in the video before a correction", "frames"}, FFC_WARN_TIME)};
constexpr Setting<XPBusModes> xpBusMode{
    digitalOutput({"xp-bus-mode", "what the expansion bus carries"}, XP_BUS_MODE, kXpBusModes)};
constexpr Setting<LVDSModes> lvdsMode{digitalOutput({"lvds-mode", "the LVDS output"}, LVDS_MODE, kSwitch)};
constexpr Setting<DigitalOutputDepth> cmosBitDepth{
    digitalOutput({"cmos-bit-depth", "what a pixel of the CMOS output is"}, CMOS_BIT_DEPTH, kCmosDepths)};
constexpr Setting<DigitalOutputDepth> lvdsBitDepth{
    digitalOutput({"lvds-bit-depth", "what a pixel of the LVDS output is"}, LVDS_BIT_DEPTH, kLvdsDepths)};
constexpr Setting<ExternalSyncModes> externalSync{
    choice({"external-sync", "who gives the frame clock"}, EXTERNAL_SYNC, kExternalSyncModes)};
constexpr Setting<TestPatterns> testPattern{
    choice({"test-pattern", "a pattern in the picture's place"}, TEST_PATTERN, kTestPatterns)};
constexpr Setting<bool> invertVideo{
    choice({"invert-video", "picture upside down"}, INVERT_REVERT_VIDEO, kSwitch, SettingForm::LowBit)};
constexpr Setting<bool> revertVideo{
    choice({"revert-video", "picture mirrored left to right"}, INVERT_REVERT_VIDEO, kSwitch, SettingForm::SecondBit)};
constexpr Setting<Palettes> palette{choice({"palette", "colours of the core's own video"}, PALETTE, kPalettes)};
constexpr Setting<bool> analogVideo{
    choice({"analog-video", "the analog output"}, ANALOG_VIDEO, kAnalogVideo, SettingForm::AnalogVideo)};
constexpr Setting<VideoColorModes> videoColorMode{
    choice({"video-color-mode", "colour of the core's own video"}, VIDEO_COLOR_MODE, kColorModes)};
constexpr Setting<VideoStandards> videoStandard{
    choice({"video-standard", "standard and frame rate of the core's video"}, VIDEO_STANDARD, kVideoStandards)};
constexpr Setting<SpotDisplayModes> spotDisplayMode{
    choice({"spot-display-mode", "how the spot meter shows in the video"}, SPOT_DISPLAY_MODE, kSpotDisplayModes)};
constexpr Setting<SpotMeterModes> spotMeterMode{
    choice({"spot-meter-mode", "the spot meter and its unit"}, SPOT_METER_MODE, kSpotMeterModes)};
constexpr Setting<AGCTypes> agcType{
    choice({"agc-type", "how the core's own video is stretched to 8 bits"}, AGC_TYPE, kAgcTypes)};
constexpr Setting<unsigned short> contrast{number({"contrast", "of the core's own video"}, CONTRAST)};
constexpr Setting<unsigned short> brightness{number({"brightness", "of the core's own video", "counts"}, BRIGHTNESS)};
constexpr Setting<short> brightnessBias{
    number({"brightness-bias", "of the core's own video", "counts"}, BRIGHTNESS_BIAS, SettingForm::SignedWord)};
constexpr Setting<unsigned short> agcFilter{
    number({"agc-filter", "how slowly gain control follows the scene"}, AGC_FILTER)};
constexpr Setting<unsigned short> plateauLevel{
    number({"plateau-level", "where gain control clips the histogram"}, PLATEAU_LEVEL)};
constexpr Setting<unsigned short> agcMidpoint{
    number({"agc-midpoint", "grey in the middle of gain control"}, AGC_MIDPOINT)};
constexpr Setting<unsigned short> maxAgcGain{number({"max-agc-gain", "largest gain of gain control"}, MAX_AGC_GAIN)};
constexpr Setting<unsigned short> ddeGain{number({"dde-gain", "gain of detail enhancement"}, DDE_GAIN)};
constexpr Setting<unsigned int> spatialThreshold{
    number({"spatial-threshold", "of detail enhancement"}, SPATIAL_THRESHOLD, SettingForm::WordAbove256)};
constexpr Setting<ThresholdUnits> isothermUnit{choice({"isotherm-unit", "unit of the isotherm thresholds"},
                                                      ISOTHERM_THRESHOLDS, kThresholdUnits, SettingForm::IsothermUnit)};
constexpr Setting<short> isothermLower{
    number({"isotherm-lower", "lower isotherm threshold"}, ISOTHERM_THRESHOLDS, SettingForm::IsothermLower)};
constexpr Setting<short> isothermMiddle{
    number({"isotherm-middle", "middle isotherm threshold"}, ISOTHERM_THRESHOLDS, SettingForm::IsothermMiddle)};
constexpr Setting<short> isothermUpper{
    number({"isotherm-upper", "upper isotherm threshold"}, ISOTHERM_THRESHOLDS, SettingForm::IsothermUpper)};

}  // namespace settings

namespace {

constexpr std::array<const SettingRow*, 32> kAll = {
    &settings::ffcMode,         &settings::ffcPeriod,      &settings::ffcTempDelta,   &settings::ffcWarnTime,
    &settings::xpBusMode,       &settings::lvdsMode,       &settings::cmosBitDepth,   &settings::lvdsBitDepth,
    &settings::externalSync,    &settings::testPattern,    &settings::invertVideo,    &settings::revertVideo,
    &settings::palette,         &settings::analogVideo,    &settings::videoColorMode, &settings::videoStandard,
    &settings::spotDisplayMode, &settings::spotMeterMode,  &settings::agcType,        &settings::contrast,
    &settings::brightness,      &settings::brightnessBias, &settings::agcFilter,      &settings::plateauLevel,
    &settings::agcMidpoint,     &settings::maxAgcGain,     &settings::ddeGain,        &settings::spatialThreshold,
    &settings::isothermUnit,    &settings::isothermLower,  &settings::isothermMiddle, &settings::isothermUpper,
};

}  // namespace

SettingRows allSettings() { return {kAll.data(), kAll.size()}; }

const SettingRow* findSetting(std::string_view name) {
  const auto* const found =
      std::find_if(kAll.begin(), kAll.end(), [name](const SettingRow* row) { return row->name == name; });
  return found != kAll.end() ? *found : nullptr;
}

}  // namespace keocam
