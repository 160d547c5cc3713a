// How the voice daemon finds its public address behind a NAT: STUN or UPnP, never both.
#include "menus/sip/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::sip {

void nat_traversal() {
  config::NatTraversalSettings& nat = shell::segment().nat_traversal;
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::refuse_as_illegal);
  if (ask.choice("STUN Enable?<%d>(0:Disable,1:Enable):", nat.stun_enable, "01") == 0) {
    ask.note_zero(nat.stun_server);
    ask.choice("UPNP Enable?<%d>(0:Disable,1:Enable):", nat.sip_upnp_enable, "01");
  } else {
    ask.text("STUN Server IP/URL?<%s>:", nat.stun_server, {.unfit = shell::TextRule::Unfit::leaves_empty});
    ask.note_zero(nat.sip_upnp_enable);
  }

  shell::commit_and_signal_voice_daemon(ask);
}

}  // namespace menus::sip
