# A stage for journeys: the real program in a real window on a display of its own, driven by keys and mouse as a
# user does. Sourced by the journeys; each gets the program's build directory as its argument.
#
# Nothing here sleeps for a fixed time: wait_for asks again until a thing is true, and gives up after a minute.
set -euo pipefail

build=$1
stage=$(mktemp -d "${TMPDIR:-/tmp}/lumrake-journey.XXXXXX")
app=$stage/app       # the program's directory, with its settings and help file
files=$stage/files   # the user's files; the program starts here
journey=$(basename "$0" .sh)

fail() {
    echo "FAILED: $*" >&2
    import -window root "$stage/failure.png" 2>/dev/null || true
    mkdir -p "$build/journeys"
    cp "$stage/failure.png" "$build/journeys/$journey.png" 2>/dev/null || true
    exit 1
}

# wait_for WHAT COMMAND...: until the command succeeds.
wait_for() {
    local what=$1 end=$((SECONDS + 60))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || fail "waited in vain for $what"
        read -rt 0.05 <> <(:) || true
    done
}

open_stage() {
    mkdir -p "$app" "$files"
    cp "$build/bin/lumrake" "$build/bin/LMKHELP.DAT" "$app/"
    cp "$build/examples/sample.sna" "$build/examples/walker.anm" "$files/"
    exec {display_pipe}<> <(:)
    Xvfb -displayfd "$display_pipe" -screen 0 1280x960x24 -nolisten tcp 2>/dev/null &
    xvfb_process=$!
    read -r -t 30 -u "$display_pipe" number || fail "no display"
    export DISPLAY=:$number
    # The keyboard map must not follow the machine's language.
    unset XDG_SESSION_TYPE WAYLAND_DISPLAY QT_QPA_PLATFORM
    export LC_ALL=C.UTF-8 XDG_RUNTIME_DIR=$stage HOME=$stage NO_AT_BRIDGE=1
    openbox 2>/dev/null &
    wait_for "the window manager" xprop -root _NET_SUPPORTING_WM_CHECK
}

close_stage() {
    [ -z "${program:-}" ] || kill "$program" 2>/dev/null || true
    [ -z "${xvfb_process:-}" ] || kill "$xvfb_process" 2>/dev/null || true
    rm -rf "$stage"
}
trap close_stage EXIT

# start_program ARGUMENTS...: without the splash unless other arguments are given; waits for the main window.
start_program() {
    (cd "$files" && exec "$app/lumrake" "${@:-REHEARS}" 2>"$stage/stderr") &
    program=$!
    wait_for_window '^Lumrake$'
    main=$(xdotool search --onlyvisible --name '^Lumrake$' | tail -n 1)
    wait_for "the focus" focused "$main"
}

focused() { [ "$(xdotool getwindowfocus)" = "$1" ] || { xdotool windowactivate "$1" 2>/dev/null; false; }; }

wait_for_window() { wait_for "the window $1" xdotool search --onlyvisible --name "$1"; }
window_gone() { ! xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
wait_until_gone() { wait_for "the end of the window $1" window_gone "$1"; }
program_ended() { ! kill -0 "$program" 2>/dev/null; }
wait_for_end() { wait_for "the end of the program" program_ended; program=; }

keys() { xdotool key --clearmodifiers --delay 20 "$@"; }
text() { xdotool type --delay 10 -- "$1"; }

# point X Y: moves the mouse to a place of the main window's inside.
point() { xdotool mousemove --window "$main" "$1" "$2"; }
click() { point "$1" "$2"; xdotool click "${3:-1}"; }

# answer TITLE KEY: waits for a box with this title and presses an access key (alt+y for Yes).
answer() {
    wait_for_window "^$1\$"
    wait_for "the focus of $1" focused "$(xdotool search --onlyvisible --name "^$1\$" | tail -n 1)"
    keys "$2"
    wait_until_gone "^$1\$"
}

# choose_file TITLE NAME: types a name into the file dialog of this title.
choose_file() {
    wait_for_window "^$1\$"
    wait_for "the focus of $1" focused "$(xdotool search --onlyvisible --name "^$1\$" | tail -n 1)"
    keys alt+n
    text "$2"
    keys Return
    wait_until_gone "^$1\$"
}

# shot FILE [WxH+X+Y]: a picture of the main window's inside, or a part of it.
shot() { import -window "$main" ${2:+-crop "$2"} +repage "$1"; }

same_bytes() { cmp "$1" "$2" || fail "$1 and $2 differ"; }
