// Settings as the command line names them.
#pragma once

#include <string>
#include <vector>

#include "serial/SettingRow.h"

namespace keocam::cli {

/// The settings of these names, all if there is none. Throws CommandFailure (Usage) that tells every wrong name.
std::vector<const SettingRow*> settingsNamed(const std::vector<std::string>& names);

struct Assignment {
  const SettingRow* setting;
  int value;
};

/// What arguments such as "ffc-mode=manual" mean, in their order. Throws CommandFailure (Usage) that tells every wrong
/// one, also if there is none, or one setting twice.
std::vector<Assignment> assignmentsIn(const std::vector<std::string>& arguments);

/// For help: each setting's name with its meaning, respectively with what it accepts, within 80 columns.
std::string settingMeanings();
std::string settingChoices();

}  // namespace keocam::cli
