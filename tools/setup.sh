# SPDX-License-Identifier: Apache-2.0
# Shared by ./run and ./test: installs what is missing, configures a preset once, builds quietly. Sourced, never run.
# The caller sets `top` (the checkout) and runs under `set -euo pipefail`.

say() { printf '%s\n' "$*" >&2; }

# missing_packages [NAME...]: names in tools/packages.txt, and these, that dpkg does not know as installed.
missing_packages() {
  local wanted
  wanted="$(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$top/tools/packages.txt")${*:+ $*}"
  dpkg-query -W -f '${Package} ${db:Status-Status}\n' $wanted 2>/dev/null |
    awk -v wanted="$wanted" '
      $2 == "installed" { have[$1] = 1 }
      END { n = split(wanted, name, /[[:space:]]+/); for (i = 1; i <= n; i++) if (!(name[i] in have)) print name[i] }' || true
}

# install_packages [NAME...]: through apt as root or through sudo. Without either: the exact command for a person, and the
# end. NAME: what this job needs beyond tools/packages.txt.
install_packages() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    say "This is no Debian system: packages are not installed here. The list to find by hand is tools/packages.txt."
    return 0
  fi
  local missing log as_root=()
  missing=$(missing_packages "$@" | tr '\n' ' ')
  missing=${missing% }
  [ -n "$missing" ] || return 0
  if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo >/dev/null; then
      say "Packages are missing and only root can install them. Please run as root:"
      say "  apt-get update && apt-get install -y --no-install-recommends $missing"
      exit 1
    fi
    as_root=(sudo)
  fi
  mkdir -p "$top/build"
  log=$top/build/install.log
  say "Installing through apt${as_root[0]:+ (with sudo)}: $missing"
  say "This takes a few minutes once; the details go to $log"
  if ! "${as_root[@]}" apt-get update -q </dev/null >"$log" 2>&1 ||
     ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
         -o Dpkg::Use-Pty=0 $missing </dev/null >>"$log" 2>&1; then
    tail -n 15 "$log" >&2
    say "Installing failed (all of it: $log). To try by hand, as root:"
    say "  apt-get update && apt-get install -y --no-install-recommends $missing"
    exit 1
  fi
  hash -r
}

# A variable of a configured build folder; empty when there is none.
cached() { sed -n "s/^$2:[A-Z]*=//p" "$1/CMakeCache.txt" 2>/dev/null || true; }

# One build at a time in a checkout: a second ./run or ./test waits for the first. Held until unlock_build.
lock_build() {
  mkdir -p "$top/build"
  exec 9>"$top/build/.lock"
  flock -n 9 && return
  say "Another build of this checkout is under way: waiting for it"
  flock 9
}
unlock_build() { exec 9>&-; }

# configure PRESET: only the first time, when the checkout was moved, or when CI turns warnings into errors or back.
configure() {
  local dir=$top/build/$1 werror=OFF home
  [ "${CI:-}" != true ] || werror=ON
  home=$(cached "$dir" CMAKE_HOME_DIRECTORY)
  if [ -n "$home" ] && [ "$home" != "$top" ]; then
    say "The checkout was moved: building afresh in build/$1"
    rm -rf "$dir"
  fi
  if [ -f "$dir/build.ninja" ] && [ "$(cached "$dir" VENTIQ_WERROR)" = "$werror" ]; then
    return 0
  fi
  say "Configuring build/$1"
  mkdir -p "$dir"
  if ! (cd "$top" && cmake --preset "$1" -DVENTIQ_WERROR=$werror) </dev/null >"$dir/configure.log" 2>&1; then
    cat "$dir/configure.log" >&2
    exit 1
  fi
}

# build PRESET [TARGET...]: says nothing when everything is up to date.
build() {
  local dir=$top/build/$1
  shift
  if [ "$(ninja -C "$dir" -n "$@" 2>/dev/null | tail -n 1)" = "ninja: no work to do." ]; then
    return 0
  fi
  say "Building in $dir"
  ninja -C "$dir" "$@" </dev/null >&2
}

# What a Qt program needs where there is no desktop session: a UTF-8 locale and a private run-time folder.
session_environment() {
  case "${LC_ALL:-${LC_CTYPE:-${LANG:-}}}" in
    *[Uu][Tt][Ff]*) ;;
    *) export LC_ALL=C.UTF-8 ;;
  esac
  if [ -z "${XDG_RUNTIME_DIR:-}" ] || [ ! -d "$XDG_RUNTIME_DIR" ]; then
    XDG_RUNTIME_DIR=${TMPDIR:-/tmp}/ventiq-runtime-$(id -u)
    if ! mkdir -p -m 0700 "$XDG_RUNTIME_DIR" 2>/dev/null || [ ! -O "$XDG_RUNTIME_DIR" ]; then
      XDG_RUNTIME_DIR=$(mktemp -d)
    fi
    chmod 0700 "$XDG_RUNTIME_DIR"
    export XDG_RUNTIME_DIR
  fi
}

# True where no window can be shown. A platform that the user chose by name (vnc, xcb, …) counts as a display.
no_display() {
  [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] || return 1
  case "${QT_QPA_PLATFORM:-}" in
    ''|offscreen*|minimal*) return 0 ;;
    *) return 1 ;;
  esac
}
