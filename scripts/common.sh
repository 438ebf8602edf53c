# shellcheck shell=bash
# What the scripts share; read with `.`. Leaves the shell at the repository's root.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
cd "$root"

# The files that the repository tracks, one a line; arguments choose among them as in `git ls-files`.
# The clone may belong to another user than the one who runs the tests, which git would refuse.
tracked() {
  git -c safe.directory="$root" ls-files -- "$@" | while IFS= read -r file; do
    if [ -f "$file" ]; then printf '%s\n' "$file"; fi
  done
}

say() { printf '%s\n' "$*" >&2; }

# configure PRESET: prepares build/PRESET; says nothing unless it fails.
configure() {
  local output settings=()
  if command -v ccache >/dev/null; then
    settings+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    export CCACHE_DIR=${CCACHE_DIR:-$root/build/ccache} CCACHE_BASEDIR=$root
  fi
  output=$(cmake --preset "$1" "${settings[@]}" 2>&1) || { say "$output"; return 1; }
}
