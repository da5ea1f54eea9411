"""The run in real time: makes its task file, and checks the recording.  usage: ... make TASKS.MXT | check RECORDINGS"""
import datetime
import os
import struct
import sys
import wave

SECONDS = 120
RATE = 48000
PERIOD = 1200  # samples in which the tone of 440 Hz comes back to the same values


def make(path):
    now = datetime.datetime.now(datetime.timezone.utc)
    start = now + datetime.timedelta(seconds=30)
    stop = start + datetime.timedelta(seconds=SECONDS)
    ticks = (now - datetime.datetime(1601, 1, 1, tzinfo=datetime.timezone.utc)) // datetime.timedelta(microseconds=1) * 10
    times = [time.hour * 3600 + time.minute * 60 + time.second for time in (start, stop)]
    with open(path, "wb") as file:  # 9420 kHz, AM, today and tomorrow
        file.write(struct.pack("<QiIQQIIII", 9420000, 1, 0, ticks, ticks + 864000000000, *times, 127, 1))


def check(folder):
    names = os.listdir(folder)
    assert len(names) == 1 and names[0].startswith("task_9420000_"), names
    path = os.path.join(folder, names[0])
    with wave.open(path) as recording:
        assert recording.getparams()[:3] == (1, 2, RATE), recording.getparams()
        frames = recording.getnframes()
        samples = struct.unpack(f"<{frames}h", recording.readframes(frames))
    with open(path, "rb") as file:
        sizes = struct.unpack("<4sI", file.read(8))
    assert sizes == (b"RIFF", os.path.getsize(path) - 8), sizes
    assert SECONDS <= frames / RATE <= SECONDS + 2, frames / RATE
    breaks = [i for i in range(frames - PERIOD) if abs(samples[i] - samples[i + PERIOD]) > 1]
    assert not breaks, (len(breaks), breaks[:5])
    assert max(samples[:PERIOD]) > 1000 and min(samples[:PERIOD]) < -1000, samples[:PERIOD]
    print(f"{names[0]}: {frames / RATE:.3f} s, {frames} samples, tone unbroken")


{"make": make, "check": check}[sys.argv[1]](sys.argv[2])
