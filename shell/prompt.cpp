#include "shell/prompt.h"

#include <cstring>

#include "config/values.h"
#include "shell/output.h"

namespace shell {
namespace {

void put_mac(Value value) {
  config::Mac mac;
  std::memcpy(&mac, &value, sizeof mac);
  put(mac);
}

void put_value(Shows shows, Value value, std::string_view text) {
  switch (shows) {
    case Shows::number:
      return put(Number(value));
    case Shows::address:
      return put(config::Ipv4::from_word(static_cast<std::uint32_t>(value)));
    case Shows::mac:
      return put_mac(value);
    case Shows::text:
      return put(text);
    case Shows::nothing:
      return;
  }
}

}  // namespace

void PromptText::show(std::uint32_t number, Value value, std::string_view text) const {
  const auto [number_at, value_at] = take_apart(literal_, shows_);
  const std::string_view prompt = literal_;
  std::size_t shown = 0;
  if (number_at != std::string_view::npos) {
    put(prompt.substr(0, number_at));
    put(Number(number));
    shown = number_at + conversion_of(Shows::number).size();
  }
  if (value_at != std::string_view::npos) {
    put(prompt.substr(shown, value_at - shown));
    put_value(shows_, value, text);
    shown = value_at + conversion_of(shows_).size();
  }
  put(prompt.substr(shown));
}

bool PromptText::shows_value() const {
  return take_apart(literal_, shows_).value_at != std::string_view::npos;
}

}  // namespace shell
