#include "simulator/core/CoreIdentity.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace simulator {
namespace {

constexpr std::size_t kPartNumberBytes = 32;
constexpr char kPadding = '^';
constexpr std::size_t kSpeedLetter = 10;
constexpr std::size_t kRadiometryLetter = 11;
constexpr std::size_t kAlternativeSpeedLetter = 14;
constexpr std::size_t kResolution = 2;
constexpr std::size_t kModelCode = 6;
constexpr std::string_view kResolutions[] = {"640", "336", "324", "168", "162", "160"};
constexpr std::string_view kModelCodes[] = {"73", "85", "77", "81", "87"};

template <std::size_t N>
bool hasOneOf(const std::string& text, std::size_t at, const std::string_view (&parts)[N]) {
  return std::any_of(std::begin(parts), std::end(parts), [&](std::string_view part) {
    return text.size() > at && text.compare(at, part.size(), part) == 0;
  });
}

bool isAlternativeForm(const std::string& part_number) {
  return !hasOneOf(part_number, kResolution, kResolutions) && hasOneOf(part_number, kModelCode, kModelCodes);
}

char letterAt(const CoreIdentity& identity, std::size_t at) {
  return at < identity.part_number.size() ? identity.part_number[at] : '\0';
}

}  // namespace

void checkPartNumber(const std::string& part_number) {
  const bool printable = std::all_of(part_number.begin(), part_number.end(),
                                     [](char letter) { return letter >= ' ' && letter <= '~' && letter != kPadding; });
  if (part_number.empty() || part_number.size() > kPartNumberBytes || !printable) {
    throw std::invalid_argument("'" + part_number +
                                "' does not serve as a part number: it needs 1 to 32 printable characters, none of "
                                "them '^'");
  }
}

bool isRadiometric(const CoreIdentity& identity) {
  const char letter = letterAt(identity, kRadiometryLetter);
  return letter == 'R' || letter == 'I';
}

bool isFast(const CoreIdentity& identity) {
  if (isAlternativeForm(identity.part_number)) return letterAt(identity, kAlternativeSpeedLetter) != 'S';
  return letterAt(identity, kSpeedLetter) == 'F';
}

CoreAbilities abilitiesOf(const CoreIdentity& identity) { return {isRadiometric(identity), isFast(identity)}; }

double coreFrameRateHz(const CoreIdentity& identity) { return isFast(identity) ? 30.0 : 9.0; }

std::optional<double> frameRateLimitHz(const CoreIdentity& identity) {
  if (isFast(identity)) return std::nullopt;
  return coreFrameRateHz(identity);
}

Bytes serialNumberAnswer(const CoreIdentity& identity) {
  Bytes bytes;
  appendU32(bytes, identity.core_serial);
  appendU32(bytes, identity.sensor_serial);
  return bytes;
}

Bytes versionAnswer(const CoreIdentity& identity) {
  Bytes bytes;
  const CoreVersions& versions = identity.versions;
  for (const uint16_t word :
       {versions.software_major, versions.software_minor, versions.firmware_major, versions.firmware_minor}) {
    appendU16(bytes, word);
  }
  return bytes;
}

Bytes partNumberAnswer(const CoreIdentity& identity) {
  Bytes bytes(identity.part_number.begin(), identity.part_number.end());
  bytes.resize(kPartNumberBytes, static_cast<uint8_t>(kPadding));
  return bytes;
}

}  // namespace simulator
