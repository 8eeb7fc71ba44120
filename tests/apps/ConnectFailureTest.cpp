// Why a camera could not be connected to: the exit status and the sentence.
#include "apps/keocam/ConnectFailure.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

using Code = PvResult::Code;

DeviceDetails camera() {
  DeviceDetails details;
  details.model = "KEOsim-640";
  details.serial_number = "KEOD2001";
  details.address = "192.0.2.7";
  return details;
}

TEST(ConnectFailure, EachCode_HasItsExitStatus) {
  struct Row {
    Code code;
    ExitStatus status;
  };
  for (const Row& row : {Row{Code::InUse, ExitStatus::InUse}, Row{Code::NotConnected, ExitStatus::LinkLost},
                         Row{Code::Timeout, ExitStatus::LinkLost}, Row{Code::GenericError, ExitStatus::Failure},
                         Row{Code::AccessDenied, ExitStatus::Failure}, Row{Code::NotFound, ExitStatus::Failure}}) {
    EXPECT_EQ(connectFailure(camera(), row.code, "because.").status(), row.status) << static_cast<int>(row.code);
  }
}

TEST(ConnectFailure, Text_NamesTheCameraAndTheReason) {
  const std::string text = connectFailure(camera(), Code::GenericError, "It is\x1b[31m tired.").what();
  EXPECT_NE(text.find("KEOD2001"), std::string::npos) << text;
  EXPECT_NE(text.find("tired."), std::string::npos) << text;
  EXPECT_EQ(text.find('\x1b'), std::string::npos) << text;
  const std::string unexplained = connectFailure(camera(), Code::GenericError, "").what();
  EXPECT_NE(unexplained.find("without an explanation"), std::string::npos) << unexplained;
}

TEST(ConnectFailure, NoAnswerFromAnotherSubnet_AdvisesOnTheAddress) {
  DeviceDetails elsewhere = camera();
  elsewhere.in_subnet = false;
  elsewhere.interface_name = "eth0";
  elsewhere.interface_address = "198.51.100.1";
  const std::string text = connectFailure(elsewhere, Code::NotConnected, "It does not answer.").what();
  EXPECT_NE(text.find("198.51.100.1"), std::string::npos) << text;
}

}  // namespace
}  // namespace keocam::cli
