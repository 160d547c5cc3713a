// Dialogues as tables of questions. A row states the field, what it holds, the prompt with the conversion of the value
// it shows, and what kind of answer it takes; how it departs from the others is named behind that:
//
//   Question(fields.sip.sip_port, 5060, "SIP Port Number?<%d>(1024~65535):", number(1024, 65535)),
//   Question(fields.sip.sip_host_name, "hub", "Host Name?<%s>(MAX Character:35):", text(35),
//            {.too_long = TooLong::empties}),
//
// A failure names the row that was answered last.
#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <source_location>
#include <string>
#include <utility>
#include <vector>

#include "config/field_table.h"
#include "support/session.h"

namespace tests {

// Its members name the fields of the segment.
inline config::ConfigurationSegment fields;

struct Accepted {
  string typed;
  string stored = typed;  // as the field table writes it
};

struct Kind {
  std::vector<Accepted> accepted;
  Strings refused;
  bool is_choice = false;  // exactly one character
  bool is_free = false;    // any text
  bool with_line_feed = false;
};

Kind number(std::uint64_t low, std::uint64_t high);
Kind one_of(const string& digits);
Kind ipv4();
Kind netmask();
Kind mac();
Kind text(std::size_t longest);
Kind line(std::size_t longest);  // stored with the line feed that ended it

enum class TooLong : std::uint8_t { is_refused, empties, keeps };

// How a question departs from the others.
struct Departures {
  Accepted only = {};   // the one answer that leads to the next row; the field is never wild
  string refusal = {};  // in place of the dialogue's
  Strings also_refused = {};
  Strings refused_when_kept = {};  // what the field may hold, and Enter does not keep
  TooLong too_long = {};           // what becomes of a text that is
  bool required = false;           // Enter is refused as well
  bool tame = false;               // the field is never wild: such a value is judged when it is kept
  string shown_behind = {};
  string shown_behind_enter = {};  // before that
  // Of a new record:
  std::optional<string> enter_stores = {};
  bool marks_free = false;  // what the field holds marks the slot as free
};

struct Stored {
  string value;  // as the field table writes it
  Stored(std::integral auto number) : value(std::to_string(number)) {}
  Stored(const char* text) : value(text) {}
};

using Place = std::source_location;

struct Question {
  template <typename Field>
  Question(Field& member, const Stored& holds, string asked, const Kind& takes, Departures departures = {},
           Place at = Place::current())
      : Question(std::move(asked), takes, std::move(departures), at) {
    field = config::field_at(reinterpret_cast<char*>(&member) - reinterpret_cast<char*>(&fields));
    stored = holds.value;
  }
  // No setting of its own: which record, which action.
  Question(string asked, const Kind& takes, Departures departures = {}, Place at = Place::current())
      : prompt(std::move(asked)), kind(takes), departs(std::move(departures)), place(at) {}

  std::optional<config::FieldElement> field;
  string stored, prompt;
  Kind kind;
  Departures departs;
  Place place;
};

enum class Refusals : std::uint8_t {
  by_kind,     // message 1 for a choice, message 2 for anything else; the dialogue ends
  as_illegal,  // message 2; the dialogue ends
  ask_again,   // message 2 and the same question, until q; an empty line behind each answer
};

struct Dialogue {
  Item item;
  Refusals refusals = Refusals::by_kind;
  string opening = keep_with_enter;  // before the first question
  std::vector<Question> questions = {};
  string ending = {};         // behind the last one
  FactoryDevice device = {};  // what is stored besides

  bool adding = false;  // a new record: prompts show zero, and require an answer
  // What stands for `listed` in the texts, with the stored values and with wild ones.
  string list = {}, wild_list = {};
};
inline const string listed = "<the list>";

// All kept, over the stored values and over wild ones (bytes 255 or 2, texts with a line feed): the whole transcript,
// and nothing changes. With each accepted answer over either: the whole transcript, and these fields change and no
// other byte. With each refused answer behind accepted ones: how it ends, and nothing is saved or changes. Returns the
// device on which it begins: the fields hold what the rows say.
FactoryDevice hold(const Dialogue& dialogue);

// A visit that follows from no row, told by its answers; Enter at every other question.
struct Visit {
  Answers answers;
  string ending;  // of what is shown
  // "name=value" of each element that is different then, in the order of writing; \x20 for a blank in it.
  string changes = {};
  Place place = Place::current();
};

void hold(const Item& item, const FactoryDevice& device, const std::vector<Visit>& visits);

}  // namespace tests
