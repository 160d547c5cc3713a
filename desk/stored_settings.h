// The text form of the configuration segment, as it lies in the flash partition and in the factory defaults:
// a version line, then one "name=value" line per field, names and values as config/field_table.h writes them.
// "table[*].column=value" gives every record of a table that value. Lines that begin with '#' are comments.
//
// The web server stores the fields that are not as the factory has them, as a copy of two. A text at the
// partition's start is somebody else's, the factory reset's above all, and counts instead.
#pragma once

#include "config/segment.h"

namespace desk {

// Fills the segment with the factory defaults and puts what is stored in the partition over them, so that a
// field whose stored line is missing or damaged has its factory value. A line that cannot be used, a last one
// that was cut off among them, is reported on standard error with its number and skipped. False when neither
// file gave a setting.
bool load_settings(const char* partition, const char* defaults, config::ConfigurationSegment& segment);

// Power lost on the way leaves what was stored before. False, with the reason on standard error, when that
// did not succeed.
bool store_settings(const char* partition, const char* defaults, const config::ConfigurationSegment& segment);

}  // namespace desk
