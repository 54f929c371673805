#!/usr/bin/env bash
# Starts the window under Xvfb with Qt's accessibility bridge on, inside the
# private D-Bus session this script is run in (dbus-run-session), crops the
# images given through a11y_batch.py and checks the files it wrote.
#   run_a11y_test.sh VELLUMO OUTPUT_FOLDER IMAGE...
set -euo pipefail
vellumo=$1 output=$2
shift 2
here=$(dirname "$0")
xvfb_display=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x800x24 3>"$xvfb_display" >/dev/null 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null; kill $app 2>/dev/null; rm -f "$xvfb_display"' EXIT
# Xvfb writes its display number once it takes connections; on a machine
# busy with other tests that can take seconds, so this waits up to a minute
# (and says so, rather than starting the window on no display at all).
for _ in $(seq 600); do [ -s "$xvfb_display" ] && break; sleep 0.1; done
[ -s "$xvfb_display" ] || { echo "a11y: Xvfb gave no display within a minute" >&2; exit 1; }
export DISPLAY=":$(cat "$xvfb_display")"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_QPA_PLATFORM=xcb
export XDG_CONFIG_HOME=$output/.config XDG_CACHE_HOME=$output/.cache
rm -rf "$output"
mkdir -p "$output/out"
"$vellumo" "$@" >"$output/window.log" 2>&1 &
app=$!
/usr/bin/python3 "$here/a11y_batch.py" "$output/out"
# What the batch wrote: one square crop for each image given.
written=("$output"/out/*)
[ "${#written[@]}" -eq "$#" ] || { echo "a11y: ${#written[@]} files written for $# images" >&2; exit 1; }
for f in "${written[@]}"; do
    read -r w h < <(identify -format '%w %h\n' "$f")
    [ "$w" -eq "$h" ] || { echo "a11y: $f is $w x $h, not square" >&2; exit 1; }
done
echo "a11y: ${#written[@]} square crops written"
