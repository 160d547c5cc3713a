// Asking. A dialogue is a list of statements, one per prompt, that states text, kind, bounds and field
// together:
//
//   Dialogue ask(Dialogue::refuse_by_kind);
//   ask.choice("UPNP Enable?<%d>(0:Disable, 1:Enable):", segment().upnp_enable, "01");
//   if (ask.commit()) { save_settings(); ... }
//
// Each statement shows the stored value, reads a line and judges it; an empty line keeps the stored value.
// The answers, kept ones included, are gathered in a journal and reach the segment in commit(), so a dialogue
// that does not get there changes nothing. Once a dialogue has ended early, its remaining statements do
// nothing and return 0.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "config/values.h"
#include "shell/message.h"
#include "shell/prompt.h"

namespace shell {

// Numbers low to high, in steps from 0. Packed into one word, because it is an argument of every second
// prompt.
struct Range {
  constexpr Range() = default;
  constexpr Range(std::uint16_t lowest, std::uint32_t highest, std::uint16_t steps = 1)
      : low(lowest), step(steps), high(highest) {}

  std::uint16_t low = 0;
  std::uint16_t step = 1;
  std::uint32_t high = 0;
};

// How one prompt departs from its dialogue. What it points to has to live until the prompt is answered.
struct Option {
  const Refusal* refusal = nullptr;  // in place of the family's
  bool judge_kept = false;           // a kept value must pass the test as well
  bool empty_is_zero = false;        // when adding: an empty line counts as 0
  bool rest_ignored = false;         // only a choice's first character, a number's leading digits count
  bool no_empty_line = false;       // when asking again: the dialogue prints something else behind the answer
  const char* kept_note = nullptr;  // printed, without a line end, when the value was kept
};
inline constexpr Option no_option;

struct TextRule {
  // What becomes of an answer that is too long, or that a NUL at its beginning makes an empty text, where no
  // empty text can be typed.
  enum class Unfit : std::uint8_t {
    refused,        // as any bad answer of the dialogue
    leaves_empty,   // message 2, the field becomes empty, the dialogue goes on
    keeps_the_old,  // message 2, the field keeps its text, the dialogue goes on
  };
  Unfit unfit = Unfit::refused;
  std::uint16_t max = UINT16_MAX;  // characters; the field with its NUL is the limit in any case
  bool digits_only = false;        // an answer must be decimal digits throughout
  bool with_line_feed = false;     // stored, shown and kept with the line feed that ended it
  bool optional = false;           // when adding: an empty line keeps what the slot holds
  bool may_be_empty = false;       // when adding: an empty line stores an empty text
};

class Dialogue {
 public:
  // What is done about a refused answer.
  struct Family {
    bool asks_again;  // the same question again; a line that is exactly q leaves; an empty line after each
                      // answer
    Message bad_choice;
    Message bad_value;
  };
  static constexpr Family refuse_by_kind{false, Message::wrong_choice, Message::illegal_value};
  static constexpr Family refuse_as_illegal{false, Message::illegal_value, Message::illegal_value};
  static constexpr Family ask_again{true, Message::illegal_value, Message::illegal_value};

  // A new record is asked for by the same statements as a stored one: every prompt shows zero instead of what
  // the free slot holds, and an answer is required.
  enum class Record : std::uint8_t { stored, added };

  explicit Dialogue(const Family& family, Record record = Record::stored);
  Dialogue(const Dialogue&) = delete;
  Dialogue& operator=(const Dialogue&) = delete;

  bool adding() const { return adding_; }

  // The number that prompts with a leading "%d" are about.
  void about(int subject) { subject_ = subject; }

  // ---- Kinds of answer; each returns the resulting value ----

  // Exactly one character, one of `digits`.
  std::uint8_t choice(Prompt<Shows::number> prompt, std::uint8_t& field, const char* digits);
  std::uint8_t choice(Prompt<Shows::number> prompt, std::uint8_t& field, const char* digits,
                      const Option& option);

  // A choice among things with names: the prompt shows the name of the current one, whose number is
  // `current`. Returns the chosen number; the caller knows what to write.
  std::uint32_t named_choice(Prompt<Shows::text> prompt, std::string_view name, std::uint32_t current,
                             const char* digits, const Option& option = no_option);

  // Decimal digits, in range. A field narrower than the range's end keeps, and the call returns, the number's
  // low bits.
  template <typename Number>
  std::uint32_t number(Prompt<Shows::number> prompt, Number& field, Range range);
  template <typename Number>
  std::uint32_t number(Prompt<Shows::number> prompt, Number& field, Range range, const Option& option);

  // The same for a prompt that does not show the value.
  std::uint32_t hidden_number(Prompt<Shows::nothing> prompt, std::uint8_t& field, Range range);

  // The number with which the answer begins, 0 when it begins with none: one of `values`.
  std::uint8_t listed(Prompt<Shows::number> prompt, std::uint8_t& field,
                      std::span<const std::uint8_t> values);

