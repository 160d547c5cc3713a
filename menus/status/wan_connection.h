// The kinds of WAN connection as the device page sees them: name, interface, and the script that ends and
// renews it.
#pragma once

#include <cstdint>

namespace menus::status {

struct WanConnection {
  const char* name = nullptr;       // none: a kind that another program stored
  const char* interface = nullptr;  // none: its state cannot be shown
  const char* script = nullptr;     // what ends and renews it; none: there is nothing to run
};

// By wan_type.
const WanConnection& wan_connection(std::uint8_t wan_type);

// The question at the foot of the device page, and the action that is its answer. A static address has none.
void offer_wan_action(std::uint8_t wan_type);

}  // namespace menus::status
