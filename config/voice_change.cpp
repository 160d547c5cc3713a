#include "config/voice_change.h"

#include "platform/platform.h"

namespace config {

int set_voice_change_flag() {
  const platform::Attachment flag = platform::attach_segment(voice_change_key, sizeof(std::uint32_t));
  if (flag.outcome != platform::Attachment::Outcome::attached) {
    return -flag.error;
  }
  *static_cast<volatile std::uint32_t*>(flag.memory) = 1;
  platform::detach_segment(flag.memory);
  return 0;
}

}  // namespace config
