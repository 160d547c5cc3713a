// The SIP account of each telephone line, with its servers.
#include <tuple>

#include "menus/sip/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::sip {
namespace {

// Where a prompt announces more characters than its field holds, the field is the limit.
constexpr shell::TextRule as_it_fits = {.unfit = shell::TextRule::Unfit::leaves_empty};
constexpr shell::TextRule up_to(std::uint16_t characters) {
  return {.unfit = as_it_fits.unfit, .max = characters};
}

using Settings = config::ConfigurationSegment;
static_assert(std::tuple_size_v<decltype(Settings::sip_line)> ==
              std::tuple_size_v<decltype(Settings::sip_server)>);

// What a switch turns off is not asked for and does not stay behind: a disabled line keeps no credentials.
void ask_line(shell::Dialogue& ask, std::size_t number, config::SipLine& line, config::SipServer& server) {
  ask.about(number);
  if (ask.choice("Phone %d Enable?<%d>(0:Disable,1:Enable):", line.phone_enable, "01") == 0) {
    ask.note_zero(line.phone_number, line.display_name, line.auth_user_name, line.auth_password,
                  line.p_asserted_enable, line.asserted_identity_uri, line.asserted_identity_display_name,
                  line.mwi_user_name, line.mwi_auth_user_name, line.mwi_auth_password,
                  line.mwi_refresh_timeout);
    ask.note_zero(server.sip_domain_name, server.registrar_address, server.registrar_port,
                  server.use_outbound_proxy, server.proxy_address, server.proxy_port,
                  server.outbound_proxy_address, server.outbound_proxy_port, server.dns_srv_support);
    return;
  }
  ask.text("Phone Number?<%s>(MAX Character:15):", line.phone_number, up_to(15));
  ask.text("Display Name?<%s>(MAX Character:35):", line.display_name, as_it_fits);
  ask.text("Authentication User Name?<%s>(MAX Character:35):", line.auth_user_name, as_it_fits);
  ask.text("Authentication Password?<%s>(MAX Character:23):", line.auth_password, as_it_fits);
  ask.text("MWI User Name?<%s>(MAX Character:35):", line.mwi_user_name, as_it_fits);
  ask.text("MWI Authentication User Name?<%s>(MAX Character:35):", line.mwi_auth_user_name, as_it_fits);
  ask.text("MWI Authentication Password?<%s>(MAX Character:23):", line.mwi_auth_password, up_to(23));
  // The prompt promises more than is accepted.
  ask.number("MWI Reflash Timeout?<%d>(1~65535):", line.mwi_refresh_timeout, {60, 65535});
  if (ask.choice("P-Asserted Enable?<%d>(0:Disable,1:Enable):", line.p_asserted_enable, "01") == 0) {
    ask.note_zero(line.asserted_identity_uri, line.asserted_identity_display_name);
  } else {
    ask.text("Asserted Identity URI?<%s>(MAX Character:35):", line.asserted_identity_uri, as_it_fits);
    ask.text("Asserted Identity Display Name?<%s>(MAX Character:35):", line.asserted_identity_display_name,
             as_it_fits);
  }
  ask.text("SIP Domain Name?<%s>(MAX Character:127):", server.sip_domain_name, as_it_fits);
  ask.text("Registar Server Address?<%s>(MAX Character:63):", server.registrar_address, as_it_fits);
  ask.number("Registar Server Port?<%d>(1024~65535):", server.registrar_port, {1024, 65535});
  ask.text("Proxy Server Address?<%s>(MAX Character:63):", server.proxy_address, as_it_fits);
  ask.number("Proxy Server Port?<%d>(1024~65535):", server.proxy_port, {1024, 65535});
  if (ask.choice("Use Outbound Proxy for Session?<%d>(0:Disable,1:Enable):", server.use_outbound_proxy,
                 "01") == 0) {
    ask.note_zero(server.outbound_proxy_address, server.outbound_proxy_port);
  } else {
    ask.text("Outbound Proxy Server Address?<%s>(MAX Character:63):", server.outbound_proxy_address,
             as_it_fits);
    ask.number("Outbound Proxy Server Port?<%d>(1024~65535):", server.outbound_proxy_port, {1024, 65535});
  }
  ask.choice("DNS SRV support?<%d>(0:Disable,1:Enable):", server.dns_srv_support, "01");
}

}  // namespace

void account_setting() {
  Settings& settings = shell::segment();
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::refuse_as_illegal);
  ask.number("Authentication Expire Time?<%d>(60~65535):", settings.auth_expire_time, {60, 65535});
  for (std::size_t i = 0; i < settings.sip_line.size(); ++i) {
    ask_line(ask, i, settings.sip_line[i], settings.sip_server[i]);
  }

  shell::commit_and_signal_voice_daemon(ask);
}

}  // namespace menus::sip
