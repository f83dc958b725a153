#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Does what the layers forbid, in a scratch folder: the compiler must refuse it, and check-layers
# must name the line. What the compiler cannot refuse, check-layers alone must name.
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

# Ways around the include paths: beside the including file, by dots, by the order of the paths.
check() { "$source/scripts/check-layers" "$scratch/tree" "$build/layers.txt" 2>&1; }
while read -r like include; do
  rm -rf "$scratch/tree"
  mkdir -p "$scratch/tree/$(dirname "$like")"
  printf '// A line before.\n%s\n' "$include" >"$scratch/tree/$like"
  words=$(check) && fail "check-layers does not refuse $include in $like"
  grep -q "^$like:2 includes " <<<"$words" || fail "check-layers does not name $include in $like"
done <<'CASES'
effects/EffectRegistry.cpp #include "styles/OneClickWonder.h"
effects/EffectRegistry.cpp #include "./styles/OneClickWonder.h"
effects/fixes/LevelRange.cpp #include "../styles/OneClickWonder.h"
effects/EffectRegistry.cpp #  include"styles/OneClickWonder.h"
effects/EffectRegistry.cpp #include "OneClickWonder.h"
engine/StyleData.cpp #include "ui/EditorDisplay.h"
files/NaturalOrder.cpp #include "../formats/ImageFile.h"
files/NaturalOrder.cpp #include "files/../formats/ImageFile.h"
files/NaturalOrder.cpp #include <formats/ImageFile.h>
files/NaturalOrder.cpp #include <./formats/ImageFile.h>
files/NaturalOrder.cpp #include FORMATS_HEADER
CASES

# What parts of the window do not do.
while read -r like line; do
  rm -rf "$scratch/tree"
  mkdir -p "$scratch/tree/app/session" "$scratch/tree/$(dirname "$like")"
  touch "$scratch/tree/app/MainWindow."{h,cpp} "$scratch/tree/app/session/EditSession.h" \
    "$scratch/tree/app/session/EditSession.cpp"
  mkdir -p "$scratch/tree/app/"{browse,edit}
  touch "$scratch/tree/app/"{browse,edit}/PartController.{h,cpp}
  check >/dev/null || fail "check-layers refuses an empty window: $(check)"
  echo "$line" >"$scratch/tree/$like"
  words=$(check) && fail "check-layers does not refuse $line in $like"
  grep -qF "$like:1:$line" <<<"$words" || fail "check-layers does not name $line in $like"
done <<'CASES'
app/edit/Probe.cpp #include "app/MainWindow.h"
app/Stage.cpp #include "app/MainWindow.h"
app/Stage.cpp #  include "app/MainWindow.h"
app/edit/Probe.cpp #include "app/App.h"
app/edit/Probe.cpp QEventLoop wait;
app/edit/Probe.cpp dialog.exec();
app/edit/Probe.cpp std::thread work([] {});
app/edit/Probe.cpp std::jthread work([] {});
app/edit/Probe.cpp auto later = std::async(Work);
app/edit/Probe.cpp QtConcurrent::run(Work);
app/edit/Probe.cpp const auto chosen = PopUpMenu(menu, 0, 0);
kit/Probe.cpp menu.exec();
app/edit/Probe.cpp commands.Run("FileOpen");
CASES

# What is linked can be included, and check-layers agrees with all of it.
rm -rf "$scratch/tree"
while read -r like header; do
  words=$(compile "$like" "$header") || fail "$like cannot include $header: $words"
  mkdir -p "$scratch/tree/$(dirname "$like")"
  printf '#include "%s"\n#include <vector>\n#include <sys/stat.h>\n#include "Probe.moc"\n' \
    "$header" >"$scratch/tree/$like"
done <<'CASES'
engine/StyleData.cpp engine/pictures/ColorEffects.h
browser/ui/Sidebar.cpp browser/SearchText.h
effects/EffectRegistry.cpp effects/fixes/LevelRange.h
CASES
"$source/scripts/check-layers" "$scratch/tree" "$build/layers.txt" >"$scratch/words" ||
  fail "check-layers refuses what holds: $(cat "$scratch/words")"
exit "$failed"
