// The device's flash partitions, which are files here.
#pragma once

#include <string_view>

namespace desk {

// Replaces the partition's contents in one step: power lost on the way leaves the old contents. False, with
// the reason on standard error, when that did not succeed.
bool replace_contents(const char* partition, std::string_view contents);

}  // namespace desk
