// The dynamic DNS client and its account.
#include <cstdint>

#include "menus/tools/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::tools {

void ddns_menu() {
  config::DdnsSettings& ddns = shell::segment().ddns;
  shell::Dialogue ask(shell::Dialogue::refuse_by_kind);
  const std::uint8_t enable = ask.choice("DDNS Enable?<%d>(0:Disable,1:Enable):", ddns.ddns_enable, "01");
  if (enable != 0) {
    ask.choice("DDNS Server Type?<%d>(0:dyndns, 1:no-ip, 2:easydns, 3:quarlddns):", ddns.ddns_server_type,
               "0123");
    ask.text("User Name?<%s>:", ddns.ddns_user_name);
    ask.text("Password?<%s>:", ddns.ddns_password);
    ask.text("Host?<%s>:", ddns.ddns_host);
  }
  if (!ask.commit()) {
    return;
  }
  shell::save_settings();
  shell::run_command("/etc/init.d/ddns.sh stop > /dev/null 2>&1");
  if (enable == 1) {
    shell::run_command("/etc/init.d/ddns.sh start > /dev/null 2>&1");
  }
  shell::show_message(shell::message::saved);
}

}  // namespace menus::tools
