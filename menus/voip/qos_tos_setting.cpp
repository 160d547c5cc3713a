// How voice and signalling packets are marked: IP TOS values, or 802.1p priorities and VLANs.
#include "menus/voip/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::voip {

void qos_tos_setting() {
  constexpr shell::OneOf tos_values = {0, 2, 4, 8, 16};
  config::FaxQosSettings& qos = shell::segment().fax_qos;

  shell::Dialogue ask(shell::Dialogue::ask_again);
  ask.number("QOS TOS/Diffserv Setting type?<%d>(0:tos, 1:diffserve):", qos.qos_type, {0, 1});
  ask.listed(
      "QOS TOS/Diffserv Setting sip_tos?<%d>\n 0:Normal-Service\n 2:Minimize-Cost\n 4:Maximize-Reliability\n"
      " 8:Maximize-Throughput\n16:Minimize-Delay\nsip_tos?<%d>:",
      qos.sip_tos, tos_values);
  ask.listed(
      "QOS TOS/Diffserv Setting rtp_tos?<%d>\n: 0:Normal-Service\n 2:Minimize-Cost\n 4:Maximize-Reliability\n"
      " 8:Maximize-Throughput\n16:Minimize-Delay\nrtp_tos?<%d>:",
      qos.rtp_tos, tos_values);
  ask.number("QOS TOS/Diffserv Setting pri_enable?<%d>(0 tos, 1 diffserve):", qos.pri_enable, {0, 1});
  ask.number("QOS TOS/Diffserv Setting pri_voice?<%d>(0-7):", qos.pri_voice, {0, 7});
  ask.number("QOS TOS/Diffserv Setting vlan_voice?<%d>(0-1023):", qos.vlan_voice, {0, 1023});
  ask.number("QOS TOS/Diffserv Setting pri_data?<%d>(0-7):", qos.pri_data, {0, 7});
  ask.number("QOS TOS/Diffserv Setting vlan_data?<%d>(0-1023):", qos.vlan_data, {0, 1023});

  shell::commit_and_signal_voice_daemon(ask);
}

}  // namespace menus::voip
