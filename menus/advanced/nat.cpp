// Address translation, what passes through it, and the DMZ host.
#include "menus/advanced/items.h"
#include "shell/apply.h"
#include "shell/output.h"

namespace menus::advanced {
namespace {

void show_nat(const config::NatSettings& nat) {
  show_switch_setting("NAT Enable", nat.nat_enable);
  show_switch_setting("IPSec Pass Through Enable", nat.ipsec_pass_through);
  show_switch_setting("PPTP Pass Through Enable", nat.pptp_pass_through);
  show_switch_setting("L2TP Pass Through Enable", nat.l2tp_pass_through);
  show_switch_setting("SIP ALG Through Enable", nat.sip_alg);
  show_switch_setting("NetMetting ALG Enable", nat.netmeeting_alg);
  show_switch_setting("DMZ Enable", nat.dmz_enable);
  if (nat.dmz_enable != 0) {
    shell::put("DMZ LAN IP:<", nat.dmz_ip, ">\n");
  }
  shell::put('\n');
}

}  // namespace

void nat_setting() {
  config::NatSettings& nat = shell::segment().nat;
  show_nat(nat);
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::refuse_by_kind);
  if (ask.choice("NAT Enable?<%d>(0:disable, 1:Enable):", nat.nat_enable, "01") != 0) {
    ask.choice("IPSec Pass Through Enable?<%d>(0:disable, 1:Enable):", nat.ipsec_pass_through, "01");
    ask.choice("PPTP Pass Through Enable?<%d>(0:disable, 1:Enable):", nat.pptp_pass_through, "01");
    ask.choice("L2TP Pass Through Enable?<%d>(0:disable, 1:Enable):", nat.l2tp_pass_through, "01");
    ask.choice("SIP ALG Enable?<%d>(0:disable, 1:Enable):", nat.sip_alg, "01");
    ask.choice("NetMeeting ALG Enable?<%d>(0:disable, 1:Enable):", nat.netmeeting_alg, "01");
    if (ask.choice("DMZ Enable?<%d>(0:disable, 1:Enable):", nat.dmz_enable, "01") != 0) {
      ask.address("DMZ Lan IP<%u.%u.%u.%u>:", nat.dmz_ip,
                  {.refusal = "DMZ Lan IP Error\n", .judge_kept = true});
    } else {
      ask.note_zero(nat.dmz_ip);
    }
  }
  if (!ask.commit()) {
    return;
  }
  shell::save_settings();
  if (nat.nat_enable == 1) {
    shell::restart_filter_and_nat();
  } else {
    shell::run_command("/etc/init.d/nat.sh stop > /dev/null 2>&1");
    shell::show_message(shell::message::saved);
  }
}

}  // namespace menus::advanced
