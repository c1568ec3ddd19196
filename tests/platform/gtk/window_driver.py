"""Drives the real program on a screen of its own: keys go in as a user's would, and what an
assistive program reads comes out."""

import os
import subprocess
import sys
import tempfile
import time
from fnmatch import fnmatchcase

import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def wait(condition, what):
    """Waits until `condition` gives something true, and gives it back."""
    end = time.monotonic() + 120
    while time.monotonic() < end:
        try:
            if found := condition():
                return found
        except (GLib.Error, AttributeError, StopIteration):  # A widget that went away meanwhile.
            pass
        time.sleep(0.02)
    raise AssertionError("waited in vain: " + what)


def move_to_a_screen():
    """Goes on in a process with a home, an X screen and a session bus of its own."""
    if "PANELKIT_TEST_SESSION" in os.environ:
        subprocess.Popen(["openbox"])  # The window manager ends with the screen.
        wait(lambda: run("xdotool", "get_desktop"), "openbox")
        return
    with tempfile.TemporaryDirectory() as home, subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-noreset", "-screen", "0", "1280x1024x24"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True) as server:
        environment = {
            "PANELKIT_TEST_SESSION": "1", "PATH": os.environ["PATH"], "LANG": "C.UTF-8",
            "HOME": home, "XDG_RUNTIME_DIR": home, "GSETTINGS_BACKEND": "memory",
            "DISPLAY": ":" + server.stdout.readline().strip()}
        status = subprocess.call(["dbus-run-session", "--", sys.executable, "-B", *sys.argv],
                                 env=environment)
        server.terminate()
    sys.exit(status)


def children(top):
    return filter(None, map(top.get_child_at_index, range(top.get_child_count())))


def below(top):
    """`top` and all accessible objects in it, in the order of the window."""
    yield top
    for child in children(top):
        yield from below(child)


class Program(subprocess.Popen):
    """The running program."""

    def named(self, role, name=""):
        """The first with this name, which may have "*" in it."""
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        return next(here for top in children(desktop) if top.get_process_id() == self.pid
                    for here in below(top)
                    if here.get_role_name() == role and fnmatchcase(here.get_name(), name))

    def has_gone(self, role):
        """Whether nothing of this role is on the screen."""
        try:
            return not self.named(role, "*").get_state_set().contains(Atspi.StateType.SHOWING)
        except StopIteration:
            return True

    def place(self, role, name=""):
        """In pixels of the screen."""
        return Atspi.Component.get_extents(self.named(role, name), Atspi.CoordType.SCREEN)

    def wait_for_window(self, title):
        """Waits until that window has the keyboard, as one that the user opened should."""
        wait(lambda: self.named("frame", title).get_state_set().contains(Atspi.StateType.ACTIVE),
             f"the window {title!r} with the keyboard")

    def press(self, *keys):
        run("xdotool", "key", *keys)

    def click(self, role, name="", button=1):
        place = self.place(role, name)
        Atspi.generate_mouse_event(place.x + place.width // 2, place.y + place.height // 2,
                                   f"b{button}c")

    def greyed(self):
        """The names of the bar's items that cannot be picked."""
        return [item.get_name() for item in below(self.named("menu bar"))
                if not item.get_state_set().contains(Atspi.StateType.SENSITIVE)]

    def can_pick(self, item):
        return self.named("menu item", item).get_state_set().contains(Atspi.StateType.SENSITIVE)

    def access_keys(self):
        """Caption and path of access keys of each menu item: {"Exit Program": "f:x"}."""
        return {item.get_name(): Atspi.Action.get_key_binding(item, 0).split(";")[1]
                .replace("<Alt>", "") for item in below(self.named("menu bar"))
                if item.get_name()}

    def picture(self, role="image", name=""):
        """Width and height of a picture that has been loaded."""
        size = Atspi.Image.get_image_size(self.named(role, name))
        return size.x, size.y

    def text(self, role, name=""):
        return Atspi.Text.get_text(self.named(role, name), 0, -1)

    def font(self, role, name=""):
        return Atspi.Text.get_default_attributes(self.named(role, name))["family-name"]

    def has_focus(self, role, name=""):
        return self.named(role, name).get_state_set().contains(Atspi.StateType.FOCUSED)

    def pane(self):
        """The text of the page that the pane shows."""
        return "\n".join(Atspi.Text.get_text(here, 0, -1)
                         for here in below(self.named("document web"))
                         if "Text" in here.get_interfaces())

    def wait_for_page(self, text):
        return wait(lambda: text in self.pane() and self.pane(), f"the page with {text!r}")
