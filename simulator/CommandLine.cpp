#include "simulator/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>

#include "simulator/CoreArguments.h"
#include "simulator/SceneArguments.h"
#include "simulator/SensorSizes.h"
#include "simulator/UdpSocket.h"
#include "simulator/scene/SceneText.h"

namespace simulator {
namespace {

constexpr int kUsageError = 2;
constexpr uint32_t kMostCameras = 64;

const std::map<std::string, bool> kSwitch{{"on", true}, {"off", false}};

constexpr const char* kIntroduction =
    "GigE Vision thermal cameras in software, for work without a camera.\n"
    "Prints \"ready\" on standard output once every camera answers, and runs until told to end.";
constexpr const char* kFooter =
    "Examples:\n"
    "  keocam-simulator                                one camera on 127.0.0.2\n"
    "  keocam-simulator --cameras 3 --size 336x256     127.0.0.2, 127.0.0.3 and 127.0.0.4\n"
    "  keocam-simulator --interface eth0 --fps 60      a camera for other hosts of that network\n"
    "  keocam-simulator --loss 10 --late 5 20          1 % of packets lost, 0.5 % come 20 ms late\n"
    "  keocam-simulator --core-no-answer 1000 3        the thermal core does not answer its first 3 requests\n"
    "  keocam-simulator --core-flash core.bin          the core keeps its lens tables from run to run\n"
    "  keocam-simulator --scene hot-spot:high=120      a hot spot of 120 degrees Celsius\n"
    "  keocam-simulator calibration --help             makes calibration data for a camera\n"
    "\n"
    "While it runs it takes commands on standard input, one a line; \"help\" lists them.\n"
    "Exit: 0 ended as asked, 1 an address cannot be used, 2 wrong options.";

/// A fault's numbers as they come from the command line.
using KnobValues = std::array<std::vector<uint32_t>, kFaultKnobCount>;

void addFaultOptions(CLI::App& app, KnobValues& values) {
  for (std::size_t i = 0; i < kFaultKnobCount; ++i) {
    const FaultKnob& knob = faultKnobs()[i];
    app.add_option("--" + std::string(knob.name), values[i], std::string(knob.help))
        ->expected(knob.second == nullptr ? 1 : 2)
        ->option_text(std::string(knob.arguments))
        ->group("Faults");
  }
}

void applyFaults(const KnobValues& values, FaultSettings& faults) {
  for (std::size_t i = 0; i < kFaultKnobCount; ++i) {
    const FaultKnob& knob = faultKnobs()[i];
    if (values[i].empty()) continue;
    const bool too_large = values[i][0] > knob.first_maximum || (knob.second && values[i][1] > knob.second_maximum);
    if (too_large) {
      throw CLI::ValidationError("--" + std::string(knob.name),
                                 "takes at most " + std::to_string(knob.first_maximum) +
                                     (knob.second ? " and " + std::to_string(knob.second_maximum) : std::string()));
    }
    faults.*knob.first = values[i][0];
    if (knob.second != nullptr) faults.*knob.second = values[i][1];
  }
}

}  // namespace

std::string nextSerial(const std::string& serial, uint32_t steps) {
  if (steps == 0) return serial;
  const std::size_t digits = serial.find_last_not_of("0123456789") + 1;
  if (digits == serial.size() || serial.size() - digits > 9) {
    throw std::invalid_argument("'" + serial +
                                "' cannot be counted upwards: several cameras need a serial number that "
                                "ends with at most nine digits");
  }
  std::string number = std::to_string(std::stoul(serial.substr(digits)) + steps);
  const std::size_t width = serial.size() - digits;
  if (number.size() < width) number.insert(0, width - number.size(), '0');
  return serial.substr(0, digits) + number;
}

std::variant<ProgramOptions, int> parseCommandLine(int argc, const char* const* argv) {
  CLI::App app(kIntroduction, "keocam-simulator");
  app.footer(sceneHelpText() + '\n' + kFooter);
  ProgramOptions program;
  CameraOptions camera;
  uint32_t count = 1;
  std::string interface;
  bool occupied = false;
  KnobValues knobs;
  std::string size = "640x512";
  std::string pacing = "on";
  app.add_option("--cameras", count, "How many, 1 to 64 [1]")->check(CLI::Range(1U, kMostCameras))->option_text("N");
  auto* address =
      app.add_option("--address", camera.address, "First camera's address; the next count upwards [127.0.0.2]")
          ->check(CLI::ValidIPV4)
          ->option_text("A.B.C.D");
  app.add_option("--interface", interface, "Take this interface's address for the first camera")
      ->option_text("NAME")
      ->excludes(address);
  app.add_option("--serial", camera.serial, "First camera's serial number; the next count upwards [KEOD2001]")
      ->option_text("TEXT");
  app.add_option("--size", size, "Sensor: 640x512, 336x256, 320x256 or 160x128 [640x512]")
      ->check(CLI::IsMember(sensorSizes()))
      ->option_text("WxH");
  app.add_option("--fps", camera.frame_rate_hz, "Frames per second at the start, 1 to 1000 [30]")
      ->check(CLI::Range(1.0, 1000.0))
      ->option_text("HZ");
  app.add_option("--seed", camera.seed, "Of the noise and of the faults [1]")->option_text("N");
  app.add_option("--uart-pacing", pacing, "Serial bytes take the time of their baud rate [on]")
      ->check(CLI::IsMember(kSwitch))
      ->option_text("on|off");
  app.add_option("--duration", program.duration_s, "End after this many seconds")
      ->check(CLI::Range(0.0, 1e9))
      ->option_text("S");
  app.add_flag("-q,--quiet", program.quiet, "Say nothing on standard error but errors");
  SceneArguments scene(app);
  CoreArguments core(app);
  addFaultOptions(app, knobs);
  app.add_flag("--ignore-heartbeat", camera.faults.ignore_heartbeat, "Control runs out although the host is alive")
      ->group("Faults");
  app.add_flag("--occupied", occupied, "Seem to be in use by another host")->group("Faults");
  try {
    app.parse(argc, argv);
    applyFaults(knobs, camera.faults);
    scene.check();
    core.check();
    camera.sensor = sensorSizes().at(size);
    camera.uart_pacing = kSwitch.at(pacing);
    nextSerial(camera.serial, count - 1);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kUsageError;
  } catch (const std::invalid_argument& error) {
    return app.exit(CLI::ValidationError("--serial", error.what())) == 0 ? 0 : kUsageError;
  }
  const uint32_t first_ip = interface.empty() ? parseIp(camera.address) : interfaceNamed(interface).ip;
  for (uint32_t i = 0; i < count; ++i) {
    program.cameras.push_back(camera);
    program.cameras.back().address = formatIp(first_ip + i);
    program.cameras.back().serial = nextSerial(camera.serial, i);
    program.cameras.back().seed = camera.seed + i;
    if (scene.given()) program.cameras.back().temperatures = scene.make(core.lensPoints(program.cameras.back().serial));
    program.cameras.back().core = core.make(program.cameras.back(), i, count);
  }
  program.occupied.assign(count, occupied);
  return program;
}

}  // namespace simulator
