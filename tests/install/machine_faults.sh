#!/usr/bin/env bash
# Starts the real programs on a machine with a fault: no home, no fonts, no help, no database, a
# clock far off, odd characters in the path, locales with other digits and other casing. Each has to
# start and to go on; quorcalc has to give the same number.
# Usage: machine_faults.sh BUILD_FOLDER
set -eu
build=$1
work=$(mktemp -d)
program=""
finish() {
  [ -z "$program" ] || kill -- "-$program" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
fail() {
  echo "$1" >&2
  exit 1
}

export QT_QPA_PLATFORM=offscreen HOME=$work/home XDG_RUNTIME_DIR=$work/run
mkdir -m 700 "$work/home" "$work/run"
folder="$work/odd \"folder\"; \$(false) 'ä' 温度"
mkdir "$folder"
for file in quor6 quorcalc STUDENT.Q05 SYNOM.TXT QUORTIPS.TXT QUORTIPS_E.TXT help; do
  cp -r "$build/bin/$file" "$folder/"
done

# starts NAME COMMAND...: the program is still there after a while, and ends when it is asked to.
starts() {
  name=$1
  shift
  # A group of its own, for what sets the clock off starts the program as its child.
  setsid "$@" "$folder/quor6" >"$work/out" 2>&1 &
  program=$!
  for _ in 1 2 3; do
    sleep 0.3
    kill -0 "$program" 2>/dev/null || fail "$name: the program has ended by itself: $(cat "$work/out")"
  done
  kill -- "-$program"
  wait "$program" 2>/dev/null || true
  program=""
  echo "$name: starts and goes on"
}

starts "odd characters in the path" env
starts "no home" env -u HOME
starts "a home that is not there" env HOME="$work/home/file/none"
starts "an empty name of the home" env HOME=
echo '<?xml version="1.0"?><fontconfig></fontconfig>' >"$work/fonts.conf"
starts "no fonts" env FONTCONFIG_FILE="$work/fonts.conf"
grep -q 'this machine has no fonts' "$work/out" || fail "that there are no fonts is not said"
starts "no locale of that name" env LC_ALL=xx_XX.UTF-8
for time in '1970-01-01 00:00:00' '2199-12-31 23:59:59'; do
  starts "the clock at $time" faketime -f "@$time"
done
for file in help STUDENT.Q05 SYNOM.TXT QUORTIPS_E.TXT; do
  mv "$folder/$file" "$work/away"
  starts "no $file" env
  : >"$folder/$file"
  starts "an empty file instead of $file" env
  rm "$folder/$file"
  mkdir "$folder/$file"
  starts "an empty folder instead of $file" env
  rmdir "$folder/$file"
  mkfifo "$folder/$file"
  starts "a pipe instead of $file" env
  rm "$folder/$file"
  mv "$work/away" "$folder/$file"
done

density() { "$@" "$folder/quorcalc" state --substance "Carbon dioxide" --T 300 --p 5000; }
expected=$(density env)
echo "$expected" | grep -q '131\.496' || fail "quorcalc gives another density: $expected"
for language in tr_TR de_DE ar_EG; do
  localedef -i "$language" -f UTF-8 "$work/locales/$language.UTF-8" 2>/dev/null ||
    { mkdir -p "$work/locales"; localedef -i "$language" -f UTF-8 "$work/locales/$language.UTF-8"; }
  starts "the locale $language" env LOCPATH="$work/locales" LC_ALL="$language.UTF-8"
  found=$(density env LOCPATH="$work/locales" LC_ALL="$language.UTF-8")
  [ "$found" = "$expected" ] || fail "$language: quorcalc gives something else: $found"
done
found=$(density faketime -f '@2199-12-31 23:59:59')
[ "$found" = "$expected" ] || fail "the clock far off: quorcalc gives something else: $found"
