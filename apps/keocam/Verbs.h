// How a verb and its options become part of the command line. For .cpp files only.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "apps/keocam/CommandLine.h"

namespace keocam::cli {

struct Verb {
  const char* name;
  const char* description;
  const char* example;
};

inline CLI::App* addVerb(CLI::App& parent, const Verb& verb, const std::string& notes = {}) {
  CLI::App* const app = parent.add_subcommand(verb.name, verb.description);
  app->group("Verbs");
  app->footer(notes + "Example: " + verb.example + "\n\n\"keocam --help\" tells of -q, -v and exit statuses.");
  return app;
}

template <typename Options>
struct AddedVerb {
  CLI::App* app;
  Options& options;  ///< to bind the verb's options to; lives as long as `app`
};

/// Where this verb is used, `chosen` becomes its options as given. `notes` stand before the example in its help.
template <typename Options>
AddedVerb<Options> addVerbWithOptions(CLI::App& parent, const Verb& verb, Command& chosen,
                                      const std::string& notes = {}) {
  CLI::App* const app = addVerb(parent, verb, notes)->fallthrough();
  const auto options = std::make_shared<Options>();
  app->callback([options, &chosen] { chosen = *options; });
  return {app, *options};
}

inline void addCameraOption(CLI::App& app, std::optional<std::string>& serial_number) {
  app.add_option("-c,--camera", serial_number, "Serial number; needed if there are several")->type_name("SERIAL");
}

inline void addCalibrationsOption(CLI::App& app, std::string& folder) {
  app.add_option("--calibrations", folder, "Folder of calibrations [that of KEOCAM_DATA_DIR]")
      ->type_name("DIR")
      ->envname("KEOCAM_DATA_DIR");
}

}  // namespace keocam::cli
