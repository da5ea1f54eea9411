"""Compares the CSV that the module exports of an HFCC archive with one that is cut here in another way, byte for byte.

usage: hfcc_csv_test.py RUNNER CSV-OF-ARCHIVE.EXE ARCHIVE...      (the first archive that exists is taken)
"""
import os
import subprocess
import sys
import tempfile
import zipfile

# Where the columns begin; a column ends where the next one begins.
STARTS = [0, 6, 11, 16, 47, 52, 56, 64, 72, 80, 87, 94, 96, 102, 113, 117, 121, 125, 131, 133, 139, 145, 151, None]
TITLES = ["Freq", "Start", "Stop", "CIRAF zones", "Location", "Power", "Azimuth", "Latitude", "Days", "From", "To", "Mode",
          "Longitude", "Language", "Admin", "Broadcaster", "FMO", "Old", "Alt 1", "Alt 2", "Alt 3", "Notes"]
DAYS = ["Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"]  # "1" to "7"
MODES = {"D": "Double sideband AM", "N": "Digital (DRM)", "S": "Single sideband", "T": "Single sideband, reduced carrier"}
REAL_ROWS = {"a26allx2.zip": 3305}
FEWEST_ROWS = 300


def lines_of(archive, member):
    text = archive.read(member).decode("latin-1").replace("\r", "")
    return [line for line in text.split("\n") if line.strip() and not line.startswith(";")]


def names_of(archive, member, end):
    return {line[0:4].strip(): line[4:end].strip() for line in lines_of(archive, member)}


def expected_csv(path):
    with zipfile.ZipFile(path) as archive:
        season = os.path.basename(path).lower()[:6]
        schedule = next(n for n in archive.namelist() if n.lower()[:6] == season and n.lower().endswith(".txt"))
        tables = {
            "site": names_of(archive, "site.txt", 35),
            "admin": names_of(archive, "admin.txt", 55),
            "broadcaster": names_of(archive, "broadcas.txt", None),
            "organisation": names_of(archive, "fmorg.txt", None),
            "latitude": {line[0:4].strip(): line[39:45].strip() for line in lines_of(archive, "site.txt")},
            "longitude": {line[0:4].strip(): line[45:].strip() for line in lines_of(archive, "site.txt")},
        }
        rows = [TITLES] + [row_of(line, tables) for line in lines_of(archive, schedule)]
    quoted = [",".join('"' + cell.replace('"', '""') + '"' for cell in row) + "\r\n" for row in rows]
    return "".join(quoted).encode("latin-1")


def row_of(line, tables):
    cells = [line[a:b].strip() for a, b in zip(STARTS, STARTS[1:])]

    def time(text):
        return text and text[:2] + ":" + text[2:]

    def date(text):
        return text and "/".join((text[:2], text[2:4], text[4:]))

    def name(table, code):
        return tables[table].get(code) or code

    def days(text):
        named = {"1234567": "All days", "23456": "Workdays", "17": "Weekend"}
        digits = "".join(sorted(set(text)))
        return DAYS[int(digits) - 1] if len(digits) == 1 else named.get(digits, text)

    return [cells[0], time(cells[1]), time(cells[2]), cells[3], name("site", cells[4]), cells[5], cells[6],
            tables["latitude"].get(cells[4], ""), days(cells[8]), date(cells[9]), date(cells[10]),
            MODES.get(cells[11][:1], cells[11]), tables["longitude"].get(cells[4], ""), cells[13],
            name("admin", cells[14]), name("broadcaster", cells[15]), name("organisation", cells[16])] + cells[18:23]


def main():
    runner, program = sys.argv[1:3]
    archive = os.path.abspath(next(path for path in sys.argv[3:] if os.path.exists(path)))
    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "out.csv")
        done = subprocess.run([runner, program, "Z:" + archive.replace("/", "\\"), "Z:" + out.replace("/", "\\")],
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=120)
        if done.returncode != 0:
            sys.exit("the program failed")
        with open(out, "rb") as file:
            written = file.read()
    expected = expected_csv(archive)
    print(os.path.basename(archive), done.stdout.decode().strip())
    rows = expected.count(b"\r\n") - 1
    if rows < FEWEST_ROWS or rows != REAL_ROWS.get(os.path.basename(archive), rows):
        sys.exit(f"the archive has {rows} rows")
    if written != expected:
        for i, (a, b) in enumerate(zip(written.split(b"\r\n"), expected.split(b"\r\n"))):
            if a != b:
                sys.exit(f"line {i}:\n  {a!r}\n  {b!r}")
        sys.exit(f"{len(written)} bytes instead of {len(expected)}")


main()
