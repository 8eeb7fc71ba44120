#include "apps/keocam/info/InfoSections.h"

#include "apps/keocam/info/CoreSections.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

using Json = nlohmann::ordered_json;

InfoEntry textEntry(const char* label, const char* key, const std::string& text) {
  return knownEntry(label, key, printable(text), text);
}

InfoSection cameraSection(const DeviceDetails& camera) {
  return {"CAMERA",
          "camera",
          {textEntry("Serial number", "serial_number", camera.serial_number), textEntry("Model", "model", camera.model),
           textEntry("Manufacturer", "manufacturer", camera.vendor), textEntry("Address", "address", camera.address),
           textEntry("MAC address", "mac_address", camera.mac_address),
           knownEntry("Interface", "interface",
                      printable(camera.interface_name) + ", " + printable(camera.interface_address),
                      camera.interface_name)}};
}

InfoEntry accessEntry(DeviceUse use) {
  switch (use) {
    case DeviceUse::Free:
    case DeviceUse::ThisProcess:
      return knownEntry("Access", "access", "free", "free");
    case DeviceUse::OtherHost:
      return knownEntry("Access", "access", "in use by another program or host", "in_use");
    case DeviceUse::NoAnswer:
      break;
  }
  return notReadEntry("Access", "access", "the camera does not answer");
}

InfoEntry linkEntry(const char* label, const char* key, uint32_t value, const char* unit, const char* reason) {
  if (value == 0) return lackingEntry(label, key, reason);
  return knownEntry(label, key, std::to_string(value) + unit, value);
}

InfoSection linkSection(const CameraReadings& readings) {
  InfoSection section{"LINK", "link", {accessEntry(readings.use)}};
  const auto add = [&](const char* label, const char* key, uint32_t LinkDetails::*value, const char* unit,
                       const char* reason) {
    section.entries.push_back(readings.link ? linkEntry(label, key, (*readings.link).*value, unit, reason)
                                            : notReadEntry(label, key, readings.no_link));
  };
  constexpr const char* kNotTold = "the camera does not tell";
  // What the camera starts from; its host negotiates the size that it streams with.
  add("Packet size", "packet_size_before_negotiation_bytes", &LinkDetails::packet_size_bytes,
      " bytes, before a stream negotiates it", kNotTold);
  add("Link speed", "link_speed_mbit_s", &LinkDetails::link_speed_mbit_s, " Mbit/s", kNotTold);
  add("Interface's MTU", "interface_mtu_bytes", &LinkDetails::interface_mtu_bytes, " bytes",
      "the system does not tell");
  return section;
}

constexpr const char* kHeldLabel = "In the core";
constexpr const char* kHeldKey = "held";

InfoEntry heldEntry(const LensReadings& lens) {
  if (lens.held) {
    const std::string name = shownName(lens.lenses.at(*lens.held).name);
    return knownEntry(kHeldLabel, kHeldKey, name, name);
  }
  const auto entry = lens.held_not_read ? notReadEntry : lackingEntry;
  return entry(kHeldLabel, kHeldKey, lens.not_held);
}

InfoSection lensSection(const CameraReadings& readings) {
  InfoSection section{"LENSES", "lenses", {}};
  if (!readings.lens) {
    const auto entry = readings.lens_not_read ? notReadEntry : lackingEntry;
    section.entries.push_back(entry("Calibrated", "calibrated", readings.no_lens));
    section.entries.push_back(entry(kHeldLabel, kHeldKey, readings.no_lens));
    return section;
  }
  Json calibrated = Json::array();
  std::string text;
  for (const LensSummary& lens : readings.lens->lenses) {
    const std::string name = shownName(lens.name);
    calibrated.push_back({{"name", name}, {"ranges", rangesOf(lens)}});
    text += (text.empty() ? "" : "; ") + name + " (" + rangesText(lens) + ")";
  }
  section.entries.push_back(knownEntry("Calibrated", "calibrated", text, calibrated));
  section.entries.push_back(heldEntry(*readings.lens));
  return section;
}

}  // namespace

std::vector<InfoSection> infoSections(const CameraReadings& readings) {
  return {cameraSection(readings.camera), linkSection(readings), coreSection(readings), radiometrySection(readings),
          lensSection(readings)};
}

}  // namespace keocam::cli
