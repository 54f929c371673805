# Sourced by the benchmark scripts. Needs $build (the build folder) and
# $work (a scratch folder).

# best_of RUNS NAME COMMAND... runs the command RUNS times, each under
# vellumo_tree_memory (after the function before_each_run, where the script
# defines one), and sets time_NAME to the fastest wall time in seconds and
# mem_NAME to that run's peak memory of the whole process tree in kB.
best_of() {
    local runs=$1 name=$2 seconds kilobytes best= memory=
    shift 2
    for _ in $(seq 1 "$runs"); do
        if declare -F before_each_run >/dev/null; then before_each_run; fi
        "$build/bench/vellumo_tree_memory" "$work/time-$name" "$@" >/dev/null \
            2>"$work/err-$name" || { echo "$name failed:" >&2; cat "$work/err-$name" >&2; exit 1; }
        read -r seconds kilobytes <"$work/time-$name"
        if [ -z "$best" ] || awk -v a="$seconds" -v b="$best" 'BEGIN { exit !(a < b) }'; then
            best=$seconds memory=$kilobytes
        fi
    done
    eval "time_$name=$best; mem_$name=$memory"
}

# measure NAME COMMAND... runs the command once as best_of does and prints
# its wall time and peak memory.
measure() {
    best_of 1 "$@"
    report "$1"
}

# report NAME prints the time and memory best_of or measure found for NAME.
report() {
    local t m
    eval "t=\$time_$1 m=\$mem_$1"
    printf '%-14s %8.2f s %8.0f MB\n' "$1" "$t" "$((m / 1024))"
}
