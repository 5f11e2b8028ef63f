"""A display of its own, the program on it, and hands that move the pointer and press keys until the program's state says so."""
import json
import os
import pathlib
import shutil
import struct
import subprocess
import time
import zlib

PATIENCE = 20          # seconds until a state is given up; a sanitized build on a busy machine is slow
WIDTH, HEIGHT = 1280, 800


class Failed(Exception):
    pass


def poll(what, condition):
    """The first true value of `condition`; an awaited state that does not come is a failure."""
    end = time.monotonic() + PATIENCE
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failed(f"waited in vain for {what}")
        time.sleep(0.01)


class Display:
    def __init__(self, folder):
        self.folder = folder
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir", str(folder), "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as told:
            number = told.readline().strip()
        if not number:
            raise Failed("Xvfb does not start")
        self.env = dict(os.environ, DISPLAY=":" + number, QT_QPA_PLATFORM="xcb", QT_QPA_PLATFORMTHEME="", LC_ALL="C.UTF-8",
                        XDG_CONFIG_HOME=str(folder / "config"), HOME=str(folder), ASAN_OPTIONS="detect_leaks=0")
        self.env.pop("WAYLAND_DISPLAY", None)
        self.env.pop("SESSION_MANAGER", None)
        self.manager = subprocess.Popen(["openbox"], env=self.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def close(self):
        for p in (self.manager, self.server):
            p.terminate()
            p.wait()

    def picture(self, path):
        """The screen as PNG, from the server's frame buffer (an XWD file of 32 bits a pixel)."""
        if not (self.folder / "Xvfb_screen0").exists():
            return
        raw = (self.folder / "Xvfb_screen0").read_bytes()
        head = struct.unpack(">25I", raw[:100])
        start, row = head[0] + head[19] * 12, head[12]
        lines = bytearray()
        for y in range(HEIGHT):
            line = raw[start + y * row:start + y * row + WIDTH * 4]
            pixels = bytearray(WIDTH * 3)
            pixels[0::3], pixels[1::3], pixels[2::3] = line[2::4], line[1::4], line[0::4]
            lines += b"\0" + pixels
        chunk = lambda kind, data: struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
        path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">2I5B", WIDTH, HEIGHT, 8, 2, 0, 0, 0))
                         + chunk(b"IDAT", zlib.compress(bytes(lines), 1)) + chunk(b"IEND", b""))


