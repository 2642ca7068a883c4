#!/usr/bin/env bash
# Installs into a folder of its own, takes away the right to write there, and runs both programs
# from it; then makes the Debian package and looks at what it holds.
# Usage: installed.sh BUILD_FOLDER
set -eu
build=$1
work=$(mktemp -d)
program=""
finish() {
  [ -z "$program" ] || kill "$program" 2>/dev/null || true
  chmod -R u+w "$work"
  rm -rf "$work"
}
trap finish EXIT
fail() {
  echo "$1" >&2
  exit 1
}

prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
chmod -R a-w "$prefix"
state() { find "$prefix" -printf '%p %s %T@ %m\n' | sort | sha256sum; }
before=$(state)

result=$("$prefix/bin/quorcalc" state --substance "Carbon dioxide" --T 300 --p 5000)
echo "$result" | grep -q '131\.496' || fail "quorcalc gives another density: $result"

mkdir -m 700 "$work/home"
HOME=$work/home XDG_DATA_HOME=$work/home/data XDG_CONFIG_HOME=$work/home/config \
  XDG_RUNTIME_DIR=$work/home QT_QPA_PLATFORM=offscreen "$prefix/bin/quor6" &
program=$!
sleep 2
kill -0 "$program" 2>/dev/null || fail "the program has ended by itself"
kill "$program"
wait "$program" 2>/dev/null || true
program=""
[ -d "$work/home/data" ] || fail "the user has no data folder"
[ "$(state)" = "$before" ] || fail "the program has written beside itself"

(cd "$build" && cpack -G DEB -B "$work/package" >/dev/null)
package=$(find "$work/package" -maxdepth 1 -name 'quor6_*.deb')
[ -n "$package" ] || fail "there is no package"
list=$(dpkg-deb -c "$package")
for file in /usr/bin/quor6 /usr/bin/quorcalc /usr/share/quor6/STUDENT.Q05 /usr/share/quor6/SYNOM.TXT \
  /usr/share/quor6/help/0.html /usr/share/quor6/samples/propane_saturation.BAQ \
  /usr/share/applications/quor6.desktop /usr/share/mime/packages/quor6.xml \
  /usr/share/icons/hicolor/scalable/apps/quor6.svg; do
  echo "$list" | grep -q "\.$file\$" || fail "$file is not in the package"
done
dpkg-deb -f "$package" Depends | grep -q libqt6widgets6 || fail "the package does not name Qt"
