// The kinds of WAN connection as the device page sees them: name, interface, and the scripts that end and
// renew it.
#pragma once

#include <cstdint>

namespace menus::status {

struct WanConnection {
  const char* name = nullptr;       // none: a kind that another program stored
  const char* interface = nullptr;  // none: its state cannot be shown
  const char* stop = nullptr;       // command lines; none: there is nothing to run
  const char* restart = nullptr;
};

// By wan_type.
const WanConnection& wan_connection(std::uint8_t wan_type);

// The question at the foot of the device page, and the action that is its answer. A static address has none.
void offer_wan_action(std::uint8_t wan_type);

}  // namespace menus::status
