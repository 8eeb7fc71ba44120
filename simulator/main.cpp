// The program keocam-simulator: cameras from options, then commands from standard input until the end.
#include <poll.h>
#include <pthread.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include "simulator/CalibrationCommand.h"
#include "simulator/Clock.h"
#include "simulator/CommandLine.h"
#include "simulator/ConsoleCommands.h"
#include "simulator/ConsoleInput.h"
#include "simulator/core/ThermalCore.h"

namespace {

using namespace simulator;

constexpr std::size_t kLongestLine = 4096;

bool isIgnored(int signal) {
  struct sigaction action {};
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

/// The signals that end the program, as a file descriptor. Made before any thread starts, so that all of them leave the
/// signals to it. A SIGHUP that nohup(1) had ignored stays ignored: the descriptor would report it all the same.
int openSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  if (!isIgnored(SIGHUP)) sigaddset(&signals, SIGHUP);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  const int fd = signalfd(-1, &signals, SFD_CLOEXEC);
  if (fd < 0) throw std::runtime_error(std::string("cannot wait for signals: ") + std::strerror(errno));
  return fd;
}

/// Executes the complete lines of `input` and leaves the rest; true when one of them asked to quit.
bool executeLines(std::string& input, const Cameras& cameras) {
  for (std::size_t end = input.find('\n'); end != std::string::npos; end = input.find('\n')) {
    const ConsoleReply reply = executeConsoleLine(input.substr(0, end), cameras);
    input.erase(0, end + 1);
    std::cerr << reply.text << std::flush;
    if (reply.quit) return true;
  }
  if (input.size() > kLongestLine) {
    std::cerr << "a line of more than " << kLongestLine << " characters was dropped\n";
    input.clear();
  }
  return false;
}

int waitMs(uint64_t until_ns) {
  if (until_ns == kNever) return -1;
  const uint64_t now_ns = monotonicNs();
  if (now_ns >= until_ns) return 0;
  return static_cast<int>(std::min<uint64_t>((until_ns - now_ns) / kNanosecondsPerMillisecond + 1, 1'000'000));
}

/// Returns at a signal, at the command to quit and at `end_ns`. The end of the input ends nothing: the cameras stay.
void serve(int signals, uint64_t end_ns, const Cameras& cameras) {
  ConsoleInput console(STDIN_FILENO);
  std::string input;
  for (uint64_t now_ns = monotonicNs(); now_ns < end_ns; now_ns = monotonicNs()) {
    std::array<pollfd, 2> sources{{{signals, POLLIN, 0}, {console.pollFd(now_ns), POLLIN, 0}}};
    const int ready = ::poll(sources.data(), sources.size(), waitMs(std::min(end_ns, console.retryNs(now_ns))));
    if (ready < 0 && errno != EINTR) throw std::runtime_error(std::string("cannot wait: ") + std::strerror(errno));
    if (ready <= 0) continue;
    if (sources[0].revents != 0) return;
    console.receive(monotonicNs(), input);
    if (executeLines(input, cameras)) return;
  }
}

/// Throws at the first that cannot be saved; the others save themselves when their cameras go.
void saveFlashes(const Cameras& cameras) {
  for (const auto& camera : cameras) {
    if (camera->options().core) camera->options().core->saveFlash();
  }
}

int run(int argc, const char* const* argv) {
  if (argc > 1 && std::string_view(argv[1]) == "calibration") return runCalibrationCommand(argc - 1, argv + 1);
  const auto parsed = parseCommandLine(argc, argv);
  if (const int* exit_code = std::get_if<int>(&parsed)) return *exit_code;
  const auto& program = std::get<ProgramOptions>(parsed);
  const int signals = openSignals();
  Cameras cameras;
  for (const CameraOptions& options : program.cameras) {
    cameras.push_back(std::make_unique<SimulatedCamera>(options));
    if (program.occupied[cameras.size() - 1]) cameras.back()->setOccupied(true);
  }
  if (!program.quiet) {
    for (std::size_t i = 0; i < cameras.size(); ++i) {
      const CameraOptions& options = cameras[i]->options();
      std::cerr << i + 1 << ": " << cameras[i]->model() << " " << options.serial << " on " << options.address << '\n';
    }
  }
  std::cout << "ready" << std::endl;
  const uint64_t end_ns =
      program.duration_s ? monotonicNs() + static_cast<uint64_t>(*program.duration_s * 1e9) : kNever;
  serve(signals, end_ns, cameras);
  saveFlashes(cameras);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "keocam-simulator: " << error.what() << '\n';
    return 1;
  }
}
