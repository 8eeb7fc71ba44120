// The program's options for the cores' models.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "simulator/core/ModelCatalogue.h"

namespace simulator {

constexpr uint32_t kMostCameras = 64;

class ModelArguments {
 public:
  /// Declares the options; this object must outlive the parsing. A model says the size, so `--size` must have been
  /// declared.
  explicit ModelArguments(CLI::App& app);
  ModelArguments(const ModelArguments&) = delete;
  ModelArguments& operator=(const ModelArguments&) = delete;

  /// The models are to be listed instead of anything else.
  bool listWanted() const { return list_; }
  std::string list() const { return json_ ? modelJson() : modelTable(); }

  /// How many cameras the models are for; 1 without models.
  uint32_t count() const;

  /// To be called after parsing: throws CLI::ValidationError unless there is no model, one for all, or one for each of
  /// as many cameras as there can be.
  void check(uint32_t cameras) const;

  /// The model of camera `index`; null without models.
  const CoreModel* of(uint32_t index) const;

 private:
  std::vector<std::string> ids_;
  bool list_ = false;
  bool json_ = false;
};

}  // namespace simulator
