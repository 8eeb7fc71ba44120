// Features by name: kinds, values and refusals.
#include <gtest/gtest.h>

#include "tests/pv/TestCamera.h"

namespace {

using pv_test::Code;

class FeatureTest : public testing::Test {
 protected:
  FeatureTest() : camera_(pv_test::smallCamera()), connection_(camera_.options()) {}
  void SetUp() override { ASSERT_TRUE(connection_.ok()); }
  PvGenParameterArray& features() { return connection_.features(); }

  simulator::SimulatedCamera camera_;
  pv_test::Connection connection_;
};

TEST_F(FeatureTest, Get_KindsAndNames) {
  EXPECT_NE(dynamic_cast<PvGenCommand*>(features().Get("AcquisitionStart")), nullptr);
  EXPECT_NE(features().Get("Width"), nullptr);
  EXPECT_EQ(dynamic_cast<PvGenCommand*>(features().Get("Width")), nullptr);
  EXPECT_EQ(features().Get("NoSuchFeature"), nullptr);
  EXPECT_EQ(features().Get(PvString()), nullptr);
  EXPECT_EQ(features().Get("Width"), features().Get("Width"));
}

TEST_F(FeatureTest, Set_AcceptableValues_ReachTheDevice) {
  EXPECT_TRUE(features().SetIntegerValue("Width", 80).IsOK());
  EXPECT_EQ(connection_.device->GetPayloadSize(), 80 * 120 * 2);
  EXPECT_TRUE(features().SetEnumValue("BulkBaudRate", "Baud115200").IsOK());
  EXPECT_TRUE(features().SetBooleanValue("BulkLoopback", true).IsOK());
}

TEST_F(FeatureTest, Set_UnacceptableValues_AreRefusedWithFeatureAndValueNamed) {
  struct Row {
    PvResult result;
    Code code;
    const char* named;
  };
  const Row rows[] = {
      {features().SetIntegerValue("Width", 100000), Code::InvalidParameter, "100000"},
      {features().SetIntegerValue("Width", -1), Code::InvalidParameter, "-1"},
      {features().SetEnumValue("BulkBaudRate", "Baud1"), Code::InvalidParameter, "Baud1"},
      {features().SetEnumValue("Width", "Wide"), Code::InvalidParameter, "Width"},
      {features().SetBooleanValue("Width", true), Code::InvalidParameter, "Width"},
      {features().SetIntegerValue("BulkBaudRate", 1), Code::InvalidParameter, "BulkBaudRate"},
      {features().SetIntegerValue("PayloadSize", 1), Code::AccessDenied, "PayloadSize"},
      {features().SetIntegerValue("NoSuchFeature", 1), Code::NotFound, "NoSuchFeature"},
      {features().SetEnumValue("NoSuchFeature", "One"), Code::NotFound, "NoSuchFeature"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.result.GetCode(), row.code) << pv_test::textOf(row.result);
    EXPECT_NE(pv_test::textOf(row.result).find(row.named), std::string::npos) << pv_test::textOf(row.result);
  }
  EXPECT_EQ(camera_.statistics()[simulator::Counter::Nack], 0U) << "a refused value was sent all the same";
  EXPECT_TRUE(connection_.device->IsConnected());
}

TEST_F(FeatureTest, Set_WidthWhileStreaming_IsDeniedAndControlIsKept) {
  ASSERT_TRUE(connection_.start().IsOK());
  EXPECT_EQ(features().SetIntegerValue("Width", 80).GetCode(), Code::AccessDenied);
  PvBuffer* buffer = nullptr;
  PvResult fared;
  EXPECT_TRUE(connection_.pipeline->RetrieveNextBuffer(&buffer, 2000, &fared).IsOK());
  EXPECT_TRUE(connection_.stop().IsOK());
  EXPECT_TRUE(connection_.device->IsConnected());
  EXPECT_TRUE(features().SetIntegerValue("Width", 80).IsOK());
}

TEST_F(FeatureTest, Execute_SlowDevice_WaitsForItsAnswer) {
  simulator::FaultSettings faults;
  faults.slow_answer_ms = 700;
  camera_.faults().set(faults);
  PvResult result;
  EXPECT_GT(pv_test::durationOf([&] { result = features().SetIntegerValue("Width", 80); }), 600);
  EXPECT_TRUE(result.IsOK()) << pv_test::textOf(result);
}

TEST_F(FeatureTest, Channels_OtherThanTheOnlyOne_AreRefused) {
  EXPECT_EQ(connection_.device->StreamEnable(1).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(connection_.device->StreamDisable(7).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(connection_.gevDevice().NegotiatePacketSize(1, 0).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(connection_.gevDevice().SetStreamDestination("127.0.0.1", 5000, 1).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(connection_.gevDevice().SetStreamDestination("here", 5000, 0).GetCode(), Code::InvalidParameter);
}

}  // namespace