class Hands:
    """What a person does, and what the program says of it."""

    def __init__(self, display, program, dropper, folder):
        self.display, self.program_path, self.folder = display, program, folder
        self.watch = folder / "state.json"
        drawing = folder / "plan.ts3d"
        script = folder / "new.script"
        script.write_text(f"answer file {drawing}\nmenu 2 5\n")
        subprocess.run([program, "--script", str(script)], env=dict(display.env, QT_QPA_PLATFORM="offscreen"), check=True,
                       stdout=subprocess.DEVNULL)
        self.start(drawing)
        picture = folder / "scan.png"
        shutil.copy(pathlib.Path(__file__).parent.parent / "scripts/files/grey.png", picture)
        self.window = self.window_named("Tessaro 3D")
        self.dropper = subprocess.Popen([dropper, str(picture)], env=display.env)
        self.other = self.window_named("Drop source")
        self.x("windowactivate", self.window)
        x, y = self.geometry(self.window)
        # The content lies below the menu bar: the cursor tells by how much.
        self.origin = (x, y)
        self.settle("the drawing", lambda s: s["noWindow"] == 0 and s["title"].startswith("plan"))
        self.find_content()

    def start(self, drawing):
        """The program on a drawing, until it has told its first state."""
        env = dict(self.display.env, TESSARO_WATCH=str(self.watch))
        self.program = subprocess.Popen([self.program_path, "--settings", str(self.folder / "settings"), "--language", "en",
                                         str(drawing)], env=env, stdout=subprocess.DEVNULL,
                                        stderr=open(self.folder / "stderr.txt", "w"))
        poll("the program's first state", lambda: self.watch.exists())

    def x(self, *words):
        r = subprocess.run(["xdotool", *map(str, words)], env=self.display.env, capture_output=True, text=True)
        return r.stdout.split()

    def windows(self, name):
        return self.x("search", "--onlyvisible", "--name", name)

    def window_named(self, name):
        return poll(f"a window “{name}”", lambda: self.windows(name))[-1]

    def geometry(self, window):
        words = dict(w.split("=") for w in self.x("getwindowgeometry", "--shell", window) if "=" in w)
        return int(words["X"]), int(words["Y"])

    def state(self):
        try:
            return json.loads(self.watch.read_text())
        except (OSError, ValueError):
            return {}

    def settle(self, what, condition):
        """Waits for a state; the program that has ended has failed."""
        def look():
            if self.program.poll() is not None:
                raise Failed(f"the program ended with {self.program.returncode} before {what}")
            s = self.state()
            return s if s and condition(s) else None
        try:
            return poll(what, look)
        except Failed as e:
            raise Failed(f"{e}") from None

    def focused(self):
        return (self.x("getactivewindow") or [""])[0]

    def find_content(self):
        """Where the content begins on the screen: the palette's second cell is found by trying, once."""
        self.x("windowfocus", "--sync", self.window)
        self.key("e")
        s = self.settle("the digitising mode", lambda s: s["Modalita"] == 1)
        left, top = self.origin

        def move(h, v):
            self.x("mousemove", left + h, top + v)

        def cursor():
            s = self.settle("a state", lambda s: True)
            return round(s["xcurs"] * s["scalavid"] - s["OrigX"]), round(s["ycurs"] * s["scalavid"] - s["OrigY"])

        def found():
            """What the cursor tells at one place has to foretell it at another: the first may have been told too early."""
            before = cursor()
            move(400, 300)
            here = poll("the cursor at the pointer", lambda: cursor() != before and cursor())
            move(460, 350)
            there = poll("the cursor at the pointer", lambda: cursor() != here and cursor())
            if (there[0] - here[0], there[1] - here[1]) != (60, 50):
                return None
            return left + 400 - here[0], top + 300 - here[1]
        self.origin = poll("the content's place", found)
        self.key("e")
        self.settle("the selecting mode", lambda s: s["Modalita"] == 0)

    def front(self):
        """The program's window has the keys."""
        self.x("windowactivate", self.window)
        poll("the window in front", lambda: self.focused() == self.window)

    # --- hands
    def key(self, *keys):
        self.x("key", "--clearmodifiers", *keys)

    def to(self, h, v):
        self.x("mousemove", "--", self.origin[0] + h, self.origin[1] + v)

    def click(self, h, v, button=1, times=1):
        self.to(h, v)
        self.x("click", "--repeat", times, "--delay", 30, button)

    def drag(self, points, button=1):
        self.to(*points[0])
        self.x("mousedown", button)
        for p in points[1:]:
            self.to(*p)
        self.x("mouseup", button)

    def pixel(self, s, x, y):
        return round(x * s["scalavid"]) - s["OrigX"], round(y * s["scalavid"]) - s["OrigY"]

    def mode(self, n):
        """Digitising (1) or selecting (0), by the key that changes over."""
        if self.state().get("Modalita") != n:
            self.key("e")
            self.settle(f"mode {n}", lambda s: s["Modalita"] == n)

    def tool(self, cell, number):
        """A drawing tool from the palette."""
        self.click(16, cell * 32 + 16)
        self.settle(f"tool {number}", lambda s: s["operazCorrente"] == number and s["Modalita"] == 1)

    def shown(self):
        """The program's windows that are seen: frame, panels, dialogs, menus."""
        return set(self.x("search", "--onlyvisible", "--class", "tessaro3d"))

    def popups(self):
        return len(self.shown())

    def opened(self, what, act):
        """Does something that opens one window more; its number."""
        before = self.shown()
        act()
        return poll(what, lambda: self.shown() - before).pop()

    def gone(self, what, window):
        poll(f"the end of {what}", lambda: window not in self.shown())

    def size(self, window):
        words = dict(w.split("=") for w in self.x("getwindowgeometry", "--shell", window) if "=" in w)
        return int(words["WIDTH"]), int(words["HEIGHT"])

    def first_item(self, menu):
        """The pointer on a menu's first item, and a press there."""
        x, y = self.geometry(menu)
        self.x("mousemove", x + 30, y + 14)
        self.x("click", 1)

    def dismiss(self, panel):
        """Closes a panel as the window manager does; the frame is in front again."""
        self.x("windowactivate", "--sync", panel)
        poll("the panel in front", lambda: self.focused() == panel)
        self.key("alt+F4")
        self.gone("the panel", panel)
        self.front()

    def control_points(self):
        """Their window, opened from the menu and in front."""
        transform = self.opened("the Transform menu", lambda: self.key("alt+r"))
        table = self.opened("the control points", lambda: self.key("1"))
        self.gone("the menu", transform)
        poll("the table in front", lambda: self.focused() == table)
        return table

    def segment(self, a, b):
        """A segment by two clicks: the mouse lives, and the figure is whole."""
        self.tool(4, 0)
        n = self.state()["indElem"]
        self.click(*a)
        self.settle("a first point", lambda s: s["Azione"] == 1)
        self.click(*b)
        self.settle("a segment", lambda s: s["indElem"] == n + 1 and s["Azione"] == 0)


def no_double_click():
    """Two presses within this time are one double click, and a shorter hold is no drag: here time itself is what counts."""
    time.sleep(0.5)


def near(a, b, tolerance=1.5):
    return abs(a - b) <= tolerance
