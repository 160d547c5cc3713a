// URL filter and domain filter: rules about an address range and a text.
#include <algorithm>
#include <span>

#include "menus/advanced/items.h"
#include "shell/output.h"

namespace menus::advanced {
namespace {

using config::StringFilter;

void show(const StringFilter& rule) {
  shell::put('|');
  show_ip_range(rule.start_ip, rule.end_ip);
  shell::put('|', rule.filter_string.view(), '\n');
}

void ask_clients(shell::Dialogue& ask, StringFilter& rule) {
  ask_ip_range(ask, "Start IP?<%u.%u.%u.%u>:", rule.start_ip, "End IP?<%u.%u.%u.%u>:", rule.end_ip);
}

void ask_url(shell::Dialogue& ask, StringFilter& rule) {
  ask_clients(ask, rule);
  if (ask.adding()) {
    ask.hidden_text("URL Filter String?(MAX Character:255):", rule.filter_string);
    return;
  }
  if (!ask.ended()) {
    // The stored text stays cut, however the dialogue ends.
    const std::span text = std::span(rule.filter_string.bytes).first(rule.filter_string.view().size());
    std::replace(text.begin(), text.end(), '\n', '\0');
  }
  ask.text("URL Filter String?<%s>(MAX Character:255):", rule.filter_string);
}

// The stored text is neither shown nor cut.
void ask_domain(shell::Dialogue& ask, StringFilter& rule) {
  ask_clients(ask, rule);
  ask.hidden_text("Domain Filter String?(MAX Character:255):", rule.filter_string);
}

}  // namespace

constexpr RuleTable url_filters = rule_table<&config::ConfigurationSegment::url_filter_table, show, ask_url>({
    .name = "URL FIlter",
    .header = "ID:|Active|IP RANGE                       |URL Filter String\n"
              "---+------+-------------------------------+-----------------------------------\n",
    .master = {&config::ConfigurationSegment::url_filter_enable, "URL Filter Enable",
               "Enable URL Filter Function?(0:Disable, 1:Enable):"},
});

constexpr RuleTable domain_filters =
    rule_table<&config::ConfigurationSegment::domain_filter_table, show, ask_domain>({
        .name = "Domain Filter",
        .header = "ID:|Active|IP RANGE                       |Domain Filter String\n"
                  "---+------+-------------------------------+-----------------------------------\n",
        .master = {&config::ConfigurationSegment::domain_filter_enable, "Domain Filter Enable",
                   "Enable Domain Filter Function?(0:Disable, 1:Enable):"},
    });

}  // namespace menus::advanced
