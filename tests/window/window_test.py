"""What a user sees and does in the real window. Arguments: the program, the folder of pictures."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from window_driver import Program, Simulator, children, extents, run, run_on_a_screen, wait

ALL_BUT_FILE = ["Main Page", "Probe For Missing Gauges", "Show All Gauges", "Clean Gauges",
                "Other Cool Stuff", "Help"]
WELCOME = "We hope you find this program helpful"
ABOUT = "About Panelkit "
PROGRAM, PICTURES = (pathlib.Path(argument) for argument in sys.argv[1:3])


class WindowTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.simulator = Simulator(self.root)

    def start(self, **environment):
        program = Program(PROGRAM, PICTURES, self.root, self.simulator, **environment)
        self.addCleanup(program.close)
        return program

    def test_keys_and_clicks_bring_each_page_also_when_the_scan_was_faster_than_the_pane(self):
        self.simulator.add_aircraft(
            "Cub", "[Window Titles]\nWindow00=Main\n\ngauge=Altimeter,1\ngauge=Clock,1\n")
        (self.simulator.folder / "Gauges" / "Altimeter.gau").touch()
        config = self.simulator.folder / "fs2002.cfg"
        config.write_bytes(b"show_brake_message=1\r\n")
        program = self.start()
        program.wait_for_page(WELCOME)
        for _ in range(5):
            program.press("alt+p")
            self.assertNotIn("Altimeter", program.wait_for_page("PROBE FOR MISSING GAUGES"))
            program.press("alt+s")
            self.assertIn("Altimeter", program.wait_for_page("Clock *** MISSING ***"))
        self.assertEqual(program.labels()[:2], ["Flight Simulator: C:\\FS2002", "Done"])
        self.assertEqual(program.greyed(), [])
        program.click("menu item", "Clean Gauges")
        program.wait_for_page("AND ARCHIVED IN FOLDER")
        self.assertTrue(program.named("menu item", "Turn Parking Brake Annunciator OFF"))
        program.press("alt+o", "t")
        program.wait_for_page("ABSOLUTELY HATE")
        self.assertTrue(program.named("menu item", "Turn Parking Brake Annunciator ON"))
        self.assertIn(b"show_brake_message=0\r\n", config.read_bytes())

    def test_during_a_scan_only_exit_and_close_can_be_picked_and_end_everything(self):
        self.simulator.add_endless_aircraft()
        for way_out in ["alt+f", "x"], ["alt+F4"]:
            program = self.start()
            program.wait_for_page(WELCOME)
            pid = program.process.pid
            helpers = run("cat", f"/proc/{pid}/task/{pid}/children").split()
            self.assertNotEqual(helpers, [])
            program.press("alt+p")
            wait(lambda: program.greyed() == ALL_BUT_FILE, "the Busy state")
            program.wait_for_page("I'm Working On It")
            wait(lambda: program.labels()[1] > "Scanning Heavy 0000", "the second aircraft")
            program.press("alt+m", "alt+h", "a", *way_out)
            self.assertEqual(program.process.wait(10), 0)
            wait(lambda: not any(os.path.exists(f"/proc/{helper}/exe") for helper in helpers),
                 "the end of the pane's processes")

    def test_the_about_window_is_centred_kept_where_it_was_dragged_and_centred_anew(self):
        program = self.start()

        def open_about():
            program.press_in_the_main_window("alt+h", "a")
            return program.wait_for_window(ABOUT)

        def close_about(key):
            program.press(key)
            wait(lambda: not program.window_titled(ABOUT), "its going away")

        def place():
            return extents(wait(lambda: program.named("frame", ABOUT), "its frame"))

        def is_centred():
            here = place()
            return (abs(2 * here.x + here.width - 1280) <= 2
                    and abs(2 * here.y + here.height - 1024) <= 2)

        window = open_about()
        wait(is_centred, "the window in the centre")
        run("xdotool", "windowmove", window, "40", "70")
        wait(lambda: not is_centred(), "the move")
        dragged = (place().x, place().y)
        close_about("space")  # The button has the keyboard.
        self.assertEqual(open_about(), window)
        wait(lambda: (place().x, place().y) == dragged, "its return to where it was dragged")
        close_about("alt+F4")
        open_about()
        wait(is_centred, "the window in the centre again")
        program.press_in_the_main_window("alt+F4")
        self.assertEqual(program.process.wait(10), 0)

    def test_controls_have_their_places_at_every_resolution(self):
        long_name = "A folder's name that is far too long for its label" * 4
        self.simulator = Simulator(self.root / "long", long_name)
        places = {  # In pixels at 96 dots per inch: left, top, width, height.
            "Report": (8, 8, 681, 409),
            "Flight Simulator: C:\\" + long_name: (8, 424, 681, 17), "Done": (8, 440, 361, 17),
            "Progress of the scan": (376, 440, 313, 17),
            "Free software - happy landings!": (8, 456, 361, 17)}
        for scale in 1, 1.5:
            program = self.start(GDK_DPI_SCALE=str(scale))
            program.press("alt+s")
            program.wait_for_page("Required Files")
            area = wait(lambda: program.named("panel"), "the client area")
            frame = extents(area)
            found = {control.get_name(): extents(control) for control in children(area)}
            found["Report"] = extents(program.named("document web"))
            self.assertEqual((frame.width, frame.height), (int(696 * scale), int(474 * scale)))
            for name, place in places.items():
                at = found[name]
                sides = (at.x - frame.x, at.y - frame.y, at.width, at.height)
                for side, at_96 in zip(sides, place):
                    self.assertAlmostEqual(side, at_96 * scale, delta=1, msg=name)
            program.close()

    def test_what_a_downloaded_panel_can_do_in_the_pane(self):
        (self.root / "page.html").write_text(
            "outside<script>document.body.append(' with scripts')</script>")
        asked = self.root / "asked"
        self.use_browser_that_writes_its_address_to(asked)
        web = self.serve(self.root)
        self.simulator.add_aircraft("Trojan", (
            "[Window Titles]\nWindow00=<script>document.write('SCRIPT')</script>"
            "<img src=x onerror=document.write('SCRIPT')>"
            f"<a href='file://{self.root}/page.html'>local</a> <a href='{web}page.html'>web</a>"
            f"<a href='{web}aside' target='_new'>aside</a>\n\ngauge=Bomb,1\n"))
        program = self.start()
        program.press("alt+p")
        report = program.wait_for_page("Bomb *** MISSING ***")
        program.click("link", "local")
        program.click("link", "aside")
        self.assertEqual(wait(lambda: asked.exists() and asked.read_text(), "the user's browser"),
                         web + "aside\n")
        self.assertEqual(program.pane(), report)
        program.click("link", "web")
        program.wait_for_page("outside with scripts")
        program.click("document web", button="3")
        wait(lambda: program.named("menu item", "Print"), "Print in the context menu")
        program.click("menu item", "Back")
        self.assertEqual(program.wait_for_page("Bomb *** MISSING ***"), report)
        self.assertNotIn("SCRIPT", report)

    def use_browser_that_writes_its_address_to(self, file):
        applications = pathlib.Path.home() / ".local" / "share" / "applications"
        applications.mkdir(parents=True)
        (applications / "browser.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Browser\n"
            f"Exec=sh -c 'echo \"$1\" >{file}' sh %u\nMimeType=x-scheme-handler/http;\n")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/http=browser.desktop\n")

    def serve(self, folder):
        """The web's address of the folder's files."""
        server = subprocess.Popen(
            [sys.executable, "-u", "-m", "http.server", "--bind", "127.0.0.1", "0"], cwd=folder,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(server.communicate)
        self.addCleanup(server.terminate)
        return server.stdout.readline().split("(")[1].split(")")[0]

    def test_what_cannot_run_says_so_in_one_line(self):
        for arguments, environment in (["--help"], {}), ([], {"DISPLAY": ""}):
            result = subprocess.run([PROGRAM, *arguments], env={**os.environ, **environment},
                                    capture_output=True, text=True, check=False)
            self.assertEqual((result.returncode, result.stdout), (2, ""))
            self.assertEqual(result.stderr.count("\n"), 1, result.stderr)


if __name__ == "__main__":
    run_on_a_screen(lambda: unittest.main(argv=sys.argv[:1], exit=False, verbosity=2,
                                          warnings="ignore").result.wasSuccessful())
