// The two levels of numbered menus: what they show, and what each typed line does.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace shell {

// A dialogue or a page. It returns when it is done; the submenu is then shown again.
using Handler = void (*)();

struct MenuItem {
  std::string_view label;     // empty: the slot is not shown
  Handler handler = nullptr;  // none: choosing the slot does nothing
};

// What a menu shows: its numbered labels, and how to leave it.
class Screen {
 public:
  // Numbers are 0 to 19.
  constexpr void add_item(std::size_t number, std::string_view label) {
    if (number >= 10) {
      add("1");
    }
    const char digit[] = {static_cast<char>('0' + number % 10), ':'};
    add({digit, sizeof digit});
    add(label);
    add("\n");
  }
  constexpr void add_quit() {
    add("------------------------------------------------------------------------------\nq:Exit\n\n");
  }
  constexpr std::string_view text() const { return {text_.data(), length_}; }

 private:
  constexpr void add(std::string_view text) {
    if (text.size() > text_.size() - length_) {
      __builtin_trap();
    }
    std::copy(text.begin(), text.end(), text_.begin() + length_);
    length_ = static_cast<std::uint16_t>(length_ + text.size());
  }

  std::array<char, 320> text_{};
  std::uint16_t length_ = 0;
};

// A table of items, by number from 0, as the shell wants it. The compiler draws the screen.
class Submenu {
 public:
  static constexpr std::size_t slots = 11;  // at most; more do not compile

  template <std::size_t count>
  consteval Submenu(std::string_view label, const MenuItem (&items)[count]) : label_(label) {
    for (std::size_t slot = 0; slot < count; ++slot) {
      handlers_[slot] = items[slot].handler;
      if (!items[slot].label.empty()) {
        screen_.add_item(slot, items[slot].label);
      }
    }
    screen_.add_quit();
  }

  std::string_view label() const { return label_; }
  std::string_view screen() const { return screen_.text(); }
  Handler handler(std::size_t slot) const { return handlers_[slot]; }

 private:
  std::string_view label_;
  std::array<Handler, slots> handlers_{};
  Screen screen_;
};

using MenuTree = std::array<const Submenu*, 6>;

// The prompt before every line at menu level.
constexpr char menu_prompt[] = "[4830NT]#";

// Shows the main menu, then reads and obeys lines for ever.
[[noreturn]] void run_menus(const MenuTree& menus);

// What a typed line means: the item's number, or one of these. A typed two-digit number counts as what it
// equals, so that 90 quits.
enum Command : std::uint8_t { quit = 90, help = 91, empty_line = 92, not_implemented = 98, not_defined = 99 };

// Checks and renews the login, then classifies the line just read, of `length` characters. Does not return
// when the login has expired or was taken over.
unsigned classify_input(std::size_t length);

}  // namespace shell
