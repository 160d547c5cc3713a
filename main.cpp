#include "menus/advanced/submenu.h"
#include "menus/network/submenu.h"
#include "menus/sip/submenu.h"
#include "menus/status/submenu.h"
#include "menus/tools/submenu.h"
#include "menus/voip/submenu.h"
#include "shell/session.h"

// Whatever arguments and environment it is given, it ignores.
int main() {
  static constexpr shell::MenuTree menus = {
      &menus::network::submenu, &menus::advanced::submenu, &menus::sip::submenu,
      &menus::voip::submenu,    &menus::tools::submenu,    &menus::status::submenu,
  };
  shell::run_console(menus);
}
