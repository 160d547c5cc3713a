// Buffered line reading over a file's or a command's descriptor.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace platform {

class LineReader {
 public:
  explicit LineReader(int descriptor) : descriptor_(descriptor) {}

  // Reads up to and including the next line feed, or as much of the line as fits: a longer line comes in
  // pieces of `into.size()` bytes. Returns what was stored in `into`, empty at the end of the file or on an
  // error.
  std::string_view next(std::span<char> into);
  // The next of these that does not contain the marker.
  std::string_view next_without(std::string_view marker, std::span<char> into);

  // Negative errno of the read that ended the reading, 0 when it was the end of the file.
  int error() const { return error_; }

 private:
  int descriptor_;
  int error_ = 0;
  std::size_t position_ = 0;
  std::size_t filled_ = 0;
  std::array<char, 4096> buffer_;
};

}  // namespace platform
