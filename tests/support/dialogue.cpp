#include "support/dialogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace tests {

using std::string;

config::ConfigurationSegment fields;

// ---- Kinds of answer ----

namespace {

const string nul(1, '\0');

TextKind text_kind(const string& character, std::size_t longest, const string& line_feed) {
  const string most = character == "7" ? string(longest, '7') : "%n" + string(longest - 2, character[0]);
  TextKind kind;
  kind.accepted = {{character, character + line_feed}, {most, most + line_feed}};
  // Too long, by one character and by far; and empty once it is cut at its NUL.
  kind.refused = {most + character, string(511, character[0]), nul + character};
  kind.with_line_feed = !line_feed.empty();
  kind.is_free = character == "t";
  return kind;
}

}  // namespace

NumberKind number(std::uint64_t low, std::uint64_t high) {
  const string lowest = std::to_string(low), highest = std::to_string(high);
  const string below = low > 0 ? std::to_string(low - 1) : "-1", above = std::to_string(high + 1);
  const string wraps_around = std::to_string((std::uint64_t{1} << 32) + low);
  return {{{{lowest}, {highest}, {"0" + lowest, lowest}},
           {below, above, highest + "x", "-" + highest, "+" + highest, wraps_around, highest + nul, "x" + nul}}};
}

NumberKind one_of(const string& digits) {
  NumberKind kind;
  kind.is_choice = true;
  kind.refused = {"0" + digits.substr(0, 1), digits.substr(0, 1) + "x"};
  for (const char character : string("0123456789/:x")) {
    if (digits.find(character) != string::npos) {
      kind.accepted.push_back({string(1, character)});
    } else {
      kind.refused.emplace_back(1, character);
    }
  }
  return kind;
}

AddressKind ipv4() {
  return {{{{"1.0.0.0"}, {"255.255.255.255"}, {"001..02.3", "1.0.2.3"}, {".1.2.", "0.1.2.0"}},
           {"0.0.0.0", "192.168.0", "1.2.3.4.5", "1.2.3.0256", "1.2.3.256", "1.2.3.x", "1.2.3.4-", "-1.2.3.4",
            "1,2,3,4", "1.2.3.4" + nul}}};
}

AddressKind netmask() {
  return {{{{"128.0.0.0"}, {"255.255.255.255"}, {"255.255.128.0"}, {"255.255.255.254"}},
           {"0.0.0.0", "255.0.255.0", "255.255.255.1", "0.255.255.255", "255.254.128.0", "253.0.0.0", "255.255.0.255",
            "128.128.0.0", "255.x"}}};
}

MacKind mac() {
  return {
      {{{"00:11:22:AA:bb:cF", "00:11:22:aa:bb:cf"}, {"ff:FF:09:90:af:fa", "ff:ff:09:90:af:fa"}, {"00:00:00:00:00:00"}},
       {"00-11-22-33-44-55", "0:11:22:33:44:55", "00:11:22:33:44:55:", "00:11:22:33:4:455", "00:11:22:33:44:5g",
        "00:11:22:33:44:5G", "00:11:22:33:44:/5", "00:11:22:33:44:@5", "00:11:22:33:44:`5", "00:11:22:33:44.55",
        "00:11:22:33:44:55x" + nul}}};
}

TextKind text(std::size_t longest) {
  return text_kind("t", longest, "");
}

TextKind line(std::size_t longest) {
  return text_kind("t", longest, "\\x0a");
}

TextKind digits(std::size_t longest) {
  TextKind kind = text_kind("7", longest, "");
  kind.refused.insert(kind.refused.end(), {"12a", "1-2", "7" + nul});
  return kind;
}

// ---- Questions ----

std::optional<config::FieldElement> Question::element_at(const void* member) {
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count; ++i) {
      if (config::field_bytes(field, i, fields).data() == member) {
        return config::FieldElement{&field, i};
      }
    }
  }
  return std::nullopt;
}

