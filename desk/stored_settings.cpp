#include "stored_settings.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "config/field_table.h"

namespace desk {
namespace {

using config::ConfigurationSegment;

// The complaint about a line that cannot be used, or nothing.
const char* apply_line(std::string_view line, ConfigurationSegment& segment) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) {
    return "is not name=value";
  }
  std::string name(line.substr(0, equals));
  const std::string_view value = line.substr(equals + 1);
  const std::size_t every = name.find("[*]");
  if (every != std::string::npos) {
    name[every + 1] = '0';
  }
  const std::optional<config::FieldElement> element = config::find_field(name);
  if (!element || element->field->kind == config::Field::Kind::reserved) {
    return "names no setting";
  }
  const std::size_t first = element->index;
  const std::size_t end = every == std::string::npos ? first + 1 : element->field->count;
  for (std::size_t i = first; i < end; ++i) {
    if (!config::set_field_value(*element->field, i, value, segment)) {
      return "has no value of its setting's kind";
    }
  }
  return nullptr;
}

// Damaged lines hold anything; what is shown of them stays short and printable.
std::string shown(std::string_view line) {
  std::string out(line.substr(0, 60));
  for (char& c : out) {
    c = c < ' ' || c > '~' ? '?' : c;
  }
  return out;
}

// How many lines were used. A missing file has none.
std::size_t apply_file(const char* path, ConfigurationSegment& segment) {
  std::ifstream file(path);
  if (!file && errno != ENOENT) {
    std::fprintf(stderr, "%s cannot be read: %s\n", path, std::strerror(errno));
  }
  std::size_t used = 0;
  std::string line;
  for (std::size_t number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line[0] == '#') {
      continue;
    }
    if (const char* const complaint = apply_line(line, segment)) {
      std::fprintf(stderr, "%s, line %zu %s and is skipped: %s\n", path, number, complaint,
                   shown(line).c_str());
    } else {
      ++used;
    }
  }
  return used;
}

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

bool load_settings(const char* partition, const char* defaults, ConfigurationSegment& segment) {
  segment = {};
  const std::size_t from_factory = apply_file(defaults, segment);
  return apply_file(partition, segment) + from_factory > 0;
}

bool store_settings(const char* partition, const ConfigurationSegment& segment) {
  std::string text = "#ver." FIRMWARE_VERSION "\n";
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count && field.kind != config::Field::Kind::reserved; ++i) {
      text += config::field_name(field, i) + '=' + config::field_value(field, i, segment) + '\n';
    }
  }

  const std::string path = partition;
  const std::string unfinished = path + ".new";
  const int file = open(unfinished.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (file < 0) {
    return failed(unfinished);
  }
  const bool written = write_and_flush(file, text);
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
