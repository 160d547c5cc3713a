#include <cstdio>

#include "config/field_table.h"

int main() {
  return std::fputs(config::segment_map().c_str(), stdout) < 0 ? 1 : 0;
}
