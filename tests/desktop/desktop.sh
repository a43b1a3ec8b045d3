# Sourced: a screen of its own with a window manager, and what a person does at it.
#
#   open_screen [SIZE]           starts the screen; it goes with the shell that sources this
#   open_place [SIZE]            a screen, and an empty directory $work, the shell's from then on, without settings of
#                                the user; both go with the shell
#   window TITLE                 waits for a shown window, makes it the active one; the titles are whole
#   gone TITLE                   waits until no such window is shown
#   press KEY...                 keys one after the other, xdotool's names
#   enter TEXT                   replaces what is selected or under the cursor
#   click X Y                    a click, from the window's upper left corner; SCALE is that of the program
#   shoot FILE [TITLE]           a picture of the screen or of one window

open_screen() {
    local size=${1:-1280x1024}
    local number
    number=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$number" >/dev/null 2>&1 &
    screen_pids=$!
    trap close_screen EXIT
    for _ in $(seq 100); do
        [ ! -s "$number" ] || break
        sleep 0.1
    done
    DISPLAY=:$(cat "$number")
    export DISPLAY
    rm "$number"
    openbox >/dev/null 2>&1 &
    screen_pids="$screen_pids $!"
    for _ in $(seq 100); do
        xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && return 0
        sleep 0.1
    done
    fail "no window manager"
}

close_screen() {
    # shellcheck disable=SC2086 # several
    kill $screen_pids 2>/dev/null || true
}

open_place() {
    local here
    here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
    open_screen "$@"
    work=$(mktemp -d)
    trap 'close_screen; rm -rf "$work"' EXIT
    cd "$work"
    export XDG_RUNTIME_DIR=$work/run XDG_CONFIG_HOME=$work/config
    mkdir -m 700 run
    unset QT_QPA_PLATFORM
    export LSAN_OPTIONS=suppressions=$here/leaks.supp:print_suppressions=0
}

fail() {
    echo "FAILED: $*" >&2
    [ -z "${SHOTS:-}" ] || import -window root "$SHOTS/failed.png" || true
    exit 1
}

shown() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1 || true; }

window() {
    for _ in $(seq "${PATIENCE:-300}"); do
        present=$(shown "$1")
        if [ -n "$present" ]; then
            xdotool windowactivate --sync "$present" 2>/dev/null || true
            sleep 0.3 # the window draws itself and takes the focus
            return 0
        fi
        sleep 0.1
    done
    fail "no window \"$1\""
}

gone() {
    for _ in $(seq "${PATIENCE:-300}"); do
        [ -n "$(shown "$1")" ] || return 0
        sleep 0.1
    done
    fail "the window \"$1\" stays"
}

press() {
    local key
    for key in "$@"; do
        xdotool key --clearmodifiers "$key"
        sleep 0.05
    done
}

enter() {
    press ctrl+a
    xdotool type --delay 10 -- "$1"
}

click() {
    xdotool mousemove --window "$present" $(($1 * ${SCALE:-1})) $(($2 * ${SCALE:-1})) click 1
    sleep 0.3
}

shoot() {
    [ -n "${SHOTS:-}" ] || return 0
    sleep 0.5
    if [ $# -gt 1 ]; then
        # The frame with its title is the window manager's.
        local id x y width height left right top bottom
        id=$(shown "$2")
        read -r x y width height < <(xwininfo -id "$id" |
            awk -F: '/Absolute/ || /Width|Height/ {printf "%d ", $2} END {print ""}')
        IFS=', ' read -r left right top bottom < <(xprop -id "$id" _NET_FRAME_EXTENTS | sed 's/.*= //')
        import -window root -crop \
            "$((width + left + right))x$((height + top + bottom))+$((x - left))+$((y - top))" +repage "$SHOTS/$1"
    else
        import -window root "$SHOTS/$1"
    fi
}
