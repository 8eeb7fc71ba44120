#include "radiometry/TemperatureConverter.h"

namespace keocam {

TemperatureConverter::TemperatureConverter(CameraSerialSettings& camera) : camera_(&camera) {}
TemperatureConverter::~TemperatureConverter() = default;
TemperatureConverter::TemperatureConverter(TemperatureConverter&&) noexcept = default;
TemperatureConverter& TemperatureConverter::operator=(TemperatureConverter&&) noexcept = default;

TemperatureModel TemperatureConverter::model() {
  refreshCoreTemperature(*camera_);
  return TemperatureModel::inForce(*camera_);
}

TemperatureTables& TemperatureConverter::tables() {
  const TemperatureModel in_force = model();
  if (tables_ == nullptr || tables_->model() != in_force) tables_ = std::make_shared<TemperatureTables>(in_force);
  return *tables_;
}

void TemperatureConverter::convert(const uint16_t* raw, std::size_t count, float* temperatures, TemperatureUnit unit) {
  tables().convert(raw, count, temperatures, unit);
}

void TemperatureConverter::convert(const uint16_t* raw, std::size_t count, double* temperatures, TemperatureUnit unit) {
  tables().convert(raw, count, temperatures, unit);
}

void TemperatureConverter::convertToCentikelvin(const uint16_t* raw, std::size_t count, uint16_t* centikelvin) {
  tables().convertToCentikelvin(raw, count, centikelvin);
}

}  // namespace keocam
