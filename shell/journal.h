// The journal: what a dialogue is going to write, field by field, kept back until all its questions are
// answered.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>

namespace shell {

class Journal {
 public:
  Journal() = default;
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  // Room for what is going to be written into a field of the record, for the caller to fill in.
  std::span<char> note(std::span<char> field);

  // ---- The order in which the fields are written: as they were noted, but for these ----

  // What is noted from here on goes ahead of all that was noted until now.
  void note_ahead();
  // What is noted for `field` goes right before what is noted for `next`; nothing changes unless both are
  // noted.
  void put_before(const void* next, const void* field);

  // Writes it all, and is empty again.
  void commit();

 private:
  // Which entry comes next: its number, or `none`.
  using Link = std::uint8_t;
  static constexpr Link none = UINT8_MAX;
  struct Entry {
    char* field;
    std::uint16_t bytes_at;
    std::uint16_t size;
    Link next;
  };

  Link* link_to(const void* field);

  // Room for the longest dialogue, the two SIP lines with their servers; one that outgrows it stops the
  // program the first time it is run to its end.
  std::array<Entry, 64> entries_;
  static_assert(std::tuple_size_v<decltype(entries_)> <= none);
  std::array<char, 2048> bytes_;
  Link first_ = none;
  Link* insertion_ = &first_;  // the link that the next entry comes behind
  std::size_t count_ = 0;
  std::size_t used_ = 0;  // of bytes_
};

}  // namespace shell
