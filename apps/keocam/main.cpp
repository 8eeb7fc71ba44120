// The keocam program.
#include <fcntl.h>
#include <signal.h>

#include <exception>
#include <iostream>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/CommandLine.h"
#include "apps/keocam/SimulateCommand.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

// A program may be started with a standard stream closed. A socket would then get its number, and messages would be
// sent to the camera.
void occupyStandardStreams() {
  for (const int fd : {0, 1, 2}) {
    if (::fcntl(fd, F_GETFD) == -1) ::open("/dev/null", fd == 0 ? O_WRONLY : O_RDONLY);
  }
}

// A reader of our output that goes away shows as a failed write instead of killing the program. A handler, because a
// program that we turn into would inherit an ignored signal.
void surviveBrokenPipes() {
  ::signal(SIGPIPE, [](int /*signal*/) {});
}

class Runner {
 public:
  explicit Runner(Verbosity verbosity) : console_(verbosity), output_(verbosity == Verbosity::Verbose) {}

  ExitStatus operator()(const ListOptions& options) { return runList(options, console_, output_); }
  ExitStatus operator()(const CameraInfoOptions& options) { return runCameraInfo(options, console_, output_); }
  ExitStatus operator()(const StreamOptions& options) { return runStreamCommand(options, console_, output_); }
  ExitStatus operator()(const MeasureOptions& options) { return runMeasure(options, console_, output_); }
  ExitStatus operator()(const SnapshotOptions& options) { return runSnapshot(options, console_); }
  ExitStatus operator()(const RangeShowOptions& options) { return runRangeShow(options, console_, output_); }
  ExitStatus operator()(const RangeSetOptions& options) { return runRangeSet(options, console_); }
  ExitStatus operator()(const SimulateOptions& options) { runSimulate(options.arguments); }
  ExitStatus operator()(const GetOptions& options) { return runGet(options, console_, output_); }
  ExitStatus operator()(const SetOptions& options) { return runSet(options, console_, output_); }
  ExitStatus operator()(const FfcOptions& options) { return runFfc(options, console_); }
  ExitStatus operator()(const InfoOptions& options) { return runInfo(options, console_, output_); }
  ExitStatus operator()(const ResetOptions& options) { return runReset(options, console_); }
  ExitStatus operator()(const DefaultsOptions& options) { return runDefaults(options, console_); }
  ExitStatus operator()(const FactoryDefaultsOptions& options) { return runFactoryDefaults(options, console_); }
  ExitStatus operator()(const LensListOptions& options) { return runLensList(options, console_, output_); }
  ExitStatus operator()(const LensCurrentOptions& options) { return runLensCurrent(options, console_, output_); }
  ExitStatus operator()(const LensSetOptions& options) { return runLensSet(options, console_); }
  ExitStatus operator()(const CalibrationShowOptions& options) {
    return runCalibrationShow(options, console_, output_);
  }
  ExitStatus operator()(const CalibrationCheckOptions& options) {
    return runCalibrationCheck(options, console_, output_);
  }

 private:
  Console console_;
  DataOutput output_;
};

ExitStatus give(const Answer& answer) {
  if (answer.status == ExitStatus::Ok) {
    DataOutput(false).write(answer.text);
  } else {
    Console(Verbosity::Normal).error(answer.text);
  }
  return answer.status;
}

ExitStatus runProgram(const std::vector<std::string>& arguments) {
  const Console console(Verbosity::Normal);
  try {
    const auto parsed = parseCommandLine(arguments);
    if (const auto* const answer = std::get_if<Answer>(&parsed)) return give(*answer);
    const auto& invocation = std::get<Invocation>(parsed);
    return std::visit(Runner(invocation.verbosity), invocation.command);
  } catch (const CommandFailure& failure) {
    console.error(failure.what());
    return failure.status();
  } catch (const std::exception& error) {
    console.error(printable(error.what()));
    return ExitStatus::Failure;
  }
}

}  // namespace
}  // namespace keocam::cli

int main(int argc, char* argv[]) {
  using namespace keocam::cli;
  occupyStandardStreams();
  surviveBrokenPipes();
  return static_cast<int>(runProgram(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc)));
}
