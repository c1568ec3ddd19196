"""Drives the real program on a screen of its own: keys go in as a user's would, and what an
assistive program reads comes out."""

import os
import shutil
import subprocess
import sys
import tempfile
import time

try:
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
except (ImportError, ValueError):
    Atspi = None

SKIPPED = 77  # As CTest is told.
TOOLS = ["Xvfb", "openbox", "xdotool", "xprop", "dbus-run-session"]


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def wait(condition, what, seconds=30):
    """Waits until `condition` gives something true, and gives it back."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            if found := condition():
                return found
        except (GLib.Error, AttributeError, StopIteration):  # A widget that went away meanwhile.
            pass
        time.sleep(0.02)
    raise AssertionError("waited in vain: " + what)


def run_on_a_screen(tests):
    """Runs `tests` on an X screen and a session bus of their own and ends the process; skips where
    the tools are missing."""
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if missing or Atspi is None:
        print("skipped: missing", *missing, *([] if Atspi else ["the AT-SPI bindings of Python"]))
        sys.exit(SKIPPED)
    if "PANELKIT_TEST_SESSION" in os.environ:
        # The window manager ends with the screen.
        subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait(lambda: "window id" in run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "openbox")
        sys.exit(0 if tests() else 1)
    with tempfile.TemporaryDirectory() as home:
        reading, writing = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-noreset", "-screen", "0", "1280x1024x24"],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as number:
            display = ":" + number.readline().strip()
        kept = {name: value for name, value in os.environ.items()
                if not name.startswith(("XDG_", "GDK_", "GTK_", "NO_AT_"))}
        environment = dict(kept, PANELKIT_TEST_SESSION="1", DISPLAY=display, HOME=home,
                           XDG_RUNTIME_DIR=home, GSETTINGS_BACKEND="memory", GDK_BACKEND="x11")
        status = subprocess.run(["dbus-run-session", "--", sys.executable, "-B", *sys.argv],
                                env=environment, check=False).returncode
        server.terminate()
        server.wait()
    sys.exit(status)


def extents(accessible):
    """Place on the screen, in pixels."""
    return Atspi.Component.get_extents(accessible, Atspi.CoordType.SCREEN)


def children(accessible):
    found = [accessible.get_child_at_index(i) for i in range(accessible.get_child_count())]
    return [child for child in found if child]


class Simulator:
    """A Wine prefix with a made-up simulator in the folder `name` of its drive C."""

    def __init__(self, root, name="FS2002"):
        self.prefix = root / "prefix"
        self.folder = self.prefix / "drive_c" / name
        for folder in ("Aircraft", "Gauges"):
            (self.folder / folder).mkdir(parents=True)
        (self.prefix / "system.reg").write_text(
            "WINE REGISTRY Version 2\n\n"
            "[Software\\\\Microsoft\\\\DirectPlay\\\\Applications\\\\Flight Simulator] 1\n"
            f'"Path"="C:\\\\{name}"\n')

    def add_aircraft(self, name, panel):
        file = self.folder / "Aircraft" / name / "Panel" / "panel.cfg"
        file.parent.mkdir(parents=True)
        file.write_text(panel, newline="\r\n")

    def add_endless_aircraft(self):
        """Aircraft whose panels together take far longer to read than any test lasts."""
        self.add_aircraft("Heavy", "// nothing here\n" * 1000000)
        for i in range(1000):
            (self.folder / "Aircraft" / f"Heavy {i:04}").symlink_to("Heavy")


class Program:
    """The running program, started from a folder of its own."""

    def __init__(self, executable, pictures, root, simulator, **environment):
        folder = root / "Program"
        folder.mkdir(exist_ok=True)
        for file in [executable, *pictures.glob("*.gif")]:
            shutil.copy(file, folder)
        self.process = subprocess.Popen(
            [folder / executable.name],
            env=dict(os.environ, WINEPREFIX=str(simulator.prefix), **environment))
        self.application = wait(self._find_application, "the program among the accessible ones")
        self.window = self.wait_for_window(" Panelkit for FS2002 ONLY")

    def _find_application(self):
        assert self.process.poll() is None, "the program has ended by itself"
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        return next(application for application in children(desktop)
                    if application.get_process_id() == self.process.pid)

    def close(self):
        self.process.kill()
        self.process.wait()

    def window_titled(self, title):
        """The X window on the screen with exactly this title."""
        windows = run("xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid),
                      "--name", title.strip()).split()
        return next((window for window in windows
                     if f'= "{title}"' in run("xprop", "-id", window, "_NET_WM_NAME")), None)

    def wait_for_window(self, title):
        """Waits until that window has the keyboard, as one that the user opened should."""
        return wait(lambda: self.window_titled(title) == run("xdotool", "getactivewindow").strip()
                    and self.window_titled(title), f"the window {title!r} with the keyboard")

    def press(self, *keys):
        run("xdotool", "key", *keys)

    def press_in_the_main_window(self, *keys):
        run("xdotool", "windowactivate", "--sync", self.window, "key", *keys)

    def click(self, role, name="", button="1"):
        place = extents(self.named(role, name))
        run("xdotool", "mousemove", str(place.x + place.width // 2),
            str(place.y + place.height // 2), "click", button)

    def everything(self, top=None):
        """All accessible objects below `top`, in the order of the window."""
        self.application.clear_cache()
        waiting = [top or self.application]
        while waiting:
            here = waiting.pop()
            yield here
            waiting.extend(reversed(children(here)))

    def with_role(self, role):
        return [here for here in self.everything() if here.get_role_name() == role]

    def named(self, role, name=""):
        return next(here for here in self.with_role(role) if here.get_name() == name)

    def greyed(self):
        """The names of the bar's items that cannot be picked."""
        return [item.get_name() for item in children(self.with_role("menu bar")[0])
                if not item.get_state_set().contains(Atspi.StateType.SENSITIVE)]

    def labels(self):
        return [label.get_name() for label in self.with_role("label")]

    def pane(self):
        """The text of the page that the pane shows."""
        return "\n".join(Atspi.Text.get_text(here, 0, -1)
                         for page in self.with_role("document web")[:1]
                         for here in self.everything(page) if "Text" in here.get_interfaces())

    def wait_for_page(self, text):
        return wait(lambda: text in self.pane() and self.pane(), f"the page with {text!r}")
