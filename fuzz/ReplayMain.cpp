// Runs a fuzz target on every file of a corpus: fuzz_TARGET CORPUS.
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

std::vector<char> contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<char> contents{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return contents;
}

// The number of files.
int replay(const std::filesystem::path& corpus) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
    if (!entry.is_regular_file()) continue;
    // Named first, so that the input is known if it ends the process.
    std::printf("%s\n", entry.path().filename().c_str());
    std::fflush(stdout);
    const std::vector<char> input = contentsOf(entry.path());
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(input.data()), input.size());
    ++files;
  }
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s CORPUS, a folder of inputs\n", argv[0]);
    return 2;
  }
  try {
    const int files = replay(argv[1]);
    if (files == 0) throw std::runtime_error(std::string(argv[1]) + " holds no input to replay");
    std::printf("%d inputs replayed\n", files);
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
