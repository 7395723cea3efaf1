"""Reads and uses the program's windows over AT-SPI, as a screen reader does.

screen_reader.py PROGRAM, or --is-here: whether this system can do it.
"""

import shutil
import subprocess
import sys
import time
import warnings

try:
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
except (ImportError, ValueError):
    sys.exit(1)

PATIENCE = 30  # seconds that anything may take; far more than it does, for the slowest machine
CONTROLS = ("text", "combo box", "push button")


def here():
    return all(map(shutil.which, ("dbus-run-session", "xdotool", "Xvfb", "openbox")))


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


def text_of(field):
    return Atspi.Text.get_text(field, 0, -1)


def main(path):
    told = []
    listener = Atspi.EventListener.new(
        lambda event: told.append((event.source.get_name(), str(event.any_data))))
    listener.register("object:text-changed:insert")
    listener.register("object:property-change:accessible-name")
    program = subprocess.Popen([path])
    try:
        main_window = wait_for("main window", lambda: frame("Rotavel V1.55 ©"))
        # 35 fields, the unit, 6 + 2 buttons.
        wait_for("controls", lambda: len(controls_of(main_window)) == 44)
        controls = controls_of(main_window)
        named = {each.get_name(): each for each in controls}
        assert len(named) == len(controls) and "" not in named, sorted(named)

        speed = named["Engine speed in turns a minute"]
        assert Atspi.EditableText.set_text_contents(speed, "4500")
        third = named["Road speed in third gear"]
        Atspi.Action.do_action(named["Calculate the road speed in every gear"], 0)
        wait_for("road speed", lambda: text_of(third) == "77")
        wait_for("word of the road speed", lambda: ("Road speed in third gear", "77") in told)

        Atspi.Action.do_action(named["Show a chart of road speed against engine speed"], 0)
        chart = wait_for("chart", lambda: frame("Rotavel V1.55 Graphic"))
        wait_for("picture", lambda: any(
            each.get_name() == "Chart of road speed against engine speed"
            for each in everything_below(chart)))
        wait_for("keyboard", lambda: b"Graphic" in subprocess.run(
            ["xdotool", "getwindowfocus", "getwindowname"], stdout=subprocess.PIPE).stdout)
        subprocess.run(["xdotool", "key", "Right"], check=True)
        wait_for("word of the place", lambda: any("rpm  -  " in name for name, _ in told))
    finally:
        program.kill()
        program.wait()


warnings.simplefilter("ignore", DeprecationWarning)
if sys.argv[1] == "--is-here":
    sys.exit(0 if here() else 1)
main(sys.argv[1])
