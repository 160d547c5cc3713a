// What the two lists of telephone numbers share: the phone book and the call screen.
#pragma once

#include <string_view>

#include "shell/dialogue.h"
#include "shell/menu.h"

namespace menus::voip {

constexpr shell::TextRule phone_number_rule{.max = 15, .digits_only = true};

// Shows the menu of these actions and runs the chosen one, again and again until q. An empty line adds.
void run_action_menu(std::string_view heading, shell::Handler add, shell::Handler remove,
                     shell::Handler modify, shell::Handler list);

}  // namespace menus::voip
