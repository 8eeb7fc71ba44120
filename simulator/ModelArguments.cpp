#include "simulator/ModelArguments.h"

#include <algorithm>

namespace simulator {
namespace {

/// Empty for a model that there is, as the parser wants it.
std::string checkModel(const std::string& id) {
  if (findModel(id) != nullptr) return {};
  return "there is no model '" + id + "'; --list-models lists them";
}

}  // namespace

ModelArguments::ModelArguments(CLI::App& app) {
  constexpr const char* kGroup = "Models";
  app.add_option("--model", ids_, "The cores' model: one for all cameras, or one option for each")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->check(checkModel)
      ->option_text("MODEL")
      ->group(kGroup)
      ->excludes(app.get_option("--size"));
  auto* list = app.add_flag("--list-models", list_,
                            "List the models with sensor, pictures a second and video standards, and end")
                   ->group(kGroup);
  app.add_flag("--json", json_, "With --list-models: as JSON")->group(kGroup)->needs(list);
}

uint32_t ModelArguments::count() const { return std::max(1U, static_cast<uint32_t>(ids_.size())); }

void ModelArguments::check(uint32_t cameras) const {
  if (ids_.size() > kMostCameras) {
    throw CLI::ValidationError("--model", "at most " + std::to_string(kMostCameras) + " cameras are possible");
  }
  if (ids_.size() <= 1 || ids_.size() == cameras) return;
  throw CLI::ValidationError("--model", std::to_string(ids_.size()) + " models are too " +
                                            (ids_.size() < cameras ? "few" : "many") + " for " +
                                            std::to_string(cameras) + (cameras == 1 ? " camera" : " cameras") +
                                            ": give one for all or one for each");
}

const CoreModel* ModelArguments::of(uint32_t index) const {
  if (ids_.empty()) return nullptr;
  return findModel(ids_.size() == 1 ? ids_[0] : ids_.at(index));
}

}  // namespace simulator
