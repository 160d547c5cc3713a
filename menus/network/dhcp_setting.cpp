// The LAN's DHCP server: its address pool and lease time, and the clients that get a fixed address.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "menus/network/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/output.h"
#include "shell/parse.h"
#include "shell/session.h"

namespace menus::network {
namespace {

using config::Ipv4;
using config::StaticDhcpClient;
using shell::Dialogue;
namespace message = shell::message;

void apply_dhcp() {
  shell::save_settings();
  shell::run_command(shell::segment().dhcp.dhcp_server_enable == 1
                         ? "/etc/init.d/udhcpd.sh restart > /dev/null"
                         : "/etc/init.d/udhcpd.sh stop > /dev/null");
  shell::show_message(message::saved);
}

// ---- The server ----

struct LeaseTime {
  std::uint32_t seconds;
  char label[8];
};

constexpr auto lease_times = std::to_array<LeaseTime>({
    {3600, "1 Hour"},
    {7200, "2 Hours"},
    {10800, "3 Hours"},
    {86400, "1 Day"},
    {172800, "2 Days"},
    {259200, "3 Days"},
    {604800, "1 Week"},
});
static_assert(lease_times.size() <= 10, "a lease time is chosen by one digit");

// lease_times.size() when another program has stored a time that is not in the table.
std::size_t lease_index(std::uint32_t seconds) {
  return static_cast<std::size_t>(std::ranges::find(lease_times, seconds, &LeaseTime::seconds) -
                                  lease_times.begin());
}

const char* lease_label(std::size_t index) {
  return index < lease_times.size() ? lease_times[index].label : "";
}

void show_dhcp_server() {
  const config::DhcpSettings& dhcp = shell::segment().dhcp;
  shell::put("DHCP Server Enable:<", shell::Number(dhcp.dhcp_server_enable), ">(0:Disable, 1:Enable)\n");
  shell::put("DHCP Server Start IP:<", dhcp.dhcp_start_ip, ">\n");
  shell::put("DHCP Server End IP:<", dhcp.dhcp_end_ip, ">\n");
  shell::put("DHCP IP Lease Time:<", lease_label(lease_index(dhcp.dhcp_lease_time)), ">\n\n");
}

Ipv4 ask_pool_address(Dialogue& ask, shell::Prompt<shell::Shows::address> prompt, Ipv4& field) {
  const config::LanSettings& lan = shell::segment().lan;
  const Ipv4 address = ask.address(prompt, field, shell::judge_kept);
  if ((address & lan.lan_netmask) != (lan.lan_ip & lan.lan_netmask)) {
    ask.refuse(message::illegal_value);
  }
  return address;
}

void ask_lease_time(Dialogue& ask, std::uint32_t& lease_time) {
  if (ask.ended()) {
    return;
  }
  for (std::size_t i = 0; i < lease_times.size(); ++i) {
    shell::put(shell::Number(i), ':', lease_times[i].label, '\n');
  }
  const std::size_t current = lease_index(lease_time);
  const std::uint32_t chosen =
      ask.named_choice("DHCP IP Lease Time?<%s>:", lease_label(current), static_cast<std::uint32_t>(current),
                       shell::OneOf::first(lease_times.size()), shell::judge_kept);
  ask.note(lease_time, lease_times[chosen].seconds);
}

void dhcp_server_setting() {
  config::DhcpSettings& dhcp = shell::segment().dhcp;
  show_dhcp_server();

  Dialogue ask(Dialogue::refuse_by_kind);
  ask.choice("DHCP Server Enable?<%d>(0:Disable, 1:Enable):", dhcp.dhcp_server_enable, "01");
  const Ipv4 start = ask_pool_address(
      ask, "DHCP Server Start IP?<%u.%u.%u.%u>(The IP must have same Netword ID with Lan IP):",
      dhcp.dhcp_start_ip);
  const Ipv4 end = ask_pool_address(
      ask,
      "DHCP Server End IP?<%u.%u.%u.%u>(The IP must have same Netword ID with Lan IP):", dhcp.dhcp_end_ip);
  if (!shell::ip_range_ascending(start, end)) {
    ask.refuse(message::ip_range);
  }
  ask_lease_time(ask, dhcp.dhcp_lease_time);
  ask.note_in_order(dhcp.dhcp_lease_time, dhcp.dhcp_start_ip);
  if (ask.commit()) {
    apply_dhcp();
  }
}

// ---- Static clients ----

void show_static_dhcp(std::size_t index) {
  const StaticDhcpClient& client = shell::segment().dhcp.static_dhcp_table[index];
  shell::put(shell::Number(index), ":Enable:", shell::Number(client.enable), "\tMAC:", client.mac,
             "\tIP:", client.ip, "\tDiscription:", client.description.view(), '\n');
}

void show_static_dhcp() {
  const auto& table = shell::segment().dhcp.static_dhcp_table;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i].enable != config::free_slot) {
      show_static_dhcp(i);
    }
  }
  shell::put('\n');
}

