#include "simulator/CalibrationCommand.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <stdexcept>
#include <string>

#include "simulator/HelpFormatter.h"
#include "simulator/SensorSizes.h"
#include "simulator/calibration/CalibrationFolder.h"
#include "simulator/calibration/CalibrationText.h"

namespace simulator {
namespace {

constexpr int kFailure = 1;
constexpr int kUsageError = 2;

constexpr const char* kIntroduction =
    "Makes up calibration data for a camera: FOLDER/SERIAL/ with calibration.txt\n"
    "and manifest.txt.";
constexpr const char* kFooter =
    "Examples:\n"
    "  keocam-simulator calibration --folder calibrations\n"
    "  keocam-simulator calibration --folder data --lenses 6 --with-1500 2\n"
    "\n"
    "Exit: 0 written, 1 exists already or cannot be written, 2 wrong options.";

struct Arguments {
  std::string folder;
  std::string serial = "KEOD2001";
  std::string sensor = "640x512";
  std::size_t lenses = 1;
  std::size_t with_1500 = 0;
  CalibrationOptions options;
};

void declare(CLI::App& app, Arguments& arguments) {
  app.formatter(std::make_shared<HelpFormatter>());
  app.footer(kFooter);
  app.add_option("--folder", arguments.folder, "The calibration folder; made where there is none")
      ->required()
      ->option_text("FOLDER");
  app.add_option("--serial", arguments.serial, "The camera's serial number [KEOD2001]")->option_text("TEXT");
  app.add_option("--lenses", arguments.lenses, "How many, 1 to 8 [1]")
      ->check(CLI::Range(std::size_t{1}, kMostUsualLenses))
      ->option_text("N");
  app.add_option("--grammar", arguments.options.version,
                 "0: points of one lens, 1: of all, 2: with tables, 3: with the range up to 1500 degrees [3]")
      ->check(CLI::Range(0U, 3U))
      ->option_text("N");
  app.add_option("--with-1500", arguments.with_1500, "So many lenses measure up to 1500 degrees, the first ones [0]")
      ->check(CLI::Range(std::size_t{0}, kMostUsualLenses))
      ->option_text("N");
  app.add_option("--sensor", arguments.sensor, "640x512, 336x256, 320x256 or 160x128 [640x512]")
      ->check(CLI::IsMember(sensorSizes()))
      ->option_text("WxH");
  app.add_option("--seed", arguments.options.seed, "Other seeds make other numbers [1]")->option_text("N");
}

int write(Arguments arguments) {
  CalibrationOptions& options = arguments.options;
  options.sensor = sensorSizes().at(arguments.sensor);
  options.lenses = usualLenses(arguments.lenses, arguments.with_1500);
  const CalibrationEntry entry = writeCalibrationEntry(arguments.folder, arguments.serial, options);
  std::cout << entry.path << ": version " << versionText(options.version) << ", " << entry.text_bytes << " bytes, "
            << (options.lenses.size() == 1 ? "lens" : "lenses");
  for (const CalibrationLens& lens : options.lenses) std::cout << ' ' << lens.name;
  std::cout << std::endl;
  return 0;
}

}  // namespace

int runCalibrationCommand(int argc, const char* const* argv) {
  CLI::App app(kIntroduction, "keocam-simulator calibration");
  Arguments arguments;
  declare(app, arguments);
  try {
    app.parse(argc, argv);
    return write(arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kUsageError;
  } catch (const std::invalid_argument& error) {
    std::cerr << error.what() << "\nRun with --help for more information.\n";
    return kUsageError;
  } catch (const std::exception& error) {
    std::cerr << "keocam-simulator: " << error.what() << '\n';
    return kFailure;
  }
}

}  // namespace simulator
