#include "shell/menu.h"

#include <cstdint>

#include "shell/line.h"
#include "shell/output.h"
#include "shell/parse.h"
#include "shell/session.h"

namespace shell {
namespace {

enum class Level : std::uint8_t { main, submenu };

const MenuTree* tree;
Level level;
std::size_t current_submenu;

void show_quit() {
  put("------------------------------------------------------------------------------\nq:Exit\n\n");
}

void show_main_menu() {
  put(tree->lines);
  show_quit();
  level = Level::main;
}

void show_submenu(std::size_t number) {
  put(tree->targets[number]->lines);
  show_quit();
  level = Level::submenu;
}

void item_dispatch(std::size_t slot, std::size_t number) {
  const Handler handler = number < tree->targets.size() ? tree->targets[number]->targets[slot] : nullptr;
  if (handler != nullptr) {
    handler();
  }
}

// What a typed line means: the item's number, or one of these. A typed two-digit number counts as what it
// equals, so that 90 quits.
enum Command : std::uint8_t { quit = 90, help = 91, empty_line = 92, not_implemented = 98, not_defined = 99 };

// Checks and renews the login, then classifies the line just read, of `length` characters. Does not return
// when the login has expired or was taken over.
unsigned classify_input(std::size_t length) {
  if (!refresh_login()) {
    put("\nConnection Time Out!! Please Re-Login!!\n");
    end_console();
  }
  if (length == 0) {
    return empty_line;
  }
  if (line_is_q()) {
    return quit;
  }
  if (const auto number = whole_number(line_text()); number && length <= 2) {
    return *number;
  }
  return length == 4 && typed_text() == "help" ? help : not_defined;
}

// What both levels say about a line that is no command of theirs.
void report_unknown(unsigned command) {
  if (command == not_implemented) {
    put("This command is not implement!\n");
  } else if (command == not_defined) {
    put("This command is not define!\n");
  }
}

void main_menu_dispatch(std::size_t length) {
  const unsigned command = classify_input(length);
  if (command < tree->targets.size()) {
    current_submenu = command;
    show_submenu(current_submenu);
  } else if (command == quit) {
    end_console();
  } else if (command == help) {
    show_main_menu();
  } else {
    report_unknown(command);
  }
}

void submenu_dispatch(std::size_t length) {
  const unsigned command = classify_input(length);
  if (command < tree->targets[current_submenu]->targets.size()) {
    item_dispatch(command, current_submenu);
    show_submenu(current_submenu);
  } else if (command == quit) {
    show_main_menu();
  } else if (command == help) {
    show_submenu(current_submenu);
  } else {
    report_unknown(command);
  }
}

}  // namespace

void run_menus(const MenuTree& menus) {
  tree = &menus;
  show_main_menu();
  for (;;) {
    put(std::string_view(menu_prompt));
    const std::size_t length = read_line();
    if (level == Level::main) {
      main_menu_dispatch(length);
    } else {
      submenu_dispatch(length);
    }
  }
}

}  // namespace shell
