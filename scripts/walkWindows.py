"""Walks through the windows of the program as scripts/test-accessibility tells."""
import collections
import os
import pathlib
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

DIRECTORY = pathlib.Path(sys.argv[1])
CONTROLS = {"push button", "toggle button", "check box", "radio button", "text", "entry", "password text", "combo box",
            "list", "table", "tree", "slider", "spin button", "progress bar", "page tab", "menu", "menu item"}
# What Tab does not go to: menus, and what a menu offers as well or that only tells.
NOT_BY_TAB = {"menu", "menu item", "progress bar"}
CONTRAST = 4.5
THEME_CONTRAST = 3  # of what has the theme's own colours: links, and text that is selected

counts = collections.Counter()


def report(good, what):
    counts[bool(good)] += 1
    if not good:
        print("failed: " + what, flush=True)


def becomes(condition, seconds=10):
    """The condition's value once it holds, else its last one."""
    end = time.monotonic() + seconds
    while not (value := condition()) and time.monotonic() < end:
        time.sleep(0.1)
    return value


def keys(*names):
    for name in names:
        subprocess.run(["xdotool", "key", "--clearmodifiers", name], check=True)
        time.sleep(0.08)


def has(item, state):
    return item.get_state_set().contains(state)


def everything(item, inside=()):
    """The item and all below that is shown, each with the roles that it stands in. What closes meanwhile is left out."""
    try:
        inner = inside + (item.get_role_name(),)
        children = [item.get_child_at_index(i) for i in range(min(item.get_child_count(), 100))]
        shown = [child for child in children
                 if child and (has(child, Atspi.StateType.SHOWING) or child.get_role_name() == "menu item")]
    except GLib.GError:
        return
    yield item, inside
    for child in shown:
        yield from everything(child, inner)


def place(item):
    box = item.get_extents(Atspi.CoordType.SCREEN)
    return box.x, box.y, box.width, box.height


def called(item):
    return item.get_role_name(), item.get_name(), place(item)


class Program:
    def __init__(self, look, *arguments):
        theme = {"GTK_THEME": "Adwaita:dark"} if look == "dark" else {}
        self.look = look
        self.process = subprocess.Popen([DIRECTORY / "brasquelin", *arguments], env={**os.environ, **theme},
                                        cwd=DIRECTORY, stdout=subprocess.DEVNULL)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def windows(self):
        """Of every process of the program: a run has its window in another one."""
        desktop = Atspi.get_desktop(0)
        found = []
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application and application.get_name().startswith("brasquelin"):
                found += [application.get_child_at_index(j) for j in range(application.get_child_count())]
        return [window for window in found if window and has(window, Atspi.StateType.SHOWING)]

    def window(self, title):
        return next((window for window in self.windows() if title in window.get_name()), None)

    def choose(self, window, menu, entry):
        """By the keys of the menu bar."""
        for item, _ in everything(window):
            if item.get_role_name() == "menu" and item.get_name() == menu:
                entries = [item.get_child_at_index(i) for i in range(item.get_child_count())]
                entries = [e.get_name() for e in entries if e.get_role_name() == "menu item" and
                           has(e, Atspi.StateType.SENSITIVE)]
                keys("F10", *["Right"] * self.menus(window).index(menu), "Down")
                keys(*["Down"] * entries.index(entry), "Return")

    @staticmethod
    def menus(window):
        return [item.get_name() for item, inside in everything(window)
                if item.get_role_name() == "menu" and inside[-1] == "menu bar"]

    def look_at(self, title, lists=()):
        """What is to be seen in a window that has just been opened; gives it."""
        window = becomes(lambda: self.window(title))
        if not window:
            report(False, f"{title}: does not open; there are {[w.get_name() for w in self.windows()]}")
            return None
        time.sleep(1)  # until it is drawn and its controls are named
        where = f"{title} ({self.look})"
        for item, _ in everything(window):
            if item.get_role_name() in CONTROLS:
                # A busy program names it later.
                report(becomes(item.get_name, 3), f"{where}: a {item.get_role_name()} without a name at {place(item)}")
        names = {item.get_name() for item, _ in everything(window) if item.get_role_name() in ("list", "table")}
        for name in lists:
            report(name in names, f"{where}: no list '{name}', but {sorted(names)}")
        self.look_at_texts(window, where)
        return window

    def walk(self, window, title):
        """Tab goes to everything that can have the keys."""
        due = {called(item) for item, inside in everything(window)
               if item.get_role_name() in CONTROLS - NOT_BY_TAB and has(item, Atspi.StateType.SENSITIVE) and
               has(item, Atspi.StateType.FOCUSABLE) and "tool bar" not in inside and "combo box" not in inside and
               item.get_role_name() != "radio button"}
        reached = set()
        for _ in range(2 * len(due) + 10):
            for item, _ in everything(window):
                if has(item, Atspi.StateType.FOCUSED):
                    reached.add(called(item))
            if due <= reached:
                break
            keys("Tab")
        for role, name, box in sorted(due - reached):
            report(False, f"{title}: Tab does not reach the {role} '{name}' at {box}")
        counts[True] += len(due & reached)

    def focus(self, window, name):
        for _ in range(40):
            if any(has(item, Atspi.StateType.FOCUSED) and item.get_name() == name for item, _ in everything(window)):
                return
            keys("Tab")
        report(False, f"Tab does not reach '{name}'")

    def leave(self, title, key="Escape"):
        keys(key)
        report(becomes(lambda: not self.window(title)), f"{title}: {key} does not close it")

    def look_at_texts(self, window, where):
        shot = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], check=True,
                              capture_output=True).stdout
        for item, _ in everything(window):
            text = shown_text(item)
            if any(character.isalnum() for character in text) and has(item, Atspi.StateType.SENSITIVE):
                contrast = contrast_in(shot, *place(item))
                of_theme = "@" in text or "://" in text or is_selected(item)
                least = THEME_CONTRAST if of_theme else CONTRAST
                report(contrast is None or contrast >= least,
                       f"{where}: '{text}' has a contrast of {contrast or 0:.1f}")


