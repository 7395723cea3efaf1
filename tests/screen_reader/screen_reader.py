"""Reads and uses the program's windows over AT-SPI, as a screen reader does.

screen_reader.py PROGRAM. Where there are no keys, under a compositor without a seat, what only they
can do is left out.
"""

import os
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 30  # seconds that anything may take; far more than it does, for the slowest machine
CONTROLS = ("text", "combo box", "push button")


def wait_for(what, found):
    deadline = time.monotonic() + PATIENCE
    context = GLib.MainContext.default()
    while time.monotonic() < deadline:
        while context.iteration(False):
            pass
        try:
            result = found()
        except GLib.Error:  # it went, or is not there yet
            result = None
        if result:
            return result
        time.sleep(0.05)
    sys.exit(f"screen_reader: no {what} within {PATIENCE} seconds")


def children(accessible):
    present = (accessible.get_child_at_index(i) for i in range(accessible.get_child_count()))
    return [child for child in present if child is not None]


def everything_below(accessible):
    for child in children(accessible):
        yield child
        yield from everything_below(child)


def frame(title):
    for program in children(Atspi.get_desktop(0)):
        for window in children(program):
            if window.get_role_name() == "frame" and window.get_name().startswith(title):
                return window
    return None


def controls_of(window):
    return [each for each in everything_below(window) if each.get_role_name() in CONTROLS]


def control(window, name):
    return next(each for each in controls_of(window) if each.get_name() == name)


def text_of(field):
    return Atspi.Text.get_text(field, 0, -1)


def start(path):
    program = subprocess.Popen([path])
    main_window = wait_for("main window", lambda: frame("Rotavel V1.55 ©"))
    # 35 fields, the unit, 6 + 2 buttons.
    wait_for("controls", lambda: len(controls_of(main_window)) == 44)
    return program, main_window


def choose(window, *items):
    """Opens menus, from the bar to the last but one, and chooses the last."""
    for item in items:
        found = wait_for(item, lambda: next((
            each for each in everything_below(window)
            if each.get_role_name() == "menu item" and each.get_name() == item), None))
        Atspi.Action.do_action(found, 0)


def push(window, button):
    Atspi.Action.do_action(control(window, button), 0)


def press(key):
    subprocess.run(["xdotool", "key", key], check=True)


def main(path):
    told = []
    listener = Atspi.EventListener.new(
        lambda event: told.append((event.source.get_name(), str(event.any_data))))
    listener.register("object:text-changed:insert")
    listener.register("object:property-change:accessible-name")
    program, main_window = start(path)
    try:
        names = [each.get_name() for each in controls_of(main_window)]
        assert len(set(names)) == len(names) and "" not in names, sorted(names)

        choose(main_window, "File", "Motorcycle", "Moto Guzzi", "Breva 750")
        speed = control(main_window, "Engine speed in turns a minute")
        wait_for("motorcycle", lambda: text_of(speed) == "8750")
        assert Atspi.EditableText.set_text_contents(speed, "4000")
        third = control(main_window, "Road speed in third gear")
        push(main_window, "Calculate the road speed in every gear")
        wait_for("road speed", lambda: text_of(third) == "70")
        wait_for("word of the road speed", lambda: ("Road speed in third gear", "70") in told)

        push(main_window, "Show a chart of road speed against engine speed")
        chart = wait_for("chart", lambda: frame("Rotavel V1.55 Graphic"))
        wait_for("picture", lambda: any(
            each.get_name() == "Chart of road speed against engine speed"
            for each in everything_below(chart)))
        if "DISPLAY" in os.environ:
            wait_for("keyboard", lambda: b"Graphic" in subprocess.run(
                ["xdotool", "getwindowfocus", "getwindowname"], stdout=subprocess.PIPE).stdout)
            press("Right")
            wait_for("word of the place", lambda: any("rpm  -  " in name for name, _ in told))
            press("Escape")
            wait_for("end of the chart", lambda: frame("Rotavel V1.55 Graphic") is None)
        else:
            program.terminate()
            assert program.wait(PATIENCE) == 0
            program, main_window = start(path)
        most = control(main_window, "Maximum engine speed in turns a minute")
        assert text_of(most) == "8750"
        assert Atspi.EditableText.set_text_contents(most, "9000")
        choose(main_window, "File", "Quit")
        assert program.wait(PATIENCE) == 0
    finally:
        program.kill()
        program.wait()


warnings.simplefilter("ignore", DeprecationWarning)
main(sys.argv[1])
