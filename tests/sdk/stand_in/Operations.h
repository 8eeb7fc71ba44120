// The operations of the GigE Vision SDK that the library may use, and not one more. Deliberately unlike our own headers
// in everything that is not such an operation: what the library compiles against here, it compiles against anywhere.
#pragma once

#include <cstdint>

class PvString {
 public:
  PvString(const char* text);
  PvString(const PvString& other);
  virtual ~PvString();
  const char* GetAscii() const;

 private:
  char* mText;
};

class PvResult {
 public:
  PvResult();
  bool IsOK() const;

 private:
  unsigned int mCode;
};

class PvDeviceInfo {
 public:
  virtual ~PvDeviceInfo();
  virtual PvString GetSerialNumber() const;
  virtual PvString GetConnectionID() const;
  virtual PvString GetDisplayID() const;
};

class PvInterface {
 public:
  virtual ~PvInterface();
  virtual uint32_t GetDeviceCount() const;
  virtual const PvDeviceInfo* GetDeviceInfo(uint32_t index) const;
};

class PvSystem {
 public:
  PvSystem();
  virtual ~PvSystem();
  PvResult Find();
  uint32_t GetInterfaceCount() const;
  const PvInterface* GetInterface(uint32_t index) const;
};

class PvGenThing {
 public:
  virtual ~PvGenThing();
};

class PvGenCommand : public PvGenThing {
 public:
  PvResult Execute();
};

class PvGenParameterArray {
 public:
  virtual ~PvGenParameterArray();
  PvGenThing* Get(const PvString& name) const;
  PvResult SetEnumValue(const PvString& name, const PvString& value);
  PvResult SetBooleanValue(const PvString& name, bool value);
  PvResult SetIntegerValue(const PvString& name, int64_t value);
};

class PvDevice {
 public:
  static PvDevice* CreateAndConnect(const PvDeviceInfo* info, PvResult* result);
  static void Free(PvDevice* device);
  virtual ~PvDevice();
  virtual bool IsConnected() const;
  virtual PvResult Disconnect();
  virtual uint32_t GetPayloadSize();
  virtual PvGenParameterArray* GetParameters();
  virtual PvResult StreamEnable(uint32_t channel = 0);
  virtual PvResult StreamDisable(uint32_t channel = 0);
};

class PvDeviceGEV : public PvDevice {
 public:
  PvResult NegotiatePacketSize(uint32_t channel = 0, uint32_t fallback = 0);
  PvResult SetStreamDestination(const PvString& address, uint16_t port, uint32_t channel = 0);
};

class PvStream {
 public:
  static PvStream* CreateAndOpen(const PvString& connection, PvResult* result);
  static void Free(PvStream* stream);
  virtual ~PvStream();
  virtual bool IsOpen() const;
  virtual PvResult Close();
};

class PvStreamGEV : public PvStream {
 public:
  PvString GetLocalIPAddress() const;
  uint16_t GetLocalPort() const;
};

class PvBuffer {
 public:
  virtual ~PvBuffer();
  uint8_t* GetDataPointer();
};

class PvPipeline {
 public:
  explicit PvPipeline(PvStream* stream);
  virtual ~PvPipeline();
  PvResult SetBufferCount(uint32_t count);
  PvResult SetBufferSize(uint32_t size);
  PvResult Start();
  PvResult Stop();
  bool IsStarted();
  PvResult RetrieveNextBuffer(PvBuffer** buffer, uint32_t timeout = 0xFFFFFFFF, PvResult* operationResult = nullptr);
  PvResult ReleaseBuffer(PvBuffer* buffer);
};

enum PvDeviceSerial { PvSerialOne = 0, PvSerialTwo = 1, PvSerialThree = 2 };

class PvDeviceAdapter {
 public:
  explicit PvDeviceAdapter(PvDevice* device);
  virtual ~PvDeviceAdapter();
};

class PvDeviceSerialPort {
 public:
  PvDeviceSerialPort();
  virtual ~PvDeviceSerialPort();
  PvResult Open(PvDeviceAdapter* adapter, PvDeviceSerial port);
  PvResult Close();
  PvResult Write(const uint8_t* data, uint32_t size, uint32_t& bytesWritten);
  PvResult GetRxBytesReady(uint32_t& bytesReady);
  PvResult Read(uint8_t* data, uint32_t size, uint32_t& bytesRead, uint32_t timeout = 0);
};
