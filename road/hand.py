"""A user's hand: keys and mouse events that the X server sends to whatever window stands there.

Where to point is asked as a screen reader asks, by the role and name that a control tells; nothing
is set or read inside the program. Every wait has an end.
"""
import os
import subprocess
import time

import pyatspi

WAIT = 20  # seconds until something that has to come up counts as not coming


class Lost(Exception):
    """What had to be on the screen is not there."""


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, timeout=WAIT)


def waited_for(what, look):
    """What `look` gives as soon as it gives something, within the time that is waited."""
    end = time.monotonic() + WAIT
    while True:
        try:
            found = look()
        except Exception:  # a window that is just going away answers no more
            found = None
        if found:
            return found
        if time.monotonic() > end:
            raise Lost(what)
        time.sleep(0.05)


def has_state(control, *states):
    held = control.getState()
    return all(held.contains(state) for state in states)


def below(control):
    """The controls in a control and what is in those, as far as they show."""
    for child in control:
        if child is not None and has_state(child, pyatspi.STATE_SHOWING):
            yield child
            yield from below(child)


def windows():
    return [window for application in pyatspi.Registry.getDesktop(0)
            if application is not None and application.name == "Quorrel"
            for window in application
            if window is not None and has_state(window, pyatspi.STATE_SHOWING)]


def tree():
    """What every window shows, to be read where the road ended."""
    lines = []

    def tell(control, depth):
        lines.append(f"{'  ' * depth}{control.getRoleName()}: {control.name!r}")
        for child in control:
            if child is not None and has_state(child, pyatspi.STATE_SHOWING):
                tell(child, depth + 1)

    for window in windows():
        tell(window, 0)
    return "\n".join(lines)


class Hand:
    """Works on the window that was looked for last."""

    def __init__(self, executable):
        pyatspi.Registry.getDesktop(0)  # wakes the registry, which a program looks for as it starts
        time.sleep(0.5)
        self.program = subprocess.Popen([executable], cwd=os.path.dirname(executable))
        self.title = None

    def window(self, title):
        """Waits for the window whose title begins so, and for the keyboard to belong to it."""
        self.title = title
        self._window()

    def _window(self):
        return waited_for(f"the window {self.title!r}", lambda: next(
            (window for window in windows() if window.name.startswith(self.title)
             and has_state(window, pyatspi.STATE_ACTIVE)), None))

    def control(self, roles, name):
        """The control of one of the roles whose name begins so."""
        window = self._window()
        return waited_for(f"{roles} {name!r} in {self.title!r}", lambda: next(
            (control for control in below(window)
             if control.getRoleName() in roles and control.name.startswith(name)), None))

    def click(self, roles, name, button=1):
        at = self.control(roles, name).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        xdotool("mousemove", at.x + at.width // 2, at.y + at.height // 2, "click", button)

    def press(self, name):
        self.click(["push button"], name)

    def key(self, *keys):
        xdotool("key", "--delay", 30, *keys)

    def type(self, text):
        xdotool("type", "--delay", 10, text)

    def fill(self, name, text):
        """Clicks into a box and types over what it holds."""
        self.click(["text", "password text"], name)
        self.key("ctrl+a")
        self.type(text)

    def answer(self, question, *keys):
        """Presses keys in the box that asks so, as soon as it has the keyboard."""
        waited_for(f"the question {question!r}", lambda: any(
            control.getRoleName() == "label" and question in control.name
            for window in windows() if has_state(window, pyatspi.STATE_ACTIVE)
            for control in below(window)))
        if keys:
            self.key(*keys)

    def ended(self):
        """The exit code of the program, which has to end by itself."""
        return self.program.wait(WAIT)
