#include "flash.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace desk {
namespace {

bool failed(const std::string& path) {
  std::fprintf(stderr, "%s cannot be written: %s\n", path.c_str(), std::strerror(errno));
  return false;
}

bool write_and_flush(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written < 0) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return fsync(descriptor) == 0;
}

}  // namespace

bool replace_contents(const char* partition, std::string_view contents) {
  const std::string path = partition;
  const std::string unfinished = path + ".new";
  const int file = open(unfinished.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (file < 0) {
    return failed(unfinished);
  }
  const bool written = write_and_flush(file, contents);
  if (!written) {
    failed(unfinished);
  }
  close(file);
  if (!written) {
    unlink(unfinished.c_str());
    return false;
  }
  if (rename(unfinished.c_str(), partition) < 0) {
    return failed(path);
  }
  // The new name itself reaches storage with its directory.
  const int directory = open(path.substr(0, path.rfind('/')).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const bool flushed = directory >= 0 && fsync(directory) == 0;
  if (!flushed) {
    failed(path);
  }
  if (directory >= 0) {
    close(directory);
  }
  return flushed;
}

}  // namespace desk
