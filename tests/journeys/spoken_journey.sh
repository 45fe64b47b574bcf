#!/usr/bin/env bash
# A walk by ear, without a mouse or a key: three pixels are drawn, a block is moved, a preference changed. Here the
# bytes are compared.
source "$(dirname "$0")/stage.sh"
open_stage
cp "$files/sample.sna" "$stage/before"
walk_by_ear

view=1,27,256,192,1,0
spectrum set "$stage/before" "$view" 0,0,1 0,1,1 128,90,0 > "$stage/drawn"
spectrum move "$stage/drawn" "$view" 49,100,20,30 "$stage/drawn" "$view" 5,5 > "$stage/after"
same_bytes "$files/sample.sna" "$stage/after"
expect "the prompt in the settings, and Mr Fizzlet" "0 -1" "$(value "$app/LMK.CFG" 440 2) $(value "$app/LMK.CFG" 524 2)"
