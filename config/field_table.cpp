#include "config/field_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <type_traits>
#include <utility>

namespace config {
namespace {

using Kind = Field::Kind;

template <typename T>
struct KindOf;
template <>
struct KindOf<std::uint8_t> : std::integral_constant<Kind, Kind::u8> {};
template <>
struct KindOf<std::uint16_t> : std::integral_constant<Kind, Kind::u16> {};
template <>
struct KindOf<std::uint32_t> : std::integral_constant<Kind, Kind::u32> {};
template <>
struct KindOf<std::int32_t> : std::integral_constant<Kind, Kind::i32> {};
template <>
struct KindOf<Ipv4> : std::integral_constant<Kind, Kind::ipv4> {};
template <>
struct KindOf<Mac> : std::integral_constant<Kind, Kind::mac> {};
template <std::size_t N>
struct KindOf<Text<N>> : std::integral_constant<Kind, Kind::text> {};
template <std::size_t N>
struct KindOf<std::array<char, N>> : std::integral_constant<Kind, Kind::letters> {};
template <std::size_t N>
struct KindOf<Reserved<N>> : std::integral_constant<Kind, Kind::reserved> {};

// Not constexpr on purpose: reaching it in a constant expression stops the build.
void offset_differs_from_what_other_programs_rely_on() {}

consteval std::string_view last_component(std::string_view path) {
  return path.substr(path.rfind('.') + 1);  // npos + 1 is 0
}

consteval std::string_view first_component(std::string_view path) {
  return path.substr(0, path.find('.'));
}

template <typename T>
consteval Field checked(std::string_view table, std::string_view path, std::size_t expected,
                        std::size_t actual, std::size_t count, std::size_t stride) {
  if (expected != actual) {
    offset_differs_from_what_other_programs_rely_on();
  }
  return {first_component(table.empty() ? path : table),
          last_component(table),
          last_component(path),
          expected,
          KindOf<T>::value,
          sizeof(T),
          count,
          stride};
}

// NOLINTNEXTLINE(bugprone-macro-parentheses): a type
#define MEMBER_TYPE(record, path) std::remove_cvref_t<decltype(std::declval<record&>().path)>

// A single field or reserved range, with the offset that is promised.
#define ONE(expected, path)                                                                 \
  checked<MEMBER_TYPE(ConfigurationSegment, path)>({}, #path, expected,                     \
                                                   offsetof(ConfigurationSegment, path), 1, \
                                                   sizeof(MEMBER_TYPE(ConfigurationSegment, path)))

// A field of a tunnel: the tunnel's promised offset and the field's within it. Its name has the tunnel in it.
#define TUNNEL_FIELD(expected, path, relative, member, name)                      \
  checked<MEMBER_TYPE(TunnelSettings, member)>(                                   \
      {}, name, (expected) + (relative),                                          \
      offsetof(ConfigurationSegment, path) + offsetof(TunnelSettings, member), 1, \
      sizeof(MEMBER_TYPE(TunnelSettings, member)))

#define TUNNEL(expected, path, first_reserved, second_reserved)                 \
  TUNNEL_FIELD(expected, path, 0, account, #path "_account"),                   \
      TUNNEL_FIELD(expected, path, 128, password, #path "_password"),           \
      TUNNEL_FIELD(expected, path, 256, connect_type, #path "_connect_type"),   \
      TUNNEL_FIELD(expected, path, 257, reserved_257, first_reserved),          \
      TUNNEL_FIELD(expected, path, 260, max_idle_time, #path "_max_idle_time"), \
      TUNNEL_FIELD(expected, path, 264, server, #path "_server"),               \
      TUNNEL_FIELD(expected, path, 392, type, #path "_type"),                   \
      TUNNEL_FIELD(expected, path, 393, reserved_393, second_reserved),         \
      TUNNEL_FIELD(expected, path, 396, static_ip, #path "_static_ip"),         \
      TUNNEL_FIELD(expected, path, 400, netmask, #path "_netmask"),             \
      TUNNEL_FIELD(expected, path, 404, gateway, #path "_gateway")

// One column of a table of records: the table's promised offset and the column's within the record.
#define COLUMN(expected, path, record, relative, member)                                                 \
  checked<MEMBER_TYPE(record, member)>(#path, #member, (expected) + (relative),                          \
                                       offsetof(ConfigurationSegment, path) + offsetof(record, member),  \
                                       sizeof(MEMBER_TYPE(ConfigurationSegment, path)) / sizeof(record), \
                                       sizeof(record))

#define SCHEDULE(expected, path, record, relative)                           \
  COLUMN(expected, path, record, relative, schedule.schedule_mode),          \
      COLUMN(expected, path, record, (relative) + 1, schedule.start_hour),   \
      COLUMN(expected, path, record, (relative) + 2, schedule.start_minute), \
      COLUMN(expected, path, record, (relative) + 3, schedule.end_hour),     \
      COLUMN(expected, path, record, (relative) + 4, schedule.end_minute),   \
      COLUMN(expected, path, record, (relative) + 5, schedule.week_mask)

#define STRING_FILTER(expected, path)                                                                     \
  COLUMN(expected, path, StringFilter, 0, enable), COLUMN(expected, path, StringFilter, 1, reserved_1),   \
      COLUMN(expected, path, StringFilter, 4, start_ip), COLUMN(expected, path, StringFilter, 8, end_ip), \
      COLUMN(expected, path, StringFilter, 12, filter_string),                                            \
      COLUMN(expected, path, StringFilter, 268, reserved_268)

constexpr Field table[] = {
    ONE(0, reserved_0),
    ONE(24, wan.wan_mac_type),
    ONE(25, wan.wan_mac),
    ONE(31, wan.host_name),
    ONE(159, wan.domain_name),
    ONE(287, wan.wan_type),
    ONE(288, wan.static_ip),
    ONE(292, wan.static_gateway),
    ONE(296, wan.static_netmask),
    ONE(300, wan.static_broadcast),
    ONE(304, wan.pppoe_user_name),
    ONE(432, wan.pppoe_password),
    ONE(560, wan.pppoe_connect_type),
    ONE(561, wan.reserved_561),
    ONE(564, wan.pppoe_max_idle_time),
    ONE(568, wan.pppoe_type),
    ONE(569, wan.reserved_569),
    ONE(572, wan.pppoe_static_ip),
    ONE(576, wan.pppoe_service_name),
    TUNNEL(704, wan.pptp, "wan.reserved_961", "wan.reserved_1097"),
    TUNNEL(1112, wan.l2tp, "wan.reserved_1369", "wan.reserved_1505"),
    ONE(1520, wan.bigpond_account),
    ONE(1584, wan.bigpond_password),
    ONE(1648, wan.bigpond_auth_server),
    ONE(1649, wan.bigpond_server),
    ONE(1777, wan.reserved_1777),
    ONE(1780, wan.static_mtu),
    ONE(1784, wan.reserved_1784),
    ONE(1788, wan.dhcp_mtu),
    ONE(1792, wan.reserved_1792),
    ONE(1796, wan.pppoe_mtu),
    ONE(1800, wan.reserved_1800),
    ONE(1804, wan.pptp_mtu),
    ONE(1808, wan.reserved_1808),
    ONE(1812, wan.l2tp_mtu),
    ONE(1816, wan.reserved_1816),
    ONE(1820, wan.dns_mode),
    ONE(1821, wan.reserved_1821),
    ONE(1824, wan.primary_dns),
    ONE(1828, wan.secondary_dns),
    ONE(1832, wan.wan_ping_enable),
    ONE(1833, wan.reserved_1833),

    ONE(1848, lan.lan_ip),
    ONE(1852, lan.lan_netmask),
    ONE(1856, lan.lan_broadcast),
    ONE(1860, lan.dns_proxy_enable),
    ONE(1861, lan.reserved_1861),

    ONE(1864, dhcp.dhcp_server_enable),
    ONE(1865, dhcp.reserved_1865),
    ONE(1868, dhcp.dhcp_start_ip),
    ONE(1872, dhcp.dhcp_end_ip),
    ONE(1876, dhcp.dhcp_lease_time),
    COLUMN(1880, dhcp.static_dhcp_table, StaticDhcpClient, 0, enable),
    COLUMN(1880, dhcp.static_dhcp_table, StaticDhcpClient, 1, mac),
    COLUMN(1880, dhcp.static_dhcp_table, StaticDhcpClient, 7, reserved_7),
    COLUMN(1880, dhcp.static_dhcp_table, StaticDhcpClient, 8, ip),
    COLUMN(1880, dhcp.static_dhcp_table, StaticDhcpClient, 12, description),

    COLUMN(3288, static_route_table, StaticRoute, 0, enable),
    COLUMN(3288, static_route_table, StaticRoute, 1, route_type),
    COLUMN(3288, static_route_table, StaticRoute, 2, reserved_2),
    COLUMN(3288, static_route_table, StaticRoute, 4, route_target),
    COLUMN(3288, static_route_table, StaticRoute, 8, route_netmask),
    COLUMN(3288, static_route_table, StaticRoute, 12, route_gateway),

    ONE(3800, nat.nat_enable),
    ONE(3801, nat.reserved_3801),
    ONE(3802, nat.ipsec_pass_through),
    ONE(3803, nat.pptp_pass_through),
    ONE(3804, nat.l2tp_pass_through),
    ONE(3805, nat.sip_alg),
    ONE(3806, nat.netmeeting_alg),
    ONE(3807, nat.dmz_enable),
    ONE(3808, nat.dmz_ip),

    COLUMN(3812, virtual_server_table, VirtualServer, 0, enable),
    COLUMN(3812, virtual_server_table, VirtualServer, 1, reserved_1),
    COLUMN(3812, virtual_server_table, VirtualServer, 2, public_port),
    COLUMN(3812, virtual_server_table, VirtualServer, 4, protocol),
    COLUMN(3812, virtual_server_table, VirtualServer, 5, reserved_5),
    COLUMN(3812, virtual_server_table, VirtualServer, 8, private_ip),
    COLUMN(3812, virtual_server_table, VirtualServer, 12, private_port),
    SCHEDULE(3812, virtual_server_table, VirtualServer, 14),
    COLUMN(3812, virtual_server_table, VirtualServer, 26, reserved_26),

    COLUMN(4708, special_application_table, SpecialApplication, 0, enable),
    COLUMN(4708, special_application_table, SpecialApplication, 1, reserved_1),
    COLUMN(4708, special_application_table, SpecialApplication, 2, trigger_port),
    COLUMN(4708, special_application_table, SpecialApplication, 4, trigger_type),
    COLUMN(4708, special_application_table, SpecialApplication, 5, reserved_5),
    COLUMN(4708, special_application_table, SpecialApplication, 6, public_port_start),
    COLUMN(4708, special_application_table, SpecialApplication, 8, public_port_end),
    COLUMN(4708, special_application_table, SpecialApplication, 10, public_type),
    SCHEDULE(4708, special_application_table, SpecialApplication, 11),
    COLUMN(4708, special_application_table, SpecialApplication, 23, reserved_23),

    ONE(5476, firewall_enable),
    ONE(5477, ip_filter_enable),
    ONE(5478, mac_filter_enable),
    ONE(5479, reserved_5479),

    COLUMN(5480, firewall_rule_table, FirewallRule, 0, enable),
    COLUMN(5480, firewall_rule_table, FirewallRule, 1, action),
    COLUMN(5480, firewall_rule_table, FirewallRule, 2, src_interface),
    COLUMN(5480, firewall_rule_table, FirewallRule, 3, reserved_3),
    COLUMN(5480, firewall_rule_table, FirewallRule, 4, src_ip_start),
    COLUMN(5480, firewall_rule_table, FirewallRule, 8, src_ip_end),
    COLUMN(5480, firewall_rule_table, FirewallRule, 12, dst_interface),
    COLUMN(5480, firewall_rule_table, FirewallRule, 13, reserved_13),
    COLUMN(5480, firewall_rule_table, FirewallRule, 16, dst_ip_start),
    COLUMN(5480, firewall_rule_table, FirewallRule, 20, dst_ip_end),
    COLUMN(5480, firewall_rule_table, FirewallRule, 24, dst_port_start),
    COLUMN(5480, firewall_rule_table, FirewallRule, 26, dst_port_end),
    COLUMN(5480, firewall_rule_table, FirewallRule, 28, protocol),
    SCHEDULE(5480, firewall_rule_table, FirewallRule, 29),
    COLUMN(5480, firewall_rule_table, FirewallRule, 41, reserved_41),

    COLUMN(6888, ip_filter_table, IpFilter, 0, enable),
    COLUMN(6888, ip_filter_table, IpFilter, 1, reserved_1),
    COLUMN(6888, ip_filter_table, IpFilter, 4, start_ip),
    COLUMN(6888, ip_filter_table, IpFilter, 8, end_ip),
    COLUMN(6888, ip_filter_table, IpFilter, 12, start_port),
    COLUMN(6888, ip_filter_table, IpFilter, 14, end_port),
    COLUMN(6888, ip_filter_table, IpFilter, 16, protocol),
    SCHEDULE(6888, ip_filter_table, IpFilter, 17),
    COLUMN(6888, ip_filter_table, IpFilter, 29, reserved_29),

    COLUMN(7912, mac_filter_table, MacFilter, 0, enable),
    COLUMN(7912, mac_filter_table, MacFilter, 1, mac_address),
    SCHEDULE(7912, mac_filter_table, MacFilter, 7),
    COLUMN(7912, mac_filter_table, MacFilter, 19, reserved_19),

    ONE(8680, url_filter_enable),
    ONE(8681, reserved_8681),
    STRING_FILTER(8684, url_filter_table),
    ONE(17388, domain_filter_enable),
    ONE(17389, reserved_17389),
    STRING_FILTER(17392, domain_filter_table),

    ONE(26096, reserved_26096),
    ONE(26097, upnp_enable),
    ONE(26098, reserved_26098),
    ONE(26100, ddns.ddns_enable),
    ONE(26101, ddns.ddns_server_type),
    ONE(26102, ddns.ddns_user_name),
    ONE(26134, ddns.ddns_password),
    ONE(26166, ddns.ddns_host),
    ONE(26294, reserved_26294),
    ONE(26296, admin.admin_user_name),
    ONE(26328, admin.reserved_26328),
    ONE(26606, admin.admin_password),
    ONE(26638, reserved_26638),
    ONE(27044, date_time.date_time_set_by),
    ONE(27045, date_time.ntp_server),
    ONE(27173, date_time.time_zone),
    ONE(27174, reserved_27174),

    ONE(27824, sip.sip_port),
    ONE(27826, sip.reserved_27826),
    ONE(27828, sip.session_timer),
    ONE(27830, sip.media_port_start),
    ONE(27832, sip.media_port_end),
    ONE(27834, sip.rtcp_port),
    ONE(27836, sip.sip_transport),
    ONE(27837, sip.reserved_27837),
    ONE(27838, sip.sip_time_interval),
    ONE(27840, sip.invite_timeout),
    ONE(27842, sip.ring_back_timeout),
    ONE(27844, sip.release_timeout),
    ONE(27846, sip.registration_retry_count),
    ONE(27848, sip.registration_retry_interval),
    ONE(27850, sip.ping_interval),
    ONE(27852, sip.sip_host_name),

    COLUMN(27892, sip_line, SipLine, 0, phone_enable),
    COLUMN(27892, sip_line, SipLine, 1, phone_number),
    COLUMN(27892, sip_line, SipLine, 33, display_name),
    COLUMN(27892, sip_line, SipLine, 65, auth_user_name),
    COLUMN(27892, sip_line, SipLine, 97, auth_password),
    COLUMN(27892, sip_line, SipLine, 121, p_asserted_enable),
    COLUMN(27892, sip_line, SipLine, 122, asserted_identity_uri),
    COLUMN(27892, sip_line, SipLine, 154, asserted_identity_display_name),
    COLUMN(27892, sip_line, SipLine, 187, mwi_user_name),
    COLUMN(27892, sip_line, SipLine, 219, mwi_auth_user_name),
    COLUMN(27892, sip_line, SipLine, 251, mwi_auth_password),
    COLUMN(27892, sip_line, SipLine, 276, mwi_refresh_timeout),
    COLUMN(27892, sip_line, SipLine, 278, reserved_278),
    ONE(28452, auth_expire_time),
    ONE(28454, reserved_28454),
    COLUMN(28456, sip_server, SipServer, 0, sip_domain_name),
    COLUMN(28456, sip_server, SipServer, 128, registrar_address),
    COLUMN(28456, sip_server, SipServer, 192, registrar_port),
    COLUMN(28456, sip_server, SipServer, 194, use_outbound_proxy),
    COLUMN(28456, sip_server, SipServer, 195, proxy_address),
    COLUMN(28456, sip_server, SipServer, 259, reserved_259),
    COLUMN(28456, sip_server, SipServer, 260, proxy_port),
    COLUMN(28456, sip_server, SipServer, 262, outbound_proxy_address),
    COLUMN(28456, sip_server, SipServer, 326, outbound_proxy_port),
    COLUMN(28456, sip_server, SipServer, 328, dns_srv_support),
    COLUMN(28456, sip_server, SipServer, 329, reserved_329),

    ONE(29120, nat_traversal.reserved_29120),
    ONE(29121, nat_traversal.stun_enable),
    ONE(29122, nat_traversal.stun_server),
    ONE(29186, nat_traversal.sip_upnp_enable),
    ONE(29187, reserved_29187),

    ONE(29240, call_service.call_service_enable),
    ONE(29241, call_service.reserved_29241),
    ONE(29242, call_service.call_transfer_timeout),
    ONE(29243, call_service.call_hunting_enable),
    ONE(29244, call_service.call_hunting_timeout),
    ONE(29245, call_service.reserved_29245),
    ONE(29246, call_service.call_repeat_timeout),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 0, Call_Transfer_Option),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 1, call_forward_option),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 2, call_forward_always_uri),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 130, call_forward_busy_uri),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 258, call_forward_noans_uri),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 386, reserved_386),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 770, call_forward_noans_timeout),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 772, call_dnd_enable),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 773, reserved_773),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 776, call_hotline_enable),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 777, call_hotline_number),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 905, reserved_905),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 1033, call_repeat_enable),
    COLUMN(29248, call_service.phone_call_service, PhoneCallService, 1034, reserved_1034),
    ONE(31320, reserved_31320),

    ONE(31322, phone.Tone_Setting),
    ONE(31323, phone.callerid_type),
    ONE(31324, phone.callerid_power_level),
    ONE(31325, phone.callerid_baring),
    ONE(31326, phone.callerid_t1_alertsig),
    ONE(31327, phone.callerid_t2_alertsig),
    COLUMN(31328, phone.phone_port, PhonePort, 0, ring_impedance),
    COLUMN(31328, phone.phone_port, PhonePort, 1, reserved_1),
    COLUMN(31328, phone.phone_port, PhonePort, 2, hook_flash_detect_ubound),
    COLUMN(31328, phone.phone_port, PhonePort, 4, hook_flash_detect_lbound),
    COLUMN(31328, phone.phone_port, PhonePort, 6, voice_tx_level),
    COLUMN(31328, phone.phone_port, PhonePort, 7, voice_rx_level),
    ONE(31344, reserved_31344),
    ONE(32212, e164_call_enable),
    ONE(32213, reserved_32213),

    COLUMN(35272, fax_qos.fax_port, FaxPort, 0, t38_option),
    ONE(35274, fax_qos.reserved_35274),
    ONE(35276, fax_qos.qos_type),
    ONE(35277, fax_qos.sip_tos),
    ONE(35278, fax_qos.rtp_tos),
    ONE(35279, fax_qos.pri_enable),
    ONE(35280, fax_qos.pri_voice),
    ONE(35281, fax_qos.reserved_35281),
    ONE(35284, fax_qos.vlan_voice),
    ONE(35288, fax_qos.pri_data),
    ONE(35289, fax_qos.reserved_35289),
    ONE(35292, fax_qos.vlan_data),

    COLUMN(35296, phone_book, PhoneBookEntry, 0, dial_key),
    COLUMN(35296, phone_book, PhoneBookEntry, 1, phone_number),
    COLUMN(35296, phone_book, PhoneBookEntry, 129, note),
    COLUMN(54696, call_screen, CallScreenEntry, 0, screen_list),
    COLUMN(54696, call_screen, CallScreenEntry, 1, screen_type),
    COLUMN(54696, call_screen, CallScreenEntry, 2, screen_number),
};

