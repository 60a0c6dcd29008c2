#!/bin/sh
# Encodes a text of the system folder for the programs: UTF-8 with LF to code page 932 with CR LF.
# Usage: encode.sh SOURCE TARGET
set -eu

source=$1
target=$2
part=$target.part
trap 'rm -f "$part"' EXIT

encode() { iconv -f UTF-8 -t CP932; }

if ! awk '{ sub(/\r$/, ""); printf "%s\r\n", $0 }' "$source" | encode >"$part"; then
  number=0
  while IFS= read -r line || [ -n "$line" ]; do
    number=$((number + 1))
    printf '%s\n' "$line" | encode >/dev/null 2>&1 ||
      echo "$source:$number: error: a character that code page 932 lacks, or no UTF-8: $line" >&2
  done <"$source"
  exit 1
fi
mv "$part" "$target"
