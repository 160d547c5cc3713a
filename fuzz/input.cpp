#include "input.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

#include "config/field_table.h"
#include "promises.h"
#include "support/session.h"

namespace fuzz {
namespace {

using config::Field;
using Image = config::ConfigurationSegment;

constexpr std::size_t image_count = 8;

// ---- The segments to start from ----

// A value that every dialogue lets one keep.
std::string_view plain_value(const Field& field) {
  switch (field.kind) {
    case Field::Kind::u8:
      return "1";
    case Field::Kind::u16:
    case Field::Kind::u32:
    case Field::Kind::i32:
      return field.name == "dhcp_lease_time" ? "3600" : "1024";
    case Field::Kind::ipv4:
      return field.name.ends_with("netmask") ? "255.255.255.0" : "192.168.1.1";
    case Field::Kind::mac:
      return "00:11:22:33:44:55";
    case Field::Kind::text:
      return "text";
    default:
      return "0111110";
  }
}

void fill(Image& image, const Field& field, std::size_t index, std::size_t style) {
  const auto bytes = config::field_bytes(field, index, image);
  static std::uint32_t noise = 1;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    noise = noise * 1664525 + 1013904223;
    const auto short_texts = static_cast<std::uint8_t>("a\nb\n\0c\n"[i % 8]);
    const std::array<std::uint32_t, 6> styles = {0, 255, 'A', '\n', short_texts, (noise >> 24) % unused};
    bytes[i] = static_cast<std::uint8_t>(styles[style - 2]);
  }
}

const Image& image(std::size_t style) {
  static const auto images = [] {
    auto all = std::vector<Image>(image_count, tests::FactoryDevice().settings);
    for (const Field& field : config::field_table()) {
      for (std::size_t number = 0; number < image_count; ++number) {
        for (std::size_t i = 0; i < field.count; ++i) {
          const auto bytes = config::field_bytes(field, i, all[number]);
          if (field.kind == Field::Kind::reserved) {
            std::fill(bytes.begin(), bytes.end(), unused);
          } else if (number == 1 && !field.name.starts_with("admin")) {
            config::set_field_value(field, i, plain_value(field), all[number]);
          } else if (number > 1 && !field.name.starts_with("admin")) {
            fill(all[number], field, i, number);
          }
        }
      }
    }
    return all;
  }();
  return images[style];
}

// ---- The sections ----

std::string_view take(std::string_view& text, std::size_t size) {
  const std::string_view taken = text.substr(0, size);
  text.remove_prefix(taken.size());
  return taken;
}

std::string_view take_line(std::string_view& text) {
  const std::string_view line = take(text, text.find('\n'));
  take(text, 1);
  return line;
}

std::size_t take_byte(std::string_view& text) {
  const std::string_view byte = take(text, 1);
  return byte.empty() ? 0 : static_cast<std::uint8_t>(byte[0]);
}

// What another program writes, over the segment or the login record behind it.
struct Patch {
  std::size_t offset;
  std::string bytes;

  explicit Patch(std::string_view text) {
    const std::size_t low = take_byte(text);
    offset = (low + 256 * take_byte(text)) % (sizeof(Image) + sizeof(config::LoginRecord));
    bytes = text;
  }

