#!/usr/bin/env bash
# Brings a Debian 12 machine to the point where Marlux 3 can be built and tested:
# distribution packages, the minizip source, a Wine prefix of our own.
# Does nothing that is already done; prints one line for each thing it does.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

# What the cross build, the tests and the screenshots need, all from the distribution.
PACKAGES=(
  g++-mingw-w64-i686-posix libz-mingw-w64-dev cmake ninja-build
  googletest python3 xz-utils clang-format clang-tidy cppcheck
  clang libclang-rt-14-dev llvm g++-multilib lib32z1-dev
  fp-utils-3.2.2 nsis
  xvfb xdotool openbox imagemagick fonts-open-sans x11-utils
)
# The web server of the download tests. A program of ours starts it, never the system: see install_web_server.
WEB_SERVER=(nginx-light curl)
# Both architectures of Wine must come out of one release, or their shared libraries differ in version; pulseaudio, which
# the tests play sound to, shares some of them.
WINE_PACKAGES=(wine wine32:i386 pulseaudio)

# minizip: the distribution's source package, compiled here with the cross compiler.
MINIZIP_FILE=minizip_1.1.orig.tar.xz
MINIZIP_DIR=$BUILD_DIR/third_party/minizip
MINIZIP_SHA256=7d8da446d3b6799e7851f077a66551a46b80fc3de708549e79dbd3e49e842ba1

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

missing_of() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
  done
}

apt_get() { as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y "$@" >>"$SETUP_LOG" 2>&1; }
# The same as the user, in places of our own only.
apt_get_unprivileged() { apt-get -q -y "$@" >>"$SETUP_LOG" 2>&1; }

# A stale index of one source makes this fail while all others are fresh: the installs decide.
apt_update() { apt_get update || say "apt-get update reported a problem; going on (see $SETUP_LOG)"; }

# The tests start a sound server by themselves: the one that came for them begins with nobody's session.
keep_sound_server_off() {
  if [ -z "$(missing_of pulseaudio)" ] && command -v systemctl >/dev/null; then
    as_root systemctl --global disable pulseaudio.service pulseaudio.socket >>"$SETUP_LOG" 2>&1 || true
  fi
  rm -f "$1"
}

