// The description against the registers: what it says about addresses, sizes, bounds and entries is what they do.
#include "simulator/GenicamXml.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "DeviceBench.h"

namespace {

using namespace simulator;

/// The texts between each `<tag>` and the next `<`.
std::vector<std::string> leaves(const std::string& text, const std::string& tag) {
  std::vector<std::string> found;
  const std::string open = "<" + tag + ">";
  for (std::size_t at = text.find(open); at != std::string::npos; at = text.find(open, at + 1)) {
    const std::size_t start = at + open.size();
    found.push_back(text.substr(start, text.find('<', start) - start));
  }
  return found;
}

/// An element `kind` of the description, and all that stands inside.
struct Node {
  std::string kind;
  std::string body;
  std::string leaf(const std::string& tag) const {
    const std::vector<std::string> found = leaves(body, tag);
    return found.empty() ? "" : found.front();
  }
  uint32_t number(const std::string& tag) const { return static_cast<uint32_t>(std::stoul(leaf(tag), nullptr, 0)); }
};

/// The outermost named elements by name, read from the text alone.
std::map<std::string, Node> nodesOf(const std::string& xml) {
  std::map<std::string, Node> nodes;
  const std::string named = " Name=\"";
  for (std::size_t at = xml.find("\n<"); at != std::string::npos; at = xml.find("\n<", at + 1)) {
    const std::string line = xml.substr(at + 2, xml.find('\n', at + 1) - at - 2);
    const std::size_t name = line.find(named);
    if (name == std::string::npos || name != line.find(' ')) continue;
    const std::string kind = line.substr(0, name);
    const std::size_t first = name + named.size();
    const std::size_t stop = xml.find("\n</" + kind + ">", at);
    nodes[line.substr(first, line.find('"', first) - first)] = {kind, xml.substr(at, stop - at)};
  }
  return nodes;
}

class Description : public ::testing::Test {
 protected:
  Description() : text(genicamXml("KEOsim-640")), nodes(nodesOf("\n" + text)) { bench.takeControl(); }
  std::string text;
  std::map<std::string, Node> nodes;
  DeviceBench bench;
};

TEST_F(Description, UrlRegister_LeadsToTheTextThatTheDeviceServes) {
  const gvcp::Bytes url_bytes = bench.readBlock(0x200, 512);
  const std::string url(reinterpret_cast<const char*>(url_bytes.data()));
  const std::string prefix = "Local:KEOsim-640.xml;";
  ASSERT_EQ(url.substr(0, prefix.size()), prefix);
  const std::size_t separator = url.find(';', prefix.size());
  const auto at = static_cast<uint32_t>(std::stoul(url.substr(prefix.size()), nullptr, 16));
  const std::size_t size = std::stoul(url.substr(separator + 1), nullptr, 16);
  std::string served;
  while (served.size() < size) {
    const std::size_t count = std::min<std::size_t>(512, (size - served.size() + 3) / 4 * 4);
    const gvcp::Bytes piece = bench.readBlock(at + static_cast<uint32_t>(served.size()), static_cast<uint16_t>(count));
    ASSERT_EQ(piece.size(), count);
    served.append(piece.begin(), piece.end());
  }
  served.resize(size);
  EXPECT_EQ(served, text);
}

TEST_F(Description, Schema_IsOneDotOne) {
  EXPECT_NE(text.find("SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\""), std::string::npos);
  EXPECT_NE(text.find("VendorName=\"KEO\""), std::string::npos);
}

TEST_F(Description, References_LeadToNodes) {
  std::size_t seen = 0;
  for (const char* tag : {"pFeature", "pValue", "pMax", "pSelected", "pIsLocked", "pPort"}) {
    for (const std::string& name : leaves(text, tag)) {
      EXPECT_TRUE(nodes.count(name)) << tag << " " << name;
      ++seen;
    }
  }
  EXPECT_GT(seen, 150U);
}

TEST_F(Description, Features_AreAllThere) {
  for (const char* name : {"DeviceVendorName",
                           "DeviceModelName",
                           "DeviceVersion",
                           "DeviceSerialNumber",
                           "DeviceID",
                           "DeviceUserID",
                           "Width",
                           "Height",
                           "WidthMax",
                           "HeightMax",
                           "SensorWidth",
                           "SensorHeight",
                           "PixelFormat",
                           "PayloadSize",
                           "AcquisitionMode",
                           "AcquisitionStart",
                           "AcquisitionStop",
                           "AcquisitionFrameCount",
                           "AcquisitionFrameRate",
                           "AcquisitionFrameRateMax",
                           "TestPattern",
                           "TLParamsLocked",
                           "GevSCPSPacketSize",
                           "GevSCPSFireTestPacket",
                           "GevSCPSDoNotFragment",
                           "GevSCPD",
                           "GevSCPHostPort",
                           "GevSCDA",
                           "GevSCSP",
                           "GevHeartbeatTimeout",
                           "GevTimestampTickFrequency",
                           "GevTimestampValue",
                           "GevCCP",
                           "BulkSelector",
                           "BulkMode",
                           "BulkBaudRate",
                           "BulkNumOfStopBits",
                           "BulkParity",
                           "BulkLoopback",
                           "FileSelector",
                           "FileOperationSelector",
                           "FileOpenMode",
                           "FileOperationExecute",
                           "FileAccessBuffer",
                           "FileAccessOffset",
                           "FileAccessLength",
                           "FileOperationStatus",
                           "FileOperationResult",
                           "FileSize",
                           "FileAccessBlock"}) {
    EXPECT_TRUE(nodes.count(name)) << name;
  }
}

TEST_F(Description, Registers_AreReadableAtTheirAddressAndLength) {
  int seen = 0;
  for (const auto& [name, node] : nodes) {
    if (node.leaf("Address").empty()) continue;
    ++seen;
    const auto length = static_cast<uint16_t>(node.number("Length"));
    EXPECT_EQ(bench.readBlock(node.number("Address"), length).size(), length) << name;
    const uint32_t at = node.number("Address");
    const bool writable = bench.writeBlock(at, bench.readBlock(at, length)) != 0x8004;
    EXPECT_EQ(node.leaf("AccessMode") == "RW", writable) << name;
    if (node.kind == "IntReg" || node.kind == "MaskedIntReg" || node.kind == "FloatReg") {
      EXPECT_EQ(node.leaf("Endianess"), "BigEndian") << name;
    }
  }
  EXPECT_GT(seen, 45);
}

TEST_F(Description, Integers_TakeTheirBoundsAndNothingBeyond) {
  int seen = 0;
  for (const auto& [name, node] : nodes) {
    if (node.kind != "Integer" || node.leaf("Min").empty()) continue;
    const Node& reg = nodes.at(node.leaf("pValue"));
    const uint32_t minimum = node.number("Min");
    const uint32_t maximum = node.leaf("pMax").empty()
                                 ? node.number("Max")
                                 : bench.read(nodes.at(nodes.at(node.leaf("pMax")).leaf("pValue")).number("Address"));
    const uint32_t at = reg.number("Address");
    const uint32_t before = bench.read(at);
    EXPECT_EQ(bench.write(at, minimum), 0) << name;
    bench.write(address::kTransportLocked, 0);
    EXPECT_EQ(bench.write(at, maximum), 0) << name;
    bench.write(address::kTransportLocked, 0);
    if (maximum < 0xFFFF) {
      EXPECT_EQ(bench.write(at, maximum + 1), 0x8002) << name;
    }
    if (minimum > 0) {
      EXPECT_EQ(bench.write(at, minimum - 1), 0x8002) << name;
    }
    if (node.number("Inc") > 1) {
      EXPECT_EQ(bench.write(at, minimum + 1), 0x8002) << name;
    }
    bench.write(at, before);
    ++seen;
  }
  EXPECT_GE(seen, 10);
}

TEST_F(Description, Floats_TakeTheirBoundsAndNothingBeyond) {
  const auto bits = [](float value) {
    uint32_t word = 0;
    std::memcpy(&word, &value, sizeof word);
    return word;
  };
  const auto registerOf = [this](const Node& node) { return nodes.at(node.leaf("pValue")).number("Address"); };
  int seen = 0;
  for (const auto& [name, node] : nodes) {
    if (node.kind != "Float" || node.leaf("Min").empty()) continue;
    const auto minimum = static_cast<float>(node.number("Min"));
    const uint32_t maximum_bits = bench.read(registerOf(nodes.at(node.leaf("pMax"))));
    float maximum = 0;
    std::memcpy(&maximum, &maximum_bits, sizeof maximum);
    const uint32_t at = registerOf(node);
    EXPECT_EQ(bench.write(at, bits(minimum)), 0) << name;
    EXPECT_EQ(bench.write(at, bits(maximum)), 0) << name;
    EXPECT_EQ(bench.write(at, bits(minimum - 0.01F)), 0x8002) << name;
    EXPECT_EQ(bench.write(at, bits(maximum + 0.01F)), 0x8002) << name;
    EXPECT_EQ(bench.read(at), maximum_bits) << name;
    ++seen;
  }
  EXPECT_EQ(seen, 1);
}

TEST_F(Description, Enumerations_TakeTheirEntriesAndNothingElse) {
  int seen = 0;
  for (const auto& [name, node] : nodes) {
    if (node.kind != "Enumeration") continue;
    const Node& reg = nodes.at(node.leaf("pValue"));
    if (reg.leaf("AccessMode") != "RW" || name == "GevCCP") continue;
    uint32_t largest = 0;
    for (const std::string& entry : leaves(node.body, "Value")) {
      const auto value = static_cast<uint32_t>(std::stoul(entry));
      largest = std::max(largest, value);
      EXPECT_EQ(bench.write(reg.number("Address"), value), 0) << name << " " << value;
      EXPECT_EQ(bench.read(reg.number("Address")), value) << name;
    }
    EXPECT_EQ(bench.write(reg.number("Address"), largest + 1), 0x8002) << name;
    ++seen;
  }
  EXPECT_GE(seen, 10);
}

TEST_F(Description, EveryFeatureRow_IsInItsCategory) {
  int seen = 0;
  for (const Field& field : kRegisterTable) {
    if (field.name.empty()) continue;
    const Node& category = nodes.at(std::string(field.category));
    EXPECT_NE(category.body.find("<pFeature>" + std::string(field.name) + "</pFeature>"), std::string::npos);
    ++seen;
  }
  EXPECT_EQ(findFeature("Width")->address, address::kWidth);
  EXPECT_EQ(findFeature("NoSuchFeature"), nullptr);
  EXPECT_GT(seen, 45);
}

}  // namespace
