# Shared by run.sh, test.sh and the other scripts: installs missing packages, builds, prepares Wine.
# Expects $root, the repository's folder.

# One row per Debian package: name, the parts that need it, what it is for.
packages='
g++                        native                        compiles the native build
cmake                      native,windows                configures, builds and runs the tests
ninja-build                native,windows                builds
nlohmann-json3-dev         native,windows                reads and writes JSON
libcli11-dev               native,windows                reads the command line
libedit-dev                native                        edits the lines of the shell
libgtest-dev               native                        the native tests
chromium                   browser                       opens the report page in its test
g++-mingw-w64-x86-64-posix windows                       compiles for Windows
mingw-w64-tools            windows                       makes the type library
googletest                 windows                       sources of the tests for Windows
wine                       windows                       runs the Windows programs
wine64                     windows                       the 64-bit part of it
zip                        windows                       packs the archives
unzip                      windows                       unpacks them in their test
wixl                       windows                       makes the installer
msitools                   windows                       edits and reads the installer
faketime                   windows                       stops the clock while the installer is made
osslsigncode               windows                       signs in the test of the installer
openssl                    windows                       makes that test a certificate
clang                      windows,lint,fuzz             gives the names and layouts of the platform'"'"'s own compiler; fuzzes
clang-format-14            format                        the format
clang-tidy                 lint                          static analysis
cppcheck                   lint                          static analysis
prometheus                 fleet                         reads the metrics of a fleet in its test, and checks the rules
icinga2-bin                fleet                         checks the definition of its command
python3                    fleet                         serves those metrics over HTTP
debootstrap                fresh                         makes machines from nothing
libbenchmark-dev           bench                         the benchmarks
gcovr                      coverage                      adds up the coverage
'

# Runs its arguments, as root. Packages that they install start no service: this file forbids it.
without_services='
  policy=/usr/sbin/policy-rc.d
  if [ ! -e $policy ]; then
    printf "#!/bin/sh\nexit 101\n" >$policy && chmod +x $policy
    trap "rm $policy" EXIT
  fi
  "$@"
'

# Installs the missing packages of the named parts.
install_packages() {
  local name parts reason part rows= missing=()
  while read -r name parts reason; do
    for part in "$@"; do
      [[ ,$parts, == *,$part,* ]] || continue
      ! dpkg-query -W -f '${Status}' "$name" 2>/dev/null | grep -q ' installed$' || continue
      missing+=("$name")
      rows+=$(printf '\n  %-26s %s' "$name" "$reason")
      break
    done
  done < <(grep . <<<"$packages")
  [ ${#missing[@]} -gt 0 ] || return 0
  local as_root=()
  if [ "$(id -u)" != 0 ]; then
    if ! sudo -n true 2>/dev/null && ! { [ -t 0 ] && sudo true; }; then
      echo "$(basename "$0"): these packages are missing and need root to install:$rows" >&2
      echo "Run as root: apt-get install -y --no-install-recommends ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing:$rows" >&2
  mkdir -p "$root/build"
  local log=$root/build/install.log
  if ! { "${as_root[@]}" apt-get update -q &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -c "$without_services" sh \
      apt-get install -q -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -n 20 "$log" >&2
    echo "The packages could not be installed; the whole log is build/install.log" >&2
    exit 1
  fi
}

# build PRESET [TARGET…]: prints nothing unless it fails. $build_options are passed to the configuration.
build_options=()
build() {
  local preset=$1 log=$root/build/$1.log
  shift
  mkdir -p "$root/build"
  if ! (cd "$root" && cmake --preset "$preset" "${build_options[@]}" &&
    cmake --build --preset "$preset" ${@:+--target "$@"}) >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    echo "The $preset build failed; its whole log is build/$preset.log" >&2
    exit 1
  fi
}

# cannot_STEP succeeds, and prints the reason, if this machine cannot run the step.
cannot_windows() {
  local machine
  machine=$(dpkg --print-architecture)
  [ "$machine" = amd64 ] && return 1
  echo "the Windows build is for x64, whose programs Wine does not run on $machine"
}
cannot_format() {
  . /etc/os-release
  [ "$VERSION_CODENAME" = bookworm ] || command -v clang-format-14 >/dev/null && return 1
  echo "the format is that of clang-format 14, which Debian 12 has, and others differ"
}
cannot_--mend() { cannot_format; }

# A Wine prefix for this build only, created once. Starts Wine's helper processes, which keep the output
# of the program that starts them open for up to 100 s, so the output is a file here, not a pipe.
use_wine() {
  export WINEDEBUG=-all WINEPREFIX=$root/build/windows/wineprefix
  # No prompts for optional components, and no debugger: with it a crash sometimes ends with status 0.
  export WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
  mkdir -p "$WINEPREFIX"  # Wine does not create parent folders
  local log=$root/build/wine.log
  # The server says 2 where it runs already.
  if ! { wineserver -p60 || [ $? = 2 ]; wine wineboot -i; } >"$log" 2>&1 </dev/null; then
    cat "$log" >&2
    echo "Wine could not start in its prefix, $WINEPREFIX" >&2
    return 1
  fi
}
