#!/usr/bin/env python3
"""Marlux 3. Writes the sample season archive: about 300 made-up transmissions and their code tables.

The tables lie in hfcc/, a row a line, fields between bars. Every station and site is invented. The members are the
same at every run: choices come from a generator of our own, and the dates are fixed. Latin-1, lines end in CR LF.

    make-hfcc.py build/samples/a26all00.zip
"""

import io
import os
import sys
import zipfile

from common import Choices, write_whole

HERE = os.path.dirname(os.path.abspath(__file__))

# What each column of a line is wide, blanks to the next one included.
WIDTHS = {
    "admin.txt": [4, 51, 51, 51],
    "broadcas.txt": [4, 0],
    "site.txt": [4, 31, 4, 6, 0],
    "fmorg.txt": [4, 51, 21, 14, 14, 41, 0],
}
SCHEDULE_STARTS = [0, 6, 11, 16, 47, 52, 56, 64, 72, 80, 87, 94, 96, 102, 113, 117, 121, 125, 131, 133, 139, 145, 151]

BANDS = [(3900, 4000), (5900, 6195), (7205, 7450), (9400, 9895), (11605, 12095), (13575, 13865), (15105, 15825),
         (17485, 17895), (21455, 21845), (25670, 26100)]
DAYS = ["1", "7", "17", "23456", "246", "1357", "23467", "5", "345"]
SEASON = ("290326", "251026")

# Rows that demonstrations and tests rely on: kHz, start, stop, zones, site, kW, azimuth, days, from, to, modulation,
# antenna frequency, language, administration, broadcaster, organisation, alternatives, notes.
FIXED = [
    ("9420", "0000", "2400", "28,38", "MIR", "170", "285", "1234567", *SEASON, "D", "9500", "Ell", "GRC", "MIR", "MIR",
     ("9935", "11645", "15630"), "by day"),
    ("9420", "2200", "0100", "4,9-13", "MIR", "100", "325", "17", "310526", "300826", "D", "9500", "Eng", "GRC", "MIR",
     "MIR", (), ""),
    ("6085", "0600", "0700", "27,28", "ELB", "1", "ND", "23456", *SEASON, "N", "6100", "Deu", "D", "ELB", "ELB",
     ("6005",), "DRM"),
    ("9430", "1200", "1230", "43-40,44", "STP", "250", "130,178", "1", *SEASON, "T", "", "Eng", "MNG", "SWB", "PAC", (),
     "SSB test"),
    ("15790", "2330", "0030", "1-85", "XYZ", "", "", "", "", "", "Q", "", "Spa", "ZZZ", "QQQ", "YYY", (),
     "codes that no table has"),
]


def rows_of(name):
    with open(os.path.join(HERE, "hfcc", name), encoding="utf-8") as file:
        for line in file:
            if not line.startswith("#"):
                yield [field.strip() for field in line.split("|")]


def cut_to(widths, fields):
    return "".join(f"{field:<{width}}" for width, field in zip(widths, fields))


def code_table(name):
    head = f"; {name.upper()} REFERENCE TABLE\n;\n; invented, made by samples/make-hfcc.py\n"
    return head + "".join(cut_to(WIDTHS[name], row) + "\n" for row in rows_of(name))


def times(choices):
    start = 30 * choices.below(48)
    end = (start + choices.of([30, 60, 60, 120, 180])) % 1440
    return f"{start // 60:02}{start % 60:02}", f"{end // 60:02}{end % 60:02}"


def made_up(choices, count):
    stations = [[field.split() for field in row] for row in rows_of("stations.txt")]
    for _ in range(count):
        broadcaster, administration, organisation, sites, languages, zones, powers = choices.of(stations)
        low, high = choices.of(BANDS)
        khz = str(low + 5 * choices.below((high - low) // 5 + 1))
        days = choices.of(DAYS) if choices.below(4) == 0 else "1234567"
        alternatives = (str(int(khz) + 40),) if choices.below(9) == 0 else ()
        yield (khz, *times(choices), choices.of(zones), choices.of(sites), choices.of(powers),
               str(5 * choices.below(72)), days, *SEASON, "N" if choices.below(20) == 0 else "D", khz[:-2] + "00",
               choices.of(languages), administration[0], broadcaster[0], organisation[0], alternatives, "")


def schedule_line(number, row):
    (khz, start, stop, zones, site, power, azimuth, days, first, last, modulation, antenna, language, administration,
     broadcaster, organisation, alternatives, notes) = row
    others = [*alternatives, "", "", ""][:3]
    cells = [f"{khz:>5}", start, stop, zones, site, f"{power:>3}", azimuth, "  0 900", days, first, last, modulation,
             f"{antenna:>5}", language, administration, broadcaster, organisation, f"{number:>5}", "", *others, notes]
    widths = [after - at for at, after in zip(SCHEDULE_STARTS, SCHEDULE_STARTS[1:])] + [0]
    return cut_to(widths, cells)


def schedule():
    rows = FIXED + list(made_up(Choices(2607), 300))
    rows.sort(key=lambda row: (int(row[0]), row[1], row[4]))
    head = "; A26 ALL, invented transmissions\n; made by samples/make-hfcc.py\n;\n"
    return head + "".join(schedule_line(number, row) + "\n" for number, row in enumerate(rows, 1))


def main():
    members = {"A26all00.TXT": schedule(), **{name: code_table(name) for name in WIDTHS}}
    packed = io.BytesIO()
    with zipfile.ZipFile(packed, "w") as archive:
        for name, text in members.items():
            entry = zipfile.ZipInfo(name, (2026, 7, 1, 12, 0, 0))
            entry.create_system = 0
            entry.compress_type = zipfile.ZIP_DEFLATED
            archive.writestr(entry, text.replace("\n", "\r\n").encode("latin-1"))
    write_whole(sys.argv[1], packed.getvalue())


if __name__ == "__main__":
    main()
