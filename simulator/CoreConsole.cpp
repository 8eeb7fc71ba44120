#include "simulator/CoreConsole.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "simulator/ConsoleWords.h"
#include "simulator/core/ThermalCore.h"

namespace simulator {
namespace {

constexpr uint32_t kMostLines = 1000;
constexpr std::size_t kDefaultLines = 10;

/// Empty where the arguments are wrong.
using Effect = std::optional<std::string> (*)(ThermalCore& core, const Words& arguments);

std::optional<std::string> showLog(ThermalCore& core, const Words& arguments) {
  std::size_t lines = kDefaultLines;
  if (!arguments.empty()) {
    const auto number = arguments.size() == 1 ? numberOf(arguments[0], kMostLines) : std::nullopt;
    if (!number) return std::nullopt;
    lines = *number;
  }
  const std::vector<CoreLogEntry> entries = core.log();
  std::string text;
  for (std::size_t i = entries.size() - std::min(lines, entries.size()); i < entries.size(); ++i) {
    text += describe(entries[i], core.powerOnNs()) + '\n';
  }
  return text.empty() ? "nothing has been received\n" : text;
}

std::optional<std::string> clearFaults(ThermalCore& core, const Words& arguments) {
  if (!arguments.empty()) return std::nullopt;
  core.clearFaults();
  return "";
}

struct Command {
  std::string_view name;
  std::string_view arguments;
  std::string_view help;
  Effect effect;
};

constexpr Command kCommands[] = {
    {"core-log", "[LINES]", "What the core received and answered last", showLog},
    {"core-ok", "", "No faults of the core any more", clearFaults},
};

bool turnKnob(ThermalCore& core, std::size_t index, const Words& arguments) {
  std::vector<uint32_t> numbers;
  for (const std::string& word : arguments) {
    const auto number = numberOf(word, UINT32_MAX);
    if (!number) return false;
    numbers.push_back(*number);
  }
  const auto fault = coreFaultOf(coreFaultKnobs()[index], numbers);
  if (fault) core.setFault(static_cast<CoreFault>(index), *fault);
  return fault.has_value();
}

std::string knobArguments(const CoreFaultKnob& knob) {
  return std::string(knob.argument) + std::string(kCoreFaultMore);
}

}  // namespace

std::optional<std::string> executeCoreCommand(const SimulatedCamera& camera, const std::string& name,
                                              const Words& arguments) {
  const auto* command =
      std::find_if(std::begin(kCommands), std::end(kCommands), [&](const Command& row) { return row.name == name; });
  const auto& knobs = coreFaultKnobs();
  const auto* knob =
      std::find_if(knobs.begin(), knobs.end(), [&](const CoreFaultKnob& row) { return row.name == name; });
  if (command == std::end(kCommands) && knob == knobs.end()) return std::nullopt;
  const std::shared_ptr<ThermalCore> core = camera.options().core;
  if (!core) return "camera " + camera.options().serial + " has no core\n";
  if (knob == knobs.end()) {
    const std::optional<std::string> said = command->effect(*core, arguments);
    return said ? *said : wrongArguments(name, command->arguments);
  }
  const bool understood = turnKnob(*core, static_cast<std::size_t>(knob - knobs.begin()), arguments);
  return understood ? "" : wrongArguments(name, knobArguments(*knob));
}

std::string coreHelpText() {
  std::string text;
  for (const CoreFaultKnob& knob : coreFaultKnobs()) text += usageLine(knob.name, knobArguments(knob), knob.help);
  for (const Command& command : kCommands) text += usageLine(command.name, command.arguments, command.help);
  return text;
}

std::string coreStatusText(const SimulatedCamera& camera) {
  const std::shared_ptr<ThermalCore> core = camera.options().core;
  if (!core) return "";
  const CoreTemperatures now = core->temperatures();
  std::ostringstream text;
  text << std::fixed << std::setprecision(2) << "  core: sensor " << now.sensor_celsius << " C, housing "
       << now.housing_celsius << " C, shutter " << now.shutter_celsius << " C"
       << (core->shutterClosed() ? " and closed" : "") << ", " << core->ffcCount() << " FFCs\n";
  const FlashCounters flash = core->flashCounters();
  text << "  core's flash: " << flash.erases << " erases, " << flash.writes << " writes, " << flash.refused_writes
       << " refused writes, " << flash.reads << " reads; lens slot " << core->word(30) << '\n';
  return text.str();
}

}  // namespace simulator
