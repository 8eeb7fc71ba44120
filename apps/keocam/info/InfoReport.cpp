#include "apps/keocam/info/InfoReport.h"

#include "apps/keocam/Json.h"
#include "apps/keocam/terminal/WrappedTable.h"

namespace keocam::cli {
namespace {

std::string infoEntryText(const InfoEntry& entry) {
  switch (entry.state) {
    case InfoState::Known:
      return entry.text;
    case InfoState::Lacking:
      return "- (" + entry.text + ")";
    case InfoState::NotRead:
      break;
  }
  return "not read: " + entry.text;
}

}  // namespace

std::string infoText(const std::vector<InfoSection>& sections, std::size_t width) {
  if (sections.empty()) return {};
  std::vector<TableRow> rows;
  for (const InfoSection& section : sections) {
    if (&section != &sections.front()) {
      rows.push_back({"", ""});
      rows.push_back({section.title, ""});
    }
    for (const InfoEntry& entry : section.entries) rows.push_back({"  " + entry.label, infoEntryText(entry)});
  }
  return wrappedTable({sections.front().title, ""}, rows, width);
}

std::string infoJson(const std::vector<InfoSection>& sections) {
  nlohmann::ordered_json object = nlohmann::ordered_json::object();
  nlohmann::ordered_json errors = nlohmann::ordered_json::object();
  for (const InfoSection& section : sections) {
    nlohmann::ordered_json& part = object[section.key] = nlohmann::ordered_json::object();
    for (const InfoEntry& entry : section.entries) {
      part[entry.key] = entry.value;
      if (entry.state == InfoState::NotRead) errors[section.key + '.' + entry.key] = entry.text;
    }
  }
  if (!errors.empty()) object["errors"] = errors;
  return jsonText(object);
}

}  // namespace keocam::cli
