"""Walks the accessibility tree of the program that tools/check-access has started; prints a line a fault."""
import os
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 60     # seconds until what should come is given up: a sanitized build on a busy machine is slow
# Keys that open windows, each closed again by Escape but the last; the section of the guide that F1 opens in them.
WINDOWS = {"ctrl+r": ("Real Coordinates", "Registration"), "ctrl+l": ("Layers", "Looks, layers, colours"),
           "ctrl+g": ("Scale, Sheet and Units", "The window"), "ctrl+comma": ("Preferences", "The window"),
           "ctrl+i": ("Properties", "Properties")}
# What is not met by Tab of its own: parts of a larger control, and what holds others.
PARTS = {"table cell", "list item", "menu item", "scroll bar", "filler", "panel", "scroll pane", "viewport", "frame", "dialog",
         "column header", "row header", "table column header", "menu bar", "menu"}
NAMELESS = {"filler", "panel", "window", "frame", "dialog", "table cell", "scroll pane", "viewport"}
faults = []
focused = []      # what took the focus, in order, as the bus told it


def on_focus(event):
    if event.detail1:
        focused.append(event.source)


def until(what, condition):
    """The first true value of `condition`, looked at whenever the bus has said something; None when it never comes."""
    context, end = GLib.MainContext.default(), time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            value = condition()
        except GLib.Error:       # a part went away while it was asked
            value = None
        if value:
            return value
        if not context.iteration(False):
            time.sleep(0.01)
    faults.append(f"waited in vain for {what}")
    return None


def key(*names):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=False)


def children(node):
    return [c for c in (node.get_child_at_index(i) for i in range(min(node.get_child_count(), 400))) if c is not None]


def walk(node, depth=0):
    yield node
    if depth < 30:
        for child in children(node):
            yield from walk(child, depth + 1)


def application(pid):
    for child in children(Atspi.get_desktop(0)):
        if child.get_process_id() == pid:
            return child
    return None


def has(node, *states):
    found = node.get_state_set()
    return all(found.contains(s) for s in states)


def window(app, title):
    """The window of that title once it has the keys."""
    for child in children(app):
        if title in (child.get_name() or "") and has(child, Atspi.StateType.ACTIVE):
            return child
    return None


def name_of(node):
    return f"{node.get_role_name()} {node.get_name()!r}"


def look(root, where):
    """Every control has a name; gives those that Tab should meet."""
    shown, wanted = 0, []
    for node in walk(root):
        if not has(node, Atspi.StateType.SHOWING):
            continue
        shown += 1
        role = node.get_role_name()
        named = bool(node.get_name()) or bool(node.get_relation_set())
        focusable = has(node, Atspi.StateType.FOCUSABLE)
        button = role in ("push button", "check box", "radio button", "combo box", "toggle button")
        if not named and (button or (focusable and role not in NAMELESS)):
            faults.append(f"{where}: a {role} has no name (in {node.get_parent().get_name()!r})")
        if focusable and role not in PARTS and has(node, Atspi.StateType.SENSITIVE):
            wanted.append(node)
    print(f"{where}: {shown} parts shown, {len(wanted)} for Tab")
    return wanted


def same(a, b):
    return a.path == b.path


def reach(root, where):
    """Every control of the open window is met by Tab before the first comes again."""
    wanted = look(root, where)
    if not wanted:
        return
    inside = [n for n in wanted if n.get_parent() is None or n.get_parent().get_role_name() not in ("combo box", "spin button")]
    met = []
    for _ in range(len(inside) + 4):
        focused.clear()
        key("Tab")
        if not until(f"the focus behind {name_of(met[-1]) if met else 'the first'} in {where}", lambda: focused):
            return
        now = focused[-1]
        if met and same(now, met[0]):
            break
        met.append(now)
    # Tab comes to one of a group of radio buttons; the arrows go to the others.
    groups = [m.get_parent() for m in met if m.get_role_name() == "radio button"]
    for node in inside:
        if node.get_role_name() == "radio button" and any(same(node.get_parent(), g) for g in groups):
            continue
        if not any(same(node, m) for m in met):
            faults.append(f"{where}: Tab does not meet {name_of(node)}")


def guide(app, title, section):
    """F1 opens the guide at the dialog's section, Escape comes back."""
    key("F1")
    page = until(f"the guide's section {section} over {title}", lambda: window(app, f"User's Guide: {section}"))
    if page is None:
        return
    look(page, "the guide")
    key("Escape")
    until(f"{title} behind the guide", lambda: window(app, title))


def main():
    listener = Atspi.EventListener.new(on_focus)
    listener.register("object:state-changed:focused")
    app = until("the program on the accessibility bus", lambda: application(int(sys.argv[1])))
    frame = app and until("its window", lambda: window(app, "Tessaro 3D"))
    if frame is None:
        print(*faults, sep="\n")
        return 1
    look(frame, "main window")
    key("Escape")      # the start page
    for opener, (title, section) in WINDOWS.items():
        key(opener)
        opened = until(f"{title} by {opener}", lambda: window(app, title))
        if opened is None:
            continue
        reach(opened, title)
        guide(app, title, section)
        key("ctrl+i" if opener == "ctrl+i" else "Escape")
        until(f"the drawing behind {title}", lambda: window(app, "Untitled"))
    key("alt+f")
    until("the File menu by Alt+F", lambda: any(
        n.get_role_name() == "menu item" and has(n, Atspi.StateType.SHOWING) for n in walk(frame)))
    key("Escape", "Escape")
    for fault in sorted(set(faults)):
        print(fault)
    return 1 if faults else 0


sys.stdout.reconfigure(line_buffering=True)
status = main()
sys.stdout.flush()
os._exit(status)      # the listener's threads end with us
