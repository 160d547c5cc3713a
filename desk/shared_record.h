// Shared memory for the desk's programs.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "platform/platform.h"

namespace desk {

// The record behind this System V key, created when it is not there yet. Null, with the reason on standard
// error, when it cannot be had.
template <typename Record>
Record* attach_record(std::int32_t key) {
  const platform::Attachment attachment = platform::attach_segment(key, sizeof(Record));
  if (attachment.outcome != platform::Attachment::Outcome::attached) {
    std::fprintf(stderr, "The segment with key %d cannot be had: %s\n", key, std::strerror(attachment.error));
  }
  return static_cast<Record*>(attachment.memory);
}

}  // namespace desk
