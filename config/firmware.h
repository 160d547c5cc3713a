// What the firmware brings for the settings. FIRMWARE_VERSION is a literal that the build defines.
#pragma once

namespace config {

// Where the web server keeps the settings while the device is off.
constexpr const char* settings_partition = "/dev/mtdblock/5";

constexpr const char* factory_defaults = "/opt/webctrl/meta/metafile.dat.default";

}  // namespace config
