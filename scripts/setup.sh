# Installs what the project needs on a Debian machine, once. Sourced by ./run, ./test and .ci/run.
# setup PACKAGE... installs those that are missing, quietly; root or sudo is needed only then.

setup() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local sudo=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please install: ${missing[*]}" >&2; return 1; }
    sudo=(sudo)
  fi
  echo "Installing ${missing[*]} ..." >&2
  local log
  log=$(mktemp)
  if ! { "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
         "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"; } \
       >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}

build_packages=(g++ cmake ninja-build ccache nlohmann-json3-dev libgtest-dev libgmock-dev libbenchmark-dev
  libpugixml-dev qt6-base-dev qt6-svg-dev qt6-tools-dev libqt6opengl6-dev libgl-dev fonts-liberation2 qt6-translations-l10n)

# What scripts/package needs beside that; the last two are for the folder to run from.
package_packages=(dpkg-dev file lintian appstream desktop-file-utils librsvg2-bin patchelf qt6-wayland)

# What the tests of the real window need beside that.
screen_packages=(xvfb xdotool openbox imagemagick poppler-utils x11-utils)

# What scripts/web needs, beside node and its npm.
web_packages=(emscripten cmake ninja-build ccache dpkg-dev)

# What one clone on this machine has compiled, another takes from the compiler's cache, wherever it lies.
CCACHE_BASEDIR=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export CCACHE_BASEDIR CCACHE_NOHASHDIR=1 CCACHE_COMPILERCHECK=content CCACHE_SLOPPINESS=pch_defines,time_macros

# build PRESET [TARGET...] configures and builds; what it prints is shown only when it fails.
build() {
  local preset=$1 log
  shift
  log=$(mktemp)
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}
