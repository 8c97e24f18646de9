#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Formats the C++ files; with --check only reports what is not formatted.
# Usage: scripts/format.sh [--check] [folder|file]...
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

program=clang-format
if command -v "clang-format-$clang_format_version" >/dev/null; then program=clang-format-$clang_format_version; fi
version=$("$program" --version | grep -oE '[0-9]+' | head -n 1)
if [ "$version" != "$clang_format_version" ]; then
  say "The sources are formatted with clang-format $clang_format_version; this is $version: not checked."
  exit 0
fi

mode=(-i)
if [ "${1:-}" = --check ]; then
  mode=(--dry-run --Werror)
  shift
fi
sources "$@" | xargs -r "$program" "${mode[@]}"
