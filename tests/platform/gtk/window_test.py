"""What a user sees and does in the real window. Arguments: the program, the folder of pictures."""

import functools
import http.server
import os
import pathlib
import shutil
import sys
import tempfile
import threading
import unittest

from window_driver import Program, move_to_a_screen, run, wait

PROGRAM, PICTURES = (pathlib.Path(argument) for argument in sys.argv[1:3])
MAIN = " Panelkit for FS2002 ONLY"


class WindowTest(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)
        shutil.copytree(PICTURES.parent / "demo", self.root / "prefix")
        self.aircraft = next(self.root.rglob("Aircraft"))
        self.panel = self.aircraft / "Aldwyn A-12 Trainer" / "Panel" / "panel.cfg"
        shutil.copytree(PICTURES, self.root / "app")
        shutil.copy(PROGRAM, self.root / "app")

    def start(self, **environment):
        program = Program([self.root / "app" / PROGRAM.name], env={
            **os.environ, **environment, "WINEPREFIX": str(self.root / "prefix")})
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        program.wait_for_window(MAIN)
        program.wait_for_page("We hope you find this program helpful")
        return program

    def test_keys_and_clicks_bring_each_page_also_when_the_scan_was_faster_than_the_pane(self):
        printed = (PICTURES.parent / "tests/golden/demo-probe.txt").read_text().split()
        program = self.start()
        for _ in range(5):
            program.press("alt+s")
            program.wait_for_page("Required Files")
            program.press("alt+p")
            report = program.wait_for_page("PROBE FOR MISSING GAUGES SUMMARY REPORT")
            self.assertEqual(report.split()[:len(printed)], printed)
        self.assertEqual(program.greyed(), [])
        program.click("menu item", "Clean Gauges")
        program.wait_for_page("AND ARCHIVED IN FOLDER")
        program.press("alt+o", "t")
        program.wait_for_page("ABSOLUTELY HATE")
        self.assertTrue(program.named("menu item", "Turn Parking Brake Annunciator ON"))

    def test_during_a_scan_only_exit_and_close_can_be_picked_and_end_the_program(self):
        # Together these take far longer to read than any test lasts.
        self.panel.write_text("// nothing here\n" * 1000000)
        for i in range(1000):
            (self.aircraft / f"Again {i:04}").symlink_to(self.panel.parent.parent)
        for way_out in ["alt+f", "x"], ["alt+F4"]:
            program = self.start()
            program.press("alt+p")
            wait(lambda: program.named("label", "Scanning Again *"), "the second aircraft")
            self.assertEqual(program.greyed(), [
                "Main Page", "Probe For Missing Gauges", "Show All Gauges", "Clean Gauges",
                "Other Cool Stuff", "Help"])
            program.wait_for_page("I'm Working On It")
            program.press("alt+m", "alt+h", "a", *way_out)
            self.assertEqual(program.wait(10), 0)

    def test_the_about_window_is_centred_kept_where_it_was_dragged_and_centred_anew(self):
        program = self.start()

        def middle():
            place = program.place("frame", "About Panelkit ")
            return place.x + place.width // 2, place.y + place.height // 2

        def opens_at(x, y):
            program.press("alt+h", "a")
            program.wait_for_window("About Panelkit ")
            wait(lambda: abs(middle()[0] - x) < 2 and abs(middle()[1] - y) < 2, "its place")

        opens_at(640, 512)
        run("xdotool", "getactivewindow", "windowmove", "40", "70")
        wait(lambda: middle()[0] < 600, "the move")
        dragged = middle()
        program.press("space")  # The button has the keyboard.
        program.wait_for_window(MAIN)
        opens_at(*dragged)
        program.press("alt+F4")
        program.wait_for_window(MAIN)
        opens_at(640, 512)

    def test_controls_have_their_places_at_every_resolution(self):
        long = "A folder's name that is far too long for its label" * 4
        run("sed", "-i", f"s/Program.*FS2002/{long}/", str(self.root / "prefix/system.reg"))
        places = [  # In pixels at 96 dots per inch: left, top, width, height.
            ("panel", "", 0, 0, 696, 474), ("document web", "", 8, 8, 681, 409),
            ("label", f"Flight Simulator: C:\\{long}", 8, 424, 681, 17),
            ("label", "Done", 8, 440, 361, 17),
            ("progress bar", "Progress of the scan", 376, 440, 313, 17),
            ("label", "Free software - happy landings!", 8, 456, 361, 17)]
        for scale in 1, 1.5:
            program = self.start(GDK_DPI_SCALE=str(scale))
            program.press("alt+s")
            program.wait_for_page("Required Files")
            wait(lambda: program.named("label", "Done"), "the end of the scan")
            area = program.place("panel")
            for role, name, *place in places:
                at = program.place(role, name)
                sides = (at.x - area.x, at.y - area.y, at.width, at.height)
                for side, at_96 in zip(sides, place):
                    self.assertAlmostEqual(side, at_96 * scale, delta=1, msg=name)

    def test_what_a_downloaded_panel_can_do_in_the_pane(self):
        (self.root / "page.html").write_text(
            "outside<script>document.body.append(' with scripts')</script>")
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(
            http.server.SimpleHTTPRequestHandler, directory=self.root))
        threading.Thread(target=server.serve_forever, daemon=True).start()
        web = f"http://127.0.0.1:{server.server_port}/"
        # The user's own browser writes down the address.
        asked = self.root / "asked"
        applications = pathlib.Path.home() / ".local" / "share" / "applications"
        applications.mkdir(parents=True)
        (applications / "browser.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Browser\n"
            f"Exec=sh -c 'echo \"$1\" >{asked}' sh %u\n")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/http=browser.desktop\n")
        self.panel.write_text(
            "[Window Titles]\nWindow00=<script>document.write('SCRIPT')</script>"
            "<img src=x onerror=document.write('SCRIPT')>"
            f"<a href='file://{self.root}/page.html'>local</a> <a href='{web}page.html'>web</a>"
            f"<a href='{web}aside' target='_new'>aside</a>\n\ngauge=Bomb,1\n")
        program = self.start()
        program.press("alt+p")
        report = program.wait_for_page("SUMMARY REPORT")
        program.click("link", "local")
        program.click("link", "aside")
        self.assertEqual(wait(lambda: asked.exists() and asked.read_text(), "the user's browser"),
                         web + "aside\n")
        self.assertEqual(program.pane(), report)
        program.click("link", "web")
        program.wait_for_page("outside with scripts")
        program.click("document web", button=3)
        wait(lambda: program.named("menu item", "Print"), "Print in the context menu")
        program.click("menu item", "Back")
        self.assertEqual(program.wait_for_page("SUMMARY REPORT"), report)
        self.assertNotIn("SCRIPT", report)

    def test_what_cannot_run_says_so_in_one_line(self):
        for call in f"'{PROGRAM}' --help", f"DISPLAY= '{PROGRAM}'":
            self.assertRegex(run("sh", "-c", call + " 2>&1; echo $?"), r"\A.+\n2\n\Z")


if __name__ == "__main__":
    move_to_a_screen()
    unittest.main(argv=sys.argv[:1], verbosity=2, warnings="ignore")
