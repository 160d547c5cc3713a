// Prompts as literals that are taken apart at compile time.
//
// A prompt is written with the conversions it shows: "Session Timer?<%d>(1~65535):". The type says which
// value it shows; a literal that does not fit it does not compile. A "%d" before the value, as in "Phone %d
// Enable?<%d>:", shows a number of the prompt's own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "shell/answer.h"

namespace shell {

enum class Shows : std::uint8_t {
  nothing,
  number,
  address,
  mac,
  text,  // or nothing: some texts are asked for without being shown
};

// Where in a prompt its conversions are; npos for one that it does not have.
struct PromptParts {
  std::size_t number_at;
  std::size_t value_at;
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

// Of a prompt that fits its type.
constexpr PromptParts take_apart(std::string_view prompt, Shows shows) {
  constexpr auto absent = std::string_view::npos;
  const std::size_t first = prompt.find('%');
  const std::size_t second = first == absent ? absent : prompt.find('%', first + 1);
  const bool leads_with_number = first != absent && prompt[first + 1] == 'd';
  // A number alone is the prompt's own where no number is shown.
  if (leads_with_number && (second != absent || shows != Shows::number)) {
    return {first, second};
  }
  return {absent, first};
}

// A prompt that the compiler has taken apart.
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
  const std::string_view prompt = literal;
  const auto [number_at, value_at] = take_apart(prompt, shows);
  std::size_t end = number_at == std::string_view::npos ? 0 : number_at + 2;
  bool fits = shows == Shows::nothing || shows == Shows::text;
  if (value_at != std::string_view::npos) {
    const std::string_view conversion = conversion_of(shows);
    fits = shows != Shows::nothing && prompt.substr(value_at).starts_with(conversion);
    end = value_at + conversion.size();
  }
  if (!fits || prompt.find('%', end) != std::string_view::npos) {
    prompt_does_not_show_what_its_type_says();
  }
}

}  // namespace shell