std::size_t element_offset(const Field& field, std::size_t index) {
  return field.offset + index * field.stride;
}

}  // namespace

std::span<const Field> field_table() {
  return table;
}

std::string_view kind_name(Field::Kind kind) {
  constexpr std::string_view names[] = {"u8",  "u16",  "u32",     "i32",     "IPv4",
                                        "MAC", "text", "letters", "reserved"};
  static_assert(std::size(names) == static_cast<std::size_t>(Kind::reserved) + 1);
  return names[static_cast<std::size_t>(kind)];
}

std::string field_name(const Field& field, std::size_t index) {
  if (field.table.empty()) {
    return std::string(field.name);
  }
  return std::string(field.table) + "[" + std::to_string(index) + "]." + std::string(field.name);
}

std::span<const std::uint8_t> field_bytes(const Field& field, std::size_t index,
                                          const ConfigurationSegment& segment) {
  return {reinterpret_cast<const std::uint8_t*>(&segment) + element_offset(field, index), field.width};
}

std::span<std::uint8_t> field_bytes(const Field& field, std::size_t index, ConfigurationSegment& segment) {
  return {reinterpret_cast<std::uint8_t*>(&segment) + element_offset(field, index), field.width};
}

std::optional<FieldElement> find_field(std::string_view name) {
  std::size_t index = 0;
  const std::size_t open = name.find('[');
  const std::size_t close = name.find("].");
  const bool element = open != std::string_view::npos && close != std::string_view::npos;
  if (element) {
    const auto [end, error] = std::from_chars(name.data() + open + 1, name.data() + close, index);
    if (error != std::errc{} || end != name.data() + close) {
      return std::nullopt;
    }
  }
  const std::string_view in_table = element ? name.substr(0, open) : std::string_view{};
  const std::string_view last = element ? name.substr(close + 2) : name;
  const auto found = std::find_if(std::begin(table), std::end(table), [&](const Field& field) {
    return field.table == in_table && field.name == last && index < field.count;
  });
  if (found == std::end(table)) {
    return std::nullopt;
  }
  return FieldElement{&*found, index};
}

FieldElement field_at(std::size_t offset) {
  const auto found = std::find_if(std::begin(table), std::end(table), [&](const Field& field) {
    const std::size_t index = (offset - field.offset) / field.stride;
    return offset >= field.offset && index < field.count &&
           offset - element_offset(field, index) < field.width;
  });
  return {&*found, (offset - found->offset) / found->stride};
}

}  // namespace config
