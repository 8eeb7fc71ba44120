// The camera's registers and features, one row each. The register map obeys these rows and the GenICam description is
// written from them, so the two cannot disagree.
#pragma once

#include "simulator/Field.h"
#include "simulator/RegisterAddresses.h"
#include "simulator/RegisterEntries.h"

namespace simulator {
namespace rows {

constexpr Access kReadOnly = Access::ReadOnly;
constexpr Access kReadWrite = Access::ReadWrite;

constexpr Field fixed(uint32_t at, uint64_t value = 0, uint32_t length_bytes = 4) {
  return makeField(FieldKind::Integer, kReadOnly, at, length_bytes).value(value);
}
constexpr Field number(uint32_t at) { return makeField(FieldKind::Integer, kReadWrite, at); }
constexpr Field boolean(uint32_t at) { return makeField(FieldKind::Boolean, kReadWrite, at).range(0, 1); }
constexpr Field command(uint32_t at, Action action) {
  return makeField(FieldKind::Command, Access::WriteOnly, at).does(action).changing();
}
constexpr Field text(uint32_t at, uint32_t length_bytes, std::string_view value = {}, Access access = kReadOnly) {
  Field field = makeField(FieldKind::Text, access, at, length_bytes);
  field.initial_text = value;
  return field;
}
constexpr Field block(uint32_t at, uint32_t length_bytes, Access access) {
  return makeField(FieldKind::Block, access, at, length_bytes).changing();
}
constexpr Field reserved(uint32_t at, uint32_t length_bytes) {
  return makeField(FieldKind::Reserved, kReadOnly, at, length_bytes);
}
template <std::size_t N>
constexpr Field choice(uint32_t at, const EnumEntry (&entries)[N], Access access = kReadWrite) {
  Field field = makeField(FieldKind::Enumeration, access, at);
  field.entries = EnumEntries{entries, N};
  return field;
}

constexpr auto kGuru = Visibility::Guru;
constexpr auto kExpert = Visibility::Expert;
constexpr std::string_view kDevice = "DeviceControl";
constexpr std::string_view kImage = "ImageFormatControl";
constexpr std::string_view kAcquisition = "AcquisitionControl";
constexpr std::string_view kTransport = "TransportLayerControl";
constexpr std::string_view kBulk = "BulkControl";
constexpr std::string_view kFile = "FileAccessControl";

}  // namespace rows

// clang-format off
inline constexpr Field kRegisterTable[] = {
    // Bootstrap registers: who and where the camera is. The first 0xF8 bytes are the discovery acknowledge.
    rows::fixed(0x0000, 0x00010002),
    rows::fixed(0x0004, 0x80000001),
    rows::fixed(address::kDeviceMacHigh),
    rows::fixed(address::kDeviceMacLow),
    rows::fixed(0x0010, 0x00000007),
    rows::number(0x0014).value(5).range(4, 7),
    rows::reserved(0x0018, 12),
    rows::fixed(address::kCurrentIp),
    rows::reserved(0x0028, 12),
    rows::fixed(address::kCurrentSubnetMask),
    rows::reserved(0x0038, 12),
    rows::fixed(0x0044),
    rows::text(0x0048, 32, "KEO").as("DeviceVendorName", rows::kDevice, "Name of the camera's maker."),
    rows::text(address::kModelName, 32).as("DeviceModelName", rows::kDevice, "Model of the camera."),
    rows::text(0x0088, 32, "1.0").as("DeviceVersion", rows::kDevice, "Version of the camera."),
    rows::text(0x00A8, 48, "Thermal camera in software").as("DeviceManufacturerInfo", rows::kDevice, "What the maker adds."),
    rows::text(address::kSerialNumber, 16).as("DeviceSerialNumber", rows::kDevice, "Serial number of the camera."),
    rows::text(address::kSerialNumber, 16).as("DeviceID", rows::kDevice, "Serial number of the camera, under its older name."),
    rows::text(address::kUserName, 16, {}, rows::kReadWrite).as("DeviceUserID", rows::kDevice, "Name that the user gives the camera."),
    rows::text(address::kFirstUrl, 512),
    rows::text(0x0400, 512),
    rows::fixed(0x0600, 1),
    rows::number(0x064C),
    rows::number(0x065C),
    rows::number(0x066C),
    rows::fixed(0x0670, 1000).in("Mbps").as("GevLinkSpeed", rows::kTransport, "Speed of the network link.").shownTo(rows::kExpert),
    rows::fixed(0x0900),
    rows::fixed(0x0904, 1),
    rows::fixed(0x0908),
    rows::fixed(0x092C, 0x40000000),
    rows::fixed(0x0930),
    rows::fixed(0x0934, 0xC8000027),  // names, serial number, controller's address, pending acks, resend, block writes
    rows::number(address::kHeartbeatTimeout).value(3000).range(500, 600000).in("ms")
        .as("GevHeartbeatTimeout", rows::kTransport, "Control is lost when the controlling host is silent for this long.").shownTo(rows::kGuru),
    rows::fixed(0x093C, 1000000000, 8).in("Hz")
        .as("GevTimestampTickFrequency", rows::kTransport, "Ticks of the time stamp per second.").shownTo(rows::kExpert),
    rows::command(address::kTimestampControl, Action::TimestampLatch).bits(1, 1)
        .as("GevTimestampControlLatch", rows::kTransport, "Takes the time stamp into GevTimestampValue.").shownTo(rows::kExpert),
    rows::fixed(address::kTimestampValue, 0, 8).changing()
        .as("GevTimestampValue", rows::kTransport, "Time stamp at the last latch, in ticks.").shownTo(rows::kExpert),
    rows::fixed(0x0950),
    rows::fixed(0x0954),
    rows::fixed(0x0958),
    rows::choice(address::kControlPrivilege, kControlModes).does(Action::Control).changing()
        .as("GevCCP", rows::kTransport, "Which access a host holds to the camera.").shownTo(rows::kGuru),
    rows::fixed(address::kControllerPort).changing(),
    rows::fixed(address::kControllerIp).changing(),

    // Stream channel 0.
    rows::number(address::kStreamPort).bits(0, 16).range(0, 65535).does(Action::StreamPort)
        .as("GevSCPHostPort", rows::kTransport, "UDP port of the host that receives the stream; 0 closes the channel.").shownTo(rows::kGuru),
    rows::number(address::kStreamPacketSize).bits(0, 16).value(1500).range(576, 9000, 4).in("B").does(Action::StreamSettings)
        .as("GevSCPSPacketSize", rows::kTransport, "Size of a stream packet with its IP, UDP and stream headers.").shownTo(rows::kExpert),
    rows::boolean(address::kStreamPacketSize).bits(30, 1).does(Action::StreamSettings)
        .as("GevSCPSDoNotFragment", rows::kTransport, "Forbids the network to split stream packets.").shownTo(rows::kGuru),
    rows::command(address::kStreamPacketSize, Action::TestPacket).bits(31, 1)
        .as("GevSCPSFireTestPacket", rows::kTransport, "Sends one packet of the chosen size to the stream's destination.").shownTo(rows::kGuru),
    rows::number(address::kStreamPacketDelay).range(0, 100000000).in("ns").does(Action::StreamSettings)
        .as("GevSCPD", rows::kTransport, "Delay between stream packets, in ticks of the time stamp.").shownTo(rows::kExpert),
    rows::number(address::kStreamDestination).does(Action::StreamSettings)
        .as("GevSCDA", rows::kTransport, "IPv4 address that receives the stream.").shownTo(rows::kGuru),
    rows::fixed(address::kStreamSourcePort)
        .as("GevSCSP", rows::kTransport, "UDP port that the stream comes from.").shownTo(rows::kGuru),
    rows::fixed(0x0D20),
    rows::fixed(0x0D24),

    // The picture.
    rows::number(address::kWidth).range(16, 0).upTo(address::kWidthMax).in("px").locked().does(Action::StreamSettings)
        .as("Width", rows::kImage, "Width of the picture; less than the sensor's shows its left part."),
    rows::number(address::kHeight).range(16, 0).upTo(address::kHeightMax).in("px").locked().does(Action::StreamSettings)
        .as("Height", rows::kImage, "Height of the picture; less than the sensor's shows its top part."),
    rows::choice(address::kPixelFormat, kPixelFormats).value(kPixelFormatMono14).locked()
        .as("PixelFormat", rows::kImage, "Format of the pixels: 14 bits in 16, little endian."),
    rows::fixed(address::kPayloadSize).changing().in("B")
        .as("PayloadSize", rows::kTransport, "Bytes of one frame's pixels.").shownTo(rows::kExpert),
    rows::fixed(address::kWidthMax).in("px").as("WidthMax", rows::kImage, "Largest width.").shownTo(rows::kExpert),
    rows::fixed(address::kHeightMax).in("px").as("HeightMax", rows::kImage, "Largest height.").shownTo(rows::kExpert),
    rows::fixed(address::kSensorWidth).in("px").as("SensorWidth", rows::kImage, "Width of the sensor.").shownTo(rows::kExpert),
    rows::fixed(address::kSensorHeight).in("px").as("SensorHeight", rows::kImage, "Height of the sensor.").shownTo(rows::kExpert),
    rows::choice(address::kTestPattern, kTestPatterns).does(Action::StreamSettings)
        .as("TestPattern", rows::kImage, "Pattern shown in the scene's place."),

    // Acquisition.
    rows::choice(address::kAcquisitionMode, kAcquisitionModes).locked()
        .as("AcquisitionMode", rows::kAcquisition, "How many frames AcquisitionStart asks for."),
    rows::command(address::kAcquisitionStart, Action::AcquisitionStart).as("AcquisitionStart", rows::kAcquisition, "Starts the frames."),
    rows::command(address::kAcquisitionStop, Action::AcquisitionStop).as("AcquisitionStop", rows::kAcquisition, "Stops the frames."),
    rows::number(address::kAcquisitionFrameCount).value(1).range(1, 65535).locked()
        .as("AcquisitionFrameCount", rows::kAcquisition, "Frames of a MultiFrame acquisition."),
    makeField(FieldKind::Float, rows::kReadWrite, address::kAcquisitionFrameRate).range(1, 0)
        .upTo(address::kAcquisitionFrameRateMax).in("Hz").does(Action::StreamSettings)
        .as("AcquisitionFrameRate", rows::kAcquisition, "Frames per second; may be changed while frames run."),
    makeField(FieldKind::Float, rows::kReadOnly, address::kAcquisitionFrameRateMax).in("Hz")
        .as("AcquisitionFrameRateMax", rows::kAcquisition, "The most frames per second: a slow core makes 9.").shownTo(rows::kExpert),
    rows::number(address::kTransportLocked).range(0, 1)
        .as("TLParamsLocked", rows::kTransport, "1 locks the picture's size and format, as an acquisition does.").shownTo(rows::kGuru),

    // The serial port.
    rows::choice(address::kBulkSelector, kBulkSelectors).as("BulkSelector", rows::kBulk, "The serial port that the features below are about."),
    rows::choice(address::kBulkMode, kBulkModes).value(1).selectedBy(address::kBulkSelector).does(Action::SerialLine)
        .as("BulkMode", rows::kBulk, "What the port's pins are used for."),
    rows::choice(address::kBulkBaudRate, kBaudRates).value(57600).selectedBy(address::kBulkSelector).does(Action::SerialLine)
        .as("BulkBaudRate", rows::kBulk, "Bits per second."),
    rows::choice(address::kBulkStopBits, kStopBits).value(1).selectedBy(address::kBulkSelector).does(Action::SerialLine)
        .as("BulkNumOfStopBits", rows::kBulk, "Stop bits after each character."),
    rows::choice(address::kBulkParity, kParities).selectedBy(address::kBulkSelector).does(Action::SerialLine)
        .as("BulkParity", rows::kBulk, "Parity bit of each character."),
    rows::boolean(address::kBulkLoopback).selectedBy(address::kBulkSelector).does(Action::SerialLine)
        .as("BulkLoopback", rows::kBulk, "Sends what is written straight back to the reader."),

    // File access: the data of the serial port.
    rows::choice(address::kFileSelector, kFileSelectors).shownTo(rows::kGuru).as("FileSelector", rows::kFile, "The port whose data is accessed."),
    rows::choice(address::kFileOpenMode, kFileOpenModes).value(2).selectedBy(address::kFileSelector).shownTo(rows::kGuru)
        .as("FileOpenMode", rows::kFile, "What an opened port may be used for."),
    rows::fixed(address::kFileSize).changing().in("B").selectedBy(address::kFileSelector).shownTo(rows::kGuru)
        .as("FileSize", rows::kFile, "Bytes that wait in the receive queue."),
    rows::choice(address::kFileStatus, kFileStatuses, rows::kReadOnly).changing().selectedBy(address::kFileOperation).shownTo(rows::kGuru)
        .as("FileOperationStatus", rows::kFile, "How the last operation ended."),
    rows::fixed(address::kFileResult).changing().in("B").selectedBy(address::kFileOperation).shownTo(rows::kGuru)
        .as("FileOperationResult", rows::kFile, "Bytes that the last read or write moved."),
    rows::choice(address::kFileOperation, kFileOperations).selectedBy(address::kFileSelector).shownTo(rows::kGuru)
        .as("FileOperationSelector", rows::kFile, "The operation that FileOperationExecute carries out."),
    rows::number(address::kFileOffset).in("B").selectedBy(address::kFileOperation).shownTo(rows::kGuru)
        .as("FileAccessOffset", rows::kFile, "Without meaning for a stream of bytes."),
    rows::number(address::kFileLength).range(0, address::kFileBufferBytes).in("B").selectedBy(address::kFileOperation).shownTo(rows::kGuru)
        .as("FileAccessLength", rows::kFile, "Bytes to write, or to read at most."),
    rows::command(address::kFileExecute, Action::FileOperation).selectedBy(address::kFileOperation).shownTo(rows::kGuru)
        .as("FileOperationExecute", rows::kFile, "Carries out the selected operation."),
    rows::block(address::kFileBuffer, address::kFileBufferBytes, rows::kReadWrite).shownTo(rows::kGuru)
        .as("FileAccessBuffer", rows::kFile, "Bytes to write, or bytes read."),
    rows::block(address::kFileBlock, address::kFileBlockBytes, rows::kReadOnly).shownTo(rows::kGuru)
        .as("FileAccessBlock", rows::kFile, "All of the above in one piece: one write of memory from FileOperationSelector on carries out an operation, "
            "one read of memory fetches all of its outcome."),
};
// clang-format on

/// The row of the feature `name`, or null.
const Field* findFeature(std::string_view name);

/// The first row at `address` that is a whole register with a feature, or null.
const Field* featureAt(uint32_t address);

}  // namespace simulator
