#!/usr/bin/env bash
# Cropping a 24-megapixel camera-like JPEG (6000 x 4000, quality 92, 4:2:0,
# made once into build/bench-data/) to the centred 16:9 rectangle: decoded
# and encoded again at quality 92, then without re-encoding (--lossless), and
# jpegtran's own crop of the same blocks as the floor. Prints the wall time
# (best of five) and the output's size beside the source's.
#
#   bench/lossless.sh      (run scripts/build first)
set -euo pipefail
cd "$(dirname "$0")/.."
build=build
cli=${VELLUMO_CLI:-$build/cli/vellumo-cli}
data=$build/bench-data/lossless
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source bench/measure.sh
mkdir -p "$data"
source=$data/photo-6000x4000.jpg
if [ ! -f "$source" ]; then
    "$build/bench/vellumo_make_photo" 6000 4000 "$work/plain.jpg" 11
    vips jpegsave "$work/plain.jpg" "$source" --Q 92 --subsample-mode on
fi

crop=(--auto 16:9 --format JPG --quality 92 --overwrite all --quiet --name '[FileName]')
best_of 5 reencode "$cli" "${crop[@]}" --output "$work/reencoded" "$source"
best_of 5 lossless "$cli" "${crop[@]}" --lossless --output "$work/lossless" "$source"
# The same rectangle as --lossless chose: 6000 x 3383 from row 304.
best_of 5 floor jpegtran -crop 6000x3383+0+304 -copy none -outfile "$work/jpegtran.jpg" "$source"
reencode=$time_reencode lossless=$time_lossless floor=$time_floor

size() { stat -c %s "$1"; }
printf 'source            %5.1f MB\n' "$(awk -v b="$(size "$source")" 'BEGIN { print b / 1e6 }')"
printf 're-encoded (q92)  %6.3f s  %5.1f MB\n' "$reencode" \
    "$(awk -v b="$(size "$work/reencoded/photo-6000x4000.jpg")" 'BEGIN { print b / 1e6 }')"
printf 'lossless          %6.3f s  %5.1f MB  (%.2fx as fast)\n' "$lossless" \
    "$(awk -v b="$(size "$work/lossless/photo-6000x4000.jpg")" 'BEGIN { print b / 1e6 }')" \
    "$(awk -v a="$reencode" -v b="$lossless" 'BEGIN { print a / b }')"
printf 'jpegtran -crop    %6.3f s  %5.1f MB\n' "$floor" \
    "$(awk -v b="$(size "$work/jpegtran.jpg")" 'BEGIN { print b / 1e6 }')"
"$cli" --auto 16:9 --lossless --dry-run --json --output "$work/x" "$source" | sed 's/^/dry run: /'
