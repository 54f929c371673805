#!/usr/bin/env bash
# A watch folder under a stream of arrivals: COUNT small JPEGs (default
# 1000, 640 x 480, made once into build/bench-data/) copied one after
# another into the folder a running `vellumo-cli watch` watches (1:1, JPEG
# quality 80, --jobs 2). Prints the time from the first copy to the last
# image recorded, and checks that every image was cropped exactly once: one
# output each, one done entry each in the watch's manifest.
#
#   bench/watch.sh [COUNT]      (run scripts/build vellumo-cli vellumo-worker first)
set -euo pipefail
cd "$(dirname "$0")/.."
build=build
cli=$PWD/${VELLUMO_CLI:-$build/cli/vellumo-cli}
count=${1:-1000}
data=$PWD/$build/bench-data/watch-$count
work=$(mktemp -d)
watcher=
cleanup() {
    if [ -n "$watcher" ]; then kill "$watcher" 2>/dev/null || true; wait "$watcher" 2>/dev/null || true; fi
    rm -rf "$work"
}
trap cleanup EXIT
if [ ! -f "$data/.made" ]; then
    mkdir -p "$data"
    convert -size 640x480 gradient:tan-navy -attenuate 0.4 +noise Gaussian -quality 90 "$data/photo.jpg"
    for i in $(seq 1 "$count"); do cp "$data/photo.jpg" "$data/p$i.jpg"; done
    rm "$data/photo.jpg"
    touch "$data/.made"
fi

mkdir "$work/in"
manifest=$work/out/.vellumo-watch.jsonl
"$cli" watch "$work/in" --auto 1:1 --format JPG --quality 80 --jobs 2 \
    --output "$work/out" >/dev/null 2>"$work/err.txt" &
watcher=$!
until grep -q 'watching' "$work/err.txt" 2>/dev/null; do sleep 0.05; done
start=$(date +%s.%N)
for i in $(seq 1 "$count"); do cp "$data/p$i.jpg" "$work/in/"; done
copied=$(date +%s.%N)
until [ "$(grep -c '"status":"written"' "$manifest" 2>/dev/null || echo 0)" -ge "$count" ]; do
    sleep 0.05
done
end=$(date +%s.%N)
kill -TERM "$watcher"
status=0
wait "$watcher" || status=$?
watcher=
outputs=$(find "$work/out" -type f -name '*.jpg' | wc -l)
sources=$(grep '"status":"written"' "$manifest" | sed 's/.*"source":"\([^"]*\)".*/\1/' | sort -u | wc -l)
entries=$(wc -l <"$manifest")
printf '%d images copied in %.2f s; all cropped %.2f s after the first copy (%.1f images/s)\n' \
    "$count" "$(awk -v a="$start" -v b="$copied" 'BEGIN { print b - a }')" \
    "$(awk -v a="$start" -v b="$end" 'BEGIN { print b - a }')" \
    "$(awk -v a="$start" -v b="$end" -v n="$count" 'BEGIN { print n / (b - a) }')"
printf 'outputs %d, manifest entries %d, distinct sources written %d, exit status after SIGTERM %d\n' \
    "$outputs" "$entries" "$sources" "$status"
[ "$outputs" -eq "$count" ] && [ "$entries" -eq "$count" ] && [ "$sources" -eq "$count" ] && [ "$status" -eq 0 ]