  // A number that is no field of its own: shown and kept like one, and only returned.
  std::uint32_t number_of(Prompt<Shows::number> prompt, std::uint32_t current, Range range,
                          const Option& option = no_option);

  // Not 0.0.0.0; a kept 0.0.0.0 passes unless option.judge_kept.
  config::Ipv4 address(Prompt<Shows::address> prompt, config::Ipv4& field);
  config::Ipv4 address(Prompt<Shows::address> prompt, config::Ipv4& field, const Option& option);
  // One bits, then zero bits, and at least one of the first.
  config::Ipv4 netmask(Prompt<Shows::address> prompt, config::Ipv4& field, const Option& option = no_option);
  // Any six bytes, all zero included.
  void mac(Prompt<Shows::mac> prompt, config::Mac& field);

  // A stored text that is about to be shown is first cut at its newline, in the segment, and stays cut.
  template <std::size_t N>
  void text(Prompt<Shows::text> prompt, config::Text<N>& field, TextRule rule = {}) {
    ask_text(prompt, field.bytes, rule);
  }

  // An answer that is not a setting: which record, which action. Required unless option.empty_is_zero, and
  // refused as a choice. A number of any length:
  std::uint32_t pick(Prompt<Shows::nothing> prompt, Range range, const Option& option = no_option);
  // The same under a heading.
  std::uint32_t pick(Prompt<Shows::text> prompt, std::string_view heading, Range range,
                     const Option& option = no_option);
  // Exactly one character:
  std::uint32_t pick_digit(Prompt<Shows::nothing> prompt, const char* digits,
                           const Option& option = no_option);

  // ---- Without a prompt ----

  // What commit() writes into a field that was not asked for.
  template <typename Value>
  Value write(Value& field, Value value) {
    static_assert(std::is_trivially_copyable_v<Value>);
    note(&field, &value, sizeof value);
    return value;
  }
  // Zero bytes: the number 0, an empty text.
  template <typename... Values>
  void clear(Values&... fields) {
    static_assert((std::is_trivially_copyable_v<Values> && ...));
    (note(&fields, nullptr, sizeof fields), ...);
  }

  // ---- The order in which the fields are written ----
  // Other programs read the record meanwhile. It is the order of the statements above, but for these.

  // What is noted from here on is written before all that was noted until now.
  void write_ahead();
  // `fields`, as far as they were noted, are written right before `field`, in the order given.
  template <typename Field, typename... Fields>
  void write_before(const Field& field, const Fields&... fields) {
    (move_before(&field, &fields), ...);
  }

  // Reports and ends the dialogue, unless it has ended.
  void refuse(Refusal refusal);

  bool ended() const { return ended_; }

  // Writes all answers. False, with nothing written, when the dialogue has ended
  // early.
  bool commit();

 private:
  enum class Kind : std::uint8_t { choice, number, listed, address, netmask, mac };

  struct Rule {
    Kind kind;
    Range range;         // of a number
    const char* digits;  // of a choice
    // Of a listed number; NOLINTNEXTLINE: other kinds leave it out.
    std::span<const std::uint8_t> values = {};
  };

  struct Value {
    std::uint32_t word;
    config::Mac mac;
  };

  enum class Answer : std::uint8_t { empty, given, left };

  std::uint32_t ask_number(const PromptText& prompt, std::uint32_t current, const Rule& rule,
                           const Option& option);
  config::Ipv4 ask_address(const PromptText& prompt, config::Ipv4& field, Kind kind, const Option& option);
  std::uint32_t ask_pick(const PromptText& prompt, std::string_view heading, const Rule& rule,
                         const Option& option);
  void ask_text(Prompt<Shows::text> prompt, std::span<char> field, TextRule rule);
  Value ask(const PromptText& prompt, std::string_view shown, Value current, const Rule& rule,
            const Option& option, bool required);
  Answer read_answer(const PromptText& prompt, std::string_view shown);
  void report(const Refusal& refusal);
  void answered(const Option& option, bool kept);

  std::span<char> note(void* field, std::size_t size);
  void note(void* field, const void* value, std::size_t size);  // no value: zero bytes

  void bring_forward();
  void move_before(const void* field, const void* moved);
  std::span<char> entry_of(const void* field);

  static bool accepts(const Rule& rule, const Option& option, Value& value);
  static bool passes(const Rule& rule, const Value& value);

  const Family& family_;
  bool adding_;
  bool ended_ = false;
  int subject_ = 0;
  std::size_t journal_length_ = 0;
  std::size_t ahead_from_ = 0;  // where in the journal begins what is to be written ahead
  // One entry per answer: the field's address, its size, its bytes. Room for the longest dialogue, the two
  // SIP lines with their servers; a dialogue that outgrows it stops the program the first time it is run to
  // its end.
  std::array<char, 3072> journal_;
};

}  // namespace shell
