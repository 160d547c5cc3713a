// The device's flash partitions: MTD block devices on a board, files on the desk. A text in one ends at the
// first byte that no text has: 0xff, which an erased chip is full of, or NUL.
//
// What cannot be read or written is told on standard error with its reason.
#pragma once

#include <string>
#include <string_view>

namespace desk {

// The text from the partition's start, or a file's; empty when there is none.
std::string read_text(const char* partition);

// Replaces that text, and writes nothing where it is the same. Power lost on the way may cut it anywhere.
// False when it could not be written.
bool replace_text(const char* partition, std::string_view text);

// Adds a line, which ends with its line feed, to that text. False when it could not be written.
bool append_line(const char* partition, std::string_view line);

// A partition of 704 KiB or more has room for two numbered copies of a text besides, behind a first part that
// is left to others: the console's factory reset writes from the partition's start.

// The newest copy that is intact; empty when there is none.
std::string read_copy(const char* partition);

// Stores a copy in place of the older one and then clears the text at the start, which is newer than any copy
// as long as it is there: power lost on the way leaves what was there, or the new copy. Writes nothing where
// the newest copy is the same already. False when it could not be written.
bool store_copy(const char* partition, std::string_view text);

}  // namespace desk
