// A converter that keeps its camera's state.
#include <utility>
#include <vector>

#include "calibration/Calibration.h"
#include "radiometry/ModelInForce.h"
#include "radiometry/TemperatureConverter.h"
#include "serial/CoreTemperature.h"

namespace keocam {
namespace {

// The selected lens' corrections in a range, for every row.
std::vector<LensCorrection> correctionsInForce(const CameraSerialSettings& camera) {
  if (calibrationVect.empty()) return {};
  const CalibrationStruct& lens = calibrationVect.at(static_cast<std::size_t>(currentLensNumber));
  std::vector<LensCorrection> corrections;
  for (std::size_t row = 0; row < std::size(lens.data[0]); ++row) {
    corrections.emplace_back(lens, camera.rangeMode, row);
  }
  return corrections;
}

}  // namespace

struct PinnedConverter::State {
  ObjectParameters object;
  Absorption absorption;
  double core_temperature;
  std::vector<LensCorrection> corrections;  ///< by row; empty without a calibration
  // Its contents are filled in when they are first asked for, by whichever thread comes first.
  std::shared_ptr<TemperatureTables> tables;
};

PinnedConverter::PinnedConverter(std::shared_ptr<const State> state) : state_(std::move(state)) {}

PinnedConverter TemperatureConverter::pin() {
  tables();  // As of now.
  return PinnedConverter(std::make_shared<PinnedConverter::State>(PinnedConverter::State{
      objectInForce(), absorptionInForce(), coreTemperature, correctionsInForce(*camera_), tables_}));
}

PinnedConverter PinnedConverter::withObject(const ObjectParameters& object) const {
  State state = *state_;
  state.object = object;
  SensorModel sensor = model().sensor();
  sensor.sight = sightOf(object, state.absorption, sensor.response, sensor.sight.optics_transmission);
  state.tables = std::make_shared<TemperatureTables>(TemperatureModel(sensor, model().correction()));
  return PinnedConverter(std::make_shared<State>(std::move(state)));
}

PinnedConverter PinnedConverter::atCoreTemperature(double celsius) const {
  State state = *state_;
  state.core_temperature = celsius;
  const LensCorrection correction =
      state.corrections.empty() ? LensCorrection() : state.corrections[calibrationRow(celsius)];
  // The same row, the same tables.
  if (correction != model().correction()) {
    state.tables = std::make_shared<TemperatureTables>(TemperatureModel(model().sensor(), correction));
  }
  return PinnedConverter(std::make_shared<State>(std::move(state)));
}

void PinnedConverter::convert(const uint16_t* raw, std::size_t count, float* temperatures, TemperatureUnit unit) const {
  state_->tables->convert(raw, count, temperatures, unit);
}

void PinnedConverter::convert(const uint16_t* raw, std::size_t count, double* temperatures,
                              TemperatureUnit unit) const {
  state_->tables->convert(raw, count, temperatures, unit);
}

void PinnedConverter::convertToCentikelvin(const uint16_t* raw, std::size_t count, uint16_t* centikelvin) const {
  state_->tables->convertToCentikelvin(raw, count, centikelvin);
}

const TemperatureModel& PinnedConverter::model() const { return state_->tables->model(); }
const ObjectParameters& PinnedConverter::object() const { return state_->object; }
double PinnedConverter::coreTemperatureC() const { return state_->core_temperature; }

}  // namespace keocam
