# SPDX-License-Identifier: Apache-2.0
# Sourced by the tests of the rule scripts: a small sound tree in a temporary folder, and breaches planted one by one.
set -euo pipefail
tools=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../tools" && pwd -P)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cases=0

# plant FILE: writes standard input to the file in the tree.
plant() { mkdir -p "$tree/$(dirname "$1")"; cat >"$tree/$1"; }

# sound RULE: the tree as it stands must pass.
sound() {
  cases=$((cases + 1))
  local said
  said=$("$tools/check-$1" "$tree" 2>&1) || { echo "check-$1 complains about a sound tree:"; echo "$said"; exit 1; }
}

# breach RULE FILE PATTERN: standard input as FILE must be complained about in words that match PATTERN; then FILE is as before.
breach() {
  cases=$((cases + 1))
  local said
  [ ! -f "$tree/$2" ] || cp "$tree/$2" "$tree/.before"
  plant "$2"
  if said=$("$tools/check-$1" "$tree" 2>&1); then
    echo "check-$1 does not notice:"; cat "$tree/$2"; exit 1
  fi
  grep -qE -- "$3" <<<"$said" || { echo "check-$1 says something else than /$3/:"; echo "$said"; exit 1; }
  rm "$tree/$2"
  [ ! -f "$tree/.before" ] || mv "$tree/.before" "$tree/$2"
}

all_noticed() { sound "$1"; echo "$cases cases of check-$1"; }
