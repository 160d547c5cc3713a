// The menu that the phone book and the call screen open over their records.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "shell/menu.h"

namespace menus::voip {

// By number: add, delete, modify, list.
using RecordActions = std::array<shell::Handler, 4>;

// Shows the menu and runs the chosen action, again and again until q. An empty line starts an addition.
void run_action_menu(std::string_view heading, const RecordActions& actions);

// The telephone numbers of the records, as the console takes them.
constexpr std::size_t longest_phone_number = 15;

}  // namespace menus::voip
