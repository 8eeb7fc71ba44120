// What follows from a part number, and the part numbers that can be imposed.
#include <functional>
#include <stdexcept>

#include "calibration/Calibration.h"
#include "tests/unit/serial/CoreTest.h"

namespace {

using Resolution = CameraSerialSettings::Resolution;

class PartNumberTest : public CoreTest {
 protected:
  ~PartNumberTest() override { CamSpeed = {}; }

  static std::string messageOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const std::out_of_range& exception) {
      return exception.what();
    }
    return "no exception";
  }
  static std::string tooShort(std::size_t position, std::size_t size) {
    return "basic_string::at: __n (which is " + std::to_string(position) + ") >= this->size() (which is " +
           std::to_string(size) + ")";
  }
};

TEST_F(PartNumberTest, NewObject_KnowsNoPartNumber) {
  EXPECT_EQ(core_.GetPartNumber(), "");
  EXPECT_EQ(core_.GetCameraPartNumber(), "");
  EXPECT_FALSE(core_.GetIsSupported());
  EXPECT_FALSE(core_.GetIsRadiometric());
}

TEST_F(PartNumberTest, ResolutionCode_GivesSizeMakerAndModel) {
  struct Row {
    const char* code;
    int width;
    int height;
    const char* model;
  };
  for (const Row& row :
       {Row{"640", 640, 512, "KEO_640"}, Row{"336", 336, 256, "KEO_336"}, Row{"324", 320, 256, "KEO_320"},
        Row{"168", 160, 128, "KEO_160"}, Row{"162", 160, 128, "KEO_160"}, Row{"160", 160, 128, "KEO_160"}}) {
    SCOPED_TRACE(row.code);
    core_.partNumber = std::string("46") + row.code;
    EXPECT_EQ(core_.GetResolutionX(), row.width);
    EXPECT_EQ(core_.GetResolutionY(), row.height);
    EXPECT_EQ(core_.GetModel(), row.model);
    EXPECT_EQ(core_.GetManufacturer(), "FLIR Systems Inc.");
  }
}

TEST_F(PartNumberTest, UnknownResolutionCode_HasNoSizeAndNoMaker) {
  for (const char* const code : {"000", "320", "641", "512", "64X", "   ", "\xB1\xB2\xB3"}) {
    SCOPED_TRACE(code);
    core_.partNumber = std::string("46") + code + "001X-FRNLX";
    EXPECT_EQ(core_.GetResolutionX(), -1);
    EXPECT_EQ(core_.GetResolutionY(), -1);
    EXPECT_EQ(core_.GetModel(), "KEO_-1");
    EXPECT_EQ(core_.GetManufacturer(), "");
  }
}

TEST_F(PartNumberTest, ResolutionCode_IsSummedWithoutACheckOfItsDigits) {
  // The last one's byte above 127 is -12: it counts as a negative number on every processor.
  for (const char* const code : {"5>0", "63:", "7*0", "65&", "70\xF4"}) {
    core_.partNumber = std::string("46") + code;
    EXPECT_EQ(core_.GetResolutionX(), 640) << code;
  }
}

TEST_F(PartNumberTest, SpeedLetter_OnlyFIsFast) {
  for (const char letter : {'F', 'S', 'f', 'X', ' '}) {
    core_.partNumber = std::string("46640001X-") + letter;
    EXPECT_EQ(core_.GetIsFastVideoSpeed(), letter == 'F') << letter;
  }
}

TEST_F(PartNumberTest, RadiometryLetter_RAndIAreRadiometric) {
  for (const char letter : {'R', 'I', 'P', 'r', 'i', 'F'}) {
    core_.partNumber = std::string("46640001X-F") + letter;
    EXPECT_EQ(core_.CheckIsRadimetric(), letter == 'R' || letter == 'I') << letter;
  }
  EXPECT_FALSE(core_.GetIsRadiometric()) << "the question alone sets nothing";
}

