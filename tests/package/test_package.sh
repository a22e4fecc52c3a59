#!/usr/bin/env bash
# Builds the Debian package from the built tree into a scratch folder, unpacks it into a
# scratch root and checks what a desktop installs: the menu entry, the metainfo, the icons,
# the manual page, and the installed program answering --version, --help and --init.
# Run it after a build: cpack first brings the build tree up to date.
# usage: test_package.sh BUILD_DIR VERSION
set -euo pipefail
build=$1
version=$2
for tool in cpack dpkg-deb desktop-file-validate appstreamcli; do
  command -v "$tool" >/dev/null || { echo "SKIP: $tool is missing"; exit 77; }
done
scratch=$(mktemp -d /tmp/singbox-package.XXXXXX)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch/out" >"$scratch/cpack.log" 2>&1 ||
  { cat "$scratch/cpack.log"; fail "cpack"; }
deb="$scratch/out/singbox_${version}_amd64.deb"
[ -f "$deb" ] || { ls "$scratch/out"; fail "no $deb"; }

# Declared dependencies: the libraries found by the scan and the Qt plugins named by hand.
depends=$(dpkg-deb -f "$deb" Depends)
for dep in libqt6widgets6 libsodium23 libqt6sql6-sqlite libqt6sql6-psql libqt6svg6; do
  [[ $depends == *"$dep"* ]] || fail "Depends lacks $dep: $depends"
done

root="$scratch/root"
dpkg-deb -x "$deb" "$root"
id=cn.xinglan.singbox
for f in usr/bin/singbox usr/share/applications/$id.desktop usr/share/metainfo/$id.metainfo.xml \
  usr/share/icons/hicolor/scalable/apps/$id.svg usr/share/icons/hicolor/48x48/apps/$id.png \
  usr/share/icons/hicolor/256x256/apps/$id.png usr/share/man/man1/singbox.1.gz \
  usr/share/doc/singbox/copyright usr/share/doc/singbox/changelog.gz; do
  [ -s "$root/$f" ] || fail "missing $f"
done
[[ $(file -b "$root/usr/share/icons/hicolor/48x48/apps/$id.png") == "PNG image data, 48 x 48"* ]] ||
  fail "48x48 icon is not a 48x48 PNG"
desktop-file-validate "$root/usr/share/applications/$id.desktop" || fail "desktop entry"
appstreamcli validate --no-net --pedantic "$root/usr/share/metainfo/$id.metainfo.xml" || fail "metainfo"
zcat "$root/usr/share/man/man1/singbox.1.gz" | grep -q '^\.TH SINGBOX 1' || fail "manual page"

export LANG=C.UTF-8 LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
unset SINGBOX_HOME
prog="$root/usr/bin/singbox"
[ "$("$prog" --version)" = "singbox $version" ] || fail "--version printed: $("$prog" --version)"
help=$("$prog" --help)
for opt in --home --init --demo --version --help; do
  [[ $help == *"$opt"* ]] || fail "--help lacks $opt"
done

"$prog" --home "$scratch/venue" --init >/dev/null || fail "--init on a new venue"
[ -s "$scratch/venue/Data/dat.db" ] && [ -f "$scratch/venue/config.ini" ] || fail "venue not created"
"$prog" --home "$scratch/venue" --init >/dev/null || fail "--init on an existing venue"

# Installed under a bin folder of /usr, the program keeps its venue in the user's data
# folder, even when it could write beside itself.
XDG_DATA_HOME="$scratch/userdata" "$prog" --init >/dev/null || fail "--init without --home"
[ -s "$scratch/userdata/singbox/Data/dat.db" ] || fail "venue not in the user's data folder"
[ ! -e "$root/usr/bin/Data" ] || fail "venue written beside the installed program"
echo "package $(basename "$deb") checked"
