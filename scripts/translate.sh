#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Brings the translations up to date with the texts in the sources, and says which texts have none yet.
# Usage: scripts/translate.sh [--check]      --check changes nothing; both end with 1 when a text has no translation
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

check=
case ${1:-} in
  --check) check=1 ;;
  '') ;;
  *) die "usage: scripts/translate.sh [--check]" ;;
esac

lupdate=$(command -v lupdate || true)
for candidate in /usr/lib/qt6/bin/lupdate; do
  [ -x "$candidate" ] && lupdate=$candidate
done
[ -n "$lupdate" ] || die "lupdate was not found (Debian package qt6-l10n-tools)"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

status=0
# update <file.ts> <folder>...: the texts of the folders.
update() {
  local file=$1 target=$1 open
  shift
  if [ -n "$check" ]; then
    target=$scratch/$(basename "$file")
    cp "$file" "$target"
  fi
  "$lupdate" -silent -no-obsolete -locations none -no-ui-lines -source-language en -target-language de \
    -I platform -I . -I examples -extensions cpp,h "$@" -ts "$target"
  # Where lupdate takes a class for one outside of the namespaces, the program would not find the text.
  if grep -E '<name>[A-Za-z]+</name>' "$target" | grep -v '<name>QObject</name>'; then
    say "$file: say the context of these in full, by QCoreApplication::translate()"
    status=1
  fi
  open=$(grep -c 'type="unfinished"' "$target" || true)
  if [ "$open" -gt 0 ]; then
    say "$file: $open texts without translation:"
    grep -B4 'type="unfinished"' "$target" | sed -nE 's/^ *<source>(.*)<\/source>$/  \1/p'
    status=1
  fi
  if [ -n "$check" ] && ! cmp -s "$file" "$target"; then
    say "$file is not up to date: run scripts/translate.sh"
    status=1
  fi
}

update translations/vlk_ui_base_de.ts platform ui_base ui_toolkit
update examples/workbench/translations/workbench_de.ts examples/workbench
exit $status
