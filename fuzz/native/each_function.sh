#!/bin/sh
# each_function.sh <nm> <archive> <object>... Checks that the objects call each function that the
# archive exports to Java.
set -eu
nm=$1
archive=$2
shift 2
names='^Java_tidelab_'
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

"$nm" -g --defined-only "$archive" | awk '{ print $NF }' | grep "$names" | sort -u >"$work/exported"
for object in "$@"; do "$nm" -u "$object"; done | awk '{ print $NF }' | grep "$names" | sort -u \
  >"$work/called"
missing=$(comm -23 "$work/exported" "$work/called")
test -z "$missing" || { echo "not called by a fuzz target:"; echo "$missing"; exit 1; }
