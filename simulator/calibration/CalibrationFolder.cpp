#include "simulator/calibration/CalibrationFolder.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "simulator/WholeFile.h"
#include "simulator/calibration/CalibrationText.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestSerial = 64;
constexpr const char* kTextName = "/calibration.txt";
constexpr const char* kManifestName = "/manifest.txt";

void checkSerial(const std::string& serial) {
  const bool plain = std::all_of(serial.begin(), serial.end(), [](char letter) {
    return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z') ||
           letter == '-' || letter == '_';
  });
  if (serial.empty() || serial.size() > kLongestSerial || !plain) {
    throw std::invalid_argument("'" + serial +
                                "' cannot name an entry: a serial number has 1 to 64 letters, digits, '-' or '_'");
  }
}

/// Makes an entry's folder, which must be new.
void makeEntry(const std::string& folder, const std::string& path) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw std::runtime_error("cannot make the folder '" + folder + "': " + error.message());
  const bool made = fs::create_directory(path, error);
  if (error) throw std::runtime_error("cannot make the folder '" + path + "': " + error.message());
  if (!made) {
    throw std::runtime_error("'" + path + "' exists already; remove it, or choose another folder or serial number");
  }
}

}  // namespace

CalibrationEntry writeCalibrationEntry(const std::string& folder, const std::string& serial,
                                       const CalibrationOptions& options) {
  checkSerial(serial);
  const std::string text = calibrationText(options);
  const std::string path = folder + "/" + serial;
  makeEntry(folder, path);
  try {
    writeWholeFile(path + kTextName, text.data(), text.size());
    const std::string manifest = "# A made-up calibration, from seed " + std::to_string(options.seed) +
                                 "\nversion = " + versionText(options.version) +
                                 "\nsize = " + std::to_string(text.size()) + '\n';
    writeWholeFile(path + kManifestName, manifest.data(), manifest.size());
  } catch (const std::runtime_error&) {
    std::error_code ignored;
    fs::remove_all(path, ignored);
    throw;
  }
  return {path, text.size()};
}

}  // namespace simulator
