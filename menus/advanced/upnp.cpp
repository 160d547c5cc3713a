// The router's UPnP service.
#include "menus/advanced/items.h"
#include "shell/apply.h"
#include "shell/output.h"

namespace menus::advanced {

void upnp_setting() {
  config::ConfigurationSegment& settings = shell::segment();
  show_switch_setting("UPNP Enable", settings.upnp_enable);
  shell::put('\n');
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::refuse_by_kind);
  ask.choice("UPNP Enable?<%d>(0:Disable, 1:Enable):", settings.upnp_enable, "01");
  if (!ask.commit()) {
    return;
  }
  shell::save_settings();
  // Without NAT there are no ports to open, whatever the switch says.
  if (settings.nat.nat_enable == 1 && settings.upnp_enable == 1) {
    shell::run_command("/etc/init.d/upnpd.sh start > /dev/null 2>&1");
  } else {
    shell::run_command("/etc/init.d/upnpd.sh stop > /dev/null 2>&1");
  }
  shell::show_message(shell::message::saved);
}

}  // namespace menus::advanced
