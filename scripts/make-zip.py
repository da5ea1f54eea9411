#!/usr/bin/env python3
"""Packs a release:  make-zip.py OUTPUT.zip NAME=FILE ...

Adds SHA256SUMS of all files. Equal files give an equal archive: order, dates and rights are fixed. Archives of other
versions beside it, NAME-VERSION.zip and their sums, go.
"""
import glob
import hashlib
import os
import sys
import zipfile


def add(archive, name, data):
    entry = zipfile.ZipInfo(name, date_time=(2026, 1, 1, 0, 0, 0))
    entry.compress_type = zipfile.ZIP_DEFLATED
    entry.external_attr = 0o644 << 16
    entry.create_system = 3
    archive.writestr(entry, data, compresslevel=9)


def main():
    output, *pairs = sys.argv[1:]
    files = {}
    for pair in pairs:
        name, _, path = pair.partition("=")
        with open(path, "rb") as file:
            files[name] = file.read()
    for other in glob.glob(glob.escape(output.rsplit("-", 1)[0]) + "-*.zip*"):
        os.remove(other)
    sums = "".join(f"{hashlib.sha256(files[name]).hexdigest()}  {name}\n" for name in sorted(files))
    with zipfile.ZipFile(output, "w") as archive:
        for name in sorted(files):
            add(archive, name, files[name])
        add(archive, "SHA256SUMS", sums.encode())
    with open(output, "rb") as file:
        digest = hashlib.sha256(file.read()).hexdigest()
    with open(output + ".sha256", "w", encoding="ascii") as file:
        file.write(f"{digest}  {output.rsplit('/', 1)[-1]}\n")


main()