install_packages() {
  local native wine
  local mark=$BUILD_DIR/setup/sound-server-is-ours
  mapfile -t native < <(missing_of "${PACKAGES[@]}")
  mapfile -t wine < <(missing_of "${WINE_PACKAGES[@]}")
  [ ! -e "$mark" ] || keep_sound_server_off "$mark"
  [ $((${#native[@]} + ${#wine[@]})) -gt 0 ] || return 0
  say "installing ${native[*]} ${wine[*]}"
  if ! dpkg --print-foreign-architectures | grep -qx i386; then as_root dpkg --add-architecture i386; fi
  apt_update
  if [ ${#native[@]} -gt 0 ]; then
    apt_get install --no-install-recommends "${native[@]}" || fail "packages did not install, see $SETUP_LOG"
  fi
  if [ ${#wine[@]} -gt 0 ]; then
    [ -z "$(missing_of pulseaudio)" ] || touch "$mark"
    . /etc/os-release
    apt_get install --no-install-recommends --allow-downgrades -t "$VERSION_CODENAME" "${WINE_PACKAGES[@]}" ||
      fail "Wine did not install, see $SETUP_LOG"
  fi
  [ ! -e "$mark" ] || keep_sound_server_off "$mark"
}

# Packages of servers start them when they are installed, unless the machine's policy says no: it does meanwhile, in
# place of a policy that is there already and that comes back however the installation ends. What a run that was killed
# left aside comes back in the next one.
POLICY=/usr/sbin/policy-rc.d
POLICY_ASIDE=$POLICY.before-marlux3

restore_policy() {
  if [ -e "$POLICY_ASIDE" ] || [ -L "$POLICY_ASIDE" ]; then
    as_root mv -f "$POLICY_ASIDE" "$POLICY"
  elif grep -qs 'marlux3' "$POLICY"; then
    as_root rm -f "$POLICY"
  fi
}

forbid_services() {
  restore_policy
  if [ -e "$POLICY" ] || [ -L "$POLICY" ]; then as_root mv "$POLICY" "$POLICY_ASIDE"; fi
  printf '#!/bin/sh\n# marlux3: set-up at work\nexit 101\n' | as_root tee "$POLICY" >/dev/null
  as_root chmod 755 "$POLICY"
}

# In a shell of its own, whose end restores the policy, a signal's too. What was not started now is not to be started
# with the machine either, unless it was there before and is the machine's own; the mark tells a later run of it.
install_web_server() (
  mark=$BUILD_DIR/setup/web-server-is-ours
  restore_policy
  mapfile -t packages < <(missing_of "${WEB_SERVER[@]}")
  [ ${#packages[@]} -gt 0 ] || [ -e "$mark" ] || return 0
  [ -z "$(missing_of nginx)" ] || touch "$mark"
  [ ! -e "$mark" ] || packages=("${WEB_SERVER[@]}")
  say "installing ${packages[*]}"
  trap restore_policy EXIT
  trap 'exit 1' HUP INT TERM
  forbid_services
  if ! apt_get install --no-install-recommends "${packages[@]}"; then
    apt_update
    if ! apt_get install --no-install-recommends "${packages[@]}"; then
      [ -z "$(missing_of nginx)" ] || rm -f "$mark"
      fail "the web server did not install, see $SETUP_LOG"
    fi
  fi
  if [ -e "$mark" ] && [ -d /run/systemd/system ]; then as_root systemctl disable --quiet nginx || true; fi
  rm -f "$mark"
)

# Source entries made from the machine's own binary entries, in a private place: /etc stays as it is.
private_source_lists() {
  local to=$1 file
  mkdir -p "$to/lists/partial" "$to/parts"
  for file in /etc/apt/sources.list.d/*.sources; do
    [ -e "$file" ] && grep -q 'debian' "$file" && sed 's/^Types:.*/Types: deb-src/' "$file" >"$to/parts/$(basename "$file")"
  done
  for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ -e "$file" ] && sed -n 's/^deb \(.*debian.*\)/deb-src \1/p' "$file" >"$to/parts/$(basename "$file" .list)-src.list"
  done
  return 0
}

checksum_holds() { [ -e "$1" ] && echo "$2  $1" | sha256sum --check --status; }

fetch_minizip() {
  local file=$CACHE_DIR/$MINIZIP_FILE lists=$BUILD_DIR/setup/apt options
  [ -e "$MINIZIP_DIR/.unpacked" ] && return 0
  checksum_holds "$file" "$MINIZIP_SHA256" && return 0
  say "fetching the minizip source"
  private_source_lists "$lists"
  options=(-o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$lists/parts" -o "Dir::State::lists=$lists/lists" -o "Dir::Cache=$lists/cache" -o APT::Sandbox::User=root)
  mkdir -p "$lists/cache/archives/partial"
  apt_get_unprivileged "${options[@]}" update || true
  mkdir -p "$CACHE_DIR"
  (cd "$CACHE_DIR" && apt_get_unprivileged "${options[@]}" source --download-only minizip) || fail "the minizip source did not come, see $SETUP_LOG"
  checksum_holds "$file" "$MINIZIP_SHA256" || fail "$file does not have the checksum that it should have"
}

unpack_minizip() {
  [ -e "$MINIZIP_DIR/.unpacked" ] && return 0
  rm -rf "$MINIZIP_DIR" && mkdir -p "$MINIZIP_DIR"
  tar -xJf "$CACHE_DIR/$MINIZIP_FILE" -C "$MINIZIP_DIR" --strip-components=1
  touch "$MINIZIP_DIR/.unpacked"
}

# The prefix: a plain desktop with smooth text in a font that every screenshot machine has. One that is whole is never
# made again: recordings and tasks of whoever runs the host lie in it. Only the desktop's settings are.
make_wine_prefix() {
  local made wait=(wineserver --wait)
  made=$(sha256sum <scripts/wine-desktop.reg)
  [ "$(cat "$WINEPREFIX/.ready" 2>/dev/null)" = "$made" ] && return 0
  say "making the Wine prefix"
  if [ -e "$WINEPREFIX/.ready" ]; then
    wait=(timeout 60 wineserver --wait)  # a host that is open in it stays open
  else
    rm -rf "$WINEPREFIX" && mkdir -p "$WINEPREFIX" "$HOME"
    wine wineboot --init >>"$SETUP_LOG" 2>&1 </dev/null || fail "Wine did not start, see $SETUP_LOG"
  fi
  wine regedit /S scripts/wine-desktop.reg >>"$SETUP_LOG" 2>&1 </dev/null || fail "the prefix was not set up, see $SETUP_LOG"
  "${wait[@]}" || true
  # A documents folder inside the prefix, so that a prefix can be copied and each copy has its own.
  [ ! -L "$(documents_folder)" ] || rm "$(documents_folder)"
  mkdir -p "$(documents_folder)"
  printf '%s\n' "$made" >"$WINEPREFIX/.ready"
}

mkdir -p "$BUILD_DIR/setup"
export SETUP_LOG=$BUILD_DIR/setup/setup.log
install_packages
install_web_server
fetch_minizip
unpack_minizip
use_own_wine
make_wine_prefix
