#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Writes what follows the locale into a scratch folder, a line for each way: check-numbers must name
# every one, and must be content with what is the same everywhere.
#   CheckNumbers.sh SOURCE COMPILER
set -euo pipefail
source=$1 compiler=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0
fail() {
  echo "$*"
  failed=1
}
mkdir -p "$scratch"/{bad,good}/{files,cli} "$scratch"/{bad,good}-build

# Each becomes a file of its own: FOLDER LINE. Of each the start of what is said of it is kept.
said=() lines=()
while read -r folder line; do
  probe=$folder/Probe${#said[@]}.cpp
  echo "$line" >"$scratch/bad/$probe"
  said+=("$probe:1 holds ") lines+=("$line")
done <<'CASES'
files std::snprintf(text, size, "%f", x);
files std::snprintf(text, size, "%.2fpx", x);
files std::snprintf(text, size, "%gx", x);
files std::snprintf(text, size, "% .3f", x);
files std::snprintf(text, size, "%'.*Lg of %s", 2, x, name);
files std::printf("a %s of %-8.2e", name, x);
files auto x = strtod(text, nullptr);
files auto x = std::wcstod(text, nullptr);
files auto x = std::stof(text);
files auto x = atof (text);
files std::sscanf(text, "%lf", &x);
files std::ostringstream text;
files file << std::put_time(&time, "%x");
files auto text = std::to_string(0.5);
files auto text = std::format("{:L}", x);
files auto text = std::format("{} and {:.2Lf}", name, x);
files std::setlocale(LC_ALL, "");
files std::locale mine("");
files c = std::toupper (c);
files c = toupper(c);
files std::transform(a.begin(), a.end(), a.begin(), ::tolower);
files if (std::isalpha(c)) return;
files c = std::towupper(c);
files if (strcasecmp(a, b) == 0) return;
files if (std::strcoll(a, b) < 0) return;
files strftime(text, size, "%B", &time);
files QLocale().toString(x);
files auto text = QStringLiteral("%L1").arg(x);
files if (a.localeAwareCompare(b) < 0) return;
files x = node.text().as_double();
files x = node.attribute("x").as_float();
files node.text().set(double{x});
cli auto text = std::to_string(x);
CASES

# What only types tell, compiled as the libraries are: GOOD-OR-BAD CODE.
while read -r kind code; do
  name=Typed${#said[@]}
  printf '#include <fstream>\n#include <string>\n%s\n' "$code" >"$scratch/$name.cpp"
  "$compiler" -std=c++20 -O2 -c "$scratch/$name.cpp" -o "$scratch/$name.cpp.o"
  ar rcs "$scratch/$kind-build/libprobe.a" "$scratch/$name.cpp.o"
  [ "$kind" = good ] || said+=("$name.cpp holds ")
  [ "$kind" = good ] || lines+=("$code")
done <<'CASES'
good std::string A(int x, std::size_t y) { return std::to_string(x) + std::to_string(y); }
bad std::string A(double x) { return std::to_string(x); }
bad std::string A(float x) { return std::to_string(x); }
bad std::string A(auto x) { return std::to_string(x); } template std::string A(double);
bad void A(std::ofstream& file) { file << 0.5; }
bad void A(std::ofstream& file) { file << 0.5F; }
bad void A(std::ostream& file, long double x) { file << x; }
bad void A(std::ifstream& file, double& x) { file >> x; }
bad void A(std::ifstream& file, float& x) { file >> x; }
CASES
cat >"$scratch/good/files/Plain.cpp" <<'PLAIN'
std::snprintf(text, size, "%d of %s, 100%%", n, name);
auto text = std::to_string(count) + QStringLiteral("%1 (%2)").arg(a).arg(b).toStdString();
auto low = LowerCase(text) + text.toLower() + text.toupper() + MyTolower(c);
auto code = std::format("{:d} {Label}", n);
file << "text" << 'x' << count;
PLAIN
echo 'const auto number = PaddedNumber(n, 1);' >"$scratch/good/cli/Plain.cpp"

words=$("$source/scripts/check-numbers" "$scratch/good" "$scratch/good-build" 2>&1) ||
  fail "check-numbers refuses what is the same everywhere: $words"
words=$("$source/scripts/check-numbers" "$scratch/bad" "$scratch/bad-build" 2>&1) &&
  fail "check-numbers refuses nothing"
for i in "${!said[@]}"; do
  grep -qF "${said[i]}" <<<"$words" || fail "check-numbers does not name ${lines[i]}"
done
# Neither a missing build nor a broken rule goes by as clean.
"$source/scripts/check-numbers" "$scratch/good" "$scratch/good" >/dev/null 2>&1 &&
  fail "check-numbers does without a build"
mkdir -p "$scratch/broken/scripts"
sed 's/^letters=.*/letters="("/' "$source/scripts/check-numbers" >"$scratch/broken/scripts/check"
bash "$scratch/broken/scripts/check" "$scratch/good" "$scratch/good-build" >/dev/null 2>&1 &&
  fail "check-numbers passes over a rule that cannot be looked for"
exit "$failed"
