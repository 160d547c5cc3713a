// Special applications: traffic to a trigger port opens a range of public ports.
#include "menus/advanced/items.h"
#include "menus/advanced/schedule.h"
#include "shell/output.h"

namespace menus::advanced {
namespace {

void show(const config::SpecialApplication& rule) {
  shell::put('|', shell::Number(rule.trigger_port, 5), " |", protocol_name(rule.trigger_type), "  |");
  show_port_range(rule.public_port_start, rule.public_port_end);
  shell::put('|', protocol_name(rule.public_type), "  |");
  show_schedule(rule.schedule);
}

void ask_rule(shell::Dialogue& ask, config::SpecialApplication& rule) {
  ask.number("Trigger Port?<%d>(1~65535):", rule.trigger_port, ports);
  ask.choice("Trigger Type?<%d>(0:TCP, 1:UDP, 2:Both):", rule.trigger_type, "012");
  ask_port_range(ask, "Public Port Start?<%d>(1~65535):", rule.public_port_start,
                 "Public Port End?<%d>(1~65535):", rule.public_port_end);
  ask.choice("Public Type?<%d>(0:TCP, 1:UDP, 2:Both):", rule.public_type, "012");
  ask_schedule(ask, rule.schedule);
}

}  // namespace

constexpr RuleTable special_applications =
    rule_table<&config::ConfigurationSegment::special_application_table, show, ask_rule>({
        .name = "Special Application",
        .header = "   |      |   Trigger   |Public Port|Public|\n"
                  "ID:|Enable|Port  |Type  |Start-  End|Type  |Schedule\n"
                  "---+------+------+------+-----------+------+----------------------------------\n",
    });

}  // namespace menus::advanced
