#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs the scripts that guard a change in a scratch repository, with a linter that only tells what
# it was given: whatever changed must reach it, or the script must fail.
#   CheckScripts.sh SOURCE
set -euo pipefail
source=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0
fail() {
  echo "$*"
  failed=1
}
tools=$scratch/tools tree=$scratch/tree
mkdir -p "$tools" "$tree"/{scripts,.ci,app/core,platform/values,tests/windows,bench}
cp "$source/scripts/"{common.sh,lint-changes} "$tree/scripts"
cp "$source/.ci/run" "$tree/.ci"
tool() { printf '#!/usr/bin/env bash\n%s\n' "$2" >"$tools/$1" && chmod +x "$tools/$1"; }
tool dpkg-query 'echo install ok installed'
tool clang-format true
# Compiles all sources but those named lost, and with the tests and the benches or not.
tool cmake 'printf "%s\n" "$@" | grep -qx -e -DBRIVOLANT_TESTS=ON && tests=tests
  printf "%s\n" "$@" | grep -qx -e -DBRIVOLANT_BENCH=ON && bench=bench
  mkdir -p build/lint build/release
  find app platform ${tests:-} ${bench:-} -name "*.cpp" ! -name "Lost*" |
    sed "s|.*|  \"file\": \"$PWD/&\",|" | tee build/release/compile_commands.json \
    >build/lint/compile_commands.json'
tool clang-tidy 'for last; do :; done
  echo "$last" >>'"$scratch/linted"'
  [ ! -e '"$scratch/dirty"' ]'
export PATH=$tools:$PATH GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null
export GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a@b.example
export GIT_COMMITTER_NAME=a GIT_COMMITTER_EMAIL=a@b.example
unset BASE

cd "$tree"
cat >platform/values/Pair.h <<<'struct Pair {};'
cat >platform/values/Row.h <<<'#include "platform/values/Pair.h"'$'\n''struct Row {};'
cat >platform/values/Row.cpp <<<'#include "platform/values/Row.h"'
cat >app/core/Desk.h <<<'#include "platform/values/Row.h"'$'\n''struct Desk {};'
cat >app/core/Jobs.cpp <<<'#include "app/core/Desk.h"'
cat >tests/CommandLine.h <<<'struct CommandLine {};'
cat >tests/Helpers.h <<<'struct Helpers {};'
cat >tests/CommandLineTests.cpp <<<'#include "CommandLine.h"'
cat >tests/windows/WindowHelpers.h <<<'#  include "../Helpers.h"'$'\n''struct Window {};'
cat >tests/windows/AppTests.cpp <<<'#include "WindowHelpers.h"'
cat >bench/Table.cpp <<<'int main() {}'
cat >app/Headers.h <<<'// Precompiled.'$'\n''#include <vector>'
echo build >.gitignore
git init -q .
git add -A
git commit -qm first
git rev-parse HEAD >.ci/linted
git add -A
git commit -qm second

# What the linter gets, sorted in one line; the script's words in $words and its code in $code.
lint() {
  rm -f "$scratch/linted"
  code=0
  words=$(scripts/lint-changes "$@" 2>&1) || code=$?
  given=$(sort "$scratch/linted" 2>/dev/null | tr '\n' ' ') || true
}
# FILE, SOURCES: what reaches the linter when a line is added to the file.
while read -r file wanted; do
  echo 'int more = 1;' >>"$file"
  lint
  [ "$code" -eq 0 ] || fail "lint-changes fails over $file: $words"
  [ "$given" = "$wanted " ] || fail "lint-changes gives \"$given\" for $file, not \"$wanted\""
  git checkout -q .
done <<'CASES'
platform/values/Row.cpp platform/values/Row.cpp
platform/values/Row.h platform/values/Row.cpp
platform/values/Pair.h platform/values/Row.cpp
app/core/Desk.h app/core/Jobs.cpp
tests/CommandLine.h tests/CommandLineTests.cpp
tests/Helpers.h tests/windows/AppTests.cpp
tests/windows/WindowHelpers.h tests/windows/AppTests.cpp
bench/Table.cpp bench/Table.cpp
CASES
# One source for several headers; a new file counts; a list to precompile has nothing of its own.
for file in app/core/Desk.h app/core/Jobs.cpp platform/values/Pair.h; do echo "//" >>"$file"; done
echo '#include "app/core/Desk.h"' >app/core/New.cpp
echo '#include <map>' >>app/Headers.h
lint
[ "$given" = "app/core/Jobs.cpp app/core/New.cpp " ] || fail "lint-changes gives \"$given\""
git checkout -q . && git clean -fdq

# What nobody looks at is named.
for lost in 'app/Lost.cpp int main() {}' 'app/Lost.h struct Lost {};'; do
  echo "${lost#* }" >"${lost%% *}"
  lint
  [ "$code" -ne 0 ] || fail "lint-changes passes over ${lost%% *}"
  grep -qF "${lost%% *}" <<<"$words" || fail "lint-changes does not name ${lost%% *}: $words"
  git clean -fdq
done

# .ci/linted moves on only from a clean tree, over what was linted, when the linter is content.
refused() {
  lint "$@"
  [ "$code" -ne 0 ] || fail "lint-changes --advance passes $why"
  git diff --quiet .ci/linted || fail "lint-changes advances $why"
}
echo '//' >>app/core/Jobs.cpp
why="with a change that no commit holds" refused --advance
git commit -qam third
touch "$scratch/dirty"
why="though the linter is not content" refused --advance
rm "$scratch/dirty"
why="from another base" BASE=HEAD refused --advance
lint --advance
[ "$code" -eq 0 ] || fail "lint-changes cannot advance: $words"
[ "$(cat .ci/linted)" = "$(git rev-parse HEAD)" ] || fail "lint-changes does not advance"
git commit -qam fourth

# A table that waits or is empty fails, and its code is not lost.
table() { bash -c 'source scripts/common.sh && checked_table "$@"' table "$@" >/dev/null 2>&1; }
tool row 'echo "a row of a table            12.50  its peer      3.20    3.906        -"'
tool short 'echo "OneTable/1600/1000       209 ms        209 ms           15"'
tool empty 'echo "24 megapixels, window of 1600 x 1000"'
tool fails 'row; exit 3'
tool waits 'row; sleep 60'
table 20 row && table 20 short || fail "a table with a row fails"
for name in empty fails; do table 20 $name && fail "a table that is or does \"$name\" passes"; done
table 1 waits && fail "a table that waits passes"

# CI says that it takes too long, and passes if not.
for step in test-share check-docs test check-layers check-numbers bench lint-changes; do
  printf '#!/bin/sh\nsleep 0.3\n' >"scripts/$step" && chmod +x "scripts/$step"
done
.ci/run >/dev/null || fail "CI fails over nothing"
BRIVOLANT_CI_SECONDS=1 .ci/run >"$scratch/said" && fail "CI passes though it takes too long"
grep -q 'took more than 1 s' "$scratch/said" || fail "CI does not say that it takes too long"
exit "$failed"
