#!/usr/bin/env python3
"""The lint, run over small trees made for the purpose."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

LINT = Path(__file__).resolve().parents[2] / "tools" / "lint"
GOOD_HEADER = "// A thing, and why it is there.\n#pragma once\n"


class LintTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.tree = Path(directory.name)
        for folder in ("platform", "vela", "hosts", "sdk", "plugins", "tests"):
            (self.tree / folder).mkdir()

    def write(self, path, content):
        file = self.tree / path
        file.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(content, bytes):
            file.write_bytes(content)
        else:
            file.write_text(content, encoding="utf-8")

    def lint(self, *options):
        return subprocess.run([sys.executable, str(LINT), *options, str(self.tree)],
                              capture_output=True, text=True, check=False)

    def assert_clean(self):
        result = self.lint()
        self.assertEqual((result.stdout, result.returncode), ("lint: nothing found\n", 0), result.stderr)

    def assert_finds(self, place, words):
        """Exactly one finding, at `place`, whose reason holds `words`."""
        result = self.lint()
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        lines = result.stdout.splitlines()
        self.assertEqual(len(lines), 1, result.stdout)
        self.assertTrue(lines[0].startswith(place + ": "), lines[0])
        self.assertIn(words, lines[0])

    def include(self, path, name):
        opening, closing = ("", "") if name.startswith("<") else ('"', '"')
        self.write(path, f"int unused;\n#include {opening}{name}{closing}\n")


class Arrows(LintTest):
    def test_every_room_may_include_what_lies_beneath_it(self):
        for path, name in [
            ("platform/foundation/A.cpp", "platform/runtime/Class.h"),
            ("platform/toolkit/views/A.cpp", "platform/foundation/RunLoop.h"),
            ("platform/homescreen/A.cpp", "platform/toolkit/views/UIView.h"),
            ("vela/panels/A.cpp", "platform/homescreen/SpringBoard.h"),
            ("vela/panels/B.cpp", "vela/startup/Startup.h"),
            ("vela/board/C.cpp", "platform/plugins/Bundle.h"),
            ("platform/plugins/A.cpp", "sdk/VelaPlugin.h"),
            ("hosts/phone/A.cpp", "platform/homescreen/HostPort.h"),
            ("hosts/phone/B.cpp", "hosts/script/Script.h"),
            ("plugins/clock/A.cpp", "VelaPlugin.h"),
            ("plugins/clock/B.cpp", "A.cpp"),
            ("tests/vela/A.cpp", "hosts/phone/Phone.h"),
        ]:
            self.include(path, name)
        self.assert_clean()

    def test_a_host_never_includes_vela(self):
        self.include("hosts/phone/A.cpp", "vela/startup/Startup.h")
        self.assert_finds("hosts/phone/A.cpp:2", "may include only")

    def test_vela_never_includes_a_host(self):
        self.include("vela/panels/A.cpp", "hosts/phone/Phone.h")
        self.assert_finds("vela/panels/A.cpp:2", "may include only")

    def test_a_host_never_includes_another_host(self):
        self.include("hosts/session/A.cpp", "hosts/phone/Phone.h")
        self.assert_finds("hosts/session/A.cpp:2", "may include only")

    def test_the_runtime_includes_nothing_above_it(self):
        self.include("platform/runtime/A.cpp", "platform/foundation/RunLoop.h")
        self.assert_finds("platform/runtime/A.cpp:2", "itself")

    def test_the_toolkit_does_not_know_the_home_screen(self):
        self.include("platform/toolkit/views/A.cpp", "platform/homescreen/SpringBoard.h")
        self.assert_finds("platform/toolkit/views/A.cpp:2", "may include only")

    def test_the_faces_above_the_toolkit_do_not_know_each_other(self):
        self.include("platform/media/A.cpp", "platform/homescreen/SpringBoard.h")
        self.assert_finds("platform/media/A.cpp:2", "may include only")

    def test_a_plugin_includes_the_plugin_contract_alone(self):
        self.include("plugins/clock/A.cpp", "platform/toolkit/views/UIView.h")
        self.assert_finds("plugins/clock/A.cpp:2", "a plug-in may include only")

    def test_a_plugin_does_not_know_another_plugin(self):
        self.include("plugins/clock/A.cpp", "plugins/notes/B.h")
        self.assert_finds("plugins/clock/A.cpp:2", "may include only")

    def test_a_folder_whose_name_only_begins_like_a_room_is_not_that_room(self):
        self.include("platform/runtime_extras/A.cpp", "platform/runtime/Class.h")
        self.assert_finds("platform/runtime_extras/A.cpp:2", "does not know")

    def test_includes_are_written_from_the_top_of_the_tree(self):
        for name in ("Class.h", "../runtime/Class.h", "./Class.h", "runtime/Class.h"):
            with self.subTest(name=name):
                self.include("platform/runtime/A.cpp", name)
                self.assert_finds("platform/runtime/A.cpp:2", "top of the tree")


class Toolkit(LintTest):
    def test_a_folder_of_the_toolkit_includes_its_own_height_and_below(self):
        for source, target in [("rendering", "geometry"), ("text", "rendering"), ("layers", "animation"),
                               ("animation", "layers"), ("views", "layers"), ("windows", "gestures")]:
            self.include(f"platform/toolkit/{source}/{target}.cpp", f"platform/toolkit/{target}/A.h")
        self.assert_clean()

    def test_a_folder_of_the_toolkit_includes_nothing_higher(self):
        for source, target in [("geometry", "text"), ("rendering", "layers"), ("layers", "views"),
                               ("animation", "gestures")]:
            with self.subTest(source=source, target=target):
                path = f"platform/toolkit/{source}/A.cpp"
                self.include(path, f"platform/toolkit/{target}/A.h")
                self.assert_finds(f"{path}:2", f"toolkit/{target} stands above toolkit/{source}")
                (self.tree / path).unlink()

    def test_a_new_folder_of_the_toolkit_must_be_placed(self):
        self.include("platform/toolkit/novelty/A.cpp", "platform/toolkit/geometry/A.h")
        self.assert_finds("platform/toolkit/novelty/A.cpp:2", "does not know")


class Libraries(LintTest):
    HOMES = {
        "<cairo.h>": "platform/toolkit/rendering",
        "<cairo/cairo.h>": "platform/toolkit/text",
        "<cairo-ft.h>": "platform/toolkit/text",
        "<pango/pangocairo.h>": "platform/toolkit/text",
        "<pixman.h>": "platform/toolkit/rendering",
        "<fontconfig/fontconfig.h>": "platform/toolkit/text",
        "<gdk-pixbuf/gdk-pixbuf.h>": "platform/toolkit/rendering",
        "<gtk/gtk.h>": "hosts/phone/window",
        "<gdk/gdk.h>": "hosts/phone/window",
        "<adwaita.h>": "hosts/settings/window",
        "<wayland-client.h>": "hosts/session",
        "<curl/curl.h>": "platform/foundation",
        "<plist/plist.h>": "platform/foundation",
        "<gst/gst.h>": "hosts/media/engine",
        "<taglib/fileref.h>": "hosts/media/library",
    }

    def test_a_library_is_named_in_its_home(self):
        for name, home in self.HOMES.items():
            self.include(f"{home}/{len(name)}{name[1:-1].replace('/', '_')}.cpp", name)
        self.assert_clean()

    def test_a_library_is_named_nowhere_else(self):
        for name in self.HOMES:
            with self.subTest(name=name):
                self.include("vela/panels/A.cpp", name)
                self.assert_finds("vela/panels/A.cpp:2", "is named only in")

    def test_the_phone_names_its_window_library_only_beside_the_window(self):
        self.include("hosts/phone/A.cpp", "<gtk/gtk.h>")
        self.assert_finds("hosts/phone/A.cpp:2", "GTK is named only in hosts/gtk")

    def test_the_picture_loader_is_not_taken_for_the_window_library(self):
        self.include("platform/toolkit/text/A.cpp", "<gdk-pixbuf/gdk-pixbuf.h>")
        self.assert_finds("platform/toolkit/text/A.cpp:2", "gdk-pixbuf is named only in")

    def test_tests_may_name_every_library(self):
        self.include("tests/rendering/A.cpp", "<cairo.h>")
        self.assert_clean()


class Writing(LintTest):
    def test_a_header_with_a_comment_and_a_guard_is_well(self):
        self.write("vela/startup/A.h", GOOD_HEADER)
        self.assert_clean()

    def test_a_header_opens_with_a_comment(self):
        self.write("vela/startup/A.h", "\n#pragma once\n")
        self.assert_finds("vela/startup/A.h:2", "opens with a comment")

    def test_a_header_needs_its_guard(self):
        self.write("vela/startup/A.h", "// A thing that speaks of #pragma once.\n")
        self.assert_finds("vela/startup/A.h:1", "needs #pragma once")

    def test_an_empty_header_is_found_twice(self):
        self.write("vela/startup/A.h", "")
        self.assertEqual(self.lint().stdout.count("vela/startup/A.h:1: "), 2)

    def test_words_that_readers_cannot_follow_are_found_in_every_kind_of_file(self):
        for words in ("see Part" + " 3.1", "in spec" + ".md", "As" + " specified", "in /wo" + "rk/main",
                      "from /ro" + "ot/x", "TO" + "DO: mend", "FIX" + "ME later"):
            for path in ("docs/page.md", "vela/A.cpp", "tool"):
                with self.subTest(words=words, path=path):
                    self.write(path, f"first\n{words}\n")
                    result = self.lint()
                    self.assertEqual(result.returncode, 1)
                    self.assertTrue(result.stdout.startswith(f"{path}:2: "), result.stdout)
                    (self.tree / path).unlink()

    def test_words_that_only_look_alike_are_well(self):
        self.write("docs/page.md", "a part of 3.1 points; the device root/work/x; $HOME/work/y; Partly 1.2\n"
                                   "TO" + "DO(mara) mend the edge\n")
        self.assert_clean()

    def test_pictures_are_not_read(self):
        self.write("resources/a.png", b"\x89PNG\r\n\xff\0" + b"TO" + b"DO")
        self.assert_clean()

    def test_build_folders_are_not_read(self):
        self.write("build/release/A.h", "int a;\n")
        self.write("build-mine/A.h", "int a;\n")
        self.assert_clean()

    def test_in_a_checkout_what_git_ignores_is_not_read(self):
        subprocess.run(["git", "init", "-q", str(self.tree)], check=True)
        self.write(".gitignore", "/made/\n")
        self.write("made/A.h", "int a;\n")
        self.assert_clean()
        self.write("new/A.h", "int a; // not yet added, but it will be\n#pragma once\n")
        self.assert_finds("new/A.h:1", "opens with a comment")

    def test_the_report_lists_long_sources_and_is_no_finding(self):
        self.write("vela/Long.cpp", "int a;\n" * 401)
        self.write("vela/Short.cpp", "int a;\n" * 400)
        result = self.lint("--report")
        self.assertEqual(result.returncode, 0)
        self.assertIn("vela/Long.cpp: 401 lines", result.stdout)
        self.assertNotIn("Short.cpp", result.stdout)

    def test_a_tree_that_is_not_there_is_an_error_of_its_own(self):
        result = subprocess.run([sys.executable, str(LINT), str(self.tree / "missing")],
                                capture_output=True, text=True, check=False)
        self.assertEqual(result.returncode, 2)
        self.assertIn("is no folder", result.stderr)


if __name__ == "__main__":
    unittest.main()
