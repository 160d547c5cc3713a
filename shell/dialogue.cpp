#include "shell/dialogue.h"

#include <algorithm>
#include <cstring>

#include "platform/platform.h"
#include "shell/line.h"
#include "shell/output.h"
#include "shell/parse.h"

namespace shell {
namespace {

struct JournalEntry {
  void* field;
  std::size_t size;
};

// [first, middle) and [middle, last).
void swap_neighbours(char* first, char* middle, char* last) {
  std::reverse(first, middle);
  std::reverse(middle, last);
  std::reverse(first, last);
}

}  // namespace

Dialogue::Dialogue(const Family& family, Record record) : family_(family), adding_(record == Record::added) {}

// ---- One question ----

// Converts the input line when it is an answer of the rule's kind.
bool Dialogue::accepts(const Rule& rule, const Option& option, Value& value) {
  switch (rule.kind) {
    case Kind::choice: {
      const int digit = option.rest_ignored ? leading_digit() : single_digit();
      if (digit < 0) {
        return false;
      }
      value.word = static_cast<std::uint32_t>(digit);
      break;
    }
    case Kind::number:
    case Kind::listed: {
      if (option.rest_ignored && leading_digit() < 0) {
        return false;
      }
      const bool as_it_begins = rule.kind == Kind::listed || option.rest_ignored;
      const auto number = as_it_begins ? decimal_value(line_text()) : whole_number(line_text());
      if (!number) {
        return false;
      }
      value.word = *number;
      break;
    }
    case Kind::address:
    case Kind::netmask:
      value.word = parse_ipv4(line_text(), '.').word();
      break;
    case Kind::mac:
      return parse_mac(line_text(), value.mac, ':');
  }
  return passes(rule, value);
}

bool Dialogue::passes(const Rule& rule, const Value& value) {
  switch (rule.kind) {
    case Kind::choice:
      return value.word <= 9 && std::strchr(rule.digits, static_cast<char>('0' + value.word)) != nullptr;
    case Kind::number:
      return in_range(value.word, rule.range.low, rule.range.high) && value.word % rule.range.step == 0;
    case Kind::listed:
      return std::find(rule.values.begin(), rule.values.end(), value.word) != rule.values.end();
    case Kind::address:
      return value.word != 0;
    case Kind::netmask:
      return is_valid_netmask(config::Ipv4::from_word(value.word));
    case Kind::mac:
      return true;
  }
  return false;
}

Dialogue::Answer Dialogue::read_answer(const PromptText& prompt, std::string_view shown) {
  prompt.show(subject_, shown);
  const std::size_t count = read_line();
  if (family_.asks_again && line_is_q()) {
    put("q:Exit\n");
    ended_ = true;
    return Answer::left;
  }
  return count == 0 ? Answer::empty : Answer::given;
}

void Dialogue::report(const Refusal& refusal) {
  refusal.show();
  ended_ = !family_.asks_again;
}

void Dialogue::answered(const Option& option, bool kept) {
  if (kept && option.kept_note != nullptr) {
    put(option.kept_note);
  }
  if (family_.asks_again && !option.no_empty_line) {
    put("\n");
  }
}

Dialogue::Value Dialogue::ask(const PromptText& prompt, std::string_view shown, Value current,
                              const Rule& rule, const Option& option, bool required) {
  const Refusal by_kind(rule.kind == Kind::choice ? family_.bad_choice : family_.bad_value);
  while (!ended_) {
    const Answer answer = read_answer(prompt, shown);
    if (answer == Answer::left) {
      break;
    }
    Value value = current;
    const bool kept = answer == Answer::empty && (!required || option.empty_is_zero);
    const bool accepted = kept ? !option.judge_kept || passes(rule, value)
                               : answer == Answer::given && accepts(rule, option, value);
    if (accepted) {
      answered(option, kept);
      return value;
    }
    report(option.refusal != nullptr ? *option.refusal : by_kind);
  }
  return {};
}

// ---- The kinds ----

std::uint32_t Dialogue::ask_number(const PromptText& prompt, std::uint32_t current, const Rule& rule,
                                   const Option& option) {
  const std::uint32_t shown = adding_ ? 0 : current;
  return ask(prompt, ValueText(Number(shown)), {shown, {}}, rule, option, adding_).word;
}

std::uint8_t Dialogue::choice(Prompt<Shows::number> prompt, std::uint8_t& field, const char* digits) {
  return choice(prompt, field, digits, no_option);
}

std::uint8_t Dialogue::choice(Prompt<Shows::number> prompt, std::uint8_t& field, const char* digits,
                              const Option& option) {
  const std::uint32_t value = ask_number(prompt, field, {Kind::choice, {}, digits}, option);
  return write(field, static_cast<std::uint8_t>(value));
}

std::uint32_t Dialogue::named_choice(Prompt<Shows::text> prompt, std::string_view name, std::uint32_t current,
                                     const char* digits, const Option& option) {
  return ask(prompt, name, {current, {}}, {Kind::choice, {}, digits}, option, adding_).word;
}

template <typename Number>
std::uint32_t Dialogue::number(Prompt<Shows::number> prompt, Number& field, Range range) {
  return number(prompt, field, range, no_option);
}

template <typename Number>
std::uint32_t Dialogue::number(Prompt<Shows::number> prompt, Number& field, Range range,
                               const Option& option) {
  const std::uint32_t value = number_of(prompt, static_cast<std::uint32_t>(field), range, option);
  return static_cast<std::uint32_t>(write(field, static_cast<Number>(value)));
}

// The types of number that the segment has.
template std::uint32_t Dialogue::number(Prompt<Shows::number>, std::uint8_t&, Range);
template std::uint32_t Dialogue::number(Prompt<Shows::number>, std::uint16_t&, Range);
template std::uint32_t Dialogue::number(Prompt<Shows::number>, std::uint32_t&, Range);
template std::uint32_t Dialogue::number(Prompt<Shows::number>, std::int32_t&, Range);
template std::uint32_t Dialogue::number(Prompt<Shows::number>, std::uint8_t&, Range, const Option&);
template std::uint32_t Dialogue::number(Prompt<Shows::number>, std::uint16_t&, Range, const Option&);
template std::uint32_t Dialogue::number(Prompt<Shows::number>, std::uint32_t&, Range, const Option&);
template std::uint32_t Dialogue::number(Prompt<Shows::number>, std::int32_t&, Range, const Option&);

std::uint32_t Dialogue::hidden_number(Prompt<Shows::nothing> prompt, std::uint8_t& field, Range range) {
  const std::uint32_t value = ask_number(prompt, field, {Kind::number, range, {}}, no_option);
  return write(field, static_cast<std::uint8_t>(value));
}

std::uint8_t Dialogue::listed(Prompt<Shows::number> prompt, std::uint8_t& field,
                              std::span<const std::uint8_t> values) {
  const std::uint32_t value = ask_number(prompt, field, {Kind::listed, {}, {}, values}, no_option);
  return write(field, static_cast<std::uint8_t>(value));
}

std::uint32_t Dialogue::number_of(Prompt<Shows::number> prompt, std::uint32_t current, Range range,
                                  const Option& option) {
  return ask_number(prompt, current, {Kind::number, range, {}}, option);
}

config::Ipv4 Dialogue::ask_address(const PromptText& prompt, config::Ipv4& field, Kind kind,
                                   const Option& option) {
  const config::Ipv4 shown = adding_ ? config::Ipv4{} : field;
  const Value given = ask(prompt, ValueText(shown), {shown.word(), {}}, {kind, {}, {}}, option, adding_);
  return write(field, config::Ipv4::from_word(given.word));
}

config::Ipv4 Dialogue::address(Prompt<Shows::address> prompt, config::Ipv4& field) {
  return address(prompt, field, no_option);
}

config::Ipv4 Dialogue::address(Prompt<Shows::address> prompt, config::Ipv4& field, const Option& option) {
  return ask_address(prompt, field, Kind::address, option);
}

config::Ipv4 Dialogue::netmask(Prompt<Shows::address> prompt, config::Ipv4& field, const Option& option) {
  return ask_address(prompt, field, Kind::netmask, option);
}

void Dialogue::mac(Prompt<Shows::mac> prompt, config::Mac& field) {
  const config::Mac shown = adding_ ? config::Mac{} : field;
  write(field, ask(prompt, ValueText(shown), {0, shown}, {Kind::mac, {}, {}}, no_option, adding_).mac);
}

std::uint32_t Dialogue::ask_pick(const PromptText& prompt, std::string_view heading, const Rule& rule,
                                 const Option& option) {
  const Refusal wrong_choice(family_.bad_choice);
  Option picking = option;
  picking.refusal = option.refusal != nullptr ? option.refusal : &wrong_choice;
  return ask(prompt, heading, {}, rule, picking, true).word;
}

std::uint32_t Dialogue::pick(Prompt<Shows::nothing> prompt, Range range, const Option& option) {
  return ask_pick(prompt, {}, {Kind::number, range, {}}, option);
}

std::uint32_t Dialogue::pick(Prompt<Shows::text> prompt, std::string_view heading, Range range,
                             const Option& option) {
  return ask_pick(prompt, heading, {Kind::number, range, {}}, option);
}

std::uint32_t Dialogue::pick_digit(Prompt<Shows::nothing> prompt, const char* digits, const Option& option) {
  return ask_pick(prompt, {}, {Kind::choice, {}, digits}, option);
}

void Dialogue::ask_text(Prompt<Shows::text> literal, std::span<char> field, TextRule rule) {
  const PromptText prompt = literal;
  if (ended_) {
    return;
  }
  if (prompt.shows_value() && !rule.with_line_feed) {
    config::strip_newline(field);
  }
  const std::size_t room = field.size() - 1 - (rule.with_line_feed ? 1 : 0);
  const std::size_t max = std::min<std::size_t>(rule.max, room);
  while (!ended_) {
    const Answer answer = read_answer(prompt, config::text_in(field));
    if (answer == Answer::left) {
      return;
    }
    const std::string_view typed = typed_text();
    const bool empty = answer == Answer::empty;
    bool keep = empty && (!adding_ || rule.optional);
    const bool is_text = !typed.empty() || (adding_ && rule.may_be_empty);
    const bool fits = keep || (is_text && line_length() <= max);
    if (!fits && !empty && rule.unfit != TextRule::Unfit::refused) {
      show_message(Message::illegal_value);
      keep = rule.unfit == TextRule::Unfit::keeps_the_old;
    } else if (!fits || (rule.digits_only && !is_all_digits(line_text()))) {
      report(family_.bad_value);
      continue;
    }
    if (keep) {
      note(field.data(), field.data(), field.size());
    } else {
      const std::span<char> pending = note(field.data(), field.size());
      config::put_text(pending, fits ? typed : std::string_view{});
      if (rule.with_line_feed) {
        pending[typed.size()] = '\n';
      }
    }
    answered({}, keep);
    return;
  }
}

// ---- The journal ----

std::span<char> Dialogue::note(void* field, std::size_t size) {
  const JournalEntry entry{field, size};
  if (journal_length_ + sizeof entry + size > journal_.size()) {
    __builtin_trap();
  }
  std::memcpy(journal_.data() + journal_length_, &entry, sizeof entry);
  const std::span<char> value{journal_.data() + journal_length_ + sizeof entry, size};
  journal_length_ += sizeof entry + size;
  return value;
}

void Dialogue::note(void* field, const void* value, std::size_t size) {
  if (ended_) {
    return;
  }
  const std::span<char> pending = note(field, size);
  if (value != nullptr) {
    std::memcpy(pending.data(), value, size);
  } else {
    std::memset(pending.data(), 0, size);
  }
}

// With its head; empty when nothing is noted for the field.
std::span<char> Dialogue::entry_of(const void* field) {
  const std::span noted = std::span(journal_).first(journal_length_);
  for (std::size_t at = 0; at < noted.size();) {
    JournalEntry entry;
    std::memcpy(&entry, &noted[at], sizeof entry);
    const std::size_t size = sizeof entry + entry.size;
    if (entry.field == field) {
      return noted.subspan(at, size);
    }
    at += size;
  }
  return {};
}

void Dialogue::move_before(const void* field, const void* moved) {
  const std::span<char> place = entry_of(field);
  const std::span<char> entry = entry_of(moved);
  if (place.empty() || entry.empty()) {
    return;
  }
  if (entry.data() > place.data()) {
    swap_neighbours(place.data(), entry.data(), entry.data() + entry.size());
  } else {
    swap_neighbours(entry.data(), entry.data() + entry.size(), place.data());
  }
}

void Dialogue::bring_forward() {
  char* const begin = journal_.data();
  swap_neighbours(begin, begin + ahead_from_, begin + journal_length_);
  ahead_from_ = 0;
}

void Dialogue::write_ahead() {
  bring_forward();
  ahead_from_ = journal_length_;
}

void Dialogue::refuse(Refusal refusal) {
  if (!ended_) {
    refusal.show();
    ended_ = true;
  }
}

bool Dialogue::commit() {
  if (ended_) {
    return false;
  }
  bring_forward();
  for (std::size_t at = 0; at < journal_length_;) {
    JournalEntry entry;
    std::memcpy(&entry, journal_.data() + at, sizeof entry);
    at += sizeof entry;
    platform::write_shared(entry.field, {journal_.data() + at, entry.size});
    at += entry.size;
  }
  journal_length_ = 0;
  return true;
}

}  // namespace shell
