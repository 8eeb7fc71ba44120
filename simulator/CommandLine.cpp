#include "simulator/CommandLine.h"

#include <CLI/CLI.hpp>
#include <array>
#include <iostream>

#include "simulator/CameraArguments.h"
#include "simulator/CoreArguments.h"
#include "simulator/HelpFormatter.h"
#include "simulator/ModelArguments.h"
#include "simulator/SceneArguments.h"
#include "simulator/scene/SceneText.h"

namespace simulator {
namespace {

constexpr int kUsageError = 2;

constexpr const char* kIntroduction =
    "GigE Vision thermal cameras in software, for work without a camera.\n"
    "Prints \"ready\" on standard output once every camera answers, and runs until\n"
    "told to end.";
constexpr const char* kFooter =
    "The thermal core's faults hold for FRAMES answers, for good where that is 0 or\n"
    "left out, and begin AFTER so many.\n"
    "\n"
    "Hosts that have a calibration of version 3 or above for a camera take its speed\n"
    "class from the fourth letter of a serial number above 1702: C slow, D fast,\n"
    "E fast with video standard 4. Other hosts take it from the core's part number.\n"
    "C limits the frames that an application gets to 10 a second, whatever else\n"
    "tells the class. Without --serial slow models begin at KEOC2001, others at\n"
    "KEOD2001.\n"
    "\n"
    "Examples:\n"
    "  keocam-simulator                            one camera, on 127.0.0.2\n"
    "  keocam-simulator --cameras 3                127.0.0.2, 127.0.0.3 and .4\n"
    "  keocam-simulator --model 324-slow           320x256, 9 pictures a second\n"
    "  keocam-simulator --interface eth0 --fps 60  for other hosts there\n"
    "  keocam-simulator --loss 10 --late 5 20      1 % lost, 0.5 % 20 ms late\n"
    "  keocam-simulator --core-no-answer 1000 3    no answer to 3 requests\n"
    "  keocam-simulator --core-flash core.bin      keeps the lens tables\n"
    "  keocam-simulator --scene hot-spot:high=120  a spot of 120 degrees Celsius\n"
    "  keocam-simulator calibration --help         makes calibration data\n"
    "\n"
    "While it runs it takes commands on standard input, one a line; \"help\" lists\n"
    "them.\n"
    "\n"
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

std::variant<ProgramOptions, int> parseCommandLine(int argc, const char* const* argv) {
  CLI::App app(kIntroduction, "keocam-simulator");
  app.formatter(std::make_shared<HelpFormatter>());
  app.footer(sceneHelpText() + '\n' + kFooter);
  app.set_version_flag("--version", "keocam-simulator " KEOCAM_VERSION);
  ProgramOptions program;
  FaultSettings faults;
  bool occupied = false;
  KnobValues knobs;
  CameraArguments cameras(app);
  app.add_option("--duration", program.duration_s, "End after this many seconds")
      ->check(CLI::Range(0.0, 1e9))
      ->option_text("S");
  app.add_flag("-q,--quiet", program.quiet, "Say nothing on standard error but errors");
  SceneArguments scene(app);
  ModelArguments models(app);
  CoreArguments cores(app);
  addFaultOptions(app, knobs);
  app.add_flag("--ignore-heartbeat", faults.ignore_heartbeat, "Control runs out although the host is alive")
      ->group("Faults");
  app.add_flag("--occupied", occupied, "Seem to be in use by another host")->group("Faults");
  try {
    app.parse(argc, argv);
    if (models.listWanted()) {
      std::cout << models.list() << std::flush;
      return 0;
    }
    applyFaults(knobs, faults);
    scene.check();
    cores.check();
    models.check(cameras.count(models));
    for (uint32_t i = 0; i < cameras.count(models); ++i) program.cameras.push_back(cameras.make(i, models, cores));
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kUsageError;
  }
  const auto count = static_cast<uint32_t>(program.cameras.size());
  for (uint32_t i = 0; i < count; ++i) {
    CameraOptions& camera = program.cameras[i];
    camera.faults = faults;
    if (scene.given()) camera.temperatures = scene.make(cores.lensPoints(camera.serial));
    camera.core = cores.make(camera, models.of(i), i, count);
  }
  program.occupied.assign(count, occupied);
  return program;
}

}  // namespace simulator
