// What is known of a camera, part by part, as values for a person and for a program.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace keocam::cli {

enum class InfoState : uint8_t {
  Known,
  Lacking,  ///< the camera has no such thing, or does not tell it; nothing went wrong
  NotRead,  ///< it could not be read
};

struct InfoEntry {
  std::string label;
  std::string key;
  InfoState state = InfoState::Known;
  std::string text;              ///< fit for a terminal: the value, or why there is none
  nlohmann::ordered_json value;  ///< null unless Known
};

inline InfoEntry knownEntry(std::string label, std::string key, std::string text, nlohmann::ordered_json value) {
  return {std::move(label), std::move(key), InfoState::Known, std::move(text), std::move(value)};
}
inline InfoEntry lackingEntry(std::string label, std::string key, std::string reason) {
  return {std::move(label), std::move(key), InfoState::Lacking, std::move(reason), nullptr};
}
inline InfoEntry notReadEntry(std::string label, std::string key, std::string reason) {
  return {std::move(label), std::move(key), InfoState::NotRead, std::move(reason), nullptr};
}

struct InfoSection {
  std::string title;
  std::string key;
  std::vector<InfoEntry> entries;
};

}  // namespace keocam::cli
