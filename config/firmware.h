// What the console knows of the firmware that it is part of.
#pragma once

namespace config {

constexpr const char* firmware_version = FIRMWARE_VERSION;

// Where the web server keeps the settings while the device is off.
constexpr const char* settings_partition = "/dev/mtdblock/5";

constexpr const char* factory_defaults = "/opt/webctrl/meta/metafile.dat.default";

}  // namespace config
