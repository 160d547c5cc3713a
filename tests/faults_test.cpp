// The sessions of the fuzzing corpus, undisturbed, and with every call to the operating system failing in turn.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "input.h"
#include "menus/menu_tree.h"
#include "promises.h"
#include "support/session.h"

namespace tests::faults_test {

TEST(Faults, BreakNoPromiseAndEndNoSession) {
  std::size_t faults = 0;
  std::set<string> items;  // "submenu-item"
  for (const auto& entry : std::filesystem::directory_iterator(CORPUS_FOLDER)) {
    std::ifstream file(entry.path(), std::ios::binary);
    const string name = entry.path().filename(), input(std::istreambuf_iterator<char>(file), {});
    items.insert(name.substr(0, name.find('-', 2)));
    Device clean;
    EXPECT_EQ(fuzz::play(clean, input), "") << name;
    const string stated = input.substr(0, input.find('\n')), saves = std::to_string(clean.saves);
    EXPECT_EQ(stated, input.substr(0, 4) + " saves " + saves) << name << " is to begin with how often it saves";
    const bool is_whole = clean.input.empty() && clean.transcript.ends_with("Bye Bye!!\n");
    EXPECT_TRUE(is_whole || !clean.failing.empty() || name[0] > '9') << name;
    faults += clean.chances;
    for (std::size_t fault = 1; fault <= clean.chances; ++fault) {
      Device device;
      device.fault = fault;
      EXPECT_EQ(fuzz::play(device, input), "") << name << " " << device.failed;
      EXPECT_FALSE(device.failed.empty());
      const bool connection = device.failed == "input" || device.failed == "output";
      const bool start = device.failed.starts_with("attach 1234") || device.failed.starts_with("attach 5678");
      // Nothing but its connection and its records can end a session: it goes on to what was typed last.
      EXPECT_TRUE(start ? device.waits.empty() : connection || device.transcript.ends_with("Bye Bye!!\n"))
          << name << " " << device.failed;
    }
  }
  RecordProperty("faults", std::to_string(faults));
  for (std::size_t i = 0; const shell::Submenu* const submenu : menus::menu_tree.targets) {
    for (std::size_t item = 0; item < submenu->targets.size(); ++item) {
      const string name = std::to_string(i) + "-" + std::to_string(item);
      EXPECT_TRUE(submenu->targets[item] == nullptr || items.count(name) > 0) << name << " has no session";
    }
    ++i;
  }
}

}  // namespace tests::faults_test
