#!/usr/bin/env python3
"""Checks what every tracked file of the repository keeps to; prints one line a finding and exits with 1 when there is one.

Usage: check-style.py [ROOT]      ROOT is the repository, by default the one that this script lies in.

Includes point down: a folder's files include their own folder and those that LAYERS lists for it. The build's own
libraries see the same at link time; this sees it for headers, too. Function lengths come from counting braces in text
without comments and literals, which is near enough: preprocessor branches that open a brace twice would mislead it.
"""
import os
import re
import shutil
import subprocess
import sys

MAX_FILE_LINES = 499
MAX_FUNCTION_LINES = 59
MAX_DISPATCHER_LINES = 99
DISPATCHERS = {"WndProc"}  # tables of contents: one line a message

TEXT = re.compile(r"\.(cpp|h|c|rc|def|manifest|py|sh|md|txt|cmake|json|reg|yml|hhp|hhc|html|css|nsi|csv)$")
BARE_TEXT = {".clang-format", ".clang-tidy", ".gitignore", ".editorconfig", "run"}
SOURCE = re.compile(r"\.(cpp|h)$")

# The folders that a folder's files may include besides their own. "plugin" is its lower half; its entry points are the
# top of the module and stand under "plugin/Exports".
LAYERS = {
    "foundation": (),
    "toolkit": ("foundation",),
    "schedule": ("foundation",),
    "plugin": ("foundation",),
    "scheduler": ("foundation", "toolkit", "schedule", "plugin"),
    "download": ("foundation", "toolkit", "schedule"),
    "app": ("foundation", "toolkit", "schedule", "plugin", "scheduler", "download"),
    "plugin/Exports": ("foundation", "toolkit", "schedule", "plugin", "scheduler", "download", "app"),
    "host": (),
    "gallery": ("foundation", "toolkit"),
    "bench": ("foundation", "toolkit", "schedule", "plugin", "scheduler", "download", "app", "tests"),  # for what tests share
    "fuzz": ("foundation", "toolkit", "schedule", "scheduler", "download", "plugin", "app", "tests"),  # as bench
}
# Tests see what they test, what that one sees, and what tests share.
TEST_LAYERS = {name: (name, "tests") + below for name, below in LAYERS.items() if "/" not in name}
TEST_LAYERS["support"] = ("tests", "foundation")
TEST_LAYERS["tools"] = ("tests", "app") + LAYERS["app"]
TEST_LAYERS["system"] = ("tests",)  # only through the module's entry points

HEADER_START = re.compile(r"// Marlux (3|host)\. \S.*")
QUOTED_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]*)"', re.MULTILINE)

# Words that say nothing to a reader of the repository. In pieces, so that a search for them does not find this file.
_S = "spe" + "c"
WORDS = [
    re.compile(r"\b" + _S + r"s?\b", re.IGNORECASE),
    re.compile(_S + "ification", re.IGNORECASE),
    re.compile(r"\bas " + _S + "ified", re.IGNORECASE),
    re.compile(r"\bP" + r"arts? [1-6]\.[0-9]"),
]


def tracked_files(root):
    """Paths from the root with slashes; outside of git, everything but build/ and hidden folders."""
    listing = subprocess.run(["git", "-C", root, "ls-files", "-z"], capture_output=True)
    if listing.returncode == 0:
        names = listing.stdout.decode().split("\0")
        return sorted(name for name in names if name and os.path.isfile(os.path.join(root, name)))
    found = []
    for folder, folders, names in os.walk(root):
        folders[:] = [name for name in folders if name != "build" and not name.startswith(".")]
        found += [os.path.relpath(os.path.join(folder, name), root).replace(os.sep, "/") for name in names]
    return sorted(found)


def is_text(path):
    return bool(TEXT.search(path)) or os.path.basename(path) in BARE_TEXT


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def check_text(path, data):
    """Line endings, blanks and words. `data` is bytes."""
    if b"\r" in data:
        yield 1, "has carriage returns"
    if data and not data.endswith(b"\n"):
        yield data.count(b"\n") + 1, "ends without a line feed"
    for number, line in enumerate(data.decode("utf-8", "replace").split("\n"), 1):
        if "\t" in line:
            yield number, "has a tab"
        if line.endswith(" "):
            yield number, "ends in blanks"
        if any(word.search(line) for word in WORDS):
            yield number, "names a document that its reader does not have"


def layer_of(path):
    """The folders that `path` may include, or None for a folder without a place."""
    parts = path.split("/")
    if parts[0] == "tests":
        return TEST_LAYERS.get(parts[1])
    if path.startswith("plugin/Exports."):
        return ("plugin",) + LAYERS["plugin/Exports"]
    below = LAYERS.get(parts[0])
    return None if below is None else (parts[0],) + below


def check_includes(root, path, text):
    allowed = layer_of(path)
    if allowed is None:
        yield 1, "lies in a folder that LAYERS in scripts/check-style.py does not know"
        return
    for match in QUOTED_INCLUDE.finditer(text):
        name, line = match.group(1), line_of(text, match.start())
        if not os.path.isfile(os.path.join(root, name)):
            yield line, f'"{name}" is not a path from the root'
        elif name.split("/")[0] not in allowed:
            yield line, f'"{name}" lies above or beside this folder'
        elif name.startswith("plugin/Exports."):
            yield line, f'"{name}" is the top: nothing includes it'


