// Prompts as literals that the compiler checks.
//
// A prompt is written with the conversions it shows: "Session Timer?<%d>(1~65535):". The type says which
// value it shows; a literal that does not fit it does not compile. A "%d" before the value, as in "Phone %d
// Enable?<%d>:", shows a number of the prompt's own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "shell/answer.h"

namespace shell {

enum class Shows : std::uint8_t {
  nothing,
  number,
  address,
  mac,
  text,
};

constexpr std::string_view conversion_of(Shows shows) {
  switch (shows) {
    case Shows::number:
      return "%d";
    case Shows::address:
      return "%u.%u.%u.%u";
    case Shows::mac:
      return "%02x:%02x:%02x:%02x:%02x:%02x";
    case Shows::text:
      return "%s";
    case Shows::nothing:
      break;
  }
  return {};
}

// The next conversion in a prompt, or its end.
constexpr const char* conversion_in(const char* prompt) {
  if (!std::is_constant_evaluated()) {
    return ::strchrnul(prompt, '%');
  }
  while (*prompt != '\0' && *prompt != '%') {
    ++prompt;
  }
  return prompt;
}

// Where a prompt has a number of its own, and where the value that it shows; nullptr for one that it does not
// have. What is behind these reaches to the next conversion, or the prompt's end.
struct PromptParts {
  const char* number;
  const char* value;
  const char* rest;
  const char* end;
};

// Of a prompt that fits its type.
constexpr PromptParts take_apart(const char* prompt, Shows shows) {
  const char* const first = conversion_in(prompt);
  if (*first == '\0') {
    return {nullptr, nullptr, prompt, first};
  }
  const char* number = nullptr;
  const char* value = first;
  if (first[1] == 'd') {
    const char* const behind = first + conversion_of(Shows::number).size();
    const char* const second = conversion_in(behind);
    if (*second == '\0') {
      // A number alone is the prompt's own where no number is shown.
      const bool is_value = shows == Shows::number;
      return {is_value ? nullptr : first, is_value ? first : nullptr, behind, second};
    }
    number = first;
    value = second;
  }
  const char* const rest = value + conversion_of(shows).size();
  return {number, value, rest, conversion_in(rest)};
}

// A prompt that the compiler has checked.
class PromptText {
 public:
  // Prints the prompt, without a newline: with its own number where it has one, and with the value that it
  // shows, or `text` where it shows a text.
  void show(std::uint32_t number, Value value, std::string_view text) const;

  Shows shows() const { return shows_; }

 private:
  template <Shows shows>
  friend class Prompt;
  constexpr PromptText(const char* literal, Shows shows) : literal_(literal), shows_(shows) {}

  const char* literal_;
  Shows shows_;
};

// One word: there are some two hundred prompts, and each is an argument.
template <Shows shows>
class Prompt {
 public:
  consteval Prompt(const char* literal);
  constexpr operator PromptText() const { return {literal_, shows}; }

 private:
  const char* literal_;
};

// ---- Only the compiler reads on ----

// Not constexpr on purpose: reaching it while a prompt is taken apart stops the build.
void prompt_does_not_show_what_its_type_says();

template <Shows shows>
consteval Prompt<shows>::Prompt(const char* literal) : literal_(literal) {
  const PromptParts parts = take_apart(literal, shows);
  const bool fits =
      parts.value == nullptr
          ? shows == Shows::nothing
          : shows != Shows::nothing && std::string_view(parts.value).starts_with(conversion_of(shows));
  if (!fits || *parts.end != '\0') {
    prompt_does_not_show_what_its_type_says();
  }
}

}  // namespace shell
