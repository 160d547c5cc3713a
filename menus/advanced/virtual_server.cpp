// Virtual servers: a public port that leads to a port of a LAN host.
#include "menus/advanced/items.h"
#include "menus/advanced/schedule.h"
#include "shell/output.h"

namespace menus::advanced {
namespace {

void show(const config::VirtualServer& rule) {
  shell::put('|');
  shell::put_in_columns(rule.private_ip);
  shell::put('|', protocol_name(rule.protocol), "    |", shell::Number(rule.private_port, 7), '|',
             shell::Number(rule.public_port, 6), '|');
  show_schedule(rule.schedule);
}

void ask_rule(shell::Dialogue& ask, config::VirtualServer& rule) {
  ask.address("Private IP?<%u.%u.%u.%u>:", rule.private_ip, shell::judge_kept);
  ask.choice("Protocol Type?<%d>(0:TCP, 1:UDP, 2:Both):", rule.protocol, "012");
  ask.note_in_order(rule.protocol, rule.private_ip);
  ask.number("Private Port?<%d>(1~65535):", rule.private_port, ports);
  ask.number("Public Port?<%d>(1~65535):", rule.public_port, ports);
  ask_schedule(ask, rule.schedule);
}

}  // namespace

constexpr RuleTable virtual_servers =
    rule_table<&config::ConfigurationSegment::virtual_server_table, show, ask_rule>({
        .name = "Virtual Server",
        .header = "ID:|Enable|Lan IP         |Protocol|Private|Public|Schedule\n"
                  "---+------+---------------+--------+-------+------+---------------------------\n",
    });

}  // namespace menus::advanced
