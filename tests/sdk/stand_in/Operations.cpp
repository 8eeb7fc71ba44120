// An SDK on a machine without a network: enough to link and to run a search that finds nothing.
#include "Operations.h"

#include <cstdlib>
#include <cstring>

namespace {
char* copyOf(const char* text) { return text != nullptr ? strdup(text) : nullptr; }
}  // namespace

PvString::PvString(const char* text) : mText(copyOf(text)) {}
PvString::PvString(const PvString& other) : mText(copyOf(other.mText)) {}
PvString::~PvString() { std::free(mText); }
const char* PvString::GetAscii() const { return mText; }

PvResult::PvResult() : mCode(0) {}
bool PvResult::IsOK() const { return mCode == 0; }

PvDeviceInfo::~PvDeviceInfo() = default;
PvString PvDeviceInfo::GetSerialNumber() const { return ""; }
PvString PvDeviceInfo::GetConnectionID() const { return ""; }
PvString PvDeviceInfo::GetDisplayID() const { return ""; }

PvInterface::~PvInterface() = default;
uint32_t PvInterface::GetDeviceCount() const { return 0; }
const PvDeviceInfo* PvInterface::GetDeviceInfo(uint32_t) const { return nullptr; }

PvSystem::PvSystem() = default;
PvSystem::~PvSystem() = default;
PvResult PvSystem::Find() { return {}; }
uint32_t PvSystem::GetInterfaceCount() const { return 0; }
const PvInterface* PvSystem::GetInterface(uint32_t) const { return nullptr; }

PvGenThing::~PvGenThing() = default;
PvResult PvGenCommand::Execute() { return {}; }
PvGenParameterArray::~PvGenParameterArray() = default;
PvGenThing* PvGenParameterArray::Get(const PvString&) const { return nullptr; }
PvResult PvGenParameterArray::SetEnumValue(const PvString&, const PvString&) { return {}; }
PvResult PvGenParameterArray::SetBooleanValue(const PvString&, bool) { return {}; }
PvResult PvGenParameterArray::SetIntegerValue(const PvString&, int64_t) { return {}; }

PvDevice* PvDevice::CreateAndConnect(const PvDeviceInfo*, PvResult*) { return nullptr; }
void PvDevice::Free(PvDevice*) {}
PvDevice::~PvDevice() = default;
bool PvDevice::IsConnected() const { return false; }
PvResult PvDevice::Disconnect() { return {}; }
uint32_t PvDevice::GetPayloadSize() { return 0; }
PvGenParameterArray* PvDevice::GetParameters() { return nullptr; }
PvResult PvDevice::StreamEnable(uint32_t) { return {}; }
PvResult PvDevice::StreamDisable(uint32_t) { return {}; }
PvResult PvDeviceGEV::NegotiatePacketSize(uint32_t, uint32_t) { return {}; }
PvResult PvDeviceGEV::SetStreamDestination(const PvString&, uint16_t, uint32_t) { return {}; }

PvStream* PvStream::CreateAndOpen(const PvString&, PvResult*) { return nullptr; }
void PvStream::Free(PvStream*) {}
PvStream::~PvStream() = default;
bool PvStream::IsOpen() const { return false; }
PvResult PvStream::Close() { return {}; }
PvString PvStreamGEV::GetLocalIPAddress() const { return ""; }
uint16_t PvStreamGEV::GetLocalPort() const { return 0; }

PvBuffer::~PvBuffer() = default;
uint8_t* PvBuffer::GetDataPointer() { return nullptr; }
PvPipeline::PvPipeline(PvStream*) {}
PvPipeline::~PvPipeline() = default;
PvResult PvPipeline::SetBufferCount(uint32_t) { return {}; }
PvResult PvPipeline::SetBufferSize(uint32_t) { return {}; }
PvResult PvPipeline::Start() { return {}; }
PvResult PvPipeline::Stop() { return {}; }
bool PvPipeline::IsStarted() { return false; }
PvResult PvPipeline::RetrieveNextBuffer(PvBuffer**, uint32_t, PvResult*) { return {}; }
PvResult PvPipeline::ReleaseBuffer(PvBuffer*) { return {}; }

PvDeviceAdapter::PvDeviceAdapter(PvDevice*) {}
PvDeviceAdapter::~PvDeviceAdapter() = default;
PvDeviceSerialPort::PvDeviceSerialPort() = default;
PvDeviceSerialPort::~PvDeviceSerialPort() = default;
PvResult PvDeviceSerialPort::Open(PvDeviceAdapter*, PvDeviceSerial) { return {}; }
PvResult PvDeviceSerialPort::Close() { return {}; }
PvResult PvDeviceSerialPort::Write(const uint8_t*, uint32_t, uint32_t&) { return {}; }
PvResult PvDeviceSerialPort::GetRxBytesReady(uint32_t&) { return {}; }
PvResult PvDeviceSerialPort::Read(uint8_t*, uint32_t, uint32_t&, uint32_t) { return {}; }
