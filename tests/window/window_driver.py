"""Drives the real program on a screen of its own: keys go in as a user's would, and what an
assistive program reads comes out."""

import os
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
TOOLS = ["Xvfb", "openbox", "xdotool", "xprop", "dbus-run-session"]


def open_session():
    """Moves this process onto an X screen and a session bus of its own; skips where they are
    missing."""
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    try:
        import gi
        gi.require_version("Atspi", "2.0")
    except (ImportError, ValueError):
        missing.append("the AT-SPI bindings of Python")
    if missing:
        print("skipped: missing " + ", ".join(missing))
        sys.exit(SKIPPED)
    if "PANELKIT_TEST_SESSION" not in os.environ:
        home = tempfile.mkdtemp(prefix="panelkit-window-")
        environment = dict(os.environ, PANELKIT_TEST_SESSION=home, HOME=home, XDG_RUNTIME_DIR=home,
                           XDG_CONFIG_HOME=home + "/config", XDG_DATA_HOME=home + "/share",
                           GSETTINGS_BACKEND="memory", GDK_BACKEND="x11")
        for name in ("NO_AT_BRIDGE", "WAYLAND_DISPLAY", "GTK_THEME", "GDK_SCALE", "GDK_DPI_SCALE"):
            environment.pop(name, None)
        result = subprocess.run(["dbus-run-session", "--", sys.executable, *sys.argv],
                                env=environment, check=False)
        shutil.rmtree(home, ignore_errors=True)
        sys.exit(result.returncode)
    return Screen()


def wait(condition, what, seconds=30):
    """Waits until `condition` gives something true, and gives it back."""
    from gi.repository import GLib
    end = time.monotonic() + seconds
    while True:
        try:
            found = condition()
        except (GLib.Error, AttributeError, StopIteration):  # A widget that went away while we looked.
            found = None
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError("waited in vain: " + what)
        time.sleep(0.02)


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def is_running(process):
    try:
        with open(f"/proc/{process}/stat", encoding="ascii") as stat:
            return stat.read().rsplit(")", 1)[1].split()[0] != "Z"
    except FileNotFoundError:
        return False


def extents(accessible):
    """Place on the screen, in pixels."""
    from gi.repository import Atspi
    return Atspi.Component.get_extents(accessible, Atspi.CoordType.SCREEN)


