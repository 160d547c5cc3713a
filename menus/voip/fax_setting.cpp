// How each telephone port sends fax.
#include "menus/voip/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::voip {

void fax_setting() {
  auto& ports = shell::segment().fax_qos.fax_port;

  shell::Dialogue ask(shell::Dialogue::ask_again);
  for (std::size_t i = 0; i < ports.size(); ++i) {
    ask.about(i);
    ask.number(
        "FAX Setting Phone %d T.38 Option?\n0:Voice\n1:T38_FAX_RELAY\n2:VOICE_AND_T38_FAX_RELAY\n"
        "3:VOICE_AND_FAX_PASS_THROUGH\nT.38 Option?<%d>:",
        ports[i].t38_option, {0, 3});
  }

  shell::commit_and_signal_voice_daemon(ask);
}

}  // namespace menus::voip
