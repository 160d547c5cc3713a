// What the system's own tools and files say, as lines of the device page. A tool that says nothing, or cannot
// be started, leaves an empty line.
#pragma once

namespace menus::status {

void show_system_date();
void show_up_time();
void show_default_gateway();

// MAC address, IP address and netmask of an interface. Of a dialled one its line in the list of interfaces
// that are up comes first, and nothing more when it is down.
void show_interface_addresses(const char* interface, const char* label);

// Two servers on lines of their own, up to three others on the next.
void show_dns_servers();

}  // namespace menus::status
