#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "config/field_table.h"
#include "config/values.h"

namespace tests {
namespace {

TEST(FieldTable, CoversEveryByteOnce) {
  std::vector<int> covered(sizeof(config::ConfigurationSegment));
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count; ++i) {
      for (std::size_t byte = 0; byte < field.width; ++byte) {
        ++covered[field.offset + i * field.stride + byte];
      }
    }
  }
  EXPECT_EQ(covered, std::vector<int>(covered.size(), 1));
}

TEST(FieldTable, ReadsBackWhatItWrites) {
  // Every field of a segment full of one byte, through text and back.
  for (const int byte : {0x00, 0x31, 0x5c, 0xff}) {
    config::ConfigurationSegment from;
    config::ConfigurationSegment to;
    std::memset(&from, byte, sizeof from);
    std::memset(&to, 0, sizeof to);
    for (const config::Field& field : config::field_table()) {
      for (std::size_t i = 0; i < field.count; ++i) {
        const auto found = config::find_field(config::field_name(field, i));
        ASSERT_TRUE(found && found->field == &field && found->index == i) << config::field_name(field, i);
        EXPECT_TRUE(config::set_field_value(field, i, config::field_value(field, i, from), to)) << field.name;
      }
    }
    EXPECT_EQ(std::memcmp(&from, &to, sizeof from), 0) << byte;
  }
}

TEST(FieldTable, RefusesValuesThatAreNone) {
  config::ConfigurationSegment segment{};
  const config::ConfigurationSegment before = segment;
  for (const auto& [name, value] :
       std::vector<std::pair<std::string, std::string>>{{"wan_type", "256"},
                                                        {"wan_type", "-1"},
                                                        {"wan_type", ""},
                                                        {"sip_port", "65536"},
                                                        {"sip_port", "5060 "},
                                                        {"lan_ip", "1.2.3"},
                                                        {"lan_ip", "1.2.3.4.5"},
                                                        {"lan_ip", "1.2.3.256"},
                                                        {"wan_mac", "1:2:3:4:5:100"},
                                                        {"bigpond_account", std::string(65, 'x')},
                                                        {"host_name", "a\\x1"},
                                                        {"host_name", "\\q"},
                                                        {"virtual_server_table[0].week_mask", "111111"}}) {
    const auto field = config::find_field(name);
    ASSERT_TRUE(field) << name;
    EXPECT_FALSE(config::set_field_value(*field->field, field->index, value, segment))
        << name << "=" << value;
  }
  EXPECT_EQ(std::memcmp(&before, &segment, sizeof segment), 0);
  for (const char* const unknown : {"", "sip", "sip_port[0]", "virtual_server_table[32].enable", "enable",
                                    "virtual_server_table[x].enable", "virtual_server_table[].enable"}) {
    EXPECT_FALSE(config::find_field(unknown)) << unknown;
  }
}

TEST(SegmentMap, IsWhatTheStructsSay) {
  std::ifstream file(DOCS_FOLDER "/segment-map.md");
  std::stringstream document;
  document << file.rdbuf();
  EXPECT_EQ(document.str(), config::segment_map())
      << "docs/segment-map.md is stale: cmake --build build/dev --target segment_map && "
         "build/dev/config/segment_map > docs/segment-map.md";
}

TEST(Text, NeverLeavesItsBuffer) {
  struct {
    std::string stored;  // 8 bytes
    std::string text;
    std::string stripped;
  } const cases[] = {
      {std::string("abc\0\n\0xx", 8), "abc", std::string("abc\0\n\0xx", 8)},
      {"abcdefgh", "abcdefgh", "abcdefgh"},
      {"abcdefg\n", "abcdefg\n", std::string("abcdefg\0", 8)},
      {std::string("a\nb\nc\0\0\0", 8), "a\nb\nc", std::string("a\0b\nc\0\0\0", 8)},
      {"\n2345678", "\n2345678",
       std::string("\0"
                   "2345678",
                   8)},
  };
  for (const auto& c : cases) {
    std::string buffer = c.stored;
    EXPECT_EQ(config::text_in(buffer), c.text);
    EXPECT_EQ(config::strip_newline(buffer), c.text.substr(0, c.text.find('\n')).size());
    EXPECT_EQ(buffer, c.stripped);
  }
  std::string buffer = "xxxxxxxx";
  config::put_text(buffer, "abcdefgh");
  EXPECT_EQ(buffer, std::string("abcdefg\0", 8));
  config::put_text(buffer, std::string_view("q\0z", 3));
  EXPECT_EQ(buffer, std::string("q\0\0\0\0\0\0\0", 8));
  config::put_text(buffer, {});
  EXPECT_EQ(buffer, std::string(8, '\0'));
}

}  // namespace
}  // namespace tests
