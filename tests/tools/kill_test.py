"""Kills the development host while the plug-in records, saves tasks, exports and downloads, and looks at what is left.
usage: with-web-server.sh FOLDER kill_test.py WINE-RUN.SH HOST.EXE MODULE.DLL EIBI.TXT KILLS [SEED]

Each round starts a host on the files that the round before left, kills it (SIGKILL) at a random moment behind the
beginning of one of the four, and takes any file for a fault that is neither as before nor as it was to become. All of
them record meanwhile: the samples of each recording must be what the host sent, without a gap, and on the disk as far
as whole blocks go. For a screen and a Wine prefix of its own (scripts/with-display.sh)."""
import array
import collections
import os
import pathlib
import pwd
import random
import re
import shutil
import subprocess
import sys
import time
import zlib

RUNNER, HOST, MODULE, EIBI = map(os.path.abspath, sys.argv[1:5])
KILLS, SEED = int(sys.argv[5]), int(sys.argv[6]) if len(sys.argv) > 6 else 1
RATE, AUDIO_BLOCK, DISK_BLOCK, HEADER = 96000, 3840, 512, 48
DOCUMENTS = pathlib.Path(os.environ["MARLUX_WINE"], "prefix/drive_c/users", os.environ.get("USER") or pwd.getpwuid(os.getuid()).pw_name, "Documents")
DATA = DOCUMENTS / "Corvane/Marlux3"
WEB = pathlib.Path(os.environ["WEB_FOLDER"])
CSV, TASKS, SCHEDULE = DOCUMENTS / "mx_export.csv", DATA / "tasks.mxt", DATA / "eibi.txt"
random_ = random.Random(SEED)

NEW_TASK = ['choose "&New task"', 'waitwindow "New Task"', 'post "New Task" 0x100 13']  # Enter
RECORDS = ['waitfor "MediaState(0x1101)"']  # the task is for now
EXPORT = ['choose "&Export items to CSV"', 'waitwindow "Export to CSV"', "wait 300", 'post "Export to CSV" 0x111 1', "wait 300",
          "echo moment", 'post "Export to CSV" 0x111 6']  # "Yes" in the box that asks whether to replace
# What a round does behind the start of its recording, and for how many seconds behind the line "moment" it may be killed.
ACTIVITIES = {
    "recording": (["echo moment"], 3.0),
    "saving tasks": (["wait 1200", "echo moment", "close 1", "echo done"], 0.1),
    "exporting": (EXPORT, 0.5),
    "downloading": (["echo moment", 'choose "&Check for DB updates"'], 0.15),
}
faults, figures = [], collections.Counter()


def check(holds, text):
    if not holds:
        faults.append(text)
        print("FAULT:", text, flush=True)


def content(path):
    return path.read_bytes() if path.exists() else b""


def noise(frames):
    """The host's noise as 16-bit samples, from its first sample on."""
    state, states = 1, array.array("d")
    for _ in range(frames):
        state = (state * 1664525 + 1013904223) & 0xFFFFFFFF
        states.append((state - (state >> 31 << 32)) * 0.5 / 2147483648)
    floats = array.array("f", (value * 32767.0 for value in array.array("f", states)))
    return array.array("h", (int(value + 0.5) if value >= 0 else -int(0.5 - value) for value in floats)).tobytes()


