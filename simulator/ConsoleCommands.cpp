#include "simulator/ConsoleCommands.h"

#include <algorithm>
#include <iomanip>
#include <optional>
#include <sstream>

#include "simulator/ConsoleWords.h"
#include "simulator/CoreConsole.h"
#include "simulator/SceneConsole.h"

namespace simulator {
namespace {

constexpr uint32_t kLongestMs = 3'600'000;

std::optional<bool> switchOf(const Words& arguments) {
  if (arguments.size() != 1 || (arguments[0] != "on" && arguments[0] != "off")) return std::nullopt;
  return arguments[0] == "on";
}

std::string statusOf(const SimulatedCamera& camera) {
  std::ostringstream text;
  text << camera.options().serial << " " << camera.options().address
       << (camera.controlled() ? ", controlled" : ", free") << (camera.streaming() ? ", streaming" : "") << '\n';
  const Statistics statistics = camera.statistics();
  for (std::size_t i = 0; i < kCounterCount; ++i) {
    const auto counter = static_cast<Counter>(i);
    if (statistics[counter] == 0) continue;
    text << "  " << std::left << std::setw(20) << counterName(counter) << statistics[counter] << '\n';
  }
  return text.str() + coreStatusText(camera);
}

/// Returns false where the arguments are wrong.
using Effect = bool (*)(SimulatedCamera& camera, const Words& arguments);

bool freeze(SimulatedCamera& camera, const Words& arguments) {
  const auto duration_ms = arguments.size() == 1 ? numberOf(arguments[0], kLongestMs) : std::nullopt;
  if (duration_ms) camera.faults().freeze(*duration_ms);
  return duration_ms.has_value();
}

bool vanish(SimulatedCamera& camera, const Words& arguments) {
  if (arguments.empty()) {
    camera.faults().vanish();
    return true;
  }
  const auto duration_ms = arguments.size() == 1 ? numberOf(arguments[0], kLongestMs) : std::nullopt;
  if (duration_ms) camera.faults().vanish(*duration_ms);
  return duration_ms.has_value();
}

bool comeBack(SimulatedCamera& camera, const Words& arguments) {
  if (arguments.empty()) camera.faults().comeBack();
  return arguments.empty();
}

bool ignoreHeartbeat(SimulatedCamera& camera, const Words& arguments) {
  const auto on = switchOf(arguments);
  if (!on) return false;
  FaultSettings settings = camera.faults().settings();
  settings.ignore_heartbeat = *on;
  camera.faults().set(settings);
  return true;
}

bool dropControl(SimulatedCamera& camera, const Words& arguments) {
  if (arguments.empty()) camera.dropControl();
  return arguments.empty();
}

bool occupied(SimulatedCamera& camera, const Words& arguments) {
  const auto on = switchOf(arguments);
  if (on) camera.setOccupied(*on);
  return on.has_value();
}

struct Command {
  std::string_view name;
  std::string_view arguments;
  std::string_view help;
  Effect effect;
};

constexpr Command kCommands[] = {
    {"freeze", "MS", "No answers and no stream for a time", freeze},
    {"vanish", "[MS]", "Gone as if unplugged, for a time or until \"return\"", vanish},
    {"return", "", "Back after \"vanish\"", comeBack},
    {"ignore-heartbeat", "on|off", "Control runs out although the host is alive", ignoreHeartbeat},
    {"drop-control", "", "The controlling host loses control", dropControl},
    {"occupied", "on|off", "Seem to be in use by another host", occupied},
};

bool turnKnob(SimulatedCamera& camera, const FaultKnob& knob, const Words& arguments) {
  if (arguments.size() != (knob.second == nullptr ? 1U : 2U)) return false;
  const auto first = numberOf(arguments[0], knob.first_maximum);
  const auto second = knob.second == nullptr ? first : numberOf(arguments[1], knob.second_maximum);
  if (!first || !second) return false;
  FaultSettings settings = camera.faults().settings();
  settings.*knob.first = *first;
  if (knob.second != nullptr) settings.*knob.second = *second;
  camera.faults().set(settings);
  return true;
}

std::string helpText() {
  std::string text = "Commands, with a camera's number in front or for all cameras:\n";
  for (const FaultKnob& knob : faultKnobs()) text += usageLine(knob.name, knob.arguments, knob.help);
  for (const Command& command : kCommands) text += usageLine(command.name, command.arguments, command.help);
  text += sceneUsageText();
  text += coreHelpText();
  text += usageLine("status", "", "Who controls the camera, and all counters that are not 0");
  return text + usageLine("quit", "", "End the program");
}

/// Applies one command to one camera; the text says what is wrong, or is the command's output.
std::string apply(SimulatedCamera& camera, const std::string& name, const Words& arguments) {
  if (name == "status") return statusOf(camera);
  for (const FaultKnob& knob : faultKnobs()) {
    if (knob.name == name) return turnKnob(camera, knob, arguments) ? "" : wrongArguments(name, knob.arguments);
  }
  for (const Command& command : kCommands) {
    if (command.name == name) return command.effect(camera, arguments) ? "" : wrongArguments(name, command.arguments);
  }
  if (const auto said = executeSceneCommand(camera, name, arguments)) return *said;
  if (const auto said = executeCoreCommand(camera, name, arguments)) return *said;
  return "unknown command '" + name + "'; \"help\" lists them\n";
}

}  // namespace

ConsoleReply executeConsoleLine(const std::string& line, const Cameras& cameras) {
  std::istringstream stream(line);
  Words words;
  for (std::string word; stream >> word;) words.push_back(word);
  if (words.empty()) return {};
  std::optional<uint32_t> chosen;
  if (std::all_of(words[0].begin(), words[0].end(), [](char letter) { return letter >= '0' && letter <= '9'; })) {
    chosen = numberOf(words[0], static_cast<uint32_t>(cameras.size()));
    if (!chosen || *chosen == 0) {
      return {"there is no camera " + words[0] + "; the number is 1 to " + std::to_string(cameras.size()) + "\n"};
    }
    words.erase(words.begin());
    if (words.empty()) return {"a command is missing after the camera's number; \"help\" lists them\n"};
  }
  const std::string name = words[0];
  words.erase(words.begin());
  if (name == "quit") return {"", true};
  if (name == "help") return {helpText()};
  std::string text;
  for (std::size_t i = 0; i < cameras.size(); ++i) {
    if (chosen && *chosen != i + 1) continue;
    const std::string said = apply(*cameras[i], name, words);
    // A mistake in the line is the same for every camera and is said once.
    if (said != text) text += said;
  }
  return {text};
}

}  // namespace simulator
