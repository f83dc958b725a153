#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs the driver of the fuzz targets with a target that fails: the failure must repeat on another
# machine, whose folders have another order, and the input must be there to look at.
#   CheckDriver.sh SOURCE COMPILER
set -euo pipefail
source=$1 compiler=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0
fail() {
  echo "$*"
  failed=1
}
# A target that tells what it gets, and ends at a poisoned input.
cat >"$scratch/target.cpp" <<'CODE'
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::fprintf(stderr, "<%s>", text.c_str());
  if (text.find("poison") != std::string::npos) std::abort();
  return 0;
}
CODE
"$compiler" -std=c++20 "$source/tests/fuzz/Driver.cpp" "$scratch/target.cpp" -o "$scratch/target"
cd "$scratch"
ulimit -c 0
# Two folders with the same seeds, made the other way round; names decide.
mkdir forth back
for i in {10..60}; do echo -n "seed $i" >"forth/$i"; done
for i in {60..10}; do echo -n "seed $i" >"back/$i"; done
./target 200 forth 2>said-forth >/dev/null || fail "the driver fails without a reason"
./target 200 back 2>said-back >/dev/null || fail "the driver fails without a reason"
wanted=$(printf '<>'; for i in {10..60}; do printf '<seed %s>' "$i"; done)
[ "$(head -c ${#wanted} said-forth)" = "$wanted" ] || fail "the seeds do not run by name"
cmp -s said-forth said-back || fail "the order of a folder decides what runs"
[ ! -e target.input ] || fail "an input stays although nothing failed"
# The input of a failure is kept and named, and fails again.
echo -n poison >forth/99
words=$(./target 0 forth 2>/dev/null) && fail "the target does not fail"
kept=$(sed -n 's/^The input that runs is kept in //p' <<<"$words")
[ "$(cat "$kept")" = poison ] || fail "the input of a failure is not kept: $words"
./target "$kept" >/dev/null 2>&1 && fail "the kept input does not fail again"
exit "$failed"
