// Temperatures as TIFF, read back by the library that wrote them.
#include "apps/keocam/picture/Tiff.h"

#include <gtest/gtest.h>
#include <tiffio.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <memory>
#include <stdexcept>

#include "../TemporaryFolder.h"

namespace keocam::cli {
namespace {

const TiffTexts kTexts{"ImageJ=1.11a\nunit=pixel\n", "KEO", "KEOsim-640", "keocam", "2026:11:21 09:15:36"};
constexpr float kNoTemperature = std::numeric_limits<float>::quiet_NaN();

class OpenTiff {
 public:
  explicit OpenTiff(const std::vector<uint8_t>& bytes) {
    const std::string path = folder_.file("a.tiff");
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    tiff_.reset(TIFFOpen(path.c_str(), "r"));
    if (tiff_ == nullptr) throw std::runtime_error("the file is no TIFF");
  }

  template <typename T>
  T tag(uint32_t number) const {
    T value{};
    EXPECT_EQ(TIFFGetField(tiff_.get(), number, &value), 1) << number;
    return value;
  }
  std::string text(uint32_t number) const { return tag<const char*>(number); }
  bool has(uint32_t number) const {
    double value = 0.0;
    return TIFFGetField(tiff_.get(), number, &value) == 1;
  }
  std::vector<float> row(uint32_t y) const {
    std::vector<float> values(tag<uint32_t>(TIFFTAG_IMAGEWIDTH));
    EXPECT_EQ(static_cast<std::size_t>(TIFFScanlineSize(tiff_.get())), values.size() * sizeof(float));
    EXPECT_EQ(TIFFReadScanline(tiff_.get(), values.data(), y, 0), 1);
    return values;
  }

 private:
  TemporaryFolder folder_;
  std::unique_ptr<TIFF, void (*)(TIFF*)> tiff_{nullptr, &TIFFClose};
};

TEST(Tiff, Samples_AreTheVeryNumbers) {
  const std::vector<float> values = {-40.0F, 20.125F, 1500.5F, 0.1F, kNoTemperature, 36.6F};
  const OpenTiff tiff(encodeTiff({values.data(), 3, 2}, kTexts));
  EXPECT_EQ(tiff.row(0), (std::vector<float>{-40.0F, 20.125F, 1500.5F}));
  const std::vector<float> second = tiff.row(1);
  EXPECT_EQ(second[0], 0.1F);
  EXPECT_TRUE(std::isnan(second[1]));
  EXPECT_EQ(second[2], 36.6F);
}

TEST(Tiff, Tags_SayWhatTheSamplesAre) {
  const std::vector<float> values = {-40.0F, 20.125F, 1500.5F, 0.1F, kNoTemperature, 36.6F};
  const std::vector<uint8_t> bytes = encodeTiff({values.data(), 3, 2}, kTexts);
  EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 2), "II") << "little endian";
  const OpenTiff tiff(bytes);
  EXPECT_EQ(tiff.tag<uint32_t>(TIFFTAG_IMAGEWIDTH), 3U);
  EXPECT_EQ(tiff.tag<uint32_t>(TIFFTAG_IMAGELENGTH), 2U);
  EXPECT_EQ(tiff.tag<uint16_t>(TIFFTAG_BITSPERSAMPLE), 32);
  EXPECT_EQ(tiff.tag<uint16_t>(TIFFTAG_SAMPLESPERPIXEL), 1);
  EXPECT_EQ(tiff.tag<uint16_t>(TIFFTAG_SAMPLEFORMAT), SAMPLEFORMAT_IEEEFP);
  EXPECT_EQ(tiff.tag<uint16_t>(TIFFTAG_COMPRESSION), COMPRESSION_NONE);
  EXPECT_EQ(tiff.tag<double>(TIFFTAG_SMINSAMPLEVALUE), -40.0);
  EXPECT_EQ(tiff.tag<double>(TIFFTAG_SMAXSAMPLEVALUE), 1500.5);
  EXPECT_EQ(tiff.text(TIFFTAG_IMAGEDESCRIPTION), kTexts.description);
  EXPECT_EQ(tiff.text(TIFFTAG_MAKE), "KEO");
  EXPECT_EQ(tiff.text(TIFFTAG_MODEL), "KEOsim-640");
  EXPECT_EQ(tiff.text(TIFFTAG_SOFTWARE), "keocam");
  EXPECT_EQ(tiff.text(TIFFTAG_DATETIME), "2026:11:21 09:15:36");
}

TEST(Tiff, PictureWithoutTemperatures_HasNoLeastAndGreatest) {
  const OpenTiff tiff(encodeTiff({&kNoTemperature, 1, 1}, kTexts));
  EXPECT_TRUE(std::isnan(tiff.row(0)[0]));
  EXPECT_FALSE(tiff.has(TIFFTAG_SMINSAMPLEVALUE));
}

TEST(Tiff, NoPixels_AreRefused) {
  EXPECT_THROW(encodeTiff({nullptr, 0, 5}, kTexts), std::runtime_error);
  EXPECT_THROW(encodeTiff({nullptr, 5, 0}, kTexts), std::runtime_error);
}

}  // namespace
}  // namespace keocam::cli
