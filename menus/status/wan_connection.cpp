#include "menus/status/wan_connection.h"

#include <array>
#include <cstdio>

#include "config/segment.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/menu.h"
#include "shell/output.h"

namespace menus::status {
namespace {

constexpr std::array<WanConnection, config::wan_types> connections = {{
    {"Static IP", "eth0", nullptr},
    {"DHCP", "eth0", "udhcpc"},
    {"PPPOE", "ppp0", "pppoe"},
    {"PPTP", "ppp0", "pptp"},
    {"L2TP", "ppp0", "l2tp"},
    {"BigPond", nullptr, "bigpond"},
}};
static_assert(connections.back().name != nullptr);
constexpr WanConnection unknown_connection;

void run_script(const WanConnection& wan, const char* action) {
  if (wan.script != nullptr) {
    char command[64];
    std::snprintf(command, sizeof command, "/etc/init.d/%s.sh %s > /dev/null 2>&1", wan.script, action);
    shell::run_command(command);
  }
}

void release_wan(const WanConnection& wan) {
  run_script(wan, "stop");
}

void renew_wan(const WanConnection& wan) {
  run_script(wan, "restart");
}

void disconnect_wan(const WanConnection& wan) {
  run_script(wan, "stop");
  run_script(wan, "restart");
}

}  // namespace

const WanConnection& wan_connection(std::uint8_t wan_type) {
  return wan_type < connections.size() ? connections[wan_type] : unknown_connection;
}

// An answer that is neither 0 nor 1 leaves without a word.
void offer_wan_action(std::uint8_t wan_type) {
  if (wan_type == config::wan_static_ip) {
    return;
  }
  shell::put(wan_type == config::wan_dhcp ? "0:Release WAN IP, 1:Renew WAN IP\n"
                                          : "0:Disconnect, 1:Reconnect\n");
  shell::Dialogue ask(shell::Dialogue::refuse_as_illegal);
  const bool renew = ask.pick(shell::menu_prompt, 2, {.refusal = ""}) == 1;
  if (ask.ended()) {
    return;
  }
  const WanConnection& wan = wan_connection(wan_type);
  if (renew) {
    renew_wan(wan);
  } else if (wan_type == config::wan_dhcp) {
    release_wan(wan);
  } else {
    disconnect_wan(wan);
  }
  shell::put("Configuration successed.\n");
}

}  // namespace menus::status
