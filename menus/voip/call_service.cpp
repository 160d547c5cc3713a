// The call features: transfer, hunting and repeat for both telephone ports, then forwarding, do not disturb
// and the hot line of each.
#include "menus/voip/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/output.h"
#include "shell/session.h"

namespace menus::voip {
namespace {

void ask_phone(shell::Dialogue& ask, std::size_t number, config::PhoneCallService& phone) {
  constexpr shell::TextRule as_typed = {.with_line_feed = true};
  ask.about(number);
  ask.number(
      "Call Service Phone %d Call_Transfer_Option?\n0:Restricted\n1:Allowd\n2:User Invovation Required\n"
      "Call_Transfer_Option?<%d>:",
      phone.Call_Transfer_Option, {0, 2});
  ask.number(
      "Call Service Phone %d call_forward_option?\n0:Restricted\n1:Allowd\n2:User Invovation Required\n"
      "call_forward_option?<%d>:",
      phone.call_forward_option, {0, 2});
  ask.text("Call Service Phone %d call_forward_always_uri?\n<%s>\n:", phone.call_forward_always_uri,
           as_typed);
  ask.text("Call Service Phone %d call_forward_busy_uri?\n<%s>\n:", phone.call_forward_busy_uri, as_typed);
  ask.text("Call Service Phone %d call_forward_noans_uri?\n<%s>\n:", phone.call_forward_noans_uri, as_typed);
  // Not held to the range it shows: the field keeps the low 16 bits.
  ask.number("Call Service Phone %d call_forward_noans_timeout?<%d(sec) >( 0~65535(sec) ):",
             phone.call_forward_noans_timeout, {0, UINT32_MAX});
  ask.number("Call Service Phone %d call_dnd_enable?<%d>( 0:disable, 1:enable ):", phone.call_dnd_enable,
             {0, 1});
  ask.number("Call Service Phone %d call_hotline_enable?<%d>( 0:disable, 1:enable ):",
             phone.call_hotline_enable, {0, 1});
  ask.text("Call Service Phone %d call_hotline_number?\n<%s>\n:", phone.call_hotline_number, as_typed);
  ask.number("Call Service Phone %d call_repeat_enable?<%d>( 0:disable, 1:enable ):",
             phone.call_repeat_enable, {0, 1});
}

}  // namespace

void call_service() {
  config::CallServiceSettings& service = shell::segment().call_service;
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::ask_again);
  ask.choice("Call Service Call Service Enable?<%d>(0:Disable, 1:Enable):", service.call_service_enable,
             "01");
  ask.number("Call Service  Transfer Timeout?<%d>(10-100):", service.call_transfer_timeout, {10, 100});
  ask.choice("Call Service  Hunting Enable?<%d>(0:diable 1:enable):", service.call_hunting_enable, "01");
  const auto hunting_timeout =
      ask.number("Call Service  Hunting Timeout?<%d>(5~180):", service.call_hunting_timeout, {5, 180},
                 {.no_empty_line = true});
  if (!ask.ended()) {
    shell::put("call_hunting_timeout=", shell::Number(hunting_timeout), " \n");
  }
  ask.number("Call Service  Repeat Timeout?<%d>(1~300):", service.call_repeat_timeout, {1, 300});
  for (std::size_t i = 0; i < service.phone_call_service.size(); ++i) {
    ask_phone(ask, i, service.phone_call_service[i]);
  }

  shell::commit_and_signal_voice_daemon(ask);
}

}  // namespace menus::voip
