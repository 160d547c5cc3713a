#include "shell/command_output.h"

#include "shell/output.h"

namespace shell {

CommandOutput::CommandOutput(const char* command)
    : stream_((flush_output(), platform::open_command(command))), lines_(stream_.descriptor) {}

CommandOutput::~CommandOutput() {
  if (started()) {
    platform::close_command(stream_);
  }
}

std::string_view CommandOutput::next_line() {
  return started() ? lines_.next(line_) : std::string_view{};
}

}  // namespace shell
