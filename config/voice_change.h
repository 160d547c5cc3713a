// The shared word by which the voice daemon learns that voice or SIP settings changed: the console sets it to
// 1, the daemon back to 0 when it has taken the settings over.
#pragma once

#include <cstdint>

namespace config {

constexpr std::int32_t voice_change_key = 1357;

}  // namespace config
