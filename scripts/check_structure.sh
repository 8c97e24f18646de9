#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares the includes of all files with the floors and exceptions in docs/architecture.md, looks for circles of
# headers, and for folders, libraries, pages and packages that README and the pages do not name.
# Usage: scripts/check_structure.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
export LC_ALL=C

status=0
report() { say "$*"; status=1; }

page=docs/architecture.md
floors=$(sed -n 's/^<!-- floors: \(.*\) -->$/\1/p' $page)
[ -n "$floors" ] || die "no floors in $page"
# "<file> <floor>" for each exception; "*" for everything.
exceptions=$(sed -nE 's/^\| (`?)(everything|[a-z_/.]+)`? +\| (.*`) *\|.*/\2 \3/p' $page | tr -d '`,|' | sed 's/^everything/*/')

# "<including file> <included file>", both from the root.
includes() {
  local files
  mapfile -t files < <(sources platform ui_base ui_toolkit examples)
  grep -oHE '^ *# *include *[<"][a-z0-9_/]+\.h[>"]' "${files[@]}" | sed -E 's/: *# *include *(.)/ \1/; s/[>"]$//' |
    while read -r file name; do
      local folder=${file%/*} path=${name:1}
      if [ "${name:0:1}" = '"' ] && [ -e "$folder/$path" ]; then
        say "$file $folder/$path"
      elif [ -e "$path" ]; then
        say "$file $path"
      elif [ -e "platform/$path" ]; then
        say "$file platform/$path"
      elif [ -e "examples/workbench/$path" ]; then
        say "$file examples/workbench/$path"
      fi
    done
}

list=$(mktemp)
trap 'rm -f "$list" "$list.circles"' EXIT
includes >"$list"

# Floors.
above=$(awk -v floors="$floors" -v exceptions="$exceptions" '
  function floor_of(file,   part) {
    split(file, part, "/")
    return part[1] == "ui_base" && part[3] != "" ? rank[part[2]] : rank[part[1]]
  }
  BEGIN {
    n = split(floors, name, " ")
    for (i = 1; i <= n; ++i) rank[name[i]] = i
    n = split(exceptions, row, "\n")
    for (i = 1; i <= n; ++i) {
      m = split(row[i], word, " ")
      for (j = 2; j <= m; ++j) allowed[word[1], word[j]] = 1
    }
  }
  {
    from = floor_of($1); to = floor_of($2)
    if (!from || !to) { print $1 " includes " $2 ": a folder without a floor"; next }
    short = $2; sub(/^ui_base\//, "", short); folder = short; sub(/\/.*/, "", folder)
    if (to <= from || allowed[$1, folder] || allowed["*", short] || allowed["*", folder]) next
    print $1 " includes " $2 ", which stands above it"
  }' "$list")
[ -z "$above" ] || report "$above"

# Circles.
awk '$1 ~ /\.h$/ && $1 != $2' "$list" | tsort >/dev/null 2>"$list.circles" || report "A circle of headers:
$(sed 's/^tsort: -: //; s/^tsort: //' "$list.circles")"

# Front pages.
named_in() { grep -qF -- "$2" "$1" || report "$1 does not name $2"; }
for folder in */; do
  case $folder in build/ | install/) continue ;; esac
  named_in README.md "\`$folder\`"
done
for folder in ui_base/*/; do
  named_in README.md "\`$(basename "$folder")\`"
  named_in $page "$(basename "$folder")"
done
for library in $(sed -nE 's/^ *EXPORT_NAME +([A-Za-z]+).*/\1/p' platform/*/CMakeLists.txt); do
  named_in README.md "\`Vela::$library\`"
done
for file in docs/*.md; do
  name=$(basename "$file")
  [ "$name" = README.md ] && continue
  named_in README.md "docs/$name"
  named_in docs/README.md "($name)"
done
# What CMake requires, and what the scripts install for it.
find . -name CMakeLists.txt -not -path './build/*' -not -path './tests/install/consumer/*' \
  -not -path './examples/template/*' -exec sed -nE \
  's/^ *find_package\(([A-Za-z0-9]+)( [0-9.]+)?( (REQUIRED|QUIET))?( COMPONENTS ([A-Za-z ]+))?.*/\1 \6/p' {} + |
  tr ' ' '\n' | sort -u | while read -r name; do
    [ -z "$name" ] || grep -qiw -- "$name" docs/building.md || say "$name"
  done >"$list"
[ ! -s "$list" ] || report "docs/building.md does not name $(paste -sd' ' "$list")"

exit $status
