#include "apps/keocam/SimulateCommand.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <sstream>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSimulator = "keocam-simulator";

bool isProgram(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

std::optional<fs::path> besideThisProgram() {
  std::error_code error;
  const fs::path self = fs::read_symlink("/proc/self/exe", error);
  if (error) return std::nullopt;
  const fs::path simulator = self.parent_path() / kSimulator;
  return isProgram(simulator) ? std::optional(simulator) : std::nullopt;
}

// Relative entries of PATH are passed over: what runs must not depend on where the user happens to stand.
std::optional<fs::path> onPath() {
  const char* const variable = std::getenv("PATH");
  std::istringstream folders(variable != nullptr ? variable : "");
  for (std::string folder; std::getline(folders, folder, ':');) {
    const fs::path simulator = fs::path(folder) / kSimulator;
    if (simulator.is_absolute() && isProgram(simulator)) return simulator;
  }
  return std::nullopt;
}

}  // namespace

void runSimulate(const std::vector<std::string>& arguments) {
  std::optional<fs::path> simulator = besideThisProgram();
  if (!simulator) simulator = onPath();
  if (!simulator) {
    throw CommandFailure(ExitStatus::Failure,
                         std::string("The program ") + kSimulator +
                             " was found neither beside keocam nor on PATH. Install it, or build it with "
                             "-DKEOCAM_BUILD_SIMULATOR=ON.");
  }
  std::string program = simulator->string();
  std::vector<std::string> texts = arguments;
  std::vector<char*> pointers{program.data()};
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  ::execv(program.c_str(), pointers.data());
  throw CommandFailure(ExitStatus::Failure, inQuotes(program) + " cannot be run: " + std::strerror(errno) + ".");
}

}  // namespace keocam::cli
