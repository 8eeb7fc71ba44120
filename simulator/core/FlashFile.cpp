#include "simulator/core/FlashFile.h"

#include <optional>
#include <stdexcept>

#include "simulator/WholeFile.h"

namespace simulator {

void openFlashFile(const std::string& path, FlashMemory& flash) {
  const std::optional<std::string> contents = readWholeFile(path, kLargestFlashBytes);
  if (!contents) {
    saveFlashFile(path, flash);
    return;
  }
  if (contents->size() != flash.contents().size()) {
    throw std::runtime_error("the flash file '" + path + "' has " + std::to_string(contents->size()) +
                             " bytes, but this core's flash has " + std::to_string(flash.contents().size()) +
                             ": it belongs to another core or sensor; name another file, or remove it");
  }
  flash.setContents(Bytes(contents->begin(), contents->end()));
}

void saveFlashFile(const std::string& path, const FlashMemory& flash) {
  writeWholeFile(path, flash.contents().data(), flash.contents().size());
}

}  // namespace simulator
