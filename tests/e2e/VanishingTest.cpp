// A camera that vanishes from the network, in each state: how the calls end and how soon, and that the program goes on,
// with another camera, and with this one when it is back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>

#include "calibration/Calibration.h"
#include "calibration/LensChange.h"
#include "pv/aravis/DeviceDetails.h"
#include "serial/CameraSerialSettings.h"
#include "serial/FunctionCodes.h"
#include "simulator/calibration/CalibrationText.h"
#include "tests/e2e/FrameCheck.h"
#include "tests/e2e/StreamingCamera.h"
#include "tests/e2e/VanishingCamera.h"

namespace {

using namespace std::chrono_literals;
using keocam::TableState;
using simulator::Counter;
using testing::EndsWith;
using testing::HasSubstr;
using Clock = std::chrono::steady_clock;

constexpr uint32_t kTable_bytes = 512;
constexpr uint8_t kLensSlot = 30;
constexpr uint8_t kWriteMemory = 211;
constexpr uint8_t kEraseBlock = 212;

/// A call to the network layer ends within three seconds; the silence is noticed after two.
constexpr auto kLongestCall = 3s;
constexpr auto kNoticed = 4s;

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

/// What is written to standard output and standard error while it lives.
class Written {
 public:
  Written() : console_output_(std::cout.rdbuf(output_.rdbuf())), console_errors_(std::cerr.rdbuf(errors_.rdbuf())) {}
  ~Written() {
    std::cout.rdbuf(console_output_);
    std::cerr.rdbuf(console_errors_);
  }
  Written(const Written&) = delete;
  Written& operator=(const Written&) = delete;

  std::string output() const { return output_.str(); }
  std::string errors() const { return errors_.str(); }

 private:
  std::ostringstream output_;
  std::ostringstream errors_;
  std::streambuf* console_output_;
  std::streambuf* console_errors_;
};

class Vanishing : public testing::Test {
 protected:
  ~Vanishing() override {
    calibrationVect.clear();
    currentLensNumber = 0;
    CamSpeed = {};
  }

  Camera& camera() { return e2e::cameraOf(center_, vanishing_.serial()); }
  CameraSerialSettings& core() { return *camera().serialSettings; }

  /// `action`, in at most `limit`. How long it took is kept beside the test's result.
  template <class Action>
  static void within(Clock::duration limit, const char* name, const Action& action) {
    const auto start = Clock::now();
    action();
    const auto took = Clock::now() - start;
    EXPECT_LT(took, limit) << name;
    RecordProperty(name, std::to_string(std::chrono::duration<double>(took).count()));
  }

  std::string reasonOfFailure() {
    const PvString reason = keocam::lastFailureOf(*camera().deviceInfo).GetDescription();
    return reason.GetAscii() != nullptr ? reason.GetAscii() : "";
  }

  /// That the camera is seen to be gone, soon.
  void expectLost() {
    EXPECT_TRUE(vanishing_.vanished());
    const auto start = Clock::now();
    while (camera().IsConnected() && Clock::now() - start < kNoticed) std::this_thread::sleep_for(10ms);
    EXPECT_FALSE(camera().IsConnected());
    EXPECT_EQ(reasonOfFailure(), "Lost KEOsim-160 KEOD2001 (127.0.0.2): it no longer answers.");
  }

  /// The end of a connection to a camera that is gone, as the header has applications do it.
  void disconnectLost() {
    within(kNoticed, "Disconnect", [this] { e2e::disconnect(camera()); });
    ASSERT_NE(camera().device, nullptr) << "a lost device is the application's to free";
    within(kLongestCall, "Free", [this] {
      PvStream::Free(camera().stream);
      PvDevice::Free(camera().device);
    });
    camera().stream = nullptr;
    camera().device = nullptr;
    camera().acquiring = false;
    EXPECT_EQ(camera().GetStatus(), "Disconnected");
  }

  /// Frames of a camera that acquires.
  static testing::AssertionResult streams(Camera& camera, e2e::VanishingCamera& simulated) {
    e2e::FrameCheck check(simulated.simulated().sceneSettings());
    return e2e::receiveAndCheck(camera, check, 10);
  }

