#include "shell/journal.h"

#include <utility>

#include "platform/platform.h"

namespace shell {

std::span<char> Journal::note(std::span<char> field) {
  if (count_ == entries_.size() || field.size() > bytes_.size() - used_) {
    __builtin_trap();
  }
  const std::span room = std::span(bytes_).subspan(used_, field.size());
  const auto number = static_cast<Link>(count_);
  Entry& entry = entries_[count_];
  entry = {field.data(), static_cast<std::uint16_t>(used_), static_cast<std::uint16_t>(field.size()),
           std::exchange(*insertion_, number)};
  insertion_ = &entry.next;
  ++count_;
  used_ += field.size();
  return room;
}

void Journal::note_ahead() {
  insertion_ = &first_;
}

void Journal::put_before(const void* next, const void* field) {
  Link* const from = link_to(field);
  if (*link_to(next) == none || *from == none) {
    return;
  }
  const Link moved = *from;
  Entry& entry = entries_[moved];
  if (insertion_ == &entry.next) {
    insertion_ = from;
  }
  *from = entry.next;
  entry.next = std::exchange(*link_to(next), moved);
}

// The link that leads to what is noted for the field; the last one of all, to none, when nothing is.
Journal::Link* Journal::link_to(const void* field) {
  Link* link = &first_;
  while (*link != none && entries_[*link].field != field) {
    link = &entries_[*link].next;
  }
  return link;
}

void Journal::commit() {
  for (Link at = first_; at != none; at = entries_[at].next) {
    const Entry& entry = entries_[at];
    platform::write_shared(entry.field, {&bytes_[entry.bytes_at], entry.size});
  }
  first_ = none;
  insertion_ = &first_;
  count_ = used_ = 0;
}

}  // namespace shell
