// The voice daemon's query service: plain text over UDP on the loopback address.
//
// A request is one datagram of command lines, "get ITEM ARGUMENTS", and an empty line. The answer is one
// datagram with a line per command, in the order of the commands; the call log alone takes several. What
// arrives is not trusted to be any of this.
//
// All operations return 0 or more for success, a negative code for failure, and print nothing. There is one
// query at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace menus::status {

constexpr const char* voice_daemon_address = "127.0.0.1";
constexpr std::uint16_t voice_daemon_port = 8118;

// Of any datagram, with the NUL that is put behind a received one.
constexpr std::size_t voice_daemon_buffer_size = 8192;

// A socket towards the daemon at a dotted-quad address, for the caller to close. -1: that is no address,
// -2: no socket, -3: not bound, -4: not connected.
int voice_daemon_open(const char* address, std::uint16_t port);

// Sends the text as one datagram and returns its length. -1: the descriptor is negative, -2: not all of it
// was sent.
int voice_daemon_send(int descriptor, std::string_view text);

// Waits at most 5 seconds for one datagram, stores what fits before a NUL and returns that length. -1: out of
// time after failed attempts, -3: the wait failed, -4: nothing came. `buffer` has at least one byte.
int voice_daemon_receive(int descriptor, std::span<char> buffer);

// Cuts the text in place at runs of separators, of which there is at least one kind, into at most
// fields.size() fields, which is at least 1, and returns how many of `fields` it filled. That is at least 1:
// fields[0] of a text without any field is null.
int split_fields(char* text, const char* separators, std::span<const char*> fields);

// Sends the commands and cuts the answer into its lines: fields.size() of them at most, null where the answer
// has no more. Returns split_fields()' count. The fields are valid until the next query. -1: not opened,
// -2: the request is too long, -3: not sent, -4: nothing received.
int voice_daemon_query(std::span<const char* const> commands, std::span<const char*> fields);

// The decimal number with which a field begins; 0 when it begins with none or is null. A number out of range
// becomes the nearest one.
int field_number(const char* field);

}  // namespace menus::status