  static void expectToServe(Camera& camera, e2e::VanishingCamera& simulated) {
    {
      const e2e::StartedConnection connection(camera);
      EXPECT_EQ(camera.GetStatus(), "Connected");
      EXPECT_EQ(camera.serialSettings->GetModel(), "KEO_160");
      camera.StartAcquisition();
      EXPECT_TRUE(streams(camera, simulated));
    }
    EXPECT_EQ(camera.GetStatus(), "Disconnected");
    EXPECT_FALSE(simulated.simulated().controlled());
  }

  void expectTheOtherToServe() { expectToServe(e2e::cameraOf(center_, other_.serial()), other_); }

  /// The other camera serves at once, and this one streams when it has been plugged in again and found.
  void expectTheProgramToGoOn() {
    expectTheOtherToServe();
    vanishing_.comeBack();
    center_.RefindCameras();
    ASSERT_EQ(center_.cameras.size(), 2u);
    const e2e::Acquisition acquisition(camera());
    EXPECT_TRUE(streams(camera(), vanishing_));
  }

  void connectWithLenses() {
    ASSERT_EQ(camera().Connect(), 0);
    simulator::CalibrationOptions options;
    options.sensor = {160, 128};
    options.table_bytes = kTable_bytes;
    options.lenses = {{"L25mm"}, {"L50mm"}};
    core().setCalibrationData(simulator::calibrationText(options), "03", vanishing_.serial());
  }

