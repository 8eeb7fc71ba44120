#include "serial/CoreReadings.h"

#include "serial/CheckedExchange.h"

namespace keocam {
namespace {

constexpr double kStepsPerDegreeOfSensor = 10.0;
constexpr double kStepsPerDegree = 100.0;

uint16_t wordAt(const ReplyBuffer& reply, std::size_t offset) {
  const uint8_t* const bytes = reply.payload() + offset;
  return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}

uint32_t longAt(const ReplyBuffer& reply, std::size_t offset) {
  return static_cast<uint32_t>(wordAt(reply, offset)) << 16 | wordAt(reply, offset + 2);
}

CoreValue<double> readTemperature(CameraSerialSettings& core, FunctionCodes code, uint32_t sensor,
                                  double steps_per_degree) {
  Selectors selectors;
  selectors.temperature_sensor = sensor;
  const CoreValue<ReplyBuffer> reply = checkedRead(core, code, selectors);
  return {reply.status, reply.ok() ? wordAt(reply.value, 0) / steps_per_degree : 0.0};
}

}  // namespace

CoreValue<double> readSensorTemperatureC(CameraSerialSettings& core) {
  return readTemperature(core, TEMPERATURE, 0, kStepsPerDegreeOfSensor);
}

CoreValue<double> readHousingTemperatureC(CameraSerialSettings& core) {
  return readTemperature(core, TEMPERATURE, 1, kStepsPerDegree);
}

CoreValue<double> readShutterTemperatureC(CameraSerialSettings& core) {
  return readTemperature(core, SHUTTER_TEMPERATURE, 0, kStepsPerDegree);
}

CoreValue<SerialNumbers> readSerialNumbers(CameraSerialSettings& core) {
  const CoreValue<ReplyBuffer> reply = checkedRead(core, SERIAL_NUMBER, {});
  if (!reply.ok()) return {reply.status, {}};
  return {reply.status, {longAt(reply.value, 0), longAt(reply.value, 4)}};
}

CoreValue<Versions> readVersions(CameraSerialSettings& core) {
  const CoreValue<ReplyBuffer> reply = checkedRead(core, VERSION, {});
  if (!reply.ok()) return {reply.status, {}};
  const Version software{wordAt(reply.value, 0), wordAt(reply.value, 2)};
  return {reply.status, {software, {wordAt(reply.value, 4), wordAt(reply.value, 6)}}};
}

CoreValue<std::string> readPartNumber(CameraSerialSettings& core) {
  const CoreValue<ReplyBuffer> reply = checkedRead(core, CAMERA_PART_NUMBER, {});
  if (!reply.ok()) return {reply.status, {}};
  const auto* const text = reinterpret_cast<const char*>(reply.value.payload());
  std::string part_number(text, findParameter(CAMERA_PART_NUMBER)->reading.reply_bytes);
  return {reply.status, part_number.substr(0, part_number.find('\0'))};
}

}  // namespace keocam
