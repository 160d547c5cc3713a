// The journal: what a dialogue is going to write, field by field, kept back until all its questions are
// answered.
#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace shell {

class Journal {
 public:
  // Room for what is going to be written into a field of the record, for the caller to fill in.
  std::span<char> note(std::span<char> field);

  // ---- The order in which the fields are written: as they were noted, but for these ----

  // What is noted from here on goes ahead of all that was noted until now.
  void note_ahead();
  // What is noted for `field` goes right before what is noted for `next`; nothing changes unless both are
  // noted. No note_ahead() may lie between them: that stops the program.
  void put_before(const void* next, const void* field);

  // Writes it all, and is empty again.
  void commit();

 private:
  static void write(std::span<const char> entries);
  std::span<char> entry_of(const void* field);

  std::size_t length_ = 0;
  std::size_t ahead_from_ = 0;  // where the entries begin that go ahead of the others
  // One entry per field: its address, its size, its bytes. Room for the longest dialogue, the two SIP lines
  // with their servers; a dialogue that outgrows it stops the program the first time it is run to its end.
  std::array<char, 3072> entries_;
};

}  // namespace shell
