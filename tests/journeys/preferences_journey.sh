#!/usr/bin/env bash
# Preferences and palette, the toolbar by keyboard, and the assistant: what shows at once, and what is kept.
source "$(dirname "$0")/stage.sh"
open_stage
start_program
open_snapshot sample.sna

# Another blue for the paper, another white for the ink, by the sliders; the picture follows when the dialog closes.
menu f p
wait_for_dialog "LMK Preferences"
keys ctrl+Tab Tab Tab
text 64
keys ctrl+Tab ctrl+Tab
dialog_click 66 131  # swatch 1, blue
keys Home Tab Prior Tab End
dialog_click 114 155 # swatch 7, white
keys Prior
answer "LMK Preferences" alt+o
ink=#d0d0e0 paper=#0010ff
expect_picture

# A window opened now takes the new defaults.
cp "$files/sample.sna" "$files/two.sna"
default_view=0,0,256,64,1,0
open_snapshot two.sna 26 26

# A tool chosen by keyboard, then one stroke of the pencil by mouse.
keys F6 Right Escape
keys F6 Right space F6
pixel 4 4
factor=2 picture_left=$((picture_left - 4)) picture_top=$((picture_top - 4))
paint "$files/two.sna" 2 -crop 100x60+100+60 +repage "$stage/zoomed.png"
pixels "$stage/zoomed.png" "$stage/wanted"
wait_for "the zoomed picture" looks_like "$stage/wanted" "100x60+$((picture_left + 100))+$((picture_top + 60))"

# The assistant comes with F1, speaks about what is under the mouse, also about a button that can't be clicked
# now, and leaves no trace on the window behind its bubble.
corner=246x222+750+450
keep() { wait_for "rest" at_rest "$corner"; mv "$stage/two.png" "$stage/$1.png"; }
shown() { shot "$stage/now.png" "$corner"; cmp -s "$stage/now.png" "$stage/$1.png"; }
changed() { ! shown "$1"; }
white() { # PERCENT at least of the corner
    [ "$(convert "$stage/now.png" -fill black +opaque white -format '%[fx:100*mean>'"$1"']' info:)" = 1 ]
}
speaks() { shot "$stage/now.png" "$corner"; white 25; }
point 700 400
keep bare
keys F1
wait_for "the assistant" changed bare
keep alone
keys F1
zoom 1
menu s p # at top left
child_at 26 26
expect_picture two.sna
drag 250 85 824 460
child_at 600 401
expect_picture two.sna
point 500 300
keep window
keys F1
wait_for "the assistant" changed window
keep figure
point 36 33
wait_for "a prompt" speaks
keep open
point 120 33
wait_for "the prompt of a disabled button" changed open
white 25 || fail "the assistant is silent about a disabled button"
point 500 300
wait_for "silence" shown figure

menu f x
wait_for_end
expect "the default lines" 64 "$(value "$app/LMK.CFG" 448 2)"
expect "the palette" " 00000000 0010ff00 d0000000 d000d000 00d00000 00d0d000 d0d00000 d0d0e000" \
    "$(od -An -j460 -N32 -tx4 --endian=big "$app/LMK.CFG" | tr -d '\n')"
expect "the assistant's flag" -1 "$(value "$app/LMK.CFG" 524 2)"

start_program
wait_for "the assistant of the last run" shown alone
open_snapshot two.sna
menu f x
wait_for_end
