#include "menus/menu_tree.h"
#include "shell/session.h"

// Whatever arguments it is given, it ignores.
int main() {
  shell::run_console(menus::menu_tree);
}
