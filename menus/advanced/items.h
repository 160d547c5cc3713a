#pragma once

#include "menus/advanced/rule_table.h"
#include "shell/menu.h"

namespace menus::advanced {

extern const shell::Submenu submenu;

void nat_setting();
void upnp_setting();
void rule_summary();

extern const RuleTable virtual_servers;
extern const RuleTable special_applications;
extern const RuleTable static_routes;
extern const RuleTable mac_filters;
extern const RuleTable ip_filters;
extern const RuleTable url_filters;
extern const RuleTable domain_filters;
extern const RuleTable firewall_rules;

template <const RuleTable& table>
void rule_setting() {
  configure_rules(table);
}

}  // namespace menus::advanced
