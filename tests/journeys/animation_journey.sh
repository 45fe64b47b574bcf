#!/usr/bin/env bash
# An animation made from a view, saved, changed, closed, opened again and played.
source "$(dirname "$0")/stage.sh"
open_stage
start_program

# The player in its window of one width: the frame is centred over the buttons.
frame() { # NUMBER FACTOR
    view=0,$((21531 + $1 * 96)),24,32,1,0 factor=$2
    child_at 26 26
    picture_left=$((child_left + 4 + (168 - 24 * factor - 4) / 2 + 2)) picture_top=$((child_top + 81))
    expect_picture
}
press() { click $((child_left + 24 + $1 * 24)) $((child_top + 97 + 32 * factor)); } # BUTTON from 0
record() { # TITLE ZOOM STEP PAUSE REPEAT
    spectrum animation "$files/sample.sna" "$files/walk.anm" "$1" 24 32 "$2" 21531 8 "$3" "$4" "$5" 49179 15 0
}

open_snapshot sample.sna
look 0 21531 24 32 8
menu s a
wait_for_dialog "Animation Setup"
keys Tab Tab
text Walk
answer "Animation Setup" alt+o
frame 0 1

# Single steps, forward and back over the ends.
press 3
frame 1 1
press 0
press 0
frame 7 1
press 3
frame 0 1

# A click on the picture zooms.
pixel 12 16
frame 0 2
keys ctrl+e
choose_file "Save animation file as\.\.\." Walk.ANM
record Walk 2 96 100 1 > "$stage/record"
expect_bytes "$files/walk.anm" "$stage/record"
expect_size "$files/walk.anm" 759

# Setup: another title and Ping-Pong.
press 4
wait_for_dialog "Animation Setup"
keys Tab Tab
text Stroll
keys Tab Down Tab Tab Tab Tab Tab Tab Tab
text 60
answer "Animation Setup" alt+o
frame 0 2

# Closing asks; Yes saves into the same file. Nothing of it depends on the window that made it.
xdotool windowfocus "$main"
click $((child_left + 162)) $((child_top + 59))
answer Animation alt+y
record Stroll 2 96 60 2 > "$stage/record"
expect_bytes "$files/walk.anm" "$stage/record"
keys ctrl+w
choose_file "Open animation file\.\.\." walk.anm
frame 0 2

# Playing shows every frame; stopping holds one.
press 2
for number in 3 7 1; do frame $number 2; done
press 1
wait_for "the frames to rest" at_rest
press 4
answer "Animation Setup" alt+o
frame 0 2

# A file of ours that names its snapshot without a directory.
keys ctrl+w
choose_file "Open animation file\.\.\." walker.anm
view=0,21531,24,32,1,0 factor=4 ink=#ffffff paper=#000000
picture_left=92 picture_top=133 # the third place of the cascade
expect_picture
menu f x
wait_for_end
same_bytes "$files/walk.anm" "$stage/record"
