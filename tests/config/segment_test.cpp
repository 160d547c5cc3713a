#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <sstream>
#include <vector>

#include "config/field_table.h"

namespace tests {
namespace {

using std::string;

TEST(FieldTable, CoversEveryByteOnceAndReadsBackWhatItWrites) {
  std::vector<int> covered(sizeof(config::ConfigurationSegment));
  for (const int byte : {0x00, 0x31, 0x5c, 0xff}) {
    config::ConfigurationSegment from, to{};
    std::memset(&from, byte, sizeof from);
    for (const config::Field& field : config::field_table()) {
      for (std::size_t i = 0; i < field.count; ++i) {
        for (std::size_t at = 0; at < field.width; ++at) {
          ++covered[field.offset + i * field.stride + at];
        }
        const auto found = config::find_field(config::field_name(field, i));
        ASSERT_TRUE(found && found->field == &field && found->index == i) << config::field_name(field, i);
        EXPECT_TRUE(config::set_field_value(field, i, config::field_value(field, i, from), to)) << field.name;
      }
    }
    EXPECT_EQ(std::memcmp(&from, &to, sizeof from), 0) << byte;
  }
  EXPECT_EQ(covered, std::vector<int>(covered.size(), 4));
}

TEST(FieldTable, RefusesValuesAndNamesThatAreNone) {
  config::ConfigurationSegment segment{};
  std::istringstream refused(
      "wan_type=256,wan_type=-1,wan_type=,sip_port=65536,sip_port=5060 "
      ",lan_ip=1.2.3,lan_ip=1.2.3.4.5,lan_ip=1.2.3.256,"
      "wan_mac=1:2:3:4:5:100,host_name=a\\x1,host_name=\\q,host_name=\\qabc,host_name=\\xzz,lan_ip=1:2:3:4,"
      "virtual_server_table[0].week_mask=111111,bigpond_"
      "account=" +
      string(65, 'x'));
  for (string name, value; std::getline(refused, name, '=') && (std::getline(refused, value, ',') || true);) {
    const auto field = config::find_field(name);
    EXPECT_TRUE(field && !config::set_field_value(*field->field, field->index, value, segment))
        << name << "=" << value;
  }
  const config::ConfigurationSegment untouched{};
  EXPECT_EQ(std::memcmp(&segment, &untouched, sizeof segment), 0);
  for (const string table : {"", "sip", "sip_port[0]", "enable", "virtual_server_table[32].enable",
                             "virtual_server_table[x].enable", "virtual_server_table[1x].enable",
                             "virtual_server_table[].enable"}) {
    EXPECT_FALSE(config::find_field(table)) << table;
  }
}

TEST(SegmentMap, IsWhatTheStructsSay) {
  std::ifstream file(DOCS_FOLDER "/segment-map.md");
  EXPECT_EQ(string(std::istreambuf_iterator<char>(file), {}), config::segment_map())
      << "docs/segment-map.md is stale: cmake --build build/dev --target segment_map && "
         "build/dev/config/segment_map > docs/segment-map.md";
}

}  // namespace
}  // namespace tests
