// The configuration segment: the shared-memory record of all settings of the device.
//
// The web server, the voice daemon and the network scripts read the same bytes, so every offset here is a
// promise to them; config/field_table.cpp checks each one. A member named reserved_OFFSET is not the
// console's: it belongs to the other programs and is never written. OFFSET counts from the start of the
// segment in a block, from the start of the record in a table's record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "config/values.h"

namespace config {

template <std::size_t N>
using Reserved = std::array<std::uint8_t, N>;

// ---- Basic network settings ----

// A dialled tunnel to the provider. Other programs know its fields as pptp_account, l2tp_account and so on.
struct TunnelSettings {
  Text<128> account;
  Text<128> password;
  std::uint8_t connect_type;  // 0 keep alive, 2 manual on
  Reserved<3> reserved_257;
  std::int32_t max_idle_time;  // 0 to 9999
  Text<128> server;
  std::uint8_t type;  // 0 dynamic, 1 static; 0 clears the next three
  Reserved<3> reserved_393;
  Ipv4 static_ip;
  Ipv4 netmask;
  Ipv4 gateway;
};

enum WanType : std::uint8_t {
  wan_static_ip,
  wan_dhcp,
  wan_pppoe,
  wan_pptp,
  wan_l2tp,
  wan_bigpond,
  wan_types  // how many there are
};

struct WanSettings {
  std::uint8_t wan_mac_type;  // 0 default, 1 manual
  Mac wan_mac;
  Text<128> host_name;
  Text<128> domain_name;
  std::uint8_t wan_type;  // a WanType

  Ipv4 static_ip;
  Ipv4 static_gateway;
  Ipv4 static_netmask;
  Ipv4 static_broadcast;  // computed

  Text<128> pppoe_user_name;
  Text<128> pppoe_password;
  std::uint8_t pppoe_connect_type;  // 0 keep alive, 2 manual on
  Reserved<3> reserved_561;
  std::int32_t pppoe_max_idle_time;  // 0 to 9999
  std::uint8_t pppoe_type;           // 0 dynamic, 1 static
  Reserved<3> reserved_569;
  Ipv4 pppoe_static_ip;  // 0 when dynamic
  Text<128> pppoe_service_name;

  TunnelSettings pptp;
  TunnelSettings l2tp;

  Text<64> bigpond_account;
  Text<64> bigpond_password;
  std::uint8_t bigpond_auth_server;  // 0 sm-server, 1 dec-server
  Text<128> bigpond_server;
  Reserved<3> reserved_1777;

  std::int32_t static_mtu;  // 512 to 1500
  Reserved<4> reserved_1784;
  std::int32_t dhcp_mtu;  // 512 to 1500
  Reserved<4> reserved_1792;
  std::int32_t pppoe_mtu;  // 512 to 1492
  Reserved<4> reserved_1800;
  std::int32_t pptp_mtu;  // 512 to 1400
  Reserved<4> reserved_1808;
  std::int32_t l2tp_mtu;  // 512 to 1400
  Reserved<4> reserved_1816;

