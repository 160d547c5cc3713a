#include "shell/message.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "shell/output.h"

namespace shell {
namespace {

constexpr std::array messages = std::to_array<std::string_view>({
    "Please answer the question and use [enter] to keep original setting value",
    "Your select is wrong!!",
    "Your input value is illegal!!",
    "Setting Save!!",
    "Device will be restart, please re-connect!!",
    "IP Range Error!!",
    "No more space to creat new rule!!",
    "Device will be reboot, please wait 60 seconds and re-connect!!",
    "Port Range Error!!",
});

static_assert(messages.size() == static_cast<std::size_t>(Message::port_range) + 1);

}  // namespace

void show_message(Message message) {
  put(messages[static_cast<std::size_t>(message)]);
  put("\n\n");
}

void Refusal::show() const {
  if (line_ == nullptr) {
    show_message(message_);
    return;
  }
  if (*line_ != '\0') {
    put(line_);
    put('\n');
  }
}

}  // namespace shell
