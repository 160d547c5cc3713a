#include "shell/journal.h"

#include <algorithm>
#include <cstring>

#include "platform/platform.h"

namespace shell {
namespace {

// In front of each field's bytes.
struct Head {
  char* field;
  std::size_t size;
};

Head head_at(const char* entry) {
  Head head;
  std::memcpy(&head, entry, sizeof head);
  return head;
}

// [first, middle) and [middle, last).
void swap_neighbours(char* first, char* middle, char* last) {
  std::reverse(first, middle);
  std::reverse(middle, last);
  std::reverse(first, last);
}

}  // namespace

std::span<char> Journal::note(std::span<char> field) {
  const Head head{field.data(), field.size()};
  const std::span room = std::span(entries_).subspan(length_);
  if (sizeof head + head.size > room.size()) {
    __builtin_trap();
  }
  std::memcpy(room.data(), &head, sizeof head);
  length_ += sizeof head + head.size;
  return room.subspan(sizeof head, head.size);
}

void Journal::note_ahead() {
  char* const begin = entries_.data();
  swap_neighbours(begin, begin + ahead_from_, begin + length_);
  ahead_from_ = length_;
}

void Journal::put_before(const void* next, const void* field) {
  const std::span<char> place = entry_of(next);
  const std::span<char> entry = entry_of(field);
  if (place.empty() || entry.empty()) {
    return;
  }
  const char* const ahead = entries_.data() + ahead_from_;
  if ((place.data() < ahead) != (entry.data() < ahead)) {
    __builtin_trap();
  }
  if (entry.data() > place.data()) {
    swap_neighbours(place.data(), entry.data(), entry.data() + entry.size());
  } else {
    swap_neighbours(entry.data(), entry.data() + entry.size(), place.data());
  }
}

// With its head; empty when nothing is noted for the field.
std::span<char> Journal::entry_of(const void* field) {
  const std::span noted = std::span(entries_).first(length_);
  for (std::size_t at = 0; at < noted.size();) {
    const Head head = head_at(&noted[at]);
    const std::size_t size = sizeof head + head.size;
    if (head.field == field) {
      return noted.subspan(at, size);
    }
    at += size;
  }
  return {};
}

void Journal::commit() {
  const std::span noted = std::span(entries_).first(length_);
  write(noted.subspan(ahead_from_));
  write(noted.first(ahead_from_));
  length_ = ahead_from_ = 0;
}

void Journal::write(std::span<const char> entries) {
  while (!entries.empty()) {
    const Head head = head_at(entries.data());
    entries = entries.subspan(sizeof head);
    platform::write_shared(head.field, entries.first(head.size));
    entries = entries.subspan(head.size);
  }
}

}  // namespace shell
