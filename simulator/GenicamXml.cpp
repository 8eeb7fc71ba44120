#include "simulator/GenicamXml.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <string_view>
#include <vector>

#include "simulator/RegisterTable.h"

namespace simulator {
namespace {

std::string hex(uint32_t value) {
  std::ostringstream text;
  text << "0x" << std::hex << std::uppercase << value;
  return text.str();
}

/// Writes elements with their indentation.
class Writer {
 public:
  void open(const std::string& tag) {
    line("<" + tag + ">");
    ++depth_;
  }
  void close(const std::string& tag) {
    --depth_;
    line("</" + tag + ">");
  }
  void leaf(const std::string& tag, std::string_view value) {
    line("<" + tag + ">" + std::string(value) + "</" + tag + ">");
  }
  void number(const std::string& tag, uint64_t value) { leaf(tag, std::to_string(value)); }
  void line(const std::string& text) { out_ << std::string(depth_ * 2, ' ') << text << '\n'; }
  std::string text() const { return out_.str(); }

 private:
  std::ostringstream out_;
  std::size_t depth_ = 0;
};

std::string_view accessText(Access access) {
  switch (access) {
    case Access::ReadOnly:
      return "RO";
    case Access::ReadWrite:
      return "RW";
    case Access::WriteOnly:
      return "WO";
  }
  return "RO";
}

std::string_view visibilityText(Visibility visibility) {
  switch (visibility) {
    case Visibility::Beginner:
      return "Beginner";
    case Visibility::Expert:
      return "Expert";
    case Visibility::Guru:
      return "Guru";
  }
  return "Guru";
}

std::string registerName(const Field& field) { return std::string(field.name) + "Register"; }

std::string openTag(const std::string& kind, const std::string& name) { return kind + " Name=\"" + name + "\""; }

void writeDescription(Writer& xml, const Field& field) {
  xml.leaf("ToolTip", field.help);
  xml.leaf("Visibility", visibilityText(field.visibility));
  if (field.locked_while_streaming) xml.leaf("pIsLocked", "TLParamsLocked");
}

void writeLocation(Writer& xml, const Field& field) {
  xml.leaf("Address", hex(field.address));
  xml.number("Length", field.length_bytes);
  // A command's register is read back until it is done, and a part of a word is changed by read, modify and write.
  const Access access = field.access == Access::WriteOnly ? Access::ReadWrite : field.access;
  xml.leaf("AccessMode", accessText(access));
  xml.leaf("pPort", "Device");
  const bool changes = field.live || field.isPart();
  xml.leaf("Cachable", changes ? "NoCache" : "WriteThrough");
}

/// The register behind an integer, enumeration, boolean, command or float.
void writeRegister(Writer& xml, const Field& field) {
  const std::string kind = field.isPart() ? "MaskedIntReg" : field.kind == FieldKind::Float ? "FloatReg" : "IntReg";
  xml.open(openTag(kind, registerName(field)));
  writeLocation(xml, field);
  if (field.isPart()) {
    // Big-endian registers count bits from the most significant one.
    if (field.bit_count == 1) {
      xml.number("Bit", 31 - field.lowest_bit);
    } else {
      xml.number("LSB", 31 - field.lowest_bit);
      xml.number("MSB", 32 - field.lowest_bit - field.bit_count);
    }
  }
  if (field.kind != FieldKind::Float) xml.leaf("Sign", "Unsigned");
  xml.leaf("Endianess", "BigEndian");
  xml.close(kind);
}

void writeSelected(Writer& xml, const Field& field) {
  for (const Field& other : kRegisterTable) {
    if (other.selector != 0 && other.selector == field.address && !other.name.empty()) {
      xml.leaf("pSelected", other.name);
    }
  }
}

void writeBounds(Writer& xml, const Field& field) {
  if (field.access == Access::ReadOnly) return;
  xml.number("Min", field.minimum);
  if (field.maximum_from != 0) {
    xml.leaf("pMax", featureAt(field.maximum_from)->name);
  } else {
    xml.number("Max", field.maximum);
  }
  if (field.kind == FieldKind::Integer) xml.number("Inc", field.increment);
}

void writeValueFeature(Writer& xml, const Field& field, const std::string& kind) {
  xml.open(openTag(kind, std::string(field.name)));
  writeDescription(xml, field);
  if (field.kind == FieldKind::Enumeration) {
    for (const EnumEntry& entry : field.entries) {
      xml.open(openTag("EnumEntry", std::string(entry.name)));
      xml.number("Value", entry.value);
      xml.close("EnumEntry");
    }
  }
  xml.leaf("pValue", registerName(field));
  if (kind == "Integer" || kind == "Float") writeBounds(xml, field);
  if (kind == "Command") xml.number("CommandValue", 1);
  if (kind == "Boolean") {
    xml.number("OnValue", 1);
    xml.number("OffValue", 0);
  }
  if (!field.unit.empty() && (kind == "Integer" || kind == "Float")) xml.leaf("Unit", field.unit);
  if (kind == "Integer" || kind == "Enumeration") writeSelected(xml, field);
  xml.close(kind);
  writeRegister(xml, field);
}

void writeRawFeature(Writer& xml, const Field& field, const std::string& kind) {
  xml.open(openTag(kind, std::string(field.name)));
  writeDescription(xml, field);
  writeLocation(xml, field);
  xml.close(kind);
}

void writeFeature(Writer& xml, const Field& field) {
  switch (field.kind) {
    case FieldKind::Integer:
      return writeValueFeature(xml, field, "Integer");
    case FieldKind::Float:
      return writeValueFeature(xml, field, "Float");
    case FieldKind::Enumeration:
      return writeValueFeature(xml, field, "Enumeration");
    case FieldKind::Boolean:
      return writeValueFeature(xml, field, "Boolean");
    case FieldKind::Command:
      return writeValueFeature(xml, field, "Command");
    case FieldKind::Text:
      return writeRawFeature(xml, field, "StringReg");
    case FieldKind::Block:
      return writeRawFeature(xml, field, "Register");
    case FieldKind::Reserved:
      return;
  }
}

std::vector<std::string_view> categories() {
  std::vector<std::string_view> names;
  for (const Field& field : kRegisterTable) {
    if (!field.category.empty() && std::find(names.begin(), names.end(), field.category) == names.end()) {
      names.push_back(field.category);
    }
  }
  return names;
}

}  // namespace

std::string genicamXml(const std::string& model) {
  Writer xml;
  xml.line("<?xml version=\"1.0\" encoding=\"utf-8\"?>");
  xml.line("<RegisterDescription ModelName=\"" + model + "\" VendorName=\"KEO\" StandardNameSpace=\"GEV\"");
  xml.line("  ToolTip=\"Thermal camera in software\" SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\"");
  xml.line("  SchemaSubMinorVersion=\"0\" MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\"");
  xml.line(
      "  ProductGuid=\"6f2d6a52-3c1f-4a53-9d7c-5f6e0b1a7c11\" VersionGuid=\"b0a5d3f4-77c2-4a0e-8a58-0d9a3b6f2e21\"");
  xml.line("  xmlns=\"http://www.genicam.org/GenApi/Version_1_1\"");
  xml.line("  xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"");
  xml.line("  xsi:schemaLocation=\"http://www.genicam.org/GenApi/Version_1_1 GenApiSchema.xsd\">");
  xml.open(openTag("Category", "Root"));
  for (const std::string_view category : categories()) xml.leaf("pFeature", category);
  xml.close("Category");
  for (const std::string_view category : categories()) {
    xml.open(openTag("Category", std::string(category)));
    for (const Field& field : kRegisterTable) {
      if (field.category == category) xml.leaf("pFeature", field.name);
    }
    xml.close("Category");
  }
  for (const Field& field : kRegisterTable) {
    if (!field.name.empty()) writeFeature(xml, field);
  }
  xml.open(openTag("Port", "Device"));
  xml.close("Port");
  xml.line("</RegisterDescription>");
  return xml.text();
}

std::string genicamUrl(const std::string& model) {
  std::ostringstream url;
  url << "Local:" << model << ".xml;" << std::hex << address::kXml << ';' << genicamXml(model).size();
  return url.str();
}

}  // namespace simulator
