#include "PvString.h"

PvString::PvString() = default;

PvString::PvString(const char* text) {
  if (text != nullptr) text_ = text;
}

PvString::PvString(const std::string& text) : text_(text) {}

const char* PvString::GetAscii() const { return text_ ? text_->c_str() : nullptr; }
