// The messages with which the menus report, each with its line end and one blank line.
#pragma once

#include "shell/output.h"

namespace shell {

namespace message {

inline constexpr char keep_with_enter[] =
    "Please answer the question and use [enter] to keep original setting value\n\n";
inline constexpr char wrong_choice[] = "Your select is wrong!!\n\n";
inline constexpr char illegal_value[] = "Your input value is illegal!!\n\n";
inline constexpr char saved[] = "Setting Save!!\n\n";
inline constexpr char restart[] = "Device will be restart, please re-connect!!\n\n";
inline constexpr char ip_range[] = "IP Range Error!!\n\n";
inline constexpr char table_full[] = "No more space to creat new rule!!\n\n";
inline constexpr char reboot[] = "Device will be reboot, please wait 60 seconds and re-connect!!\n\n";
inline constexpr char port_range[] = "Port Range Error!!\n\n";

}  // namespace message

inline void show_message(const char* message) {
  put(message);
}

}  // namespace shell
