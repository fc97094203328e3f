#!/usr/bin/env bash
# package_test.sh BUILD_DIR: packs the programs of a build, installs the package below a folder of its own, uses it there
# first over an older one, as two users who may write nothing but their home folders, and removes it. The machine's own system
# is only read.
set -euo pipefail
umask 022
PATH="$PATH:/usr/sbin:/sbin"
build="$(realpath "$1")"
source="$(realpath "$(dirname "$0")/../..")"
source "$source/tests/support/needs.sh"
needs dpkg-shlibdeps file fakeroot lintian desktop-file-validate appstreamcli Xvfb xdotool convert pdfimages

work="$(mktemp -d)"
chmod 755 "$work"
root="$work/root"
usr="$root/usr"
processes=()
Leave() {
  for process in "${processes[@]}"; do kill "$process" 2>/dev/null || true; done
  chmod -R u+w "$work"
  rm -rf "$work"
}
trap Leave EXIT

Fail() {
  echo "FAILED: $*" >&2
  exit 1
}

WaitFor() {
  local what="$1"
  shift
  for _ in {1..100}; do
    "$@" >/dev/null 2>&1 && return
    sleep 0.1
  done
  cat "$work"/*.err >&2 || true
  Fail "in vain waited for $what"
}

# Another identity when there are several to choose from; the same one in another home otherwise.
AsUser() {
  local user="$1" identity=()
  shift
  if [[ $EUID -eq 0 ]]; then
    identity=(setpriv --reuid "$user" --regid "$user" --clear-groups --)
  fi
  exec "${identity[@]}" env -i --chdir="$work/$user" HOME="$work/$user" PATH="$usr/bin:/usr/bin:/bin" LC_ALL=C.UTF-8 \
    DISPLAY="${display:-}" "$@"
}

MakeUser() {
  mkdir "$work/$1"
  if [[ $EUID -eq 0 ]]; then chown "$1:$1" "$work/$1"; fi
}

# A package database with the machine's packages in it, so that what the package depends on is looked up there.
MakeRoot() {
  mkdir -p "$root/var/lib/dpkg/"{info,updates,triggers}
  cp /var/lib/dpkg/status "$root/var/lib/dpkg/"
  cp /var/lib/dpkg/info/*.list /var/lib/dpkg/info/format "$root/var/lib/dpkg/info/"
}

Dpkg() {
  fakeroot dpkg --root="$root" --log="$work/dpkg.log" --path-include='/usr/share/*' "$@" >"$work/dpkg.out" 2>&1 || {
    cat "$work/dpkg.out"
    Fail "dpkg $1"
  }
}

# The package with the lowest number, a layout that is shipped no more, and another that was otherwise.
MakeOlder() {
  dpkg-deb -R "$package" "$work/older"
  sed -i 's/^Version: .*/Version: 0.1-1/' "$work/older/DEBIAN/control"
  mv "$work/older/usr/share/morvane/"{"VHS - Etichette","Modello di una volta"}.mvne
  sed -i 's/^Larg1=.*/Larg1=90\r/' "$work/older/usr/share/morvane/CD - Fronte e retro.mvne"
  dpkg-deb --root-owner-group -b "$work/older" "$work/older.deb" >/dev/null
}