def run(lines, moment, delay):
    """Kills the host so many seconds after it has logged the moment, or lets it end without one. Returns its log."""
    log = WEB / "host.log"
    log.unlink(missing_ok=True)
    script = WEB / "script"
    script.write_text("\n".join(["start 1", "audiolog 1", f"audio noise {RATE} 1 16", *lines, ""]))
    host = subprocess.Popen([RUNNER, HOST, "--dll", MODULE, "--minimized", "--script", script, "--log", log],
                            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    deadline = time.monotonic() + 30
    while moment and moment not in content(log) and host.poll() is None and time.monotonic() < deadline:
        time.sleep(0.001)
    if moment:
        noticed = time.monotonic()
        time.sleep(delay)
        check(host.poll() is None, "the host ended before it was killed")
        host.kill()
    host.wait(timeout=60)
    if moment:  # a recording replaces one that began in the same second
        time.sleep(max(0, noticed + 1 - time.monotonic()))
    text = log.read_text(errors="replace")
    check(" error " not in text and (not moment or moment.decode() in text), "the host says: " + text[-600:])
    return text


def blocks_of(log):
    return len(re.findall(r"blocks, the last with \d+ samples\n", log))


def check_recording(path, log, sent):
    """One that was closed is whole; the last one has each whole block of what the host had sent since its beginning."""
    data = path.read_bytes()
    told = int.from_bytes(data[44:48], "little")
    check(len(data) >= 4096 and data[:4] == b"RIFF" and data[40:44] == b"data", f"{path.name} has no header")
    if told:  # closed, or killed between the header and the last bytes, which are less than a block
        samples = data[HEADER:HEADER + told]
        check(told - len(samples) < DISK_BLOCK, f"{path.name}: {len(samples)} bytes where {told} are told")
        figures["recordings closed"] += 1
    else:
        since = blocks_of(log[log.rindex("MediaState(0x1101)"):])
        least = (HEADER + since * AUDIO_BLOCK) // DISK_BLOCK * DISK_BLOCK
        check(len(data) >= least and len(data) % DISK_BLOCK == 0, f"{path.name}: {len(data)} bytes, not {least}")
        samples = data[HEADER:max(least, len(data) if len(data) > 4096 else HEADER)]
        figures["recordings interrupted"] += 1
        figures["bytes in them"] += len(samples)
    at = sent.find(samples[:256])
    check(at % AUDIO_BLOCK == 0 and sent.startswith(samples, at), f"{path.name}: not what the host sent")


def check_files(before, served, log, tasks_made):
    tasks = content(TASKS)
    known = before[TASKS]
    check(tasks.startswith(known) and len(tasks) - len(known) in (0, 48 * tasks_made), "tasks.mxt is neither")
    figures["tasks.mxt replaced"] += tasks != known
    check(content(SCHEDULE) in (before[SCHEDULE], served["eibi.txt"]), "eibi.txt is neither")
    figures["eibi.txt replaced"] += content(SCHEDULE) != before[SCHEDULE]
    check(content(CSV) in (b"old", whole_csv), "the CSV file is neither")
    figures["CSV replaced"] += content(CSV) == whole_csv
    for path in DATA.glob("*.zip"):
        is_new = path not in before
        check(path.read_bytes() == (served.get(path.name) if is_new else before[path]), f"{path.name} is not whole")
        figures["archives downloaded"] += is_new
    for path, sum_ in recordings.items():
        check(zlib.crc32(content(path)) == sum_, f"{path.name} has changed")
    sent = noise_bytes[:(blocks_of(log) + 1) * AUDIO_BLOCK]
    for path in sorted(DATA.glob("Recordings/*.wav")):
        if path not in recordings:
            check_recording(path, log, sent)
            recordings[path] = zlib.crc32(path.read_bytes())


def count_leftovers(since):
    for path in [*DATA.glob("*.new"), *DOCUMENTS.glob("csv*.tmp")]:  # they stay, for the rounds to come
        if path.stat().st_mtime > since:
            kind = "a CSV file" if path.suffix == ".tmp" else "an archive" if ".zip" in path.name else path.stem
            figures["kills inside the write of " + kind] += 1


shutil.rmtree(DATA, ignore_errors=True)
(DATA / "Recordings").mkdir(parents=True)
for name in ("dx", "data"):
    (WEB / name).mkdir(parents=True, exist_ok=True)
subprocess.run([RUNNER, "reg", "delete", r"HKCU\Software\Corvane Communications", "/f"], stdout=subprocess.DEVNULL,
               stderr=subprocess.DEVNULL)
os.environ["MARLUX_LOOPBACK_PORT"] = os.environ["WEB_PORT"]
lines = pathlib.Path(EIBI).read_bytes().splitlines(keepends=True)
head, body = lines[1:17], b"".join(lines[17:])
body *= 16000 // (len(lines) - 17) + 1  # enough for an export to take its time
SCHEDULE.write_bytes(b"version 0\r\n" + b"".join(head) + body)
(DATA / "none.zip").touch()
TASKS.write_bytes(bytes(48) * 20000)  # which are never due
noise_bytes, recordings, whole_csv = noise(RATE * 20), {}, b""
CSV.write_bytes(b"old")
run([*EXPORT, "wait 3000"], None, 0)
whole_csv = content(CSV)
check(whole_csv.count(b"\r\n") == body.count(b"\n") + 1, "no CSV file came")

for number in range(1, KILLS + 1):
    activity, (steps, longest) = list(ACTIVITIES.items())[number % 4]
    CSV.write_bytes(b"old")
    served = {"eibi.txt": b"version %d\r\n" % number + b"".join(head) + body}
    served |= {f"a{number}-{i}.zip": random_.randbytes(1 << 20) for i in range(3)}
    page = "".join(f'<LI><A HREF="{name}">' for name in served if name.endswith(".zip"))
    for name, data in {**served, "index.html": f"<UL>{page}".encode()}.items():
        (WEB / ("dx" if name == "eibi.txt" else "data") / name).write_bytes(data)
    before = {path: content(path) for path in [TASKS, SCHEDULE, *DATA.glob("*.zip")]}
    delay, begin = random_.uniform(0, longest), time.time()
    log = run([*NEW_TASK, *RECORDS, *steps, "wait 20000"], b"moment", delay)
    check_files(before, served, log, 1)
    figures["kills while " + activity] += 1
    count_leftovers(begin)
print(f"seed {SEED}:", *(f"{count} {what}," for what, count in sorted(figures.items())), len(faults), "faults")
shutil.rmtree(DATA)
for path in [CSV, *DOCUMENTS.glob("csv*.tmp")]:
    path.unlink(missing_ok=True)
sys.exit(bool(faults))
