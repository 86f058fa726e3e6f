#!/usr/bin/env python3
"""An installation of everything, as the packages bring it.

    packaging_test.py SOURCE-DIRECTORY BUILD-DIRECTORY VERSION [TEST…]
"""
import gzip
import json
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

LIMIT = 120  # seconds that a loaded machine may take for a step
COMPONENTS = ("session", "phone", "sdk")
PROGRAMS = ("vela-lyrics-gateway", "vela-new-plugin", "vela-phone", "vela-session", "vela-settings")


class PackagingTest(unittest.TestCase):
    source = build = version = None

    @classmethod
    def setUpClass(cls):
        cls.directory = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.directory.cleanup)
        cls.prefix = Path(cls.directory.name) / "a prefix"
        for component in COMPONENTS:
            subprocess.run(["cmake", "--install", cls.build, "--component", component, "--prefix", cls.prefix,
                            "--strip"], check=True, timeout=LIMIT, stdout=subprocess.DEVNULL)

    def run_program(self, *command, check=True):
        data = Path(self.directory.name) / "data"
        environment = {key: value for key, value in os.environ.items() if not key.startswith("VELA")}
        environment.update(LC_ALL="C.UTF-8", XDG_DATA_HOME=str(data), HOME=str(data), MANWIDTH="80")
        result = subprocess.run([str(word) for word in command], env=environment, text=True, capture_output=True,
                                cwd=self.directory.name, timeout=LIMIT)
        if check:
            self.assertEqual(result.returncode, 0, f"{command}\n{result.stdout}\n{result.stderr}")
        return result

    def files(self, *patterns):
        found = [path for pattern in patterns for path in sorted(self.prefix.glob(pattern))]
        self.assertTrue(found, patterns)
        return found

    def test_the_programs_are_there_and_no_others(self):
        self.assertEqual(tuple(path.name for path in self.files("bin/*")), PROGRAMS)

    def test_menu_entries_are_valid_and_start_installed_programs(self):
        entries = self.files("share/applications/*.desktop")
        self.run_program("desktop-file-validate", *entries)
        for entry in entries:
            text = entry.read_text(encoding="utf-8")
            for program in re.findall(r"^Exec=(\S+)", text, re.MULTILINE):
                self.assertIn(program, PROGRAMS)
            icon = re.search(r"^Icon=(.+)$", text, re.MULTILINE).group(1)
            self.assertTrue((self.prefix / f"share/icons/hicolor/scalable/apps/{icon}.svg").is_file(), icon)

    def test_the_description_for_software_centres_is_valid(self):
        for description in self.files("share/metainfo/*.xml"):
            self.run_program("appstreamcli", "validate", "--no-net", "--pedantic", description)
            text = description.read_text(encoding="utf-8")
            self.assertIn(f'<release version="{self.version}"', text)
            launched = re.search(r'<launchable type="desktop-id">(.+)</launchable>', text).group(1)
            self.assertTrue((self.prefix / "share/applications" / launched).is_file(), launched)

    def test_every_program_has_a_manual_that_tells_its_options(self):
        for program in PROGRAMS:
            page = self.prefix / f"share/man/man1/{program}.1.gz"
            shown = self.run_program("man", "--warnings", "-E", "UTF-8", "-l", page)
            self.assertEqual(shown.stderr, "")
            source = gzip.decompress(page.read_bytes()).decode()
            self.assertIn(f'"Vela {self.version}"', source.splitlines()[0])
            self.assertRegex(source.splitlines()[0], r'"\d{4}-\d\d-\d\d"')
            options = re.findall(r"(?<![\w-])--[a-z][a-z-]*", self.run_program(self.prefix / "bin" / program, "--help").stdout)
            self.assertTrue(options, program)
            told = set(re.findall(r"--[a-z][a-z-]*", source.replace("\\-", "-")))
            self.assertEqual(set(options) - told, set(), program)

    def test_the_units_program_and_manual_are_there(self):
        for unit in self.files("lib/systemd/user/*.service"):
            text = unit.read_text(encoding="utf-8")
            self.assertIn(re.search(r"^ExecStart=(\S+)", text, re.MULTILINE).group(1), PROGRAMS)
            manual, section = re.search(r"^Documentation=man:(\S+)\((\d)\)", text, re.MULTILINE).groups()
            self.assertTrue((self.prefix / f"share/man/man{section}/{manual}.{section}.gz").is_file())

    def test_every_package_has_its_license_and_changelog(self):
        for package in ("vela3", "vela3-phone", "vela3-dev"):
            documents = self.prefix / "share/doc" / package
            self.assertIn("MIT License", (documents / "copyright").read_text(encoding="utf-8"))
            changelog = gzip.decompress((documents / "changelog.gz").read_bytes()).decode()
            self.assertTrue(changelog.startswith(f"{package} ({self.version}) "), changelog)
            self.assertRegex(changelog, r"\n -- .+ <.+@.+>  \w{3}, \d\d \w{3} \d{4} \d\d:\d\d:\d\d \+0000\n")
        self.assertIn("SIL OPEN FONT LICENSE", (self.prefix / "share/doc/vela3/copyright").read_text(encoding="utf-8"))
        self.assertTrue((self.prefix / "share/doc/vela3/NEWS.md.gz").is_file())

    def test_no_program_knows_where_it_was_made(self):
        for path in self.prefix.rglob("*"):
            if not path.is_file() or not path.read_bytes().startswith(b"\x7fELF"):
                continue
            for needle in (f"{self.source}/resources", f"{self.build}/bin", f"{self.build}/lib"):
                self.assertNotIn(needle.encode(), path.read_bytes(), path)
            dynamic = self.run_program("readelf", "-d", path).stdout
            for directories in re.findall(r"\((?:RUNPATH|RPATH)\).*\[(.*)\]", dynamic):
                self.assertTrue(all(each.startswith("$ORIGIN") for each in directories.split(":")), directories)
            sections = self.run_program("readelf", "-S", "-W", path).stdout
            self.assertNotIn(".symtab", sections, f"{path} is not stripped")

    def test_the_installed_programs_run(self):
        for program in ("vela-phone", "vela-session", "vela-settings"):
            version = self.run_program(self.prefix / "bin" / program, "--version").stdout
            self.assertEqual(version, f"{program} {self.version}\n")
        listed = self.run_program(self.prefix / "bin/vela-settings", "--list").stdout
        self.assertRegex(listed, r"Enable +on")
        self.assertRegex(listed, r"com\.apple\.mobilenotes")
        script = Path(self.directory.name) / "pull.phone"
        script.write_text("wait 1\ntouch down 5 300\ntouch move 320 300 over 0.3\ntouch up\nwait 1\nstate s.json\n",
                          encoding="utf-8")
        self.run_program(self.prefix / "bin/vela-phone", "--headless", "--script", script, "--out",
                         self.directory.name)
        text = (Path(self.directory.name) / "s.json").read_text(encoding="utf-8")
        tiles = re.findall(r'"identifier": ?"(org\.lanternhub\.[^"]+)"', json.dumps(json.loads(text)))
        self.assertGreaterEqual(len(set(tiles)), 5, "the plug-ins that come along")


if __name__ == "__main__":
    PackagingTest.source, PackagingTest.build, PackagingTest.version = sys.argv[1:4]
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
