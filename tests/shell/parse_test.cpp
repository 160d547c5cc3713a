#include "shell/parse.h"

#include <gtest/gtest.h>

#include <string>

namespace tests {
namespace {

using config::Ipv4;

TEST(Parse, DigitsAndNumbers) {
  struct {
    std::string line;
    bool all_digits;
    std::optional<std::uint32_t> value;
  } const cases[] = {
      {"12\n", true, 12},
      {"1a\n", false, 1},
      {"\n", true, 0},
      {"", false, 0},
      {"007\n", true, 7},
      {" 7\n", false, 7},
      {"-1\n", false, std::nullopt},
      {"4294967295\n", true, UINT32_MAX},
      {"4294967296\n", true, std::nullopt},
      {"18446744073709551617\n", true, std::nullopt},  // 1 in 64 bits
      {std::string(512, '9'), true, std::nullopt},
      {"1x", true, 1},  // the last character is taken for the newline
  };
  for (const auto& c : cases) {
    EXPECT_EQ(shell::is_all_digits(c.line), c.all_digits) << c.line;
    EXPECT_EQ(shell::decimal_value(c.line), c.value) << c.line;
  }
  EXPECT_TRUE(shell::in_range(5, 5, 5) && shell::in_range(UINT32_MAX, 0, UINT32_MAX));
  EXPECT_FALSE(shell::in_range(4, 5, 9) || shell::in_range(10, 5, 9));
}

TEST(Parse, Addresses) {
  struct {
    std::string line;
    Ipv4 address;  // 0.0.0.0: refused
  } const cases[] = {
      {"192.168.0.1\n", {{192, 168, 0, 1}}},
      {"255.255.255.255\n", {{255, 255, 255, 255}}},
      {"001.02.3.000\n", {{1, 2, 3, 0}}},
      {"1..2.3\n", {{1, 0, 2, 3}}},
      {".1.2.3\n", {{0, 1, 2, 3}}},
      {"1.2.3.\n", {{1, 2, 3, 0}}},
      {"0.0.0.0\n", {}},
      {"192.168.0\n", {}},
      {"1.2.3.4.5\n", {}},
      {"1.2.3.0256\n", {}},
      {"1.2.3.256\n", {}},
      {"1.2.3.x\n", {}},
      {"1.2.3.4 \n", {}},
      {"-1.2.3.4\n", {}},
      {"\n", {}},
      {"", {}},
      {std::string(512, '.'), {}},
      {"1.2.3.45", {{1, 2, 3, 45}}},  // cut by a NUL: the last character is not tested, but converted
  };
  for (const auto& c : cases) {
    EXPECT_EQ(shell::parse_ipv4(c.line, '.').octet, c.address.octet) << c.line;
  }
}

TEST(Parse, NetmasksAndRanges) {
  for (const Ipv4 valid : {Ipv4{{255, 255, 255, 0}}, Ipv4{{255, 255, 128, 0}}, Ipv4{{128, 0, 0, 0}},
                           Ipv4{{255, 255, 255, 255}}, Ipv4{{255, 255, 255, 254}}, Ipv4{{254, 0, 0, 0}}}) {
    EXPECT_TRUE(shell::is_valid_netmask(valid)) << int{valid.octet[2]};
  }
  for (const Ipv4 invalid :
       {Ipv4{{255, 0, 255, 0}}, Ipv4{{255, 255, 255, 1}}, Ipv4{{0, 255, 255, 255}}, Ipv4{},
        Ipv4{{255, 254, 128, 0}}, Ipv4{{253, 0, 0, 0}}, Ipv4{{255, 255, 0, 255}}, Ipv4{{128, 128, 0, 0}}}) {
    EXPECT_FALSE(shell::is_valid_netmask(invalid)) << int{invalid.octet[1]};
  }
  EXPECT_TRUE(shell::ip_range_ascending({{192, 168, 0, 10}}, {{192, 168, 0, 20}}));
  EXPECT_TRUE(shell::ip_range_ascending({{192, 168, 0, 10}}, {{192, 168, 0, 10}}));
  EXPECT_FALSE(shell::ip_range_ascending({{192, 168, 0, 200}}, {{192, 168, 1, 5}}));
  EXPECT_FALSE(shell::ip_range_ascending({{10, 0, 0, 0}}, {{9, 255, 255, 255}}));
}

TEST(Parse, MacAddresses) {
  struct {
    std::string line;
    bool accepted;
  } const cases[] = {
      {"00:11:22:AA:bb:cf\n", true},
      {"00-11-22-33-44-55\n", false},
      {"0:11:22:33:44:55\n", false},
      {"00:11:22:33:44:5g\n", false},
      {"00:11:22:33:44:55", false},
      {"00:11:22:33:44:55:\n", false},
      {"00:11:22:33:4:455\n", false},
      {"\n", false},
      {"", false},
      {std::string(512, ':'), false},
  };
  for (const auto& c : cases) {
    std::string line = c.line;
    config::Mac mac{{9, 9, 9, 9, 9, 9}};
    EXPECT_EQ(shell::parse_mac({line.data(), line.size() + 1}, mac, ':'), c.accepted) << c.line;
    EXPECT_EQ(mac.byte, (c.accepted ? config::Mac{{0, 0x11, 0x22, 0xaa, 0xbb, 0xcf}} : config::Mac{}).byte)
        << c.line;
    EXPECT_EQ(line.size() > 17 ? line[17] == '\0' : false, c.line.size() == 18 && c.line.back() == '\n');
  }
  EXPECT_EQ(shell::hex_nibble('g'), 255);
  EXPECT_EQ(shell::hex_nibble('/') & shell::hex_nibble(':') & shell::hex_nibble('@'), 255);
  EXPECT_EQ(shell::hex_byte('F', 'e'), 0xfe);
}

}  // namespace
}  // namespace tests
