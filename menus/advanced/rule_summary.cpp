// Any one rule table, without the dialogue that edits it.
#include <array>

#include "menus/advanced/items.h"
#include "shell/output.h"

namespace menus::advanced {

void rule_summary() {
  static constexpr auto tables = std::to_array<const RuleTable*>({
      &virtual_servers,
      &special_applications,
      &static_routes,
      &mac_filters,
      &ip_filters,
      &url_filters,
      &domain_filters,
      &firewall_rules,
  });
  static_assert(tables.size() <= 10, "a list is chosen by one digit");
  for (std::size_t list = 0; list < tables.size(); ++list) {
    shell::put(shell::Number(list), ':', tables[list]->name, " Rule List\n");
  }
  shell::Dialogue ask(shell::Dialogue::refuse_by_kind);
  const std::uint32_t list = ask.pick_digit("\nSelect a list?(0~%d):", tables.size());
  if (!ask.ended()) {
    shell::put('\n');
    show_rules(*tables[list]);
  }
}

}  // namespace menus::advanced
