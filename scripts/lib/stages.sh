# Runs the steps of a longer job one after the other, goes on after a failure, and sums up at the end.
# Sourced, never run; needs common.sh.

stage_lines=()
failed_stages=0
last_stage_status=0

# stage NAME COMMAND...: runs the command in a shell of its own that ends at the first error.
stage() {
    local name=$1 start=$SECONDS status verdict
    shift
    say "$name"
    set +e
    (
        set -e
        "$@"
    )
    status=$?
    set -e
    last_stage_status=$status
    verdict=passed
    if [ $status != 0 ]; then
        verdict="FAILED ($status)"
        failed_stages=$((failed_stages + 1))
    fi
    add_stage_line "$name" "$verdict" $((SECONDS - start))
}

# stage_after_success NAME COMMAND...: a stage that makes no sense if the one before it failed.
stage_after_success() {
    if [ $last_stage_status = 0 ]; then
        stage "$@"
    else
        stage_impossible "$1" "what it builds on failed"
    fi
}

# Records a step that could not run although it should have: a failure.
stage_impossible() {
    warn "$1: $2"
    failed_stages=$((failed_stages + 1))
    add_stage_line "$1" "NOT RUN: $2" 0
}

# Records a step that the caller has asked to leave out.
stage_left_out() {
    add_stage_line "$1" "left out: $2" 0
}

add_stage_line() {
    stage_lines+=("$(printf '%6d s  %-42s %s' "$3" "$1" "$2")")
}

# Prints what ran and how long it took; fails if any step did.
sum_up_stages() {
    echo
    say "summary"
    printf '%s\n' "${stage_lines[@]}"
    printf '%6d s  in all\n' "$SECONDS"
    [ $failed_stages = 0 ] || die "$failed_stages of ${#stage_lines[@]} stages failed"
}
