// Replies of the thermal core, any bytes of any length. Whatever comes, status and value agree, nothing is written
// beyond a value's room, and no checked operation takes a damaged reply, or one to something else, for an answer.
//
// The input: what to mend in the reply, which parameter, which setting, and which selectors and value, a byte each; the
// rest is the reply.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include "fuzz/Invariant.h"
#include "fuzz/QuietErrors.h"
#include "fuzz/ReplyFrame.h"
#include "serial/CoreReadings.h"
#include "serial/CoreSettings.h"
#include "serial/Frame.h"
#include "serial/ParameterTable.h"
#include "tests/double/ScriptedLayer.h"

namespace {

using fuzz::Bytes;
using fuzz::require;
using keocam::ParameterRow;
using keocam::SettingRow;

constexpr std::size_t kChoices = 4;
constexpr std::size_t kLongestReply_bytes = 1024;  // more is not received
constexpr uint8_t kUntouched = 0xA5;
constexpr uint8_t kRepairCode = 1;
constexpr uint8_t kRepairLength = 2;
constexpr uint8_t kRepairCrcs = 4;

struct Input {
  fuzz::Repairs repairs;
  const ParameterRow& parameter;
  const SettingRow& setting;
  uint8_t selectors;  // and the value to be written
  Bytes reply;
};

Input parse(const uint8_t* data, std::size_t size) {
  const keocam::ParameterRows parameters = keocam::parameterRows();
  const keocam::SettingRows settings = keocam::allSettings();
  return {{(data[0] & kRepairCode) != 0, (data[0] & kRepairLength) != 0, (data[0] & kRepairCrcs) != 0},
          parameters.first[data[1] % parameters.count],
          *settings.first[data[2] % settings.count],
          data[3],
          Bytes(data + kChoices, data + size)};
}

class CoreReplies {
 public:
  explicit CoreReplies(const Input& input) : input_(input) {}

  void checkGetResponse();
  void checkVerifyReply();
  void checkGetParameter();
  void checkSendMessage();
  void checkReadSetting();
  void checkWriteSetting();
  void checkReadings();

 private:
  using Value = std::unique_ptr<uint8_t[]>;

  // What the library receives when `code` is asked; it is the answer to the next read.
  Bytes answerTo(uint8_t code) {
    Bytes reply = fuzz::repaired(input_.reply, input_.repairs, code);
    replies().push_back(reply);
    reply.resize(std::min(reply.size(), kLongestReply_bytes));
    return reply;
  }
  static std::deque<Bytes>& replies() { return scripted::network().serial.replies; }

  // What a checked operation says of a reply that is or is not as it must be.
  static void requireChecked(ResponseStatuses status, const Bytes& reply, uint8_t code, std::size_t least_payload) {
    require(replies().empty(), "an exchange reads one reply");
    const ResponseStatuses said = fuzz::statusIn(reply);
    const bool sound = fuzz::isSound(reply, code, said == CAM_OK ? least_payload : 0);
    require((status == CAM_OK) == (sound && said == CAM_OK), "CAM_OK is for sound replies alone");
    require(!sound || status == said, "what the core says is passed on");
  }

  template <typename T, typename IsZero>
  void checkReading(keocam::CoreValue<T> (*read)(CameraSerialSettings&), FunctionCodes code, std::size_t bytes,
                    IsZero isZero) {
    const Bytes reply = answerTo(code);
    const keocam::CoreValue<T> reading = read(core_);
    requireChecked(reading.status, reply, code, bytes);
    require(reading.ok() || isZero(reading.value), "a failed reading is one of zeros");
  }

