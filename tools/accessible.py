"""Walks the accessibility tree of the program that tools/check-access has started; prints a line a fault."""
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

# Keys that open dialogs, each closed again by Escape.
DIALOGS = ("", "ctrl+r", "ctrl+l", "ctrl+g")
faults = []


def application():
    desktop = Atspi.get_desktop(0)
    for _ in range(40):
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and "tessaro" in (child.get_name() or "").lower():
                return child
        time.sleep(0.25)
    return None


def walk(node, depth=0):
    if node is None or depth > 30:
        return
    yield node
    for i in range(min(node.get_child_count(), 400)):
        yield from walk(node.get_child_at_index(i), depth + 1)


def look(app, where):
    count = {"controls": 0, "focusable": 0}
    for node in walk(app):
        states = node.get_state_set()
        if not states.contains(Atspi.StateType.SHOWING):
            continue
        count["controls"] += 1
        role = node.get_role_name()
        named = bool(node.get_name()) or bool(node.get_relation_set())
        if states.contains(Atspi.StateType.FOCUSABLE):
            count["focusable"] += 1
            if not named and role not in ("filler", "panel", "window", "frame", "dialog", "table cell"):
                faults.append(f"{where}: a {role} has no name (in {node.get_parent().get_name()!r})")
        elif role in ("push button", "check box", "radio button", "combo box", "toggle button") and not named:
            faults.append(f"{where}: a {role} has no name")
    print(f"{where}: {count['controls']} parts shown, {count['focusable']} can have the focus")
    return count


def focus(app):
    for node in walk(app):
        states = node.get_state_set()
        if states.contains(Atspi.StateType.FOCUSED) and states.contains(Atspi.StateType.SHOWING):
            yield f"{node.get_role_name()} {node.get_name()!r}"


def key(*names):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=False)
    time.sleep(0.6)


def reach(app, where):
    """Every control of the open dialog is met by Tab before the first comes again."""
    met = []
    for _ in range(60):
        now = next(focus(app), "")
        if met and now == met[0] and len(met) > 2:
            break
        met.append(now)
        key("Tab")
    if len(set(met)) < 3:
        faults.append(f"{where}: Tab reaches only {sorted(set(met))}")
    print(f"{where}: Tab reaches {len(set(met))} controls")


def main():
    app = application()
    if app is None:
        print("the program is not on the accessibility bus")
        return 1
    for opener in DIALOGS:
        if opener:
            key(opener)
        look(app, opener or "main window")
        if opener:
            reach(app, opener)
            key("Escape")
    key("alt+f")
    if not any("menu" in f for f in focus(app)) and not any(
            n.get_role_name() == "menu item" and n.get_state_set().contains(Atspi.StateType.SHOWING) for n in walk(app)):
        faults.append("Alt+F opens no menu")
    key("Escape")
    for fault in sorted(set(faults)):
        print(fault)
    return 1 if faults else 0


sys.exit(main())
