#include "TextReader.h"

#include <cstring>
#include <stdexcept>

namespace {

/// A text that is read from its beginning, and cut where it has been read.
struct Text {
  std::string rest;

  bool has(const std::string& key) const { return rest.find(key) != std::string::npos; }
  /// What follows a key: at most `size` characters of it.
  std::string behind(const std::string& key, std::size_t size) const {
    const std::size_t found = rest.find(key);
    if (found == std::string::npos) throw std::runtime_error("no " + key);
    return rest.substr(found + key.size(), size);
  }
  void cutBehind(const std::string& key) { rest = behind(key, std::string::npos); }
};

std::vector<uint8_t> bytesOf(const std::string& hex) {
  std::vector<uint8_t> bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    if (std::strspn(hex.substr(i, 2).c_str(), "0123456789abcdefABCDEF") != 2) throw std::runtime_error("no hex");
    bytes.push_back(static_cast<uint8_t>(std::stoul(hex.substr(i, 2), nullptr, 16)));
  }
  return bytes;
}

std::vector<float> pointsOf(const std::string& hex) {
  const std::vector<uint8_t> bytes = bytesOf(hex);
  std::vector<float> points;
  for (std::size_t i = 0; i + 3 < bytes.size(); i += 4) {
    const uint32_t bits = static_cast<uint32_t>(bytes[i]) | static_cast<uint32_t>(bytes[i + 1]) << 8 |
                          static_cast<uint32_t>(bytes[i + 2]) << 16 | static_cast<uint32_t>(bytes[i + 3]) << 24;
    points.emplace_back();
    std::memcpy(&points.back(), &bits, sizeof bits);
  }
  return points;
}

std::vector<uint8_t> takeTable(Text& text, const std::string& key) {
  text.cutBehind(key);
  return bytesOf(text.rest.substr(0, text.rest.find(')')));
}

}  // namespace

std::vector<ReadLens> readCalibration(const std::string& text, unsigned version) {
  std::vector<ReadLens> lenses;
  if (version == 0) {
    lenses.emplace_back();
    lenses[0].points = pointsOf(text);
    return lenses;
  }
  for (Text left{text}; left.has("BB:");) {
    ReadLens lens;
    lens.bb = static_cast<unsigned>(std::stoul(left.behind("BB:", 1)));
    lens.date = left.behind("Cdate:", 10);
    lens.name = left.behind("Lens:", 5);
    std::string data = left.behind("Data:", 4800);
    lens.with_1500 = version >= 3 && left.has("Data1500:");
    if (lens.with_1500) data += left.behind("Data1500:", 2400);
    lens.points = pointsOf(data);
    if (version == 1) left.cutBehind("Data:");
    if (version >= 2) {
      lens.tables[0] = takeTable(left, "SffcLowRange:");
      lens.tables[1] = takeTable(left, "SffcHighRange:");
    }
    if (lens.with_1500) lens.tables[2] = takeTable(left, "Sffc1500Range:");
    lenses.push_back(lens);
  }
  return lenses;
}
