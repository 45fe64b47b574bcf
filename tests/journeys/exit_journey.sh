#!/usr/bin/env bash
# The end of a run with unsaved work, and what a second run remembers of the first.
source "$(dirname "$0")/stage.sh"
open_stage
mv "$files/sample.sna" "$files/My Game.SNA"
start_program

open_snapshot "My Game.SNA"
pixel 0 0
spectrum set "$files/My Game.SNA" "$view" 0,0,1 > "$stage/after"
cp "$files/My Game.SNA" "$stage/before"
menu f x
answer Snapshot Escape
[ ! -e "$app/LMK.CFG" ] || fail "a cancelled exit saved the settings"
same_bytes "$files/My Game.SNA" "$stage/before"
menu f x
answer_last Snapshot alt+y
wait_for_end
same_bytes "$files/My Game.SNA" "$stage/after"
expect_size "$app/LMK.CFG" 526

# The list holds the path in lower case; the file with the capitals is found all the same.
remembered=$(dd if="$app/LMK.CFG" bs=1 skip=38 count=100 status=none | sed 's/ *$//')
expect "the list" "$(tr '[:upper:]' '[:lower:]' <<<"$files/My Game.SNA")" "$remembered"
start_program
menu f 1
view=$default_view factor=1
expect_picture "My Game.SNA"
menu f x
wait_for_end
same_bytes "$files/My Game.SNA" "$stage/after"

# A record of another version is answered once with the defaults.
printf 1.00 | dd of="$app/LMK.CFG" conv=notrunc status=none
launch REHEARS
answer_last "Version change" Return
find_main
menu f x
wait_for_end
expect "the version" 2.00 "$(head -c 4 "$app/LMK.CFG")"
expect "the list, empty again" $((0x20202020)) "$(value "$app/LMK.CFG" 38 4)"

# With the splash, which gives way to the main window.
launch -platform none -style none # words of the toolkit mean nothing either
wait_for "the splash" named lumrake
find_main
wait_for "the end of the splash" popup_gone
menu f x
wait_for_end

# Told to end by the system while a box is open: nothing is asked, and what was drawn waits for the next start.
rm "$app/LMK.CFG"
start_program
open_snapshot "My Game.SNA"
pixel 0 0 3
menu f x
wait_for_dialog Snapshot
kill "$program"
wait_for_end
expect_size "$app/LMK.CFG" 526
same_bytes "$files/My Game.SNA" "$stage/after"
launch REHEARS
answer_last Snapshot alt+n
find_main
menu f x
wait_for_end
expect "what is kept in the end" "" "$(ls "$stage/lumrake")"