  void apply(tests::Device& device) const {
    const bool over_login = offset >= sizeof(Image);
    const std::size_t at = over_login ? offset - sizeof(Image) : offset;
    const std::size_t room = (over_login ? sizeof device.login : sizeof device.settings) - at;
    char* const record =
        over_login ? reinterpret_cast<char*>(&device.login) : reinterpret_cast<char*>(&device.settings);
    std::memcpy(record + at, bytes.data(), std::min(bytes.size(), room));
  }
};

void set_by_name(tests::Device& device, std::string_view lines) {
  while (!lines.empty()) {
    const std::string_view line = take_line(lines);
    const std::size_t equals = line.find('=');
    const auto element = config::find_field(line.substr(0, equals));
    if (equals != std::string_view::npos && element) {
      config::set_field_value(*element->field, element->index, line.substr(equals + 1), device.settings);
    }
  }
}

// No piece holds the end of one line and that of the next, so that between two waits for input the console
// has one answer.
void type(tests::Device& device, std::string_view text) {
  constexpr std::size_t longest_line = 512;
  while (!text.empty()) {
    std::string_view line = take(text, std::min(text.find('\n'), text.size() - 1) + 1);
    const bool erases = line.find('\b') != std::string_view::npos;
    const std::size_t piece = erases && line.size() > longest_line ? 1 : longest_line;
    while (!line.empty()) {
      device.input.emplace_back(take(line, piece));
    }
  }
}

// What happens over time. Shared by the hooks of the device.
struct Script {
  std::vector<std::pair<std::size_t, Patch>> patches;
  std::string clock_steps;
  std::vector<std::string> printed;
  std::size_t commands = 0;
  std::vector<std::string> datagrams;
};

void add_section(tests::Device& device, Script& script, char kind, std::string_view text) {
  switch (kind) {
    case 's':
      set_by_name(device, text);
      break;
    case 'r':
      Patch(text).apply(device);
      break;
    case 'w': {
      const std::size_t wait = take_byte(text);
      script.patches.emplace_back(wait, Patch(text));
      break;
    }
    case 't':
      script.clock_steps += text;
      break;
    case 'c':
      script.printed.emplace_back(text);
      break;
    case 'f': {
      const std::string path(take_line(text));
      device.files[path] = text;
      break;
    }
    case 'd':
      script.datagrams.emplace_back(text);
      break;
    case 'p':
      device.program_status["/bin/ping"] = static_cast<std::uint8_t>(take_byte(text) - '0');
      break;
    case 'x':
      while (!text.empty()) {
        device.failing.emplace(take_line(text));
      }
      break;
    default:
      break;
  }
}

void connect(tests::Device& device, Script script) {
  device.on_datagram = [datagrams = std::move(script.datagrams)](const std::string&) { return datagrams; };
  device.on_wait = [&device, patches = std::move(script.patches),
                    steps = std::move(script.clock_steps)](std::size_t wait) {
    device.clock += wait < steps.size() ? static_cast<std::uint8_t>(steps[wait]) : 0U;
    for (const auto& [when, patch] : patches) {
      if (when == wait) {
        patch.apply(device);
      }
    }
  };
  device.on_command = [&device, printed = std::move(script.printed),
                       next = std::size_t{0}](const std::string& command) mutable {
    if (!printed.empty()) {
      device.command_output[command] = printed[next++ % printed.size()];
    }
    const auto log = device.files.find("/var/tmp/messages");
    if (command.ends_with("> /tmp/messages.tmp") && log != device.files.end()) {
      device.files["/tmp/messages.tmp"] = log->second;
    }
  };
}

}  // namespace

void set_up(tests::Device& device, std::string_view input) {
  std::array<std::uint8_t, 4> header{};
  for (std::uint8_t& byte : header) {
    byte = static_cast<std::uint8_t>(take_byte(input) - '0');
  }
  take_line(input);  // how often it saves is for the tests
  device.settings = image(header[0] % image_count);
  if (device.fault == 0) {
    device.fault = header[1] * 256U + header[2];
  }
  device.login.idle_timeout = 300;

  Script script;
  const std::string_view typed = take(input, input.find("%%"));
  while (!input.empty()) {
    take(input, 2);
    const auto kind = static_cast<char>(take_byte(input));
    if (input.starts_with('\n')) {
      take(input, 1);
    }
    add_section(device, script, kind, take(input, input.find("%%")));
  }
  connect(device, std::move(script));
  if (header[3] % 2 != 0) {
    constexpr std::size_t compared = 31;
    const config::AdminLogin& admin = device.settings.admin;
    type(device, std::string(admin.admin_user_name.view().substr(0, compared)) + "\n");
    type(device, std::string(admin.admin_password.view().substr(0, compared)) + "\n");
  }
  type(device, typed);
}

}  // namespace fuzz
