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
UNKNOWN, IN_USE, NOT_WRITTEN = 2, 3, 4


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

    def uninstall(self, folder=""):
        # A copy of it does the work, so that it can delete itself; "_?=" keeps that in this process, which can be waited for.
        program = os.path.join(self.folder, folder, "marlux3-uninstall.exe")
        return wine(program, "/S", "_?=" + windows_path(os.path.dirname(program)))

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

    def test_where_the_folder_is_learnt_from(self):
        here = windows_path(self.folder)
        for environment, registered, ends in (("Z:\\nowhere", "", UNKNOWN), ("Z:\\nowhere", here + "\\", 0),
                                              (here + "\\", "Z:\\nowhere", 0), ("", "Z:\\nowhere", UNKNOWN)):
            with self.subTest(environment=environment, registered=registered):
                wine("reg", "add", HOST_KEY, "/v", "SearchPath", "/d", registered, "/f")
                self.assertEqual(wine(SETUP, "/S", ZQN_PLUGIN_PATH=environment), ends)
                self.assertEqual(has_key(UNINSTALL_KEY), ends == 0)
                self.assertEqual("marlux3.dll" in self.files(), ends == 0)
                if ends == 0:
                    self.uninstall()

    def test_a_file_that_cannot_be_replaced_changes_nothing(self):
        for name, ends in (("marlux3.dll", IN_USE), ("marlux3.chm", IN_USE), ("marlux3-uninstall.exe", NOT_WRITTEN)):
            os.mkdir(os.path.join(self.folder, name))  # as little to be opened as one that is loaded
            self.assertEqual(wine(SETUP, "/S", "/D=" + windows_path(self.folder)), ends)
            self.assertEqual(self.files(), [name])
            self.assertFalse(has_key(UNINSTALL_KEY))
            os.rmdir(os.path.join(self.folder, name))

    def test_two_folders_each_with_its_uninstaller(self):
        for name in ("first", "second"):
            self.assertEqual(wine(SETUP, "/S", "/D=" + windows_path(os.path.join(self.folder, name))), 0)
        for name, keeps_key in (("first", True), ("second", False)):
            module = os.path.join(self.folder, name, "marlux3.dll")
            os.rename(module, module + ".old")
            os.mkdir(module)
            self.assertEqual(self.uninstall(name), IN_USE)
            self.assertTrue(has_key(UNINSTALL_KEY))
            os.rmdir(module)
            self.assertEqual(self.uninstall(name), 0)
            self.assertEqual(has_key(UNINSTALL_KEY), keeps_key)


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

    def test_the_same_files_give_the_same_bytes(self):
        [name] = [name for name in os.listdir(DIST) if name.endswith(".zip")]
        with tempfile.TemporaryDirectory() as folder, zipfile.ZipFile(os.path.join(DIST, name)) as archive:
            def again(file):
                return os.path.join(folder, file)

            def run(script, *arguments):
                subprocess.run([sys.executable, os.path.join(SCRIPTS, script), *arguments], check=True)
            archive.extractall(folder)  # with the time of now
            run("make-zip.py", again(name), *(f"{file}={again(file)}" for file in archive.namelist()
                                              if file != "SHA256SUMS"))
            run("make-help.py", os.path.join(SCRIPTS, "../help"), again("work"), again("marlux3.chm"))
            run("make-icon.py", "module", again("marlux3.ico"))
            definitions = {"VERSION": name[len("marlux3-"):-len(".zip")], "MODULE": again("marlux3.dll"),
                           "HELP": again("marlux3.chm"), "ICON": again("marlux3.ico"), "OUTPUT": again("marlux3-setup.exe")}
            subprocess.run(["makensis", "-V1", *(f"-D{key}={value}" for key, value in definitions.items()),
                            os.path.join(SCRIPTS, "../installer/marlux3.nsi")], check=True)
            for file in (name, "marlux3-setup.exe", "marlux3.chm"):
                place = BIN if file.endswith(".chm") else DIST
                self.assertEqual(content(again(file)), content(os.path.join(place, file)), file)


unittest.main(argv=sys.argv[:1])