  const Input& input_;
  const fuzz::QuietErrors quiet_;
  scripted::Device description_;
  const std::unique_ptr<PvDevice> device_{PvLayer::makeDevice(description_)};
  CameraSerialSettings core_{device_.get(), PvDeviceSerialBulk0};
};

void CoreReplies::checkGetResponse() {
  require(core_.GetResponse(nullptr) == UNKNOWN_ERROR, "no reply is an unknown error");
  if (input_.reply.size() < 2) return;
  const Value start(new uint8_t[2]);  // no more than it may read
  std::copy_n(input_.reply.begin(), 2, start.get());
  require(core_.GetResponse(start.get()) == fuzz::statusIn(input_.reply), "the status byte decides");
}

void CoreReplies::checkVerifyReply() {
  const uint8_t code = input_.parameter.code;
  const Bytes reply = fuzz::repaired(input_.reply, input_.repairs, code);
  const std::size_t least_payload = input_.selectors;
  keocam::ReplyBuffer buffer;
  std::copy_n(reply.begin(), std::min(reply.size(), buffer.bytes.size()), buffer.bytes.begin());
  buffer.size = static_cast<uint32_t>(reply.size());  // which may be more than the buffer holds
  const ResponseStatuses status = keocam::verifyReply(buffer, code, least_payload);
  const bool sound = reply.size() <= buffer.bytes.size() && fuzz::isSound(reply, code, least_payload);
  require((status == CAM_OK) == sound, "verifyReply lets exactly the sound replies through");
}

void CoreReplies::checkGetParameter() {
  const ParameterRow& row = input_.parameter;
  const auto radiometric = static_cast<RadiometricParameters>(input_.selectors % 7);
  core_.temperatureSensor = core_.radiometrySelector = input_.selectors % 3;
  const std::size_t room = row.reading.reply_bytes;
  const Value value(new uint8_t[room]);  // one byte more would be found
  std::fill_n(value.get(), room, kUntouched);
  const Bytes reply = answerTo(row.code);

  const ResponseStatuses status =
      core_.GetParameter(row.code, value.get(), radiometric, static_cast<DigitalOutputModes>(input_.selectors % 6));

  const bool asked = row.reading.access == keocam::ReadAccess::Readable &&
                     (row.code != RADIOMETRIC_PARAMETER || radiometric != RADIOMETRIC_NONE);
  require(replies().empty() == asked, "what cannot be read is not asked for");
  replies().clear();
  require(asked ? status == fuzz::statusIn(reply) : status != CAM_OK, "the status byte decides");
  if (status != CAM_OK) {
    require(std::count(value.get(), value.get() + room, kUntouched) == static_cast<std::ptrdiff_t>(room),
            "a failed read leaves the value alone");
  } else if (row.reading.form == keocam::ReplyForm::Word) {
    uint16_t word = 0;
    std::memcpy(&word, value.get(), sizeof word);
    require(word == fuzz::payloadByte(reply, 0) * 256 + fuzz::payloadByte(reply, 1), "a word is the first two bytes");
  } else {
    for (std::size_t i = 0; i < room; ++i) require(value[i] == fuzz::payloadByte(reply, i), "bytes are as they came");
  }
}

void CoreReplies::checkSendMessage() {
  const uint8_t code = input_.parameter.code;
  auto size = static_cast<uint16_t>(input_.reply.size());
  Bytes payload = input_.reply;
  const Value request(core_.prepareMessage(code, size, size > 0 ? payload.data() : nullptr));
  require(fuzz::isSound(Bytes(request.get(), request.get() + size + keocam::kFrameOverhead_bytes), code, size),
          "a request is sound");
  const Bytes reply = answerTo(code);
  const Value answer(core_.sendMessage(request.get(), size, input_.selectors));
  require(replies().empty(), "an exchange reads one reply");
  require((answer != nullptr) == (fuzz::statusIn(reply) == CAM_OK), "an answer is for CAM_OK alone");
  if (answer == nullptr) return;
  require(std::equal(reply.begin(), reply.end(), answer.get()), "an answer begins with the reply");
  require(std::all_of(answer.get() + reply.size(), answer.get() + kLongestReply_bytes, [](int b) { return b == 0; }),
          "an answer is filled up with zeros");
}

void CoreReplies::checkReadSetting() {
  const SettingRow& setting = input_.setting;
  const std::size_t bytes = keocam::findParameter(setting.code)->reading.reply_bytes;
  const Bytes reply = answerTo(setting.code);
  const keocam::CoreValue<int> read = keocam::readSetting(core_, setting);
  requireChecked(read.status, reply, setting.code, bytes);
  keocam::SettingPayload payload{};
  for (std::size_t i = 0; read.ok() && i < std::min(bytes, payload.size()); ++i) {
    payload[i] = fuzz::payloadByte(reply, i);
  }
  require(read.value == keocam::decodeSetting(setting, payload), "the value is what the reply, or zeros, mean");
  require(setting.choices.empty() || read.value == 0 || keocam::hasValue(setting, read.value),
          "a choice is one of those there are");
}

void CoreReplies::checkWriteSetting() {
  const SettingRow& setting = input_.setting;
  const keocam::SettingRange range = keocam::rangeOf(setting);
  // Within the range, and one beyond either end of it.
  const int value = input_.selectors == 0xFF ? range.highest + 1 : range.lowest - 1 + input_.selectors;
  const bool shares = keocam::sharesItsValue(setting);
  const Bytes reply = answerTo(setting.code);
  if (shares) answerTo(setting.code);
  const ResponseStatuses status = keocam::writeSetting(core_, setting, value);
  const std::size_t unused = replies().size();
  replies().clear();
  const std::size_t read_bytes = keocam::findParameter(setting.code)->reading.reply_bytes;
  if (!keocam::hasValue(setting, value)) {
    require(status == CAM_RANGE_ERROR && unused == (shares ? 2 : 1), "nothing is sent out of range");
  } else {
    const bool readable = fuzz::statusIn(reply) == CAM_OK && fuzz::isSound(reply, setting.code, read_bytes);
    require(unused == (shares && !readable ? 1 : 0), "nothing is written that could not be read");
    requireChecked(status, reply, setting.code, shares ? read_bytes : 0);
  }
}

void CoreReplies::checkReadings() {
  const auto isZero = [](double value) { return value == 0.0; };
  checkReading(keocam::readSensorTemperatureC, TEMPERATURE, 2, isZero);
  checkReading(keocam::readHousingTemperatureC, TEMPERATURE, 2, isZero);
  checkReading(keocam::readShutterTemperatureC, SHUTTER_TEMPERATURE, 2, isZero);
  checkReading(keocam::readSerialNumbers, SERIAL_NUMBER, 8,
               [](const keocam::SerialNumbers& numbers) { return numbers.core == 0 && numbers.sensor == 0; });
  checkReading(keocam::readVersions, VERSION, 8, [](const keocam::Versions& versions) {
    return versions.software.major == 0 && versions.software.minor == 0 && versions.firmware.major == 0 &&
           versions.firmware.minor == 0;
  });
  checkReading(keocam::readPartNumber, CAMERA_PART_NUMBER, 32, [](const std::string& text) { return text.empty(); });
}

}  // namespace

// The linker puts it in the place of the library's usleep. Time as unit tests record it is not for a fuzzer, whose own
// threads and time-outs need the real one.
extern "C" int __wrap_usleep(unsigned int /*microseconds*/) {  // NOLINT(bugprone-reserved-identifier)
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  if (size < kChoices) return 0;
  const Input input = parse(data, size);
  scripted::network() = {};
  {
    CoreReplies replies(input);
    replies.checkGetResponse();
    replies.checkVerifyReply();
    replies.checkGetParameter();
    replies.checkSendMessage();
    replies.checkReadSetting();
    replies.checkWriteSetting();
    replies.checkReadings();
  }
  require(scripted::liveObjects("PvDeviceSerialPort") == 0 && scripted::liveObjects("PvDeviceAdapter") == 0,
          "nothing of an exchange is left");
  scripted::eventLog().clear();
  return 0;
}
