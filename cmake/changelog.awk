# CHANGELOG.md as Debian's packages want it.
function finish() {
  if (version) {
    ("date --utc --rfc-email --date=" date) | getline date
    print "\n -- NTX4830 console maintainers <maintainers@ntx4830.invalid>  " date
  }
}
/^## / {
  finish()
  version = $2
  date = substr($3, 2, 10)
  print "ntx4830-console (" version ") unstable; urgency=medium"
}
!version || /^$/ || /^## / { next }
/^For / { print "\n  [ " substr($0, 1, length - 1) " ]"; next }
/^- / { print "  * " substr($0, 3); next }
{ print "  " $0 }
END { finish() }
