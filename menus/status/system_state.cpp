#include "menus/status/system_state.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/line_reader.h"
#include "platform/platform.h"
#include "shell/apply.h"
#include "shell/command_output.h"
#include "shell/output.h"

namespace menus::status {
namespace {

constexpr std::string_view nothing_found = "\n";

bool contains(std::string_view text, const char* part) {
  return text.find(part) != std::string_view::npos;
}

std::string_view before(std::string_view text, char end) {
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
  shell::put(label, name, before(value, '\0'), '\n');
}

shell::CommandOutput ifconfig(const char* interface) {
  char command[32];
  std::snprintf(command, sizeof command, "/sbin/ifconfig %s", interface);
  return shell::CommandOutput(command);
}

void show_interface_mac(const char* interface, const char* label) {
  shell::CommandOutput output = ifconfig(interface);
  if (!output.started()) {
    shell::put(nothing_found);
    return;
  }
  const std::string_view line = output.next_line();
  if (!contains(line, "error")) {
    show_value(label, " MAC Address : ", behind(before(line, '\n'), "HWaddr", 1));
  }
}

// Shows ppp0's line in the list of interfaces that are up; says so when there is none. False when there is
// nothing more to show.
bool ppp_link_is_up() {
  shell::run_command("/sbin/ifconfig | grep ppp0 > /tmp/ppp_test");
  const platform::Descriptor found(platform::open_for_reading("/tmp/ppp_test"));
  if (!found.is_open()) {
    return false;
  }
  std::array<char, 254> buffer;
  const std::string_view line = platform::LineReader(found.number()).next(buffer);
  shell::put(line, '\n');
  const bool up = contains(line, "ppp0");
  if (!up) {
    shell::put("WAN is disconnection!\n");
  }
  return up;
}

}  // namespace

void show_system_date() {
  shell::CommandOutput date("/bin/date");
  const std::string_view line = date.next_line();
  shell::put(line.empty() ? nothing_found : line);
}

void show_up_time() {
  shell::CommandOutput uptime("/bin/uptime");
  const std::string_view line = uptime.next_line();
  if (line.empty()) {
    shell::put(nothing_found);
  } else if (contains(line, ",")) {
    shell::put(behind(before(line, ','), "up", 1), '\n');
  }
}

void show_default_gateway() {
  shell::CommandOutput routes("route -n | awk '{print $2\" \"$4}' ");
  std::string_view line;
  do {
    line = routes.next_line();
  } while (!line.empty() && (!contains(line, "UG") || contains(line, "UGH")));
  const std::size_t flags = std::min(line.find("UG"), line.size());
  shell::put(line.substr(0, flags == 0 ? 0 : flags - 1), '\n');
}

void show_interface_addresses(const char* interface, const char* label) {
  const bool is_ppp = std::string_view(interface) == "ppp0";
  if (is_ppp && !ppp_link_is_up()) {
    return;
  }
  shell::CommandOutput output = ifconfig(interface);
  if (!output.started()) {
    shell::put(nothing_found);
    return;
  }
  if (contains(output.next_line(), "error")) {
    return;
  }
  show_interface_mac(is_ppp ? "eth0" : interface, label);
  const std::string_view addresses = behind(before(output.next_line(), '\n'), "inet addr:", 0);
  show_value(label, " IP Address : ", before(addresses, ' '));
  show_value(label, " Subnet Mask : ", behind(addresses, "Mask:", 0));
}

void show_dns_servers() {
  // In front of each server that is shown, or of nothing where there are fewer.
  static constexpr std::array<std::string_view, 5> labels = {
      "DNS 1 (Primary):", "\nDNS 2 (Secondary):", "\nOther DNS: "};
  constexpr std::size_t others = 2;  // from here on
  std::size_t count = 0;
  const platform::Descriptor file(platform::open_for_reading("/etc/resolv.conf"));
  if (file.is_open()) {
    platform::LineReader lines(file.number());
    std::array<char, 99> buffer;
    std::string_view line;
    while (count < labels.size() && !(line = lines.next(buffer)).empty()) {
      if (contains(line, "nameserver")) {
        const std::string_view server = behind(before(line, '\n'), "nameserver", 1);
        shell::put(labels[count], before(server, '\0'), count < others ? "" : ",");
        ++count;
      }
    }
  }
  for (; count < labels.size(); ++count) {
    shell::put(labels[count]);
  }
  shell::put('\n');
}

}  // namespace menus::status
