#include "platform/line_reader.h"

#include <algorithm>
#include <cstring>

#include "platform/platform.h"

namespace platform {

std::string_view LineReader::next(std::span<char> into) {
  std::size_t length = 0;
  while (length < into.size()) {
    if (position_ == filled_) {
      const std::ptrdiff_t got = read_some(descriptor_, buffer_);
      if (got <= 0) {
        error_ = static_cast<int>(got);
        break;
      }
      position_ = 0;
      filled_ = static_cast<std::size_t>(got);
    }
    const char* const from = buffer_.data() + position_;
    const std::size_t room = std::min(into.size() - length, filled_ - position_);
    const void* const newline = std::memchr(from, '\n', room);
    const std::size_t take =
        newline ? static_cast<std::size_t>(static_cast<const char*>(newline) - from) + 1 : room;
    std::memcpy(into.data() + length, from, take);
    length += take;
    position_ += take;
    if (newline) {
      break;
    }
  }
  return {into.data(), length};
}

std::string_view LineReader::next_without(std::string_view marker, std::span<char> into) {
  std::string_view line;
  do {
    line = next(into);
  } while (line.find(marker) != std::string_view::npos);
  return line;
}

}  // namespace platform
