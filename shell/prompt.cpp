#include "shell/prompt.h"

#include "shell/output.h"

namespace shell {

void PromptText::show(int subject, std::string_view value) const {
  const auto [subject_at, value_at] = take_apart(literal_, shows_);
  const std::string_view text = literal_;
  std::size_t shown = 0;
  if (subject_at != std::string_view::npos) {
    put(text.substr(0, subject_at));
    put(Number(subject));
    shown = subject_at + std::string_view("%d").size();
  }
  if (value_at != std::string_view::npos) {
    put(text.substr(shown, value_at - shown));
    put(value);
    shown = value_at + conversion_of(shows_).size();
  }
  put(text.substr(shown));
}

bool PromptText::shows_value() const {
  return take_apart(literal_, shows_).value_at != std::string_view::npos;
}

}  // namespace shell
