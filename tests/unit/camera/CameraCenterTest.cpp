// Discovery: which cameras are made, in which order, and what is printed.
#include "camera/CameraCenter.h"

#include <algorithm>
#include <type_traits>

#include "tests/unit/ScriptedTest.h"

namespace {

using scripted::Interface;
using scripted::network;
using testing::ElementsAre;
using testing::IsEmpty;

const char* const kHeading = "out: CameraCenter: Connecting KEO devices results:\\n";
const char* const kNoCameras = "err: CameraCenter: No cameras ready to use!\\n";

class CameraCenterTest : public ScriptedTest {
 protected:
  static Log printedByCenter() { return take({"out", "err: CameraCenter"}); }
};

TEST_F(CameraCenterTest, Constructor_NoInterfaces_PrintsZerosAndTheErrorLine) {
  const CameraCenter center("");
  EXPECT_THAT(printedByCenter(),
              ElementsAre(kHeading, "out: \t- Found interfaces: 0\\n", "out: \t- Found cameras: 0\\n", kNoCameras));
  EXPECT_THAT(center.cameras, IsEmpty());
  EXPECT_THAT(center.deviceInfos, IsEmpty());
}

TEST_F(CameraCenterTest, Constructor_FailedFind_IsIgnored) {
  network().find_result = PvResult(PvResult::Code::GenericError, "no network");
  network().interfaces = {Interface{makeDevice("ABCD1000")}};
  const CameraCenter center("");
  EXPECT_EQ(center.cameras.size(), 1u);
}

TEST_F(CameraCenterTest, Constructor_NoInterfaces_FindsThenAsksForTheCount) {
  { const CameraCenter center(""); }
  EXPECT_THAT(take({"Pv"}), ElementsAre("PvSystem::PvSystem", "PvSystem::Find", "PvSystem::GetInterfaceCount",
                                        "PvSystem::~PvSystem"));
}

TEST_F(CameraCenterTest, Constructor_KeepsTheLocationAsGiven) {
  const CameraCenter center("some/../where/ ");
  EXPECT_EQ(center.sourceLocation, "some/../where/ ");
}

TEST_F(CameraCenterTest, Members_LieInTheOrderThatApplicationsWereBuiltWith) {
  const CameraCenter center("");
  const auto address = [](const auto& member) { return reinterpret_cast<uintptr_t>(&member); };
  const std::vector<uintptr_t> addresses = {address(center.sourceLocation),    address(center.pvSystem),
                                            address(center.calibrationSource), address(center.currentCamera),
                                            address(center.cameras),           address(center.currentDeviceInfo),
                                            address(center.deviceInfos)};
  EXPECT_TRUE(std::is_sorted(addresses.begin(), addresses.end()));
}

TEST_F(CameraCenterTest, Constructor_TwoInterfacesOfTwoDevices_ListsFourInOrder) {
  const auto a = makeDevice("AAAD0001");
  const auto b = makeDevice("AAAD0002");
  const auto c = makeDevice("AAAD0003");
  const auto d = makeDevice("AAAD0004");
  network().interfaces = {Interface{a, b}, Interface{c, d}};

  const CameraCenter center("");
  EXPECT_THAT(printedByCenter(),
              ElementsAre(kHeading, "out: \t- Found interfaces: 2\\n", "out: \t- Found cameras: 4\\n"));
  ASSERT_EQ(center.cameras.size(), 4u);
  const Interface all = {a, b, c, d};
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_EQ(center.cameras[i]->deviceInfo, infoOf(all[i]));
    EXPECT_EQ(center.cameras[i]->serialNumber, all[i]->serial_number.GetAscii());
    EXPECT_EQ(center.deviceInfos[i], infoOf(all[i]));
  }
  EXPECT_EQ(center.currentCamera, center.cameras.back());
  EXPECT_EQ(center.currentDeviceInfo, infoOf(d));
}

TEST_F(CameraCenterTest, Constructor_CountsAreReadAnewForEveryDeviceAndInterface) {
  network().interfaces = {Interface{makeDevice("AAAD0001")}};
  const CameraCenter center("");
  EXPECT_THAT(take({"Pv"}),
              ElementsAre("PvSystem::PvSystem", "PvSystem::Find", "PvSystem::GetInterfaceCount",
                          "PvSystem::GetInterface 0", "PvInterface::GetDeviceCount 0", "PvInterface::GetDeviceInfo 0 0",
                          "PvInterface::GetDeviceCount 0", "PvSystem::GetInterfaceCount"));
}

TEST_F(CameraCenterTest, Constructor_DeviceThatAppearsDuringThePass_IsListed) {
  network().interfaces = {Interface{makeDevice("AAAD0001")}};
  network().on_device_visited = [] {
    if (network().interfaces[0]->size() < 3) network().interfaces[0]->push_back(makeDevice("AAAD0009"));
  };
  const CameraCenter center("");
  EXPECT_EQ(center.cameras.size(), 3u);
}

TEST_F(CameraCenterTest, Constructor_NullInterface_IsCountedAndContributesNothing) {
  network().interfaces = {std::nullopt, Interface{makeDevice("AAAD0001")}};
  const CameraCenter center("");
  EXPECT_THAT(printedByCenter(),
              ElementsAre(kHeading, "out: \t- Found interfaces: 2\\n", "out: \t- Found cameras: 1\\n"));
  EXPECT_EQ(center.cameras.size(), 1u);
}

