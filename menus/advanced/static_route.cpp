// Static routes: a network or host, and the gateway that leads there.
#include "menus/advanced/items.h"
#include "shell/apply.h"
#include "shell/output.h"

namespace menus::advanced {
namespace {

constexpr std::uint8_t host = 1;
constexpr config::Ipv4 host_netmask{{255, 255, 255, 255}};

void show(const config::StaticRoute& route) {
  shell::put('|', route.route_type != 0 ? "Host" : "Net ", " |");
  shell::put_in_columns(route.route_target);
  shell::put('|');
  shell::put_in_columns(route.route_netmask);
  shell::put('|');
  shell::put_in_columns(route.route_gateway);
  shell::put('\n');
}

void ask_rule(shell::Dialogue& ask, config::StaticRoute& route) {
  const std::uint8_t type = ask.choice("Type?<%d>(0:Net, 1:Host):", route.route_type, "01");
  ask.address("Target?<%u.%u.%u.%u>:", route.route_target, shell::judge_kept);
  if (ask.adding() && type == host) {
    ask.note(route.route_netmask, host_netmask);
  } else {
    // A stored route's mask is asked for even when it becomes a host.
    ask.netmask("Netmask?<%u.%u.%u.%u>:", route.route_netmask, shell::judge_kept);
  }
  ask.address("Gateway?<%u.%u.%u.%u>:", route.route_gateway, shell::judge_kept);
}

void save_and_restart_routes() {
  shell::save_settings();
  shell::run_command("/etc/init.d/staticroute.sh restart > /dev/null 2>&1");
  shell::show_message(shell::message::saved);
}

}  // namespace

constexpr RuleTable static_routes =
    rule_table<&config::ConfigurationSegment::static_route_table, show, ask_rule>({
        .name = "Static Route",
        .header = "ID:|Enable|Type |Target IP      |Netmask        |Gateway        \n"
                  "---+------+-----+---------------+---------------+-----------------------------\n",
        .save_and_apply = save_and_restart_routes,
    });

}  // namespace menus::advanced
