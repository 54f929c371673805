#!/usr/bin/env bash
# One huge image: a 20000 x 20000 uncompressed TIFF (1.2 GB, photo-like,
# 128-row strips) cropped to its centred 16:9 rectangle as JPEG quality 80,
# by vellumo-cli and by the vips command line. Prints wall time and the peak
# memory of each whole process tree (the fastest of RUNS), and checks that both
# wrote the same pixels.
#
#   bench/huge.sh [RUNS]      (run scripts/build first; needs 3 GB of disk)
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-3}
build=build
cli=${VELLUMO_CLI:-$build/cli/vellumo-cli}
data=$build/bench-data
tiff=$data/huge-20000x20000.tif
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source bench/measure.sh

mkdir -p "$data"
[ -f "$data/photo-6000x4000.jpg" ] ||
    "$build/bench/vellumo_make_photo" 6000 4000 "$data/photo-6000x4000.jpg" 1
if [ ! -f "$tiff" ]; then
    vips replicate "$data/photo-6000x4000.jpg" "$work/tiles.v" 4 5
    vips crop "$work/tiles.v" "$tiff[compression=none,strip]" 0 0 20000 20000
    rm "$work/tiles.v"
fi

# 20000 x 11250 from row 4375 (the rectangle is whole-pixel here).
echo "A 20000 x 20000 uncompressed TIFF, centre 16:9 to JPEG q80 ($(nproc) cores), best of $runs"
best_of "$runs" vellumo "$cli" --auto 16:9 --format JPG --quality 80 --name '[FileName]' \
    --overwrite all --quiet --output "$work" "$tiff"
best_of "$runs" vips vips crop "$tiff" "$work/vips.jpg[Q=80]" 0 4375 20000 11250
report vellumo
report vips

djpeg -pnm "$work/huge-20000x20000.jpg" | cmp -s - <(djpeg -pnm "$work/vips.jpg") ||
    { echo "vellumo-cli and vips wrote different pixels" >&2; exit 1; }
awk -v v="$time_vellumo" -v p="$time_vips" -v vm="$mem_vellumo" -v pm="$mem_vips" 'BEGIN {
    printf "time   Vellumo / vips = %.2f, memory Vellumo / vips = %.2f (same pixels)\n", v / p, vm / pm
}'
