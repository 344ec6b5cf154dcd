"""clang-tidy looks at sources joined as it would at each of them, and what it finds is named by file and line."""
import json
import pathlib
import re
import subprocess
import tempfile
import unittest

TIDY = pathlib.Path(__file__).resolve().parent.parent / "tidy"
HEADER = """#pragma once
int definedInHeader() { return 3; }
struct Base {
    virtual ~Base() = default;
    virtual void Do();
};
"""
FIRST = """#include "Header.h"
namespace one {
class C;
}
namespace alias = one;
using one::C;
namespace {
int Helper(const int* p) { return p == nullptr ? 3 : 4; }
}
int DereferencesNull(const int* p) {
    if (p == nullptr) {
        return *p;
    }
    return Helper(p);
}
"""
SECOND = """#include "Header.h"
struct Derived : Base {
    virtual void Do();
};
int ElseAfterReturn(int unused, bool a) {
    if (a) {
        return 1;
    } else {
        return 2;
    }
}
int _Reserved = 3;
int Leaks() {
    int* p = new int(3);
    int q = *p;
    return q;
}
"""


class Tidy(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.top = pathlib.Path(folder.name).resolve()
        (self.top / "build" / "native").mkdir(parents=True)
        self.entries = []

    def write(self, name, text):
        path = self.top / "src" / "room" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
        if path.suffix == ".cpp":
            command = f"c++ -I{self.top}/src -std=c++20 -O1 -o x.o -c {path}"
            self.entries.append({"directory": str(self.top), "file": str(path), "command": command})
            (self.top / "build" / "native" / "compile_commands.json").write_text(json.dumps(self.entries))

    def run_tidy(self, *sources):
        return subprocess.run([TIDY, "--top", self.top, *sources], capture_output=True, text=True, cwd=self.top)

    def found(self, *sources):
        result = self.run_tidy(*sources)
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertNotIn("-more.cpp", result.stdout)
        return set(re.findall(r"^(?:\S*/)?(src/\S+:\d+:\d+): error: .*\[([\w.-]+),-warnings-as-errors\]$", result.stdout, re.M))

    def test_joined_sources_are_checked_as_each_of_them_is(self):
        self.write("Header.h", HEADER)
        self.write("First.cpp", FIRST)
        self.write("Second.cpp", SECOND)
        apart = self.found("src/room/First.cpp") | self.found("src/room/Second.cpp")
        self.assertEqual(self.found("src/room"), apart)
        self.assertEqual({(place.rpartition(":")[0], check) for place, check in apart}, {
            ("src/room/Header.h:2", "misc-definitions-in-headers"),
            ("src/room/First.cpp:5", "misc-unused-alias-decls"),
            ("src/room/First.cpp:6", "misc-unused-using-decls"),
            ("src/room/First.cpp:12", "clang-analyzer-core.NullDereference"),
            ("src/room/Second.cpp:3", "modernize-use-override"),
            ("src/room/Second.cpp:5", "misc-unused-parameters"),
            ("src/room/Second.cpp:8", "readability-else-after-return"),
            ("src/room/Second.cpp:12", "bugprone-reserved-identifier"),
            ("src/room/Second.cpp:14", "cppcoreguidelines-owning-memory"),
            ("src/room/Second.cpp:15", "clang-analyzer-cplusplus.NewDeleteLeaks"),
        })

    def test_sources_with_a_helper_of_the_same_name(self):
        self.write("First.cpp", "namespace {\nint Helper() { return 3; }\n}\nint First() { return Helper(); }\n")
        self.write("Second.cpp", "namespace {\nint Helper() { return 4; }\n}\nint Second() { return Helper(); }\n")
        self.write("Third.cpp", "int Third(int* p) { return p ? 3 : *p; }\n")
        self.assertEqual(self.found(), {("src/room/Third.cpp:1:36", "clang-analyzer-core.NullDereference")})

    def test_a_room_adds_settings_of_its_own(self):
        self.write("First.cpp", "int First(int* p) { return p ? 3 : *p; }\n")
        self.write("Second.cpp", "int Second(int unused) { return 3; }\n")
        (self.top / "src" / ".clang-tidy").write_text(
            "InheritParentConfig: true\nChecks: -clang-analyzer-core.NullDereference\n")
        self.assertEqual(self.found(), {("src/room/Second.cpp:1:16", "misc-unused-parameters")})

    def test_source_that_does_not_compile(self):
        self.write("First.cpp", "int First() { return 3; }\n")
        self.write("Second.cpp", "int Second() { return nonsense; }\n")
        result = self.run_tidy()
        self.assertEqual(result.returncode, 1)
        self.assertIn("src/room/Second.cpp:1:23: error: use of undeclared identifier 'nonsense'", result.stdout)

    def test_what_there_is_nothing_to_say_of(self):
        self.write("First.cpp", "int First() { return 3; }\n")
        self.write("Second.cpp", "int Second() { return 3; }\n")
        result = self.run_tidy()
        self.assertEqual((result.returncode, result.stdout), (0, ""), result.stderr)

    def test_refusals(self):
        self.write("First.cpp", "int First() { return 3; }\n")
        for words, arguments in (("there is no file src/Missing.cpp", ["src/Missing.cpp"]),
                                 ("does not compile", ["src/room/Header.h"]),
                                 ("windows has no compile commands", ["src/WinMain.cpp"])):
            self.write("Header.h", HEADER)
            (self.top / "src" / "WinMain.cpp").write_text("")
            result = self.run_tidy(*arguments)
            self.assertEqual((result.returncode, result.stdout), (2, ""))
            self.assertIn(words, result.stderr)


if __name__ == "__main__":
    unittest.main()
