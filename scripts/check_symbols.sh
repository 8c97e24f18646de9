#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The libraries define no strong symbol outside of their namespaces but those named here.
# Usage: scripts/check_symbols.sh FOLDER      the folder with the libraries
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

[ $# -eq 1 ] || die "expects one folder"
compgen -G "$1/lib*.so" >/dev/null || die "no libraries in $1"

# The linker's own, and the class that applications know without a namespace.
known='^(__bss_start|_edata|_end|DefaultIconProvider::.*)$'
# Thunks and the like are of the class they name.
own='^([a-zA-Z -]+ (for|to) )?(Vela|Taren)::'

status=0
for library in "$1"/lib*.so; do
  # Weak symbols are templates of other libraries.
  foreign=$(nm -DC --defined-only "$library" | sed -n 's/^[0-9a-f]* [TDBR] //p' | grep -vE "$own|$known") || continue
  say "${library##*/} defines outside of the project's namespaces:" "$foreign"
  status=1
done
exit $status
