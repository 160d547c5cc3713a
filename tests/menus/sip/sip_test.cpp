#include <cstring>

#include "support/dialogue.h"

namespace tests::sip_test {

const Item basic_setting = {"SIP setting", "Basic Setting"};
const Item account_setting = {"SIP setting", "Account Setting"};
const Item nat_traversal = {"SIP setting", "NAT Traversal"};

TEST(Sip, Basic) {
  auto& sip = fields.sip;
  Dialogue dialogue = {.item = basic_setting, .refusals = Refusals::as_illegal, .ending = save_and_tell_daemon};
  dialogue.questions = {
      Question(sip.sip_port, 5060, "SIP Port Number?<%d>(1024~65535):", number(1024, 65535)),
      Question(sip.session_timer, 1800, "Session Timer?<%d>(1~65535):", number(1, 65535)),
      Question(sip.media_port_start, 10000, "Media Port Start?<%d>(1024~65535):", number(1024, 65535)),
      Question(sip.media_port_end, 20000, "Media Port End?<%d>(1024~65535):", number(1024, 65535)),
      Question(sip.rtcp_port, 5005, "RTCP Port?<%d>(1024~65535):", number(1024, 65535)),
      Question(sip.sip_transport, 1, "SIP Transport by?<%d>(1:UDP,2:TCP):", one_of("12")),
      Question(sip.sip_time_interval, 500, "SIP Time Interval?<%d>(100~1000):", number(100, 1000)),
      Question(sip.invite_timeout, 60, "Timeout for Invite?<%d>(1~100):", number(1, 100)),
      Question(sip.ring_back_timeout, 180, "Timeout for Ring Back?<%d>(1~1000):", number(1, 1000)),
      Question(sip.release_timeout, 5, "Timeout for Release?<%d>(4~10):", number(4, 10)),
      Question(sip.registration_retry_count, 3, "Registration Retry Count?<%d>(0~65535):", number(0, 65535)),
      Question(sip.registration_retry_interval, 30, "Registration Retry Interval?<%d>(0~65535):", number(0, 65535)),
      Question(sip.ping_interval, 20, "PING Interval?<%d>(0~65535):", number(0, 65535)),
      Question(sip.sip_host_name, "gateway", "Host Name?<%s>(MAX Character:35):", text(35),
               {.too_long = TooLong::empties}),
  };
  hold(basic_setting, hold(dialogue),
       {Visit({{"Media Port Start", "20001"}}, "End?<20000>(1024~65535):Port Range Error!!\n\n"),
        Visit({{"Media Port Start", "20000"}}, save_and_tell_daemon, "media_port_start=20000")});
}

std::vector<Question> questions_of_line(std::size_t i) {
  auto& line = fields.sip_line[i];
  auto& server = fields.sip_server[i];
  const Departures empties = {.too_long = TooLong::empties}, only_on = {.only = {"1"}};
  return {
      Question(line.phone_enable, 1, "Phone " + std::to_string(i) + " Enable?<%d>(0:Disable,1:Enable):", one_of("01"),
               only_on),
      Question(line.phone_number, i == 0 ? "5" : "6", "Phone Number?<%s>(MAX Character:15):", text(15), empties),
      // From here on some prompts announce more characters than their fields hold.
      Question(line.display_name, "d", "Display Name?<%s>(MAX Character:35):", text(31), empties),
      Question(line.auth_user_name, "u", "Authentication User Name?<%s>(MAX Character:35):", text(31), empties),
      Question(line.auth_password, "pw", "Authentication Password?<%s>(MAX Character:23):", text(23), empties),
      Question(line.mwi_user_name, "m", "MWI User Name?<%s>(MAX Character:35):", text(31), empties),
      Question(line.mwi_auth_user_name, "ma", "MWI Authentication User Name?<%s>(MAX Character:35):", text(31),
               empties),
      Question(line.mwi_auth_password, "mp", "MWI Authentication Password?<%s>(MAX Character:23):", text(23), empties),
      Question(line.mwi_refresh_timeout, 9 + i, "MWI Reflash Timeout?<%d>(1~65535):", number(60, 65535)),
      Question(line.p_asserted_enable, 1, "P-Asserted Enable?<%d>(0:Disable,1:Enable):", one_of("01"), only_on),
      Question(line.asserted_identity_uri, "i", "Asserted Identity URI?<%s>(MAX Character:35):", text(31), empties),
      Question(line.asserted_identity_display_name, "j",
               "Asserted Identity Display Name?<%s>(MAX Character:35):", text(32), empties),
      Question(server.sip_domain_name, "s", "SIP Domain Name?<%s>(MAX Character:127):", text(127), empties),
      Question(server.registrar_address, "r", "Registar Server Address?<%s>(MAX Character:63):", text(63), empties),
      Question(server.registrar_port, 0 + i, "Registar Server Port?<%d>(1024~65535):", number(1024, 65535)),
      Question(server.proxy_address, "p", "Proxy Server Address?<%s>(MAX Character:63):", text(63), empties),
      Question(server.proxy_port, 5060 + i, "Proxy Server Port?<%d>(1024~65535):", number(1024, 65535)),
      Question(server.use_outbound_proxy, 1, "Use Outbound Proxy for Session?<%d>(0:Disable,1:Enable):", one_of("01"),
               only_on),
      Question(server.outbound_proxy_address, "o", "Outbound Proxy Server Address?<%s>(MAX Character:63):", text(63),
               empties),
      Question(server.outbound_proxy_port, 5062 + i,
               "Outbound Proxy Server Port?<%d>(1024~65535):", number(1024, 65535)),
      Question(server.dns_srv_support, 1 + i, "DNS SRV support?<%d>(0:Disable,1:Enable):", one_of("01")),
  };
}

TEST(Sip, Accounts) {
  Dialogue accounts = {.item = account_setting, .refusals = Refusals::as_illegal, .ending = save_and_tell_daemon};
  accounts.questions = std::vector{Question(fields.auth_expire_time, 3600,
                                            "Authentication Expire Time?<%d>(60~65535):", number(60, 65535))} +
                       questions_of_line(0) + questions_of_line(1);
  // Other programs may store another value than 1 for on.
  FactoryDevice device = hold(accounts);
  device.set("sip_line[0].phone_enable", "2").set("sip_line[0].p_asserted_enable", "3");
  hold(account_setting, device.set("sip_server[0].use_outbound_proxy", "255"),
       {Visit({}, save_and_tell_daemon),
        Visit({{"Phone 1 Enable", ""}, {"P-Asserted Enable", "0"}, {"Use Outbound Proxy", "0"}}, save_and_tell_daemon,
              "sip_line[1].p_asserted_enable=0 sip_line[1].asserted_identity_uri= "
              "sip_line[1].asserted_identity_display_name= sip_server[1].use_outbound_proxy=0 "
              "sip_server[1].outbound_proxy_address= sip_server[1].outbound_proxy_port=0")});
}

// A line that is switched off is cleared, to the last byte, and not asked about.
TEST(Sip, ADisabledAccount) {
  FactoryDevice device;
  std::memset(&device.settings.sip_line, 'x', sizeof device.settings.sip_line);
  std::memset(&device.settings.sip_server, 'x', sizeof device.settings.sip_server);
  visit(device, account_setting, {{"Expire", "60"}, {"Phone 0", "0"}, {"Phone 1", "0"}});
  EXPECT_EQ(differences(FactoryDevice().set("auth_expire_time", "60").settings, device.settings),
            "sip_line[0].reserved_278=xx sip_line[1].reserved_278=xx sip_server[0].reserved_259=x "
            "sip_server[1].reserved_259=x sip_server[0].reserved_329=xxx sip_server[1].reserved_329=xxx");
}

TEST(Sip, NatTraversal) {
  auto& nat = fields.nat_traversal;
  const string asked = "STUN Enable?<%d>(0:Disable,1:Enable):";
  Dialogue stun = {.item = nat_traversal, .refusals = Refusals::as_illegal, .ending = save_and_tell_daemon};
  Dialogue upnp = stun;
  stun.questions = {
      Question(nat.stun_enable, 1, asked, one_of("01"), {.only = {"1"}}),
      Question(nat.stun_server, "old", "STUN Server IP/URL?<%s>:", text(63), {.too_long = TooLong::empties}),
  };
  upnp.questions = {
      Question(nat.stun_enable, 0, asked, one_of("01"), {.only = {"0"}}),
      Question(nat.sip_upnp_enable, 1, "UPNP Enable?<%d>(0:Disable,1:Enable):", one_of("01")),
  };
  hold(upnp);

  hold(nat_traversal, hold(stun).set("stun_enable", "2").set("sip_upnp_enable", "1"),
       {Visit({{"STUN Server", ""}}, save_and_tell_daemon, "sip_upnp_enable=0"),
        Visit({{"STUN Enable", "0"}, {"UPNP", ""}}, save_and_tell_daemon, "stun_enable=0 stun_server=")});
}

}  // namespace tests::sip_test
