// A file or a socket that is closed when its scope ends.
#pragma once

#include <utility>

#include "platform/platform.h"

namespace platform {

class Descriptor {
 public:
  // What was opened, or the negative errno value with which that failed.
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool is_open() const { return number_ >= 0; }
  int number() const { return number_; }

  // Sooner than the scope ends: 0, or the negative errno value with which the last write-back failed.
  int close() { return is_open() ? close_descriptor(std::exchange(number_, -1)) : 0; }
  // Closes nothing: the number is the caller's from now on.
  int release() { return std::exchange(number_, -1); }

 private:
  int number_;
};

}  // namespace platform
