#!/usr/bin/env bash
# The web shop's batch: photo-like 24-megapixel JPEGs cropped to the centred
# 1:1 square and written at 1080 x 1080, JPEG quality 80, by vellumo-cli
# (its own images in flight on every core), by `vips thumbnail --crop
# centre`, by ImageMagick `-thumbnail` and by `djpeg -scale -crop | cjpeg`
# (the codec's own limit: decoded at the scale, no resize after it), the
# last three one process per file on every core (xargs -P). In one run:
# wall time (best of RUNS; ImageMagick, ten times slower, runs once), peak
# memory of the whole process tree, output bytes, PSNR, and ratios.
#
#   bench/crop-resize.sh [COUNT] [RUNS]      (run scripts/build first)
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-8}
runs=${2:-3}
width=6000
height=4000
side=1080
build=build
cli=${VELLUMO_CLI:-$build/cli/vellumo-cli}
data=$build/bench-data/batch-${width}x$height
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cores=$(nproc)

mkdir -p "$data"
files=()
for i in $(seq 1 "$count"); do
    f=$data/photo-$i.jpg
    [ -f "$f" ] || "$build/bench/vellumo_make_photo" "$width" "$height" "$f" "$i"
    files+=("$f")
done
printf '%s\n' "${files[@]}" >"$work/list"

# The centred square of the stored (upright) 6000 x 4000 photos, and the
# djpeg scale M/8 that leaves the square at least `side` pixels.
square=$((width < height ? width : height))
left=$(((width - square) / 2))
top=$(((height - square) / 2))
scale=$(((side * 8 + square - 1) / square))
scaled=$((square * scale / 8))
scaled_left=$((left * scale / 8))
scaled_top=$((top * scale / 8))

source bench/measure.sh
mkdir -p "$work/out-vellumo" "$work/out-vips" "$work/out-magick" "$work/out-djpeg" "$work/ref"

echo "Crop and resize: $count photo-like $width x $height JPEGs, centre 1:1 -> ${side} x $side," \
    "JPEG q80 ($cores cores, best of $runs)"
echo "(memory: peak PSS of the whole process tree)"
best_of "$runs" vellumo "$cli" --auto 1:1 --resize "${side}x$side" --format JPG --quality 80 \
    --name '[FileName]' --overwrite all --quiet --output "$work/out-vellumo" "${files[@]}"
report vellumo
best_of "$runs" vips xargs -P "$cores" -I{} -a "$work/list" sh -c \
    'vips thumbnail "$1" "$2/$(basename "$1")[Q=80]" '"$side"' --height '"$side"' --crop centre' \
    _ {} "$work/out-vips"
report vips
# One ImageMagick thread per process: the processes fill the cores.
best_of 1 magick env MAGICK_THREAD_LIMIT=1 xargs -P "$cores" -I{} -a "$work/list" sh -c \
    'convert "$1" -thumbnail '"${side}x$side"'^ -gravity center -extent '"${side}x$side"' \
        -quality 80 "$2/$(basename "$1")"' _ {} "$work/out-magick"
report magick
best_of "$runs" djpeg xargs -P "$cores" -I{} -a "$work/list" sh -c \
    'djpeg -scale '"$scale"'/8 -crop '"${scaled}x$scaled+$scaled_left+$scaled_top"' "$1" |
        cjpeg -quality 80 >"$2/$(basename "$1")"' _ {} "$work/out-djpeg"
report djpeg
echo "(djpeg: -scale $scale/8 -crop ${scaled}x$scaled+$scaled_left+$scaled_top, written" \
    "at ${scaled} x $scaled, not resized)"

for f in "${files[@]}"; do
    b=$(basename "$f")
    for tool in vellumo vips magick; do
        size=$(identify -format '%wx%h' "$work/out-$tool/$b")
        [ "$size" = "${side}x$side" ] || { echo "$tool wrote $b at $size" >&2; exit 1; }
    done
done
# PSNR of each tool's files against the square decoded whole, cut exactly and
# resized with Lanczos3 (no JPEG step), averaged over the files.
scale_down=$(awk -v s="$side" -v q="$square" 'BEGIN { printf "%.10f", s / q }')
declare -A psnr=([vellumo]=0 [vips]=0 [magick]=0)
for f in "${files[@]}"; do
    b=$(basename "$f" .jpg)
    vips crop "$f" "$work/ref/$b.v" "$left" "$top" "$square" "$square"
    vips resize "$work/ref/$b.v" "$work/ref/$b.png" "$scale_down" --kernel lanczos3
    for tool in vellumo vips magick; do
        p=$(compare -metric PSNR "$work/out-$tool/$b.jpg" "$work/ref/$b.png" null: 2>&1 || true)
        psnr[$tool]=$(awk -v a="${psnr[$tool]}" -v p="$p" -v n="$count" 'BEGIN { print a + p / n }')
    done
done
printf 'PSNR against the exact crop resized: vellumo %.2f dB, vips %.2f dB, ImageMagick %.2f dB\n' \
    "${psnr[vellumo]}" "${psnr[vips]}" "${psnr[magick]}"
bytes() { du -cb "$@" | tail -1 | cut -f1; }
printf 'output bytes: vellumo %s, vips %s, ImageMagick %s\n' "$(bytes "$work"/out-vellumo/*)" \
    "$(bytes "$work"/out-vips/*)" "$(bytes "$work"/out-magick/*)"

awk -v v="$time_vellumo" -v p="$time_vips" -v m="$time_magick" -v d="$time_djpeg" \
    -v vm="$mem_vellumo" -v pm="$mem_vips" -v mm="$mem_magick" 'BEGIN {
    printf "time   vips / Vellumo = %.2f, ImageMagick / Vellumo = %.2f, djpeg / Vellumo = %.2f\n",
        p / v, m / v, d / v
    printf "memory vips / Vellumo = %.2f, ImageMagick / Vellumo = %.2f\n", pm / vm, mm / vm
}'
