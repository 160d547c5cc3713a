#include "menus/voip/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::voip {

void e164_setting() {
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::ask_again);
  ask.choice("E.164 Setting Call Enable?<%d>(0:Disable, 1:Enable):", shell::segment().e164_call_enable, "01");

  shell::commit_and_signal_voice_daemon(ask);
}

}  // namespace menus::voip
