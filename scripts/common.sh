# What the scripts share; sourced with the repository's root as the current folder.
ROOT_DIR=$PWD
BUILD_DIR=$ROOT_DIR/build
CACHE_DIR=${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/marlux3

say() { printf '%s\n' "$*" >&2; }
fail() { say "error: $*"; exit 1; }

# Wine keeps to a home and a prefix inside build/: the user's own are not touched.
use_own_wine() {
  export HOME=$BUILD_DIR/wine/home WINEPREFIX=$BUILD_DIR/wine/prefix
  export WINEARCH=win32 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe="
  mkdir -p "$HOME"
}
