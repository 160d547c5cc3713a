#include "shell/dialogue.h"

#include <algorithm>
#include <cstring>

#include "shell/line.h"
#include "shell/output.h"

namespace shell {
namespace {

using Form = AnswerKind::Form;

Value value_in(std::span<const char> bytes) {
  Value value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) {
    value = value << 8 | static_cast<std::uint8_t>(bytes[i]);
  }
  return value;
}

// The lowest bytes of a value, fewer than eight.
Value cut_to(std::size_t bytes, Value value) {
  return value & ((Value{1} << 8 * bytes) - 1);
}

}  // namespace

Dialogue::Dialogue(const Policy& policy, Record record) : policy_(policy), adding_(record == Record::added) {}

// ---- One question ----

Value Dialogue::ask(const Question& question, std::optional<Value> stored, const Option& option) {
  const Value current = stored.value_or(0);
  const bool may_keep =
      (stored || option.empty_is_zero) && (!option.judge_kept || passes(question.kind, current));
  const char* const refusal = question.kind.is_choice() ? policy_.bad_choice : policy_.bad_value;
  while (!ended_) {
    question.prompt.show(shown_number_, current, question.text);
    const std::size_t typed = read_line();
    if (has_left()) {
      break;
    }
    std::optional<Value> answer;
    if (typed != 0) {
      answer = judge_line(question.kind);
    } else if (may_keep) {
      answer = current;
    }
    if (answer) {
      answered(option, typed);
      return *answer;
    }
    report(option.refusal != nullptr ? option.refusal : refusal);
  }
  return 0;
}

Value Dialogue::ask_and_note(const Question& question, Bytes field, const Option& option) {
  const Value answer = ask(question, adding_ ? std::nullopt : std::optional(value_in(field)), option);
  note(field, &answer);
  return cut_to(field.size(), answer);
}

bool Dialogue::has_left() {
  if (policy_.asks_again && line_is_q()) {
    put("q:Exit\n");
    ended_ = true;
  }
  return ended_;
}

void Dialogue::report(const char* refusal) {
  put(refusal);
  ended_ = !policy_.asks_again;
}

void Dialogue::answered(const Option& option, std::size_t typed) {
  if (typed == 0 && option.kept_note != nullptr) {
    put(option.kept_note);
  }
  if (policy_.asks_again && !option.no_empty_line) {
    put('\n');
  }
}

// ---- The kinds ----

std::uint8_t Dialogue::choice(Prompt<Shows::number> prompt, std::uint8_t& field, OneOf choices) {
  return choice(prompt, field, choices, no_option);
}

std::uint8_t Dialogue::choice(Prompt<Shows::number> prompt, std::uint8_t& field, OneOf choices,
                              const Option& option) {
  const AnswerKind kind{.form = Form::choice, .rest_ignored = option.rest_ignored, .one_of = choices};
  return static_cast<std::uint8_t>(ask_and_note({prompt, kind}, bytes_of(field), option));
}

std::uint32_t Dialogue::named_choice(Prompt<Shows::text> prompt, std::string_view name, std::uint32_t current,
                                     OneOf choices, const Option& option) {
  const AnswerKind kind{.form = Form::choice, .one_of = choices};
  return static_cast<std::uint32_t>(ask({prompt, kind, name}, current, option));
}

std::uint32_t Dialogue::number(Prompt<Shows::number> prompt, NumberField field, Range range) {
  return number(prompt, field, range, no_option);
}

std::uint32_t Dialogue::number(Prompt<Shows::number> prompt, NumberField field, Range range,
                               const Option& option) {
  const AnswerKind kind{.form = Form::number, .range = range};
  return static_cast<std::uint32_t>(ask_and_note({prompt, kind}, field.bytes, option));
}

std::uint32_t Dialogue::hidden_number(Prompt<Shows::nothing> prompt, std::uint8_t& field, Range range) {
  const AnswerKind kind{.form = Form::number, .range = range};
  return static_cast<std::uint32_t>(ask_and_note({prompt, kind}, bytes_of(field), no_option));
}

std::uint8_t Dialogue::listed(Prompt<Shows::number> prompt, std::uint8_t& field, OneOf numbers) {
  shown_number_ = field;
  const AnswerKind kind{.form = Form::listed, .one_of = numbers};
  return static_cast<std::uint8_t>(ask_and_note({prompt, kind}, bytes_of(field), no_option));
}