def check_header(text):
    first = text.split("\n", 1)[0]
    if not HEADER_START.fullmatch(first):
        yield 1, "the first line is not '// Marlux 3. <what it is for>'"
    if len(re.findall(r"^#pragma once$", text, re.MULTILINE)) != 1:
        yield 1, "has not one #pragma once"


LINK = re.compile(r"\]\((?!https?:)([^)#\s]*)(?:#([^)\s]*))?\)")


def heading_names(path):
    """What a link may name behind "#": the page's headings in lower case, blanks as hyphens, without other signs."""
    with open(path, encoding="utf-8") as file:
        headings = re.findall(r"^#+ (.*)$", file.read(), re.MULTILINE)
    return {re.sub(r"[^\w-]", "", heading.lower().replace(" ", "-")) for heading in headings}


def check_links(root, path, text):
    """Links and pictures of a page lead to files, and to headings where they name one."""
    for match in LINK.finditer(text):
        target = os.path.normpath(os.path.join(os.path.dirname(path), match.group(1))) if match.group(1) else path
        found = os.path.exists(os.path.join(root, target))
        if not found or (match.group(2) and match.group(2) not in heading_names(os.path.join(root, target))):
            yield line_of(text, match.start()), f"{match.group(0)[2:-1]} leads nowhere"


NOT_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9A-Za-z_])'(?:\\.|[^'\\\n])+'|^[ \t]*#(?:[^\n]*\\\n)*[^\n]*",
    re.DOTALL | re.MULTILINE)


def bare_code(text):
    """The same text, as many lines, without comments, literals and directives."""
    def blank(match):
        whole = match.group(0)
        kept = '""' if whole[0] in "\"R'" else ""
        return kept + "\n" * whole.count("\n")
    return NOT_CODE.sub(blank, text)


CONTAINER = re.compile(r"\b(namespace|class|struct|union|enum|extern)\b")
FUNCTION_NAME = re.compile(r"(operator\s*[^\s\w]+|[~\w:]+)\s*\(")


def matching_brace(code, opening):
    depth = 0
    for match in re.compile(r"[{}]").finditer(code, opening):
        depth += 1 if match.group() == "{" else -1
        if depth == 0:
            return match.start()
    return len(code) - 1


def functions(code):
    """Name, first and last line of each function body in bare code; nested ones count within the outer one."""
    start = position = 0  # start: where the current declaration began
    while True:
        match = re.compile(r"[{};]").search(code, position)
        if not match:
            return
        position = match.end()
        if match.group() != "{":
            start = position
            continue
        head = code[start:match.start()]
        flat = re.sub(r"<[^<>()]*>", "", head)
        if CONTAINER.search(flat) and not re.search(r"\)\s*(const|noexcept|override|final|\s)*$", flat):
            start = position  # its members are looked at one by one
            continue
        closing = matching_brace(code, match.start())
        position = closing + 1
        following = code[position:].lstrip()[:1]
        if following in (",", ";") or (following == "{" and "(" in head):
            continue  # an initializer, of a variable or of a member; the body is still to come
        name = FUNCTION_NAME.search(flat)
        if name:
            first = start + len(head) - len(head.lstrip())
            yield name.group(1), line_of(code, first), line_of(code, closing)
        start = position


def check_lengths(text):
    lines = text.count("\n")
    if lines > MAX_FILE_LINES:
        yield 1, f"has {lines} lines, {MAX_FILE_LINES} are the limit"
    for name, first, last in functions(bare_code(text)):
        length = last - first + 1
        limit = MAX_DISPATCHER_LINES if name.split("::")[-1] in DISPATCHERS else MAX_FUNCTION_LINES
        if length > limit:
            yield first, f"{name} has {length} lines, {limit} are the limit"


def check_layout(root, sources):
    """clang-format's opinion, where it is installed: the first place of each file."""
    if not sources or not shutil.which("clang-format"):
        return
    result = subprocess.run(["clang-format", "--dry-run", "-Werror", *sources], cwd=root, capture_output=True, text=True)
    first = {}
    for path, line in re.findall(r"^([^\s:]+):(\d+):\d+: error:", result.stderr, re.MULTILINE):
        first.setdefault(path, line)
    for path, line in first.items():
        yield path, int(line), "is laid out otherwise than .clang-format says: run clang-format -i"
    if result.returncode and ": error:" not in result.stderr:
        yield "clang-format", 0, result.stderr.strip()


def findings(root):
    sources = []
    for path in filter(is_text, tracked_files(root)):
        with open(os.path.join(root, path), "rb") as file:
            data = file.read()
        checks = [check_text(path, data)]
        if path.endswith(".md"):
            checks.append(check_links(root, path, data.decode("utf-8", "replace")))
        if SOURCE.search(path):
            sources.append(path)
            text = data.decode("utf-8", "replace")
            checks += [check_includes(root, path, text), check_lengths(text)]
            if path.endswith(".h"):
                checks.append(check_header(text))
        for check in checks:
            yield from ((path, line, what) for line, what in check)
    if not sources:
        yield root, 0, "has no sources to check"
    yield from check_layout(root, sources)


def main():
    root = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), ".."))
    found = 0
    for path, line, what in findings(root):
        print(f"{path}:{line}: {what}")
        found += 1
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
