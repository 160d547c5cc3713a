#include "support/dialogue.h"

#include <algorithm>
#include <sstream>

namespace tests {

Kind number(std::uint64_t low, std::uint64_t high) {
  const string lowest = std::to_string(low), highest = std::to_string(high);
  const string below = low > 0 ? std::to_string(low - 1) : "-1", above = std::to_string(high + 1);
  const string wraps_around = std::to_string((std::uint64_t{1} << 32) + low);
  return {{{lowest}, {highest}, {"0" + lowest, lowest}},
          {below, above, highest + "x", "-" + highest, "+" + highest, wraps_around, highest + "\0"s, "x\0"s}};
}

Kind one_of(const string& digits) {
  Kind kind;
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

Kind ipv4() {
  return {{{"1.0.0.0"}, {"255.255.255.255"}, {"001..02.3", "1.0.2.3"}, {".1.2.", "0.1.2.0"}},
          {"0.0.0.0", "192.168.0", "1.2.3.4.5", "1.2.3.0025", "0001.2.3.4", "1.2.3.256", "1.2.3.x", "-1.2.3.4",
           "1.2.3.4\0"s}};
}

Kind netmask() {
  return {{{"128.0.0.0"}, {"255.255.255.255"}, {"255.255.128.0"}},
          {"0.0.0.0", "0.255.255.255", "255.254.128.0", "253.0.0.0", "255.255.0.255", "255.x"}};
}

Kind mac() {
  return {{{"00:11:22:AA:bb:cF", "00:11:22:aa:bb:cf"}, {"ff:FF:09:90:af:fa", "ff:ff:09:90:af:fa"}},
          {"00-11-22-33-44-55", "0:11:22:33:44:55", "00:11:22:33:44:55:", "00:11:22:33:4:455", "00:11:22:33:44:5g",
           "00:11:22:33:44:5G", "00:11:22:33:44:/5", "00:11:22:33:44:@5", "00:11:22:33:44:`5"}};
}

// Refused are those too long, by one character and by far, and empty ones once they are cut at their NUL.
Kind text(std::size_t longest) {
  const string most = "%n" + string(longest - 2, 't');
  return {.accepted = {{"t"}, {most}}, .refused = {most + "t", string(511, 't'), "\0t"s}, .is_free = true};
}

Kind line(std::size_t longest) {
  Kind kind = text(longest);
  kind.with_line_feed = true;
  return kind;
}

namespace {

string name_of(const Question& question) {
  return config::field_name(*question.field->field, question.field->index);
}

std::span<std::uint8_t> bytes_of(const Question& question, FactoryDevice& device) {
  return config::field_bytes(*question.field->field, question.field->index, device.settings);
}

bool is_text(const Question& question) {
  return question.field && question.field->field->kind == config::Field::Kind::text;
}

// What the prompt shows: the value as it lies there, a word above the signed range as a negative number.
string shown_value(const Question& question, const config::ConfigurationSegment& settings) {
  if (is_text(question)) {
    const auto bytes = config::field_bytes(*question.field->field, question.field->index, settings);
    return {bytes.begin(), std::find(bytes.begin(), bytes.end(), 0)};
  }
  const string value =
      question.field ? config::field_value(*question.field->field, question.field->index, settings) : "";
  return value == "4294967295" ? "-1" : value;
}

string with_value(string prompt, const string& value) {
  for (const char* const conversion : {"%s", "%u.%u.%u.%u", "%02x:%02x:%02x:%02x:%02x:%02x", "%d"}) {
    prompt = replaced(prompt, conversion, value);
  }
  return prompt;
}

string end_of(const string& text, std::size_t length) {
  return text.substr(text.size() - std::min(text.size(), length));
}

FactoryDevice device_of(const Dialogue& dialogue) {
  FactoryDevice device = dialogue.device;
  for (const Question& question : dialogue.questions) {
    const bool is_of_a_slot = dialogue.adding && question.field && !question.field->field->table.empty();
    if (is_of_a_slot && !question.departs.marks_free) {
      std::ranges::fill(bytes_of(question, device), std::uint8_t{0xEE});  // what a free slot holds is nobody's business
    } else if (question.field && !is_of_a_slot) {
      device.set(name_of(question), question.stored);
    }
  }
  return device;
}

class Holding {
 public:
  explicit Holding(const Dialogue& dialogue) : dialogue_(dialogue), list_(dialogue.list) {
    for (Question& question : dialogue_.questions) {
      Kind& kind = question.kind;
      Departures& departs = question.departs;
      // Only where questions are asked again, and only as the whole line, q leaves the dialogue.
      const string q = asks_again() ? "Q" : "q";
      if (kind.is_free) {
        kind.accepted.push_back({q});
      } else if (std::ranges::find(kind.accepted, q, &Accepted::typed) == kind.accepted.end()) {
        kind.refused.push_back(q);
      }
      kind.refused = kind.refused + departs.also_refused;
      if (!departs.only.typed.empty()) {
        kind.accepted = {departs.only};
      }
      if (departs.too_long != TooLong::is_refused) {
        for (const string& longer : std::exchange(kind.refused, {})) {
          kind.accepted.push_back({longer, reported});
        }
      }
      departs.required = dialogue_.adding ? !departs.enter_stores : departs.required;
      if (departs.required) {
        kind.refused.emplace_back();
      }
    }
  }

  FactoryDevice hold() {
    const FactoryDevice stored = device_of(dialogue_);
    answer_all(stored);
    refuse_all(stored);
    for (const std::uint8_t byte : {std::uint8_t{0xFF}, std::uint8_t{2}}) {
      // A list of wild values is one of bytes 255.
      if (!dialogue_.adding && (byte == 0xFF || dialogue_.wild_list.empty())) {
        list_ = dialogue_.wild_list.empty() ? list_ : dialogue_.wild_list;
        answer_all(wild(stored, byte));
      }
    }
    return stored;
  }

 private:
  using Given = std::vector<const Accepted*>;  // nullptr is Enter
  static constexpr const char* reported = "<reported>";

  bool asks_again() const { return dialogue_.refusals == Refusals::ask_again; }

  // Texts of bytes 2 have a line feed among them.
  FactoryDevice wild(FactoryDevice device, std::uint8_t byte) const {
    for (const Question& question : dialogue_.questions) {
      if (question.field && !question.departs.tame && question.departs.only.typed.empty()) {
        std::ranges::fill(bytes_of(question, device), byte);
        if (is_text(question) && byte == 2) {
          bytes_of(question, device)[1] = '\n';
        }
      }
    }
    return device;
  }

  // Enter wherever it is taken, first answers elsewhere; then all first answers, all second ones, and so on.
  void answer_all(const FactoryDevice& device) {
    std::size_t most = 0;
    for (std::size_t number = 0; number <= most; ++number) {
      Given given;
      for (const Question& question : dialogue_.questions) {
        const auto& accepted = question.kind.accepted;
        const bool enter = number == 0 && !question.departs.required;
        given.push_back(enter ? nullptr : &accepted[std::clamp<std::size_t>(number, 1, accepted.size()) - 1]);
        most = std::max(most, accepted.size());
      }
      visit(device, given);
    }
  }

  // Each refusal, where the questions before have their first answers.
  void refuse_all(const FactoryDevice& device) {
    Given given;
    for (const Question& question : dialogue_.questions) {
      for (const string& refused : question.kind.refused) {
        visit(device, given, refused);
      }
      for (const string& value : question.departs.refused_when_kept) {
        visit(FactoryDevice(device).set(name_of(question), value), given, "");
      }
      given.push_back(&question.kind.accepted.front());
    }
  }

  // Gives these answers, and a refused one to the question behind them. No more in a test that has failed.
  void visit(const FactoryDevice& device, const Given& given, const string& refused = "") {
    if (testing::Test::HasFailure()) {
      return;
    }
    FactoryDevice expected = device, visited = device;
    typed_.clear();
    shown_ = replaced(dialogue_.opening, listed, list_);
    for (std::size_t row = 0; row < given.size(); ++row) {
      shown_ += ask(dialogue_.questions[row], expected);
      answer(dialogue_.questions[row], given[row], expected);
    }
    const bool refuses = given.size() < dialogue_.questions.size();
    if (refuses) {
      shown_.clear();  // the way there is that of the accepted answers
      refuse(dialogue_.questions[given.size()], refused, expected);
      expected = device;  // nothing is to change
    } else {
      shown_ += replaced(dialogue_.ending, listed, list_);
    }

    const Place& last = dialogue_.questions[given.size() - (refuses ? 0 : 1)].place;
    const testing::ScopedTrace trace(last.file_name(), static_cast<int>(last.line()),
                                     dialogue_.item.label + ", typed:\n" + typed_);
    string seen = visit_typing(visited, dialogue_.item, typed_);
    seen = refuses ? end_of(seen, shown_.size()) : seen;
    const auto same = static_cast<std::size_t>(std::ranges::mismatch(seen, shown_).in1 - seen.begin());
    EXPECT_EQ(seen.substr(same), shown_.substr(same)) << "behind:\n" << seen.substr(0, same);
    EXPECT_EQ(differences(expected.settings, visited.settings), "") << "stored wrongly";
  }

  // What the question shows, of a new record zeros. A text is cut then at its line feed, unless it is stored with one.
  string ask(const Question& question, FactoryDevice& expected) const {
    static const config::ConfigurationSegment zeros{};
    string value = shown_value(question, dialogue_.adding ? zeros : expected.settings);
    const std::size_t line_feed = value.find('\n');
    if (question.prompt.find("%s") != string::npos && line_feed != string::npos && !question.kind.with_line_feed) {
      bytes_of(question, expected)[line_feed] = 0;
      value.resize(line_feed);
    }
    return replaced(with_value(question.prompt, value), listed, list_);
  }

  void answer(const Question& question, const Accepted* given, FactoryDevice& expected) {
    const Departures& departs = question.departs;
    std::optional<string> stores = dialogue_.adding ? departs.enter_stores : std::nullopt;
    if (given != nullptr && given->stored == reported) {
      shown_ += illegal_value;
      stores = departs.too_long == TooLong::empties ? std::optional("") : std::nullopt;
    } else if (given != nullptr) {
      stores = given->stored + (question.kind.with_line_feed ? "\\x0a" : "");
    }
    if (question.field && stores) {
      expected.set(name_of(question), *stores);
    }
    typed_ += (given != nullptr ? given->typed : "") + "\n";
    shown_ += given == nullptr ? departs.shown_behind_enter : "";
    shown_ += replaced(with_value(departs.shown_behind, shown_value(question, expected.settings)), listed, list_);
    shown_ += asks_again() && departs.shown_behind.empty() ? "\n" : "";
  }

  void refuse(const Question& question, const string& typed, FactoryDevice& expected) {
    const bool is_choice = question.kind.is_choice && dialogue_.refusals == Refusals::by_kind;
    const string message = is_choice ? wrong_choice : illegal_value, own = question.departs.refusal;
    const string asked = ask(question, expected);
    typed_ += typed + (asks_again() ? "\nq\n" : "\n");
    shown_ += asked + (own.empty() ? message : own) + (asks_again() ? asked + "q:Exit\n" : "");
  }

  Dialogue dialogue_;
  string list_, typed_ = {}, shown_ = {};
};

}  // namespace

FactoryDevice hold(const Dialogue& dialogue) {
  return Holding(dialogue).hold();
}

void hold(const Item& item, const FactoryDevice& device, const std::vector<Visit>& visits) {
  for (const Visit& told : visits) {
    FactoryDevice visited = device, expected = device;
    const testing::ScopedTrace trace(told.place.file_name(), static_cast<int>(told.place.line()), item.label);
    const string seen = visit(visited, item, told.answers);
    EXPECT_EQ(end_of(seen, told.ending.size()), told.ending);
    std::istringstream changes(told.changes);
    auto before = visited.written.begin();
    for (string change; changes >> change;) {
      const string name = change.substr(0, change.find('='));
      expected.set(name, change.substr(name.size() + 1));
      const auto field = config::find_field(name).value();
      const auto written =
          std::ranges::find(visited.written, config::field_bytes(*field.field, field.index, visited.settings).data());
      if (written != visited.written.end()) {
        EXPECT_GE(written - before, 0) << name << " is written too early";
        before = written;
      }
    }
    EXPECT_EQ(differences(expected.settings, visited.settings), "") << "stored wrongly";
  }
}

}  // namespace tests
