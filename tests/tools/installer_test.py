#!/usr/bin/env python3
"""The set-up program under Wine, without questions:  installer_test.py SCRIPTS BIN-FOLDER DIST-FOLDER

Every place where it can learn the host's folder from, what it leaves there, and that the user's own things outlive it.
"""
import hashlib
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile

SCRIPTS, BIN, DIST = sys.argv[1:4]
SETUP = os.path.join(DIST, "marlux3-setup.exe")
UNINSTALL_KEY = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Marlux3"
HOST_KEY = r"HKLM\Software\ZQN"
USER_KEY = r"HKCU\Software\Corvane Communications\Marlux 3"
UNKNOWN, IN_USE = 2, 3


def wine(*arguments, **environment):
    """The exit code. Output goes nowhere: services that start beside would keep a pipe open."""
    variables = {name: value for name, value in os.environ.items() if name != "ZQN_PLUGIN_PATH"} | environment
    return subprocess.run([os.path.join(SCRIPTS, "wine-run.sh"), *arguments], env=variables, timeout=60, check=False,
                          stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode


def has_key(key):
    return wine("reg", "query", key) == 0


def windows_path(path):
    return "Z:" + path.replace("/", "\\")


def content(path):
    with open(path, "rb") as file:
        return file.read()


class InstallerTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="marlux-setup-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.addCleanup(wine, "reg", "delete", HOST_KEY, "/f")
        self.addCleanup(wine, "reg", "delete", UNINSTALL_KEY, "/f")

    def files(self):
        return sorted(os.listdir(self.folder))

    def uninstall(self):
        # A copy of it does the work, so that it can delete itself; "_?=" keeps that in this process, which can be waited for.
        program = os.path.join(self.folder, "marlux3-uninstall.exe")
        return wine(program, "/S", "_?=" + windows_path(self.folder))

    def test_into_the_folder_of_the_environment_and_out_again(self):
        wine("reg", "add", HOST_KEY, "/v", "SearchPath", "/d", "Z:\\nowhere", "/f")
        wine("reg", "add", USER_KEY, "/v", "Left", "/t", "REG_DWORD", "/d", "7", "/f")
        self.addCleanup(wine, "reg", "delete", USER_KEY, "/f")
        with open(os.path.join(self.folder, "other.dll"), "w", encoding="ascii") as other:
            other.write("another plug-in")
        with open(os.path.join(self.folder, "marlux3.dll"), "w", encoding="ascii") as old:
            old.write("an earlier version")
        self.assertEqual(wine(SETUP, "/S", ZQN_PLUGIN_PATH=windows_path(self.folder)), 0)
        self.assertEqual(self.files(), ["marlux3-uninstall.exe", "marlux3.chm", "marlux3.dll", "other.dll"])
        for name in ("marlux3.dll", "marlux3.chm"):
            self.assertEqual(content(os.path.join(self.folder, name)), content(os.path.join(BIN, name)))
        self.assertTrue(has_key(UNINSTALL_KEY))
        self.assertEqual(self.uninstall(), 0)
        self.assertIn(self.files(), (["other.dll"], ["marlux3-uninstall.exe", "other.dll"]))
        self.assertFalse(has_key(UNINSTALL_KEY))
        self.assertTrue(has_key(USER_KEY))

    def test_into_the_folder_that_the_host_registered(self):
        wine("reg", "add", HOST_KEY, "/v", "SearchPath", "/d", windows_path(self.folder), "/f")
        self.assertEqual(wine(SETUP, "/S"), 0)
        self.assertIn("marlux3.dll", self.files())

    def test_an_unknown_folder_changes_nothing(self):
        self.assertEqual(wine(SETUP, "/S"), UNKNOWN)
        self.assertFalse(has_key(UNINSTALL_KEY))

    def test_a_module_that_cannot_be_replaced_changes_nothing(self):
        os.mkdir(os.path.join(self.folder, "marlux3.dll"))  # as little to be opened as one that is loaded
        self.assertEqual(wine(SETUP, "/S", "/D=" + windows_path(self.folder)), IN_USE)
        self.assertEqual(self.files(), ["marlux3.dll"])
        self.assertFalse(has_key(UNINSTALL_KEY))


class ArchiveTest(unittest.TestCase):
    def test_its_sums_and_licences(self):
        [name] = [name for name in os.listdir(DIST) if name.endswith(".zip")]
        with zipfile.ZipFile(os.path.join(DIST, name)) as archive:
            names = set(archive.namelist())
            for line in archive.read("SHA256SUMS").decode().splitlines():
                digest, file = line.split("  ")
                self.assertEqual(hashlib.sha256(archive.read(file)).hexdigest(), digest)
                names.remove(file)
            self.assertEqual(names, {"SHA256SUMS"})
            for library in ("zlib", "minizip", "gcc-runtime", "mingw-w64-runtime"):
                self.assertGreater(len(archive.read(f"licences/{library}.txt")), 500)
            self.assertEqual(archive.read("marlux3.dll"), content(os.path.join(BIN, "marlux3.dll")))

    def test_the_same_help_gives_the_same_file(self):
        with tempfile.TemporaryDirectory() as folder:
            again = os.path.join(folder, "again.chm")
            subprocess.run([sys.executable, os.path.join(SCRIPTS, "make-help.py"), os.path.join(SCRIPTS, "../help"),
                            os.path.join(folder, "work"), again], check=True)
            self.assertEqual(content(again), content(os.path.join(BIN, "marlux3.chm")))


unittest.main(argv=sys.argv[:1])
