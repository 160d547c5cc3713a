// The signalling of the analogue telephone ports: tones and caller ID of both, then ring, hook flash and
// levels of each.
#include "menus/voip/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::voip {
namespace {

// The lower bound of the hook flash may lie above the upper one.
void ask_port(shell::Dialogue& ask, std::size_t number, config::PhonePort& port) {
  ask.about(number);
  ask.choice(
      "Phone %d Setting ring_impedance?\n1:600 ohm\n2:900 ohm\n3:Japan (600 ohm + 1uF)\n4:900 ohm + 2.16uF\n"
      "5:CTR21\n6:Australia/New Zealand\n7:Slovakia/Slovenia/South Africa\n8:China\nring_impedance?<%d>:",
      port.ring_impedance, "12345678");
  ask.number("Phone %d Setting hook_flash_detect_ubound?<%d>(100-3000):", port.hook_flash_detect_ubound,
             {100, 3000});
  ask.number("Phone %d Setting hook_flash_detect_lbound?<%d>(100-3000):", port.hook_flash_detect_lbound,
             {100, 3000});
  ask.number("Phone %d Setting voice_tx_level?<%d>(3,4,5,6,7):", port.voice_tx_level, {3, 7});
  ask.number("Phone %d Setting voice_rx_level?<%d>(3,4,5,6,7):", port.voice_rx_level, {3, 7});
}

}  // namespace

void phone_setting() {
  config::PhoneSettings& phone = shell::segment().phone;
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::ask_again);
  ask.choice(
      "Phone Setting Tone_Setting?\n0:Default\n1:Taiwan\n2:China\n3:US\n4:Japan\n5:India\nTone_Setting?<%d>:",
      phone.Tone_Setting, "012345", {.kept_note = "ret==0"});
  ask.choice(
      "Phone Setting callerid_type?\n0:Disable\n1:DTMF\n2:FSK Bellcore\n3:FSK ETSI\n4:JAPAN CLIP\n"
      "5:JAPAN JCLIP\n6:BT\ncallerid_type?<%d>:",
      phone.callerid_type, "0123456");
  ask.number("Phone Setting callerid_power_level?<%d>(0~20):", phone.callerid_power_level, {0, 20});
  ask.number("Phone Setting callerid_baring?<%d>(0:Before Ring, 1:After Ring):", phone.callerid_baring,
             {0, 1});
  // The first choice stands on the question's own line here, and on the next one below.
  ask.choice(
      "Phone Setting callerid_t1_alertsig?0:No Alert\n1:DTAS\n2:RPAS\n3:LR\n4:LR-DTAS\n"
      "callerid_t1_alertsig?<%d>:",
      phone.callerid_t1_alertsig, "01234");
  ask.choice(
      "Phone Setting callerid_t2_alertsig?\n0:No Alert\n1:DTAS\n2:RPAS\n3:LR\n4:LR-DTAS\n"
      "callerid_t2_alertsig?<%d>:",
      phone.callerid_t2_alertsig, "01234");
  for (std::size_t i = 0; i < phone.phone_port.size(); ++i) {
    ask_port(ask, i, phone.phone_port[i]);
  }

  shell::commit_and_signal_voice_daemon(ask);
}

}  // namespace menus::voip