CheckFields() {
  local version
  version="$(dpkg-deb -f "$package" Version)"
  [[ "$(dpkg-deb -f "$package" Package Section Maintainer)" == *$'\nSection: graphics\nMaintainer: Morvane <'* ]] ||
    Fail "fields of the package"
  [[ "$(zcat "$usr/share/doc/morvane/changelog.Debian.gz" | head -n 1)" == "morvane ($version) "* ]] ||
    Fail "the changelog does not begin with version $version"
  [[ "$version" == "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$usr"/share/metainfo/*.xml | head -n 1)"-* ]] ||
    Fail "the newest release of the metainfo is not $version"
}

CheckContents() {
  local file
  for file in bin/morvane bin/morvane-print libexec/morvane/morvane-decode; do
    [[ -s "$usr/$file" ]] || Fail "no $file"
    ! readelf -S "$usr/$file" | grep -q '\.debug_info' || Fail "$file is not stripped"
  done
  for file in applications/morvane.desktop icons/hicolor/scalable/apps/morvane.svg mime/packages/morvane.xml \
    metainfo/example.morvane.morvane.metainfo.xml doc/morvane/copyright man{,/it}/man1/morvane{,-print}.1.gz; do
    [[ -s "$usr/share/$file" ]] || Fail "no share/$file"
  done
  for file in "$source"/data/layouts/*.mvne "$source"/data/program_folder/*; do
    cmp "$file" "$usr/share/morvane/$(basename "$file")"
  done
  desktop-file-validate "$usr/share/applications/morvane.desktop"
  appstreamcli validate --no-net "$usr"/share/metainfo/*.xml >"$work/appstream.out" || Fail "$(cat "$work/appstream.out")"
  [[ -z "$(find "$root" -path "$root/var" -prune -o -perm /022 ! -type l -print)" ]] || Fail "others may write installed files"
}

# 16 x 2 pixels of one bit plane. Only the decoder, a program of its own, reads this format.
WriteIff() {
  printf 'FORM\0\0\0\x3AILBMBMHD\0\0\0\x14\0\x10\0\x02\0\0\0\0\x01\0\0\0\0\0\x01\x01\0\x10\0\x02' >"$1"
  printf 'CMAP\0\0\0\x06\0\0\0\xFF\0\0BODY\0\0\0\x04\xF0\xF0\x0F\x0F' >>"$1"
}

Print() {
  WriteIff "$work/cover.iff"
  cp "$source/data/samples/fronte.jpg" "$work"
  (AsUser "$1" morvane-print "$usr/share/morvane/CD - Fronte e retro.mvne" --picture 1="$work/fronte.jpg" \
    --picture 2="$work/cover.iff" --pdf foglio.pdf) || Fail "morvane-print"
  [[ "$(pdfimages -list "$work/$1/foglio.pdf" | grep -c ' image ')" -eq 2 ]] || Fail "two pictures on the sheet"
  [[ "$( (AsUser "$1" env CUPS_SERVER="$work/none" morvane-print --printer nessuna) 2>&1 || true)" == *"non risponde."* ]] || Fail "morvane-print to a queue"
}

StartDisplay() {
  Xvfb -displayfd 3 -noreset -screen 0 1280x1024x24 -nolisten tcp -ac 3>"$work/display" 2>/dev/null &
  processes+=($!)
  WaitFor "the display" test -s "$work/display"
  display=":$(cat "$work/display")"
}

# Start USER FOLDER: the program, which leaves in the user's own folder what FOLDER holds.
Start() {
  local user="$1" expected="$2" program
  AsUser "$user" morvane 2>"$work/$user.err" &
  program=$!
  processes+=("$program")
  WaitFor "the window" env DISPLAY="$display" xdotool search --onlyvisible --name Morvane
  kill "$program"
  wait "$program" || true
  diff -r "$expected" "$work/$user/.local/share/morvane" || Fail "the folder of $user is not as expected"
  [[ -z "$(find "$work/$user/.local/share/morvane" ! -perm -u+w)" ]] || Fail "$user may not change his own folder"
}

(cd "$work" && cpack --config "$build/CPackConfig.cmake" -B "$work/pack" >"$work/cpack.out" 2>&1) || {
  cat "$work/cpack.out"
  Fail "cpack"
}
package="$(echo "$work"/pack/morvane_*.deb)"

# It takes as long as all the rest, so it works aside.
lintian --fail-on error "$package" >"$work/lintian.out" 2>&1 &
lintian=$!
processes+=("$lintian")

first=64001
second=64002
MakeUser "$first"
MakeUser "$second"
StartDisplay
MakeRoot

# What a user of the older one made and changed.
MakeOlder
Dpkg --install "$work/older.deb"
Start "$first" "$usr/share/morvane"
own="$work/$first/.local/share/morvane"
cp "$own/CD - Fronte e retro.mvne" "$own/Mio.mvne"
sed -i 's/^SpessoreBordo=.*/SpessoreBordo= 5 \r/' "$own/morvane.ini"
rm "$own/Blu-ray - Custodia.mvne"
cp -a "$own" "$work/kept"

Dpkg --install "$package"
CheckFields
CheckContents
[[ ! -e "$usr/share/morvane/Modello di una volta.mvne" ]] || Fail "a file of the older package is still there"
# Nobody's programs can change what is installed, not even where the one who tests owns it.
chmod -R a-w "$usr"
Start "$first" "$work/kept"
Print "$first"
Start "$second" "$usr/share/morvane"

chmod -R u+w "$usr"
Dpkg --purge morvane
left="$(find "$root" -path "$root/var" -prune -o \( ! -type d -o -name '*morvane*' \) -print)"
[[ -z "$left" ]] || Fail "left behind: $left"
[[ ! -e "$root/var/lib/dpkg/info/morvane.list" ]] || Fail "the package is still known"
wait "$lintian" || Fail "lintian: $(cat "$work/lintian.out")"
