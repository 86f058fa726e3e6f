#!/usr/bin/env python3
"""The SDK as somebody else has it: installed, and used far from the source tree.

    sdk_test.py BUILD-DIRECTORY VELA-PHONE [TEST…]
"""
import json
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TUTORIAL = Path(__file__).resolve().parents[2] / "docs" / "plug-ins.md"
LIMIT = 240  # seconds that a loaded machine may take for a step
PLUGINS = "Library/Application Support/Vela/Plugins"
PULL_AND_OPEN = """
wait 0.3
touch down 5 300
touch move 320 300 over 0.3
touch up
wait 0.8
state board.json
tap 140 300
wait 2
state open.json
shot open.png
tap 140 600
wait 0.3
state tapped.json
"""


def views_of(state):
    """Every window and view of a state, the outer ones first."""
    waiting = list(state["windows"])
    while waiting:
        view = waiting.pop(0)
        yield view
        waiting = view.get("subviews", []) + waiting


class SdkTest(unittest.TestCase):
    build = None
    phone = None

    @classmethod
    def setUpClass(cls):
        cls.directory = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.directory.cleanup)
        cls.prefix = Path(cls.directory.name) / "a prefix"
        subprocess.run(["cmake", "--install", cls.build, "--component", "sdk", "--prefix", cls.prefix], check=True,
                       timeout=LIMIT, stdout=subprocess.DEVNULL)

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.folder = Path(directory.name)
        self.data = self.folder / "data"
        self.environment = {key: value for key, value in os.environ.items()
                            if not key.startswith(("CMAKE", "VELA"))}
        self.environment["XDG_DATA_HOME"] = str(self.data)

    def run_in(self, folder, *command, check=True):
        result = subprocess.run([str(word) for word in command], cwd=folder, env=self.environment, text=True,
                                capture_output=True, timeout=LIMIT)
        if check:
            self.assertEqual(result.returncode, 0, f"{command}\n{result.stdout}\n{result.stderr}")
        return result

    def new_plugin(self, *arguments, check=True):
        return self.run_in(self.folder, self.prefix / "bin" / "vela-new-plugin", *arguments, check=check)

    def follow(self, printed):
        """Types what the tool says, line by line."""
        commands = re.findall(r"^ {4}(.+)$", printed, re.MULTILINE)
        self.assertEqual(len(commands), 4)
        self.run_in(self.folder, "sh", "-e", "-c", "\n".join(commands))

    def play(self, script, *options):
        (self.folder / "a.phone").write_text(script, encoding="utf-8")
        out = self.folder / "out"
        self.run_in(self.folder, self.phone, "--headless", "--no-plugins", "--script", "a.phone", "--out", out,
                    *options)
        return {path.stem: json.loads(path.read_text(encoding="utf-8")) for path in out.glob("*.json")}

    def expect_tile(self, states, identifier, title):
        tiles = [view for view in views_of(states["board"]) if view["class"] == "velaApplicationView"]
        self.assertEqual([tile["properties"]["identifier"] for tile in tiles], [identifier])
        self.assertIn(title, [view.get("text") for view in views_of(states["board"])])
        calls = [call["method"] for call in states["open"]["pluginCalls"] if call["identifier"] == identifier]
        self.assertIn("appBecomeActive", calls)
        self.assertFalse([line for line in states["open"]["log"] if "Couldn't load" in line])

    def test_the_installed_sdk_is_whole(self):
        for path in ("include/VelaPlugin.h", "share/VelaPlugin/cmake/VelaPluginConfig.cmake",
                     "share/VelaPlugin/cmake/VelaPluginConfigVersion.cmake", "share/VelaPlugin/template/plugin.cpp",
                     "bin/vela-new-plugin"):
            self.assertTrue((self.prefix / path).is_file(), path)

    def test_a_new_plugin_gets_its_tile(self):
        printed = self.new_plugin("Moon", "--identifier", "org.example.moon", "--display-name", "Moon & <Stars>").stdout
        self.follow(printed)
        device = self.data / "vela3" / "device"
        self.assertTrue((device / PLUGINS / "Moon.bundle" / "Moon.so").is_file())
        states = self.play(PULL_AND_OPEN, "--root", device)
        self.expect_tile(states, "org.example.moon", "Moon & <Stars>")
        # What the template does on a tap is kept in its storage.
        self.assertEqual((device / "var/mobile/Library/Vela/PluginData/org.example.moon/taps").read_text(), "1")

    def test_the_tutorial_leads_where_it_says(self):
        blocks = re.findall(r"^```\w*\n(.*?)^```$", TUTORIAL.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL)
        code = next(block for block in blocks if "VELA_PRINCIPAL_CLASS(DiceView)" in block)
        script = next(block for block in blocks if block.startswith("install "))
        self.new_plugin("Dice", "--identifier", "org.example.dice")
        folder = self.folder / "Dice"
        (folder / "plugin.cpp").write_text(code, encoding="utf-8")
        (folder / "dice.phone").write_text(script, encoding="utf-8")
        self.run_in(folder, "cmake", "-B", "build", f"-DCMAKE_PREFIX_PATH={self.prefix}",
                    "-DCMAKE_CXX_FLAGS=-Wall -Wextra")
        built = self.run_in(folder, "cmake", "--build", "build")
        self.assertNotIn("warning", built.stdout + built.stderr)
        device = self.folder / "device"
        self.run_in(folder, self.phone, "--headless", "--no-plugins", "--root", device, "--script", "dice.phone",
                    "--out", "shots")
        self.assertTrue((folder / "shots" / "dice.png").is_file())
        eyes = device / "var/mobile/Library/Vela/PluginData/org.example.dice/eyes"
        self.assertIn(eyes.read_text(encoding="utf-8"), list("123456"))

    def test_a_script_installs_it_on_a_fresh_phone(self):
        self.new_plugin("Moon")
        folder = self.folder / "Moon"
        self.run_in(folder, "cmake", "-B", "build", f"-DCMAKE_PREFIX_PATH={self.prefix}")
        self.run_in(folder, "cmake", "--build", "build")
        states = self.play(f'install "{folder}/build/Moon.bundle"\n' + PULL_AND_OPEN)
        self.expect_tile(states, "org.example.moon", "Moon")

    def test_a_class_that_is_no_view_does_not_build(self):
        self.new_plugin("Moon")
        source = self.folder / "Moon" / "plugin.cpp"
        text = source.read_text(encoding="utf-8")
        source.write_text(text.replace(": public View", ""), encoding="utf-8")
        self.run_in(source.parent, "cmake", "-B", "build", f"-DCMAKE_PREFIX_PATH={self.prefix}")
        self.assertNotEqual(self.run_in(source.parent, "cmake", "--build", "build", check=False).returncode, 0)

    def test_a_missing_symbol_is_noticed_when_it_is_built(self):
        self.new_plugin("Moon")
        source = self.folder / "Moon" / "plugin.cpp"
        source.write_text(source.read_text(encoding="utf-8").replace("++taps_;", "taps_ += missing();")
                          .replace("class MoonView", "int missing();\nclass MoonView"), encoding="utf-8")
        self.run_in(source.parent, "cmake", "-B", "build", f"-DCMAKE_PREFIX_PATH={self.prefix}")
        built = self.run_in(source.parent, "cmake", "--build", "build", check=False)
        self.assertNotEqual(built.returncode, 0)
        self.assertIn("missing", built.stdout + built.stderr)

    def test_the_tool_refuses_what_cannot_become_a_plugin(self):
        for arguments in (["9lives"], ["a-b"], ["../x"], [""], ["Moon", "--identifier", "a/b"],
                          ["Moon", "--display-name", 'a"b'], ["Moon", "--display-name", "a\nb"]):
            self.assertNotEqual(self.new_plugin(*arguments, check=False).returncode, 0, arguments)
        self.assertEqual(list(self.folder.iterdir()), [])
        (self.folder / "Moon").mkdir()
        (self.folder / "Moon" / "precious").write_text("kept", encoding="utf-8")
        self.assertNotEqual(self.new_plugin("Moon", check=False).returncode, 0)
        self.assertEqual([path.name for path in (self.folder / "Moon").iterdir()], ["precious"])

    def test_a_newer_package_than_there_is_is_not_found(self):
        (self.folder / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(X LANGUAGES NONE)\nfind_package(VelaPlugin 99 REQUIRED)\n",
            encoding="utf-8")
        result = self.run_in(self.folder, "cmake", "-B", "build", f"-DCMAKE_PREFIX_PATH={self.prefix}", check=False)
        self.assertNotEqual(result.returncode, 0)


if __name__ == "__main__":
    SdkTest.build, SdkTest.phone = (str(Path(path).resolve()) for path in sys.argv[1:3])
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
