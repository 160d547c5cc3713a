// A session written down as a file. Any bytes are one; those in corpus/ are made to be read, and each states
// how often it saves the settings: the tests notice one that stops short because a dialogue has changed.
// A file begins with a line like "0001 saves 1", of four characters and that count:
//
//   1   how the segment is filled: 0 a new device, 1 every setting with a value that may be kept, 2 zeros,
//       3 bytes 255, 4 texts without an end, 5 line feeds, 6 short texts with line feeds, 7 noise
//   00  which chance to fail is taken (tests/support/device.h), as two digits to the base 256 counted from
//       the character 0; 00 for none
//   1   whether the login is typed by us: an even character for no
//
// What follows is typed. "%%" and one of these letters ends that and begins a section, up to the next one:
//
//   s  lines "name=value": settings that differ, with the names of the field table
//   r  offset (2 bytes, low one first), bytes: settings that differ; the login record lies behind the segment
//   w  number of a wait for input (1 byte), then as r: what another program writes during that wait
//   t  by how many seconds the clock moves in each wait for input, a byte each
//   c  what a command prints, in the order in which they are run, and again from the first
//   f  a line with a path, then what that file holds
//   d  a datagram from the voice daemon; all of them answer each request
//   p  the exit status of programs, counted from the character 0
//   x  lines: calls that always fail (tests/support/device.h)
#pragma once

#include <string_view>

#include "support/device.h"

namespace fuzz {

// The device on which the session is to be played, with everything that is going to be typed.
void set_up(tests::Device& device, std::string_view input);

}  // namespace fuzz
