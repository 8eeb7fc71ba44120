#include "apps/keocam/PendingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

constexpr mode_t kOrdinaryMode = 0666;

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
  throw CommandFailure(ExitStatus::Failure, inQuotes(path) + " cannot be written: " + reason + ".");
}

[[noreturn]] void failWithErrno(const std::string& path) { fail(path, std::strerror(errno)); }

// The file that really has the name: a symbolic link keeps being one, and its target is replaced. Devices, pipes and
// folders are refused, for to replace those by a file would break more than the picture is worth.
std::string resolved(const std::string& path) {
  if (path.empty()) fail(path, "the name is empty");
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT) return path;
    failWithErrno(path);
  }
  if (S_ISDIR(status.st_mode)) fail(path, "it is a folder; add a file's name");
  if (!S_ISREG(status.st_mode)) fail(path, "it is not a regular file");
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  if (error) fail(path, error.message());
  return target.string();
}

mode_t umaskOfProcess() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return mask;
}

}  // namespace

PendingFile::PendingFile(const std::string& path) : path_(resolved(path)), temporary_path_(path_ + ".XXXXXX") {
  fd_ = ::mkostemp(temporary_path_.data(), O_CLOEXEC);
  if (fd_ < 0) failWithErrno(path_);
}

PendingFile::~PendingFile() {
  if (fd_ >= 0) ::close(fd_);
  if (!temporary_path_.empty()) ::unlink(temporary_path_.c_str());
}

void PendingFile::commit(const std::vector<uint8_t>& contents) {
  std::size_t written = 0;
  while (written < contents.size()) {
    const ssize_t count = ::write(fd_, contents.data() + written, contents.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failWithErrno(path_);
    written += static_cast<std::size_t>(count);
  }
  // A temporary file is private; the finished one is as readable as any other that the user makes.
  if (::fchmod(fd_, kOrdinaryMode & ~umaskOfProcess()) != 0) failWithErrno(path_);
  const int fd = fd_;
  fd_ = -1;
  if (::close(fd) != 0) failWithErrno(path_);
  if (::rename(temporary_path_.c_str(), path_.c_str()) != 0) failWithErrno(path_);
  temporary_path_.clear();
}

}  // namespace keocam::cli