class Screen:
    """An X server with a window manager."""

    def __init__(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-noreset", "-screen", "0", "1280x1024x24"],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()
        self.manager = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        wait(lambda: "window id" in run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "openbox")

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


class Simulator:
    """A Wine prefix with a made-up simulator in the folder `name` of its drive C."""

    def __init__(self, root, name="FS2002"):
        self.prefix = root / "prefix"
        self.folder = self.prefix / "drive_c" / name
        for folder in ("Aircraft", "Gauges"):
            (self.folder / folder).mkdir(parents=True)
        (self.prefix / "dosdevices").mkdir()
        (self.prefix / "dosdevices" / "c:").symlink_to("../drive_c")
        (self.prefix / "system.reg").write_text(
            "WINE REGISTRY Version 2\n\n#arch=win32\n\n"
            "[Software\\\\Microsoft\\\\DirectPlay\\\\Applications\\\\Flight Simulator] 1\n"
            f'"Path"="C:\\\\{name}"\n')

    def _panel_of(self, aircraft):
        panel = self.folder / "Aircraft" / aircraft / "Panel" / "panel.cfg"
        panel.parent.mkdir(parents=True)
        return panel

    def add_aircraft(self, name, *gauges, title="Main Panel"):
        lines = ["[Window Titles]", "Window00=" + title, "", "[Window00]"]
        lines += [f"gauge{i:02}={gauge},1,2" for i, gauge in enumerate(gauges)]
        self._panel_of(name).write_bytes("\r\n".join(lines + [""]).encode("cp1252"))

    def add_gauge(self, name):
        (self.folder / "Gauges" / name).write_bytes(b"gauge")

    def add_endless_aircraft(self):
        """Aircraft whose panels together take far longer to read than any test lasts."""
        long_panel = self.folder / "long"
        long_panel.write_bytes(b"// nothing here\r\n" * 1000000)
        for i in range(1000):
            self._panel_of(f"Heavy {i:04}").hardlink_to(long_panel)


class Program:
    """The running program, started from a folder of its own."""

    def __init__(self, executable, pictures, root, simulator, **environment):
        self.folder = root / "Program"
        self.folder.mkdir(exist_ok=True)
        shutil.copy(executable, self.folder / "panelkit")
        for picture in pictures.glob("*.gif"):
            shutil.copy(picture, self.folder)
        self.process = subprocess.Popen(
            [self.folder / "panelkit"],
            env=dict(os.environ, WINEPREFIX=str(simulator.prefix), **environment))
        self.application = wait(self._find_application, "the program among the accessible ones")
        self.window = self.wait_for_window(" Panelkit for FS2002 ONLY")

    def _find_application(self):
        from gi.repository import Atspi
        assert self.process.poll() is None, "the program has ended by itself"
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application is not None and application.get_process_id() == self.process.pid:
                return application
        return None

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()

    def activate(self):
        """Makes the main window the one that keys go to."""
        run("xdotool", "windowactivate", "--sync", self.window)

    def wait_for_window(self, title):
        """Waits until that window has the keyboard, as one that the user opened should."""
        return wait(lambda: self.window_titled(title) == run("xdotool", "getactivewindow").strip()
                    and self.window_titled(title), f"the window {title!r} with the keyboard")

    def window_titled(self, title):
        """The X window on the screen with exactly this title."""
        windows = run("xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid),
                      "--name", title.strip()).split()
        for window in windows:
            if f'_NET_WM_NAME(UTF8_STRING) = "{title}"' in run("xprop", "-id", window,
                                                               "_NET_WM_NAME"):
                return window
        return None

    def children(self):
        """Ids of the processes that the program has started."""
        me = self.process.pid
        with open(f"/proc/{me}/task/{me}/children", encoding="ascii") as children:
            return children.read().split()

    def press(self, *keys):
        run("xdotool", "key", *keys)

    def everything(self):
        """All accessible objects of the program, menus first."""
        self.application.clear_cache()
        waiting = [self.application]
        while waiting:
            here = waiting.pop()
            yield here
            children = [here.get_child_at_index(i) for i in range(here.get_child_count())]
            waiting.extend(child for child in reversed(children) if child is not None)

    def named(self, role, name):
        return next((here for here in self.everything()
                     if here.get_role_name() == role and here.get_name() == name), None)

    def click(self, accessible, button="1"):
        place = extents(accessible)
        run("xdotool", "mousemove", str(place.x + place.width // 2),
            str(place.y + place.height // 2), "click", button)

    def greyed(self):
        """The names of the bar's items that cannot be picked."""
        from gi.repository import Atspi
        bar = next(here for here in self.everything() if here.get_role_name() == "menu bar")
        items = [bar.get_child_at_index(i) for i in range(bar.get_child_count())]
        return [item.get_name() for item in items
                if not item.get_state_set().contains(Atspi.StateType.SENSITIVE)]

    def labels(self):
        return [here.get_name() for here in self.everything() if here.get_role_name() == "label"]

    def pane(self):
        """The text of the page that the pane shows."""
        from gi.repository import Atspi
        document = next(here for here in self.everything()
                        if here.get_role_name() == "document web")
        texts, waiting = [], [document]
        while waiting:
            here = waiting.pop()
            if "Text" in here.get_interfaces():
                texts.append(Atspi.Text.get_text(here, 0, -1))
            waiting.extend(here.get_child_at_index(i) for i in range(here.get_child_count()))
        return "\n".join(texts)

    def wait_for_page(self, text):
        return wait(lambda: text in self.pane() and self.pane(), f"the page with {text!r}")
