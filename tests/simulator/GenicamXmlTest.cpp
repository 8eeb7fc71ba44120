// The description against the registers: what it says about addresses, sizes, bounds and entries is what they do.
#include "simulator/GenicamXml.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>

#include "DeviceBench.h"

namespace {

using namespace simulator;

/// An element `kind` of the description: its name and all that stands inside.
struct Node {
  std::string kind;
  std::string body;
  std::string leaf(const std::string& tag) const {
    std::smatch found;
    return std::regex_search(body, found, std::regex("<" + tag + ">([^<]*)</" + tag + ">")) ? found[1].str() : "";
  }
  uint32_t number(const std::string& tag) const { return static_cast<uint32_t>(std::stoul(leaf(tag), nullptr, 0)); }
};

/// The nodes by name, read from the text alone.
std::map<std::string, Node> nodesOf(const std::string& xml) {
  std::map<std::string, Node> nodes;
  const std::regex open("\n<(\\w+) Name=\"(\\w+)\">");
  for (std::sregex_iterator it(xml.begin(), xml.end(), open), end; it != end; ++it) {
    const std::string kind = (*it)[1];
    const auto start = static_cast<std::size_t>(it->position() + it->length());
    const std::size_t stop = xml.find("</" + kind + ">", start);
    nodes[(*it)[2]] = {kind, xml.substr(start, stop - start)};
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
  std::smatch parts;
  ASSERT_TRUE(std::regex_match(url, parts, std::regex("Local:KEOsim-640\\.xml;([0-9a-f]+);([0-9a-f]+)"))) << url;
  const auto at = static_cast<uint32_t>(std::stoul(parts[1], nullptr, 16));
  const std::size_t size = std::stoul(parts[2], nullptr, 16);
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
  const std::regex reference("<(pFeature|pValue|pMax|pSelected|pIsLocked|pPort)>(\\w+)<");
  int seen = 0;
  for (std::sregex_iterator it(text.begin(), text.end(), reference), end; it != end; ++it) {
    ++seen;
    EXPECT_TRUE(nodes.count((*it)[2])) << (*it)[2];
  }
  EXPECT_GT(seen, 150);
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

TEST_F(Description, Enumerations_TakeTheirEntriesAndNothingElse) {
  const std::regex entry("<Value>(\\d+)</Value>");
  int seen = 0;
  for (const auto& [name, node] : nodes) {
    if (node.kind != "Enumeration") continue;
    const Node& reg = nodes.at(node.leaf("pValue"));
    if (reg.leaf("AccessMode") != "RW" || name == "GevCCP") continue;
    const std::string& own = node.body;
    uint32_t largest = 0;
    for (std::sregex_iterator it(own.begin(), own.end(), entry), last; it != last; ++it) {
      const auto value = static_cast<uint32_t>(std::stoul((*it)[1]));
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
