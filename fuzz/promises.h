// What is true of every session, whatever is typed, stored, answered by others or failing:
//
// - No byte outside the console's own fields changes: not the reserved ranges, not the administrator's name
//   and password, not the other words of the login record.
// - Settings change together with being saved, between two waits for input, and not after that. What changes
//   without a save is the line feed at which a shown text is cut, and the clock's mode and zone.
// - While it waits for input, and when it ends, the console holds no descriptor but the log's at its paging
//   prompt. While the login is held it has two segments attached, and none behind end_console().
// - end_console() gives the login back, with exit status 1. Any other end leaves both records as they were.
// - A wait for the voice daemon is bounded.
// - What the console shows comes from its own fields: the marker in the unused bytes is not in it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/device.h"

namespace fuzz {

// Every reserved byte holds this, and nothing else does: see set_up().
constexpr std::uint8_t unused = 0xf5;

// Plays a session (input.h) on a fresh device, to its end. Returns the promises that were broken, a line
// each, or "". A fault that is already chosen on the device takes the place of the input's.
std::string play(tests::Device& device, std::string_view input);

}  // namespace fuzz
