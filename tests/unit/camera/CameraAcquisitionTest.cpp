// Starting and stopping the acquisition, and handing frames out.
#include "tests/unit/ScriptedTest.h"
#include "tests/unit/camera/ScriptedCamera.h"

namespace {

using scripted::network;
using scripted::Retrieval;
using testing::ElementsAre;
using testing::IsEmpty;

class CameraAcquisitionTest : public ScriptedCameraTest {
 protected:
  CameraAcquisitionTest() {
    camera_.Connect();
    log().clear();
  }
  ~CameraAcquisitionTest() override {
    delete camera_.pipeline;
    PvStream::Free(camera_.stream);
    PvDevice::Free(camera_.device);
  }

  ScriptedCamera camera_{info(), "", "00", "ABCD1000"};
};

TEST_F(CameraAcquisitionTest, StartAcquisition_StartsPipelineThenStreamThenDevice) {
  camera_.StartAcquisition();
  EXPECT_THAT(takeAll(),
              ElementsAre("out: Camera: Starting Acquisition\\n", "PvDevice::GetParameters",
                          "PvGenParameterArray::Get AcquisitionStart", "PvGenParameterArray::Get AcquisitionStop",
                          "PvPipeline::Start", "PvDevice::StreamEnable 0", "PvGenCommand::Execute AcquisitionStart"));
  EXPECT_EQ(camera_.parameters, camera_.device->GetParameters());
  EXPECT_NE(camera_.acquisitionStartCommand, nullptr);
  EXPECT_NE(camera_.acquisitionStopCommand, nullptr);
  EXPECT_TRUE(camera_.IsAcquiring());
  EXPECT_EQ(camera_.GetStatus(), "Acquiring");
}

TEST_F(CameraAcquisitionTest, StartAcquisition_Twice_ExecutesTheCommandTwice) {
  camera_.StartAcquisition();
  camera_.StartAcquisition();
  EXPECT_THAT(take({"PvGenCommand"}),
              ElementsAre("PvGenCommand::Execute AcquisitionStart", "PvGenCommand::Execute AcquisitionStart"));
}

TEST_F(CameraAcquisitionTest, StartAcquisition_ThenStop_ExecutesTheOtherCommandAndStopsThePipeline) {
  camera_.StartAcquisition();
  log().clear();
  camera_.StopAcquisition();
  EXPECT_THAT(takeAll(), ElementsAre("PvDevice::IsConnected", "out: Camera: Stopping Acquisition\\n",
                                     "PvGenCommand::Execute AcquisitionStop", "PvDevice::StreamDisable 0",
                                     "PvPipeline::IsStarted", "PvPipeline::Stop"));
  EXPECT_FALSE(camera_.IsAcquiring());
  EXPECT_EQ(camera_.GetStatus(), "Connected");
}

TEST_F(CameraAcquisitionTest, StopAcquisition_PipelineStoppedAlready_DoesNotStopItAgain) {
  camera_.StartAcquisition();
  camera_.pipeline->Stop();
  log().clear();
  camera_.StopAcquisition();
  EXPECT_THAT(take({"PvPipeline"}), ElementsAre("PvPipeline::IsStarted"));
}

TEST_F(CameraAcquisitionTest, StopAcquisition_NotAcquiring_PrintsAndStopsNothing) {
  camera_.StopAcquisition();
  EXPECT_THAT(take({"out", "PvGenCommand", "PvPipeline", "PvDevice::Stream"}), IsEmpty());
}

TEST_F(CameraAcquisitionTest, StopAcquisition_DeviceDropped_DoesNothingAndStaysAcquiring) {
  camera_.StartAcquisition();
  device_->stays_connected = false;
  log().clear();
  camera_.StopAcquisition();
  EXPECT_THAT(take({"out", "PvGenCommand", "PvPipeline", "PvDevice::Stream"}), IsEmpty());
  EXPECT_TRUE(camera_.IsAcquiring());
  EXPECT_EQ(camera_.GetStatus(), "Acquiring");
}

TEST_F(CameraAcquisitionTest, StartAcquisition_FeatureThatIsNoCommand_IsTakenAsMissing) {
  ScriptedCamera other(info(), "", "00", "ABCD1000");
  device_->commands = {"AcquisitionStop"};
  device_->other_features = {"AcquisitionStart"};
  ASSERT_EQ(other.Connect(), 0);
  log().clear();
  other.StartAcquisition();
  EXPECT_EQ(other.acquisitionStartCommand, nullptr);
  EXPECT_NE(other.acquisitionStopCommand, nullptr);
  EXPECT_THAT(take({"PvGenCommand"}), IsEmpty());
  EXPECT_TRUE(other.IsAcquiring());
  other.Disconnect();
}

TEST_F(CameraAcquisitionTest, Acquisition_DeviceWithoutEitherCommand_DoesNotCrash) {
  ScriptedCamera other(info(), "", "00", "ABCD1000");
  device_->commands = {};
  ASSERT_EQ(other.Connect(), 0);
  other.StartAcquisition();
  other.StopAcquisition();
  EXPECT_FALSE(other.IsAcquiring());
  other.Disconnect();
}

TEST_F(CameraAcquisitionTest, Acquisition_NeverConnectedCamera_DoesNotCrash) {
  ScriptedCamera other(info(), "", "00", "ABCD1000");
  other.StartAcquisition();
  EXPECT_EQ(other.RetreiveBuffer(), nullptr);
  other.ReleaseBuffer();
  other.StopAcquisition();
  EXPECT_TRUE(other.IsAcquiring()) << "without a device there is nothing to stop";
}

TEST_F(CameraAcquisitionTest, RetreiveBuffer_Frame_ReturnsThePipelinesOwnMemory) {
  network().retrievals = {Retrieval{uint8_t{7}, {}, 0}};
  uint8_t* const data = camera_.RetreiveBuffer();
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(*data, 7);
  EXPECT_EQ(data, camera_.buffer->GetDataPointer());
  EXPECT_THAT(takeAll(), ElementsAre("PvPipeline::RetrieveNextBuffer 1000"));
}

TEST_F(CameraAcquisitionTest, RetreiveBuffer_TimeoutBeforeAnyFrame_ReturnsNull) {
  EXPECT_EQ(camera_.RetreiveBuffer(), nullptr);
  camera_.ReleaseBuffer();
  EXPECT_THAT(take({"PvPipeline::Release"}), ElementsAre("PvPipeline::ReleaseBuffer null"));
}

TEST_F(CameraAcquisitionTest, RetreiveBuffer_TimeoutAfterAFrame_ReturnsThatFrameAgain) {
  network().retrievals = {Retrieval{uint8_t{7}, {}, 0}};
  uint8_t* const first = camera_.RetreiveBuffer();
  camera_.ReleaseBuffer();
  EXPECT_EQ(camera_.RetreiveBuffer(), first);
}

TEST_F(CameraAcquisitionTest, RetreiveBuffer_BufferSetToNullBefore_TellsATimeoutApart) {
  network().retrievals = {Retrieval{uint8_t{7}, {}, 0}};
  camera_.RetreiveBuffer();
  camera_.ReleaseBuffer();
  camera_.buffer = nullptr;
  EXPECT_EQ(camera_.RetreiveBuffer(), nullptr);
}

TEST_F(CameraAcquisitionTest, RetreiveBuffer_FailedResultWithABuffer_IsNotExamined) {
  network().retrievals = {Retrieval{uint8_t{9}, PvResult(PvResult::Code::Incomplete, "cut"), 0}};
  uint8_t* const data = camera_.RetreiveBuffer();
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(*data, 9);
}

TEST_F(CameraAcquisitionTest, ReleaseBuffer_GivesTheFrameRetrievedLastBack) {
  network().retrievals = {Retrieval{uint8_t{7}, {}, 0}, Retrieval{uint8_t{8}, {}, 0}};
  camera_.RetreiveBuffer();
  camera_.ReleaseBuffer();
  camera_.RetreiveBuffer();
  camera_.ReleaseBuffer();
  EXPECT_THAT(take({"PvPipeline::Release"}), ElementsAre("PvPipeline::ReleaseBuffer 7", "PvPipeline::ReleaseBuffer 8"));
}

}  // namespace
