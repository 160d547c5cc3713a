#include "menus/advanced/rule_table.h"

#include <iterator>

#include "shell/apply.h"
#include "shell/output.h"
#include "shell/parse.h"

namespace menus::advanced {
namespace {

using shell::Dialogue;

bool is_free(const RuleTable& table, std::size_t index) {
  return table.enable_byte(index) == config::free_slot;
}

void show_header(const RuleTable& table) {
  if (table.master.field != nullptr) {
    shell::put('\n');
    show_switch_setting(table.master.label, shell::segment().*table.master.field);
  }
  shell::put(table.header);
}

void show_row(const RuleTable& table, std::size_t index) {
  if (!is_free(table, index)) {
    shell::put(shell::Number(index, 2), ":|", shell::Number(table.enable_byte(index)), "     ");
    table.show_rule(index);
  }
}

std::size_t find_free_slot(Dialogue& ask, const RuleTable& table) {
  for (std::size_t index = 0; index < table.count; ++index) {
    if (is_free(table, index)) {
      return index;
    }
  }
  ask.refuse(shell::message::table_full);
  return {};
}

std::size_t pick_rule(Dialogue& ask, const RuleTable& table) {
  const std::uint32_t index = ask.pick("What item do you want to configure? (0-%d):", table.count);
  if (is_free(table, index)) {
    ask.refuse(shell::message::wrong_choice);
  }
  if (!ask.ended()) {
    show_header(table);
    show_row(table, index);
    shell::put('\n');
  }
  return index;
}

}  // namespace

void save_and_restart_filter() {
  shell::save_settings();
  shell::restart_filter_and_nat();
}

void show_rules(const RuleTable& table) {
  show_header(table);
  for (std::size_t index = 0; index < table.count; ++index) {
    show_row(table, index);
  }
  shell::put('\n');
}

void configure_rules(const RuleTable& table) {
  show_rules(table);

  Dialogue choose(Dialogue::refuse_by_kind);
  const bool switched = table.master.field != nullptr;
  const std::uint32_t master = switched ? choose.pick(table.master.prompt, 2) : 0;
  const bool modify = choose.pick("Add new rule or Modify old rule ?(0:Add New, 1:Modify):", 2) == 1;
  const std::size_t index = modify ? pick_rule(choose, table) : find_free_slot(choose, table);
  const bool remove = modify && choose.pick("Del or Edit ? (0:Delete, 1:Edit):", 2) == 0;
  if (choose.ended()) {
    return;
  }

  Dialogue ask(Dialogue::refuse_by_kind, modify ? Dialogue::Record::stored : Dialogue::Record::added);
  if (switched) {
    ask.note(shell::segment().*table.master.field, static_cast<std::uint8_t>(master));
  }
  if (remove) {
    ask.note(table.enable_byte(index), config::free_slot);
  } else {
    if (modify) {
      shell::show_message(shell::message::keep_with_enter);
    }
    ask.choice("Enable this rule?<%d>(0:Disable, 1:Enable):", table.enable_byte(index), "01",
               shell::empty_is_zero);
    table.ask_rule(ask, index);
  }
  if (ask.commit()) {
    table.save_and_apply();
  }
}

// ---- What several tables show and ask ----

void show_switch_setting(const char* label, std::uint8_t value) {
  shell::put(label, value != 0 ? ":<Enable>\n" : ":<Disable>\n");
}

const char* protocol_name(std::uint8_t protocol) {
  static constexpr char names[][5] = {"TCP ", "UDP ", "BOTH", "ICMP", "ALL "};
  static_assert(std::size(names) == all_protocols + 1);
  return protocol < std::size(names) ? names[protocol] : "    ";
}

void show_ip_range(config::Ipv4 start, config::Ipv4 end) {
  shell::put_in_columns(start);
  shell::put('-');
  shell::put_in_columns(end);
}

void show_port_range(std::uint16_t start, std::uint16_t end) {
  shell::put(shell::Number(start, 5), '-', shell::Number(end, 5));
}

void ask_ip_range(Dialogue& ask, AddressPrompt start_prompt, config::Ipv4& start, AddressPrompt end_prompt,
                  config::Ipv4& end) {
  const config::Ipv4 first = ask.address(start_prompt, start, shell::judge_kept);
  const config::Ipv4 last = ask.address(end_prompt, end, shell::judge_kept);
  if (!shell::ip_range_ascending(first, last)) {
    ask.refuse(shell::message::ip_range);
  }
}

void ask_port_range(Dialogue& ask, NumberPrompt start_prompt, std::uint16_t& start, NumberPrompt end_prompt,
                    std::uint16_t& end) {
  const std::uint32_t first = ask.number(start_prompt, start, ports);
  const std::uint32_t last = ask.number(end_prompt, end, ports);
  if (first > last) {
    // Not the port message: ports and addresses are ranges alike here.
    ask.refuse(shell::message::ip_range);
  }
}

}  // namespace menus::advanced
