#include "simulator/FileAccess.h"

#include <algorithm>

#include "simulator/RegisterAddresses.h"

namespace simulator {

void FileAccess::execute(uint64_t now_ns) {
  Outcome outcome{FileStatus::Failure, 0};
  switch (static_cast<FileOperation>(registers_.get(address::kFileOperation))) {
    case FileOperation::Open:
      outcome = open();
      break;
    case FileOperation::Close:
      outcome = close();
      break;
    case FileOperation::Read:
      outcome = read(now_ns);
      break;
    case FileOperation::Write:
      outcome = write(now_ns);
      break;
    case FileOperation::Delete:
      outcome = discard(now_ns);
      break;
  }
  registers_.set(address::kFileStatus, static_cast<uint32_t>(outcome.status));
  registers_.set(address::kFileResult, outcome.result);
}

FileAccess::Outcome FileAccess::open() {
  if (open_) return {FileStatus::Failure, 0};
  open_ = true;
  mode_ = static_cast<FileOpenMode>(registers_.get(address::kFileOpenMode));
  return {FileStatus::Success, 0};
}

FileAccess::Outcome FileAccess::close() {
  if (!open_) return {FileStatus::Failure, 0};
  open_ = false;
  return {FileStatus::Success, 0};
}

FileAccess::Outcome FileAccess::read(uint64_t now_ns) {
  if (!open_ || mode_ == FileOpenMode::Write) return {FileStatus::Failure, 0};
  const Bytes bytes = uart_.read(registers_.get(address::kFileLength), now_ns);
  std::copy(bytes.begin(), bytes.end(), registers_.bytes(address::kFileBuffer));
  return {FileStatus::Success, static_cast<uint32_t>(bytes.size())};
}

FileAccess::Outcome FileAccess::write(uint64_t now_ns) {
  if (!open_ || mode_ == FileOpenMode::Read) return {FileStatus::Failure, 0};
  // Only the length register counts: a write of memory carries up to three bytes of padding.
  const std::size_t taken =
      uart_.write(registers_.bytes(address::kFileBuffer), registers_.get(address::kFileLength), now_ns);
  return {FileStatus::Success, static_cast<uint32_t>(taken)};
}

FileAccess::Outcome FileAccess::discard(uint64_t now_ns) {
  uart_.discardReceived(now_ns);
  return {FileStatus::Success, 0};
}

void FileAccess::abandon(uint64_t now_ns) {
  open_ = false;
  uart_.discardReceived(now_ns);
}

}  // namespace simulator
