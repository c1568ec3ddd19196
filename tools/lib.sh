# shellcheck shell=bash
# What ./run, ./test and others share. Sourced with the repository's root as the current folder.

# --no-install clears it: need_packages then only says what is missing.
may_install=yes

build_packages=(g++ cmake ninja-build pkg-config libarchive-dev libmspack-dev libcli11-dev nlohmann-json3-dev
  robin-map-dev libutfcpp-dev)
# dpkg-dev unpacks the sources of tools/windows-libraries, nsis makes the installer.
mingw_packages=(g++-mingw-w64-i686-posix libz-mingw-w64-dev dpkg-dev nsis)
window_packages=(libgtk-3-dev libwebkit2gtk-4.1-dev fonts-liberation)

say() { printf '== %s\n' "$*"; }

stop() {
  printf '%s\n' "$*" >&2
  exit 1
}

# need_packages NAME...: installs those Debian packages that are missing.
need_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  if [ $may_install = no ]; then
    say "Going on without ${missing[*]}"
    return
  fi
  command -v apt-get >/dev/null ||
    stop "This system has no apt-get. Install what stands for these Debian packages and use --no-install:
${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      stop "These packages are missing and only root can install them: ${missing[*]}"
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  mkdir -p build
  exec 8>build/packages.lock
  flock 8 # Stages may run beside each other, apt-get may not.
  if ! { "${as_root[@]}" apt-get -qq update &&
         "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
           apt-get -qq install -y --no-install-recommends "${missing[@]}" >/dev/null; }; then
    stop "The packages could not be installed: ${missing[*]}"
  fi
  exec 8>&-
}

# build PRESET [OPTION...]: configures and builds, with these options of "cmake --build".
build() {
  say "Building ($1)"
  cmake --preset "$1" >/dev/null
  cmake --build --preset "$1" "${@:2}" -- --quiet
}