  std::uint8_t dns_mode;  // 0 manual, 1 automatic
  Reserved<3> reserved_1821;
  Ipv4 primary_dns;
  Ipv4 secondary_dns;
  std::uint8_t wan_ping_enable;
  Reserved<15> reserved_1833;
};

struct LanSettings {
  Ipv4 lan_ip;
  Ipv4 lan_netmask;
  Ipv4 lan_broadcast;  // computed
  std::uint8_t dns_proxy_enable;
  Reserved<3> reserved_1861;
};

// The first byte of every rule record.
constexpr std::uint8_t free_slot = 255;

struct StaticDhcpClient {
  std::uint8_t enable;  // 0 disabled, 1 enabled, free_slot
  Mac mac;
  Reserved<1> reserved_7;
  Ipv4 ip;
  Text<32> description;
};

struct DhcpSettings {
  std::uint8_t dhcp_server_enable;
  Reserved<3> reserved_1865;
  Ipv4 dhcp_start_ip;
  Ipv4 dhcp_end_ip;
  std::uint32_t dhcp_lease_time;  // seconds
  std::array<StaticDhcpClient, 32> static_dhcp_table;
};

// ---- Advanced network settings ----

struct Schedule {
  std::uint8_t schedule_mode;  // 0 always, 1 by schedule
  std::uint8_t start_hour;
  std::uint8_t start_minute;  // a multiple of 5
  std::uint8_t end_hour;
  std::uint8_t end_minute;
  std::array<char, 7> week_mask;  // '1' on the rule's days, Sunday first; no NUL
};

struct StaticRoute {
  std::uint8_t enable;
  std::uint8_t route_type;  // 0 net, 1 host
  Reserved<2> reserved_2;
  Ipv4 route_target;
  Ipv4 route_netmask;
  Ipv4 route_gateway;
};

struct NatSettings {
  std::uint8_t nat_enable;
  Reserved<1> reserved_3801;
  std::uint8_t ipsec_pass_through;
  std::uint8_t pptp_pass_through;
  std::uint8_t l2tp_pass_through;
  std::uint8_t sip_alg;
  std::uint8_t netmeeting_alg;
  std::uint8_t dmz_enable;
  Ipv4 dmz_ip;  // 0 while the DMZ is disabled
};

// Protocol numbers in the rule records: 0 TCP, 1 UDP, 2 both; in the firewall also 3 ICMP, 4 all.

struct VirtualServer {
  std::uint8_t enable;
  Reserved<1> reserved_1;
  std::uint16_t public_port;
  std::uint8_t protocol;
  Reserved<3> reserved_5;
  Ipv4 private_ip;
  std::uint16_t private_port;
  Schedule schedule;
  Reserved<2> reserved_26;
};

struct SpecialApplication {
  std::uint8_t enable;
  Reserved<1> reserved_1;
  std::uint16_t trigger_port;
  std::uint8_t trigger_type;
  Reserved<1> reserved_5;
  std::uint16_t public_port_start;
  std::uint16_t public_port_end;
  std::uint8_t public_type;
  Schedule schedule;
  Reserved<1> reserved_23;
};

struct FirewallRule {
  std::uint8_t enable;
  std::uint8_t action;         // 0 deny, 1 allow
  std::uint8_t src_interface;  // 0 WAN, 1 LAN, 2 all
  Reserved<1> reserved_3;
  Ipv4 src_ip_start;
  Ipv4 src_ip_end;
  std::uint8_t dst_interface;
  Reserved<3> reserved_13;
  Ipv4 dst_ip_start;
  Ipv4 dst_ip_end;
  std::uint16_t dst_port_start;  // both 0 for ICMP and all
  std::uint16_t dst_port_end;
  std::uint8_t protocol;
  Schedule schedule;
  Reserved<3> reserved_41;
};

struct IpFilter {
  std::uint8_t enable;
  Reserved<3> reserved_1;
  Ipv4 start_ip;
  Ipv4 end_ip;
  std::uint16_t start_port;
  std::uint16_t end_port;
  std::uint8_t protocol;
  Schedule schedule;
  Reserved<3> reserved_29;
};

struct MacFilter {
  std::uint8_t enable;
  Mac mac_address;
  Schedule schedule;
  Reserved<5> reserved_19;
};

struct StringFilter {
  std::uint8_t enable;
  Reserved<3> reserved_1;
  Ipv4 start_ip;
  Ipv4 end_ip;
  Text<256> filter_string;
  Reserved<4> reserved_268;
};

using StringFilterTable = std::array<StringFilter, 32>;

// ---- Tools ----

struct DdnsSettings {
  std::uint8_t ddns_enable;
  std::uint8_t ddns_server_type;  // 0 dyndns, 1 no-ip, 2 easydns, 3 quarlddns
  Text<32> ddns_user_name;
  Text<32> ddns_password;
  Text<128> ddns_host;
};

struct AdminLogin {
  Text<32> admin_user_name;  // the login compares at most 31 characters
  Reserved<278> reserved_26328;
  Text<32> admin_password;
};

struct DateTimeSettings {
  std::uint8_t date_time_set_by;  // 0 manual, 1 NTP
  Text<128> ntp_server;
  std::uint8_t time_zone;  // 0 to 24, hours from GMT + 12
};

// ---- SIP ----

struct SipSettings {
  std::uint16_t sip_port;  // 1024 to 65535
  Reserved<2> reserved_27826;
  std::uint16_t session_timer;     // 1 to 65535
  std::uint16_t media_port_start;  // 1024 to 65535, RTP
  std::uint16_t media_port_end;
  std::uint16_t rtcp_port;
  std::uint8_t sip_transport;  // 1 UDP, 2 TCP
  Reserved<1> reserved_27837;
  std::uint16_t sip_time_interval;  // 100 to 1000
  std::uint16_t invite_timeout;     // 1 to 100
  std::uint16_t ring_back_timeout;  // 1 to 1000
  std::uint16_t release_timeout;    // 4 to 10
  std::uint16_t registration_retry_count;
  std::uint16_t registration_retry_interval;
  std::uint16_t ping_interval;
  Text<40> sip_host_name;  // at most 35 characters from the console
};

struct SipLine {
  std::uint8_t phone_enable;  // 0: everything else of the line is zero or empty
  Text<32> phone_number;      // at most 15 characters from the console
  Text<32> display_name;
  Text<32> auth_user_name;
  Text<24> auth_password;
  std::uint8_t p_asserted_enable;
  Text<32> asserted_identity_uri;
  Text<33> asserted_identity_display_name;
  Text<32> mwi_user_name;
  Text<32> mwi_auth_user_name;
  Text<25> mwi_auth_password;         // at most 23 characters from the console
  std::uint16_t mwi_refresh_timeout;  // 60 to 65535
  Reserved<2> reserved_278;
};

struct SipServer {
  Text<128> sip_domain_name;
  Text<64> registrar_address;
  std::uint16_t registrar_port;  // 1024 to 65535, as the other two ports
  std::uint8_t use_outbound_proxy;
  Text<64> proxy_address;
  Reserved<1> reserved_259;
  std::uint16_t proxy_port;
  Text<64> outbound_proxy_address;
  std::uint16_t outbound_proxy_port;
  std::uint8_t dns_srv_support;
  Reserved<3> reserved_329;
};

struct NatTraversalSettings {
  Reserved<1> reserved_29120;
  std::uint8_t stun_enable;
  Text<64> stun_server;  // empty while STUN is disabled
  std::uint8_t sip_upnp_enable;
};

// ---- VoIP ----

// Texts typed in the call-service menu are stored with the line feed that ended them.
struct PhoneCallService {
  std::uint8_t Call_Transfer_Option;  // 0 restricted, 1 allowed, 2 user invocation required
  std::uint8_t call_forward_option;   // the same
  Text<128> call_forward_always_uri;
  Text<128> call_forward_busy_uri;
  Text<128> call_forward_noans_uri;
  Reserved<384> reserved_386;
  std::uint16_t call_forward_noans_timeout;  // seconds
  std::uint8_t call_dnd_enable;
  Reserved<3> reserved_773;
  std::uint8_t call_hotline_enable;
  Text<128> call_hotline_number;
  Reserved<128> reserved_905;
  std::uint8_t call_repeat_enable;
  Reserved<2> reserved_1034;
};

struct CallServiceSettings {
  std::uint8_t call_service_enable;
  Reserved<1> reserved_29241;
  std::uint8_t call_transfer_timeout;  // 10 to 100
  std::uint8_t call_hunting_enable;
  std::uint8_t call_hunting_timeout;  // 5 to 180
  Reserved<1> reserved_29245;
  std::uint16_t call_repeat_timeout;  // 1 to 300
  std::array<PhoneCallService, 2> phone_call_service;
};

struct PhonePort {
  std::uint8_t ring_impedance;  // 1 to 8
  Reserved<1> reserved_1;
  std::uint16_t hook_flash_detect_ubound;  // 100 to 3000
  std::uint16_t hook_flash_detect_lbound;  // 100 to 3000
  std::uint8_t voice_tx_level;             // 3 to 7
  std::uint8_t voice_rx_level;             // 3 to 7
};

struct PhoneSettings {
  std::uint8_t Tone_Setting;          // 0 default, 1 Taiwan, 2 China, 3 US, 4 Japan, 5 India
  std::uint8_t callerid_type;         // 0 disable, 1 DTMF, 2 FSK Bellcore, 3 FSK ETSI, 4 and 5 Japan, 6 BT
  std::uint8_t callerid_power_level;  // 0 to 20
  std::uint8_t callerid_baring;       // 0 before the ring, 1 after it
  std::uint8_t callerid_t1_alertsig;  // 0 no alert, 1 DTAS, 2 RPAS, 3 LR, 4 LR-DTAS
  std::uint8_t callerid_t2_alertsig;
  std::array<PhonePort, 2> phone_port;
};

struct FaxPort {
  std::uint8_t t38_option;  // 0 voice, 1 T.38 relay, 2 voice and T.38 relay, 3 voice and pass-through
};

struct FaxQosSettings {
  std::array<FaxPort, 2> fax_port;
  Reserved<2> reserved_35274;
  std::uint8_t qos_type;    // 0 TOS, 1 DiffServ
  std::uint8_t sip_tos;     // 0, 2, 4, 8 or 16
  std::uint8_t rtp_tos;     // the same
  std::uint8_t pri_enable;  // 0 TOS, 1 802.1p priority
  std::uint8_t pri_voice;   // 0 to 7
  Reserved<3> reserved_35281;
  std::uint32_t vlan_voice;  // 0 to 1023
  std::uint8_t pri_data;     // 0 to 7
  Reserved<3> reserved_35289;
  std::uint32_t vlan_data;  // 0 to 1023
};

struct PhoneBookEntry {
  static constexpr std::uint8_t no_dial_key = 10;

