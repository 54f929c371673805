#!/usr/bin/env bash
# Planning a large tree: COUNT tiny JPEGs (default 10000, copies of one
# 16 x 12 file, made once into build/bench-data/) in 100 subfolders, and
# the time of
#   vellumo-cli --dry-run --recursive --keep-structure --auto 1:1 --quiet
# (the walk, the output names, the clashes; nothing is written). Prints the
# best wall time of three to the plan (the first image reported) and to the
# end of the dry run, and the count of images it reported.
#
#   bench/plan-10000.sh [COUNT]      (run scripts/build vellumo-cli first)
set -euo pipefail
cd "$(dirname "$0")/.."
build=build
cli=$PWD/${VELLUMO_CLI:-$build/cli/vellumo-cli}
count=${1:-10000}
data=$PWD/$build/bench-data/plan-$count
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
if [ ! -f "$data/.made" ]; then
    rm -rf "$data"
    mkdir -p "$data"
    convert -size 16x12 xc:gray70 "$work/tiny.jpg"
    per_folder=$(( (count + 99) / 100 ))
    # cp cannot copy one file to many names in one call: tee can.
    for folder in $(seq 1 100); do
        mkdir -p "$data/f$folder"
        names=()
        for i in $(seq 1 "$per_folder"); do
            n=$(( (folder - 1) * per_folder + i ))
            [ "$n" -le "$count" ] || break
            names+=("$data/f$folder/img$i.jpg")
        done
        [ ${#names[@]} -eq 0 ] || tee "${names[@]}" <"$work/tiny.jpg" >/dev/null
    done
    touch "$data/.made"
fi

# The plan is done when the first image is reported (the walk, every
# output name and the clashes come before it); the rest of the dry run
# reads each image's header in a worker to report its rectangle and size.
best= best_plan=
for run in 1 2 3; do
    start=$(date +%s.%N)
    "$cli" --dry-run --recursive --keep-structure --auto 1:1 --json --jobs 2 --output "$work/out" \
        "$data" 2>"$work/err.txt" |
        { read -r first; date +%s.%N >"$work/planned"; printf '%s\n' "$first"; cat; } \
            >"$work/plan.jsonl" || { cat "$work/err.txt" >&2; exit 1; }
    end=$(date +%s.%N)
    seconds=$(awk -v a="$start" -v b="$end" 'BEGIN { printf "%.3f", b - a }')
    plan=$(awk -v a="$start" -v b="$(cat "$work/planned")" 'BEGIN { printf "%.3f", b - a }')
    if [ -z "$best" ] || awk -v a="$seconds" -v b="$best" 'BEGIN { exit !(a < b) }'; then
        best=$seconds
    fi
    if [ -z "$best_plan" ] || awk -v a="$plan" -v b="$best_plan" 'BEGIN { exit !(a < b) }'; then
        best_plan=$plan
    fi
done
planned=$(grep -c '"status":"planned"' "$work/plan.jsonl" || true)
printf '%d images in 100 folders: planned (walk, names, clashes) in %s s; the whole dry run ' "$count" "$best_plan"
printf 'reported %d images in %s s (best of 3 each)\n' "$planned" "$best"
