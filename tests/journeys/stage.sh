# A stage for journeys: the real program in a real window on a display of its own, driven by keys and mouse as a
# user does. Sourced by the journeys; each gets the program's build directory as its argument.
#
# Nothing here sleeps for a fixed time: wait_for asks again until a thing is true, and gives up after a minute.
set -euo pipefail

build=$1
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
stage=${stage:-$(mktemp -d "${TMPDIR:-/tmp}/lumrake-journey.XXXXXX")}
app=$stage/app       # the program's directory, with its settings and help file
files=$stage/files   # the user's files; the program starts here
journey=$(basename "$0" .sh)

fail() {
    echo "FAILED: $*" >&2
    tell_windows >&2
    cat "$stage/stderr" >&2 2>/dev/null || true
    mkdir -p "$build/journeys"
    import -window root "$build/journeys/$journey.png" 2>/dev/null || true
    cp "$stage/picture.png" "$build/journeys/$journey-expected.png" 2>/dev/null || true # the last one asked for
    exit 1
}

# expect WHAT WANTED FOUND
expect() { [ "$2" = "$3" ] || fail "$1: expected $2, found $3"; }

# pause SECONDS: starts no process for it, for bash lost one in thousands and waited for it without an end.
exec {silence}<> <(:)
pause() { read -rt "$1" -u "$silence" || true; }

# wait_for WHAT COMMAND...: until the command succeeds. In vain when the program has ended; what the command then says
# tells what was there instead.
wait_for() {
    local what=$1 end=$((SECONDS + 60)) last=
    shift
    until "$@" >/dev/null 2>&1; do
        [ -z "$last" ] || fail "waited in vain for $what. $("$@" 2>&1)"
        if [ $SECONDS -ge $end ] || lost_program; then last=1; fi
        pause 0.05
    done
}
lost_program() { [ -n "${program:-}" ] && program_ended; }

tell_windows() {
    local window focus
    ! lost_program || echo "The program has ended."
    focus=$(xdotool getwindowfocus 2>/dev/null) || return 0
    for window in $(xdotool search --onlyvisible --class lumrake 2>/dev/null); do
        echo "There is the window \"$(xdotool getwindowname "$window")\"$([ "$window" != "$focus" ] || echo , active)."
    done
}

open_stage() {
    mkdir -p "$app" "$files"
    cp "$build/bin/lumrake" "$build/bin/LMKHELP.DAT" "$app/"
    cp "$build/examples/sample.sna" "$build/examples/walker.anm" "$files/"
    exec {display_pipe}<> <(:)
    # Without -noreset the server starts afresh, and cuts everybody off, whenever its last client leaves.
    Xvfb -displayfd "$display_pipe" -screen 0 1280x960x24 -nolisten tcp -noreset 2>/dev/null &
    xvfb_process=$!
    read -r -t 30 -u "$display_pipe" number || fail "no display"
    export DISPLAY=:$number
    # The keyboard map must not follow the machine's language, nor the look its desktop.
    unset XDG_SESSION_TYPE WAYLAND_DISPLAY QT_QPA_PLATFORM XDG_CURRENT_DESKTOP
    export LC_ALL=C.UTF-8 XDG_RUNTIME_DIR=$stage HOME=$stage XDG_CONFIG_HOME=$stage XDG_STATE_HOME=$stage NO_AT_BRIDGE=1
    openbox >/dev/null 2>&1 &
    wait_for "the window manager" window_manager_runs
}

window_manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }

close_stage() {
    [ -z "${program:-}" ] || kill "$program" 2>/dev/null || true
    [ -z "${xvfb_process:-}" ] || kill "$xvfb_process" 2>/dev/null || true
    rm -rf "$stage"
}
trap close_stage EXIT

launch() {
    (cd "$files" && exec ${with:-} "$app/lumrake" "$@" 2>"$stage/stderr") &
    program=$!
}
# find_main: waits for the main window and gives it room for two children side by side.
find_main() {
    wait_for "the main window" named Lumrake
    main=$named
    wait_for "the focus" focused "$main"
    xdotool windowsize --sync "$main" 1000 700
    child_at 0 0
}
start_program() {
    launch REHEARS # no splash
    find_main
}

