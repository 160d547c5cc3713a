#include "shell/prompt.h"

#include "config/values.h"
#include "shell/output.h"

namespace shell {
namespace {

void put_value(Shows shows, Value value, std::string_view text) {
  switch (shows) {
    case Shows::number:
      return put(Number(value));
    case Shows::address:
      return put(config::Ipv4::from_word(static_cast<std::uint32_t>(value)));
    case Shows::mac:
      return put(config::Mac::from_word(value));
    case Shows::text:
      return put(text);
    case Shows::nothing:
      return;
  }
}

}  // namespace

void PromptText::show(std::uint32_t number, Value value, std::string_view text) const {
  const PromptParts parts = take_apart(literal_, shows_);
  const char* shown = literal_;
  if (parts.number != nullptr) {
    put(std::string_view(shown, parts.number));
    put(Number(number));
    shown = parts.number + conversion_of(Shows::number).size();
  }
  if (parts.value != nullptr) {
    put(std::string_view(shown, parts.value));
    put_value(shows_, value, text);
  }
  put(std::string_view(parts.rest, parts.end));
}

}  // namespace shell