  e2e::VanishingCamera vanishing_{0, kTable_bytes};
  e2e::VanishingCamera other_{1};
  CameraCenter center_{""};
};

TEST_F(Vanishing, BetweenTwoSearches_IsNoLongerListed) {
  ASSERT_EQ(center_.cameras.size(), 2u);
  vanishing_.vanish();
  within(kLongestCall, "RefindCameras", [this] { center_.RefindCameras(); });
  ASSERT_EQ(center_.cameras.size(), 1u);
  expectTheProgramToGoOn();
}

TEST_F(Vanishing, WhileTheSearchListens_IsListed_AndConnectTellsThatItIsGone) {
  vanishing_.vanishAt(Counter::Discovery, 1);
  center_.RefindCameras();
  ASSERT_TRUE(vanishing_.vanished());
  ASSERT_EQ(center_.cameras.size(), 2u) << "it answered before it went";
  {
    const Written written;
    within(kLongestCall, "Connect", [this] { EXPECT_EQ(camera().Connect(), -1); });
    EXPECT_THAT(written.output(), EndsWith("Camera: Unable to connect to KEOsim-160 KEOD2001 (127.0.0.2).\n"));
  }
  EXPECT_THAT(reasonOfFailure(), HasSubstr("KEOD2001 (127.0.0.2) does not answer on lo"));
  EXPECT_THAT(reasonOfFailure(), HasSubstr("check its power and cable, then search again."));
  EXPECT_EQ(camera().device, nullptr);
  EXPECT_EQ(camera().GetStatus(), "Disconnected");
  expectTheProgramToGoOn();
}

/// The command behind whose answer a camera vanishes while it is being connected, and what is said.
struct Command {
  const char* name;
  Counter counter;
  uint64_t count;
  const char* last_line;
  const char* reason;
};

constexpr const char* kUnableToConnect = "Camera: Unable to connect to KEOsim-160 KEOD2001 (127.0.0.2).\n";
constexpr const char* kUnableToStream = "Camera: Unable to stream from KEOsim-160 KEOD2001 (127.0.0.2).\n";
constexpr const char* kConnecting = "Camera: Connecting to KEOsim-160 KEOD2001 (127.0.0.2).\n";
constexpr const char* kNotOpened = "did not answer in time while it was being opened.";
constexpr const char* kLost = "Lost KEOsim-160 KEOD2001 (127.0.0.2): it no longer answers.";

constexpr Command kCommands[] = {
    {"Free", Counter::ReadRegister, 1, kUnableToConnect, kNotOpened},
    {"Controlled", Counter::ControlTaken, 1, kUnableToConnect, kNotOpened},
    {"Describing", Counter::ReadMemory, 10, kUnableToConnect, kNotOpened},
    {"Opened", Counter::ReadMemory, 60, kUnableToStream, kLost},
    {"Negotiating", Counter::TestPacket, 1, kConnecting, kLost},
    {"StreamReopened", Counter::WriteRegister, 8, kConnecting, kLost},
};

class VanishingWhileConnecting : public Vanishing, public testing::WithParamInterface<Command> {};

TEST_P(VanishingWhileConnecting, ConnectFailsInTimeAndTellsWhy) {
  vanishing_.vanishAt(GetParam().counter, GetParam().count);
  {
    const Written written;
    within(2 * kLongestCall, "Connect", [this] { EXPECT_EQ(camera().Connect(), -1); });
    EXPECT_THAT(written.output(), EndsWith(GetParam().last_line));
    EXPECT_EQ(written.errors(), "");
  }
  ASSERT_TRUE(vanishing_.vanished());
  EXPECT_THAT(reasonOfFailure(), HasSubstr(GetParam().reason));
  EXPECT_FALSE(camera().IsConnected());
  EXPECT_EQ(camera().GetStatus(), "Disconnected");
  EXPECT_EQ(camera().serialSettings, nullptr);
  if (camera().device != nullptr) disconnectLost();
  expectTheProgramToGoOn();
}

INSTANTIATE_TEST_SUITE_P(Commands, VanishingWhileConnecting, testing::ValuesIn(kCommands),
                         [](const auto& command) { return command.param.name; });

/// The message to the core that the camera does not outlive, and what is said.
struct Message {
  const char* name;
  int count;
  uint8_t function;
  bool identified;
  const char* error;
};

constexpr const char* kNoCommunication = "CameraSerialSettings::SetDefault(): Camera communication error\n";
constexpr const char* kNotWritten = "CameraSerialSettings::SetParameter: Error writing message to camera.\n";

constexpr Message kMessages[] = {
    {"WakingUp", 1, NO_OPERATION, false, kNoCommunication},
    {"PartNumber", 1, CAMERA_PART_NUMBER, false, kNoCommunication},
    {"Emissivity", 1, RADIOMETRIC_PARAMETER, true, kNotWritten},
    {"FlatField", 1, DO_FFC, true, kNotWritten},
};

class VanishingAtStartUp : public Vanishing, public testing::WithParamInterface<Message> {};

TEST_P(VanishingAtStartUp, ConnectEndsInTime_AndTheDeviceTellsThatItIsGone) {
  vanishing_.vanishAtCoreMessage(GetParam().function, GetParam().count);
  {
    const Written written;
    // The result is that of a stream, which stays open.
    within(4s + kLongestCall, "Connect", [this] { EXPECT_EQ(camera().Connect(), 0); });
    EXPECT_THAT(written.errors(), HasSubstr(GetParam().error));
  }
  expectLost();
  EXPECT_EQ(camera().GetStatus(), "Disconnected");
  EXPECT_EQ(core().GetIsSupported(), GetParam().identified);
  disconnectLost();
  expectTheProgramToGoOn();
}

INSTANTIATE_TEST_SUITE_P(Messages, VanishingAtStartUp, testing::ValuesIn(kMessages),
                         [](const auto& message) { return message.param.name; });

class VanishingWhileStreaming : public Vanishing {
 protected:
  void SetUp() override {
    ASSERT_EQ(camera().Connect(), 0);
    camera().StartAcquisition();
    ASSERT_TRUE(streams(camera(), vanishing_));
  }
};

TEST_F(VanishingWhileStreaming, RetreiveBufferEndsWithNothing_TheLossIsNoticed_AndDisconnectEnds) {
  vanishing_.vanish();
  const auto lost = Clock::now();
  int waits = 0;
  while (camera().IsConnected() && Clock::now() - lost < kNoticed) {
    const auto call = Clock::now();
    camera().buffer = nullptr;
    const bool frame = camera().RetreiveBuffer() != nullptr;
    EXPECT_LT(secondsSince(call), 1.5);
    if (!frame) {
      EXPECT_GE(secondsSince(call), 0.99);
      ++waits;
    }
    camera().ReleaseBuffer();
  }
  EXPECT_GE(waits, 1) << "frames that were sent before come first";
  expectLost();
  EXPECT_EQ(camera().GetStatus(), "Acquiring") << "until it has been stopped";
  within(500ms, "StopAcquisition", [this] { camera().StopAcquisition(); });
  EXPECT_TRUE(camera().IsAcquiring());
  disconnectLost();
  expectTheOtherToServe();
  vanishing_.comeBack();
  expectToServe(camera(), vanishing_);
}

TEST_F(VanishingWhileStreaming, StopAcquisitionBeforeTheLossIsNoticed_Ends) {
  vanishing_.vanish();
  ASSERT_TRUE(camera().IsConnected());
  within(kNoticed, "StopAcquisition", [this] { camera().StopAcquisition(); });
  EXPECT_FALSE(camera().IsAcquiring());
  expectLost();
  disconnectLost();
  expectTheProgramToGoOn();
}

/// The message to the core, in the middle of a change of lenses, that the camera does not outlive.
struct LensMessage {
  const char* name;
  const char* error;    ///< that SetLens tells
  const char* failure;  ///< that changeLens tells
  int count;
  uint8_t function;
  TableState low;  ///< by changeLens
  TableState high;
};

constexpr LensMessage kLensMessages[] = {
    {"Erasing", "CameraSerialSettings::switchSFFC1(): Error deleting memory block.\n",
     "The core did not erase block 1.", 1, kEraseBlock, TableState::PartlyWritten, TableState::Untouched},
    {"Writing", "CameraSerialSettings::switchSFFC1(): Error writing message to camera.\n",
     "The camera took no bytes for the core.", 2, kWriteMemory, TableState::PartlyWritten, TableState::Untouched},
    {"WritingTheSecond", "CameraSerialSettings::switchSFFC2: Error writing message to camera.\n",
     "The camera took no bytes for the core.", 6, kWriteMemory, TableState::Verified, TableState::PartlyWritten},
    {"Using", "CameraSerialSettings::sendMessage: Error writing message to camera.\n",
     "did not confirm that it uses them.", 1, kLensSlot, TableState::Verified, TableState::Verified},
};

class VanishingWhileTheLensChanges : public Vanishing, public testing::WithParamInterface<LensMessage> {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(connectWithLenses());
    vanishing_.vanishAtCoreMessage(GetParam().function, GetParam().count);
  }
};

