"""The style check finds what it is there for: small trees with one fault each, and one without."""
import os
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
HEADER = "// Marlux 3. A thing.\n#pragma once\n"
BELOW = {"foundation/A.h": HEADER, "toolkit/T.h": HEADER, "plugin/HostLink.h": HEADER, "app/W.h": HEADER,
         "plugin/Exports.h": HEADER, "host/H.h": HEADER, "schedule/S.h": HEADER, "tests/support/F.h": HEADER}


def function(head, lines):
    """A function of as many lines, its head and its closing brace included."""
    return head + " {\n" + "  Call('}');\n" * (lines - 2) + "}\n"


def check(files):
    with tempfile.TemporaryDirectory() as root:
        for path, text in files.items():
            os.makedirs(os.path.join(root, os.path.dirname(path)), exist_ok=True)
            with open(os.path.join(root, path), "wb") as file:
                file.write(text.encode())
        with open(os.path.join(root, ".clang-format"), "w") as file:
            file.write("DisableFormat: true\n" if ".layout" not in files else "BasedOnStyle: Google\n")
        # Not under the repository's own list of files, which git would find from a folder inside of it.
        environment = dict(os.environ, GIT_DIR=os.path.join(root, "none"))
        run = subprocess.run([sys.executable, os.path.join(ROOT, "scripts/check-style.py"), root],
                             capture_output=True, text=True, env=environment)
        return run.returncode, run.stdout + run.stderr


class CheckStyleTest(unittest.TestCase):
    def test_good_tree_is_silent(self):
        good = dict(BELOW)
        good["app/W.cpp"] = '#include "app/W.h"\n#include "toolkit/T.h"\n#include "plugin/HostLink.h"\n#include <x.h>\n'
        good["plugin/Exports.cpp"] = '#include "app/W.h"\n'
        good["tests/app/WTest.cpp"] = '#include "app/W.h"\n#include "tests/support/F.h"\n'
        good["foundation/A.cpp"] = (function("namespace a {\nint A::Go(int x) const", 59) + "}\n" +
                                    function("long T::WndProc(int x)", 99) +
                                    "const char* kText = R\"({{{)\";  // {\n" + function("void B()", 59))
        good["docs/words.md"] = "# A b\nA special, specific [part 7.5](../app/W.h), [above](#a-b), [afar](https://a.b/c).\n"
        self.assertEqual(check(good), (0, ""))

    def test_each_fault_is_found(self):
        word = "spe" + "c"
        cases = [
            ("foundation/B.cpp", '#include "toolkit/T.h"\n', ":1: ", "above or beside"),
            ("toolkit/B.cpp", '\n#include "schedule/S.h"\n', ":2: ", "above or beside"),
            ("plugin/B.cpp", '#include "app/W.h"\n', ":1: ", "above or beside"),
            ("host/B.cpp", '#include "foundation/A.h"\n', ":1: ", "above or beside"),
            ("app/B.cpp", '#include "plugin/Exports.h"\n', ":1: ", "is the top"),
            ("tests/schedule/B.cpp", '#include "app/W.h"\n', ":1: ", "above or beside"),
            ("foundation/B.cpp", '#include "A.h"\n', ":1: ", "not a path from the root"),
            ("somewhere/B.cpp", "\n", ":1: ", "does not know"),
            ("docs/B.md", "\n![b](W.h)\n", ":2: ", "W.h leads nowhere"),
            ("docs/B.md", "[b](#c)\n", ":1: ", "#c leads nowhere"),
            ("app/B.h", "// A thing.\n#pragma once\n", ":1: ", "first line"),
            ("app/B.h", "// Marlux 3. A thing.\n", ":1: ", "#pragma once"),
            ("app/B.cpp", "\n" * 500, ":1: ", "has 500 lines"),
            ("app/B.cpp", "\n" + function("B::B() : a_{1}, b_(2)", 60), ":2: ", "B has 60 lines"),
            ("app/B.cpp", function("struct B {\n  template <class T> bool operator==(T b) const noexcept", 60) + "};\n",
             ":2: ", "operator== has 60 lines"),
            ("app/B.cpp", "std::vector<int> v = {1,\n2};\n" + function("long B::WndProc(int x)", 100), ":3: ",
             "WndProc has 100 lines"),
            ("app/B.cpp", "\n\tint x;\n", ":2: ", "tab"),
            ("docs/b.md", "text \n", ":1: ", "blanks"),
            ("docs/b.md", "text\r\n", ":1: ", "carriage"),
            ("docs/b.md", "text", ":1: ", "line feed"),
            ("docs/b.md", f"as the {word} says\n", ":1: ", "a document"),
            ("scripts/b.sh", f"# {word.upper()}IFICATION\n", ":1: ", "a document"),
            ("docs/b.md", "\nsee Pa" + "rt 3.14\n", ":2: ", "a document"),
        ]
        for path, text, line, what in cases:
            with self.subTest(path=path, what=what):
                code, output = check({**BELOW, path: text})
                self.assertEqual(code, 1)
                self.assertRegex(output, "(?m)^" + path + line + ".*" + what)
                self.assertEqual(output.count("\n"), 1, output)

    def test_layout_and_empty_tree(self):
        code, output = check({**BELOW, ".layout": "", "app/B.cpp": "int  x;\nint  y;\n"})
        self.assertEqual((code, output.count("app/B.cpp:1:"), output.count("\n")), (1, 1, 1), output)
        self.assertEqual(check({"docs/b.md": "text\n"})[0], 1)


if __name__ == "__main__":
    unittest.main()
