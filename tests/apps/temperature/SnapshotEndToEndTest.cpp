// keocam snapshot: the files that other programs read.
#include <gtest/gtest.h>
#include <png.h>
#include <tiffio.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "CameraWithScene.h"
#include "apps/keocam/picture/ThermalPicture.h"

namespace keocam::cli {
namespace {

constexpr double kPixelTolerance_K = 0.3;
constexpr std::size_t kWidth = 160;
constexpr std::size_t kHeight = 128;
constexpr std::size_t kCentre = 64 * kWidth + 80;

class KeocamSnapshot : public testing::Test {
 protected:
  // The file that the program writes; the arguments stand behind its name.
  std::string written(const char* name, Arguments arguments = {}) {
    std::string path = folder_.file(name);
    Arguments all{"snapshot", path};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const Ended snapshot = keocam(simulated_.with(all));
    EXPECT_EQ(snapshot.status, 0) << snapshot.error;
    EXPECT_EQ(snapshot.output, "");
    EXPECT_TRUE(contains(snapshot.error, "Written: \"" + path + "\".")) << snapshot.error;
    return path;
  }
  static std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  CameraWithScene simulated_{"hot-spot:low=25,high=90,size=0.5"};
  TemporaryFolder folder_;
};

TEST_F(KeocamSnapshot, Tiff_HoldsTheScenesTemperatures) {
  const std::string path = written("a.tiff");
  const std::unique_ptr<TIFF, void (*)(TIFF*)> tiff(TIFFOpen(path.c_str(), "r"), &TIFFClose);
  ASSERT_NE(tiff, nullptr);
  std::vector<float> celsius(kWidth * kHeight);
  for (std::size_t y = 0; y < kHeight; ++y) {
    ASSERT_EQ(TIFFReadScanline(tiff.get(), &celsius[y * kWidth], static_cast<uint32_t>(y), 0), 1);
  }
  EXPECT_NEAR(celsius[kCentre], 90.0, kPixelTolerance_K);
  EXPECT_NEAR(celsius[0], 25.0, kPixelTolerance_K);
}

TEST_F(KeocamSnapshot, Tiff_IsUnderstoodByTiffinfo) {
  ChildProcess look({"sh", "-c", "command -v tiffinfo"});
  ASSERT_EQ(look.wait(kPatience), 0) << "tiffinfo, of Debian's libtiff-tools, is missing or refuses the file";
  ChildProcess process({"tiffinfo", written("a.tif", {"--distance", "12.5"})});
  const Ended info = ended(process);
  EXPECT_EQ(info.status, 0) << info.error;
  EXPECT_EQ(info.error, "") << "no warning either";
  for (const char* const part :
       {"Image Width: 160 Image Length: 128", "Bits/Sample: 32", "Sample Format: IEEE floating point",
        "ImageDescription: ImageJ=1.11a", "Lens=L25mm", "Range=low", "Emissivity=1", "ReflectedApparentTemperature=22",
        "ObjectDistance=12.5 m", "SerialNumber=KEOD2001", "Model: KEOsim-160", "Software: keocam ", "DateTime: 20"}) {
    EXPECT_TRUE(contains(info.output, part)) << part << " in\n" << info.output;
  }
}

TEST_F(KeocamSnapshot, Csv_IsOneLinePerRowOfPixels) {
  std::istringstream lines(contentsOf(written("a.csv", {"--unit", "K"})));
  std::vector<double> kelvin;
  std::size_t rows = 0;
  for (std::string line; std::getline(lines, line); ++rows) {
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');) kelvin.push_back(std::stod(field));
  }
  EXPECT_EQ(rows, kHeight);
  ASSERT_EQ(kelvin.size(), kWidth * kHeight);
  EXPECT_NEAR(kelvin[kCentre], 363.15, kPixelTolerance_K);
}

TEST_F(KeocamSnapshot, Raw_HasTwoBytesForEachPixel) {
  const std::string raw = contentsOf(written("a.raw"));
  ASSERT_EQ(raw.size(), 2 * kWidth * kHeight);
  const auto valueAt = [&raw](std::size_t pixel) {
    return static_cast<unsigned char>(raw[2 * pixel]) + 256 * static_cast<unsigned char>(raw[2 * pixel + 1]);
  };
  EXPECT_GT(valueAt(kCentre), valueAt(0));
  EXPECT_LT(valueAt(kCentre), 1 << 14);
}

TEST_F(KeocamSnapshot, Png_IsAPictureWithAScaleBar) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  const std::string path = written("a.png", {"--palette", "white-hot", "--span", "20", "60"});
  ASSERT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0) << image.message;
  const PictureLayout layout = layoutOf(kWidth, kHeight);
  EXPECT_EQ(image.width, layout.width);
  EXPECT_EQ(image.height, layout.height);
  std::vector<Rgb> pixels(layout.width * layout.height);
  ASSERT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0) << image.message;
  const std::size_t centre =
      (layout.frame_y + 64 * layout.enlargement) * layout.width + layout.frame_x + 80 * layout.enlargement;
  EXPECT_EQ(pixels[centre], (Rgb{255, 255, 255})) << "90 degrees are beyond the span";
}

TEST_F(KeocamSnapshot, NamesThatCannotBeWritten_AreRefusedBeforeAnyCameraIsLookedFor) {
  const Ended unknown = keocam({"snapshot", folder_.file("a.jpg"), "--camera", "NONE"});
  EXPECT_EQ(unknown.status, 2) << "and not 3, for no camera has this number";
  EXPECT_TRUE(contains(unknown.error, ".tiff, .tif, .png, .csv, .raw")) << unknown.error;
  const Ended nowhere = keocam({"snapshot", "/nowhere/at/all.tiff", "--camera", "NONE"});
  EXPECT_EQ(nowhere.status, 1);
  EXPECT_TRUE(contains(nowhere.error, "/nowhere/at/all.tiff")) << nowhere.error;
}

TEST_F(KeocamSnapshot, Failure_LeavesNoFile) {
  const Ended snapshot = keocam({"snapshot", folder_.file("a.tiff"), "--camera", "NONE"});
  EXPECT_EQ(snapshot.status, 3);
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

TEST_F(KeocamSnapshot, Taking_ChangesNothingOnTheCore) {
  const simulator::CoreSettings before = simulated_.core().settings();
  written("a.csv");
  EXPECT_TRUE(simulated_.core().settings() == before);
}

}  // namespace
}  // namespace keocam::cli