TEST_F(PartNumberTest, Getters_TooShortAPartNumber_ThrowTheStandardLibrarysOwnMessage) {
  core_.partNumber = "4664";
  for (const std::function<void()>& getter :
       std::vector<std::function<void()>>{[&] { core_.GetResolutionX(); }, [&] { core_.GetResolutionY(); },
                                          [&] { core_.GetManufacturer(); }, [&] { core_.GetModel(); }}) {
    EXPECT_EQ(messageOf(getter), tooShort(4, 4));
  }
  core_.partNumber = "";
  EXPECT_EQ(messageOf([&] { core_.GetResolutionX(); }), tooShort(2, 0));
  core_.partNumber = "46640001X-";
  EXPECT_EQ(messageOf([&] { core_.GetIsFastVideoSpeed(); }), tooShort(10, 10));
  core_.partNumber = "46640001X-F";
  EXPECT_EQ(messageOf([&] { core_.CheckIsRadimetric(); }), tooShort(11, 11));
  EXPECT_TRUE(core_.GetIsFastVideoSpeed()) << "11 characters suffice for it";
}

TEST_F(PartNumberTest, SetPartNumber_InstallsTheTextOfResolutionAndSpeed) {
  struct Row {
    Resolution resolution;
    const char* fast;
    const char* slow;
    int width;
  };
  const Row rows[] = {
      {CameraSerialSettings::Resolution640, "46640001X-FPNLX ", "46640019H-SPNLX", 640},
      {CameraSerialSettings::Resolution336, "46336001H-FPNLX", "46336007X-SPNLX", 336},
      {CameraSerialSettings::Resolution324, "46324007H-FPNLX", "46324001H-SPNLX", 320},
      {CameraSerialSettings::Resolution168, "46168060H-FPNLX", "46168060H-SPNLX", 160},
      {CameraSerialSettings::Resolution162, "46162025H-FPNLX", "46162019H-SPNLX", 160},
      {CameraSerialSettings::Resolution160, "46160007H-FPNLX", "46160025H-SPNLX", 160},
  };
  uint32_t number = 0;
  for (const Row& row : rows) {
    EXPECT_EQ(static_cast<uint32_t>(row.resolution), number++);
    for (const bool fast : {true, false}) {
      SCOPED_TRACE(fast ? row.fast : row.slow);
      core_.isSupported = false;
      core_.SetPartNumber(row.resolution, fast);
      EXPECT_EQ(core_.GetPartNumber(), fast ? row.fast : row.slow);
      EXPECT_TRUE(core_.GetIsSupported());
      EXPECT_EQ(core_.GetResolutionX(), row.width);
      EXPECT_EQ(core_.GetIsFastVideoSpeed(), fast);
      EXPECT_FALSE(core_.CheckIsRadimetric());
    }
  }
  EXPECT_EQ(core_.GetCameraPartNumber(), "") << "the core's own is another matter";
  EXPECT_EQ(takeAll(), Log{}) << "nothing is sent";
}

TEST_F(PartNumberTest, SetPartNumber_NoSuchResolution_KeepsTheTextAndSupportsIt) {
  for (const uint32_t value : {6U, 7U, 0xFFFFFFFFU}) {
    core_.partNumber = "as it was";
    core_.isSupported = false;
    core_.SetPartNumber(static_cast<Resolution>(value), true);
    EXPECT_EQ(core_.GetPartNumber(), "as it was");
    EXPECT_TRUE(core_.GetIsSupported());
  }
}

TEST_F(PartNumberTest, CameraSpeed_IsTheCalibrationsIfItTells_ElseThePartNumbers) {
  core_.partNumber = "46640001X-F";
  for (const int32_t speed : {0, 1, 2, -5}) {
    CamSpeed = {true, speed};
    EXPECT_EQ(core_.GetCameraSpeed(), speed);
    CamSpeed = {false, speed};
    EXPECT_EQ(core_.GetCameraSpeed(), 1);
  }
  core_.partNumber = "46640001X-S";
  EXPECT_EQ(core_.GetCameraSpeed(), 0);
  core_.partNumber = "";
  EXPECT_EQ(messageOf([&] { core_.GetCameraSpeed(); }), tooShort(10, 0));
  CamSpeed = {true, 2};
  EXPECT_EQ(core_.GetCameraSpeed(), 2) << "the part number is not looked at";
}

}  // namespace