namespace {

string name_of(const Question& question) {
  return question.field ? config::field_name(*question.field->field, question.field->index) : question.prompt;
}

std::span<std::uint8_t> bytes_of(const Question& question, Desk& desk) {
  return config::field_bytes(*question.field->field, question.field->index, desk.settings);
}

bool is_text(const Question& question) {
  return question.field && question.field->field->kind == config::Field::Kind::text;
}

bool is_of_a_record(const Question& question) {
  return question.field && !question.field->field->table.empty();
}

// What the prompt shows: the value as it lies there, a word above the signed range as a negative number.
string shown_value(const Question& question, const config::ConfigurationSegment& settings) {
  if (!question.field) {
    return "";
  }
  const auto& [field, index] = *question.field;
  if (is_text(question)) {
    const auto bytes = config::field_bytes(*field, index, settings);
    return {bytes.begin(), std::find(bytes.begin(), bytes.end(), 0)};
  }
  const string value = config::field_value(*field, index, settings);
  return value == "4294967295" ? "-1" : value;
}

string with_value(const string& prompt, const string& value) {
  for (const char* const conversion : {"%s", "%u.%u.%u.%u", "%02x:%02x:%02x:%02x:%02x:%02x", "%d"}) {
    if (prompt.find(conversion) != string::npos) {
      return replaced(prompt, conversion, value);
    }
  }
  return prompt;
}

string escaped(const string& text) {
  return replaced(replaced(text, "\n", "\\n"), nul, "\\0");
}

// Some words before the place of interest, and some behind it.
string around(const string& text, std::size_t at) {
  const std::size_t from = at - std::min<std::size_t>(at, 60);
  return (from > 0 ? "..." : "") + escaped(text.substr(from, 160)) + (text.size() > from + 160 ? "..." : "");
}

// The last lines of what was typed.
string last_lines(const string& typed) {
  const string lines = typed.size() > 60 ? "..." + typed.substr(typed.size() - 60) : typed;
  return escaped(lines);
}

// What a difference between the two means, for the person who reads it.
string difference(const string& expected, const string& seen, std::size_t at) {
  return "\n  expected: " + around(expected, at) + "\n  seen:     " + around(seen, at);
}

std::size_t first_difference(const string& a, const string& b) {
  return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

// A visit under way: the desk it begins on, what that is to hold when it is over, what is typed and shown.
struct Road {
  Desk desk, expected = desk;
  string typed = {}, shown = {};
  std::vector<std::pair<std::size_t, const Question*>> rows = {};  // whose words begin where in `shown`
};

class Holding {
 public:
  explicit Holding(const Dialogue& dialogue) : dialogue_(dialogue), list_(dialogue.list) {
    for (Question& question : dialogue_.questions) {
      add_q(question);
      too_long_goes_on(question);
      if (needs_answer(question) && !question.departs.enter_stores && !question.departs.enter_keeps) {
        question.kind.refused.emplace_back();
      }
    }
  }

  void hold() {
    const Desk stored = desk_of(dialogue_);
    pass(stored, std::nullopt);
    refuse_all(stored);
    accept_all(stored);
    if (!dialogue_.adding) {
      list_ = dialogue_.wild_list.empty() ? list_ : dialogue_.wild_list;
      for (const std::uint8_t byte : dialogue_.wild_list.empty() ? Wild{0xFF, 2} : Wild{0xFF}) {
        const Desk desk = wild(stored, byte);
        pass(desk, std::nullopt);
        accept_all(desk);
      }
    }
  }

 private:
  using Wild = std::vector<std::uint8_t>;

  bool asks_again() const { return dialogue_.refusals == Refusals::ask_again; }

  bool needs_answer(const Question& question) const { return dialogue_.adding || question.departs.required; }

  // Only where questions are asked again, and only as the whole line, it leaves the dialogue.
  void add_q(Question& question) const {
    const string q = asks_again() ? "Q" : "q";
    Kind& kind = question.kind;
    if (kind.is_free) {
      kind.accepted.push_back({q, q + (kind.with_line_feed ? "\\x0a" : "")});
    } else if (std::ranges::find(kind.accepted, q, &Accepted::typed) == kind.accepted.end()) {
      kind.refused.push_back(q);
    }
    std::ranges::copy(question.departs.also_refused, std::back_inserter(question.kind.refused));
  }

  static void too_long_goes_on(Question& question) {
    if (question.departs.too_long != TooLong::is_refused) {
      for (const string& longer : std::exchange(question.kind.refused, {})) {
        question.kind.accepted.push_back({longer, "<reported>"});
      }
    }
  }

  Desk wild(Desk desk, std::uint8_t byte) const {
    bool line_feed = false;
    for (const Question& question : dialogue_.questions) {
      const bool tame = question.departs.tame || !question.departs.only.typed.empty();
      if (question.field && !tame && (byte == 0xFF || question.field->field->width == 1)) {
        std::ranges::fill(bytes_of(question, desk), byte);
        // Every second text has a line feed, where no list shows it.
        if (is_text(question) && std::exchange(line_feed, !line_feed) && dialogue_.list.empty()) {
          bytes_of(question, desk)[1] = '\n';
        }
      }
    }
    return desk;
  }

  // ---- Going from question to question ----

  // Shows the question, of a new record with zeros. A text that it shows is cut at its line feed, unless it
  // is stored with one.
  void ask(Road& road, const Question& question) const {
    static const config::ConfigurationSegment zeros{};
    road.rows.emplace_back(road.shown.size(), &question);
    string value = shown_value(question, dialogue_.adding ? zeros : road.expected.settings);
    const std::size_t line_feed = value.find('\n');
    if (question.prompt.find("%s") != string::npos && line_feed != string::npos && !question.kind.with_line_feed) {
      bytes_of(question, road.expected)[line_feed] = 0;
      value.resize(line_feed);
    }
    road.shown += with_value(question.prompt, value);
  }

  void answer(Road& road, const Question& question, const Accepted* given) const {
    road.typed += (given != nullptr ? given->typed : "") + "\n";
    const bool reported = given != nullptr && given->stored == "<reported>";
    const bool keeps = reported ? question.departs.too_long == TooLong::keeps : given == nullptr;
    if (question.field && !keeps) {
      road.expected.set(name_of(question), reported ? "" : given->stored);
    } else if (question.field && given == nullptr && question.departs.enter_stores && dialogue_.adding) {
      road.expected.set(name_of(question), *question.departs.enter_stores);
    }
    road.shown += reported ? illegal_value : "";
    const Departures& departs = question.departs;
    const string behind =
        given == nullptr ? departs.shown_behind_enter.value_or(departs.shown_behind) : departs.shown_behind;
    road.shown += with_value(behind, shown_value(question, road.expected.settings));
    road.shown += asks_again() && departs.shown_behind.empty() ? "\n" : "";
  }

  Road road_from(const Desk& desk) const {
    Road road{desk};
    road.typed = dialogue_.way_in;
    road.shown = dialogue_.opening;
    return road;
  }

  // The answer that leads on: where there is not only one that does, the one with that number, or the last.
  static const Accepted& leading(const Question& question, std::size_t number = 0) {
    const auto& accepted = question.kind.accepted;
    return !question.departs.only.typed.empty() ? question.departs.only
                                                : accepted[std::min(number, accepted.size() - 1)];
  }

  // All questions answered with their answer of that number, or the last one they have; or with Enter.
  void pass(const Desk& desk, std::optional<std::size_t> number) {
    Road road = road_from(desk);
    for (const Question& question : dialogue_.questions) {
      ask(road, question);
      const bool enter = !number && (!needs_answer(question) || (dialogue_.adding && question.departs.enter_keeps) ||
                                     (dialogue_.adding && question.departs.enter_stores));
      answer(road, question, enter ? nullptr : &leading(question, number.value_or(0)));
    }
    dialogue_.completed(road.expected.settings);
    end(road, dialogue_.ending);
  }

  void accept_all(const Desk& desk) {
    std::size_t passes = 0;
    for (const Question& question : dialogue_.questions) {
      passes = std::max(passes, question.kind.accepted.size());
    }
    for (std::size_t i = 0; i < passes; ++i) {
      pass(desk, i);
    }
  }

  // Each refusal, where the questions before have their first answers: nothing is to change.
  void refuse_all(const Desk& desk) {
    Road road = road_from(desk);
    for (const Question& question : dialogue_.questions) {
      Road asked{desk};
      ask(asked, question);
      const string message = !question.departs.refusal.empty() ? question.departs.refusal
                             : question.kind.is_choice && dialogue_.refusals == Refusals::by_kind ? wrong_choice
                                                                                                  : illegal_value;
      ask(road, question);
      for (const string& refused : question.kind.refused) {
        Road refusal = road;
        refusal.expected = asked.expected;
        refusal.typed += refused + (asks_again() ? "\nq\n" : "\n");
        end(refusal, message + (asks_again() ? asked.shown + "q:Exit\n" : ""));
      }
      answer(road, question, &leading(question));
    }
  }

  // ---- The end of a visit ----

  // Reports the first visit that is not as expected, and makes no other then.
  void end(Road road, const string& ending) {
    if (failed_) {
      return;
    }
    const string typed = road.typed + dialogue_.way_out;
    const string expected = replaced(road.shown + ending + dialogue_.shown_on_the_way_out, listed, list_);
    Desk desk = road.desk;
    const string seen = visit_typing(desk, dialogue_.item, typed);
    const string changes = differences(road.expected.settings, desk.settings);
    if (seen != expected) {
      const std::size_t at = first_difference(expected, seen);
      report(row_at(road, at), typed, difference(expected, seen, at));
    } else if (!changes.empty()) {
      report(row_of(road, changes), typed, "\n  stored wrongly: " + changes.substr(0, 400));
    }
  }

  const Question& row_at(const Road& road, std::size_t at) const {
    const Question* row = road.rows.front().second;
    for (const auto& [begin, question] : road.rows) {
      row = replaced(road.shown.substr(0, begin), listed, list_).size() <= at ? question : row;
    }
    return *row;
  }

  static const Question& row_of(const Road& road, const string& changes) {
    for (const auto& [begin, question] : road.rows) {
      if (changes.starts_with(name_of(*question) + "=")) {
        return *question;
      }
    }
    return *road.rows.back().second;
  }

  void report(const Question& row, const string& typed, const string& what) {
    failed_ = true;
    ADD_FAILURE_AT(row.file, row.line) << dialogue_.item.label << ", " << name_of(row)
                                       << "\n  typed:    " << last_lines(typed) << what;
  }

  Dialogue dialogue_;
  string list_;
  bool failed_ = false;
};

}  // namespace

Desk desk_of(const Dialogue& dialogue) {
  Desk desk = dialogue.desk;
  for (const Question& question : dialogue.questions) {
    // What a free slot holds is nobody's business.
    if (dialogue.adding && is_of_a_record(question)) {
      if (!question.departs.marks_free) {
        std::ranges::fill(bytes_of(question, desk), std::uint8_t{0xEE});
      }
    } else if (question.field) {
      desk.set(name_of(question), question.stored);
    }
  }
  return desk;
}

void hold(const Dialogue& dialogue) {
  Holding(dialogue).hold();
}

void hold(const Item& item, const Desk& desk, const std::vector<Visit>& visits) {
  for (const Visit& told : visits) {
    const testing::ScopedTrace trace(told.file, told.line, "the visit");
    Desk visited = desk, expected = desk;
    const string seen = visit(visited, item, told.answers);
    const string last = seen.substr(seen.size() - std::min(seen.size(), told.ending.size()));
    if (last != told.ending) {
      ADD_FAILURE_AT(told.file, told.line)
          << "Ending" << difference(told.ending, last, first_difference(told.ending, last));
    }
    std::istringstream changes(told.changes);
    for (string change; changes >> change;) {
      expected.set(change.substr(0, change.find('=')), change.substr(change.find('=') + 1));
    }
    if (const string wrong = differences(expected.settings, visited.settings); !wrong.empty()) {
      ADD_FAILURE_AT(told.file, told.line) << "Stored: " << wrong.substr(0, 400) << "\n  in place of: " << told.changes;
    }
  }
}

}  // namespace tests
