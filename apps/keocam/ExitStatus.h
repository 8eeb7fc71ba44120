// The exit statuses of the command line: what scripts can rely on.
#pragma once

namespace keocam::cli {

enum class ExitStatus : int {
  Ok = 0,
  Failure = 1,
  Usage = 2,
  NoSuchCamera = 3,
  InUse = 4,
  LinkLost = 5,
};

struct ExitStatusMeaning {
  ExitStatus status;
  const char* meaning;
};

inline constexpr ExitStatusMeaning kExitStatusMeanings[] = {
    {ExitStatus::Ok, "success"},
    {ExitStatus::Failure, "any failure without a status of its own"},
    {ExitStatus::Usage, "the command line makes no sense, or more than one camera fits it"},
    {ExitStatus::NoSuchCamera, "no camera, or none with this serial number"},
    {ExitStatus::InUse, "another program or host controls the camera"},
    {ExitStatus::LinkLost, "the camera or its core does not answer, sends no frames, or was lost"},
};

}  // namespace keocam::cli
