// The receiving end of a GigE Vision stream.
#pragma once

#include "PvStream.h"

class PvStreamGEV : public PvStream {
 public:
  ~PvStreamGEV() override;

  /// This host's IPv4 address, in dotted form, on which the stream is received.
  PvString GetLocalIPAddress() const;
  /// The UDP port on which the stream is received; 0 if closed.
  unsigned short GetLocalPort() const;

 private:
  friend struct PvLayer;
  explicit PvStreamGEV(std::unique_ptr<State> state);
};
