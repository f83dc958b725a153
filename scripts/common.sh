# SPDX-License-Identifier: MIT
# Shared by the scripts: the packages that are needed, and the optimised build.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build_packages=(
  g++ cmake ninja-build ccache pkg-config
  qt6-base-dev qt6-svg-dev qt6-l10n-tools fonts-dejavu-core libgl-dev libvips-dev libraw-dev
  libhwy-dev libtbb-dev liblcms2-dev libpugixml-dev libexif-dev libjpeg-dev libpng-dev libtiff-dev
  libwebp-dev libopenjp2-7-dev libgif-dev libmagickcore-dev libcli11-dev libsqlite3-dev zlib1g-dev
)
test_packages=(
  libgtest-dev libgmock-dev locales dbus-daemon shared-mime-info xvfb xauth desktop-file-utils
  appstream git xdotool libimage-exiftool-perl
)
check_packages=(clang-format clang-tidy git binutils)
bench_packages=(
  libbenchmark-dev libopencv-imgproc-dev libjpeg-turbo-progs libvips-tools imagemagick
  graphicsmagick gegl libexiv2-dev
)

# Installs those of the packages that are missing.
need() {
  local missing=() package
  for package in "$@"; do
    [[ $(dpkg-query -W -f '${Status}' "$package" 2>/dev/null) == *'install ok installed'* ]] ||
      missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then
    return
  fi
  local root=()
  if [ "$(id -u)" -ne 0 ]; then
    root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${root[@]}" apt-get update -qq
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# A checkout in another folder compiles the same: paths below it do not count.
# Precompiled headers need the sloppiness.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros

# configure PRESET [OPTION...]: makes build/PRESET ready.
configure() {
  local preset=$1
  shift
  cmake --preset "$preset" "$@" >/dev/null
}

# build PRESET [OPTION...]: configures and builds into build/PRESET.
build() {
  configure "$@"
  cmake --build --preset "$1" -- --quiet
}

# checked_table SECONDS COMMAND...: runs a table of speeds that may take so long, and fails if it
# does not end by then or prints no row: a figure with decimals, or with its unit.
checked_table() {
  local limit=$1 said code=0
  shift
  said=$(mktemp)
  timeout "$limit" "$@" | tee "$said" || code=$?
  if [ "$code" -eq 124 ]; then
    echo "${1##*/} waits: it had $limit s, and this was the last it said: $(tail -n 1 "$said")"
  elif [ "$code" -eq 0 ] && ! grep -qE ' [0-9]+\.[0-9]+ | [0-9]+ [mun]s ' "$said"; then
    echo "${1##*/} printed no row."
    code=1
  fi
  rm -f "$said"
  return "$code"
}