  std::uint8_t dial_key;   // 0 to 9, or no_dial_key
  Text<128> phone_number;  // empty marks a free entry
  Text<259> note;
};

struct CallScreenEntry {
  std::uint8_t screen_list;  // 0 to 3, the list that holds the entry; free_slot
  std::uint8_t screen_type;  // 0 in, 1 out
  Text<130> screen_number;
};

// ---- The whole ----

struct ConfigurationSegment {
  static constexpr std::int32_t key = 5678;

  Reserved<24> reserved_0;
  WanSettings wan;
  LanSettings lan;
  DhcpSettings dhcp;
  std::array<StaticRoute, 32> static_route_table;
  NatSettings nat;
  std::array<VirtualServer, 32> virtual_server_table;
  std::array<SpecialApplication, 32> special_application_table;
  std::uint8_t firewall_enable;
  std::uint8_t ip_filter_enable;
  std::uint8_t mac_filter_enable;
  Reserved<1> reserved_5479;
  std::array<FirewallRule, 32> firewall_rule_table;
  std::array<IpFilter, 32> ip_filter_table;
  std::array<MacFilter, 32> mac_filter_table;
  std::uint8_t url_filter_enable;
  Reserved<3> reserved_8681;
  StringFilterTable url_filter_table;
  std::uint8_t domain_filter_enable;
  Reserved<3> reserved_17389;
  StringFilterTable domain_filter_table;
  Reserved<1> reserved_26096;
  std::uint8_t upnp_enable;
  Reserved<2> reserved_26098;
  DdnsSettings ddns;
  Reserved<2> reserved_26294;
  AdminLogin admin;
  Reserved<406> reserved_26638;
  DateTimeSettings date_time;
  Reserved<650> reserved_27174;
  SipSettings sip;
  std::array<SipLine, 2> sip_line;
  std::uint16_t auth_expire_time;  // 60 to 65535, both lines
  Reserved<2> reserved_28454;
  std::array<SipServer, 2> sip_server;
  NatTraversalSettings nat_traversal;
  Reserved<53> reserved_29187;
  CallServiceSettings call_service;
  Reserved<2> reserved_31320;
  PhoneSettings phone;
  Reserved<868> reserved_31344;
  std::uint8_t e164_call_enable;
  Reserved<3059> reserved_32213;
  FaxQosSettings fax_qos;
  std::array<PhoneBookEntry, 50> phone_book;
  std::array<std::array<CallScreenEntry, 10>, 4> call_screen;
};

static_assert(std::is_trivial_v<ConfigurationSegment> && std::is_standard_layout_v<ConfigurationSegment>);
static_assert(sizeof(ConfigurationSegment) == 59976);
// No padding anywhere: every byte is a named one.
static_assert(std::has_unique_object_representations_v<ConfigurationSegment>);

}  // namespace config
