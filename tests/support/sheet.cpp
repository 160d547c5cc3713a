#include "support/sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>

#include "config/field_table.h"

namespace tests {

using std::string;

string replaced(string text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

namespace {

using Kind = config::Field::Kind;

struct Answer {
  string typed;
  std::optional<string> stored = {};  // nothing: the old value stays
  string shown = {};
};

struct Question {
  string field, text, follows, message;
  std::vector<Answer> accepted = {};
  std::vector<string> refused = {};
  std::optional<Answer> enter = {};
  std::vector<std::pair<string, string>> falling = {};  // refused: the second as an answer behind the first
  string falling_message = {};
  bool wild = true;

  bool shows_value() const { return text.find('$') != string::npos; }
};

// A visit under way: the desk as it is before and is to be after it.
struct Road {
  Desk desk, expected;
  string list, shown, typed = {};
};

string repeated(string text) {
  for (std::size_t at = 0, digits = 0; (at = text.find('*', at)) != string::npos;) {
    const std::size_t times = std::stoul(text.substr(at + 1), &digits);
    text.replace(at, digits + 1, times - 1, text[at - 1]);
  }
  return text;
}

// Takes a text off, and the separator behind it.
string column(string& row, std::string_view separator = " |") {
  const string text = row.substr(0, row.find(separator));
  row.erase(0, text.size() + separator.size());
  return text.starts_with(' ') ? text.substr(1) : text;
}

std::vector<string> words(const string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<string>(in), {}};
}

// ---- What a question takes ----

void accept(Question& question, const string& answers) {
  for (string word : words(answers)) {
    const bool as_typed = word.find('>') == string::npos;
    const string typed = column(word, ">");
    question.accepted.push_back({repeated(typed), repeated(as_typed ? typed : word)});
  }
}

void refuse(Question& question, const string& answers) {
  for (const string& word : words(answers)) {
    question.refused.push_back(repeated(word));
  }
}

void take_digits(Question& question, const string& set) {
  for (const char digit : string("0123456789/:x")) {
    (set.find(digit) == string::npos ? refuse : accept)(question, {digit});
  }
  refuse(question, "0" + question.accepted[0].typed);
}

void take_numbers(Question& question, std::uint64_t low, std::uint64_t high) {
  const auto text = [](std::uint64_t number) { return std::to_string(number); };
  accept(question, text(low) + " " + text(high) + " 0" + text(low) + ">" + text(low));
  refuse(question, text(high + 1) + " " + text(high) + "x -" + text(high) + " +" + text(high) + " " +
                       text((std::uint64_t{1} << 32) + low) + (low > 0 ? " " + text(low - 1) : ""));
}

void take_address(Question& question, const string& word) {
  if (word == "mac") {
    accept(question, "00:11:22:AA:bb:cF ff:FF:09:90:af:fa 00:00:00:00:00:00");
    refuse(question,
           "00-11-22-33-44-55 0:11:22:33:44:55 00:11:22:33:44:55: 00:11:22:33:4:455 00:11:22:33:44:5g "
           "00:11:22:33:44:5G 00:11:22:33:44:/5 00:11:22:33:44:@5 00:11:22:33:44:`5 00:11:22:33:44.55");
    return;
  }
  refuse(question, "0.0.0.0 192.168.0 1.2.3.4.5 1.2.3.0256 1.2.3.256 1.2.3.x 1.2.3.4- -1.2.3.4 1,2,3,4");
  if (word == "ip") {
    accept(question, "1.0.0.0 255.255.255.255 001..02.3>1.0.2.3 .1.2.>0.1.2.0");
  } else {
    accept(question, "128.0.0.0 255.255.255.255 255.255.128.0 255.255.255.254");
    refuse(question,
           "255.0.255.0 255.255.255.1 0.255.255.255 255.254.128.0 253.0.0.0 255.255.0.255 128.128.0.0");
  }
}

void take_text(Question& question, const string& kind, std::size_t longest) {
  const string one = kind == "digits" ? "7" : "t", end = kind == "line" ? "\\x0a" : "";
  const string most = kind == "digits" ? string(longest, '7') : "%n" + string(longest - 2, 't');
  accept(question, one + ">" + one + end + " " + most + ">" + most + end);
  refuse(question, most + one + " " + one + "*511" + (kind == "digits" ? " 12a 1-2" : ""));
  if (kind == "digits") {
    question.refused.push_back(string("7\0", 2));
  }
}

// The words of a row's answers.
void take(Question& question, string answers, bool adding) {
  unsigned long low = 0, high = 0;
  std::istringstream accepted(column(answers, "!"));
  for (string word, next; accepted >> word;) {
    if (word.starts_with('[')) {
      take_digits(question, word);
    } else if (std::sscanf(word.c_str(), "%lu..%lu", &low, &high) == 2) {
      take_numbers(question, low, high);
    } else if (word == "ip" || word == "mask" || word == "mac") {
      take_address(question, word);
    } else if (word == "text" || word == "line" || word == "digits") {
      accepted >> high;
      take_text(question, word, high);
    } else if (word == "empties" || word == "keeps") {
      for (const string& longer : std::exchange(question.refused, {})) {
        question.accepted.push_back(
            {longer, word == "empties" ? std::optional(string()) : std::nullopt, "&illegal"});
      }
    } else if (word == "as") {
      accepted >> word;
      question.accepted.clear();
      question.wild = false;
      accept(question, word);
    } else if (word == "firm") {
      question.wild = false;
    } else if (word == "required") {
      question.enter.reset();
    } else if (word == "or0" || word == "orempty" || word == "optional") {
      const bool keeps = !adding || word == "optional";
      question.enter = Answer{"", keeps ? std::nullopt : std::optional<string>(word == "or0" ? "0" : "")};
    } else if (word.starts_with("shows:")) {
      question.enter->shown = word.substr(6);
    } else if (word.starts_with("rising:")) {
      question.falling_message = "&" + word.substr(7);
      question.falling = {{question.accepted[1].typed, question.accepted[0].typed}};
      if (question.accepted[0].typed == "1.0.0.0") {  // octet by octet
        question.falling = {{"1.2.3.9", "2.2.3.8"}, {"2.2.3.8", "1.2.3.9"}};
      }
    } else {
      accept(question, word);
    }
  }
  refuse(question, answers);
}

class Sheet {
 public:
  Sheet(const Dialogue& of, string text) : dialogue_(of), stored_(of.desk) {
    for (const config::Field& field : config::field_table()) {
      for (std::size_t i = 0; i < field.count && adding(); ++i) {
        if (config::field_name(field, i).starts_with(dialogue_.record)) {
          const auto bytes = config::field_bytes(field, i, stored_.settings);
          std::fill(bytes.begin(), bytes.end(), std::uint8_t{0xEE});
        }
      }
    }
    set(stored_, dialogue_.vacant);
    text = replaced(text, "\\\n", "");
    if (const std::size_t each = text.find("each 0 1\n"); each != string::npos) {
      const string rows = text.substr(each + 9);
      text = text.substr(0, each) + replaced(rows, "#", "0") + replaced(rows, "#", "1");
    }
    std::istringstream lines(text);
    for (string line; std::getline(lines, line);) {
      if (line.starts_with("> ") || line.starts_with("= ")) {
        visits_.push_back(line);
      } else if (!line.empty() && !line.starts_with(adding() ? "~ " : "+ ")) {
        read_row(line.substr(line.starts_with("+ ") || line.starts_with("~ ") ? 2 : 0));
      }
    }
  }

  void hold() const {
    Desk wild = stored_, odd = stored_;
    std::size_t passes = 0;
    for (const Question& question : questions_) {
      passes = std::max(passes, question.accepted.size());
      const auto element = config::find_field(question.field);
      if (element && question.wild) {
        const auto bytes = config::field_bytes(*element->field, element->index, wild.settings);
        std::fill(bytes.begin(), bytes.end(), std::uint8_t{0xFF});
        if (element->field->kind == Kind::text && question.shows_value()) {
          odd.set(question.field, "o\\x0add");
        }
      }
    }
    const Road usual{stored_, stored_, dialogue_.list, dialogue_.opening, dialogue_.choose};
    const Road over_wild{wild, wild, dialogue_.wild_list, dialogue_.opening, dialogue_.choose};
    pass(usual, {});
    if (!adding()) {
      pass(over_wild, {});
    }
    if (!adding() && dialogue_.list.empty()) {
      pass({odd, odd, "", dialogue_.opening, dialogue_.choose}, {});
    }
    for (std::size_t i = 0; i < passes; ++i) {
      pass(i % 2 == 0 || adding() ? usual : over_wild, i);
    }
    refuse_all(usual);
    Desk before = stored_;
    for (string line : visits_) {
      if (line.starts_with("= ")) {
        before = stored_;
        set(before, line.substr(2));
      } else {
        visit_as_told(before, line.substr(2));
      }
    }
  }

 private:
  bool adding() const { return !dialogue_.vacant.empty(); }
  bool asks_again() const { return dialogue_.refusal == Dialogue::asks_again; }

  string full_name(const string& name) const {
    return config::find_field(name) ? name : dialogue_.record + replaced(name, "@", "");
  }

  void set(Desk& desk, const string& settings) const {
    for (string setting : words(settings)) {
      const string name = column(setting, "=");
      desk.set(full_name(name), replaced(repeated(setting), "_", " "));
    }
  }

  string in_full(string text, const string& list) const {
    const std::pair<const char*, string> short_forms[] = {
        {"&done", dialogue_.ending},
        {"&list", list},
        {"&dump", "{/opt/httpd/sbin/web_server dumpshare}"},
        {"&keep", "Please answer the question and use [enter] to keep original setting value\n\n"},
        {"&select", "Your select is wrong!!\n\n"},
        {"&illegal", "Your input value is illegal!!\n\n"},
        {"&saved", "Setting Save!!\n\n"},
        {"&range", "IP Range Error!!\n\n"},
        {"&full", "No more space to creat new rule!!\n\n"},
        {"&ports", "Port Range Error!!\n\n"},
        {"&bar", "|"},
        {"\\n", "\n"},
    };
    for (const auto& [short_form, whole] : short_forms) {
      text = replaced(text, short_form, whole);
    }
    return text;
  }

  void read_row(string row) {
    if (row.find('|') == string::npos) {
      return set(stored_, row);
    }
    const string field = column(row), text = column(row);
    string answers = column(row);
    Question question{full_name(field.substr(0, field.find('='))), text,
                      row.substr(std::min<std::size_t>(row.size(), 1)), ""};
    const bool is_stored = field != "-" && (!adding() || !question.field.starts_with(dialogue_.record));
    set(stored_, is_stored ? field : "");
    if (!adding()) {
      question.enter = Answer{};
    }
    const string usual = column(answers, "-> ");
    const bool wrong_choice = usual.starts_with('[') && dialogue_.refusal == Dialogue::by_kind;
    question.message = !answers.empty() ? answers : wrong_choice ? "&select" : "&illegal";
    question.follows = row.empty() && asks_again() && !text.empty() ? "\n" : question.follows;
    take(question, usual, adding());
    questions_.push_back(question);
  }

  // ---- Going from question to question ----

  string value(const Question& question, const Desk& desk) const {
    const auto [field, index] = config::find_field(question.field).value();
    const auto bytes = config::field_bytes(*field, index, desk.settings);
    const string text = config::field_value(*field, index, desk.settings);
    return field->kind == Kind::text  ? string(bytes.begin(), std::find(bytes.begin(), bytes.end(), 0))
           : field->kind == Kind::u32 ? std::to_string(static_cast<int>(std::stoul(text)))
                                      : text;
  }

  string text_of(const Question& question, const Desk& desk) const {
    if (!adding() || question.text.find('<') == string::npos) {
      return question.shows_value() ? replaced(question.text, "$", value(question, desk)) : question.text;
    }
    const string kind = question.accepted[0].typed;
    const bool mac = kind.find(':') != string::npos, address = kind.find('.') != string::npos;
    const std::size_t at = question.text.find('<');
    return string(question.text)
        .replace(at + 1, question.text.find('>') - at - 1,
                 mac       ? "00:00:00:00:00:00"
                 : address ? "0.0.0.0"
                           : "0");
  }

  // A text is cut at its line feed when it is shown, unless it is stored with one.
  void ask(Road& road, const Question& question) const {
    const auto element = config::find_field(question.field);
    if (element && element->field->kind == Kind::text && question.shows_value() &&
        !question.accepted[0].stored->ends_with("\\x0a")) {
      const auto bytes = config::field_bytes(*element->field, element->index, road.expected.settings);
      std::replace(bytes.begin(), std::find(bytes.begin(), bytes.end(), 0), std::uint8_t{'\n'},
                   std::uint8_t{0});
    }
    road.shown += text_of(question, road.expected);
  }

  void answer(Road& road, const Question& question, const Answer& answer) const {
    road.typed += question.text.empty() ? "" : answer.typed + "\n";
    if (answer.stored && config::find_field(question.field)) {
      road.expected.set(question.field, *answer.stored);
    }
    const bool shows = question.follows.find('$') != string::npos;
    road.shown += answer.shown;
    road.shown += shows ? replaced(question.follows, "$", value(question, road.expected)) : question.follows;
  }

  void expect(const Road& road, const string& ending) const {
    Desk desk = road.desk;
    const Visit seen = visit(desk, dialogue_.submenu, dialogue_.item, road.typed);
    EXPECT_EQ(seen.shown, in_full(road.shown + ending, road.list)) << road.typed;
    EXPECT_EQ(differences(road.expected.settings, desk.settings), "") << road.typed;
  }

  // All questions answered with their answer of that number, or the last one they have; or with Enter.
  void pass(Road road, std::optional<std::size_t> number) const {
    for (const Question& question : questions_) {
      ask(road, question);
      const std::size_t last = question.accepted.size() - 1;
      answer(road, question,
             !number && question.enter ? *question.enter
                                       : question.accepted[std::min(number.value_or(0), last)]);
    }
    if (!questions_.empty()) {
      road.typed += dialogue_.leave;
      expect(road, dialogue_.ending + dialogue_.left);
    }
  }

  void expect_refused(Road road, const Question& question, const string& typed, const string& message) const {
    road.typed += typed + (asks_again() ? "\nq\n" : "\n") + dialogue_.leave;
    const string again = asks_again() ? text_of(question, road.expected) + "q:Exit\n" : "";
    road.expected = road.desk;
    expect(road, message + again + dialogue_.left);
  }

  void refuse_all(Road road) const {
    Road before = road;  // up to the answer before this one
    for (auto question = questions_.begin(); question != questions_.end(); ++question) {
      for (const auto& [first, second] : question->falling) {
        Road falls = before;
        answer(falls, question[-1], {first});
        ask(falls, *question);
        expect_refused(falls, *question, second, question->falling_message);
      }
      ask(road, *question);
      before = road;
      for (const string& refused : question->refused) {
        expect_refused(road, *question, refused, question->message);
      }
      if (!question->text.empty()) {
        if (!question->enter) {
          expect_refused(road, *question, "", question->message);
        }
        Road cut = before;
        cut.typed += question->accepted[0].typed;  // without its line end
        cut.expected = cut.desk;
        expect(cut, "Bye Bye!!\n");
      }
      answer(road, *question, question->accepted[0]);
    }
  }

  void visit_as_told(const Desk& before, string line) const {
    const string answers = replaced(replaced(replaced(repeated(column(line)), " ", ""), "/", "\n"), "_", " "),
                 ending = in_full(repeated(column(line)), dialogue_.list);
    Desk expected = before;
    set(expected, line);
    std::istringstream alternatives(answers);
    for (string typed; std::getline(alternatives, typed, '|');) {
      Desk desk = before;
      const Visit seen = visit(desk, dialogue_.submenu, dialogue_.item, typed);
      EXPECT_TRUE(seen.shown.ends_with(ending)) << typed << "\n" << seen.shown << "\n-- not\n" << ending;
      EXPECT_EQ(differences(expected.settings, desk.settings), "") << typed;
    }
  }

  Dialogue dialogue_;
  Desk stored_;
  std::vector<Question> questions_;
  std::vector<string> visits_;
};

}  // namespace

void hold(const Dialogue& dialogue, const string& sheet) {
  Sheet(dialogue, sheet).hold();
}

}  // namespace tests
