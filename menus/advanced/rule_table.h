// Rule tables: arrays of records in the segment, each record with its enable byte first. Records never
// move; a record whose enable byte is config::free_slot is free.
//
// Listing and editing are the same for all tables: list, master switch where there is one, Add or Modify,
// Delete or Edit, the record's prompts, save and apply. What a table brings of its own is in its RuleTable.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "config/segment.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::advanced {

// How most tables end.
void save_and_restart_filter();

// Switches a whole table on or off. It is stored only together with a rule that is added, edited or deleted.
struct MasterSwitch {
  using Field = std::uint8_t config::ConfigurationSegment::*;
  Field field = nullptr;   // none: the table has no such switch
  const char* label = "";  // on the list
  shell::Prompt<shell::Shows::nothing> prompt = "";
};

struct RuleTable {
  const char* name;         // in the rule summary
  std::string_view header;  // the lines above the rows
  MasterSwitch master = {};
  void (*save_and_apply)() = save_and_restart_filter;

  // Filled in by rule_table(): how many rules there are, and what is about the one with this index.
  std::size_t count{};
  std::uint8_t& (*enable_byte)(std::size_t index) = nullptr;
  void (*show_rule)(std::size_t index) = nullptr;
  void (*ask_rule)(shell::Dialogue& ask, std::size_t index) = nullptr;
};

// Joins a table of the segment with what shows one of its records and what asks for it.
//   show_rule(const Record&): a list row behind the enable column's digit and five blanks, to the row's end.
//   ask_rule(Dialogue&, Record&): every prompt behind the enable prompt, for an added and for a stored
//   record.
template <auto table, auto show_rule, auto ask_rule>
consteval RuleTable rule_table(RuleTable parts) {
  using Table = std::remove_cvref_t<decltype(shell::segment().*table)>;
  parts.count = std::tuple_size_v<Table>;
  parts.enable_byte = [](std::size_t index) -> std::uint8_t& {
    return (shell::segment().*table)[index].enable;
  };
  parts.show_rule = [](std::size_t index) { show_rule((shell::segment().*table)[index]); };
  parts.ask_rule = [](shell::Dialogue& ask, std::size_t index) {
    ask_rule(ask, (shell::segment().*table)[index]);
  };
  return parts;
}

void show_rules(const RuleTable& table);

// The dialogue in which the rules of a table are added, edited and deleted.
void configure_rules(const RuleTable& table);

// ---- What several tables show and ask ----

// "LABEL:<Enable>" or "LABEL:<Disable>", and the end of the line.
void show_switch_setting(const char* label, std::uint8_t value);

enum Protocol : std::uint8_t { tcp, udp, both, icmp, all_protocols };

// Four characters; blanks for a number that is none of them.
const char* protocol_name(std::uint8_t protocol);

void show_ip_range(config::Ipv4 start, config::Ipv4 end);
void show_port_range(std::uint16_t start, std::uint16_t end);

using AddressPrompt = shell::Prompt<shell::Shows::address>;
using NumberPrompt = shell::Prompt<shell::Shows::number>;

// Neither is 0.0.0.0, typed or kept; of the resulting pair no octet of the start exceeds the end's.
void ask_ip_range(shell::Dialogue& ask, AddressPrompt start_prompt, config::Ipv4& start,
                  AddressPrompt end_prompt, config::Ipv4& end);

constexpr shell::Range ports{1, 65535};
// The resulting pair does not descend.
void ask_port_range(shell::Dialogue& ask, NumberPrompt start_prompt, std::uint16_t& start,
                    NumberPrompt end_prompt, std::uint16_t& end);

}  // namespace menus::advanced
