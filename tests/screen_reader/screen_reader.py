"""Reads and uses the program's windows over AT-SPI, as a screen reader does.

screen_reader.py PROGRAM. Where there are no keys, under a compositor without a seat, what only they
can do is left out.
"""

import os
import signal
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 30  # seconds that anything may take; far more than it does, for the slowest machine


def wait_for(what, found):
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            if result := found():
                return result
        except GLib.Error:  # it went, or is not there yet
            pass
        time.sleep(0.05)
    sys.exit(f"screen_reader: no {what} within {PATIENCE} seconds")


def everything_below(accessible):
    for i in range(accessible.get_child_count()):
        if child := accessible.get_child_at_index(i):
            yield child
            yield from everything_below(child)


def find(name, role, root=None):
    """Waits for what has a role and a name that begins so, in the whole desktop or below root."""
    root = root or Atspi.get_desktop(0)
    return wait_for(f"{role} {name}", lambda: next((
        each for each in everything_below(root)
        if each.get_role_name() == role and each.get_name().startswith(name)), None))


def do(name, role, root):
    Atspi.Action.do_action(find(name, role, root), 0)


def names_of_controls(window):
    return [each.get_name() for each in everything_below(window)
            if each.get_role_name() in ("text", "combo box", "push button")]


def use(window, told):
    wait_for("35 fields, unit, 6 + 2 buttons", lambda: len(names_of_controls(window)) == 44)
    names = names_of_controls(window)
    assert len(set(names)) == len(names) and "" not in names, sorted(names)

    for item in ("File", "Motorcycle", "Moto Guzzi", "Breva 750"):
        do(item, "menu item", window)
    speed = find("Engine speed in turns a minute", "text", window)
    wait_for("motorcycle", lambda: Atspi.Text.get_text(speed, 0, -1) == "8750")
    assert Atspi.EditableText.set_text_contents(speed, "4000")
    do("Calculate the road speed in every gear", "push button", window)
    wait_for("word of the road speed", lambda: ("Road speed in third gear", "70") in told)
    most = find("Maximum engine speed in turns a minute", "text", window)
    assert Atspi.EditableText.set_text_contents(most, "9000")

    do("Show a chart of road speed against engine speed", "push button", window)
    chart = find("Rotavel V1.55 Graphic", "frame")
    find("Chart of road speed against engine speed", "image", chart)
    find("", "status bar", chart)
    if "DISPLAY" in os.environ:
        wait_for("keyboard", lambda: b"Graphic" in subprocess.run(
            ["xdotool", "getwindowfocus", "getwindowname"], stdout=subprocess.PIPE).stdout)
        subprocess.run(["xdotool", "key", "Right"], check=True)
        wait_for("word of the place", lambda: any("rpm  -  " in name for name, _ in told))


def main(path):
    told = []
    listener = Atspi.EventListener.new(
        lambda event: told.append((event.source.get_name(), str(event.any_data))))
    listener.register("object:text-changed:insert")
    listener.register("object:property-change:accessible-name")
    program = subprocess.Popen([path])
    try:
        use(find("Rotavel V1.55 ©", "frame"), told)
        # The values are kept, too, when a compositor goes before its programs.
        has_keys = "DISPLAY" in os.environ
        os.kill(program.pid if has_keys else int(os.environ["COMPOSITOR"]), signal.SIGTERM)
        assert program.wait(PATIENCE) == (0 if has_keys else 1)
    finally:
        program.kill()


main(sys.argv[1])
