// Values of the camera's enumeration registers, and their names.
#pragma once

#include <cstdint>

#include "simulator/Field.h"

namespace simulator {

constexpr uint32_t kPixelFormatMono14 = 0x01100025;

enum class AcquisitionMode : uint32_t { Continuous = 0, SingleFrame = 1, MultiFrame = 2 };
enum class BulkMode : uint32_t { Off = 0, Uart = 1 };
enum class FileOperation : uint32_t { Open = 0, Close = 1, Read = 2, Write = 3, Delete = 4 };
enum class FileOpenMode : uint32_t { Read = 0, Write = 1, ReadWrite = 2 };
enum class FileStatus : uint32_t { Success = 0, Failure = 1 };

inline constexpr EnumEntry kPixelFormats[] = {{"Mono14", kPixelFormatMono14}};
inline constexpr EnumEntry kAcquisitionModes[] = {{"Continuous", 0}, {"SingleFrame", 1}, {"MultiFrame", 2}};
inline constexpr EnumEntry kTestPatterns[] = {
    {"Off", 0}, {"GreyHorizontalRamp", 1}, {"GreyVerticalRamp", 2}, {"GreyDiagonalRampMoving", 3}};
inline constexpr EnumEntry kBulkSelectors[] = {{"Bulk0", 0}};
inline constexpr EnumEntry kBulkModes[] = {{"Off", 0}, {"UART", 1}};
inline constexpr EnumEntry kBaudRates[] = {{"Baud9600", 9600},     {"Baud19200", 19200},   {"Baud38400", 38400},
                                           {"Baud57600", 57600},   {"Baud115200", 115200}, {"Baud230400", 230400},
                                           {"Baud460800", 460800}, {"Baud921600", 921600}};
inline constexpr EnumEntry kStopBits[] = {{"One", 1}, {"Two", 2}};
inline constexpr EnumEntry kParities[] = {{"None", 0}, {"Odd", 1}, {"Even", 2}};
inline constexpr EnumEntry kFileSelectors[] = {{"Bulk0", 0}};
inline constexpr EnumEntry kFileOperations[] = {{"Open", 0}, {"Close", 1}, {"Read", 2}, {"Write", 3}, {"Delete", 4}};
inline constexpr EnumEntry kFileOpenModes[] = {{"Read", 0}, {"Write", 1}, {"ReadWrite", 2}};
inline constexpr EnumEntry kFileStatuses[] = {{"Success", 0}, {"Failure", 1}};
inline constexpr EnumEntry kControlModes[] = {
    {"OpenAccess", 0}, {"ExclusiveAccess", 1}, {"ControlAccess", 2}, {"ExclusiveControlAccess", 3}};

}  // namespace simulator
