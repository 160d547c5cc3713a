// The record that marks the administrator login as held. The web server keeps its own logins in it as well.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "config/values.h"

namespace config {

struct LoginRecord {
  static constexpr std::int32_t key = 1234;

  Ipv4 holder_address;        // 0.0.0.0: nobody holds the login
  std::uint32_t expiry_time;  // second since the epoch at which the holder's login expires
  std::array<std::uint32_t, 3> reserved_8;
  std::uint32_t idle_timeout;  // seconds; other programs set it; 0 switches the guard off
  std::int32_t holder_tag;
  std::uint32_t reserved_28;
};

static_assert(std::is_trivial_v<LoginRecord> && std::is_standard_layout_v<LoginRecord>);
static_assert(offsetof(LoginRecord, expiry_time) == 4);
static_assert(offsetof(LoginRecord, idle_timeout) == 20);
static_assert(offsetof(LoginRecord, holder_tag) == 24);
static_assert(sizeof(LoginRecord) == 32);

}  // namespace config
