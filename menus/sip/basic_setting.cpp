// What both SIP lines share: ports, timers, transport and the name the device presents.
#include "menus/sip/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::sip {

void basic_setting() {
  config::SipSettings& sip = shell::segment().sip;
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::refuse_as_illegal);
  ask.number("SIP Port Number?<%d>(1024~65535):", sip.sip_port, {1024, 65535});
  ask.number("Session Timer?<%d>(1~65535):", sip.session_timer, {1, 65535});
  const auto start = ask.number("Media Port Start?<%d>(1024~65535):", sip.media_port_start, {1024, 65535});
  const auto end = ask.number("Media Port End?<%d>(1024~65535):", sip.media_port_end, {1024, 65535});
  if (start > end) {
    ask.refuse(shell::message::port_range);
  }
  ask.number("RTCP Port?<%d>(1024~65535):", sip.rtcp_port, {1024, 65535});
  ask.choice("SIP Transport by?<%d>(1:UDP,2:TCP):", sip.sip_transport, "12");
  ask.number("SIP Time Interval?<%d>(100~1000):", sip.sip_time_interval, {100, 1000});
  ask.number("Timeout for Invite?<%d>(1~100):", sip.invite_timeout, {1, 100});
  ask.number("Timeout for Ring Back?<%d>(1~1000):", sip.ring_back_timeout, {1, 1000});
  ask.number("Timeout for Release?<%d>(4~10):", sip.release_timeout, {4, 10});
  ask.number("Registration Retry Count?<%d>(0~65535):", sip.registration_retry_count, {0, 65535});
  ask.number("Registration Retry Interval?<%d>(0~65535):", sip.registration_retry_interval, {0, 65535});
  ask.number("PING Interval?<%d>(0~65535):", sip.ping_interval, {0, 65535});
  ask.text("Host Name?<%s>(MAX Character:35):", sip.sip_host_name,
           {.unfit = shell::TextRule::Unfit::leaves_empty, .max = 35});

  shell::commit_and_signal_voice_daemon(ask);
}

}  // namespace menus::sip
