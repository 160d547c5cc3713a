#include "menus/voip/action_menu.h"

#include "shell/dialogue.h"

namespace menus::voip {

void run_action_menu(std::string_view heading, const RecordActions& actions) {
  for (;;) {
    shell::Dialogue ask(shell::Dialogue::ask_again);
    const auto action = ask.pick(
        "%s\n0:add a phone number\n1:delete a phone number\n2:modify a phone number\n3:List phone number\n"
        "Action :",
        heading, actions.size(), shell::empty_is_zero);
    if (ask.ended()) {
      return;
    }
    actions[action]();
  }
}

}  // namespace menus::voip
