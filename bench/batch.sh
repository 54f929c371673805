#!/usr/bin/env bash
# Whole-batch timing: the same batch (20 photo-like 24-megapixel JPEGs, a
# centred 16:9 crop, JPEG quality 80) cropped by vellumo-cli (images in
# flight on every core, and one at a time), by ImageMagick (mogrify, one
# process) and by the vips command line (one process per file), in one run.
# Prints wall time and the peak memory of each tool's whole process tree
# (vellumo-cli with its workers), output bytes, and ratios.
#
#   bench/batch.sh [COUNT] [WIDTHxHEIGHT]      (run scripts/build first)
#   bench/batch.sh 500 1200x800                (many small photos)
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-20}
geometry=${2:-6000x4000}
width=${geometry%x*}
height=${geometry#*x}
build=build
cli=${VELLUMO_CLI:-$build/cli/vellumo-cli}
data=$build/bench-data/batch-$geometry
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir -p "$data"
for i in $(seq 1 "$count"); do
    f=$data/photo-$i.jpg
    [ -f "$f" ] || "$build/bench/vellumo_make_photo" "$width" "$height" "$f" "$i"
done
files=()
for i in $(seq 1 "$count"); do files+=("$data/photo-$i.jpg"); done

# The 16:9 rectangle of a 6000 x 4000 image is (0, 312.5, 6000, 3375) from
# the lower left; Vellumo cuts whole pixels from row 312 (from the top).
crop_height=$((width * 9 / 16))
crop_top=$(((height - crop_height) / 2))
crop_geometry=${width}x${crop_height}+0+$crop_top

source bench/measure.sh

echo "Batch: $count photo-like $width x $height JPEGs, centre 16:9, JPEG q80 ($(nproc) cores)"
echo "(memory: peak PSS of the whole process tree)"
mkdir -p "$work/vellumo" "$work/vellumo1" "$work/magick" "$work/vips"
vellumo_options=(--auto 16:9 --format JPG --quality 80 --name '[FileName]' --overwrite all --quiet)
measure vellumo "$cli" "${vellumo_options[@]}" --output "$work/vellumo" "${files[@]}"
measure vellumo_jobs1 "$cli" "${vellumo_options[@]}" --jobs 1 --output "$work/vellumo1" "${files[@]}"
measure imagemagick mogrify -path "$work/magick" -crop "$crop_geometry" +repage -quality 80 "${files[@]}"
measure vips bash -c 'out=$0; top=$1; w=$2; h=$3; shift 3; for f in "$@"; do
    vips crop "$f" "$out/$(basename "$f")[Q=80]" 0 "$top" "$w" "$h"; done' \
    "$work/vips" "$crop_top" "$width" "$crop_height" "${files[@]}"

for f in "${files[@]}"; do
    b=$(basename "$f")
    for tool in vellumo magick vips; do
        size=$(identify -format '%wx%h' "$work/$tool/$b")
        [ "$size" = "${width}x$crop_height" ] || { echo "$tool wrote $b at $size" >&2; exit 1; }
    done
    cmp -s "$work/vellumo/$b" "$work/vellumo1/$b" || { echo "--jobs 1 wrote another $b" >&2; exit 1; }
done
bytes() { du -cb "$@" | tail -1 | cut -f1; }
printf 'output bytes: vellumo %s, ImageMagick %s, vips %s\n' \
    "$(bytes "$work"/vellumo/*)" "$(bytes "$work"/magick/*)" "$(bytes "$work"/vips/*)"

awk -v v="$time_vellumo" -v m="$time_imagemagick" -v p="$time_vips" \
    -v vm="$mem_vellumo" -v mm="$mem_imagemagick" -v pm="$mem_vips" 'BEGIN {
    printf "time   ImageMagick / Vellumo = %.2f, vips / Vellumo = %.2f\n", m / v, p / v
    printf "memory ImageMagick / Vellumo = %.2f, vips / Vellumo = %.2f\n", mm / vm, pm / vm
}'
