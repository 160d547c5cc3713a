// Firewall rules: what passes from where to where.
#include <iterator>

#include "menus/advanced/items.h"
#include "menus/advanced/schedule.h"
#include "shell/output.h"

namespace menus::advanced {
namespace {

// Three characters; blanks for a number outside the table.
const char* interface_name(std::uint8_t interface) {
  static constexpr char names[][4] = {"WAN", "LAN", "*  "};
  return interface < std::size(names) ? names[interface] : "   ";
}

void show(const config::FirewallRule& rule) {
  shell::put("     |", rule.action != 0 ? "Allow" : "Deny ", "    |");
  show_schedule(rule.schedule);
  shell::put(
      "   +-----------+---------+----------------------------------------------------\n"
      "   |           |Interface|IP Range                       |Protocol|Port Range \n"
      "   +-----------+---------+-------------------------------+--------+-----------\n");
  shell::put("   |source     |", interface_name(rule.src_interface), "      |");
  show_ip_range(rule.src_ip_start, rule.src_ip_end);
  shell::put("|        |\n   |destination|", interface_name(rule.dst_interface), "      |");
  show_ip_range(rule.dst_ip_start, rule.dst_ip_end);
  shell::put('|', protocol_name(rule.protocol), "    |");
  show_port_range(rule.dst_port_start, rule.dst_port_end);
  shell::put("\n---+-----------+---------+-------------------------------+--------+-----------\n");
}

void ask_rule(shell::Dialogue& ask, config::FirewallRule& rule) {
  ask.choice("Action?<%d>(0:Deny, 1:Allow):", rule.action, "01", shell::empty_is_zero);
  ask.choice("Source interface?<%d>(0:WAN, 1:LAN, 2:ALL):", rule.src_interface, "012", shell::empty_is_zero);
  ask_ip_range(ask, "Source IP Range Start?<%u.%u.%u.%u>:", rule.src_ip_start,
               "Source IP Range End?<%u.%u.%u.%u>:", rule.src_ip_end);
  ask.choice("Destination interface?<%d>(0:WAN, 1:LAN, 2:ALL):", rule.dst_interface, "012",
             shell::empty_is_zero);
  ask_ip_range(ask, "Destination IP Range Start?<%u.%u.%u.%u>:", rule.dst_ip_start,
               "Destination IP Range End?<%u.%u.%u.%u>:", rule.dst_ip_end);
  const std::uint8_t protocol =
      ask.choice("Protocol?<%d>(0:TCP, 1:UDP, 2:Both, 3:ICMP, 4:ALL):", rule.protocol, "01234");
  if (protocol <= both) {
    ask_port_range(ask, "Destination Port Start?<%d>(1~65535):", rule.dst_port_start,
                   "Destination Port End?<%d>(1~65535):", rule.dst_port_end);
  } else if (protocol <= all_protocols) {
    // A protocol of another program's, kept, keeps its ports as well.
    ask.note_zero(rule.dst_port_start, rule.dst_port_end);
  }
  ask.note_in_order(rule.dst_port_start, rule.dst_port_end, rule.protocol);
  ask_schedule(ask, rule.schedule);
}

}  // namespace

constexpr RuleTable firewall_rules =
    rule_table<&config::ConfigurationSegment::firewall_rule_table, show, ask_rule>({
        .name = "Firewall",
        .header = "ID:|Active     |Action   |Schedule\n"
                  "---+-----------+---------+----------------------------------------------------\n",
        .master = {&config::ConfigurationSegment::firewall_enable, "Firewall Enable",
                   "Enable Firewall Function?(0:Disable, 1:Enable):"},
    });

}  // namespace menus::advanced