std::uint32_t Dialogue::number_of(Prompt<Shows::number> prompt, std::uint32_t current, Range range) {
  const AnswerKind kind{.form = Form::number, .range = range};
  const auto stored = adding_ ? std::nullopt : std::optional<Value>(current);
  return static_cast<std::uint32_t>(ask({prompt, kind}, stored, no_option));
}

config::Ipv4 Dialogue::address(Prompt<Shows::address> prompt, config::Ipv4& field) {
  return address(prompt, field, no_option);
}

config::Ipv4 Dialogue::address(Prompt<Shows::address> prompt, config::Ipv4& field, const Option& option) {
  return ask_address({prompt, {.form = Form::address}}, field, option);
}

config::Ipv4 Dialogue::netmask(Prompt<Shows::address> prompt, config::Ipv4& field, const Option& option) {
  return ask_address({prompt, {.form = Form::netmask}}, field, option);
}

config::Ipv4 Dialogue::ask_address(const Question& question, config::Ipv4& field, const Option& option) {
  return config::Ipv4::from_word(static_cast<std::uint32_t>(ask_and_note(question, bytes_of(field), option)));
}

void Dialogue::mac(Prompt<Shows::mac> prompt, config::Mac& field) {
  ask_and_note({prompt, {.form = Form::mac}}, bytes_of(field), no_option);
}

std::uint32_t Dialogue::pick(Prompt<Shows::nothing> prompt, std::size_t count, const Option& option) {
  return ask_pick({prompt, {.form = Form::pick, .rest_ignored = option.rest_ignored}}, count, option);
}

std::uint32_t Dialogue::pick(Prompt<Shows::text> prompt, std::string_view heading, std::size_t count,
                             const Option& option) {
  return ask_pick({prompt, {.form = Form::pick}, heading}, count, option);
}

std::uint32_t Dialogue::pick_digit(Prompt<Shows::nothing> prompt, std::size_t count) {
  return ask_pick({prompt, {.form = Form::choice, .one_of = OneOf::first(count)}}, count, no_option);
}

std::uint32_t Dialogue::ask_pick(Question question, std::size_t count, const Option& option) {
  shown_number_ = static_cast<std::uint32_t>(count) - 1;
  question.kind.range = {0, shown_number_};
  return static_cast<std::uint32_t>(ask(question, std::nullopt, option));
}

void Dialogue::ask_text(PromptText prompt, Bytes field, TextRule rule) {
  if (ended_) {
    return;
  }
  if (prompt.shows() == Shows::text && !rule.with_line_feed) {
    config::strip_newline(field);
  }
  const std::size_t room = field.size() - 1 - (rule.with_line_feed ? 1 : 0);
  const TextLimits limits{.max_length = std::min<std::size_t>(rule.max, room),
                          .may_be_empty = adding_ && rule.may_be_empty,
                          .digits_only = rule.digits_only};
  const bool may_keep = !adding_ || rule.optional;
  while (!ended_) {
    prompt.show(shown_number_, 0, config::text_in(field));
    const std::size_t typed = read_line();
    if (has_left()) {
      return;
    }
    if (typed == 0 && may_keep) {
      note(field, field.data());
    } else if (const auto text = judge_text(limits)) {
      const Bytes noted = journal_.note(field);
      config::put_text(noted, *text);
      if (rule.with_line_feed) {
        noted[text->size()] = '\n';
      }
    } else if (typed != 0 && rule.unfit != TextRule::Unfit::refused) {
      show_message(message::illegal_value);
      note(field, rule.unfit == TextRule::Unfit::keeps_the_old ? field.data() : nullptr);
    } else {
      report(policy_.bad_value);
      continue;
    }
    answered(no_option, typed);
    return;
  }
}

// ---- The way into the record ----

void Dialogue::note(Bytes field, const void* value) {
  if (ended_) {
    return;
  }
  const Bytes noted = journal_.note(field);
  if (value != nullptr) {
    std::memcpy(noted.data(), value, noted.size());
  } else {
    std::memset(noted.data(), 0, noted.size());
  }
}

void Dialogue::refuse(const char* refusal) {
  if (!ended_) {
    put(refusal);
    ended_ = true;
  }
}

bool Dialogue::commit() {
  if (!ended_) {
    journal_.commit();
  }
  return !ended_;
}

}  // namespace shell