def shown_text(item):
    """What is to be read in the item's place."""
    if item.get_role_name() in ("label", "push button", "check box"):
        return item.get_name()
    if item.get_role_name() == "text":
        return Atspi.Text.get_text(item, 0, Atspi.Text.get_character_count(item))
    return ""


def is_selected(item):
    return item.get_role_name() == "text" and Atspi.Text.get_n_selections(item) > 0


def luminance(colour):
    parts = [value / 255 for value in colour]
    linear = [part / 12.92 if part <= 0.04045 else ((part + 0.055) / 1.055) ** 2.4 for part in parts]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast_in(shot, left, top, width, height, screen=(1280, 1024)):
    """Of the ground and what stands out most from it; nothing for a place where nothing is drawn."""
    colours = collections.Counter()
    for y in range(max(top, 0), min(top + height, screen[1])):
        begin = 3 * (y * screen[0] + max(left, 0))
        row = shot[begin:begin + 3 * max(min(width, screen[0] - max(left, 0)), 0)]
        colours.update(zip(row[0::3], row[1::3], row[2::3]))
    if len(colours) < 2:
        return None
    ground = luminance(colours.most_common(1)[0][0])
    return max((max(ground, ink) + 0.05) / (min(ground, ink) + 0.05) for ink in map(luminance, colours))


def main_window(look):
    with Program(look) as program:
        window = program.look_at("Brasquelin", lists=["Jobs"])
        program.walk(window, "Brasquelin")
        for title, way in (("Add profile", ("ctrl+p",)), ("Add Function", ("ctrl+l",))):
            keys(*way)
            if dialog := program.look_at(title):
                program.walk(dialog, title)
                program.leave(title)
        for title in ("Options", "About"):
            program.choose(window, "Joblist", title)
            if dialog := program.look_at(title):
                program.walk(dialog, title)
                program.leave(title)
        keys("ctrl+f")
        program.walk(program.look_at("Brasquelin"), "Brasquelin, finding")
        keys("Escape")
        program.choose(window, "Joblist", "Profile Editor")
        editor(program)


def editor(program):
    window = program.look_at("Profile Editor", lists=["Variables", "Problems"])
    if not window:
        return
    program.walk(window, "Profile Editor")
    for name, title in (("Variables", "Add var to project"), ("Profile (Command to execute)", "Add Command")):
        program.focus(window, name)
        keys("Insert")
        if dialog := program.look_at(title):
            program.walk(dialog, title)
            program.leave(title)
    keys("F5")
    if dialog := program.look_at("Preview"):
        program.walk(dialog, "Preview")
        program.leave("Preview")
    program.leave("Profile Editor", "alt+F4")


def prompt(look):
    with Program(look, "profiles/pictures.bqp") as program:
        title = becomes(lambda: next((w.get_name() for w in program.windows() if w.get_name() != "Brasquelin"), None))
        if dialog := program.look_at(title or "prompt"):
            program.walk(dialog, title)
            program.leave(title)


def run_window(look):
    jobs = DIRECTORY / "jobs.bat"
    jobs.write_text("echo one\nfalse\n")
    with Program(look, "--run", str(jobs)) as program:
        window = program.look_at("Brasquelin", lists=["Jobs"])
        if window:
            program.walk(window, "run window")
            program.leave("Brasquelin", "ctrl+q")


def main():
    manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
    try:
        becomes(lambda: "window id" in subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"],
                                                      capture_output=True, text=True).stdout)
        for look in ("light", "dark"):
            main_window(look)
            prompt(look)
            run_window(look)
    finally:
        manager.kill()
    print(f"{counts[True]} passed, {counts[False]} failed")
    sys.exit(1 if counts[False] else 0)


main()