TEST_F(CameraCenterTest, Constructor_NullDevice_IsCountedAsFoundButMakesNoCamera) {
  const auto device = makeDevice("AAAD0001");
  network().interfaces = {Interface{nullptr, device, nullptr}};
  const CameraCenter center("");
  EXPECT_THAT(printedByCenter(),
              ElementsAre(kHeading, "out: \t- Found interfaces: 1\\n", "out: \t- Found cameras: 3\\n"));
  ASSERT_EQ(center.cameras.size(), 1u);
  EXPECT_EQ(center.currentDeviceInfo, infoOf(device));
}

TEST_F(CameraCenterTest, Constructor_OnlyNullDevices_CountsThemAndPrintsTheErrorLine) {
  network().interfaces = {Interface{nullptr}};
  const CameraCenter center("");
  EXPECT_THAT(printedByCenter(),
              ElementsAre(kHeading, "out: \t- Found interfaces: 1\\n", "out: \t- Found cameras: 1\\n", kNoCameras));
  EXPECT_EQ(center.currentCamera, nullptr);
}

TEST_F(CameraCenterTest, Constructor_DeviceWithoutSerialNumber_StillBecomesACamera) {
  const auto device = makeDevice(nullptr);
  network().interfaces = {Interface{device}};
  const CameraCenter center("");
  ASSERT_EQ(center.cameras.size(), 1u);
  EXPECT_EQ(center.cameras[0]->serialNumber, "");
  EXPECT_EQ(center.cameras[0]->calibrationText, "");
  EXPECT_EQ(center.cameras[0]->calibrationVersion, "00");
}

TEST_F(CameraCenterTest, Constructor_ConnectsNothing) {
  network().interfaces = {Interface{makeDevice("AAAD0001")}};
  { const CameraCenter center(""); }
  EXPECT_THAT(take({"PvDevice::", "PvStream::", "PvPipeline::"}), IsEmpty());
}

TEST_F(CameraCenterTest, RefindCameras_SameCameraAgain_OneCameraTwoDescriptions) {
  const auto device = makeDevice("AAAD0001");
  network().interfaces = {Interface{device}};
  CameraCenter center("");
  center.RefindCameras();
  ASSERT_EQ(center.cameras.size(), 1u);
  EXPECT_EQ(center.currentCamera, center.cameras[0]);
  EXPECT_THAT(center.deviceInfos, ElementsAre(infoOf(device), infoOf(device)));
}

TEST_F(CameraCenterTest, RefindCameras_NothingFoundAfterOne_PrintsNoErrorLine) {
  network().interfaces = {Interface{makeDevice("AAAD0001")}};
  CameraCenter center("");
  network().on_find = [] { network().interfaces = {Interface{}}; };
  log().clear();
  center.RefindCameras();
  EXPECT_THAT(printedByCenter(),
              ElementsAre(kHeading, "out: \t- Found interfaces: 1\\n", "out: \t- Found cameras: 0\\n"));
  EXPECT_THAT(center.cameras, IsEmpty());
  EXPECT_EQ(center.deviceInfos.size(), 1u);
}

TEST_F(CameraCenterTest, RefindCameras_KeepsTheSystemAndSearchesOnce) {
  CameraCenter center("");
  const PvSystem* const system = center.pvSystem;
  log().clear();
  center.RefindCameras();
  EXPECT_EQ(center.pvSystem, system);
  EXPECT_THAT(take({"PvSystem::Find", "PvSystem::PvSystem", "PvSystem::~"}), ElementsAre("PvSystem::Find"));
}

// Counts its own deletions, to stand in the list of cameras.
class CountedCamera : public Camera {
 public:
  explicit CountedCamera(int* deleted) : Camera(nullptr), deleted_(deleted) {}
  ~CountedCamera() override { ++*deleted_; }

 private:
  int* deleted_;
};

TEST_F(CameraCenterTest, RefindCameras_DeletesTheCamerasThroughTheirDestructors) {
  int deleted = 0;
  CameraCenter center("");
  center.cameras.push_back(new CountedCamera(&deleted));
  network().on_find = [&] { EXPECT_EQ(deleted, 1) << "the old cameras go before the search"; };
  center.RefindCameras();
  EXPECT_EQ(deleted, 1);
}

TEST_F(CameraCenterTest, Destructor_DeletesCamerasAndSystem) {
  int deleted = 0;
  {
    CameraCenter center("");
    center.cameras.push_back(new CountedCamera(&deleted));
    center.cameras.push_back(new CountedCamera(&deleted));
  }
  EXPECT_EQ(deleted, 2);
  EXPECT_EQ(scripted::liveObjects("PvSystem"), 0);
}

TEST_F(CameraCenterTest, CreateKEOcams_CalledAgain_AppendsToBothLists) {
  network().interfaces = {Interface{makeDevice("AAAD0001")}};
  CameraCenter center("");
  center.createKEOcams();
  EXPECT_EQ(center.cameras.size(), 2u);
  EXPECT_EQ(center.deviceInfos.size(), 2u);
}

static_assert(std::has_virtual_destructor_v<CameraCenter>);

}  // namespace
