// The camera that comes with Aravis: no test packets, no resend, an old feature description.
#include <gtest/gtest.h>

#include "PvSystem.h"
#include "tests/pv/TestCamera.h"
#include "tests/support/ChildProcess.h"

namespace {

simulator::CameraOptions fakeOptions() {
  simulator::CameraOptions options;
  options.address = "127.0.0.1";
  options.serial = "KEOD0001";
  return options;
}

TEST(FakeCamera, ListConnectAndStreamFiftyFrames) {
  const test_support::ChildProcess fake({"arv-fake-gv-camera-0.8", "-i", "127.0.0.1", "-s", "KEOD0001"},
                                        test_support::ChildProcess::Written::Discarded);
  PvSystem system;
  const auto listed = [&] {
    static_cast<void>(system.Find());
    return system.GetInterfaceCount() > 0 && system.GetInterface(0)->GetDeviceCount() == 1;
  };
  ASSERT_TRUE(pv_test::eventually(listed, std::chrono::milliseconds(10000)));
  EXPECT_STREQ(system.GetInterface(0)->GetDeviceInfo(0)->GetSerialNumber().GetAscii(), "KEOD0001");

  pv_test::Connection connection(fakeOptions());
  ASSERT_TRUE(connection.ok());
  EXPECT_FALSE(connection.packet_size_result.IsOK()) << "it has no test packets";
  EXPECT_GT(keocam::packetSizeOf(*connection.stream), 575U);
  EXPECT_LE(keocam::packetSizeOf(*connection.stream), 1500U);
  ASSERT_TRUE(connection.start().IsOK());
  int frames = 0;
  for (int wait = 0; wait < 60 && frames < 50; ++wait) {
    PvBuffer* buffer = nullptr;
    PvResult fared;
    if (!connection.pipeline->RetrieveNextBuffer(&buffer, 1000, &fared).IsOK()) continue;
    EXPECT_EQ(keocam::detailsOf(*buffer).size, 512U * 512U);
    EXPECT_TRUE(connection.pipeline->ReleaseBuffer(buffer).IsOK());
    ++frames;
  }
  EXPECT_EQ(frames, 50);
  EXPECT_TRUE(connection.stop().IsOK());
}

}  // namespace
