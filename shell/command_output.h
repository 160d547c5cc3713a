// What a command prints, line by line.
#pragma once

#include <array>
#include <string_view>

#include "platform/line_reader.h"
#include "platform/platform.h"

namespace shell {

// A command line that runs through the system shell as long as this lives; the end waits for it.
class CommandOutput {
 public:
  // What was printed before it is on the screen by then.
  explicit CommandOutput(const char* command);
  ~CommandOutput();
  CommandOutput(const CommandOutput&) = delete;
  CommandOutput& operator=(const CommandOutput&) = delete;

  bool started() const { return stream_.descriptor >= 0; }

  // With its line feed, valid until the next one; empty at the end of the output, or when there is none. A
  // line longer than 255 characters comes in pieces.
  std::string_view next_line();

 private:
  platform::CommandStream stream_;
  platform::LineReader lines_;
  std::array<char, 255> line_;
};

}  // namespace shell
