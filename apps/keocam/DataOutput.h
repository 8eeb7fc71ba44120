// Standard output, kept for data.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

namespace keocam::cli {

/// The library reports its progress on std::cout. While this object lives, those lines go to standard error, or nowhere
/// unless `show_library_lines`, and standard output carries only what write() is given.
class DataOutput {
 public:
  explicit DataOutput(bool show_library_lines);
  ~DataOutput();
  DataOutput(const DataOutput&) = delete;
  DataOutput& operator=(const DataOutput&) = delete;

  /// Writes `data` and sees it delivered. A reader that has gone away, as `head` does, is no failure: the rest is
  /// dropped. Throws CommandFailure for a full disk and the like.
  void write(const std::string& data);

  /// False once a reader has gone away: nobody is left to go on for.
  bool hasReader() const { return data_.good(); }

 private:
  class Discard : public std::streambuf {
   protected:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char* /*text*/, std::streamsize count) override { return count; }
  };

  Discard discard_;
  std::streambuf* original_;
  std::ostream data_;
};

}  // namespace keocam::cli
