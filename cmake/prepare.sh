# Shared by run.sh and test.sh: installs what is missing, builds, and prepares Wine.
# Expects $root, the repository's folder.

packages_of() {
  case "$1" in
    native) echo "g++ cmake ninja-build nlohmann-json3-dev libcli11-dev libgtest-dev libedit-dev" ;;
    browser) echo "chromium" ;;
    windows) echo "g++-mingw-w64-x86-64-posix mingw-w64-tools wine wine64 googletest cmake ninja-build
                   nlohmann-json3-dev libcli11-dev zip unzip clang wixl msitools
                   osslsigncode openssl $(command -v npm >/dev/null || echo "nodejs npm")" ;;
    lint) echo "clang clang-tidy cppcheck" ;;
    bench) echo "libbenchmark-dev" ;;
    format) echo "clang-format git" ;;
    coverage) echo "gcovr" ;;
    fuzz) echo "clang" ;;
  esac
}

# Installs those Debian packages of the named parts that are missing.
install_packages() {
  local part package missing=()
  for part in "$@"; do
    for package in $(packages_of "$part"); do
      dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' installed$' ||
        missing+=("$package")
    done
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  local as_root=()
  if [ "$(id -u)" != 0 ]; then
    if ! sudo -n true 2>/dev/null && ! { [ -t 0 ] && sudo true; }; then
      echo "$(basename "$0"): these packages are missing and need root to install:" \
        "${missing[*]}" >&2
      echo "Run: apt-get install -y --no-install-recommends ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}" >&2
  { "${as_root[@]}" apt-get update -qq &&
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y --no-install-recommends \
      "${missing[@]}"; } >&2
}

# build PRESET [TARGET…]: prints nothing unless it fails.
build() {
  local preset=$1 log=$root/build/$1.log
  shift
  mkdir -p "$root/build"
  if ! (cd "$root" && cmake --preset "$preset" &&
    cmake --build --preset "$preset" ${@:+--target "$@"}) >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    echo "The $preset build failed; its whole log is build/$preset.log" >&2
    exit 1
  fi
}

# A Wine prefix for this build only; created once.
use_wine() {
  export WINEDEBUG=-all WINEPREFIX=$root/build/windows/wineprefix
  # No prompts for optional components, and no debugger: with it a crash sometimes ends with status 0.
  export WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
  [ -f "$WINEPREFIX/system.reg" ] && return
  mkdir -p "$WINEPREFIX"  # Wine does not create parent folders
  local log=$root/build/wineboot.log
  if ! wine wineboot -i >"$log" 2>&1; then
    cat "$log" >&2
    echo "Wine could not make its prefix, $WINEPREFIX" >&2
    return 1
  fi
}
