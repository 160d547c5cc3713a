// Visits to menu items of the console, on a device that is played, for the programs that print pages of them.
//
// Each line of standard input asks for some visits, one behind the other: the numbers of submenu and item,
// then the answers, a tab behind each; a field "then" begins the next visit. The first finds the factory
// settings, of the file that the argument names. What the last one shows and does is printed as one line of
// JSON. "menus" asks for the screens of all submenus, with their labels.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "config/field_table.h"
#include "menus/menu_tree.h"
#include "shell/session.h"
#include "stored_settings.h"
#include "support/device.h"

namespace {

using config::ConfigurationSegment;
using std::string;
using Strings = std::vector<string>;

// A call for each reason that it may have ended for, and one for a reason that the console does not know.
Strings call_log() {
  Strings records;
  for (const auto& [first, last] : {std::pair{0x1000, 0x101b}, std::pair{0x2000, 0x2007}}) {
    for (int reason = first; reason <= last; ++reason) {
      char record[100];
      std::snprintf(record, sizeof record, "%d|5550%x|20100315090%d05|0|2010031509%d010|%x|%d|%d", reason % 3,
                    reason, reason % 3, reason % 3 + 1, reason, reason % 60, reason % 2);
      records.emplace_back(record);
    }
  }
  records.insert(records.begin(), std::to_string(records.size()));
  return records;
}

// What the voice daemon sends to a request. A counter's last two digits are its phone and channel.
Strings voice_daemon(const string& request) {
  static const std::map<string, string> answers = {
      {"get epstate 0", "idle"},        {"get epstate 1", "talking"},     {"get epregstate 0", "registered"},
      {"get epregstate 1", "disabled"}, {"get rtpstattotalsend", "72"},   {"get rtpstattotalrecv", "71"},
      {"get rtpstattotallost", "1"},    {"get rtpstatcurrentsend", "32"}, {"get rtpstatcurrentrecv", "31"},
      {"get rtpstatcurrentlost", ""},
  };
  if (request == "get calllog\n\n") {
    return call_log();
  }
  string reply;
  std::istringstream queries(request);
  for (string query; std::getline(queries, query) && !query.empty();) {
    const bool is_counter = query.starts_with("get rtpstat");
    const auto answer = answers.find(is_counter ? query.substr(0, query.size() - 4) : query);
    reply += answer == answers.end() ? "unknown" : answer->second;
    reply += is_counter ? string{query[query.size() - 3], query.back()} + "\n" : "\n";
  }
  return {reply};
}

// What the device's tools and its voice daemon say, for the status pages.
void play_tools(tests::Device& device) {
  device.command_output = {
      {"/bin/date", "Mon Mar 15 14:30:05 UTC 2010\n"},
      {"/bin/uptime", " 14:30:05 up 1 day,  2:03,  load average: 0.00, 0.01, 0.05\n"},
      {"/sbin/ifconfig eth0",
       "eth0      Link encap:Ethernet  HWaddr 00:11:22:33:44:55\n"
       "          inet addr:203.0.113.10  Bcast:203.0.113.255  Mask:255.255.255.0\n"},
      {"/sbin/ifconfig eth1",
       "eth1      Link encap:Ethernet  HWaddr 00:11:22:33:44:56\n"
       "          inet addr:192.168.1.1  Bcast:192.168.1.255  Mask:255.255.255.0\n"},
      {"route -n | awk '{print $2\" \"$4}' ", "203.0.113.1 UG\n"},
  };
  device.files = {{"/etc/resolv.conf", "nameserver 203.0.113.1\nnameserver 203.0.113.2\n"},
                  {"/tmp/messages.tmp", "Mar 15 14:29:58 web_server settings stored\n"},
                  {"/opt/webctrl/meta/metafile.dat.default", "host_name=NTX4830\n"}};
  device.on_datagram = voice_daemon;
}

string quoted(const string& text) {
  string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\' || static_cast<unsigned char>(c) < ' ') {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      quoted += escaped;
    } else {
      quoted += c;
    }
  }
  return quoted + "\"";
}

string list(const Strings& texts) {
  string all;
  for (const string& text : texts) {
    all += (all.empty() ? "" : ",") + quoted(text);
  }
  return "[" + all + "]";
}

