#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Formats the C++ files; with --check only reports what is not formatted.
# Usage: scripts/format.sh [--check] [folder|file]...
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

mode=(-i)
if [ "${1:-}" = --check ]; then
  mode=(--dry-run --Werror)
  shift
fi
sources "$@" | xargs -r clang-format "${mode[@]}"
