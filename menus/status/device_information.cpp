// One page about the device, and the one action that its kind of WAN connection offers.
#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "config/segment.h"
#include "menus/status/items.h"
#include "platform/line_reader.h"
#include "platform/platform.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/menu.h"
#include "shell/output.h"
#include "shell/session.h"

namespace menus::status {
namespace {

constexpr std::string_view rule = "------------------------------------------------------\n";
constexpr std::string_view nothing_found = "\n";

// ---- What each kind of WAN connection has ----

struct WanType {
  const char* name;
  const char* interface;
  const char* stop;
  const char* restart;
};

constexpr std::uint8_t static_ip = 0;
constexpr std::uint8_t dhcp = 1;

constexpr WanType wan_types[] = {
    {"Static IP", "eth0", nullptr, nullptr},
    {"DHCP", "eth0", "/etc/init.d/udhcpc.sh stop > /dev/null 2>&1",
     "/etc/init.d/udhcpc.sh restart > /dev/null 2>&1"},
    {"PPPOE", "ppp0", "/etc/init.d/pppoe.sh stop > /dev/null 2>&1",
     "/etc/init.d/pppoe.sh restart > /dev/null 2>&1"},
    {"PPTP", "ppp0", "/etc/init.d/pptp.sh stop > /dev/null 2>&1",
     "/etc/init.d/pptp.sh restart > /dev/null 2>&1"},
    {"L2TP", "ppp0", "/etc/init.d/l2tp.sh stop > /dev/null 2>&1",
     "/etc/init.d/l2tp.sh restart > /dev/null 2>&1"},
    {"BigPond", nullptr, "/etc/init.d/bigpond.sh stop > /dev/null 2>&1",
     "/etc/init.d/bigpond.sh restart > /dev/null 2>&1"},
};
constexpr WanType unknown_wan_type{};

// ---- Reading tools' output ----

class CommandOutput {
 public:
  // What was printed before it is on the screen by then.
  explicit CommandOutput(const char* command)
      : stream_((shell::flush_output(), platform::open_command(command))), lines_(stream_.descriptor) {}
  ~CommandOutput() {
    if (started()) {
      platform::close_command(stream_);
    }
  }
  CommandOutput(const CommandOutput&) = delete;
  CommandOutput& operator=(const CommandOutput&) = delete;

  bool started() const { return stream_.descriptor >= 0; }

  // With its line feed, valid until the next one; empty at the end of the output, or when there is none. A
  // line longer than 255 characters comes in pieces.
  std::string_view next_line() { return started() ? lines_.next(line_) : std::string_view{}; }

