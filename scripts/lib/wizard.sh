# A user of installers, who sits in front of a display: begins wizards and uninstallers, looks at what they show, clicks
# and presses keys. Sourced, never run; needs common.sh. A script calls begin_walks, begin_display, pack_installer and
# begin_user, and then for each wizard begin_wizard, what the user does, and expect_end. Nothing here knows a product:
# build/linux/wizard-places tells which pages there are, where their controls lie, how they look, and in which order the
# Tab key goes through them.
#
# What the functions set, for those who call them:
#
#   scratch     a folder of this run; $scratch/user is the user's, of which the installers may write nothing else
#   extension   that of installers on this system; root is what stands before absolute paths in them
#   sequence    the pages of the installer or uninstaller: those of the walk, and behind them onerror, question, onabort
#   page        the page on view
#   hand        mouse or keyboard: by which of them choose and push reach a control

# begin_walks PROGRAM-FOLDER [RUNNER]: with the programs of a build. Natively the user is an ordinary one on a display
# made here; a RUNNER, as scripts/lib/run-under-wine, has a display in DISPLAY, and no other users.
begin_walks() {
    programs=$(realpath -m "$1") runner=${2:-}
    [ -n "$runner" ] && root=Z: extension=exe || root='' extension=run
    scratch=$(mktemp -d "${TMPDIR:-/tmp}/corvanth-wizard.XXXXXX")
    chmod 755 "$scratch"
    mkdir "$scratch/places" "$scratch/places-home" "$scratch/lists"
    processes=() wizard='' pictures='' picture=0 step=wizard hand=mouse
    trap end_walks EXIT
    # xdotool reads what it types by the locale.
    export LC_ALL=C.UTF-8
}

end_walks() {
    end_programs
    rm -rf "$scratch"
}

