#include "promises.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "config/field_table.h"
#include "input.h"
#include "support/session.h"

namespace fuzz {
namespace {

using config::Field;

// All that the console may do in one step, a reply from each of a hundred records included.
constexpr std::uint32_t longest_step = 600;
constexpr config::Ipv4 this_console = {{127, 0, 0, 1}};

bool is_own(const Field& field) {
  return field.kind != Field::Kind::reserved && !field.name.starts_with("admin_");
}

// These texts are shown with their line feeds, or not at all.
bool is_cut_when_shown(const Field& field) {
  static constexpr std::string_view never[] = {"phone_call_service", "phone_book", "call_screen",
                                               "domain_filter_table"};
  return field.kind == Field::Kind::text &&
         std::find(std::begin(never), std::end(never), field.table) == std::end(never);
}

// A URL filter is cut at all of its line feeds, any other text at the first one.
std::string cut(const Field& field, std::span<const std::uint8_t> stored) {
  std::string text(stored.begin(), stored.end());
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(text.find('\0'), text.size()));
  if (field.table == "url_filter_table") {
    std::replace(text.begin(), end, '\n', '\0');
  } else if (const auto found = std::find(text.begin(), end, '\n'); found != end) {
    *found = '\0';
  }
  return text;
}

class Watch {
 public:
  explicit Watch(tests::Device& device)
      : device_(device), others_(device.on_wait), tools_(device.on_command), settings_(device.settings) {
    device.on_wait = [this](std::size_t wait) {
      step_ends();
      check(device_.attached_segments == 2, "segments attached in a wait");
      check(device_.open_descriptors == 0 || is_paging(""), "a descriptor open in a wait");
      others_(wait);
      step_begins();
    };
    device.on_command = [this](const std::string& command) {
      if (command == "/opt/httpd/sbin/web_server dumpshare") {
        only_own_fields_differ();
        settings_ = device_.settings;
        saved_ = true;
      }
      tools_(command);
    };
    step_begins();
  }

  std::string end(int status) {
    check(is_defined_end(status), "an end with status " + std::to_string(status));
    step_ends();
    const bool output_is_lost = !device_.transcript.ends_with("Bye Bye!!\n");
    check(device_.open_descriptors == 0 || is_paging("Bye Bye!!\n") || output_is_lost, "a descriptor left");
    check(device_.voice_change <= 1, "the voice change flag");
    device_.on_wait = nullptr;
    device_.on_command = nullptr;
    return broken_;
  }

  void check(bool kept, const std::string& promise) {
    if (!kept) {
      broken_ += "broken: " + promise + "\n";
    }
  }

 private:
  void step_begins() {
    if (std::memcmp(&settings_, &device_.settings, sizeof settings_) != 0) {
      settings_ = device_.settings;
    }
    login_ = device_.login;
    clock_ = device_.clock;
    saved_ = false;
  }

  void step_ends() {
    check(device_.clock - clock_ <= longest_step, "a bounded wait");
    login_record_is_ours();
    if (std::memcmp(&settings_, &device_.settings, sizeof settings_) != 0) {
      if (saved_) {
        check(false, "saved settings stay: " + tests::differences(settings_, device_.settings));
      } else {
        only_what_needs_no_save_differs();
      }
    }
  }

  void login_record_is_ours() {
    const config::LoginRecord& now = device_.login;
    config::LoginRecord expected = login_;
    if (now.holder_address == this_console ||
        (device_.attached_segments == 0 && now.holder_address.is_zero())) {
      expected.holder_address = now.holder_address;
    }
    if (now.holder_tag == -9) {
      expected.holder_tag = now.holder_tag;
    }
    if (now.expiry_time - (clock_ + now.idle_timeout) <= device_.clock - clock_) {
      expected.expiry_time = now.expiry_time;
    }
    check(std::memcmp(&expected, &now, sizeof now) == 0, "the login record");
  }

  template <typename Check>
  void for_each_change(Check judge) {
    const auto before = std::as_bytes(std::span(&settings_, 1));
    const auto after = std::as_bytes(std::span(&device_.settings, 1));
    for (std::size_t at = 0; at < before.size(); ++at) {
      // Most of it is the same, and this is done for every save of every session.
      constexpr std::size_t block = 512;
      if (at % block == 0 && at + block <= before.size() &&
          std::memcmp(&before[at], &after[at], block) == 0) {
        at += block - 1;
      } else if (before[at] != after[at]) {
        const auto [field, index] = config::field_at(at);
        judge(*field, index);
        at = field->offset + index * field->stride + field->width - 1;
      }
    }
  }

  void only_own_fields_differ() {
    for_each_change([this](const Field& field, std::size_t index) {
      check(is_own(field), "only own fields change: " + config::field_name(field, index));
    });
  }

  void only_what_needs_no_save_differs() {
    int cuts = 0;
    for_each_change([&](const Field& field, std::size_t index) {
      const auto before = config::field_bytes(field, index, std::as_const(settings_));
      const auto after = config::field_bytes(field, index, std::as_const(device_.settings));
      const bool at_once = (field.name == "date_time_set_by" && after[0] <= 1) ||
                           (field.name == "time_zone" && after[0] <= 24);
      const bool is_cut = is_own(field) && is_cut_when_shown(field) &&
                          cut(field, before) == std::string(after.begin(), after.end());
      cuts += is_cut ? 1 : 0;
      check(at_once || is_cut, "nothing changes without a save: " + config::field_name(field, index));
    });
    check(cuts <= 1, "one text is shown in a step");
  }

  bool is_paging(const std::string& behind) const {
    return device_.transcript.ends_with("q:Exit , other:Continue:" + behind);
  }

  bool is_defined_end(int status) const {
    const bool login_untouched = std::memcmp(&device_.login, &login_, sizeof login_) == 0;
    const bool refused = device_.transcript.starts_with("{cfgid: ");
    const bool not_begun = device_.waits.empty() && (refused || device_.transcript.empty());
    switch (device_.attached_segments) {
      case 0:  // end_console(), or not even the login record could be had
        return status == 1 && (device_.login.holder_address.is_zero() || (not_begun && login_untouched));
      case 1:  // the settings could not be had, or another one holds the login
        return login_untouched && (status == 1 ? !refused : status == 0 && not_begun);
      default:  // another one took the login while this one typed its password
        return login_untouched && status == 1;
    }
  }

  tests::Device& device_;
  const std::function<void(std::size_t)> others_;
  const std::function<void(const std::string&)> tools_;
  // As they were when the step began, or when they were saved in it.
  config::ConfigurationSegment settings_;
  config::LoginRecord login_;
  std::uint32_t clock_;
  bool saved_;
  std::string broken_;
};

}  // namespace

std::string play(tests::Device& device, std::string_view input) {
  set_up(device, input);
  Watch watch(device);
  const int status = tests::run_session(device, "");
  const bool marked = input.find(static_cast<char>(unused)) == std::string_view::npos &&
                      input.find("\\x") == std::string_view::npos;
  watch.check(!marked || device.transcript.find(static_cast<char>(unused)) == std::string::npos,
              "only own fields are shown");
  return watch.end(status);
}

}  // namespace fuzz
