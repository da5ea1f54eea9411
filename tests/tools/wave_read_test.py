"""Reads a recording of four minutes back with Python's wave module: all samples.  usage: ... RUNNER MAKE-WAVE.EXE"""
import os
import random
import subprocess
import sys
import tempfile
import wave

FRAMES = 4 * 60 * 16000
samples = random.Random(1).randbytes(4 * FRAMES)
with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    with open("samples", "wb") as file:
        file.write(samples)
    places = ["Z:" + os.path.abspath(name).replace("/", "\\") for name in ("samples", "a.wav")]
    subprocess.run([*sys.argv[1:], *places], stdin=subprocess.DEVNULL, check=True)
    with wave.open("a.wav") as recording:
        if recording.getparams()[:4] != (2, 2, 16000, FRAMES) or recording.readframes(FRAMES) != samples:
            sys.exit(f"not what was recorded: {recording.getparams()}")
