#!/bin/sh
# exported_symbols.sh <nm> <module> <archive> Checks that the module exports exactly the symbols
# that the archive of exported functions defines for a host.
set -eu
prefixes='^Java_tidelab_\(KelpboxNativeLibrary_KelpboxNativeLibraryJNI\|waves_Native\)_'
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

"$1" -D --defined-only "$2" | awk '{ print $NF }' | sort >"$work/leaving"
"$1" -g --defined-only "$3" | awk '{ print $NF }' | grep "$prefixes" | sort >"$work/defined"

test -s "$work/defined" || { echo "no exported function found in $3"; exit 1; }
diff "$work/defined" "$work/leaving"
