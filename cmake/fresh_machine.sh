#!/usr/bin/env bash
# fresh_machine.sh [RELEASE…]: runs both commands of the README on new machines: for each Debian release
# (bookworm and trixie) one on which root works in a checkout, and one on which a user with sudo works in
# an unpacked archive. Only committed files are used. The machines are chroots in build/fresh/, each in
# its own mount namespace, so that no mount remains; they use the mirror of this machine's apt.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
[ $# -gt 0 ] || set -- bookworm trixie
work=$root/build/fresh
fail() {
  echo "fresh: $*" >&2
  exit 1
}

if [ "$(id -u)" != 0 ]; then
  sudo -n true 2>/dev/null || fail "only root, or a user with sudo, can make a machine"
  exec sudo "$0" "$@"
fi
unshare --mount true 2>/dev/null || fail "this system lets nobody mount, which a chroot of its own needs"
git -c safe.directory="$root" -C "$root" rev-parse HEAD >/dev/null 2>&1 ||
  fail "this is no checkout, so that neither a clone nor an archive can be made of it"
[ -z "$(git -c safe.directory="$root" -C "$root" status --porcelain)" ] ||
  echo "fresh: what is not committed is left out"
mirror=$(apt-get indextargets --format '$(REPO_URI) $(LABEL) $(COMPONENT)' 'Created-By: Packages' |
  awk '$2 == "Debian" && $3 == "main" { print $1; exit }')
[ -n "$mirror" ] || fail "apt knows no mirror of Debian"

# Runs standard input as a script on the machine $1.
on_machine() {
  unshare --mount --pid --fork --kill-child bash -euc '
    mount -t proc proc "$1/proc"
    mount --rbind /sys "$1/sys"
    mount --bind /dev "$1/dev"
    mount -t devpts -o newinstance,ptmxmode=0666 devpts "$1/dev/pts"
    mount --bind "$1/dev/pts/ptmx" "$1/dev/ptmx"
    mount -t tmpfs -o mode=1777 tmpfs "$1/dev/shm"
    # Packages are downloaded once per release.
    mount --bind "$2" "$1/var/cache/apt/archives"
    exec chroot "$1" env -i CI="${CI:-}" HOME=/root LANG=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin bash -eu' \
    bash "$1" "$work/$release-packages"
}

# Runs both commands as user $2 in /home/it/source of the machine $1.
try() {
  local machine=$1 user=$2 log=$1.log started code=0
  started=$SECONDS
  on_machine "$machine" >"$log" 2>&1 <<END || code=$?
as_user() { if [ $user = root ]; then bash -c "\$1"; else su it -c "\$1"; fi; }
cd /home/it/source
for command in ./run.sh ./test.sh; do
  started=\$SECONDS
  before=\$(dpkg-query -W | wc -l)
  as_user "\$command </dev/null"
  echo "FRESH: \$command passed in \$((SECONDS - started)) s, with \$((\$(dpkg-query -W | wc -l) - before)) packages installed"
done
echo "FRESH: \$(g++ --version | head -n 1); \$(x86_64-w64-mingw32-g++-posix --version | head -n 1); \$(wine --version 2>/dev/null)"
END
  sed -n "s|^FRESH: |  |p" "$log"
  if [ "$code" != 0 ]; then
    tail -n 60 "$log" >&2
    fail "failed after $((SECONDS - started)) s; the whole log is $log"
  fi
}

for release; do
  base=$work/$release-base
  rm -rf "$base" "$work/$release-checkout" "$work/$release-archive"
  mkdir -p "$work/$release-packages"
  debootstrap --variant=minbase "$release" "$base" "$mirror" >"$work/$release.log" 2>&1 ||
    { tail -n 20 "$work/$release.log" >&2; fail "debootstrap could not make $release"; }
  mkdir -p "$base/home/it/source"
  cp -a "$base" "$work/$release-archive"
  mv "$base" "$work/$release-checkout"

  machine=$work/$release-checkout
  echo "$release, a checkout, as root:"
  git -c safe.directory='*' clone -q --no-hardlinks "$root" "$machine/home/it/source"
  try "$machine" root

  machine=$work/$release-archive
  git -c safe.directory="$root" -C "$root" archive HEAD | tar -x -C "$machine/home/it/source"
  on_machine "$machine" >"$machine.log" 2>&1 <<'END'
useradd --shell /bin/bash --home-dir /home/it it
chown -R it: /home/it
END
  echo "$release, an archive, as a user without root:"
  code=0
  on_machine "$machine" >"$machine.log" 2>&1 <<<'su it -c "cd && cd source && ./run.sh"' || code=$?
  grep -q '^Run as root: apt-get install ' "$machine.log" && [ "$code" = 1 ] ||
    fail "no clear message, but status $code: $(cat "$machine.log")"
  echo "  told what to install"
  echo "$release, an archive, as a user with sudo:"
  on_machine "$machine" >"$machine.log" 2>&1 <<'END' || fail "no sudo: $(tail -n 5 "$machine.log")"
apt-get update -q
DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends sudo
echo 'it ALL=(ALL) NOPASSWD: ALL' >/etc/sudoers.d/it
END
  try "$machine" it
  rm -rf "$work/$release-checkout" "$work/$release-archive"
done
echo "Not shown by a chroot: another kernel, another processor, a mirror that does not answer."
