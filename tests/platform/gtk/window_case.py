"""The real program with the bundled simulator, in a folder of its own. Arguments of the tests: the
program, the folder of pictures, and the names of tests if not all are to run."""

import os
import pathlib
import shutil
import struct
import sys
import tempfile
import unittest

from window_driver import Program, move_to_a_screen, wait

PROGRAM, PICTURES = (pathlib.Path(argument) for argument in sys.argv[1:3])
MAIN = " Panelkit for FS2002 ONLY"


def words(page):
    """Without the places of what could not be loaded."""
    return page.replace("\ufffc", "").split()


def shows(program, picture):
    """Whether the pane shows that picture, at least in its own size."""
    width, height = struct.unpack_from("<HH", (PICTURES / picture).read_bytes(), 6)
    across, down = program.picture()
    return across >= width and abs(across / down - width / height) < 0.02


class WindowCase(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)
        shutil.copytree(PICTURES.parent / "demo", self.root / "prefix")
        self.aircraft = next(self.root.rglob("FS2002/Aircraft"))
        self.panel = self.aircraft / "Aldwyn A-12 Trainer" / "Panel" / "panel.cfg"
        shutil.copytree(PICTURES, self.root / "app")
        shutil.copy(PROGRAM, self.root / "app")

    def start(self, *arguments, **environment):
        program = Program([self.root / "app" / PROGRAM.name, *arguments], env={
            **os.environ, "WINEPREFIX": str(self.root / "prefix"), **environment})
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        program.wait_for_window(MAIN)
        program.wait_for_page("We hope you find this program helpful")
        wait(lambda: shows(program, "confused.gif"), "the picture")
        return program


def run_tests():
    move_to_a_screen()
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2, warnings="ignore")
