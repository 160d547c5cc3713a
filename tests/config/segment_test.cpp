#include <gtest/gtest.h>

#include <cstring>

#include "config/field_table.h"

namespace tests {
namespace {

using std::string;

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

TEST(FieldTable, RefusesValuesAndNamesThatAreNone) {
  config::ConfigurationSegment segment{};
  for (const string setting :
       {"wan_type=256", "wan_type=-1", "wan_type=", "sip_port=5060,", "lan_ip=1.2.3", "lan_ip=1.2.3.4.5",
        "wan_mac=1:2:3:4:5:100", "host_name=a\\x1", "host_name=\\qabc", "host_name=\\xzz",
        "virtual_server_table[0].week_mask=111111", "ddns_user_name=123456789012345678901234567890123"}) {
    const auto field = config::find_field(setting.substr(0, setting.find('=')));
    const string value = setting.substr(setting.find('=') + 1);
    EXPECT_TRUE(field && !config::set_field_value(*field->field, field->index, value, segment)) << setting;
  }
  for (const char* const name : {"", "enable", "sip", "sip_port[0]", "virtual_server_table[32].enable",
                                 "virtual_server_table[1x].enable", "virtual_server_table[].enable"}) {
    EXPECT_FALSE(config::find_field(name)) << name;
  }
}

}  // namespace
}  // namespace tests
