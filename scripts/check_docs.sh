#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Reports public functions without documentation, and comments that doxygen does not understand.
# Overrides, operators and defaulted functions need none of their own.
# Usage: scripts/check_docs.sh [DOXYFILE]      build/release/docs/Doxyfile unless given; any build has one
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

settings=${1:-build/release/docs/Doxyfile}
[ -f "$settings" ] || die "no $settings; configure a build first"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
{
  cat "$settings"
  printf '%s\n' 'GENERATE_HTML = NO' 'GENERATE_XML = YES' 'XML_PROGRAMLISTING = NO' "OUTPUT_DIRECTORY = \"$folder\"" \
    "WARN_LOGFILE = \"$folder/warnings.txt\""
} >"$folder/Doxyfile"
doxygen "$folder/Doxyfile" >/dev/null

# What a class inherits is reported once for each heir.
found=$(grep -E 'documented symbol|\(function\) of .* is not documented' "$folder/warnings.txt" |
  grep -vE ' override|=default|operator' | sort -u || true)
[ -z "$found" ] || { say "$found"; exit 1; }
