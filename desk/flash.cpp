#include "flash.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace desk {
namespace {

// 64 and 320 KiB: whole erase blocks of any chip, so that writing a copy never erases bytes of another.
constexpr off_t first_copy = 0x10000;
constexpr std::size_t copy_room = 0x50000;
constexpr std::size_t header_size = 33;

bool report(const char* partition, const char* what, int error) {
  std::fprintf(stderr, "%s cannot be %s: %s\n", partition, what, std::strerror(error));
  return false;
}

// A partition that is open, and nobody else's as long as it is open for writing.
class Partition {
 public:
  Partition(const char* path, int flags) : path_(path), descriptor_(open(path, flags | O_CLOEXEC, 0644)) {
    if (descriptor_ < 0) {
      if (flags != O_RDONLY || errno != ENOENT) {
        report(path, "opened", errno);
      }
      return;
    }
    if (flags != O_RDONLY) {
      flock(descriptor_, LOCK_EX);
    }
    // Of a slow chip nothing is read ahead.
    posix_fadvise(descriptor_, 0, 0, POSIX_FADV_RANDOM);
  }
  ~Partition() {
    if (descriptor_ >= 0) {
      close(descriptor_);
    }
  }
  Partition(const Partition&) = delete;
  Partition& operator=(const Partition&) = delete;

  // Up to `size` bytes: fewer at the partition's end.
  std::string read(off_t from, std::size_t size) const {
    std::string bytes(size, '\0');
    const ssize_t got = descriptor_ < 0 ? 0 : pread(descriptor_, bytes.data(), size, from);
    if (got < 0) {
      report(path_, "read", errno);
    }
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return bytes;
  }

  std::string text() const {
    std::string text;
    for (;;) {
      const std::string piece = read(static_cast<off_t>(text.size()), 4096);
      const std::size_t end = piece.find_first_of(std::string_view("\0\xff", 2));
      text += piece.substr(0, end);
      if (piece.empty() || end != std::string::npos) {
        return text;
      }
    }
  }

  // Returns once the chip has it.
  bool write(off_t at, std::string_view bytes) const {
    if (descriptor_ < 0) {
      return false;
    }
    while (!bytes.empty()) {
      const ssize_t written = pwrite(descriptor_, bytes.data(), bytes.size(), at);
      if (written <= 0) {
        return report(path_, "written", written == 0 ? ENOSPC : errno);
      }
      at += written;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return fsync(descriptor_) == 0 || report(path_, "written", errno);
  }

 private:
  const char* path_;
  int descriptor_;
};

struct Copy {
  std::uint32_t number;  // counts the copies; 0 for one that is not intact
  std::string text;
};

// CRC-32 as in Ethernet.
std::uint32_t checksum(std::string_view bytes) {
  std::uint32_t sum = ~0U;
  for (const char byte : bytes) {
    sum ^= static_cast<std::uint8_t>(byte);
    for (int bit = 0; bit < 8; ++bit) {
      sum = (sum >> 1) ^ (0xedb88320U & (0U - (sum & 1U)));
    }
  }
  return ~sum;
}

// A copy as it lies in the partition: a line with checksum, number and size, and the text.
std::string record(const Copy& copy) {
  std::array<char, 32> line;
  std::snprintf(line.data(), line.size(), "%010u %06zu\n", copy.number, copy.text.size());
  const std::string summed = line.data() + copy.text;
  std::snprintf(line.data(), line.size(), "#copy %08x ", checksum(summed));
  return line.data() + summed;
}

off_t place(std::size_t slot) {
  return first_copy + static_cast<off_t>(slot * copy_room);
}

Copy copy_at(const Partition& partition, std::size_t slot) {
  Copy copy{};
  std::size_t size = 0;
  const std::string line = partition.read(place(slot), header_size);
  if (std::sscanf(line.c_str(), "#copy %*8x %10u %6zu", &copy.number, &size) != 2) {
    return {};
  }
  copy.text = partition.read(place(slot) + static_cast<off_t>(header_size), size);
  return record(copy) == line + copy.text ? copy : Copy{};
}

bool replace_text_of(const Partition& partition, std::string_view text) {
  const std::string old = partition.text();
  std::string bytes(text);
  bytes.resize(std::max(old.size(), text.size()), '\0');
  return old == text || partition.write(0, bytes);
}

}  // namespace

std::string read_text(const char* partition) {
  return Partition(partition, O_RDONLY).text();
}

bool replace_text(const char* partition, std::string_view text) {
  return replace_text_of(Partition(partition, O_RDWR | O_CREAT), text);
}

bool append_line(const char* partition, std::string_view line) {
  const Partition opened(partition, O_RDWR | O_CREAT);
  const std::string text = opened.text();
  // Behind a line that was cut off, it would be lost as well.
  const std::string_view separator = text.empty() || text.ends_with('\n') ? "" : "\n";
  return opened.write(static_cast<off_t>(text.size()), std::string(separator).append(line));
}

std::string read_copy(const char* partition) {
  const Partition opened(partition, O_RDONLY);
  Copy first = copy_at(opened, 0);
  Copy second = copy_at(opened, 1);
  return first.number > second.number ? first.text : second.text;
}

bool store_copy(const char* partition, std::string_view text) {
  const Partition opened(partition, O_RDWR | O_CREAT);
  const std::array<Copy, 2> copies = {copy_at(opened, 0), copy_at(opened, 1)};
  const std::size_t newest = copies[0].number > copies[1].number ? 0 : 1;
  if (copies[newest].text != text) {
    const std::string bytes = record({copies[newest].number + 1, std::string(text)});
    if (bytes.size() > copy_room) {
      return report(partition, "written", ENOSPC);
    }
    if (!opened.write(place(1 - newest), bytes)) {
      return false;
    }
  }
  return replace_text_of(opened, "");
}

}  // namespace desk
