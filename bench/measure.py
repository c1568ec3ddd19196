"""Runs things in turns, so that a busy machine slows all of them, and prints tables of what they
took. Arguments: console or window, the folder that bench/run has filled, the number of runs."""

import os
import pathlib
import statistics
import subprocess
import sys
import time

FOLDER = pathlib.Path(sys.argv[2])
RUNS = int(sys.argv[3])
CONSOLE = FOLDER / "panelkit-console"
OTHER = FOLDER / "other" / "panelkit-console"  # Of another build, to compare with.
WINDOW = FOLDER / "bench_window"


class Row:
    """What one thing, a chain of commands, took."""

    def __init__(self, name, simulator, *commands):
        self.name, self.commands = name, commands
        self.environment = dict(os.environ, WINEPREFIX=str(FOLDER / simulator))
        self.seconds, self.cpu, self.output = [], [], []
        self.run()  # Brings the files into the cache.
        self.seconds, self.cpu, self.output = [], [], []

    def run(self):
        cpu, start = 0, time.perf_counter()
        for command in self.commands:
            output = subprocess.PIPE if command[0] == WINDOW else subprocess.DEVNULL
            process = subprocess.Popen(command, env=self.environment, stdout=output)
            if process.stdout:
                self.output.append([float(word) for word in process.stdout.read().split()])
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            if process.returncode not in (0, 1):
                sys.exit(f"{command[:2]} ended with status {process.returncode}")
            cpu += usage.ru_utime + usage.ru_stime
        self.seconds.append(time.perf_counter() - start)
        self.cpu.append(cpu)

    def best(self):
        return min(self.seconds)

    def median(self):
        return statistics.median(self.seconds)

    def busy(self):
        """Seconds of processor time, of the run that took least."""
        return min(self.cpu)

    def peak(self):
        """In MiB; asked for by a small program, since a child counts its parent's memory too."""
        result = subprocess.run(["time", "-f", "%M", "-o", FOLDER / "peak", *self.commands[-1]],
                                env=self.environment, stdout=subprocess.DEVNULL, check=False)
        assert result.returncode in (0, 1)
        return int((FOLDER / "peak").read_text().split()[-1]) / 1024

    def times(self):
        return " | ".join(f"{1000 * seconds:.0f}"
                          for seconds in (self.best(), self.median(), self.busy()))

    def ratios(self, other):
        return (f"{self.best() / other.best():.2f} | {self.median() / other.median():.2f} | "
                f"{self.busy() / other.busy():.2f}")


def run_in_turns(rows):
    for _ in range(RUNS):
        for row in rows:
            row.run()


def yardstick(name, simulator):
    """Reads all panels and lists all cabinets."""
    root = FOLDER / simulator / "drive_c" / "Program Files" / "Microsoft Games" / "FS2002"
    panels = sorted(root.glob("Aircraft/*/[Pp]anel/panel.cfg"))
    commands = [["cat", *panels]] if panels else []
    return Row(name, simulator, *commands, ["cabextract", "-l", *sorted(root.glob("Gauges/*.cab"))])


def measure_console():
    print("| What | Best ms | Median ms | CPU ms | Peak MiB | To yardstick: best | median | CPU | "
          "To reference size |\n|---|--:|--:|--:|--:|--:|--:|--:|--:|")
    reports = ["probe", "show", "clean --dry-run"]
    reference = []
    for simulator, label, names in (("reference", "reference size", reports),
                                    ("twice", "twice the size", reports),
                                    ("other-case", "one in four folders in other case", ["probe"])):
        rows = [yardstick(f"Yardstick, {label}", simulator)]
        rows += [Row(f"{name}, {label}", simulator, [CONSOLE, *name.split()]) for name in names]
        if OTHER.exists() and names is reports:
            rows += [Row(f"{name}, {label}, other build", simulator, [OTHER, *name.split()])
                     for name in names]
        run_in_turns(rows)
        print_rows(rows, reference)
        reference = reference or rows
    cabinet, = (FOLDER / "cabinet").rglob("*.cab")
    rows = [yardstick("cabextract -l, one cabinet of 60,000 entries", "cabinet")]
    rows += [Row(f"cab {name}, the same cabinet", "cabinet", [CONSOLE, "cab", name, cabinet])
             for name in ("count", "list", "xml")]
    run_in_turns(rows)
    print_rows(rows, [])


def print_rows(rows, reference):
    for i, row in enumerate(rows):
        peak = f"{row.peak():.0f}" if i else ""
        ratios = row.ratios(rows[0]) if i else " | |"
        growth = f"{row.best() / reference[i].best():.2f}" if reference else ""
        print(f"| {row.name} | {row.times()} | {peak} | {ratios} | {growth} |", flush=True)


def print_waits(title, window, *consoles):
    """`consoles` are what to compare with: a name and seconds each."""
    took, clicks, repaints = zip(*window.output)
    print(f"\n| {title} | Best | Median | Worst |\n|---|--:|--:|--:|")
    ratios = [(f"to {name}, best to best", [ms / 1000 / seconds for ms in took]) for name, seconds in consoles]
    for name, values in (("ms", took), *ratios, ("longest wait of a click, ms", clicks),
                         ("longest time between two repaints, ms", repaints)):
        print(f"| {name} | {min(values):.2f} | {statistics.median(values):.2f} | "
              f"{max(values):.2f} |")


def measure_window():
    console = Row("probe in the console", "reference", [CONSOLE, "probe"])
    probe = Row("probe in the window", "reference", [WINDOW, "probe"])
    places = [FOLDER / name for name in ("files", "archives", "long")]
    find = Row("find in the console", "reference", [CONSOLE, "find", *places])
    hints = Row("hints in the console", "reference", [CONSOLE, "probe", "--hints"])
    search = Row("search in the window", "reference", [WINDOW, "search", *places])
    start = Row("Panelkit", "reference", [WINDOW, "start"])
    copy = FOLDER / "welcome.htm"
    copy.write_bytes((FOLDER / "GAUGES.HTM").read_bytes())
    empty = Row("An empty WebKitGTK window", "reference", [WINDOW, "empty"])
    welcome = Row("The same window with our welcome page", "reference",
                  [WINDOW, "empty", copy.as_uri()])
    run_in_turns([console, probe, find, hints, search, start, empty, welcome])
    print_waits("Probe in the window", probe, ("the console's probe", console.best()))
    print_waits("Search in the window, with its probe and hints", search, ("the console's find", find.best()),
                ("find and hints", find.best() + hints.best() - console.best()))
    print("\n| From start to the page shown | Best ms | Median ms | CPU ms |\n|---|--:|--:|--:|")
    for row in (empty, welcome, start):
        print(f"| {row.name} | {row.times()} |")


if __name__ == "__main__":
    {"console": measure_console, "window": measure_window}[sys.argv[1]]()
