#!/usr/bin/env bash
# The web shop's batch on real camera photos: the files given (by default
# the shared test data's three largest camera JPEGs, three copies each; any
# format vips reads, written as JPEG by both)
# cropped to the centred 1:1 square and written at 1080 x 1080, JPEG q80,
# by vellumo-cli (its own images in flight on every core) and by `vips
# thumbnail --crop centre` (one process per file on every core). Wall time
# (best of RUNS) and peak memory of the whole process tree.
#
#   bench/crop-resize-photos.sh [RUNS] [FILE...]      (run scripts/build first)
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-3}
shift || true
build=build
cli=${VELLUMO_CLI:-$build/cli/vellumo-cli}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cores=$(nproc)
shared=../shared/testdata
files=("$@")
if [ ${#files[@]} -eq 0 ]; then
    for copy in 1 2 3; do
        for f in "$shared/large/sky.jpg" "$shared/orientation/Apple iPhone 5.jpg" \
            "$shared/jpeg/jolla.jpg"; do
            name=$(basename "$f" .jpg | tr ' ' '-')
            cp "$f" "$work/$name-$copy.jpg"
            files+=("$work/$name-$copy.jpg")
        done
    done
fi
printf '%s\n' "${files[@]}" >"$work/list"
source bench/measure.sh
mkdir -p "$work/out-vellumo" "$work/out-vips"

echo "Crop and resize: ${#files[@]} files, centre 1:1 -> 1080 x 1080, JPEG q80" \
    "($cores cores, best of $runs)"
best_of "$runs" vellumo "$cli" --auto 1:1 --resize 1080x1080 --format JPG --quality 80 \
    --name '[FileName]' --overwrite all --quiet --output "$work/out-vellumo" "${files[@]}"
report vellumo
best_of "$runs" vips xargs -P "$cores" -I{} -d '\n' -a "$work/list" sh -c \
    'vips thumbnail "$1" "$2/$(basename "${1%.*}").jpg[Q=80]" 1080 --height 1080 --crop centre' \
    _ {} "$work/out-vips"
report vips
awk -v a="$time_vips" -v b="$time_vellumo" 'BEGIN { printf "time   vips / Vellumo = %.2f\n", a / b }'
