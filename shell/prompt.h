// Prompts as literals that are taken apart at compile time.
//
// A prompt is written with the conversions it shows: "Session Timer?<%d>(1~65535):". The type says which
// value it shows; a literal that does not fit it does not compile. A "%d" before the value, as in "Phone %d
// Enable?<%d>:", shows the dialogue's subject.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace shell {

enum class Shows : std::uint8_t {
  nothing,
  number,
  address,
  mac,
  text,  // or nothing: some texts are asked for without being shown
};

class PromptText {
 public:
  consteval PromptText(const char* literal, Shows shows);

  // Prints the prompt, without a newline.
  void show(int subject, std::string_view value) const;

  bool shows_value() const { return value_at_ != absent; }

 private:
  // Small enough to travel in two registers: there are some three hundred prompts.
  const char* text_;
  std::uint16_t length_;
  std::uint16_t subject_at_ = absent;
  std::uint16_t value_at_ = absent;
  std::uint16_t value_length_ = 0;

  static constexpr std::uint16_t absent = UINT16_MAX;
};

// Has a PromptText and is not one: clang up to 16 crashes over consteval constructors of derived classes.
template <Shows shows>
class Prompt {
 public:
  consteval Prompt(const char* literal) : text_(literal, shows) {}  // NOLINT: a literal is a prompt
  constexpr operator const PromptText&() const { return text_; }    // NOLINT: and is shown as such

 private:
  PromptText text_;
};

// ---- Only the compiler reads on ----

// Not constexpr on purpose: reaching it while a prompt is taken apart stops the build.
void prompt_does_not_show_what_its_type_says();

consteval std::string_view conversion_of(Shows shows) {
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

consteval PromptText::PromptText(const char* literal, Shows shows) : text_(literal) {
  constexpr std::string_view number = "%d";
  const std::string_view conversion = conversion_of(shows);
  const std::string_view text = literal;
  length_ = static_cast<std::uint16_t>(text.size());
  std::size_t at = text.find('%');
  const bool value_absent = shows == Shows::text && text.find(conversion) == std::string_view::npos;
  const bool value_is_first = shows != Shows::nothing &&
                              text.substr(std::min(at, text.size())).starts_with(conversion) &&
                              text.find('%', at + conversion.size()) == std::string_view::npos;
  if (at != std::string_view::npos && !value_is_first) {
    if (!text.substr(at).starts_with(number)) {
      prompt_does_not_show_what_its_type_says();
    }
    subject_at_ = static_cast<std::uint16_t>(at);
    at = text.find('%', at + number.size());
  }
  if (shows != Shows::nothing && !value_absent) {
    if (at == std::string_view::npos || !text.substr(at).starts_with(conversion)) {
      prompt_does_not_show_what_its_type_says();
    }
    value_at_ = static_cast<std::uint16_t>(at);
    value_length_ = static_cast<std::uint16_t>(conversion.size());
    at = text.find('%', at + conversion.size());
  }
  if (at != std::string_view::npos) {
    prompt_does_not_show_what_its_type_says();
  }
}

}  // namespace shell
