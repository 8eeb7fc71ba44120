// Text as the GigE Vision classes pass it.
#pragma once

#include <optional>
#include <string>

/// An immutable text that may be absent. Copies are independent of each other.
class PvString {
 public:
  /// An absent text: GetAscii() gives null.
  PvString();
  /// A copy of the zero-terminated `text`; null makes an absent text.
  PvString(const char* text);  // NOLINT(google-explicit-constructor): callers pass literals
  /// A copy of `text`.
  explicit PvString(const std::string& text);

  /// The zero-terminated text, or null if absent. Valid until this object is assigned to or ends.
  const char* GetAscii() const;

 private:
  std::optional<std::string> text_;
};
