#include "apps/keocam/calibration/CalibrationFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/calibration/CalibrationCheck.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "calibration/CalibrationSource.h"

namespace keocam::cli {
namespace {

namespace fs = std::filesystem;

constexpr uint64_t kLargestText_bytes = uint64_t{256} << 20;
constexpr uint64_t kLargestManifest_bytes = 4096;

class OpenFile {
 public:
  // Non-blocking, so that a pipe of this name cannot hold the program up.
  explicit OpenFile(const std::string& path) : fd_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  ~OpenFile() {
    if (fd_ >= 0) ::close(fd_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  int get() const { return fd_; }

 private:
  int fd_;
};

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
  throw CommandFailure(ExitStatus::Failure, inQuotes(path) + ' ' + reason);
}

std::string readBytes(int fd, std::size_t size, const std::string& path) {
  std::string bytes(size, '\0');
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count = ::read(fd, bytes.data() + filled, size - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) refuse(path, std::string("cannot be read: ") + std::strerror(errno) + ".");
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  bytes.resize(filled);
  return bytes;
}

std::string readText(const std::string& path, uint64_t largest_bytes) {
  const OpenFile file(path);
  if (file.get() < 0) refuse(path, std::string("cannot be opened: ") + std::strerror(errno) + ".");
  struct stat status {};
  if (::fstat(file.get(), &status) != 0) refuse(path, std::string("cannot be examined: ") + std::strerror(errno) + ".");
  if (S_ISDIR(status.st_mode)) refuse(path, "is a folder; name the text in it, usually calibration.txt.");
  if (!S_ISREG(status.st_mode)) refuse(path, "is not a regular file.");
  const auto size = static_cast<uint64_t>(status.st_size);
  if (size > largest_bytes) {
    refuse(path, "has " + std::to_string(size) + " bytes; at most " + std::to_string(largest_bytes) + " are read.");
  }
  return readBytes(file.get(), size, path);
}

void readManifest(const std::string& text, uint64_t text_bytes, CalibrationReading& reading) {
  std::string problem;
  const CalibrationManifest manifest = parseCalibrationManifest(text, problem);
  if (!problem.empty()) {
    reading.findings.wrong(std::nullopt, "The manifest " + problem + ".");
    if (!manifest.version.empty()) reading.version = manifest.version;
    return;
  }
  reading.manifest = manifest;
  reading.version = manifest.version;
  if (manifest.size_bytes == text_bytes) return;
  reading.findings.wrong(std::nullopt, "The manifest says that the text has " + std::to_string(manifest.size_bytes) +
                                           " bytes, but it has " + std::to_string(text_bytes) + "; copy both again.");
}

}  // namespace

CalibrationFile readCalibrationFile(const std::string& path) {
  CalibrationFile file;
  file.text = readText(path, kLargestText_bytes);
  std::error_code error;
  const fs::path folder = fs::absolute(path, error).lexically_normal().parent_path();
  file.folder_name = folder.filename().string();
  const fs::path manifest = folder / "manifest.txt";
  if (fs::exists(manifest, error)) file.manifest_text = readText(manifest.string(), kLargestManifest_bytes);
  return file;
}

CalibrationReading readingOf(const CalibrationFile& file, const CalibrationOverride& given) {
  CalibrationReading reading;
  if (file.manifest_text) {
    readManifest(*file.manifest_text, file.text.size(), reading);
    if (canNameCalibrationEntry(file.folder_name)) reading.serial_number = file.folder_name;
  } else {
    reading.findings.doubtful(std::nullopt,
                              "There is no manifest.txt beside the file; without one a camera does not get it.");
  }
  if (given.version) reading.version = *given.version;
  if (given.serial_number) reading.serial_number = *given.serial_number;
  reading.version_guessed = reading.version.empty();
  if (reading.version_guessed) {
    reading.version = likelyVersion(file.text);
    reading.findings.doubtful(std::nullopt, "Nothing says which version the text is; it is taken for version " +
                                                reading.version + ", as it looks. --version tells it.");
  }
  return reading;
}

}  // namespace keocam::cli
