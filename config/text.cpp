#include <algorithm>
#include <cstring>

#include "config/values.h"

namespace config {

std::string_view text_in(std::span<const char> buffer) {
  return {buffer.data(), strnlen(buffer.data(), buffer.size())};
}

void put_text(std::span<char> buffer, std::string_view text) {
  const std::string_view kept = text.substr(0, std::min(text.find('\0'), buffer.size() - 1));
  // `text` may lie in the buffer itself.
  const auto end = std::copy(kept.begin(), kept.end(), buffer.begin());
  std::fill(end, buffer.end(), '\0');
}

std::size_t strip_newline(std::span<char> buffer) {
  const std::string_view text = text_in(buffer);
  const std::size_t newline = text.find('\n');
  if (newline == std::string_view::npos) {
    return text.size();
  }
  buffer[newline] = '\0';
  return newline;
}

}  // namespace config
