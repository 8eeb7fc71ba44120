// The command line: verbs, options, help.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "apps/keocam/Console.h"
#include "apps/keocam/ExitStatus.h"
#include "apps/keocam/ListCommand.h"
#include "apps/keocam/StreamCommand.h"
#include "apps/keocam/calibration/CheckCommand.h"
#include "apps/keocam/calibration/ShowCommand.h"
#include "apps/keocam/core/DefaultsCommand.h"
#include "apps/keocam/core/FfcCommand.h"
#include "apps/keocam/core/GetCommand.h"
#include "apps/keocam/core/InfoCommand.h"
#include "apps/keocam/core/ResetCommand.h"
#include "apps/keocam/core/SetCommand.h"
#include "apps/keocam/info/CameraInfoCommand.h"
#include "apps/keocam/lens/LensCurrentCommand.h"
#include "apps/keocam/lens/LensListCommand.h"
#include "apps/keocam/lens/LensSetCommand.h"
#include "apps/keocam/temperature/MeasureCommand.h"
#include "apps/keocam/temperature/RangeCommand.h"
#include "apps/keocam/temperature/SnapshotCommand.h"

namespace keocam::cli {

struct SimulateOptions {
  std::vector<std::string> arguments;  ///< as given, for the simulator
};

/// The options of the verb.
using Command =
    std::variant<ListOptions, CameraInfoOptions, StreamOptions, SimulateOptions, GetOptions, SetOptions, FfcOptions,
                 InfoOptions, ResetOptions, DefaultsOptions, FactoryDefaultsOptions, LensListOptions,
                 LensCurrentOptions, LensSetOptions, CalibrationShowOptions, CalibrationCheckOptions, MeasureOptions,
                 SnapshotOptions, RangeShowOptions, RangeSetOptions>;

/// What the user asked for.
struct Invocation {
  Verbosity verbosity = Verbosity::Normal;
  Command command;
};

/// Nothing to run: a text to print, such as the help, and how to end. An error's text belongs on standard error.
struct Answer {
  ExitStatus status;
  std::string text;
};

/// `arguments` are those behind the program's name.
std::variant<Invocation, Answer> parseCommandLine(const std::vector<std::string>& arguments);

}  // namespace keocam::cli
