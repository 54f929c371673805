#!/usr/bin/env bash
# Whole-batch timing: the same batch (20 photo-like 24-megapixel JPEGs, a
# centred 16:9 crop, JPEG quality 80) cropped by vellumo-cli, by ImageMagick
# (mogrify, one process) and by the vips command line (one process per
# file), in one run. Prints wall time and peak memory of each, and ratios.
#
#   bench/batch.sh [COUNT]      (run scripts/build first)
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-20}
build=build
cli=${VELLUMO_CLI:-$build/cli/vellumo-cli}
data=$build/bench-data/batch
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir -p "$data"
for i in $(seq 1 "$count"); do
    f=$data/photo-$i.jpg
    [ -f "$f" ] || "$build/bench/vellumo_make_photo" 6000 4000 "$f" "$i"
done
files=("$data"/photo-*.jpg)
files=("${files[@]:0:$count}")

# The 16:9 rectangle of a 6000 x 4000 image is (0, 312.5, 6000, 3375) from
# the lower left; Vellumo cuts whole pixels from row 312 (from the top).
crop_geometry=6000x3375+0+312

measure() {  # name, command...
    local name=$1; shift
    local out=$work/time-$name
    /usr/bin/time -f '%e %M' -o "$out" "$@" >/dev/null 2>"$work/err-$name" || {
        echo "$name failed:" >&2; cat "$work/err-$name" >&2; exit 1; }
    read -r seconds kilobytes <"$out"
    printf '%-14s %8.2f s %8.0f MB\n' "$name" "$seconds" "$((kilobytes / 1024))"
    eval "time_$name=$seconds; mem_$name=$kilobytes"
}

echo "Batch: $count photo-like 6000 x 4000 JPEGs, centre 16:9, JPEG q80"
mkdir -p "$work/vellumo" "$work/magick" "$work/vips"
measure vellumo "$cli" --auto 16:9 --format JPG --quality 80 \
    --name '[FileName]' --output "$work/vellumo" --overwrite all --quiet "${files[@]}"
measure imagemagick mogrify -path "$work/magick" -crop "$crop_geometry" +repage -quality 80 "${files[@]}"
measure vips bash -c 'out=$0; for f in "$@"; do
    vips crop "$f" "$out/$(basename "$f")[Q=80]" 0 312 6000 3375; done' "$work/vips" "${files[@]}"

for f in "${files[@]}"; do
    b=$(basename "$f")
    for tool in vellumo magick vips; do
        size=$(identify -format '%wx%h' "$work/$tool/$b")
        [ "$size" = 6000x3375 ] || { echo "$tool wrote $b at $size" >&2; exit 1; }
    done
done

awk -v v="$time_vellumo" -v m="$time_imagemagick" -v p="$time_vips" \
    -v vm="$mem_vellumo" -v mm="$mem_imagemagick" -v pm="$mem_vips" 'BEGIN {
    printf "time   ImageMagick / Vellumo = %.2f, vips / Vellumo = %.2f\n", m / v, p / v
    printf "memory ImageMagick / Vellumo = %.2f, vips / Vellumo = %.2f\n", mm / vm, pm / vm
}'
