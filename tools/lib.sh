# What ./run and ./test share. Sourced with the repository's root as the current folder.

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
  [ ${#missing[@]} -eq 0 ] && return
  command -v apt-get >/dev/null ||
    stop "This system has no apt-get. Please install what stands for these Debian packages: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      stop "These packages are missing and only root can install them: ${missing[*]}"
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  if ! { "${as_root[@]}" apt-get -qq update &&
         "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
           apt-get -qq install -y --no-install-recommends "${missing[@]}" >/dev/null; }; then
    stop "The packages could not be installed: ${missing[*]}"
  fi
}

build_packages=(g++ cmake ninja-build pkg-config libmspack-dev libcli11-dev)
window_packages=(libgtk-3-dev libwebkit2gtk-4.1-dev fonts-liberation)

# build PRESET: configures where needed, and builds.
build() {
  say "Building ($1)"
  [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null
  cmake --build --preset "$1" -- --quiet
}
