# A Wine of the project's own: prefixes and home folder lie in the cache and are made once. Sourced, never run;
# needs common.sh.

wine_directory=${CORVANTH_WINE_DIRECTORY:-$cache_directory/wine}

# use_scratch_wine [32|64]: chooses the Windows that programs run on, by default the one chosen before or else that of
# 64 bits, which users have.
#
# Wine takes the user's desktop and documents for its own and writes menu entries for shell links. With a home
# folder beside the prefix and without the menu builder nothing of that reaches the real home.
use_scratch_wine() {
    mkdir -p "$wine_directory/home"
    unset DISPLAY WAYLAND_DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME XDG_DESKTOP_DIR
    [ -z "${CORVANTH_WINE_DISPLAY:-}" ] || export DISPLAY=$CORVANTH_WINE_DISPLAY
    export CORVANTH_WINE_DIRECTORY=$wine_directory
    export CORVANTH_WINDOWS_BITS=${1:-${CORVANTH_WINDOWS_BITS:-64}}
    export HOME=$wine_directory/home
    export WINEARCH=win$CORVANTH_WINDOWS_BITS
    export WINEPREFIX=$wine_directory/$WINEARCH
    export WINEDEBUG=-all
    # Commas, because CMake would split a list at a semicolon.
    export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
    # With plain C, file names outside ASCII fail.
    export LC_ALL=C.UTF-8
}

# Makes the prefix unless it stands already; call after use_scratch_wine.
ensure_wine_prefix() {
    [ ! -f "$WINEPREFIX/complete" ] || return 0
    (
        flock 9
        [ ! -f "$WINEPREFIX/complete" ] || exit 0
        rm -rf "$WINEPREFIX"
        timeout 300 wineboot --init >"$WINEPREFIX.log" 2>&1 </dev/null 9>&-
        timeout 60 wineserver -w 9>&- || true
        separate_user_folders
        touch "$WINEPREFIX/complete"
    ) 9>"$WINEPREFIX.lock"
}

# Wine makes desktop, documents and the like links to one folder; tests must be able to tell them apart.
separate_user_folders() {
    local link
    find "$WINEPREFIX/drive_c/users" -type l | while read -r link; do
        rm "$link"
        mkdir "$link"
    done
}

# Starts the server of the scratch prefix, to stay until it is ended, and a display in memory for its windows. Left to
# itself the server goes when the last program has ended, and a program that comes at that moment is turned away.
begin_scratch_wine() {
    end_scratch_wine
    begin_wine_display
    wineserver -p >/dev/null 2>&1 </dev/null
}

# Ends the server of the scratch prefix and its background services, and of no other.
end_scratch_wine() {
    wineserver -k >/dev/null 2>&1 || true
    timeout 60 wineserver -w >/dev/null 2>&1 || true
    [ -z "${wine_display_process:-}" ] || kill "$wine_display_process" 2>/dev/null || true
    unset wine_display_process CORVANTH_WINE_DISPLAY DISPLAY
}

# A display that resets itself loses its monitors with its last client.
wine_display_options=(-noreset -nolisten tcp -screen 0 1280x1024x24)

begin_wine_display() {
    local number_file number
    have Xvfb || return 0
    number_file=$(mktemp "${TMPDIR:-/tmp}/corvanth-display.XXXXXX")
    Xvfb "${wine_display_options[@]}" -displayfd 3 3>"$number_file" >/dev/null 2>&1 </dev/null &
    wine_display_process=$!
    for _ in {1..100}; do
        [ ! -s "$number_file" ] || break
        sleep 0.1
    done
    number=$(cat "$number_file")
    rm -f "$number_file"
    [ -n "$number" ] || return 0
    export CORVANTH_WINE_DISPLAY=:$number DISPLAY=:$number
}
