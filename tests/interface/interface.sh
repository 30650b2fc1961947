#!/usr/bin/env bash
# Fails unless a shared library exports exactly the symbols of a list; --accept writes the list.
# Usage: interface.sh [--accept] LIBRARY LIST
set -euo pipefail

# Without the marks of the linker, with the forms of one constructor as one line, and with the one
# type that differs between Qt 5 and Qt 6 under our own name for it.
exported() {
    nm --dynamic --defined-only --demangle "$1" | cut -d' ' -f3- \
        | grep -vxE '_edata|_end|__bss_start' \
        | sed -E 's/::enterEvent\(Q(Enter)?Event\*\)/::enterEvent(EnterEvent*)/' | LC_ALL=C sort -u
}

if [[ $1 == --accept ]]; then
    exported "$2" >"$3"
    exit
fi
exported "$1" | diff -u --label "${2##*/}, the list" --label "${1##*/}, what it exports" "$2" - && exit
cat <<TEXT

${1##*/} does not export what ${2##*/} lists (see above). If hosts shall see the change, note it in
CHANGELOG.md, read "Versions" in CONTRIBUTING.md, and accept it:
    tests/interface/interface.sh --accept $1 $2
TEXT
exit 1
