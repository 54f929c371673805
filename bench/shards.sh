#!/usr/bin/env bash
# A batch split into shards by GNU parallel against one run of the whole
# batch: COUNT small JPEGs (default 1000, 640 x 480, made once into
# build/bench-data/), cropped to 1:1 JPEG quality 80 with a manifest.
#   one run      vellumo-cli --jobs 2 --manifest m.jsonl
#   two shards   seq 0 1 | parallel -j 2 vellumo-cli --shard {}/2 --jobs 1 --manifest m{}.jsonl
# Prints the wall time of each (best of three) and checks with
# `vellumo-cli verify` that the shards did every image once.
#
#   bench/shards.sh [COUNT]      (run scripts/build first)
set -euo pipefail
cd "$(dirname "$0")/.."
build=build
cli=$PWD/${VELLUMO_CLI:-$build/cli/vellumo-cli}
count=${1:-1000}
data=$PWD/$build/bench-data/shards-$count
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source bench/measure.sh
if [ ! -f "$data/list.txt" ]; then
    mkdir -p "$data"
    "$build/bench/vellumo_make_photo" 640 480 "$data/photo.jpg" 3
    for i in $(seq 1 "$count"); do cp "$data/photo.jpg" "$data/p$i.jpg"; done
    rm "$data/photo.jpg"
    ls "$data"/p*.jpg >"$data/list.txt"
fi

# Each run starts without the output folder and manifests.
before_each_run() { rm -rf "$work/out" "$work"/m*.jsonl; }
common="--inputs $data/list.txt --auto 1:1 --format JPG --quality 80 --quiet --output out"
best_of 3 one bash -c "cd '$work' && $cli $common --jobs 2 --manifest m.jsonl"
best_of 3 sharded bash -c \
    "cd '$work' && seq 0 1 | parallel -j 2 $cli $common --shard {}/2 --jobs 1 --manifest m{}.jsonl"
one=$time_one sharded=$time_sharded
(cd "$work" && "$cli" verify --manifest m0.jsonl m1.jsonl --inputs "$data/list.txt")
printf '%d images: one run --jobs 2 %6.2f s; two shards by parallel -j 2 %6.2f s (%+.1f %%)\n' \
    "$count" "$one" "$sharded" "$(awk -v a="$one" -v b="$sharded" 'BEGIN { print (b - a) / a * 100 }')"
manifest_bytes=$(cat "$work"/m0.jsonl "$work"/m1.jsonl | wc -c)
printf 'manifest: %d bytes for %d images (%.0f bytes an image)\n' "$manifest_bytes" "$count" \
    "$(awk -v a="$manifest_bytes" -v b="$count" 'BEGIN { print a / b }')"
