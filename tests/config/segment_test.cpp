#include <gtest/gtest.h>

#include <cstring>

#include "config/field_table.h"

namespace tests::segment_test {

TEST(FieldTable, CoversEveryByteAndReadsBackWhatItWrites) {
  for (const int byte : {0x00, 0x31, 0x5c, 0xff}) {
    config::ConfigurationSegment from, to{};
    std::memset(&from, byte, sizeof from);
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

TEST(Text, CutAtItsNewlineTellsItsLength) {
  config::Text<4> text = {{'a', '\n', 'b', '\0'}};
  EXPECT_EQ(config::strip_newline(text.bytes), 1U);
  EXPECT_EQ(config::strip_newline(text.bytes), 1U);
}

}  // namespace tests::segment_test
