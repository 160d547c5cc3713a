// Texts of others in messages of ours: damaged lines and stored settings hold anything.
#pragma once

#include <string>
#include <string_view>

namespace desk {

// The text's first `longest` bytes with '?' in place of each that is not printable ASCII.
inline std::string printable(std::string_view text, std::size_t longest) {
  std::string out(text.substr(0, longest));
  for (char& c : out) {
    c = c < ' ' || c > '~' ? '?' : c;
  }
  return out;
}

}  // namespace desk
