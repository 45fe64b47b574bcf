"""What somebody who listens does: all over AT-SPI, as a screen reader hears and acts, without a mouse or a key.
spoken.py PROGRAM runs it where its files lie; the journey looks at what it leaves there."""
import subprocess, sys, time

import pyatspi
from gi.repository import GLib

PATIENCE = 60  # seconds; a wait ends as soon as what it waits for is there


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while program.poll() is None and time.monotonic() < end:
        try:
            if found := condition():
                return found
        except GLib.Error:
            pass  # it went while it was being looked at, or answers late
        time.sleep(0.02)
    there = told(application()) if program.poll() is None else ["nothing any more"]
    sys.exit(f"Waited in vain for {what}. There is:\n" + "\n".join(there))


def told(one, depth=0):
    yield f"{'  ' * depth}{one.getRoleName()}: {one.name} | {one.description}"
    for child in one:
        yield from told(child, depth + 1)


def application():
    return next((one for one in pyatspi.Registry.getDesktop(0) if one and one.name == "lumrake"), [])


def find(role, name, under=None):
    """The thing of this role whose name begins so, in the whole program or under another thing."""
    def fits(one):
        return one.getRoleName() == role and one.name.startswith(name)
    return wait_for(f"the {role} {name}", lambda: pyatspi.findDescendant(under or application(), fits, True))


def act(thing, action="Press"):
    def number():
        actions = thing.queryAction()
        return next((i + 1 for i in range(actions.nActions) if actions.getName(i) == action), 0)
    i = wait_for(f"the action {action} of {thing}", number) - 1
    try:
        thing.queryAction().doAction(i)
    except GLib.Error:
        pass  # it opened a dialog, and answers when that is closed


def choose(*names):
    """An entry of a menu, by the names on the way to it."""
    entry = None
    for name in names:
        entry = find("menu item", name, entry)
    act(entry)


def open_file(menu, entry, name):
    choose(menu, entry)
    dialog = find("dialog", entry)
    find("text", "File name:", dialog).queryEditableText().setTextContents(name)
    act(find("push button", "Open", dialog))


def hear(thing, *words):
    """Waits until all the words are in what is heard of the thing."""
    wait_for(f"\"{', '.join(words)}\"", lambda: all(word in f"{thing.name} | {thing.description}" for word in words))


def at(x, y, *actions):
    """The cell cursor goes there and does that."""
    picture.queryValue().currentValue = 256 * y + x
    hear(picture, f"{x}, {y}, ")
    for action in actions:
        act(picture, action)


program = subprocess.Popen([sys.argv[1], "REHEARS"])
open_file("File", "Open snapshot", "sample.sna")
picture = find("image", "", find("panel", "Ground of the picture"))
choose("Snapshot", "Screen mode")
hear(picture, "Screen", "1x", "Draw")
find("text", "Offset").queryEditableText().setTextContents("27")
at(50, 50)
choose("Snapshot", "Set attributes")
red = find("push button", "Red")
act(picture, "Press left button")  # it lies behind the dialog, and does nothing
act(red, "Take for the ink")
hear(red, "Ink")
act(find("push button", "Select"))
hear(find("push button", "Ink"), "Colour 2")

at(0, 0, "Press left button")
hear(picture, "0, 0, set, byte 27, bit 7")
act(picture, "Move down")
act(picture, "Press left button")
at(128, 90, "Press right button")
hear(picture, "128, 90, clear, byte 2699, bit 7")
act(find("radio button", "Select"))
hear(picture, "Select")
at(49, 100, "Hold left button")
at(69, 130)
hear(find("label", "Size of the selection"), "20,30")
act(picture, "Release left button")
choose("Edit", "Copy")
choose("Edit", "Paste")
hear(picture, "a block hangs")
at(15, 20, "Press left button")
wait_for("the drop", lambda: "hangs" not in picture.description)
hear(find("label", "Mouse position"), "15,20")
choose("File", "Save")

open_file("Animation", "Open", "walker.anm")
frame = find("image", "Frame 1 of 8")
act(find("push button", "Forward"))
hear(frame, "Frame 2 of 8", "Graphics", "stopped")
act(find("push button", "Play"))
hear(frame, "Frame 7 of 8", "playing")

choose("Help", "Mr Fizzlet")
choose("File", "Preferences")
prompt = find("check box", "Prompt to save")
prompt.queryComponent().grabFocus()
find("alert", "Tick this and LMK asks you")
act(prompt, "Toggle")
act(find("push button", "Okay"))  # goes down, and up a moment later
wait_for("the dialog's end", lambda: not pyatspi.findDescendant(application(), lambda one: one.getRoleName() == "dialog"))
choose("File", "Exit")
sys.exit(program.wait(PATIENCE))
