// The input line: the one buffer into which every answer is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace shell {

// Flushes the output when it has to wait, reads the next line and returns the number of characters typed
// before the newline, 0 to 512; at 512 the line ends without its newline and the rest of it is the next line.
// A backspace takes back one character. Does not return at end of input: the console ends, a partial line is
// dropped.
std::size_t read_line();

// The line with its newline, from which numbers and addresses are read. It can have NULs in it, and is valid
// until the next read_line().
std::string_view line_text();
// The same bytes to work in, with what earlier lines left behind them; the last one is always NUL.
std::span<char> line_buffer();
// The line as a text: the characters up to the newline or the first NUL.
std::string_view typed_text();
// What read_line() returned.
std::size_t line_length();
// True for a line of one character, q.
bool line_is_q();
// The value of a line that is exactly one decimal digit; nothing for any other.
std::optional<std::uint32_t> single_digit();
// The value of the decimal digit with which the line begins; nothing when it begins with none.
std::optional<std::uint32_t> leading_digit();

// A session starts with nothing read.
void reset_input();

}  // namespace shell