// Two erasures of a second each at most, the two seconds of SetLens itself, and the silence.
constexpr auto kLongestChange = 4s + kLongestCall;

TEST_P(VanishingWhileTheLensChanges, SetLensEndsInTime_AndIsReady) {
  {
    const Written written;
    within(kLongestChange, "SetLens",
           [this] { EXPECT_EQ(core().SetLens("L50mm"), 1) << "the lens counts as selected"; });
    EXPECT_THAT(written.errors(), HasSubstr(GetParam().error));
  }
  EXPECT_TRUE(core().isSetLensReady());
  EXPECT_EQ(currentLensNumber, 1);
  expectLost();
  disconnectLost();
  expectTheProgramToGoOn();
}

TEST_P(VanishingWhileTheLensChanges, ChangeLensFailsInTime_TellsTheTables_AndIsReady) {
  bool ready_meanwhile = false;
  const keocam::TransferObserver observer = [&](const keocam::TransferProgress& /*progress*/) {
    ready_meanwhile = ready_meanwhile || core().isSetLensReady();
    return true;
  };
  keocam::LensChange change;
  {
    const Written written;
    within(kLongestChange, "changeLens",
           [&] { change = keocam::changeLens(core(), "L50mm", observer, keocam::Verification::ReadBack); });
    EXPECT_EQ(written.output() + written.errors(), "");
  }
  EXPECT_EQ(change.end, keocam::LensChangeEnd::Failed);
  EXPECT_THAT(change.failure, HasSubstr(GetParam().failure));
  EXPECT_EQ(change.low, GetParam().low);
  EXPECT_EQ(change.high, GetParam().high);
  EXPECT_FALSE(ready_meanwhile);
  EXPECT_TRUE(core().isSetLensReady());
  expectLost();
  disconnectLost();
  expectTheProgramToGoOn();
}

INSTANTIATE_TEST_SUITE_P(Messages, VanishingWhileTheLensChanges, testing::ValuesIn(kLensMessages),
                         [](const auto& message) { return message.param.name; });

}  // namespace
