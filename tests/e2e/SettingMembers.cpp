#include "tests/e2e/SettingMembers.h"

#include <type_traits>

#include "serial/CoreSettings.h"
#include "simulator/core/FunctionTable.h"

namespace e2e {
namespace {

namespace settings = keocam::settings;
using Core = CameraSerialSettings;
using simulator::kCmosBitDepth;
using simulator::kLvdsBitDepth;
using simulator::kLvdsMode;
using simulator::kXpBusMode;

template <typename T>
struct ArgumentOf;
template <typename R, typename A>
struct ArgumentOf<R (Core::*)(A)> {
  using Type = A;
};

template <auto member>
void set(Core& core, int value) {
  (core.*member)(static_cast<typename ArgumentOf<decltype(member)>::Type>(value));
}

template <auto member>
int get(Core& core) {
  return static_cast<int>((core.*member)());
}

// SetAGCType ends the process.
void setAgcType(Core& core, int value) {
  keocam::writeSetting(core, static_cast<const keocam::SettingRow&>(settings::agcType), value);
}

constexpr int isEightBits(int depth) { return depth == static_cast<int>(DigitalOutputDepth::Bits8) ? 1 : 0; }
constexpr int never(int /*value*/) { return 0; }

// Values that the core holds as they are, in two's complement.
std::vector<SettingCase> same(const std::vector<int>& values, uint16_t mask = 0xFFFF) {
  std::vector<SettingCase> cases;
  cases.reserve(values.size());
  for (const int value : values) cases.push_back({value, static_cast<uint16_t>(static_cast<unsigned>(value) & mask)});
  return cases;
}

constexpr uint16_t kUnitBit = 0x8000;
constexpr uint16_t kLowByte = 0x00FF;

const std::vector<SettingMembers> kMembers = {
    {settings::ffcMode, {11}, same({0, 2, 1}), set<&Core::SetFFCMode>, get<&Core::GetFFCMode>},
    {settings::ffcPeriod, {13}, same({0, 1, 1800, 30000}), set<&Core::SetFFCPeriod>, get<&Core::GetFFCPeriod>},
    {settings::ffcTempDelta, {14}, same({0, 5, 10}), set<&Core::SetFFCTempDelta>, get<&Core::GetFFCTempDelta>},
    {settings::ffcWarnTime, {60}, same({0, 60, 600}), set<&Core::SetFFCWarnTime>, get<&Core::GetFFCWarnTime>},
    {settings::xpBusMode, {18, kXpBusMode}, same({1, 2, 0}), set<&Core::SetXPBusMode>, get<&Core::GetXPBusMode>},
    {settings::lvdsMode, {18, kLvdsMode}, same({0, 1}), set<&Core::SetLVDSMode>, get<&Core::GetLVDSMode>},
    {settings::cmosBitDepth,
     {18, kCmosBitDepth},
     same({1, 2, 3, 0}),
     set<&Core::SetCMOSBitDepth>,
     get<&Core::GetCMOSBitDepth>,
     isEightBits},
    {settings::lvdsBitDepth,
     {18, kLvdsBitDepth},
     same({1, 0}),
     set<&Core::SetLVDSBitDepth>,
     get<&Core::GetLVDSBitDepth>},
    {settings::externalSync, {33}, {{1, 2}, {2, 1}, {0, 0}}, set<&Core::SetExternalSync>, get<&Core::GetExternalSync>},
    {settings::testPattern,
     {37},
     {{1, 1}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {6, 8}, {0, 0}},
     set<&Core::SetTestPattern>,
     get<&Core::GetTestPattern>},
    {settings::invertVideo,
     {17, 0, 0, 1},
     {{1, 1}, {0, 0}, {1, 1}},
     set<&Core::SetInvertVideo>,
     get<&Core::GetInvertVideo>},
    {settings::revertVideo,
     {17, 0, 0, 2},
     {{1, 2}, {0, 0}, {1, 2}},
     set<&Core::SetRevertVideo>,
     get<&Core::GetRevertVideo>},
    {settings::palette,
     {16},
     same({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 0}),
     set<&Core::SetPalette>,
     get<&Core::GetPalette>},
    {settings::analogVideo, {15}, {{0, 2}, {1, 0}}, set<&Core::SetAnalogVideo>, get<&Core::GetAnalogVideo>, never},
    {settings::videoColorMode, {38}, same({1, 0}), set<&Core::SetVideoColorMode>, get<&Core::GetVideoColorMode>},
    {settings::videoStandard,
     {114},
     {{1, 1}, {3, 4}, {4, 5}, {0, 0}},
     set<&Core::SetVideoStandards>,
     get<&Core::GetVideoStandard>},
    {settings::spotDisplayMode,
     {43},
     same({1, 2, 3, 0}),
     set<&Core::SetSpotDisplayMode>,
     get<&Core::GetSpotDisplayMode>},
    {settings::spotMeterMode, {31}, same({1, 2, 0}), set<&Core::SetSpotMeterMode>, get<&Core::GetSpotMeterMode>},
    {settings::agcType, {19}, same({1, 2, 3, 4, 5, 0}), setAgcType, get<&Core::GetAGCType>},
    {settings::contrast, {20}, same({0, 1, 128, 255}), set<&Core::SetContrast>, get<&Core::GetContrast>},
    {settings::brightness, {21}, same({0, 255, 256, 16383}), set<&Core::SetBrightness>, get<&Core::GetBrightness>},
    {settings::brightnessBias,
     {24},
     same({-16383, -256, -1, 0, 1, 16383}),
     set<&Core::SetBrightnessBias>,
     get<&Core::GetBrightnessBias>},
    {settings::agcFilter, {62}, same({0, 100, 255}), set<&Core::SetAGCFilter>, get<&Core::GetAGCFilter>},
    {settings::plateauLevel, {63}, same({0, 250, 4095}), set<&Core::SetPlateauLevel>, get<&Core::GetPlateauLevel>},
    {settings::agcMidpoint, {85}, same({0, 127, 255}), set<&Core::SetAGCMidpoint>, get<&Core::GetAGCMidpoint>},
    {settings::maxAgcGain, {106}, same({0, 12, 255}), set<&Core::SetMaxACGGain>, get<&Core::GetMaxACGGain>},
    {settings::ddeGain, {44}, same({0, 17, 255}), set<&Core::SetDDEGain>, get<&Core::GetDDEGain>},
    {settings::spatialThreshold,
     {227},
     {{0, 256}, {1, 257}, {255, 511}},
     set<&Core::SetSpatialTreshold>,
     get<&Core::GetSpatialTreshold>},
    {settings::isothermUnit,
     {35, 0, 0, kUnitBit},
     {{1, 0}, {0, kUnitBit}},
     set<&Core::SetIsothermThresholdUnit>,
     get<&Core::GetIsothermThresholdUnit>},
    {settings::isothermLower,
     {35, 0, 0, kLowByte},
     same({-128, -1, 0, 90, 127}, kLowByte),
     set<&Core::SetIsothermThresholdLower>,
     get<&Core::GetIsothermThresholdLower>},
    {settings::isothermMiddle,
     {35, 0, 1},
     same({-32768, -1, 0, 256, 32767}),
     set<&Core::SetIsothermThresholdMiddle>,
     get<&Core::GetIsothermThresholdMiddle>},
    {settings::isothermUpper,
     {35, 0, 2},
     same({-32768, -1, 0, 256, 32767}),
     set<&Core::SetIsothermThresholdUpper>,
     get<&Core::GetIsothermThresholdUpper>},
};

}  // namespace

const std::vector<SettingMembers>& settingMembers() { return kMembers; }

uint16_t bitsOf(const simulator::ThermalCore& core, const CorePlace& place) {
  const simulator::FunctionRow* const row = simulator::findRow(place.code, place.selector);
  return core.settings().words(*row)[place.word] & place.mask;
}

}  // namespace e2e
