// The daemon's query service. A request is one datagram of command lines, "get ITEM ARGUMENTS", that ends
// with an empty line; each command is answered with one line, the call log with a datagram per call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "voice/calls.h"
#include "voice/service.h"

namespace desk {

constexpr std::uint16_t query_port = 8118;
constexpr std::size_t longest_request = 8192;
constexpr std::size_t longest_reply = 8191;

// The datagrams to send back, one at least and none of them empty. A request may hold anything: what cannot
// be answered gets a line that begins with "error". Commands whose answers no longer fit the reply get none.
std::vector<std::string> replies_to(std::string_view request, const Service& service, const Calls& calls,
                                    Clock::time_point now);

}  // namespace desk
