#!/usr/bin/env bash
# Reading the formats of phones: a 12-megapixel HEIC, AVIF, WebP and JPEG XL
# (made once from the same photo-like picture, into build/bench-data/) each
# cropped to the centred 16:9 rectangle and written as JPEG quality 80 by
# vellumo-cli; prints the wall time and peak memory of each (best of three).
#
#   bench/formats.sh      (run scripts/build first)
set -euo pipefail
cd "$(dirname "$0")/.."
build=build
cli=${VELLUMO_CLI:-$build/cli/vellumo-cli}
data=$build/bench-data/formats
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source bench/measure.sh
mkdir -p "$data"
plain=$data/photo-4000x3000.jpg
[ -f "$plain" ] || "$build/bench/vellumo_make_photo" 4000 3000 "$plain" 7
for kind in heic avif webp jxl; do
    f=$data/photo.$kind
    case $kind in
        heic) [ -f "$f" ] || vips heifsave "$plain" "$f" --Q 80 --compression hevc ;;
        avif) [ -f "$f" ] || vips heifsave "$plain" "$f" --Q 80 --compression av1 ;;
        webp) [ -f "$f" ] || vips webpsave "$plain" "$f" --Q 80 ;;
        jxl) [ -f "$f" ] || vips jxlsave "$plain" "$f" --Q 80 ;;
    esac
    best_of 3 format "$cli" --auto 16:9 --format JPG --quality 80 --overwrite all --quiet \
        --output "$work/out" "$f"
    printf '%-5s 4000 x 3000 -> 16:9 JPEG  %6.2f s  %5d MB\n' "$kind" "$time_format" \
        "$((mem_format / 1024))"
done
