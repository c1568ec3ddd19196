"""Measures the search for gauges against what only lists the same files, and prints a table.
Arguments: a folder with panelkit-console and the simulators `reference` and `missing`, the number of runs."""

import io
import os
import pathlib
import random
import statistics
import subprocess
import sys
import tarfile
import time
import zipfile

FOLDER = pathlib.Path(sys.argv[1])
RUNS = int(sys.argv[2])
FILES = FOLDER / "files"
ARCHIVES = FOLDER / "archives"
LONG = FOLDER / "long"
EMPTY = FOLDER / "empty"
ENVIRONMENT = dict(os.environ, WINEPREFIX=str(FOLDER / "reference"))
MISSING = dict(os.environ, WINEPREFIX=str(FOLDER / "missing"))


def write_files():
    """20,000 files in 200 folders, a tenth of them gauges."""
    for number in range(20_000):
        path = FILES / f"folder {number % 200}" / f"file_{number}{'.txt' if number % 10 else '.gau'}"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(b"x")


def write_archives():
    """1 GiB of zip archives: 64 of 16 MiB, each of 32 files that hardly compress, two of them gauges."""
    ARCHIVES.mkdir()
    noise = random.Random(1)
    for number in range(64):
        with zipfile.ZipFile(ARCHIVES / f"{number}.zip", "w", zipfile.ZIP_DEFLATED, compresslevel=1) as archive:
            for entry in range(32):
                ending = "gau" if entry < 2 else "bmp"
                archive.writestr(f"panel/{number}_{entry}.{ending}", noise.randbytes(512 * 1024))


def write_long_entry():
    """A gauge behind an entry of 256 MiB, which has to be unpacked on the way."""
    LONG.mkdir()
    with tarfile.open(LONG / "long.tar.gz", "w:gz", compresslevel=1) as archive:
        for name, size in (("picture.bmp", 256 * 1024 * 1024), ("last.gau", 1024)):
            entry = tarfile.TarInfo(name)
            entry.size = size
            archive.addfile(entry, io.BytesIO(random.Random(1).randbytes(1024) * (size // 1024)))


def seconds(command, environment=ENVIRONMENT):
    start = time.perf_counter()
    status = subprocess.run(command, env=environment, stdout=subprocess.DEVNULL, check=False).returncode
    if status not in (0, 1):
        sys.exit(f"{command[:2]} ended with status {status}")
    return time.perf_counter() - start


def compare(name, search, yardstick):
    """One row. What find takes on an empty folder, its probe, is not the search's."""
    probe = [FOLDER / "panelkit-console", "find", EMPTY]
    for command in (search, yardstick, probe):
        seconds(command)
    took = [(seconds(search), seconds(yardstick), seconds(probe)) for _ in range(RUNS)]
    best, median = ([1000 * pick(column) for column in zip(*took)] for pick in (min, statistics.median))
    print(f"| {name} | {best[0] - best[2]:.0f} | {median[0] - median[2]:.0f} | {best[1]:.0f} | {median[1]:.0f} | "
          f"{(best[0] - best[2]) / best[1]:.2f} |", flush=True)


def measure_hints(console):
    """What hints take beyond the probe."""
    took = [(seconds([console, "probe", "--hints"], MISSING), seconds([console, "probe"], MISSING))
            for _ in range(RUNS)]
    best, median = ([1000 * pick(column) for column in zip(*took)] for pick in (min, statistics.median))
    print("\n| `--hints`, less its probe | Best ms | Median ms |\n|---|--:|--:|\n"
          f"| 19,000 missing files | {best[0] - best[1]:.0f} | {median[0] - median[1]:.0f} |", flush=True)


def main():
    EMPTY.mkdir()
    write_files()
    write_archives()
    write_long_entry()
    print("\n| find, less its probe | Best ms | Median ms | Yardstick: best ms | median ms | Best to best |"
          "\n|---|--:|--:|--:|--:|--:|")
    console = FOLDER / "panelkit-console"
    compare("a folder of 20,000 files, to `find -type f`", [console, "find", FILES],
            ["find", FILES, "-type", "f"])
    each = 'for archive in "$1"/*; do bsdtar -tf "$archive"; done'
    compare("1 GiB of zip archives, to `bsdtar -tf` of each", [console, "find", ARCHIVES],
            ["bash", "-c", each, "-", ARCHIVES])
    measure_hints(console)


main()