# walk_by_ear: spoken.py on a bus of its own, in place of the program; what it heard, it has waited for.
walk_by_ear() {
    (
        unset NO_AT_BRIDGE
        export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
        cd "$files"
        exec dbus-run-session -- /usr/bin/python3 "$here/spoken.py" "$app/lumrake"
    ) >"$stage/stderr" 2>&1 || fail "not all was heard"
}

window() { xdotool search --onlyvisible --name "$1" | tail -n 1; }
focused() { [ "$(xdotool getwindowfocus)" = "$1" ] || { xdotool windowactivate "$1" 2>/dev/null; false; }; }
wait_for_window() { wait_for "the window $1" xdotool search --onlyvisible --name "$1"; }
wait_for_dialog() {
    wait_for_window "^$1\$"
    dialog=$(window "^$1\$")
    wait_for "the focus of $1" focused "$dialog"
}
window_gone() { ! xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
# named NAME: finds a visible window of just this name; a search of xdotool does not tell capitals.
named() {
    for named in $(xdotool search --onlyvisible --class lumrake); do
        [ "$(xdotool getwindowname "$named")" != "$1" ] || return 0
    done
    return 1
}
# Menus, and the splash, have no title and carry the program's name. While a menu is open it holds the mouse.
popup_open() { named lumrake; }
popup_gone() { ! named lumrake; }

program_ended() { ! kill -0 "$program" 2>/dev/null; }
wait_for_end() { wait_for "the end of the program" program_ended; program=; }

keys() { xdotool key --clearmodifiers --delay 12 "$@"; }
text() { xdotool type --delay 12 -- "$1"; }
# repeat N KEY
repeat() { [ "$1" -eq 0 ] || keys $(yes "$2" | head -n "$1"); }

# menu LETTER KEYS...: opens a menu of the bar by its access key, then presses keys that choose an entry.
menu() {
    keys "alt+$1"
    wait_for "the menu $1" popup_open
    keys "${@:2}"
    wait_for "the end of the menu $1" popup_gone
}

# point X Y: moves the mouse to a place of the main window's inside.
point() { xdotool mousemove --window "${3:-$main}" "$1" "$2"; }
click() { point "$1" "$2"; xdotool click "${3:-1}"; }
dialog_click() { point "$1" "$2" "$dialog"; xdotool click "${3:-1}"; }
# drag X Y X Y: with the left button, in the main window.
drag() {
    point "$1" "$2"
    xdotool mousedown 1
    point $((($1 + $3) / 2)) $((($2 + $4) / 2))
    point "$3" "$4"
    xdotool mouseup 1
}

# answer TITLE KEYS...: waits for a box or dialog with this title and presses keys (alt+y for Yes) that close it.
answer() {
    answer_last "$@"
    wait_for "the focus" focused "$main"
}
# The same for a box after which the main window has not its turn.
answer_last() {
    wait_for_dialog "$1"
    keys "${@:2}"
    wait_for "the end of the window $1" window_gone "^$1\$"
}

# choose_file TITLE NAME: types a name into the file dialog of this title.
choose_file() {
    wait_for_dialog "$1"
    keys alt+n
    text "$2"
    answer "$1" Return
}

# ---- the active snapshot window ----

# child_at X Y: where the corner of the active child lies in the client area. picture_left and picture_top follow:
# the picture in the main window, below its menu bar and toolbar and inside the frame of the child.
child_at() {
    child_left=$1 child_top=$2
    picture_left=$((child_left + 12)) picture_top=$((child_top + 79))
}

# open_snapshot NAME [X Y]: waits until its window shows, at this place of the cascade.
default_view=0,0,256,192,1,0
open_snapshot() {
    keys ctrl+o
    choose_file "Open snapshot file\.\.\." "$1"
    view=$default_view factor=1
    child_at "${2:-0}" "${3:-0}"
    expect_picture "$1"
}

# mode KEYS...: graphics, screen, text, line or byte masks by the access keys of the Snapshot menu. Two of its entries
# share the B, so that it takes a Return as well.
mode() { menu s "$@"; }
# zoom INDEX: 1 to 5
zoom() {
    menu v z $(yes Down | head -n $(($1 - 1))) Return
    factor=$((1 << ($1 - 1)))
}

# look MODE OFFSET WIDTH LINES COLUMNS: types a view into the boxes of a window that is in a mode with boxes. The
# width has only steps.
look() {
    local width
    width=$(cut -d, -f3 <<<"$view")
    click $((picture_left + 315)) $((picture_top + 25)) # the offset's box
    keys Home shift+End
    text "$2"
    keys Tab Tab Tab
    if [ "$3" -lt "$width" ]; then repeat $(((width - $3) / 8)) Left; else repeat $((($3 - width) / 8)) Right; fi
    keys Tab
    text "$4"
    keys Tab Tab
    text "$5"
    view=$1,$2,$3,$4,$5,0
}

# Places of picture pixels in the main window, and the mouse on them.
px() { echo $((picture_left + $1 * factor + factor / 2)); }
py() { echo $((picture_top + $1 * factor + factor / 2)); }
pixel() { click "$(px "$1")" "$(py "$2")" "${3:-1}"; }
# net X Y W H: drags the net over a block.
net() { drag "$(px "$1")" "$(py "$2")" "$(px $(($1 + $3)))" "$(py $(($2 + $4)))"; }
# tool draw|zoom|select|pan, by the toolbar
tool() { case $1 in draw) click 180 33 ;; zoom) click 204 33 ;; select) click 228 33 ;; pan) click 252 33 ;; esac; }

