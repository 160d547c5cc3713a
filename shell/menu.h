// The two levels of numbered menus: what they show, and what each typed line does.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace shell {

// A dialogue or a page. It returns when it is done; the submenu is then shown again.
using Handler = void (*)();

struct MenuItem {
  std::string_view label;     // empty: the slot is not shown
  Handler handler = nullptr;  // none: choosing the slot does nothing
};

struct Submenu {
  std::string_view label;
  std::array<MenuItem, 11> items;  // by number, 0 to 10
};

using MenuTree = std::array<const Submenu*, 6>;

// The prompt before every line at menu level.
constexpr std::string_view menu_prompt = "[4830NT]#";

// Shows the main menu, then reads and obeys lines for ever.
[[noreturn]] void run_menus(const MenuTree& menus);

// What a typed line means: the item's number, or one of these. A typed two-digit number counts as what it
// equals, so that 90 quits.
enum Command : int { quit = 90, help = 91, empty_line = 92, not_implemented = 98, not_defined = 99 };

// Checks and renews the login, then classifies the line just read, of `length` characters. Does not return
// when the login has expired or was taken over.
int classify_input(std::size_t length);

}  // namespace shell
