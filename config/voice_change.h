// The word by which the voice daemon learns that voice or SIP settings changed.
#pragma once

#include <cstdint>

namespace config {

constexpr std::int32_t voice_change_key = 1357;

// Sets the flag to 1; the daemon sets it back to 0 when it has taken the settings over. Returns 0, or the
// negative errno value with which the flag's segment could not be had.
int set_voice_change_flag();

}  // namespace config
