#!/usr/bin/env python3
"""Makes marlux3.chm of the pages in help/:  make-help.py SOURCE-FOLDER WORK-FOLDER OUTPUT

The compiler writes the current time into its output; it is set to zero here, so that equal pages give an equal file.
For the same reason the project has no binary index, which the compiler fills up with whatever memory held.
Links that lead to no page end the build.
"""
import os
import re
import shutil
import subprocess
import sys

PROJECT = "marlux3.hhp"
COMPILERS = ("chmcmd", "chmcmd-3.2.2")


def check_links(folder):
    """Each local target of a link, a picture or a table of contents is a file beside the page."""
    pages = [name for name in os.listdir(folder) if name.endswith((".html", ".hhc", ".hhk"))]
    broken = []
    for page in pages:
        with open(os.path.join(folder, page), encoding="latin-1") as file:
            text = file.read()
        targets = re.findall(r'(?:href|src)="([^"#:]+)(?:#[^"]*)?"', text, re.IGNORECASE)
        targets += re.findall(r'name="Local" value="([^"#]+)', text, re.IGNORECASE)
        broken += [f"{page}: {target}" for target in targets if not os.path.isfile(os.path.join(folder, target))]
    return broken


def without_times(data):
    """The header's time at byte 16, and that of the entry 10 with which the table of options begins."""
    data = bytearray(data)
    data[16:20] = bytes(4)
    options = re.search(rb"[\x02\x03]\0\0\0\x0a\0\x04\0", bytes(data))
    if options:
        data[options.end():options.end() + 4] = bytes(4)
    return bytes(data)


def main():
    source, work, output = sys.argv[1:]
    shutil.rmtree(work, ignore_errors=True)
    shutil.copytree(source, work)
    broken = check_links(work)
    if broken:
        sys.exit("links that lead nowhere: " + ", ".join(broken))
    compiler = next((path for path in map(shutil.which, COMPILERS) if path), None)
    if not compiler:
        sys.exit("chmcmd is missing")
    made = os.path.join(work, "marlux3.chm")
    result = subprocess.run([compiler, PROJECT], cwd=work, capture_output=True, text=True, errors="replace")
    if result.returncode != 0 or not os.path.isfile(made):
        sys.exit(result.stdout + result.stderr + "\nthe help file was not made")
    with open(made, "rb") as file:
        data = without_times(file.read())
    with open(output, "wb") as file:
        file.write(data)


main()
