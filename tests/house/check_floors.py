#!/usr/bin/env python3
"""Holds the house together: check_floors.py [SRC]. Fails where a file includes one of a higher floor, where files lie
in a circle, where a rule knows the toolkit, and where a folder is on no floor.

A file's floor is told by its folder. A unit is a header with all its sources: frmX.h, frmX.cpp and frmX_part.cpp.
"""
import re
import sys
from graphlib import CycleError, TopologicalSorter
from pathlib import Path

SRC = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parents[2] / "src")
FLOORS = [  # from the ground up; the first that fits counts
    ("rules", r"base|display|\w+/rules"),
    ("disk", r"disk"),
    ("controls", r"controls"),
    ("window", r"shell/window|\."),
    ("shell", r"shell"),
    ("documents", r"snapshot|animation|preferences|assistant|about"),
]
ORDER = ["rules", "disk", "controls", "shell", "documents", "window"]


def floor_of(path):
    folder = str(path.parent)
    return next((name for name, folders in FLOORS if re.fullmatch(folders, folder)), None)


def unit_of(path):
    return str(path.parent / re.sub(r"^(frm\w+?)_\w+$", r"\1", path.stem))


faults, uses = [], {}
files = sorted(path.relative_to(SRC) for path in SRC.rglob("*") if path.suffix in (".h", ".cpp"))
if not files:
    faults.append(f"no sources in {SRC}")
for path in files:
    here = floor_of(path)
    if here is None:
        faults.append(f"{path}: its folder is on no floor")
        continue
    for kind, name in re.findall(r'^#include ([<"])([^">]+)', (SRC / path).read_text(), re.M):
        if kind == "<":
            if here == "rules" and re.match(r"Q[A-Z]", name):
                faults.append(f"{path}: a rule includes <{name}>")
            continue
        there = floor_of(Path(name))
        if not (SRC / name).exists() or there is None:
            faults.append(f"{path}: there is no {name} in src")
        elif ORDER.index(there) > ORDER.index(here):
            faults.append(f"{path} ({here}) includes {name} ({there}), which is above it")
        elif unit_of(Path(name)) != unit_of(path):
            uses.setdefault(unit_of(path), set()).add(unit_of(Path(name)))
try:
    TopologicalSorter(uses).prepare()
except CycleError as circle:
    faults.append("a circle: " + " -> ".join(circle.args[1]))
print("\n".join(faults) or f"{len(files)} files on {len(ORDER)} floors: nothing reaches upwards, no circle")
sys.exit(bool(faults))
