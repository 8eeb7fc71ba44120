#include "apps/keocam/CommandLine.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "apps/keocam/HelpFormatter.h"
#include "apps/keocam/VerbGroups.h"
#include "apps/keocam/Verbs.h"
#include "apps/keocam/calibration/CalibrationVerbs.h"
#include "apps/keocam/core/CoreVerbs.h"
#include "apps/keocam/lens/LensVerbs.h"
#include "apps/keocam/temperature/TemperatureVerbs.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Suggestion.h"

namespace keocam::cli {
namespace {

constexpr Verb kList{"list", "Show the cameras on this host's networks", "keocam list --json"};
constexpr Verb kInfo{"info", "All that is known of a camera", "keocam info --camera KEOD2001"};
constexpr Verb kStream{"stream", "Receive frames and tell how well that goes",
                       "keocam stream --camera KEOD2001 --frames 100 --picture last.png"};
constexpr Verb kSimulate{"simulate", "Run a camera in software (keocam-simulator)", "keocam simulate --cameras 2"};

constexpr const char* kUnchanged = "Nothing changes on the camera and its core.\n\n";

// Far more than anyone waits, and still exact in nanoseconds.
constexpr double kLongest_s = 1e8;

std::vector<Verb> allVerbs() {
  std::vector<Verb> verbs{kList, kInfo, kStream};
  for (const Verb& verb : temperatureVerbs()) verbs.push_back(verb);
  for (const Verb& verb : coreVerbs()) verbs.push_back(verb);
  verbs.push_back(lensVerb());
  verbs.push_back(calibrationVerb());
  verbs.push_back(kSimulate);
  return verbs;
}

std::vector<std::string> verbNames() {
  std::vector<std::string> names;
  for (const Verb& verb : allVerbs()) names.emplace_back(verb.name);
  return names;
}

std::string footer() {
  std::string text = "Examples:\n";
  for (const Verb& verb : allVerbs()) text += std::string("  ") + verb.example + '\n';
  text += "\nExit status:\n";
  for (const ExitStatusMeaning& row : kExitStatusMeanings) {
    text += "  " + std::to_string(static_cast<int>(row.status)) + "  " + row.meaning + '\n';
  }
  return text +
         "\nData go to standard output, messages to standard error.\n\"keocam VERB --help\" tells more of a verb.";
}

// The library's own check for a range lets "nan" pass.
CLI::Validator secondsFrom(double least_s) {
  const auto check = [least_s](const std::string& text) -> std::string {
    double value = 0.0;
    const bool number = CLI::detail::lexical_cast(text, value) && std::isfinite(value);
    if (number && value >= least_s && value <= kLongest_s) return {};
    std::ostringstream message;
    message << std::setprecision(9) << "it must be a number of seconds from " << least_s << " to " << kLongest_s;
    return message.str();
  };
  return CLI::Validator(check, "");
}

void addList(CLI::App& app, Command& chosen) {
  const auto verb = addVerbWithOptions<ListOptions>(app, kList, chosen);
  verb.app->add_flag("--json", verb.options.json, "Print an array of objects instead of a table");
}

void addInfo(CLI::App& app, Command& chosen) {
  const auto verb = addVerbWithOptions<CameraInfoOptions>(app, kInfo, chosen, kUnchanged);
  addCameraOption(*verb.app, verb.options.serial_number);
  addCalibrationsOption(*verb.app, verb.options.calibrations);
  verb.app->add_flag("--json", verb.options.json, "Print an object instead of a table");
}

void addStream(CLI::App& app, Command& chosen) {
  const auto [command, options] = addVerbWithOptions<StreamOptions>(app, kStream, chosen, kUnchanged);
  StreamLimits& limits = options.limits;
  addCameraOption(*command, options.serial_number);
  command->add_option("-n,--frames", limits.frames, "Stop after N frames")
      ->type_name("N")
      ->check(CLI::Range(uint64_t{1}, uint64_t{1} << 48U, "").description(""));
  command->add_option("-d,--duration", limits.duration_s, "Stop after S seconds")
      ->type_name("S")
      ->check(secondsFrom(0.001));
  command->add_option("-t,--timeout", limits.timeout_s, "Give up after S seconds without a frame [5]")
      ->type_name("S")
      ->check(secondsFrom(1.0));
  command->add_option("-p,--picture", options.picture_path, "Write the last frame as a PNG with a scale bar")
      ->type_name("FILE");
  command->add_flag("--json", options.json, "Print the totals as an object");
}

// The options of the program and of the verbs that are used.
std::vector<std::string> optionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* const option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  for (const CLI::App* const used : app.get_subcommands()) {
    for (const std::string& name : optionNames(*used)) names.push_back(name);
  }
  return names;
}

// Names the first option that does not exist, or else the first word too many.
std::string unexpectedText(const CLI::App& app) {
  const std::vector<std::string> extras = app.remaining(true);
  const auto option = std::find_if(extras.begin(), extras.end(),
                                   [](const std::string& text) { return !text.empty() && text.front() == '-'; });
  if (option != extras.end()) return "There is no option " + inQuotes(*option) + didYouMean(*option, optionNames(app));
  return "There is no place for the argument " + inQuotes(extras.empty() ? "" : extras.front());
}

Answer usageError(const std::string& text) { return {ExitStatus::Usage, text + "\nSee \"keocam --help\"."}; }

Answer answerTo(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    std::ostringstream text;
    app.exit(error, text, text);
    return {ExitStatus::Ok, text.str()};
  }
  const bool unexpected = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
  return usageError(unexpected ? unexpectedText(app) : printable(error.what()));
}

}  // namespace