# ---- comparing ----

spectrum() { perl "$here/spectrum.pl" "$@"; }

shot() { import -window "${3:-$main}" ${2:+-crop "$2"} +repage "$1"; }
# at_rest [WxH+X+Y]: nothing moves there.
at_rest() { shot "$stage/one.png" "${1:-}" && shot "$stage/two.png" "${1:-}" && cmp -s "$stage/one.png" "$stage/two.png"; }
pixels() { convert "$1" -depth 8 "rgb:$2"; }
looks_like() {
    import -window "$main" -crop "$2" +repage -depth 8 "rgb:$stage/seen"
    cmp "$1" "$stage/seen"
}

# expect_picture [FILE]: waits until the active child shows its view of the file, pixel for pixel in these colours,
# or as much of it as fits into its window.
ink='#d0d0d0' paper='#0000d0'
paint() { spectrum picture "$1" "$view" | convert pbm:- +level-colors "$ink,$paper" -scale "${2}00%" "${@:3}"; }
expect_picture() {
    local what="$view of ${1:-sample.sna} at ${factor}x" size
    paint "$files/${1:-sample.sna}" "$factor" -crop 256x224+0+0 +repage "$stage/picture.png"
    pixels "$stage/picture.png" "$stage/wanted"
    size=$(identify -format '%wx%h' "$stage/picture.png")
    wait_for "the picture $what" looks_like "$stage/wanted" "$size+$picture_left+$picture_top"
}
# expect_bitmap NAME WxH+X+Y FACTOR: a file that holds this part of the active child's view.
expect_bitmap() {
    wait_for "$1" test -s "$files/$1"
    paint "$files/sample.sna" "$3" -crop "$2" +repage "$stage/picture.png"
    expect "pixels of $1 that differ" 0 "$(compare -metric AE "$files/$1" "$stage/picture.png" null: 2>&1)"
    expect "bits a pixel and colours of $1" "1 2" "$(identify -format '%z %[colors]' "$files/$1")"
}

same_bytes() { cmp "$1" "$2" || fail "$1 and $2 differ"; }
expect_bytes() { wait_for "$1 to be $2" cmp "$1" "$2"; }
expect_size() { expect "bytes of $1" "$2" "$(stat -c %s "$1")"; }
# value FILE OFFSET WIDTH: a little-endian number of a record
value() { od -An -j "$2" -N "$3" -t "d$3" --endian=little "$1" | tr -d ' '; }
