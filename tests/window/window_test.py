"""What a user sees and does in the real window. Arguments: the program, the folder of pictures."""

import http.server
import os
import pathlib
import subprocess
import sys
import tempfile
import threading
import unittest

from window_driver import Program, Simulator, extents, run, run_on_a_screen, wait

ALL_BUT_FILE = ["Main Page", "Probe For Missing Gauges", "Show All Gauges", "Clean Gauges",
                "Other Cool Stuff", "Help"]
NO_SIMULATOR = "Cannot Find FS2002"
WELCOME = "We hope you find this program helpful"
PROGRAM, PICTURES = (pathlib.Path(argument) for argument in sys.argv[1:3])


class WindowTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.simulator = Simulator(self.root)
        self.simulator.add_aircraft("Cub", "Altimeter", "Clock")
        (self.simulator.folder / "Gauges" / "Altimeter.gau").touch()

    def start(self, **environment):
        program = Program(PROGRAM, PICTURES, self.root, self.simulator, **environment)
        self.addCleanup(program.close)
        return program

    def test_without_a_simulator_the_commands_are_out_of_reach(self):
        (self.simulator.prefix / "system.reg").write_text("WINE REGISTRY Version 2\n")
        program = self.start()
        program.wait_for_page(NO_SIMULATOR)
        gone = ["Probe For Missing Gauges", "Show All Gauges", "Clean Gauges", "Other Cool Stuff"]
        self.assertEqual(program.greyed(), gone)
        program.press("alt+p", "alt+o", "k", "alt+m")
        program.wait_for_page(WELCOME)
        self.assertNotIn(NO_SIMULATOR, program.pane())
        self.assertEqual(program.greyed(), gone)

    def test_a_report_stands_in_the_pane_also_when_the_scan_was_faster_than_the_pane(self):
        program = self.start()
        program.wait_for_page(WELCOME)
        for _ in range(5):
            program.press("alt+p")
            self.assertNotIn("Altimeter", program.wait_for_page("PROBE FOR MISSING GAUGES"))
            program.press("alt+s")
            self.assertIn("Altimeter", program.wait_for_page("ALL GAUGES"))
        self.assertEqual(program.labels()[:2], ["Flight Simulator: C:\\FS2002", "Done"])
        self.assertEqual(program.greyed(), [])

    def test_a_click_on_a_bar_item_without_entries_acts_at_once(self):
        program = self.start()
        program.click(program.named("menu item", "Show All Gauges"))
        program.wait_for_page("Clock *** MISSING ***")
        program.click(program.named("menu item", "Clean Gauges"))
        program.wait_for_page("AND ARCHIVED IN FOLDER")

    def test_during_a_scan_only_exit_can_be_picked_and_ends_everything(self):
        self.simulator.add_endless_aircraft()
        program = self.start()
        program.wait_for_page(WELCOME)
        helpers = program.helpers()
        self.assertNotEqual(helpers, [])
        program.press("alt+p")
        wait(lambda: program.greyed() == ALL_BUT_FILE, "the Busy state")
        program.wait_for_page("I'm Working On It")
        wait(lambda: program.labels()[1] > "Scanning Heavy 0000", "the aircraft behind the first")
        program.press("alt+m", "alt+h", "a", "alt+f", "x")
        self.assertEqual(program.process.wait(10), 0)
        wait(lambda: not any(os.path.exists(f"/proc/{helper}/exe") for helper in helpers),
             "the end of the pane's processes")

    def test_closing_the_window_during_a_scan_ends_the_program(self):
        self.simulator.add_endless_aircraft()
        program = self.start()
        program.press("alt+h", "a")
        program.wait_for_window("About Panelkit ")
        program.activate()
        program.press("alt+p")
        wait(lambda: program.greyed() == ALL_BUT_FILE, "the Busy state")
        program.press("alt+F4")
        self.assertEqual(program.process.wait(10), 0)

    def test_the_about_window_is_centred_kept_where_it_was_dragged_and_centred_anew(self):
        program = self.start()

        def open_about():
            program.activate()
            program.press("alt+h", "a")
            return program.wait_for_window("About Panelkit ")

        def place():
            return extents(wait(lambda: program.named("frame", "About Panelkit "), "its frame"))

        def wait_until_it_is_gone():
            wait(lambda: not program.window_titled("About Panelkit "), "its going away")

        def wait_until_it_is_centred():
            wait(lambda: abs(2 * place().x + place().width - 1280) <= 2
                 and abs(2 * place().y + place().height - 1024) <= 2, "the window in the centre")

        window = open_about()
        wait_until_it_is_centred()
        centre = place().x
        run("xdotool", "windowmove", window, "40", "70")
        wait(lambda: place().x != centre, "the move")
        dragged = (place().x, place().y)
        program.press("space")  # The button has the keyboard.
        wait_until_it_is_gone()
        self.assertEqual(open_about(), window)
        wait(lambda: (place().x, place().y) == dragged, "its return to where it was dragged")

        program.press("alt+F4")
        wait_until_it_is_gone()
        open_about()
        wait_until_it_is_centred()

    def test_the_brake_item_turns_its_caption_and_the_setting(self):
        config = self.simulator.folder / "fs2002.cfg"
        config.write_bytes(b"[Main]\r\nshow_brake_message=1\r\n")
        program = self.start()
        wait(lambda: program.named("menu item", "Turn Parking Brake Annunciator OFF"), "the item")
        program.press("alt+o", "t")
        program.wait_for_page("ABSOLUTELY HATE")
        self.assertTrue(program.named("menu item", "Turn Parking Brake Annunciator ON"))
        self.assertIn(b"show_brake_message=0\r\n", config.read_bytes())

    def test_controls_have_their_places_at_every_resolution(self):
        long_name = "A folder's name that is far too long for its label" * 4
        self.simulator = Simulator(self.root / "long", long_name)
        places = {  # In pixels at 96 dots per inch: left, top, width, height.
            "Report": (8, 8, 681, 409),
            "Flight Simulator: C:\\" + long_name: (8, 424, 681, 17), "Done": (8, 440, 361, 17),
            "Progress of the scan": (376, 440, 313, 17),
            "Free software - happy landings!": (8, 456, 361, 17)}
        for scale in ("1", "1.5"):
            program = self.start(GDK_DPI_SCALE=scale)
            program.press("alt+s")
            program.wait_for_page("Required Files")
            area = wait(lambda: program.named("panel", ""), "the client area")
            frame = extents(area)
            controls = [area.get_child_at_index(i) for i in range(area.get_child_count())]
            found = {control.get_name(): extents(control) for control in controls}
            found["Report"] = extents(program.named("document web", ""))
            self.assertEqual((frame.width, frame.height),
                             tuple(int(side * float(scale)) for side in (696, 474)))
            for name, place in places.items():
                is_at = (found[name].x - frame.x, found[name].y - frame.y, found[name].width,
                         found[name].height)
                for side, at_96 in zip(is_at, place):
                    self.assertLessEqual(abs(side - at_96 * float(scale)), 1, (name, is_at))
            program.close()

    def test_what_a_downloaded_panel_can_do_in_the_pane(self):
        (self.root / "secret.html").write_text("secret")
        asked = self.root / "asked"
        self.use_browser_that_writes_its_address_to(asked)
        web = self.serve(b"outside<script>document.body.append(' with scripts')</script>")
        self.simulator.add_aircraft("Trojan", "Bomb", title=(
            "<script>document.write('SCRIPT')</script><img src=x onerror=document.write('SCRIPT')>"
            f"<a href='file://{self.root}/secret.html'>local</a> <a href='{web}'>web</a>"
            f"<a href='{web}aside' target='_new'>aside</a>"))
        program = self.start()
        program.press("alt+p")
        report = program.wait_for_page("Bomb *** MISSING ***")
        program.click(program.named("link", "local"))
        program.click(program.named("link", "aside"))
        self.assertEqual(wait(lambda: asked.exists() and asked.read_text(), "the user's browser"),
                         web + "aside\n")
        self.assertEqual(program.pane(), report)

        program.click(program.named("link", "web"))
        program.wait_for_page("outside with scripts")
        program.click(program.named("document web", ""), button="3")
        wait(lambda: program.named("menu item", "Print"), "Print in the context menu")
        program.click(program.named("menu item", "Back"))
        self.assertEqual(program.wait_for_page("Bomb *** MISSING ***"), report)
        self.assertNotIn("SCRIPT", report)

    def use_browser_that_writes_its_address_to(self, file):
        browser = self.root / "browser"
        browser.write_text(f"#!/bin/sh\necho \"$1\" >{file}\n")
        browser.chmod(0o755)
        applications = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "applications"
        applications.mkdir(parents=True)
        (applications / "browser.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Browser\nExec={browser} %u\n"
            "MimeType=x-scheme-handler/http;\n")
        (applications / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/http=browser.desktop\n")

    def serve(self, page):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                self.wfile.write(b"HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n" + page)

        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        threading.Thread(target=server.serve_forever).start()
        return f"http://127.0.0.1:{server.server_port}/"

    def test_what_cannot_run_says_so_in_one_line(self):
        for arguments, environment in (["--help"], {}), ([], {"DISPLAY": ""}):
            result = subprocess.run([PROGRAM, *arguments], env={**os.environ, **environment},
                                    capture_output=True, text=True, check=False)
            self.assertEqual((result.returncode, result.stdout), (2, ""))
            self.assertEqual(result.stderr.count("\n"), 1, result.stderr)


if __name__ == "__main__":
    run_on_a_screen(lambda: unittest.main(argv=sys.argv[:1], exit=False, verbosity=2,
                                          warnings="ignore").result.wasSuccessful())
