// IP filter: rules about an address range, a port range and a protocol.
#include "menus/advanced/items.h"
#include "menus/advanced/schedule.h"
#include "shell/output.h"

namespace menus::advanced {
namespace {

void show(const config::IpFilter& rule) {
  shell::put('|');
  show_ip_range(rule.start_ip, rule.end_ip);
  shell::put('|');
  show_port_range(rule.start_port, rule.end_port);
  shell::put('|', protocol_name(rule.protocol), '|');
  show_schedule(rule.schedule);
}

void ask_protocol(shell::Dialogue& ask, config::IpFilter& rule) {
  ask.choice("Type?<%d>(0:TCP, 1:UDP, 2:Both):", rule.protocol, "012");
}

void ask_rule(shell::Dialogue& ask, config::IpFilter& rule) {
  ask_ip_range(ask, "Start IP?<%u.%u.%u.%u>:", rule.start_ip, "End IP?<%u.%u.%u.%u>:", rule.end_ip);
  // The type comes behind the ports of a new rule, and before those of a stored one.
  if (!ask.adding()) {
    ask_protocol(ask, rule);
  }
  ask_port_range(ask, "Start Port?<%d>(1~65535):", rule.start_port, "End Port?<%d>(1~65535):", rule.end_port);
  if (ask.adding()) {
    ask_protocol(ask, rule);
  }
  ask.note_in_order(rule.protocol, rule.start_ip);
  ask_schedule(ask, rule.schedule);
}

}  // namespace

constexpr RuleTable ip_filters = rule_table<&config::ConfigurationSegment::ip_filter_table, show, ask_rule>({
    .name = "IP Filter",
    .header = "ID:|Active|IP RANGE                       |Port Range |Type|Schedule\n"
              "---+------+-------------------------------+-----------+----+------------------\n",
    .master = {&config::ConfigurationSegment::ip_filter_enable, "IP Filter Enable",
               "Enable IP Filter Function?(0:Disable, 1:Enable):"},
});

}  // namespace menus::advanced
