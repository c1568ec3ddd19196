"""What a user sees and does in the real window."""

from window_case import MAIN, PICTURES, PROGRAM, WindowCase, run_tests, shows
from window_driver import run, wait

ABOUT = "About Panelkit "


class WindowTest(WindowCase):
    def test_first_texts_and_every_caption_with_its_access_key(self):
        program = self.start()
        self.assertEqual(program.access_keys(), {
            "File": "f", "Exit Program": "f:x", "Main Page": "m", "Probe For Missing Gauges": "p",
            "Show All Gauges": "s", "Clean Gauges": "c", "Other Cool Stuff": "o",
            "FS2002 Keyboard Commands": "o:k", "Turn Parking Brake Annunciator OFF": "o:t",
            "List of Virtual Airlines": "o:v", "Help": "h", "Visit Panelkit Web Site": "h:v",
            "About Panelkit": "h:a"})
        for text in (f"Panelkit - Version 1.10  Dec 15, 2002{' ' * 14}Come to "
                     "https://www.panelkit.example if you are looking for gauges",
                     "Made with care for everyone who builds and flies panels"):
            self.assertTrue(program.named("label", text))

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
        program.press("alt+m")
        program.wait_for_page("We hope you find this program helpful")
        program.click("document web", button=3)
        wait(lambda: program.named("menu item", "Back"), "the menu of the pane")
        self.assertFalse(program.can_pick("Back"))  # Page files follow each other in one place.
        program.press("Escape")
        program.press("alt+o", "t")
        program.wait_for_page("ABSOLUTELY HATE")
        self.assertTrue(program.named("menu item", "Turn Parking Brake Annunciator ON"))
        wait(lambda: shows(program, "easy.gif"), "its picture")

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
            wait(lambda: shows(program, "madhack.gif"), "its picture")
            program.press("alt+m", "alt+h", "a", *way_out)
            self.assertEqual(program.wait(120), 0)

    def test_the_about_window_is_centred_kept_where_it_was_dragged_and_centred_anew(self):
        program = self.start()

        def middle():
            place = program.place("frame", ABOUT)
            return place.x + place.width // 2, place.y + place.height // 2

        def opens_at(x, y):
            program.press("alt+h", "a")
            program.wait_for_window(ABOUT)
            wait(lambda: abs(middle()[0] - x) < 2 and abs(middle()[1] - y) < 2, "its place")

        opens_at(640, 512)
        run("xdotool", "getactivewindow", "windowmove", "40", "70")
        wait(lambda: middle()[0] < 600, "the move")
        dragged = middle()
        program.press("Escape", "space")  # The button has the keyboard; Escape closes nothing.
        program.wait_for_window(MAIN)
        opens_at(*dragged)
        program.press("alt+F4")
        program.wait_for_window(MAIN)
        opens_at(640, 512)
        self.assertEqual(program.picture("icon", "A panel*"), (150, 291))
        for title in ABOUT, MAIN:
            program.wait_for_window(title)
            window = run("xdotool", "getactivewindow").strip()
            self.assertIn("SKIP_TASKBAR", run("xprop", "-id", window, "_NET_WM_STATE"))
            program.press("space" if title == ABOUT else "alt+F4")
        self.assertEqual(program.wait(120), 0)

    def test_controls_have_their_places_at_every_resolution(self):
        long = "A folder's name that is far too long for its label" * 4
        run("sed", "-i", f"s/Program.*FS2002/{long}/", str(self.root / "prefix/system.reg"))
        self.aircraft.parent.rename(self.root / "prefix" / "drive_c" / long)
        places = [  # In pixels at 96 dots per inch: left, top, width, height.
            ("panel", "", 0, 0, 696, 474), ("panel", "Report", 8, 8, 681, 409),
            ("label", f"Flight Simulator: C:\\{long}", 8, 424, 681, 17),
            ("label", "Done", 8, 440, 361, 17),
            ("progress bar", "Progress of the scan", 376, 440, 313, 17),
            ("label", "Free software - happy landings!", 8, 456, 361, 17)]
        settings = self.root / "gtk-3.0" / "settings.ini"
        settings.parent.mkdir()
        settings.write_text("[Settings]\ngtk-font-name=DejaVu Serif 16\n")
        for scale in 1, 1.5:
            program = self.start(GDK_DPI_SCALE=str(scale), XDG_CONFIG_HOME=str(self.root))
            self.assertTrue(program.font("label", "Made*").startswith("DejaVu Serif,"))
            program.press("alt+s")
            program.wait_for_page("Required Files")
            wait(lambda: program.named("label", "Done"), "the end of the scan")
            area = program.place("panel")
            for role, name, *place in places:
                at = program.place(role, name)
                sides = (at.x - area.x, at.y - area.y, at.width, at.height)
                for side, at_96 in zip(sides, place):
                    self.assertAlmostEqual(side, at_96 * scale, delta=1, msg=name)
        program = self.start(GDK_DPI_SCALE="3")  # Too much for the screen.
        run("xdotool", "mousemove", "1276", "400", "click", "--repeat", "50", "5")  # The scroll bar.
        wait(lambda: 0 < program.place("label", "Free*").y < 1000, "the last line on the screen")

    def test_keys_of_the_pane_and_of_the_window(self):
        program = self.start()
        program.press("Tab")
        wait(lambda: program.has_focus("link", "www*"), "the keyboard on the link")
        program.press("ctrl+a", "ctrl+c", "ctrl+f", "x")
        find = "text", "Find on this page"
        wait(lambda: program.text(*find) == "x", "the letter typed right after Ctrl+F")
        wait(lambda: program.press("ctrl+a", "ctrl+v") or "We hope you find" in program.text(*find),
             "the copied text")
        program.press("ctrl+a", *"gauges", "Return")
        found = program.pane().lower().count("gauges")
        wait(lambda: program.named("label", f"{found} matches"), "what was found")
        program.press("Escape")
        program.press("ctrl+p")
        wait(lambda: program.named("dialog", "Print"), "the print dialog")
        program.press("Escape")
        program.wait_for_window(MAIN)
        width = program.place("link", "*www*").width
        program.press("ctrl+plus")
        wait(lambda: program.place("link", "*www*").width > width, "larger text")
        program.press("ctrl+0", "ctrl+minus")
        wait(lambda: program.place("link", "*www*").width < width, "smaller text")
        program.press("ctrl+0", "alt+s")
        program.wait_for_page("Required Files")
        top = program.place("link", "*www*").y
        program.press("Next")
        wait(lambda: program.place("link", "*www*").y < top, "the next part of the page")
        program.press("F1", "a")
        program.wait_for_window(ABOUT)
        program.press("Return")  # As any button that has the keyboard takes it.
        program.wait_for_window(MAIN)
        program.press("F10", "Down", "x")
        self.assertEqual(program.wait(120), 0)

    def test_what_the_command_line_gives(self):
        self.assertIn("--version", run(PROGRAM, "--help"))
        self.assertRegex(run(PROGRAM, "--version"), r"\Apanelkit \d+\.\d+\n\Z")
        for call in ("--other", "--simulator=", "--simulator /none", "--prefix /none"):
            self.assertRegex(run("sh", "-c", f"'{PROGRAM}' {call} 2>&1; echo $?"),
                             r"\Apanelkit: .+\n2\n\Z")
        self.assertRegex(run("sh", "-c", f"DISPLAY= '{PROGRAM}' 2>&1; echo $?"), r"\A.+\n2\n\Z")
        other = self.aircraft.parent.rename(self.root / "prefix" / "drive_c" / "other")
        program = self.start("--prefix", self.root / "prefix", "--simulator", other,
                             WINEPREFIX="/none")
        program.press("alt+p")
        wait(lambda: program.named("label", "Flight Simulator: C:\\other"), "the named folder")


if __name__ == "__main__":
    run_tests()
