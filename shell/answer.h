// Answers: whether the line just read, or a stored value, is what a prompt takes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace shell {

// Any answer but a text, on its way from the line to the record: a number, or an address or a MAC as its
// bytes lie in the record, first one lowest. A field takes the lowest bytes, as many as it has.
using Value = std::uint64_t;

// Numbers low to high, in steps from 0. Packed into one word, because it is an argument of every second
// prompt.
struct Range {
  constexpr Range() = default;
  constexpr Range(std::uint16_t lowest, std::uint32_t highest, std::uint16_t steps = 1)
      : low(lowest), step(steps), high(highest) {}

  std::uint16_t low{};
  std::uint16_t step = 1;
  std::uint32_t high{};
};

// Some of the numbers 0 to 31.
class OneOf {
 public:
  constexpr OneOf() = default;
  // The digits in the literal: "012".
  consteval OneOf(const char* digits) {
    for (; *digits != '\0'; ++digits) {
      add(static_cast<unsigned>(*digits - '0'));
    }
  }
  consteval OneOf(std::initializer_list<unsigned> numbers) {
    for (const unsigned number : numbers) {
      add(number);
    }
  }
  // 0 to `count` - 1.
  static constexpr OneOf first(std::size_t count) {
    OneOf numbers;
    numbers.set_ = (1U << count) - 1;
    return numbers;
  }
  constexpr bool has(std::uint32_t number) const { return number < 32 && (set_ >> number & 1) != 0; }

 private:
  // A number above 31 stops the build: such a shift is no constant expression.
  constexpr void add(unsigned number) { set_ |= 1U << number; }

  std::uint32_t set_ = 0;
};

struct AnswerKind {
  enum class Form : std::uint8_t {
    choice,   // exactly one character, a digit of `one_of`
    pick,     // decimal digits, in range; refused as a choice is
    number,   // decimal digits, in range
    listed,   // the number with which the line begins, 0 when it begins with none; one of `one_of`
    address,  // not 0.0.0.0
    netmask,  // one bits, then zero bits, and at least one of the first
    mac,      // any six bytes, all zero included
  };
  Form form;
  bool rest_ignored = false;  // only a choice's first character, a number's leading digits count
  Range range = {};
  OneOf one_of = {};

  bool is_choice() const { return form == Form::choice || form == Form::pick; }
};

// The line as such an answer; nothing when it is none. Not for an empty line.
std::optional<Value> judge_line(const AnswerKind& kind);

// Whether a stored value would do as an answer.
bool passes(const AnswerKind& kind, Value value);

struct TextLimits {
  std::size_t max_length;
  bool may_be_empty;
  bool digits_only;  // decimal digits throughout
};

// The line as a text, valid until the next line is read; nothing when it does not keep the limits.
std::optional<std::string_view> judge_text(const TextLimits& limits);

}  // namespace shell
