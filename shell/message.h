// The numbered messages with which the menus report.
#pragma once

#include <cstdint>

namespace shell {

enum class Message : std::uint8_t {
  keep_with_enter = 0,
  wrong_choice = 1,
  illegal_value = 2,
  saved = 3,
  restart = 4,
  ip_range = 5,
  table_full = 6,
  reboot = 7,
  port_range = 8,
};

// The message, its line end and one blank line.
void show_message(Message message);

// How a refused answer is reported: a numbered message, or a line of the dialogue's own.
class Refusal {
 public:
  constexpr Refusal(Message message) : message_(message) {}
  // `text` is not copied.
  static constexpr Refusal line(const char* text) {
    Refusal refusal(Message::illegal_value);
    refusal.line_ = text;
    return refusal;
  }
  // Without a word.
  static constexpr Refusal silent() { return line(""); }
  void show() const;

 private:
  Message message_;
  const char* line_ = nullptr;
};

}  // namespace shell
