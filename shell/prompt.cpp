#include "shell/prompt.h"

#include "shell/output.h"

namespace shell {

void PromptText::show(int subject, std::string_view value) const {
  const std::string_view text{text_, length_};
  std::size_t shown = 0;
  if (subject_at_ != absent) {
    put(text.substr(0, subject_at_));
    print("%d", subject);
    shown = subject_at_ + std::string_view("%d").size();
  }
  if (value_at_ != absent) {
    put(text.substr(shown, value_at_ - shown));
    put(value);
    shown = std::size_t{value_at_} + value_length_;
  }
  put(text.substr(shown));
}

}  // namespace shell
