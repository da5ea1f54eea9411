#!/usr/bin/env python3
"""Marlux 3. Writes the sample schedule: about 400 made-up broadcasts in the columns of eibi.txt.

Every station is invented. The output is the same at every run: choices come from a generator of our own, so that no
change of Python's changes the file. Latin-1, lines end in CR LF.

    make-eibi.py build/samples/eibi.txt
"""

import sys

from common import Choices, write_whole

HEADER = """\
MARLUX SAMPLE SCHEDULE - invented stations, for trying out the program
======================================================================
                  FREQUENCY VERSION

No station in this file exists. The columns are those of a real
schedule; days in numbers count from 1 for Monday.

Valid for ever



Made by samples/make-eibi.py



kHz           Time(UTC) Days  ITU Station                Lang. Target   Remarks
================================================================================
"""

# name, ITU country of the transmitter, languages, targets, remarks of its transmitter sites
STATIONS = [
    ("Radio Aurora Boreal", "NOR", ["NO", "E", "R"], ["NEu", "EEu", "NAO"], ["k", "v"]),
    ("Voz del Altiplano", "BOL", ["S", "QU", "AY"], ["SAm", "BOL"], [""]),
    ("Rádio Maré Alta", "B", ["P"], ["SAm", "WAf"], ["mr", ""]),
    ("Radio Côte Éternelle", "F", ["F", "E", "AR"], ["WAf", "NAf", "CAf"], ["is", "/GUF"]),
    ("Stimme der Elbaue", "D", ["D", "E"], ["CEu", "WEu"], ["ka", "wb"]),
    ("Voice of the Lagoon", "MLD", ["E", "DV"], ["SAs", "IOc"], [""]),
    ("Harbour Light Radio", "G", ["E", "F"], ["Eu", "NAf"], ["w", "/ASC"]),
    ("Radio Sahel Libre", "MLI", ["F", "BM", "FU"], ["WAf", "CAf"], ["o"]),
    ("Steppe Wind Broadcasting", "MNG", ["MO", "E", "M", "R"], ["EAs", "CAs", "SEA"], ["u"]),
    ("Radio Ñandú", "ARG", ["S", "E", "D"], ["SAm", "NAm", "WEu"], ["g"]),
    ("Golden Pagoda Service", "BRM", ["BR", "KA", "SH"], ["SEA", "BRM"], ["y", ""]),
    ("Echo of the Caucasus", "GEO", ["GE", "R", "AZ"], ["Cau", "EEu"], ["d"]),
    ("Coral Sea Calling", "AUS", ["E", "TP"], ["Oc", "PNG"], ["s", ""]),
    ("Radio Ölandsbron", "S", ["SW", "E"], ["NEu", "Bal"], [""]),
    ("Desert Rose FM Relay", "OMA", ["AR", "E", "UR"], ["ME", "NAf", "SAs"], ["t"]),
    ("Cordillera Gospel Hour", "EQA", ["S", "QU", "E"], ["SAm", "CAm"], ["p"]),
    ("Rádio Planalto do Cuanza", "AGL", ["P", "KK"], ["SAf", "AGL"], ["mu"]),
    ("Bamboo Grove Station", "THA", ["TH", "E", "LAO"], ["SEA", "EAs"], ["n"]),
    ("Great Lakes Shortwave", "USA", ["E", "S"], ["NAm", "CAm", "Eu"], ["b", "c"]),
    ("Danube Delta Radio", "ROU", ["RO", "E", "SR"], ["EEu", "SEE"], ["g", "t"]),
]

# Every form of the days column; most broadcasts run daily and leave it blank.
DAYS = ["Mo-Fr", "Sa", "SaSu", "135", "Sa,Su", "Tu,Th", "Fr-Mo", "67", "1234567", "Su", "irr", "alt", "1.Sa", "246",
        "Su-Th", "We"]

BANDS = [(2310, 2490), (4755, 4995), (5900, 6195), (7205, 7450), (9400, 9895), (11605, 12095), (13575, 13865),
         (15105, 15825), (17485, 17895), (21455, 21845)]

# Rows that demonstrations and tests rely on: several on 9420 kHz, fractions, special times, stations without a time.
FIXED = [
    ("9420", "0000-2400", "", "GRC", "Radio Mirtos", "GR", "Eu", "a"),
    ("9420", "0500-0700", "Mo-Fr", "D", "Stimme der Elbaue", "D", "CEu", "ka"),
    ("9420", "1300-1400", "", "CHN", "Jade River Radio", "M", "EAs", ""),
    ("9420", "2200-0100", "SaSu", "GRC", "Radio Mirtos", "E", "NAm", "a"),
    ("16.4", "0000-2400", "", "NOR", "Fjordlink Naval Station", "", "NAO", "no"),
    ("77.5", "0000-2400", "", "D", "Elbaue Time Signal", "-TS", "CEu", "z"),
    ("3330.25", "1100-1130", "irr", "CAN", "Prairie Time Pips", "-TS", "NAm", ""),
    ("6005", "", "", "D", "Stimme der Elbaue", "D", "WEu", "by request"),
    ("7325.5", "1800-1859", "135", "MNG", "Steppe Wind Broadcasting", "E", "CAs", "u"),
    ("15790", "2330-0030", "Fr-Mo", "ARG", "Radio Ñandú", "S", "NAm", "g"),
]


def frequency(choices):
    low, high = choices.of(BANDS)
    khz = low + 5 * choices.below((high - low) // 5 + 1)
    fraction = choices.of([".5", ".2", ".75"]) if choices.below(25) == 0 else ""
    return f"{khz}{fraction}"


def times(choices):
    start = 30 * choices.below(48)
    end = start + choices.of([30, 30, 60, 60, 60, 120, 180, 90])
    end = end if end <= 1440 else end - 1440
    return f"{start // 60:02}{start % 60:02}-{end // 60:02}{end % 60:02}"


def made_up(choices, count):
    for _ in range(count):
        name, itu, languages, targets, remarks = choices.of(STATIONS)
        days = choices.of(DAYS) if choices.below(5) == 0 else ""
        yield (frequency(choices), times(choices), days, itu, name, choices.of(languages), choices.of(targets),
               choices.of(remarks))


def line(row):
    khz, time, days, itu, station, language, target, remarks = row
    return f"{khz:<14}{time:<10}{days:<6}{itu:<4}{station:<25.24}{language:<4}{target:<12}{remarks}"


def main():
    rows = FIXED + list(made_up(Choices(1923), 390))
    rows.sort(key=lambda row: (float(row[0]), row[1], row[4]))
    text = HEADER + "".join(line(row) + "\n" for row in rows)
    write_whole(sys.argv[1], text.replace("\n", "\r\n").encode("latin-1"))


if __name__ == "__main__":
    main()
