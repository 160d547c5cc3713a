#include "shell/answer.h"

#include "shell/line.h"
#include "shell/parse.h"

namespace shell {
namespace {

// Before it is known whether the value passes.
std::optional<Value> value_of_line(const AnswerKind& kind) {
  using enum AnswerKind::Form;
  switch (kind.form) {
    case choice:
      return kind.rest_ignored ? leading_digit() : single_digit();
    case pick:
    case number:
      if (!kind.rest_ignored) {
        return whole_number(line_text());
      }
      return leading_digit() ? decimal_value(line_text()) : std::nullopt;
    case listed:
      return decimal_value(line_text());
    case address:
    case netmask:
      return parse_ipv4(line_text(), '.').word();
    case mac: {
      const std::optional<config::Mac> typed = parse_mac(line_text(), ':');
      return typed ? std::optional(typed->word()) : std::nullopt;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<Value> judge_line(const AnswerKind& kind) {
  const std::optional<Value> value = value_of_line(kind);
  return value && passes(kind, *value) ? value : std::nullopt;
}

bool passes(const AnswerKind& kind, Value value) {
  const auto word = static_cast<std::uint32_t>(value);
  using enum AnswerKind::Form;
  switch (kind.form) {
    case choice:
    case listed:
      return kind.one_of.has(word);
    case pick:
    case number:
      return in_range(word, kind.range.low, kind.range.high) && word % kind.range.step == 0;
    case address:
      return word != 0;
    case netmask:
      return is_valid_netmask(config::Ipv4::from_word(word));
    case mac:
      return true;
  }
  return false;
}

std::optional<std::string_view> judge_text(const TextLimits& limits) {
  const std::string_view text = typed_text();
  const bool fits = line_length() <= limits.max_length && (limits.may_be_empty || !text.empty());
  return fits && (!limits.digits_only || is_all_digits(line_text())) ? std::optional(text) : std::nullopt;
}

}  // namespace shell
