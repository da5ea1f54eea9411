# What the scripts share; sourced with the repository's root as the current folder.
ROOT_DIR=$PWD
BUILD_DIR=$ROOT_DIR/build
CACHE_DIR=${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/marlux3

say() { printf '%s\n' "$*" >&2; }
fail() { say "error: $*"; exit 1; }

# Wine keeps to a home and a prefix inside build/: the user's own are not touched. A prefix has one desktop, on the
# screen that its first program used; two screens at a time need two of them (MARLUX_WINE names another place).
use_own_wine() {
  local place=${MARLUX_WINE:-$BUILD_DIR/wine}
  # The key to the user's display is looked for in the home.
  [ -n "${XAUTHORITY:-}" ] || [ ! -e "${HOME:-/root}/.Xauthority" ] || export XAUTHORITY=${HOME:-/root}/.Xauthority
  export HOME=$place/home WINEPREFIX=$place/prefix
  export WINEARCH=win32 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe="
  mkdir -p "$HOME"
}

# Where the programs in our prefix find the user's documents.
documents_folder() { printf '%s\n' "$WINEPREFIX/drive_c/users/${USER:-$(id -un)}/Documents"; }

# Programs without a screen of the user's run in a prefix beside the first one: ending their desktop must not end a host
# that the user has open.
use_headless_wine() {
  export MARLUX_WINE=${MARLUX_WINE:-$BUILD_DIR/wine-headless}
  local source=$BUILD_DIR/wine/prefix stamp=$MARLUX_WINE/prefix/.ready
  cmp -s "$source/.ready" "$stamp" && return 0
  [ -e "$source/.ready" ] || fail "there is no Wine prefix to copy: run scripts/setup.sh without MARLUX_WINE"
  rm -rf "$MARLUX_WINE/prefix" "$MARLUX_WINE/prefix.new"
  mkdir -p "$MARLUX_WINE"
  cp -a "$source" "$MARLUX_WINE/prefix.new"
  mv "$MARLUX_WINE/prefix.new" "$MARLUX_WINE/prefix"
}