std::variant<Invocation, Answer> parseCommandLine(const std::vector<std::string>& arguments) {
  const VerbWords words = verbWordsIn(arguments);
  if (const std::string complaint = complaintAbout(words, verbNames()); !complaint.empty())
    return usageError(complaint);

  // Everything behind these, --help included, is the simulator's.
  const bool make = words.group == kCalibrationVerb && words.member == kMakeVerb;
  const bool simulate = words.first == kSimulate.name || make;
  const auto own_end = simulate ? arguments.begin() + static_cast<std::ptrdiff_t>(words.end) : arguments.end();

  CLI::App app("Find GigE Vision thermal cameras, stream from them, and control their cores", "keocam");
  Invocation invocation;
  bool quiet = false;
  bool verbose = false;
  app.set_version_flag("--version", "keocam " KEOCAM_VERSION);
  app.add_flag("-q,--quiet", quiet, "No messages but errors");
  app.add_flag("-v,--verbose", verbose, "More messages, the library's among them");
  app.require_subcommand(1);
  // Verbs take it over, so it comes before them.
  app.formatter(std::make_shared<HelpFormatter>());
  app.get_formatter()->label("SUBCOMMAND", "VERB");
  app.footer(footer());
  addList(app, invocation.command);
  addInfo(app, invocation.command);
  addStream(app, invocation.command);
  addTemperatureVerbs(app, invocation.command);
  addCoreVerbs(app, invocation.command);
  addLensVerbs(app, invocation.command);
  addCalibrationVerbs(app, invocation.command);
  addVerb(app, kSimulate);

  try {
    std::vector<std::string> reversed(arguments.begin(), own_end);
    std::reverse(reversed.begin(), reversed.end());
    app.parse(reversed);
  } catch (const CLI::RequiredError& error) {
    const std::string missing = missingVerbText(words);
    return usageError(missing.empty() ? printable(error.what()) + '.' : missing);
  } catch (const CLI::ParseError& error) {
    return answerTo(app, error);
  }

  if (quiet && verbose) return usageError("--quiet and --verbose exclude each other.");
  if (quiet) invocation.verbosity = Verbosity::Quiet;
  if (verbose) invocation.verbosity = Verbosity::Verbose;
  if (simulate) {
    SimulateOptions options{{own_end, arguments.end()}};
    if (make) options.arguments.insert(options.arguments.begin(), kCalibrationVerb);
    invocation.command = options;
  }
  return invocation;
}

}  // namespace keocam::cli
