"""What the pane shows and fetches, and the strip below it, in the real window."""

import functools
import http.server
import pathlib
import shutil
import socket
import subprocess
import sys
import threading

from window_case import PICTURES, WindowCase, run_tests, words
from window_driver import run, wait


# A window from which its argument, an address, can be dragged.
DRAG_SOURCE = """
import sys
import gi
gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk
window = Gtk.Window(title="Drag from here", default_width=120, default_height=120)
box = Gtk.EventBox()
box.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY)
box.drag_source_add_uri_targets()
box.connect("drag-data-get", lambda box, context, data, *_: data.set_uris(sys.argv[1:]))
window.add(box)
window.show_all()
Gtk.main()
"""


class PaneTest(WindowCase):
    def test_the_strip_leads_from_missing_gauges_to_installed_ones_and_back(self):
        downloads = pathlib.Path.home() / "Downloads"
        (self.root / "prefix" / "drive_c" / "Downloads").rename(downloads)
        self.addCleanup(shutil.rmtree, downloads)
        program = self.start()
        whole = program.place("panel", "Report")
        program.press("alt+p")
        program.wait_for_page("There are 13 Required Files")
        strip = "info bar", "13 required files are missing."
        wait(lambda: program.named(*strip), "the strip")
        bar = program.place(*strip)
        self.assertEqual((bar.x, bar.width), (whole.x, whole.width))
        self.assertEqual(bar.y + bar.height, whole.y + whole.height)
        program.press("Next", "Home")  # The page still has the keyboard.
        program.press("alt+y")
        program.wait_for_page("WHY GAUGES ARE MISSING")
        program.press("alt+l")
        wait(lambda: program.named("file chooser", "Look for*"), "the chooser")
        wait(lambda: program.named("table cell", "old drive"), "the folder of downloads in it")
        program.click("push button", "Open")
        program.wait_for_page("SEARCH FOR MISSING GAUGES")
        wait(lambda: program.named("info bar", "9 of the 13 can be copied to Gauges."), "the offer")
        program.click("push button", "Install Them")
        program.wait_for_page("GAUGES COPIED")
        program.press("alt+p")
        program.wait_for_page("There are 4 Required Files")
        wait(lambda: program.named("info bar", "4 required files*"), "the strip")
        wait(lambda: program.press("Tab") or program.has_focus("push button", "Why?"),
             "the keyboard in the strip")
        program.press("Escape")
        wait(lambda: program.has_gone("info bar"), "the whole pane")
        self.assertFalse(program.greyed())

    def test_a_folder_dragged_onto_the_page_is_searched_and_the_pane_does_not_go_there(self):
        program = self.start()
        folder = self.root / "prefix" / "drive_c" / "Downloads"
        source = subprocess.Popen([sys.executable, "-c", DRAG_SOURCE, folder.as_uri()])
        self.addCleanup(source.wait)
        self.addCleanup(source.kill)
        wait(lambda: run("xdotool", "search", "--name", "^Drag from here$"), "the other window")
        run("xdotool", "search", "--name", "^Drag from here$", "windowmove", "--sync", "0", "0")
        page = program.place("document web")
        self.assertGreater(page.x, 150)  # Beside the other window.
        run("xdotool", "mousemove", "60", "60", "mousedown", "1")
        for step in range(1, 11):
            run("xdotool", "mousemove", str(60 + (page.x + 100 - 60) * step // 10),
                str(60 + (page.y + 100 - 60) * step // 10))
        run("xdotool", "mouseup", "1")
        program.wait_for_page("SEARCH FOR MISSING GAUGES")
        wait(lambda: program.named("info bar", "9 of the 13 can be copied to Gauges."), "the offer")
        self.assertIn("SEARCH FOR MISSING GAUGES", program.pane())

    def serve(self):
        """A site that redirects /site and then refreshes to a page with scripts."""
        (self.root / "site").mkdir()
        (self.root / "site" / "index.html").write_text(
            "<meta http-equiv=refresh content='0;url=/page.html'>")
        (self.root / "page.html").write_text(
            "outside<script>document.body.append(' with scripts')</script>")
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(
            http.server.SimpleHTTPRequestHandler, directory=self.root))
        threading.Thread(target=server.serve_forever, daemon=True).start()
        return f"http://127.0.0.1:{server.server_port}/"

    def users_browser(self):
        """Makes a browser the user's own, and gives the file in which it writes what it opens."""
        asked = self.root / "asked"
        asked.touch()
        applications = pathlib.Path.home() / ".local" / "share" / "applications"
        applications.mkdir(parents=True)
        self.addCleanup(shutil.rmtree, applications)
        (applications / "browser.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Browser\n"
            f"Exec=sh -c 'echo \"$1\" >>{asked}' sh %u\n")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/http=browser.desktop\n")
        return asked

    def test_a_downloaded_panel_loads_nothing_and_is_left_only_by_a_click(self):
        trap = socket.create_server(("127.0.0.1", 0))
        evil, web = f"http://127.0.0.1:{trap.getsockname()[1]}/", self.serve()
        asked = self.users_browser()
        self.panel.write_text(
            f"[Window Titles]\nWindow00=<a href='file://{self.root}/page.html'>local</a>"
            f"<a href='{web}site'>web</a> <a href='{web}aside' target='_new'>aside</a>"
            "<a href='https://www.panelkit.example' target='_new'>secure</a>"
            f"<meta http-equiv=refresh content='0;url={evil}'><base href={evil}>"
            "<script>document.write('SCRIPT')</script><img src=x onerror=document.write('SCRIPT')>"
            f"<img src={evil}><iframe src={evil}></iframe><link rel=stylesheet href={evil}>"
            f"<style>@import url({evil}); b {{ background: url({evil}) }}</style><b>b</b>"
            f"<video src={evil} poster={evil} autoplay></video><object data={evil}></object>"
            f"<embed src={evil}><iframe srcdoc='<img src={evil}>'></iframe><link rel=icon href={evil}>"
            f"<link rel=preconnect href={evil}><link rel=prefetch href={evil}>"
            f"<link rel=preload as=image href={evil}><form action={evil}><input type=image src={evil}>"
            f"</form><svg width=1><image href={evil} /></svg>\n\ngauge=Bomb,1\n")
        program = self.start(LANGUAGE="de")
        program.press("alt+p")
        report = program.wait_for_page("SUMMARY REPORT")
        program.click("link", "local")
        program.click("link", "aside")
        wait(lambda: asked.read_text() == f"{web}aside\n", "the user's browser")
        program.click("link", "aside", button=3)
        wait(lambda: program.named("menu item", "Drucken"), "a menu in the user's language")
        program.click("menu item", "Verweis *ffnen")
        wait(lambda: asked.read_text() == f"{web}aside\n" * 2, "the user's browser, by the menu")
        program.click("link", "secure")  # No program opens such addresses.
        wait(lambda: program.named("label", "The link could not be opened*"), "the complaint")
        self.assertEqual(words(program.pane()), words(report))
        program.click("link", "web")
        program.wait_for_page("outside with scripts")
        program.click("document web", button=3)
        wait(lambda: program.can_pick("Zur*ck"), "the way back")
        program.press("Escape")
        program.press("alt+Left")
        self.assertEqual(words(program.wait_for_page("SUMMARY REPORT")), words(report))
        self.assertNotIn("SCRIPT", report)
        trap.setblocking(False)
        self.assertRaises(BlockingIOError, trap.accept)

    def test_the_pane_always_shows_a_page_and_finds_the_pictures(self):
        share = self.root / "share" / "panelkit"  # As in an installed program.
        share.mkdir(parents=True)
        for picture in PICTURES.glob("*.gif"):
            (self.root / "app" / picture.name).rename(share / picture.name)
        program = self.start()
        program.press("alt+o", "k")
        program.wait_for_page("This page could not be shown")
        wait(lambda: program.place("link", "Back to *").width, "the way back")
        program.click("link", "Back to *")
        program.wait_for_page("We hope you find this program helpful")
        run("pkill", "-P", str(program.pid), "WebKitWeb")
        program.wait_for_page("The page has broken its viewer")
        self.start(XDG_DATA_HOME="/dev/null")  # No place for a page file.


if __name__ == "__main__":
    run_tests()
