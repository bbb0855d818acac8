#!/usr/bin/env bash
# each_function.sh <nm> <archive> <object>... Checks that the objects call each function that the
# archive exports to Java.
set -euo pipefail
nm=$1
archive=$2
shift 2
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

# Takes the names of Java's functions from the output of nm. There must be some.
names() { awk '{ print $NF }' | grep '^Java_tidelab_' | sort -u; }

"$nm" -g --defined-only "$archive" | names >"$work/exported" ||
  { echo "no exported functions in $archive"; exit 1; }
"$nm" -u "$@" | names >"$work/called" || { echo "no called functions in $*"; exit 1; }
missing=$(comm -23 "$work/exported" "$work/called")
test -z "$missing" || { echo "not called by a fuzz target:"; echo "$missing"; exit 1; }
