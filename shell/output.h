// Standard output, gathered in one buffer. It is flushed when the console is about to wait for input, to
// start another program, to pause or to end, and when the buffer is full; at no other time.
#pragma once

#include <string_view>

namespace shell {

// Of any length.
void put(std::string_view text);
void put(const char* text);
// A line of up to 1023 characters; what is longer is cut. Stored texts of unknown length go through put().
[[gnu::format(printf, 1, 2)]] void print(const char* format, ...);

void flush_output();

// True once the other end has gone: what is printed after that is dropped, and the next read_line() ends the
// console.
bool output_is_lost();

// A session starts with nothing gathered and nothing lost.
void reset_output();

}  // namespace shell
