#!/bin/bash
# What a build installs and packs is complete, fit for use, and not too big for its place in a device's storage:
# tests/packages.sh BUILD_FOLDER ARCHITECTURE TEXT FILE, with the console's budgets in bytes.
set -eu
build=$1 architecture=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cpack --config "$build/CPackConfig.cmake" -B "$work" >"$work/cpack.log" || { cat "$work/cpack.log"; exit 1; }
for package in ntx4830-console ntx4830-console-dev; do
  dpkg-deb -x "$work/${package}"_[0-9]*_"$architecture.deb" "$work/packed"
done
(($(find "$work/packed" -type f | tee /dev/stderr | wc -l) == 9))
mandoc -T lint -W warning "$work/packed/usr/share/man/man8/console.8.gz"
lintian --fail-on error,warning "$work"/*.deb

program=$work/packed/usr/sbin/console
strings "$program" | grep -E '^console [0-9]+\.[0-9]+( \(.+\))?$'
promised=$(dpkg-deb -f "$work"/ntx4830-console_*.deb Depends | grep -o '[0-9.]*)')
needed=$(objdump -T "$program" | grep -o 'GLIBC_[0-9.]*' | sort -Vu | tail -n 1)
dpkg --compare-versions "${needed#GLIBC_}" le "${promised%)}"
# Arm has no control-flow protection, and branch protection is 64-bit Arm's alone.
not_here=()
[ "$architecture" != armhf ] || not_here+=(--nocfprotection)
! hardening-check --help | grep -q nobranchprotection || not_here+=(--nobranchprotection)
hardening-check "${not_here[@]}" "$program" 2>&1
# What it says about stack clash protection is about arrays of a size known at run time only, and there are none: of
# larger stack frames each page is touched.
[ "$architecture" != amd64 ] || objdump -d "$program" | grep -m 1 'or[ql] *$0x0,.*(%rsp)' >/dev/null
read -r text _ < <(size "$program" | tail -n 1)
file=$(stat -c %s "$program")
echo "$text bytes of text, budget $3; $file bytes of file, budget $4"
((text <= $3 && file <= $4))

# Another program of the device needs the headers and nothing else.
echo '#include <config/login_record.h>
#include <config/segment.h>' |
  g++ -std=c++20 -Wall -Wextra -Werror -fsyntax-only -I "$work/packed/usr/include/console" -x c++ -

# The package in a fresh system: installed, used and removed again.
[ "$architecture" = "$(dpkg --print-architecture)" ] || exit 0
# shellcheck disable=SC2016 # $1 is the fresh system
mmdebstrap --variant=essential --format=null --quiet \
  --customize-hook="unshare --ipc chroot \"\$1\" true && touch $work/ready" \
  --customize-hook="upload $(echo "$work"/ntx4830-console_*.deb) /console.deb" --customize-hook='unshare --ipc chroot "$1" sh -euc "
    dpkg --install /console.deb
    printf \"\n\nq\n\" | console | grep \"Basic Network Setting\"
    dpkg --purge ntx4830-console
    [ ! -e /usr/sbin/console ]"' "$(. /etc/os-release && echo "$VERSION_CODENAME")" ||
  { [ ! -e "$work/ready" ] && echo "No fresh system can be made here: the package was not installed in one."; }
