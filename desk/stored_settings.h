// The text form of the configuration segment, as it lies in the flash partition and in the factory defaults:
// a version line, then one "name=value" line per field, names and values as config/field_table.h writes them.
// "table[*].column=value" gives every record of a table that value. Lines that begin with '#' are comments.
#pragma once

#include "config/segment.h"

namespace desk {

// Fills the segment with the factory defaults and puts what is stored in the partition over them, so that a
// field whose stored line is missing or damaged has its factory value. A line that cannot be used is reported
// on standard error with its number and skipped. False when neither file gave a setting.
bool load_settings(const char* partition, const char* defaults, config::ConfigurationSegment& segment);

// Replaces the partition's contents in one step: power lost on the way leaves the old contents. False, with
// the reason on standard error, when that did not succeed.
bool store_settings(const char* partition, const config::ConfigurationSegment& segment);

}  // namespace desk
