#include "menus/voip/number_list.h"

#include <iterator>

namespace menus::voip {

void run_action_menu(std::string_view heading, shell::Handler add, shell::Handler remove,
                     shell::Handler modify, shell::Handler list) {
  const shell::Handler actions[] = {add, remove, modify, list};
  for (;;) {
    shell::Dialogue ask(shell::Dialogue::ask_again);
    const auto action = ask.pick(
        "%s\n0:add a phone number\n1:delete a phone number\n2:modify a phone number\n3:List phone number\n"
        "Action :",
        heading, std::size(actions), shell::empty_is_zero);
    if (ask.ended()) {
      return;
    }
    actions[action]();
  }
}

}  // namespace menus::voip
