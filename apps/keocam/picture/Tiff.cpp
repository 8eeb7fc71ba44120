#include "apps/keocam/picture/Tiff.h"

#include <tiffio.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "measurement/Region.h"
#include "measurement/Statistics.h"

namespace keocam::cli {
namespace {

// A file in memory, as the encoder's callbacks want it.
struct MemoryFile {
  std::vector<uint8_t> bytes;
  std::size_t position = 0;
};

MemoryFile& fileOf(thandle_t handle) { return *static_cast<MemoryFile*>(handle); }

tmsize_t readFile(thandle_t handle, void* data, tmsize_t size) {
  MemoryFile& file = fileOf(handle);
  const std::size_t left = file.position < file.bytes.size() ? file.bytes.size() - file.position : 0;
  const std::size_t count = std::min(static_cast<std::size_t>(size), left);
  std::copy_n(file.bytes.data() + file.position, count, static_cast<uint8_t*>(data));
  file.position += count;
  return static_cast<tmsize_t>(count);
}

tmsize_t writeFile(thandle_t handle, void* data, tmsize_t size) {
  MemoryFile& file = fileOf(handle);
  const auto count = static_cast<std::size_t>(size);
  file.bytes.resize(std::max(file.bytes.size(), file.position + count));
  std::copy_n(static_cast<const uint8_t*>(data), count, file.bytes.data() + file.position);
  file.position += count;
  return size;
}

toff_t seekFile(thandle_t handle, toff_t offset, int whence) {
  MemoryFile& file = fileOf(handle);
  const std::size_t origin = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.position : file.bytes.size();
  file.position = origin + offset;
  return file.position;
}

int closeFile(thandle_t /*handle*/) { return 0; }

toff_t sizeOfFile(thandle_t handle) { return fileOf(handle).bytes.size(); }

// The encoder would write its messages to standard error.
class NoMessages {
 public:
  NoMessages() : errors_(TIFFSetErrorHandler(nullptr)), warnings_(TIFFSetWarningHandler(nullptr)) {}
  ~NoMessages() {
    TIFFSetErrorHandler(errors_);
    TIFFSetWarningHandler(warnings_);
  }
  NoMessages(const NoMessages&) = delete;
  NoMessages& operator=(const NoMessages&) = delete;

 private:
  TIFFErrorHandler errors_;
  TIFFErrorHandler warnings_;
};

template <typename... Values>
void setTag(TIFF* tiff, uint32_t tag, Values... values) {
  if (TIFFSetField(tiff, tag, values...) == 0) throw std::runtime_error("The picture cannot be encoded as TIFF.");
}

void setTags(TIFF* tiff, const TemperatureImage<float>& image, const TiffTexts& texts) {
  setTag(tiff, TIFFTAG_IMAGEWIDTH, static_cast<uint32_t>(image.width()));
  setTag(tiff, TIFFTAG_IMAGELENGTH, static_cast<uint32_t>(image.height()));
  setTag(tiff, TIFFTAG_BITSPERSAMPLE, 32);
  setTag(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
  setTag(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_IEEEFP);
  setTag(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
  setTag(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  setTag(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
  setTag(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
  setTag(tiff, TIFFTAG_ROWSPERSTRIP, static_cast<uint32_t>(image.height()));
  setTag(tiff, TIFFTAG_IMAGEDESCRIPTION, texts.description.c_str());
  setTag(tiff, TIFFTAG_MAKE, texts.make.c_str());
  setTag(tiff, TIFFTAG_MODEL, texts.model.c_str());
  setTag(tiff, TIFFTAG_SOFTWARE, texts.software.c_str());
  setTag(tiff, TIFFTAG_DATETIME, texts.time.c_str());
  const Statistics statistics = measure(image, Region(Box{0, 0, image.width(), image.height()}));
  if (statistics.count == 0) return;
  setTag(tiff, TIFFTAG_SMINSAMPLEVALUE, statistics.minimum);
  setTag(tiff, TIFFTAG_SMAXSAMPLEVALUE, statistics.maximum);
}

}  // namespace

std::vector<uint8_t> encodeTiff(const TemperatureImage<float>& image, const TiffTexts& texts) {
  if (image.width() < 1 || image.height() < 1) {
    throw std::runtime_error("A picture without pixels cannot be encoded as TIFF.");
  }
  const NoMessages quiet;
  MemoryFile file;
  {
    const std::unique_ptr<TIFF, void (*)(TIFF*)> tiff(
        TIFFClientOpen("picture", "wl", &file, readFile, writeFile, seekFile, closeFile, sizeOfFile, nullptr, nullptr),
        &TIFFClose);
    if (tiff == nullptr) throw std::runtime_error("The picture cannot be encoded as TIFF.");
    setTags(tiff.get(), image, texts);
    std::vector<float> row(static_cast<std::size_t>(image.width()));
    for (int y = 0; y < image.height(); ++y) {
      // The encoder may change what it is given.
      std::copy_n(image.row(y), row.size(), row.begin());
      if (TIFFWriteScanline(tiff.get(), row.data(), static_cast<uint32_t>(y), 0) < 0) {
        throw std::runtime_error("The picture cannot be encoded as TIFF; it may be too large.");
      }
    }
    if (TIFFFlush(tiff.get()) == 0) throw std::runtime_error("The picture cannot be encoded as TIFF.");
  }
  return std::move(file.bytes);
}

}  // namespace keocam::cli