# Those of the user, and the display.
end_programs() {
    find_programs | xargs -r kill
    [ ${#processes[@]} = 0 ] || kill "${processes[@]}" 2>/dev/null || true
    [ ${#processes[@]} = 0 ] || wait "${processes[@]}" 2>/dev/null || true
    processes=()
}

# keep_pictures_in FOLDER: from now on one of each page that is expected.
keep_pictures_in() {
    mkdir -p "$1"
    pictures=$(realpath "$1")
}

# begin_step NAME [WHAT]: says what, and gives pictures and failures a name.
begin_step() {
    step=$1 picture=0
    [ -z "${2:-}" ] || printf '%s\n' "$2"
}

# await TENTHS COMMAND...: polls until it succeeds; false when it never does.
await() {
    local i
    for ((i = 0; i < $1; i++)); do
        "${@:2}" && return
        sleep 0.1
    done
    return 1
}

# ---- The display.

# begin_display [WIDTHxHEIGHT]
begin_display() {
    if [ -z "$runner" ]; then
        Xvfb -noreset -ac -nolisten tcp -screen 0 "${1:-1280x1024}x24" -displayfd 3 3>"$scratch/display" \
            >/dev/null 2>&1 &
        processes+=($!)
        await 100 test -s "$scratch/display" || die "no display comes"
        DISPLAY=:$(cat "$scratch/display")
        export DISPLAY
    fi
    openbox >/dev/null 2>&1 &
    processes+=($!)
    await 100 is_managed || die "the display gets no window manager"
}

# Openbox says by this property that it manages the screen.
is_managed() {
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q '#'
}

# ---- The product and where it goes.

# pack_installer NAME DEFINITION [OPTION...]: as $scratch/NAME.$extension.
pack_installer() {
    quietly "$scratch/pack.log" "$project_directory/build/linux/setup-builder" pack "$2" \
        --stub "$programs/setup${runner:+.exe}" --output "$scratch/$1.$extension" "${@:3}"
    chmod 755 "$scratch/$1.$extension"
}

# A user who owns nothing but this folder, and has installed nothing yet.
begin_user() {
    rm -rf "$scratch/user"
    mkdir -p "$scratch/user/home" "$scratch/user/to"
    [ -n "$runner" ] || [ "$(id -u)" != 0 ] || chown -R nobody:nogroup "$scratch/user"
}

# as_user PROGRAM [ARGUMENT...]: in place of the shell.
as_user() {
    cd "$scratch/user/home"
    [ -z "$runner" ] || exec wine "$@" </dev/null
    local nobody=()
    [ "$(id -u)" != 0 ] || nobody=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
    exec "${nobody[@]}" env -i HOME="$scratch/user/home" TMPDIR="$scratch/user/home" PATH="$PATH" \
        ${DISPLAY:+DISPLAY="$DISPLAY"} "$@" </dev/null
}

# install_silently NAME [WORD...]
install_silently() {
    (as_user "$scratch/$1.$extension" silent accept-licence "${@:2}") >"$scratch/silent.log" 2>&1 ||
        die "the silent run of $1 fails: $(cat "$scratch/silent.log")"
}

# All files of the user, with rights and digests, but the log, which tells of times. What Wine's registry gets is
# compared by scripts/lib/check-windows-registration.
list_files() {
    (cd "$scratch/user" && find . -type f ! -name InstallerLog.txt -printf '%m %p ' -exec md5sum {} \; | sort)
}

# keep_files NAME: what the user has now, to be compared with.
keep_files() {
    list_files >"$scratch/lists/$1"
}

# expect_same NAME WHAT: the user has what was kept.
expect_same() {
    list_files >"$scratch/shown"
    diff "$scratch/lists/$1" "$scratch/shown" || die "$step: $2 leaves something else"
}

expect_nothing_installed() {
    [ -z "$(find "$scratch/user/to" -type f)" ] || die "$step: there is $(find "$scratch/user/to" -type f)"
}

# ---- Pages and their places.

declare -A places
# read_places NAME PROGRAM-OR-FOLDER [OPTION]: of an installer, or of a window of an installation. An installer does not
# change.
read_places() {
    local name control rest folder=$scratch/places/$1
    if [ ! -d "$folder" ]; then
        mkdir "$folder"
        HOME=$scratch/places-home "$project_directory/build/linux/wizard-places" "${@:3}" "$2" "$folder" >"$folder/places" ||
            die "the places of $1 cannot be told"
    fi
    pages=$folder places=() sequence=()
    while read -r name control rest; do
        places[$name $control]=$rest
        [ "$control" != window ] || sequence+=("$name")
    done <"$folder/places"
}

# find_place CONTROL [PAGE]: sets left, top, width, height, stop and text.
find_place() {
    has_control "$@" || die "$step: there is no $1 on the page ${2:-$page}"
    read -r left top width height stop text <<<"${places[${2:-$page} $1]}"
}

has_control() {
    [ -n "${places[${2:-$page} $1]:-}" ]
}

# page_after PAGE: the pages of choices are followed by onsuccess.
page_after() {
    local i
    for ((i = 0; i < ${#sequence[@]} - 1; i++)); do
        [ "${sequence[i]}" != "$1" ] || printf '%s' "${sequence[i + 1]}"
    done
}

# find_window PAGE: the place of the window that has the page, if it has its size. That of a message depends on its
# text, which need not be known: its buttons are at its lower right.
find_window() {
    local id
    find_place window "$1"
    id=$(xdotool search --onlyvisible --name "^$(sed -e 's/[][\.*^$+?(){}|]/\\&/g' <<<"$text")\$" 2>/dev/null |
        tail -n 1)
    [ -n "$id" ] || return 1
    read_geometry "$id"
    shift_x=$((${window_WIDTH:-0} - width)) shift_y=$((${window_HEIGHT:-0} - height))
    [ "$shift_x $shift_y" = "0 0" ] || has_control closebutton "$1"
}

# read_geometry ID: of a window, as window_X and the like.
read_geometry() {
    eval "$(xdotool getwindowgeometry --shell "$1" 2>/dev/null | sed -e 's/^/window_/')"
}

# The pixels of a picture, without what else a file says.
pixels_of() {
    convert "$@" -alpha off -depth 8 rgb:- | md5sum
}

# shows PAGE: whether the text at its top is on the screen as it is in memory, or the button of a message.
shows() {
    local control area
    find_window "$1" || return 1
    for control in title header top closebutton Info window; do has_control "$control" "$1" && break; done
    find_place "$control" "$1"
    area=${width}x$height+$left+$top
    [ -f "$pages/$1.pixels" ] || pixels_of "$pages/$1.png" -crop "$area" +repage >"$pages/$1.pixels"
    import -window root -crop "${width}x$height+$((window_X + left + shift_x))+$((window_Y + top + shift_y))" +repage \
        "$scratch/shown.png" 2>/dev/null || return 1
    [ "$(pixels_of "$scratch/shown.png")" = "$(cat "$pages/$1.pixels")" ]
}

# expect_page PAGE [TENTHS]: what has the keyboard then is told by places for a page that comes first, and is Next for
# one that comes again and can be left; the box that asks gives it back.
expect_page() {
    await "${2:-150}" shows "$1" || give_up "the page $1 does not come"
    if [ "$1" = question ]; then
        stop_before=$focused focused=0
    elif [ "$page" = question ]; then
        focused=$stop_before
    else
        focused=0
        [ "${visited/ $1 /}" = "$visited" ] || must_agree "$1" || focused=$(stop_of Next "$1")
        visited+=" $1 "
    fi
    page=$1
    # What follows is a hand, which takes a moment, and longer for a box that has just come.
    sleep 0.15
    ! has_control closebutton || sleep 0.4
    keep_picture "$1"
}

# keep_picture NAME: of the window that was found last.
keep_picture() {
    [ -n "$pictures" ] || return 0
    picture=$((picture + 1))
    import -window root -crop "${window_WIDTH}x$window_HEIGHT+$window_X+$window_Y" +repage \
        "$pictures/$step-$(printf '%02d' $picture)-$1.png"
}

give_up() {
    local kept
    kept=$(mktemp "${TMPDIR:-/tmp}/corvanth-wizard-XXXXXX.png")
    import -window root "$kept"
    die "$step: $1; the screen is in $kept: $(cat "$scratch/wizard.log")"
}

# ---- What the user does.

# begin_wizard NAME: of a packed installer, and waits for its first page.
begin_wizard() {
    read_places "$1" "$scratch/$1.$extension"
    begin_program "$scratch/$1.$extension"
}

# begin_uninstaller FOLDER: of an installation, and waits for its page "uninstaller"; the message at the end is
# "removed". For places the installation is said to be where these can be told.
begin_uninstaller() {
    read_installation "$1"
    begin_program "$1/setup.$extension"
}

# begin_updates FOLDER: likewise the update manager, whose page is "updates" and whose message is "updated".
begin_updates() {
    read_installation "$1" --updates
    begin_program "$1/setup.$extension" update
}

# read_update NAME FOLDER: of an update as a program, $scratch/NAME.$extension, over an installation: its page is
# "package", and its message "updated".
read_update() {
    move_installation "$2"
    read_places moved "$scratch/$1.$extension" --over "$scratch/moved"
}

# read_installation FOLDER [OPTION]
read_installation() {
    move_installation "$1"
    read_places moved "$scratch/moved" "${@:2}"
}

# move_installation FOLDER: as far as windows look at it.
move_installation() {
    rm -rf "$scratch/moved" "$scratch/places/moved"
    mkdir "$scratch/moved"
    sed -e "s|mainpath=\"[^\"]*\"|mainpath=\"$scratch/moved\"|" "$1/setup.state" >"$scratch/moved/setup.state"
}

# begin_program PROGRAM [WORD...]: whose places are read.
begin_program() {
    start_program "$@"
    expect_page "${sequence[0]}"
    mapfile -t victims < <(find_programs)
}

# start_program PROGRAM [WORD...]: without waiting for what comes.
start_program() {
    (as_user "$@") >"$scratch/wizard.log" 2>&1 &
    wizard=$! page='' visited='' has_agreed=no
}

# click CONTROL: on the page on view. Not quite where the last click was: two would be a double click.
click() {
    find_window "$page" || give_up "the window is gone"
    find_place "$1"
    aside=$((${aside:-4} * -1))
    xdotool mousemove $((window_X + left + shift_x + (width < 200 ? width / 2 : 60) + aside)) \
        $((window_Y + top + shift_y + height / 2))
    sleep 0.05
    xdotool click 1
    [ "$stop" = - ] || focused=${stop%+*}
}

# press KEY...
press() {
    local key
    for key; do xdotool key "$key" && sleep 0.05; done
}

# type_text TEXT: where the keyboard is, in place of what is there.
type_text() {
    press ctrl+a
    xdotool type --delay 20 "$1"
}

# answer TITLE KEY...: a box of which no places are told, by its keys. Another one of that title may follow.
answer() {
    await_box "$1"
    local answered=$box
    press "${@:2}"
    await 50 is_gone "$answered" || give_up "the box called $1 does not close"
}

# await_box TITLE: until it can be used.
await_box() {
    await 150 has_box "$1" || give_up "no box comes that is called $1"
    await 20 is_active "$box" || true
    # A key that comes with the box counts for nothing.
    sleep 0.6
    read_geometry "$box"
    keep_picture "$1"
}

has_box() {
    box=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1)
    [ -n "$box" ]
}

is_active() {
    [ "$(xdotool getactivewindow 2>/dev/null)" = "$1" ]
}

is_gone() {
    ! xdotool getwindowname "$1" >/dev/null 2>&1
}

# stop_of CONTROL [PAGE]: how often Tab is pressed from where the keyboard is when the page has come.
stop_of() {
    local left top width height stop text
    find_place "$@"
    printf '%s' "${stop%+*}"
}

# focus CONTROL: by Tab, and within a group by arrows.
focus() {
    local stops i
    find_place "$1"
    [ "$stop" != - ] || die "$step: the keyboard does not reach $1 on the page $page"
    stops=$(sed -n "s/^$page [^ ]* [^ ]* [^ ]* [^ ]* [^ ]* \([0-9]*\) .*/\1/p" "$pages/places" | sort -nu | wc -l)
    for ((i = (${stop%+*} - focused + stops) % stops; i > 0; i--)); do press Tab; done
    focused=${stop%+*}
    case $stop in *+*) for ((i = ${stop#*+}; i > 0; i--)); do press Down; done ;; esac
}

# focus_before CONTROL: what Tab reaches before it, as the path that belongs to a button.
focus_before() {
    focus "$1"
    press shift+Tab
    focused=$((focused - 1))
}

# choose CONTROL: ticks or unticks, or chooses one of several.
choose() {
    if [ "$hand" = mouse ]; then click "$1"; else focus "$1" && press space; fi
}

# push CONTROL: a button.
push() {
    if [ "$hand" = mouse ]; then click "$1"; else focus "$1" && press Return; fi
}

# close_box: the one on view, by its button. A box that is not yet the active window takes a click for being meant to
# activate it; a hand clicks once more then.
close_box() {
    push closebutton
    await 20 is_closed || push closebutton
}

is_closed() {
    ! find_window "$page"
}

# go_on: to the page that follows; a licence is agreed to.
go_on() {
    if must_agree "$page"; then
        choose licenceagree
        has_agreed=yes
    fi
    push Next
    expect_page "$(page_after "$page")" "$@"
}

# must_agree PAGE: before it can be left.
must_agree() {
    has_control licenceagree "$1" && [ $has_agreed = no ]
}

# go_back PAGE: which is the one before.
go_back() {
    push Prev
    expect_page "$1"
}

# go_to PAGE [TENTHS]: onwards, with everything as it is proposed.
go_to() {
    while [ "$page" != "$1" ]; do go_on "${@:2}"; done
}

# By its key for that: it asks the window to close.
close_by_manager() {
    find_window "$page" || give_up "the window is gone"
    xdotool key alt+F4
}

# expect_end [CODE]: of the program that begin_program has begun.
expect_end() {
    local status=0
    await 100 has_ended || give_up "the program does not end"
    wait "$wizard" || status=$?
    wizard=
    [ $status = "${1:-0}" ] || die "$step: the program ends with $status: $(cat "$scratch/wizard.log")"
    # Wine has things to say itself.
    [ -n "$runner" ] || [ $# != 0 ] || [ ! -s "$scratch/wizard.log" ] ||
        die "$step: the program says: $(cat "$scratch/wizard.log")"
}

has_ended() {
    ! kill -0 "$wizard" 2>/dev/null
}

# kill_program: as an end of the system would, at once. Under Wine the program goes on when the one that has started it
# is gone.
kill_program() {
    kill -KILL "${victims[@]}"
    wait "$wizard" 2>/dev/null || true
    wizard=
}

# Those of this run, by their path, which nothing else has.
find_programs() {
    pgrep -f "${scratch##*/}.*\.$extension" || true
}