void append_member(string& all, const config::Field& field, std::size_t i,
                   const ConfigurationSegment& segment) {
  all += (all.empty() ? "" : ",") + quoted(config::field_name(field, i)) + ":" +
         quoted(config::field_value(field, i, segment));
}

string changes(const ConfigurationSegment& before, const ConfigurationSegment& after) {
  string all;
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count; ++i) {
      if (!std::ranges::equal(config::field_bytes(field, i, before), config::field_bytes(field, i, after))) {
        append_member(all, field, i, after);
      }
    }
  }
  return "{" + all + "}";
}

// The fields that answers were written to, in that order, with what they have.
string written(const tests::Device& device) {
  string all;
  for (const void* const address : device.written) {
    const char* const begin = reinterpret_cast<const char*>(&device.settings);
    const auto at = static_cast<std::size_t>(static_cast<const char*>(address) - begin);
    if (at < sizeof device.settings) {  // or it is the login record's, or the flag for the voice daemon
      const auto [field, index] = config::field_at(at);
      append_member(all, *field, index, device.settings);
    }
  }
  return "{" + all + "}";
}

// One visit, over these settings. "way" is what stands before login and menu lines, "shown" what stands
// before each question and behind the last answer; "over", that the dialogue ended by itself.
string visit(ConfigurationSegment& settings, const Strings& numbers_and_answers) {
  const shell::Submenu& submenu = *menus::menu_tree.targets.at(std::stoul(numbers_and_answers.at(0)));
  const string back = string(submenu.lines) + string(78, '-') + "\nq:Exit\n\n[4830NT]#";
  tests::Device device;
  device.settings = settings;
  device.login.idle_timeout = 300;
  play_tools(device);
  device.input = {"admin\n", "admin\n"};
  for (const string& line : numbers_and_answers) {
    device.input.push_back(line + "\n");
  }
  const std::size_t first = 4;  // wait: name, password and the two numbers come before it
  std::size_t questions_end = 0;
  device.on_wait = [&](std::size_t wait) {
    if (wait >= first && questions_end == 0 && device.transcript.ends_with(back)) {
      questions_end = wait;
      device.input.clear();
    }
  };
  tests::use_device(device);
  tests::run_to_exit([] { shell::run_console(menus::menu_tree); });

  const bool is_back = questions_end != 0;
  const bool ended_itself = !is_back && device.waits.size() <= numbers_and_answers.size() + 2;
  Strings way, shown;
  for (std::size_t wait = 0; wait <= device.waits.size(); ++wait) {
    const std::size_t begin = wait == 0 ? 0 : device.waits[wait - 1];
    const std::size_t end = wait < device.waits.size() ? device.waits[wait] : device.transcript.size();
    (wait < first ? way : shown).push_back(device.transcript.substr(begin, end - begin));
  }
  if (!ended_itself) {
    shown.pop_back();  // the end of the connection
  }
  if (is_back) {
    shown.back().resize(shown.back().size() - back.size());
  }
  const ConfigurationSegment before = settings;
  settings = device.settings;
  return "{\"way\":" + list(way) + ",\"shown\":" + list(shown) +
         ",\"over\":" + (is_back || ended_itself ? "true" : "false") +
         ",\"saved\":" + (device.saved ? "true" : "false") + ",\"written\":" + written(device) +
         ",\"changed\":" + (device.saved ? changes(before, settings) : "{}") + "}";
}

}  // namespace

int main(int /*count*/, char** arguments) {
  ConfigurationSegment factory{};
  if (!desk::load_settings("/dev/null", arguments[1], factory)) {
    return 1;
  }
  for (string line; std::getline(std::cin, line);) {
    if (line == "menus") {
      Strings menus = {string(menus::menu_tree.lines)};
      for (const shell::Submenu* submenu : menus::menu_tree.targets) {
        menus.emplace_back(submenu->lines);
      }
      std::cout << list(menus) << '\n' << std::flush;
      continue;
    }
    ConfigurationSegment settings = factory;
    std::istringstream fields(line);
    Strings numbers_and_answers;
    for (string field; std::getline(fields, field, '\t');) {
      if (field == "then") {
        visit(settings, numbers_and_answers);
        numbers_and_answers.clear();
      } else {
        numbers_and_answers.push_back(field);
      }
    }
    std::cout << visit(settings, numbers_and_answers) << '\n' << std::flush;
  }
  return 0;
}
