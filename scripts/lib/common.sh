# Shared by the scripts: where things stand, and how to speak. Sourced, never run.

project_directory=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cache_directory=${XDG_CACHE_HOME:-${HOME:-/tmp}/.cache}/corvanth-setup

say() {
    printf '== %s\n' "$*"
}

warn() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
}

die() {
    warn "$@"
    exit 1
}

# Prints the comment that heads the calling script, which is its usage text.
usage() {
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"
}

refuse_argument() {
    warn "unknown argument: $1"
    usage >&2
    exit 2
}

have() {
    command -v "$1" >/dev/null 2>&1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif have sudo; then
        sudo "$@"
    else
        die "needs root: $*"
    fi
}

# Runs a command whose output matters only when it fails; the log is named in the message.
quietly() {
    local log=$1
    shift
    if ! "$@" >"$log" 2>&1; then
        tail -n 40 "$log" >&2
        die "failed: $* (whole output in $log)"
    fi
}
