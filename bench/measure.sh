# Sourced by the batch benchmarks. measure NAME COMMAND... runs the command
# under vellumo_tree_memory, prints its wall time and the peak memory of its
# whole process tree, and sets time_NAME (seconds) and mem_NAME (kB).
# Needs $build (the build folder) and $work (a scratch folder).
measure() {
    local name=$1; shift
    local out=$work/time-$name
    "$build/bench/vellumo_tree_memory" "$out" "$@" >/dev/null 2>"$work/err-$name" || {
        echo "$name failed:" >&2; cat "$work/err-$name" >&2; exit 1; }
    read -r seconds kilobytes <"$out"
    printf '%-14s %8.2f s %8.0f MB\n' "$name" "$seconds" "$((kilobytes / 1024))"
    eval "time_$name=$seconds; mem_$name=$kilobytes"
}
