#include "calibration/CalibrationSource.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <utility>

#include "calibration/CalibrationManifest.h"

namespace keocam {
namespace {

constexpr std::size_t kLongestEntryName = 64;
constexpr uint64_t kLargestManifest_bytes = 4096;
// A full camera has about 31 MB of text; a file far beyond that is a mistake, not a calibration.
constexpr uint64_t kLargestText_bytes = uint64_t{256} << 20;

class FileDescriptor {
 public:
  // Non-blocking, so that a pipe in the folder cannot hold discovery up.
  explicit FileDescriptor(const std::string& path) : fd_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  ~FileDescriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int get() const { return fd_; }

 private:
  int fd_;
};

struct FileContents {
  std::string bytes;
  std::string problem;  // empty on success; else completes "'<path>' ..."
};

std::string systemError(const char* what) { return std::string(what) + ": " + std::strerror(errno); }

FileContents readFile(const std::string& path, uint64_t largest_bytes) {
  FileContents contents;
  const FileDescriptor file(path);
  if (file.get() < 0) {
    contents.problem = errno == ENOENT ? "does not exist" : systemError("cannot be opened");
    return contents;
  }
  struct stat status {};
  if (::fstat(file.get(), &status) != 0) {
    contents.problem = systemError("cannot be examined");
    return contents;
  }
  if (!S_ISREG(status.st_mode)) {
    contents.problem = "is not a regular file";
    return contents;
  }
  const auto size = static_cast<uint64_t>(status.st_size);
  if (size > largest_bytes) {
    contents.problem = "has " + std::to_string(size) + " bytes; at most " + std::to_string(largest_bytes) + " are read";
    return contents;
  }
  contents.bytes.resize(size);
  std::size_t filled = 0;
  while (filled < contents.bytes.size()) {
    const ssize_t count = ::read(file.get(), contents.bytes.data() + filled, contents.bytes.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) {
      contents.problem = systemError("cannot be read");
      contents.bytes.clear();
      return contents;
    }
    if (count == 0) break;  // the file shrank meanwhile; the size in the manifest tells
    filled += static_cast<std::size_t>(count);
  }
  contents.bytes.resize(filled);
  return contents;
}

// Untrusted text made safe for a terminal and a log: one line, nothing invisible, of bounded length.
std::string quoted(const std::string& text) {
  constexpr std::size_t kLongestShown = 80;
  std::string result = "\"";
  for (const char c : text.substr(0, kLongestShown)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte >= 0x7F || c == '"' || c == '\\') {
      char escaped[5];
      std::snprintf(escaped, sizeof escaped, "\\x%02x", byte);
      result += escaped;
    } else {
      result += c;
    }
  }
  result += text.size() > kLongestShown ? "...\"" : "\"";
  return result;
}

}  // namespace

bool canNameCalibrationEntry(const std::string& serial_number) {
  const auto allowed = [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
  };
  return !serial_number.empty() && serial_number.size() <= kLongestEntryName &&
         std::all_of(serial_number.begin(), serial_number.end(), allowed);
}

CalibrationSource::CalibrationSource(std::string location) : location_(std::move(location)) {}

CalibrationEntry CalibrationSource::lookUp(const std::string& serial_number) const {
  CalibrationEntry entry;
  entry.serial_number = serial_number;

  const auto withoutCalibration = [&](const std::string& reason) {
    std::cerr << "CalibrationSource: No calibration for serial number " + quoted(serial_number) + ": " + reason + "."
              << std::endl;
    return entry;
  };

  if (!canNameCalibrationEntry(serial_number)) {
    return withoutCalibration("an entry's name has 1 to 64 letters, digits, '-' or '_' and nothing else");
  }
  if (location_.empty()) return withoutCalibration("no calibration folder was given");

  const std::string folder = location_ + "/" + serial_number;
  const std::string manifest_path = folder + "/manifest.txt";
  const FileContents manifest_file = readFile(manifest_path, kLargestManifest_bytes);
  if (!manifest_file.problem.empty()) return withoutCalibration("'" + manifest_path + "' " + manifest_file.problem);

  std::string problem;
  CalibrationManifest manifest = parseCalibrationManifest(manifest_file.bytes, problem);
  if (!problem.empty()) return withoutCalibration("'" + manifest_path + "' " + problem);

  const std::string text_path = folder + "/calibration.txt";
  FileContents text_file = readFile(text_path, kLargestText_bytes);
  if (!text_file.problem.empty()) return withoutCalibration("'" + text_path + "' " + text_file.problem);
  if (text_file.bytes.size() != manifest.size_bytes) {
    return withoutCalibration("'" + text_path + "' has " + std::to_string(text_file.bytes.size()) +
                              " bytes, but its manifest says " + std::to_string(manifest.size_bytes) +
                              "; copy the entry again");
  }
  entry.text = std::move(text_file.bytes);
  entry.version = std::move(manifest.version);
  return entry;
}

}  // namespace keocam
