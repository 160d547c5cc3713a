// MAC filter: rules about single hardware addresses.
#include "menus/advanced/items.h"
#include "menus/advanced/schedule.h"
#include "shell/output.h"

namespace menus::advanced {
namespace {

void show(const config::MacFilter& rule) {
  shell::put('|', rule.mac_address, '|');
  show_schedule(rule.schedule);
}

void ask_rule(shell::Dialogue& ask, config::MacFilter& rule) {
  ask.mac("MAC Address<%02x:%02x:%02x:%02x:%02x:%02x>:", rule.mac_address);
  ask_schedule(ask, rule.schedule);
}

}  // namespace

constexpr RuleTable mac_filters =
    rule_table<&config::ConfigurationSegment::mac_filter_table, show, ask_rule>({
        .name = "MAC Filter",
        .header = "ID:|Active|MAC Address      |Schedule\n"
                  "---+------+-----------------+-------------------------------------------------\n",
        .master = {&config::ConfigurationSegment::mac_filter_enable, "MAC Filter Enable",
                   "Enable MAC Filter Function?(0:Disable, 1:Enable):"},
    });

}  // namespace menus::advanced
