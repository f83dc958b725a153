#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Does what the layers forbid, in a scratch folder: the compiler must refuse it, and check-layers
# must name the line.
#   CheckLayers.sh SOURCE BUILD
set -euo pipefail
source=$1 build=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0
fail() {
  echo "$*"
  failed=1
}

# The exit code and words of the compiler for a file with one include, compiled as `like` is.
compile() {
  local like=$1 header=$2 command
  echo "#include \"$header\"" >"$scratch/probe.cpp"
  command=$(grep -F "\"command\"" "$build/compile_commands.json" | grep -F -- "-c $source/$like\"" |
    sed -E -e 's/^ *"command": "//' -e 's/ -o [^ ]+ -c [^ ]+",?$//' -e 's/ -include [^ ]+//g' \
      -e 's/\\"/"/g')
  [ -n "$command" ] || fail "nothing compiles $like"
  (cd "$build" && eval "$command -fsyntax-only $scratch/probe.cpp") 2>&1
}

# who includes what: nested folders from their parents, and an upper layer from a lower one.
while read -r like header; do
  if words=$(compile "$like" "$header"); then
    fail "$like may include $header"
  elif ! grep -q "$header: No such file\|'$header' file not found" <<<"$words"; then
    fail "$like cannot include $header for another reason: $words"
  fi
  mkdir -p "$scratch/tree/$(dirname "$like")"
  printf '// A line before.\n#include "%s"\n' "$header" >"$scratch/tree/$like"
  grep -q "^$like:2 includes $header" <<<"$("$source/scripts/check-layers" "$scratch/tree" \
    "$build/layers.txt")" || fail "check-layers does not name $like"
done <<'CASES'
engine/StyleData.cpp engine/ui/EditorDisplay.h
engine/pictures/PictureSizes.cpp engine/StyleData.h
effects/EffectRegistry.cpp effects/styles/OneClickWonder.h
effects/fixes/LevelRange.cpp effects/styles/OneClickWonder.h
browser/SearchText.cpp browser/ui/Sidebar.h
app/core/Translations.cpp app/MainWindow.h
files/NaturalOrder.cpp formats/ImageFile.h
browser/ui/Sidebar.cpp engine/ui/EditorDisplay.h
CASES

# What is linked can be included, and check-layers agrees with all of it.
rm -rf "$scratch/tree"
while read -r like header; do
  words=$(compile "$like" "$header") || fail "$like cannot include $header: $words"
  mkdir -p "$scratch/tree/$(dirname "$like")"
  echo "#include \"$header\"" >"$scratch/tree/$like"
done <<'CASES'
engine/StyleData.cpp engine/pictures/ColorEffects.h
browser/ui/Sidebar.cpp browser/SearchText.h
effects/EffectRegistry.cpp effects/fixes/LevelRange.h
CASES
"$source/scripts/check-layers" "$scratch/tree" "$build/layers.txt" >"$scratch/words" ||
  fail "check-layers refuses what holds: $(cat "$scratch/words")"
exit "$failed"
