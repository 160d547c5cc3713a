# Reads the lines of show_settings into `stored` and goes through tables of rules, for a script's own program to
# print them in its END. A rule's columns are at hand by name while it is the current one.
{
  equals = index($0, "=")
  stored[substr($0, 1, equals - 1)] = substr($0, equals + 1)
}

function on(name) {
  return stored[name] + 0
}

function column(name) {
  return stored[rule "." name]
}

# Makes the table's next enabled rule the current one; false after the last.
function next_rule(table) {
  if (table != current_table) {
    current_table = table
    number = -1
  }
  while ((rule = table "[" ++number "]") && (rule ".enable") in stored) {
    if (column("enable") == 1) {
      return 1
    }
  }
  return 0
}

# A number of a record by its name in a list; another program may have stored any number.
function named(names, value, otherwise,    list, count) {
  count = split(names, list, "|")
  return value + 0 < count ? list[value + 1] : otherwise " " value
}

function protocol(value) {
  return named("TCP|UDP|TCP and UDP|ICMP|any protocol", value, "protocol")
}

function range(name) {
  return column(name "_start") "-" column(name "_end")
}

function schedule(    mask, day, days) {
  if (column("schedule_mode") == 0) {
    return "always"
  }
  mask = column("week_mask")
  gsub(/\\x../, "?", mask)
  for (day = 0; day < 7; ++day) {
    if (substr(mask, day + 1, 1) == "1") {
      days = days " " substr("SunMonTueWedThuFriSat", 3 * day + 1, 3)
    }
  }
  return sprintf("%d:%02d-%d:%02d on%s", column("start_hour"), column("start_minute"), column("end_hour"),
                 column("end_minute"), days == "" ? " no day" : days)
}