 private:
  platform::CommandStream stream_;
  platform::LineReader lines_;
  std::array<char, 255> line_;
};

bool contains(std::string_view text, const char* part) {
  return text.find(part) != std::string_view::npos;
}

std::string_view up_to(std::string_view text, char end) {
  return text.substr(0, text.find(end));
}

// What stands behind the marker and `gap` more characters, whichever they are; empty when there is no such
// place in the text.
std::string_view behind(std::string_view text, std::string_view marker, std::size_t gap) {
  const std::size_t at = text.find(marker);
  return at == std::string_view::npos ? std::string_view{}
                                      : text.substr(std::min(at + marker.size() + gap, text.size()));
}

void show_value(const char* label, const char* name, std::string_view value) {
  shell::put(label, name, config::text_in(value), '\n');
}

// ---- The parts of the page ----

void show_system_date() {
  CommandOutput date("/bin/date");
  const std::string_view line = date.next_line();
  shell::put(line.empty() ? nothing_found : line);
}

void show_up_time() {
  CommandOutput uptime("/bin/uptime");
  const std::string_view line = uptime.next_line();
  if (line.empty()) {
    shell::put(nothing_found);
  } else if (contains(line, ",")) {
    shell::put(behind(up_to(line, ','), "up", 1));
    shell::put("\n");
  }
}

void show_default_gateway() {
  CommandOutput routes("route -n | awk '{print $2\" \"$4}' ");
  std::string_view line;
  do {
    line = routes.next_line();
  } while (!line.empty() && (!contains(line, "UG") || contains(line, "UGH")));
  const std::size_t flags = std::min(line.find("UG"), line.size());
  shell::put(line.substr(0, flags == 0 ? 0 : flags - 1));
  shell::put("\n");
}

CommandOutput ifconfig(const char* interface) {
  char command[32];
  std::snprintf(command, sizeof command, "/sbin/ifconfig %s", interface);
  return CommandOutput(command);
}

void show_interface_mac(const char* interface, const char* label) {
  CommandOutput output = ifconfig(interface);
  if (!output.started()) {
    shell::put(nothing_found);
    return;
  }
  const std::string_view line = output.next_line();
  if (!contains(line, "error")) {
    show_value(label, " MAC Address : ", behind(up_to(line, '\n'), "HWaddr", 1));
  }
}

// Shows ppp0's line in the list of interfaces that are up; says so when there is none. False when there is
// nothing more to show.
bool ppp_link_is_up() {
  shell::run_command("/sbin/ifconfig | grep ppp0 > /tmp/ppp_test");
  const int found = platform::open_for_reading("/tmp/ppp_test");
  if (found < 0) {
    return false;
  }
  std::array<char, 254> buffer;
  const std::string_view line = platform::LineReader(found).next(buffer);
  platform::close_file(found);
  shell::put(line);
  shell::put("\n");
  const bool up = contains(line, "ppp0");
  if (!up) {
    shell::put("WAN is disconnection!\n");
  }
  return up;
}

void show_interface_addresses(const char* interface, const char* label) {
  const bool is_ppp = std::string_view(interface) == "ppp0";
  if (is_ppp && !ppp_link_is_up()) {
    return;
  }
  CommandOutput output = ifconfig(interface);
  if (!output.started()) {
    shell::put(nothing_found);
    return;
  }
  if (contains(output.next_line(), "error")) {
    return;
  }
  show_interface_mac(is_ppp ? "eth0" : interface, label);
  const std::string_view addresses = behind(up_to(output.next_line(), '\n'), "inet addr:", 0);
  show_value(label, " IP Address : ", up_to(addresses, ' '));
  show_value(label, " Subnet Mask : ", behind(addresses, "Mask:", 0));
}

void show_dns_servers() {
  std::array<config::Text<100>, 5> servers{};
  std::size_t count = 0;
  const int file = platform::open_for_reading("/etc/resolv.conf");
  if (file >= 0) {
    platform::LineReader lines(file);
    std::array<char, 99> buffer;
    std::string_view line;
    while (count < servers.size() && !(line = lines.next(buffer)).empty()) {
      if (contains(line, "nameserver")) {
        servers[count++].assign(behind(up_to(line, '\n'), "nameserver", 1));
      }
    }
    platform::close_file(file);
  }
  shell::put("DNS 1 (Primary):", servers[0].view(), "\nDNS 2 (Secondary):", servers[1].view(),
             "\nOther DNS: ");
  for (std::size_t i = 2; i < count; ++i) {
    shell::put(servers[i].view(), ',');
  }
  shell::put("\n");
}

void show_switch(const char* name, std::uint8_t enabled) {
  shell::put(name, enabled != 0 ? " : Enabled \n" : " : Disabled \n");
}

// ---- The actions ----

void run_scripts(const char* first, const char* second = nullptr) {
  for (const char* const script : {first, second}) {
    if (script != nullptr) {
      shell::run_command(script);
    }
  }
  shell::put("Configuration successed.\n");
}

void release_wan(const WanType& wan) {
  run_scripts(wan.stop);
}

void renew_wan(const WanType& wan) {
  run_scripts(wan.restart);
}

void disconnect_wan(const WanType& wan) {
  run_scripts(wan.stop, wan.restart);
}

// An answer that is neither 0 nor 1 leaves without a word.
void offer_action(std::uint8_t wan_type, const WanType& wan) {
  static constexpr shell::Refusal silent = shell::Refusal::silent();
  shell::put(wan_type == dhcp ? "0:Release WAN IP, 1:Renew WAN IP\n" : "0:Disconnect, 1:Reconnect\n");
  shell::Dialogue ask(shell::Dialogue::refuse_as_illegal);
  const std::uint32_t action = ask.pick(shell::menu_prompt, {0, 1}, {.refusal = &silent});
  if (ask.ended()) {
    return;
  }
  if (action == 1) {
    renew_wan(wan);
  } else if (wan_type == dhcp) {
    release_wan(wan);
  } else {
    disconnect_wan(wan);
  }
}

}  // namespace

void device_information() {
  const config::ConfigurationSegment& settings = shell::segment();
  // Read once: the page and its action are about the same kind of connection, whoever changes it meanwhile.
  const std::uint8_t wan_type = settings.wan.wan_type;
  const WanType& wan = wan_type < std::size(wan_types) ? wan_types[wan_type] : unknown_wan_type;

  shell::put("Device Information\n");
  shell::put(rule);
  shell::put("Model Name : NTX4830 \n");
  shell::put("Firmware Version : 1.10 \n");
  const std::string_view host_name = settings.wan.host_name.view();
  shell::put("Host Name : ");
  shell::put(host_name);
  shell::put(host_name.ends_with('\n') ? "" : "\n");
  shell::put("System Date : ");
  show_system_date();
  shell::put("Up Time : ");
  show_up_time();
  shell::put("Device Mode : Router Mode \n");
  shell::put(rule);
  if (wan.name != nullptr) {
    shell::put("WAN Type : ", wan.name, " \n");
  }
  if (wan.interface != nullptr) {
    show_interface_addresses(wan.interface, "WAN");
    shell::put("WAN Gateway Address : ");
    show_default_gateway();
  }
  show_dns_servers();
  shell::put(rule);
  show_interface_addresses("eth1", "LAN");
  show_switch("DHCP Server Function", settings.dhcp.dhcp_server_enable);
  show_switch("DNS Proxy Function", settings.lan.dns_proxy_enable);
  shell::put(rule);
  if (wan_type != static_ip) {
    offer_action(wan_type, wan);
  }
}

}  // namespace menus::status
