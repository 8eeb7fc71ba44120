// What a connection comes to when a step of it fails: what Connect returns, says and leaves. Of the steps without which
// there are frames all the same, the answer is ignored.
#include <algorithm>
#include <ios>
#include <iostream>
#include <stdexcept>

#include "tests/unit/camera/WholeConnect.h"

namespace {

constexpr const char* kEverything = " device stream pipeline core";

template <typename Case>
std::string nameOf(const testing::TestParamInfo<Case>& info) {
  return info.param.name;
}

/// What Connect returns or throws, as text.
std::string outcomeOf(ScriptedCamera& camera) {
  try {
    return std::to_string(camera.Connect());
  } catch (const std::length_error&) {
    return "length_error";
  } catch (const std::out_of_range&) {
    return "out_of_range";
  } catch (const std::invalid_argument&) {
    return "invalid_argument";
  }
}

struct RefusedCall {
  const char* name;
  const char* call;
};

class RefusedCallTest : public WholeConnectTest, public testing::WithParamInterface<RefusedCall> {};

TEST_P(RefusedCallTest, Connect_GoesOnAsIfNothingHadFailed) {
  scripted::network().refused = {GetParam().call};
  EXPECT_EQ(outcomeOf(camera_), "0");
  EXPECT_EQ(takeAll(), wholeConnect());
  EXPECT_EQ(left(), kEverything);
  EXPECT_EQ(camera_.GetStatus(), "Connected");
}

INSTANTIATE_TEST_SUITE_P(
    Calls, RefusedCallTest,
    testing::Values(RefusedCall{"PacketSize", "PvDeviceGEV::NegotiatePacketSize 0 0"},
                    RefusedCall{"StreamDestination", "PvDeviceGEV::SetStreamDestination 192.0.2.1 50123 0"},
                    RefusedCall{"BufferCount", "PvPipeline::SetBufferCount 2"},
                    RefusedCall{"BufferSize", "PvPipeline::SetBufferSize 655360"},
                    RefusedCall{"PixelFormat", "PvGenParameterArray::SetEnumValue PixelFormat Mono14"},
                    RefusedCall{"TestPattern", "PvGenParameterArray::SetEnumValue TestPattern Off"},
                    RefusedCall{"BulkSelector", "PvGenParameterArray::SetEnumValue BulkSelector Bulk0"},
                    RefusedCall{"BulkMode", "PvGenParameterArray::SetEnumValue BulkMode UART"},
                    RefusedCall{"BulkBaudRate", "PvGenParameterArray::SetEnumValue BulkBaudRate Baud57600"},
                    RefusedCall{"BulkNumOfStopBits", "PvGenParameterArray::SetEnumValue BulkNumOfStopBits One"},
                    RefusedCall{"BulkParity", "PvGenParameterArray::SetEnumValue BulkParity None"},
                    RefusedCall{"BulkLoopback", "PvGenParameterArray::SetBooleanValue BulkLoopback false"},
                    RefusedCall{"Width", "PvGenParameterArray::SetIntegerValue Width 640"},
                    RefusedCall{"Height", "PvGenParameterArray::SetIntegerValue Height 512"}),
    nameOf<RefusedCall>);

/// What a failure can be written into.
struct Script {
  scripted::Device& device;
  AnsweringCore& core;
  Camera& camera;
};

struct Failure {
  const char* name;
  void (*fail)(const Script& script);
  const char* outcome;
  std::string last_as_ever;  ///< until this event, the log is as when nothing fails;
  Events then;               ///< and this is the rest of it
  const char* left;
  const char* status;
};

class ConnectFailureTest : public WholeConnectTest, public testing::WithParamInterface<Failure> {
 protected:
  void fail() { GetParam().fail({*device_, answering_, camera_}); }
};

TEST_P(ConnectFailureTest, Connect_DoesSaysAndLeaves) {
  const Failure& failure = GetParam();
  fail();
  EXPECT_EQ(outcomeOf(camera_), failure.outcome);

  const Events whole = wholeConnect();
  const auto last = std::find(whole.begin(), whole.end(), failure.last_as_ever);
  ASSERT_NE(last, whole.end());
  EXPECT_EQ(takeAll(), joined({Events(whole.begin(), last + 1), failure.then}));
  EXPECT_EQ(left(), failure.left);
  EXPECT_EQ(camera_.GetStatus(), failure.status);
}

TEST_P(ConnectFailureTest, Disconnect_ReleasesWhatIsStillAlive) {
  fail();
  outcomeOf(camera_);
  camera_.Disconnect();
  camera_.pipeline = nullptr;  // The pointer is kept, what it pointed to is not.
  EXPECT_EQ(scripted::liveObjects("PvPipeline"), 0);
  EXPECT_EQ(scripted::liveObjects("PvStream"), device_->stream_stays_open ? 0 : 1);
  EXPECT_EQ(scripted::liveObjects("PvDevice"), device_->stays_connected ? 0 : 1);
  EXPECT_EQ(camera_.GetStatus(), "Disconnected");
}

void use(const Script& script, const std::string& text, const char* version) {
  script.camera.calibrationText = text;
  script.camera.calibrationVersion = version;
}

std::string calibrationWithATableTooLarge() {
  constexpr std::size_t kCapacity_bytes = std::size_t{640} * 512 * 4;
  calibration_texts::Lens lens;
  lens.low.assign(kCapacity_bytes + 1, 0x5A);
  return record(lens);
}

void loseDuring(const char* call, const Script& script) {
  scripted::network().during.emplace(call, [&device = script.device] { device.stays_connected = false; });
}

Events repeated(int times, const Events& events) {
  Events all;
  for (int i = 0; i < times; ++i) all.insert(all.end(), events.begin(), events.end());
  return all;
}

const char* const kBeforeTheCore = "at hand: lenses L99mm, speed 1";
const char* const kBeforeTheStartUp = "at hand: core object, lenses L25mm L50mm, speed 2";
const char* const kLastFeature = "PvGenParameterArray::SetBooleanValue BulkLoopback false";

/// From the question for the part number to the line that tells it.
Events identification(const char* part_number) {
  return joined({readEvents(102),
                 writeEvents(114, {0x00, 0x04}),
                 writeEvents(12),
                 {startUpLine(std::string("Camera part number: ") + part_number)}});
}

// The device, its stream, and what they are told.
INSTANTIATE_TEST_SUITE_P(
    Link, ConnectFailureTest,
    testing::Values(Failure{"DeviceRefuses",
                            [](const Script& script) { script.device.accepts_connection = false; },
                            "-1",
                            "PvDevice::CreateAndConnect Cam A",
                            {"out: Camera: Unable to connect to Cam A.\\n"},
                            "",
                            "Disconnected"},
                    Failure{"StreamDoesNotOpen",
                            [](const Script& script) { script.device.stream_opens = false; },
                            "-1",
                            "PvStream::CreateAndOpen 192.0.2.10",
                            {"out: Camera: Unable to stream from Cam A.\\n"},
                            " device",
                            "Connected"},
                    Failure{"DeviceLostWithThePipelineMade",
                            [](const Script& script) { loseDuring("PvPipeline::SetBufferSize 655360", script); },
                            "-1",
                            kBeforeTheCore,
                            {},
                            " device stream pipeline",
                            "Disconnected"},
                    Failure{"DeviceLostBeforeTheStartUp",
                            [](const Script& script) { loseDuring("PvDevice::IsConnected", script); },
                            "0",
                            kBeforeTheStartUp,
                            {startUpLine("Camera device not connected", "err"), "PvStream::IsOpen"},
                            kEverything,
                            "Disconnected"},
                    Failure{"DeviceAndStreamLostBeforeTheStartUp",
                            [](const Script& script) {
                              loseDuring("PvDevice::IsConnected", script);
                              script.device.stream_stays_open = false;
                            },
                            "-1",
                            kBeforeTheStartUp,
                            {startUpLine("Camera device not connected", "err"), "PvStream::IsOpen"},
                            kEverything,
                            "Disconnected"},
                    Failure{"StreamClosedMeanwhile",
                            [](const Script& script) { script.device.stream_stays_open = false; },
                            "-1",
                            "PvStream::IsOpen",
                            {},
                            kEverything,
                            "Connected"}),
    nameOf<Failure>);

// The core, from its silence to texts that are none of a core.
INSTANTIATE_TEST_SUITE_P(
    Core, ConnectFailureTest,
    testing::Values(
        Failure{"Silent", [](const Script& script) { script.core.unheard = 1000; }, "0", kLastFeature,
                joined({repeated(10, unansweredWriteEvents(0)),
                        {startUpLine("Checking part number")},
                        readEvents(102),
                        {"err: CameraSerialSettings::GetParameter: Error reading message from camera.\\n",
                         startUpLine("Camera communication error", "err"), "PvStream::IsOpen"}}),
                kEverything, "Connected"},
        Failure{"PartNumberWithoutAResolution", [](const Script& script) { script.core.part_number = "4664"; },
                "out_of_range", startUpLine("Checking part number"), identification("4664"), kEverything, "Connected"},
        Failure{"PartNumberWithoutARadiometryLetter",
                [](const Script& script) { script.core.part_number = "46640001X-F"; }, "out_of_range",
                startUpLine("Checking part number"),
                joined({identification("46640001X-F"),
                        {startUpLine("Resolution: 640x512"), "PvGenParameterArray::SetIntegerValue Width 640",
                         "PvGenParameterArray::SetIntegerValue Height 512"}}),
                kEverything, "Connected"}),
    nameOf<Failure>);

/// A calibration that throws: all is in place, and the core is not spoken to.
Failure unusable(const char* name, void (*fail)(const Script&), const char* outcome) {
  return {name, fail, outcome, kBeforeTheCore, {}, kEverything, "Connected"};
}

INSTANTIATE_TEST_SUITE_P(
    Calibration, ConnectFailureTest,
    testing::Values(
        unusable(
            "VersionThatIsNoNumber", [](const Script& script) { use(script, "BB:2", "no version"); },
            "invalid_argument"),
        unusable(
            "VersionBeyondANumber", [](const Script& script) { use(script, "BB:2", "99999999999999999999"); },
            "out_of_range"),
        unusable(
            "RecordWithoutADigit", [](const Script& script) { use(script, "BB:x", "03"); }, "invalid_argument"),
        unusable(
            "RecordThatEnds", [](const Script& script) { use(script, "BB:1", "01"); }, "out_of_range"),
        unusable(
            "TableTooLarge", [](const Script& script) { use(script, calibrationWithATableTooLarge(), "03"); },
            "length_error")),
    nameOf<Failure>);

struct PayloadSize {
  int64_t reported;
  uint32_t buffers;
};

class PayloadSizeTest : public WholeConnectTest, public testing::WithParamInterface<PayloadSize> {};

TEST_P(PayloadSizeTest, Connect_CutsItTo32BitsAndGoesOn) {
  device_->payload_size = GetParam().reported;
  EXPECT_EQ(camera_.Connect(), 0);
  Events expected = wholeConnect();
  std::replace(expected.begin(), expected.end(), std::string("PvPipeline::SetBufferSize 655360"),
               "PvPipeline::SetBufferSize " + std::to_string(GetParam().buffers));
  EXPECT_EQ(takeAll(), expected);
}

INSTANTIATE_TEST_SUITE_P(Sizes, PayloadSizeTest,
                         testing::Values(PayloadSize{0, 0}, PayloadSize{-1, 4'294'967'295},
                                         PayloadSize{-655'360, 4'294'311'936},
                                         PayloadSize{(int64_t{5} << 32) + 77, 77}));

struct AbsentIdentifier {
  const char* name;
  bool scripted::Device::*works;  ///< what does not
  const char* gone_in;  ///< the call in which the identifier goes; null for a device that has none from the start
  std::vector<std::string> printed;
};

class AbsentIdentifierTest : public WholeConnectTest, public testing::WithParamInterface<AbsentIdentifier> {};

TEST_P(AbsentIdentifierTest, Connect_PrintsUpToItAndFailsTheStream) {
  const auto lose = [this] { device_->display_id = PvString(); };
  (*device_).*GetParam().works = false;
  if (GetParam().gone_in != nullptr) {
    scripted::network().during.emplace(GetParam().gone_in, lose);
  } else {
    lose();
  }
  EXPECT_EQ(camera_.Connect(), -1);
  EXPECT_EQ(std::cout.rdstate() & std::ios::failbit, std::ios::failbit);
  std::cout.clear();
  std::cout << std::flush;
  EXPECT_EQ(takePrinted(), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, AbsentIdentifierTest,
    testing::Values(AbsentIdentifier{"ConnectingOnly",  // nothing is printed on a stream that has failed
                                     &scripted::Device::accepts_connection,
                                     nullptr,
                                     {"out: Camera: Connecting to "}},
                    AbsentIdentifier{"ConnectingOnlyBeforeTheStream",
                                     &scripted::Device::stream_opens,
                                     nullptr,
                                     {"out: Camera: Connecting to "}},
                    AbsentIdentifier{"UnableToConnect",
                                     &scripted::Device::accepts_connection,
                                     "PvDevice::CreateAndConnect Cam A",
                                     {"out: Camera: Connecting to Cam A.\\n", "out: Camera: Unable to connect to "}},
                    AbsentIdentifier{"UnableToStream",
                                     &scripted::Device::stream_opens,
                                     "PvStream::CreateAndOpen 192.0.2.10",
                                     {"out: Camera: Connecting to Cam A.\\n", "out: Camera: Unable to stream from "}}),
    nameOf<AbsentIdentifier>);

}  // namespace
