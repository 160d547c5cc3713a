// The two levels of numbered menus: what they show, and what each typed line does.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace shell {

// A numbered menu: the lines that it shows, and what choosing a number leads to, which may be nullptr.
template <typename Target, std::size_t slots>
struct Menu {
  static_assert(slots <= 20);  // numbers are drawn with one digit, or with a 1 before it

  std::string_view lines;
  std::array<Target, slots> targets;

  struct Item {
    std::string_view label;  // empty: the number is not shown
    Target target = nullptr;
  };
  // Of the items, by number from 0. More than there are slots do not compile.
  template <const auto& items>
  static consteval Menu of();
};

// A dialogue or a page. It returns when it is done; the submenu is then shown again.
using Handler = void (*)();

using Submenu = Menu<Handler, 11>;
using MenuTree = Menu<const Submenu*, 6>;

// The prompt before every line at menu level.
constexpr char menu_prompt[] = "[4830NT]#";

// Shows the main menu, then reads and obeys lines for ever.
[[noreturn]] void run_menus(const MenuTree& menus);

// ---- Only the compiler reads on ----

// Draws the lines where there is room given. Returns how many characters that takes.
template <typename Item, std::size_t count>
constexpr std::size_t draw_menu(const Item (&items)[count], char* room = nullptr) {
  std::size_t length = 0;
  const auto add = [&](std::string_view text) {
    if (room != nullptr) {
      std::copy(text.begin(), text.end(), room + length);
    }
    length += text.size();
  };
  for (std::size_t number = 0; number < count; ++number) {
    const char last_digit = static_cast<char>('0' + number % 10);
    if (!items[number].label.empty()) {
      add(number < 10 ? "" : "1");
      add({&last_digit, 1});
      add(":");
      add(items[number].label);
      add("\n");
    }
  }
  return length;
}

// Not part of the menu: the loader, which fills in the menu's addresses, then need not touch them.
template <const auto& items>
inline constexpr auto drawn_menu = [] {
  std::array<char, draw_menu(items)> lines{};
  draw_menu(items, lines.data());
  return lines;
}();

template <typename Target, std::size_t slots>
template <const auto& items>
consteval Menu<Target, slots> Menu<Target, slots>::of() {
  Menu menu{{drawn_menu<items>.data(), drawn_menu<items>.size()}, {}};
  std::ranges::transform(items, menu.targets.begin(), &Item::target);
  return menu;
}

}  // namespace shell