void ask_client(Dialogue& ask, StaticDhcpClient& client) {
  const config::DhcpSettings& dhcp = shell::segment().dhcp;
  ask.choice("Enable this rule?<%d>(0:Disable, 1:Enable):", client.enable, "01", shell::empty_is_zero);
  const Ipv4 ip = ask.address("IP?<%u.%u.%u.%u>:", client.ip, shell::judge_kept);
  // Octet by octet, as everywhere: behind the pool's start, which stays free, and not behind its end.
  const bool in_pool =
      !shell::ip_range_ascending(ip, dhcp.dhcp_start_ip) && shell::ip_range_ascending(ip, dhcp.dhcp_end_ip);
  if (ask.adding() && !in_pool) {
    ask.refuse(message::illegal_value);
  }
  ask.mac("MAC?<%02x:%02x:%02x:%02x:%02x:%02x>:", client.mac);
  if (ask.adding()) {
    ask.hidden_text("Description?:", client.description, {.optional = true});
  } else {
    ask.text("Description?<%s>:", client.description);
  }
  ask.note_in_order(client.mac, client.ip);
}

std::size_t find_free_slot(Dialogue& ask) {
  const auto& table = shell::segment().dhcp.static_dhcp_table;
  const auto* const slot = std::ranges::find(table, config::free_slot, &StaticDhcpClient::enable);
  if (slot == table.end()) {
    ask.refuse(message::table_full);
  }
  return static_cast<std::size_t>(slot - table.begin());
}

std::size_t pick_client(Dialogue& ask) {
  const auto& table = shell::segment().dhcp.static_dhcp_table;
  const std::size_t index = ask.pick("What item do you want to configure? (0-%d):", table.size());
  if (table[index].enable == config::free_slot) {
    ask.refuse(message::wrong_choice);
  }
  if (!ask.ended()) {
    show_static_dhcp(index);
  }
  return index;
}

void static_client_setting() {
  show_static_dhcp();

  Dialogue choose(Dialogue::refuse_by_kind);
  const bool modify = choose.pick("Add new rule or Modify old rule ?(0:Add New, 1:Modify):", 2) == 1;
  const std::size_t index = modify ? pick_client(choose) : find_free_slot(choose);
  const bool remove =
      modify && choose.pick("Del or Edit ? (0:Delete, 1:Edit):", 2, {.rest_ignored = true}) == 0;
  if (choose.ended()) {
    return;
  }

  StaticDhcpClient& client = shell::segment().dhcp.static_dhcp_table[index];
  Dialogue ask(Dialogue::refuse_by_kind, modify ? Dialogue::Record::stored : Dialogue::Record::added);
  if (remove) {
    ask.note(client.enable, config::free_slot);
  } else {
    if (modify) {
      shell::show_message(message::keep_with_enter);
    }
    ask_client(ask, client);
  }
  if (ask.commit()) {
    apply_dhcp();
  }
}

}  // namespace

void dhcp_setting() {
  Dialogue ask(Dialogue::refuse_by_kind);
  const std::uint32_t clients =
      ask.pick_digit("What item do you want to configure? (0:DHCP SERVER Setting, 1:Static DHCP Client):", 2);
  if (ask.ended()) {
    return;
  }
  shell::show_message(message::keep_with_enter);
  if (clients != 0) {
    static_client_setting();
  } else {
    dhcp_server_setting();
  }
}

}  // namespace menus::network
