// Disconnection, and what a camera leaves behind.
#include <type_traits>

#include "tests/unit/ScriptedTest.h"
#include "tests/unit/camera/ScriptedCamera.h"

namespace {

using testing::ElementsAre;

using CameraDisconnectTest = ScriptedCameraTest;

TEST_F(CameraDisconnectTest, Disconnect_NeverConnected_SleepsOneSecondAndPrintsNothing) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  camera.Disconnect();
  EXPECT_THAT(takeAll(), ElementsAre("sleep 1 s"));
}

TEST_F(CameraDisconnectTest, Disconnect_Connected_ReleasesPipelineStreamDeviceInThisOrder) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  camera.Connect();
  const PvPipeline* const pipeline = camera.pipeline;
  log().clear();
  camera.Disconnect();
  EXPECT_THAT(takeAll(),
              ElementsAre("sleep 1 s", "PvPipeline::~PvPipeline", "PvStream::IsOpen", "out: Camera: Closing stream\\n",
                          "PvStream::Close", "PvStream::Free", "PvStream::~PvStream", "PvDevice::IsConnected",
                          "out: Camera: Disconnecting device\\n", "PvDevice::Disconnect", "PvDevice::Free",
                          "PvDevice::~PvDevice"));
  EXPECT_EQ(camera.stream, nullptr);
  EXPECT_EQ(camera.device, nullptr);
  EXPECT_EQ(camera.pipeline, pipeline) << "the pipeline's pointer is kept on purpose";
  EXPECT_EQ(camera.GetStatus(), "Disconnected");
  for (const char* kind : {"PvDevice", "PvStream", "PvPipeline"}) EXPECT_EQ(scripted::liveObjects(kind), 0) << kind;
}

TEST_F(CameraDisconnectTest, Disconnect_Acquiring_StopsTheAcquisitionFirst) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  camera.Connect();
  camera.StartAcquisition();
  log().clear();
  camera.Disconnect();
  EXPECT_THAT(
      take({"out", "sleep", "PvGenCommand", "PvPipeline::~"}),
      ElementsAre("out: Camera: Stopping Acquisition\\n", "PvGenCommand::Execute AcquisitionStop", "sleep 1 s",
                  "PvPipeline::~PvPipeline", "out: Camera: Closing stream\\n", "out: Camera: Disconnecting device\\n"));
  EXPECT_FALSE(camera.IsAcquiring());
}

TEST_F(CameraDisconnectTest, Disconnect_DeviceLost_ClosesTheStreamAndKeepsTheDevice) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  camera.Connect();
  device_->stays_connected = false;
  log().clear();
  camera.Disconnect();
  EXPECT_THAT(take({"out"}), ElementsAre("out: Camera: Closing stream\\n"));
  EXPECT_EQ(camera.stream, nullptr);
  EXPECT_NE(camera.device, nullptr);
  PvDevice::Free(camera.device);
}

TEST_F(CameraDisconnectTest, Disconnect_StreamNotOpen_KeepsTheStreamAndReleasesTheDevice) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  camera.Connect();
  device_->stream_stays_open = false;
  log().clear();
  camera.Disconnect();
  EXPECT_THAT(take({"out"}), ElementsAre("out: Camera: Disconnecting device\\n"));
  EXPECT_NE(camera.stream, nullptr);
  EXPECT_EQ(camera.device, nullptr);
  PvStream::Free(camera.stream);
}

TEST_F(CameraDisconnectTest, Disconnect_AfterAStreamThatNeverOpened_ReleasesTheDevice) {
  device_->stream_opens = false;
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  ASSERT_EQ(camera.Connect(), -1);
  log().clear();
  camera.Disconnect();
  EXPECT_THAT(take({"out"}), ElementsAre("out: Camera: Disconnecting device\\n"));
  EXPECT_EQ(camera.device, nullptr);
}

TEST_F(CameraDisconnectTest, Connect_AfterDisconnect_MakesEverythingAnew) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(camera.Connect(), 0);
    EXPECT_EQ(camera.GetStatus(), "Connected");
    camera.Disconnect();
    EXPECT_EQ(camera.GetStatus(), "Disconnected");
  }
}

TEST_F(CameraDisconnectTest, Disconnect_Twice_DeletesThePipelineOnce) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  camera.Connect();
  camera.Disconnect();
  log().clear();
  camera.Disconnect();
  EXPECT_THAT(takeAll(), ElementsAre("sleep 1 s"));
}

TEST_F(CameraDisconnectTest, Disconnect_AfterAFailedReconnect_DeletesNothingTwice) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  camera.Connect();
  camera.Disconnect();

  device_->accepts_connection = false;
  ASSERT_EQ(camera.Connect(), -1);
  camera.Disconnect();

  device_->accepts_connection = true;
  device_->stream_opens = false;
  ASSERT_EQ(camera.Connect(), -1);
  camera.Disconnect();
  for (const char* kind : {"PvDevice", "PvStream", "PvPipeline"}) EXPECT_EQ(scripted::liveObjects(kind), 0) << kind;

  device_->stream_opens = true;
  EXPECT_EQ(camera.Connect(), 0);
  camera.Disconnect();
}

TEST_F(CameraDisconnectTest, RetreiveBuffer_TimeoutAfterAReconnect_ReturnsNullAndNotTheOldFrame) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  camera.Connect();
  scripted::network().retrievals = {scripted::Retrieval{uint8_t{7}, {}, 0}};
  ASSERT_NE(camera.RetreiveBuffer(), nullptr);
  camera.Disconnect();
  ASSERT_EQ(camera.Connect(), 0);
  EXPECT_EQ(camera.RetreiveBuffer(), nullptr);
  camera.ReleaseBuffer();
  camera.Disconnect();
}

TEST_F(CameraDisconnectTest, Acquisition_AfterDisconnect_TouchesNothingThatHasGone) {
  for (const bool lost : {false, true}) {
    ScriptedCamera camera(info(), "", "00", "ABCD1000");
    camera.Connect();
    camera.StartAcquisition();
    device_->stays_connected = !lost;
    camera.Disconnect();
    log().clear();
    camera.StartAcquisition();
    EXPECT_EQ(camera.RetreiveBuffer(), nullptr);
    camera.ReleaseBuffer();
    camera.StopAcquisition();
    EXPECT_THAT(take({"PvPipeline"}), testing::IsEmpty()) << (lost ? "lost" : "connected");
    if (!lost) continue;
    PvDevice::Free(camera.device);
    camera.device = nullptr;
    camera.StartAcquisition();
    EXPECT_THAT(take({"PvPipeline", "PvGenCommand"}), testing::IsEmpty());
  }
}

TEST_F(CameraDisconnectTest, Destructor_ConnectedCamera_TouchesNothingOfTheNetwork) {
  PvDevice* device = nullptr;
  PvStream* stream = nullptr;
  PvPipeline* pipeline = nullptr;
  {
    ScriptedCamera camera(info(), "", "00", "ABCD1000");
    camera.Connect();
    device = camera.device;
    stream = camera.stream;
    pipeline = camera.pipeline;
    log().clear();
  }
  EXPECT_THAT(takeAll(), testing::IsEmpty());
  delete pipeline;
  PvStream::Free(stream);
  PvDevice::Free(device);
}

static_assert(std::has_virtual_destructor_v<Camera>);

}  // namespace
