#!/usr/bin/env bash
# The walk of the guide: the screen, the font and the sprites are found, drawn on and saved, a block goes from one
# window to another with another layout and zoom, and a view leaves the program as a file.
source "$(dirname "$0")/stage.sh"
open_stage
cp "$files/sample.sna" "$files/Other.sna"
cp "$files/sample.sna" "$stage/before"
start_program

# Pictures in every mode.
open_snapshot sample.sna
mode s
text 27
view=1,27,256,192,1,0
expect_picture
mode g
look 2 16411 128 48 1
mode t
expect_picture
mode l
look 3 19483 24 24 4
zoom 2
expect_picture
mode b Return
look 4 20507 16 16 6
expect_picture

# Draw on the sprites, then upside down, and save: only these bits may differ.
zoom 3
pixel 3 2
pixel 5 2 3
pixel 20 9
spectrum set "$stage/before" "$view" 3,2,1 5,2,0 20,9,1 > "$stage/drawn"
menu s f
view=${view%0}1
pixel 0 0
pixel 1 0 3
spectrum set "$stage/drawn" "$view" 0,0,1 1,0,0 > "$stage/after"
keys ctrl+s
expect_bytes "$files/sample.sna" "$stage/after"
expect_picture
menu s f
view=${view%1}0
expect_picture

# Move the walker's third step into the masked sprites of another window.
mode g
look 0 21531 24 32 8
zoom 2
expect_picture
tool select
net 49 1 20 30
keys ctrl+c
open_snapshot Other.sna 26 26
drag 250 85 724 59
child_at 500 0
mode b Return
look 4 20507 32 40 2
zoom 3
keys ctrl+v
point "$(px 15)" "$(py 20)"
pixel 15 20
source_view=0,21531,24,32,8,0
spectrum move "$files/sample.sna" $source_view 49,1,20,30 "$stage/before" "$view" 5,5 > "$stage/moved"
keys ctrl+s
expect_bytes "$files/Other.sna" "$stage/moved"
expect_picture Other.sna

# Export the view of the first window as a bitmap.
child_at 0 0
click 250 59
view=$source_view factor=2
menu f e w
choose_file "Save Bitmap file as\.\.\." view.bmp
expect_bitmap view.bmp 384x64+0+0 2

menu f x
wait_for_end
expect_size "$app/LMK.CFG" 526
