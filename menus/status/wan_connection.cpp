#include "menus/status/wan_connection.h"

#include <iterator>

#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/menu.h"
#include "shell/output.h"

namespace menus::status {
namespace {

constexpr std::uint8_t static_ip = 0;
constexpr std::uint8_t dhcp = 1;

constexpr WanConnection connections[] = {
    {"Static IP", "eth0", nullptr, nullptr},
    {"DHCP", "eth0", "/etc/init.d/udhcpc.sh stop > /dev/null 2>&1",
     "/etc/init.d/udhcpc.sh restart > /dev/null 2>&1"},
    {"PPPOE", "ppp0", "/etc/init.d/pppoe.sh stop > /dev/null 2>&1",
     "/etc/init.d/pppoe.sh restart > /dev/null 2>&1"},
    {"PPTP", "ppp0", "/etc/init.d/pptp.sh stop > /dev/null 2>&1",
     "/etc/init.d/pptp.sh restart > /dev/null 2>&1"},
    {"L2TP", "ppp0", "/etc/init.d/l2tp.sh stop > /dev/null 2>&1",
     "/etc/init.d/l2tp.sh restart > /dev/null 2>&1"},
    {"BigPond", nullptr, "/etc/init.d/bigpond.sh stop > /dev/null 2>&1",
     "/etc/init.d/bigpond.sh restart > /dev/null 2>&1"},
};
constexpr WanConnection unknown_connection;

void run_script(const char* script) {
  if (script != nullptr) {
    shell::run_command(script);
  }
}

void release_wan(const WanConnection& wan) {
  run_script(wan.stop);
}

void renew_wan(const WanConnection& wan) {
  run_script(wan.restart);
}

void disconnect_wan(const WanConnection& wan) {
  run_script(wan.stop);
  run_script(wan.restart);
}

}  // namespace

const WanConnection& wan_connection(std::uint8_t wan_type) {
  return wan_type < std::size(connections) ? connections[wan_type] : unknown_connection;
}

// An answer that is neither 0 nor 1 leaves without a word.
void offer_wan_action(std::uint8_t wan_type) {
  static constexpr shell::Refusal silent = shell::Refusal::silent();
  if (wan_type == static_ip) {
    return;
  }
  shell::put(wan_type == dhcp ? "0:Release WAN IP, 1:Renew WAN IP\n" : "0:Disconnect, 1:Reconnect\n");
  shell::Dialogue ask(shell::Dialogue::refuse_as_illegal);
  const bool renew = ask.pick(shell::menu_prompt, 2, {.refusal = &silent}) == 1;
  if (ask.ended()) {
    return;
  }
  const WanConnection& wan = wan_connection(wan_type);
  if (renew) {
    renew_wan(wan);
  } else if (wan_type == dhcp) {
    release_wan(wan);
  } else {
    disconnect_wan(wan);
  }
  shell::put("Configuration successed.\n");
}

}  // namespace menus::status
