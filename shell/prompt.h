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
  text,  // or nothing: some texts are asked for without being shown
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
// have.
struct PromptParts {
  const char* number;
  const char* value;
};

// Of a prompt that fits its type.
constexpr PromptParts take_apart(const char* prompt, Shows shows) {
  const char* const first = conversion_in(prompt);
  if (*first == '\0') {
    return {nullptr, nullptr};
  }
  if (first[1] == 'd') {
    // A number alone is the prompt's own where no number is shown.
    const char* const second = conversion_in(first + 1);
    if (*second != '\0') {
      return {first, second};
    }
    if (shows != Shows::number) {
      return {first, nullptr};
    }
  }
  return {nullptr, first};
}

// A prompt that the compiler has checked.
class PromptText {
 public:
  // Prints the prompt, without a newline: with its own number where it has one, and with the value that it
  // shows, or `text` where it shows a text.
  void show(std::uint32_t number, Value value, std::string_view text) const;

  // False for a text that is asked for without being shown.
  bool shows_value() const;

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
  const auto [number, value] = take_apart(literal, shows);
  const char* rest = number == nullptr ? literal : number + conversion_of(Shows::number).size();
  bool fits = shows == Shows::nothing || shows == Shows::text;
  if (value != nullptr) {
    const std::string_view conversion = conversion_of(shows);
    fits = shows != Shows::nothing && std::string_view(value).starts_with(conversion);
    rest = value + conversion.size();
  }
  if (!fits || *conversion_in(rest) != '\0') {
    prompt_does_not_show_what_its_type_says();
  }
}

}  // namespace shell
