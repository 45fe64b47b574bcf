#!/usr/bin/env bash
# The walk of the guide: the screen, the font and the sprites are found, drawn on and saved, a block goes from one
# window to another with another layout and zoom, and views leave the program as files.
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

# Cut it out of the first window; the net still lies there, and the clipboard goes with the program.
child_at 0 0
click 250 59
view=$source_view factor=2
keys ctrl+x
keys ctrl+s
spectrum set "$stage/after" "$view" $(for y in {1..30}; do for x in {49..68}; do echo "$x,$y,0"; done; done) > "$stage/cut"
expect_bytes "$files/sample.sna" "$stage/cut"

# Export the view as rows and as a bitmap, and the selection as a bitmap.
menu f e r
choose_file "Save Raw file as\.\.\." View.RAW
spectrum raw "$stage/cut" "$view" > "$stage/raw"
expect_bytes "$files/view.raw" "$stage/raw"
menu f e w
choose_file "Save Bitmap file as\.\.\." view.bmp
expect_bitmap view.bmp 384x64+0+0 2
net 24 0 24 32
menu f r
choose_file "Save Bitmap file as\.\.\." block.bmp
expect_bitmap block.bmp 24x32+24+0 1

menu f x
wait_for_end
expect_size "$app/LMK.CFG" 526
