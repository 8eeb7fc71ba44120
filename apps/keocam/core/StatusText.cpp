#include "apps/keocam/core/StatusText.h"

#include <algorithm>

namespace keocam::cli {
namespace {

struct StatusRow {
  ResponseStatuses status;
  const char* name;
  const char* words;
  const char* advice;
};

constexpr const char* kTryAgain = "Try again; if that does not help, check the camera's cable and its power.";

constexpr StatusRow kRows[] = {
    {CAM_OK, "CAM_OK", "the core has done it", "There is nothing to do."},
    {CAM_RANGE_ERROR, "CAM_RANGE_ERROR", "the core refuses the value",
     "Choose another; the core's own bounds are narrower than those that are known."},
    {CAM_CHECKSUM_ERROR, "CAM_CHECKSUM_ERROR", "the message or its answer was damaged on its way", kTryAgain},
    {CAM_UNDEFINED_PROCESS_ERROR, "CAM_UNDEFINED_PROCESS_ERROR", "the core does not know this kind of message",
     "The camera has another kind of core; \"keocam core info\" may tell which."},
    {CAM_UNDEFINED_FUNCTION_ERROR, "CAM_UNDEFINED_FUNCTION_ERROR", "the core does not know this function",
     "Its firmware does not have it; \"keocam core info\" tells the version."},
    {CAM_TIMEOUT_ERROR, "CAM_TIMEOUT_ERROR", "the core did not get the whole message in time", kTryAgain},
    {CAM_BYTE_COUNT_ERROR, "CAM_BYTE_COUNT_ERROR", "the message or its answer had a wrong length", kTryAgain},
    {CAM_FEATURE_NOT_ENABLED, "CAM_FEATURE_NOT_ENABLED", "this core does not offer that",
     "Its part number decides what it offers; \"keocam core info\" tells it."},
    {CAM_NOT_READABLE, "CAM_NOT_READABLE", "it cannot be read", "It can only be written."},
    {CAM_NOT_WRITABLE, "CAM_NOT_WRITABLE", "it cannot be written", "It can only be read."},
    {UNKNOWN_ERROR, "UNKNOWN_ERROR", "no valid answer came from the core", kTryAgain},
};

const StatusRow& rowOf(ResponseStatuses status) {
  const auto* const found =
      std::find_if(std::begin(kRows), std::end(kRows), [status](const StatusRow& row) { return row.status == status; });
  return found != std::end(kRows) ? *found : *std::prev(std::end(kRows));
}

}  // namespace

std::string nameOf(ResponseStatuses status) { return rowOf(status).name; }

std::string wordsFor(ResponseStatuses status) {
  const StatusRow& row = rowOf(status);
  return std::string(row.words) + " (" + row.name + ")";
}

std::string adviceOn(ResponseStatuses status) { return rowOf(status).advice; }

ExitStatus exitStatusOf(ResponseStatuses status) {
  return rowOf(status).status == UNKNOWN_ERROR ? ExitStatus::LinkLost : ExitStatus::Failure;
}

bool isWorthRepeating(ResponseStatuses status) {
  switch (rowOf(status).status) {
    case CAM_CHECKSUM_ERROR:
    case CAM_TIMEOUT_ERROR:
    case CAM_BYTE_COUNT_ERROR:
    case UNKNOWN_ERROR:
      return true;
    default:
      return false;
  }
}

CommandFailure notRead(const std::vector<FailedItem>& items) {
  std::string text;
  ExitStatus exit_status = ExitStatus::Failure;
  for (const StatusRow& row : kRows) {
    std::string names;
    for (const FailedItem& item : items) {
      if (&rowOf(item.status) != &row) continue;
      names += (names.empty() ? "" : ", ") + item.name;
      if (exitStatusOf(item.status) == ExitStatus::LinkLost) exit_status = ExitStatus::LinkLost;
    }
    if (names.empty()) continue;
    text +=
        (text.empty() ? "" : "\n") + ("Not read, because " + wordsFor(row.status)) + ": " + names + ". " + row.advice;
  }
  return {exit_status, text};
}

}  // namespace keocam::cli
