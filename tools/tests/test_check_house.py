"""Each rule of the house is broken once, and the check names the line."""
import pathlib
import subprocess
import tempfile
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent.parent


class CheckHouse(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.top = pathlib.Path(self.folder.name)
        (self.top / ".clang-format").write_text((REPOSITORY / ".clang-format").read_text())
        self.write("common/Text.h", "#pragma once\n\n#include <string>\n")
        self.write("platform/Clock.h", "#pragma once\n")
        self.write("platform/win32/services/Clock.cpp", "#include <windows.h>\n\n#include \"platform/Clock.h\"\n\nHWND window;\n")
        self.write("WinMain.cpp", "#include <windows.h>\n\n#include \"app/basKorvanta.h\"\n")
        self.write("app/basKorvanta.h", "#pragma once\n\n#include \"common/Text.h\"\n")

    def tearDown(self):
        self.folder.cleanup()

    def write(self, name, text):
        path = self.top / "src" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def run_check(self, *options):
        return subprocess.run([REPOSITORY / "tools" / "check-house", "--top", self.top, *options],
                              capture_output=True, text=True)

    def assert_breach(self, place, words, *options):
        result = self.run_check(*options)
        lines = [line for line in result.stdout.splitlines() if line.startswith(place + ":") and words in line]
        self.assertEqual(len(lines), 1, result.stdout + result.stderr)
        self.assertEqual(result.returncode, 1)

    def test_house_in_order_passes(self):
        result = self.run_check()
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertIn("0 broken rules", result.stdout)

    def test_function_that_is_too_long(self):
        body = "    Next();\n" * 58
        self.write("common/Right.cpp", "void Right() {\n" + body + "}\n")
        self.assertEqual(self.run_check("--no-format").returncode, 0)
        for beginning in ("void Wrong() {", "template <typename T>\nbool Wrong::Is(T t) const {", "Wrong::Wrong(int a) : a_{a} {",
                          "auto Wrong(int a,\n           int b) -> int {", "void Wrong() {\n    Each([](int a) {\n    });"):
            self.write("common/Wrong.cpp", "int before = 3;\n\n" + beginning + "\n" + body + "    Last();\n}\n")
            self.assert_breach("src/common/Wrong.cpp:3", "lines, more than 60", "--no-format")

    def test_long_function_within_a_class(self):
        self.write("common/Wrong.h", "namespace a {\nclass Wrong {\n  public:\n    int Short() { return 3; }\n    void Long() {\n"
                   + "        if (Next()) {\n        }\n" * 30 + "    }\n};\n}\n")
        self.assert_breach("src/common/Wrong.h:5", "has a function of 62 lines", "--no-format")

    def test_long_class_or_table_is_no_function(self):
        self.write("common/Right.h", "class Right {\n" + "    int Next() { return 3; }\n" * 100 + "};\n")
        self.write("common/Right.cpp", "const Row table[] = {\n" + "    {Row(1), 2},\n" * 100 + "};\nvoid F() {\n}\n")
        self.assertEqual(self.run_check("--no-format").returncode, 0)

    def test_include_of_a_room_above(self):
        self.write("common/Wrong.h", "#pragma once\n\n#include \"app/basKorvanta.h\"\n")
        self.assert_breach("src/common/Wrong.h:3", "app is above common")

    def test_controls_may_not_know_common(self):
        self.write("controls/Wrong.h", "#pragma once\n#include \"common/Text.h\"\n")
        self.assert_breach("src/controls/Wrong.h:2", "common is above controls")

    def test_adapter_may_not_know_common(self):
        self.write("platform/win32/services/Wrong.cpp", "#include \"common/Text.h\"\n")
        self.assert_breach("src/platform/win32/services/Wrong.cpp:1", "may include only platform and controls")

    def test_calls_may_not_know_services(self):
        self.write("platform/win32/services/Fonts.h", "#pragma once\n")
        self.write("platform/win32/calls/Wrong.h", "#pragma once\n\n#include \"platform/win32/services/Fonts.h\"\n")
        self.assert_breach("src/platform/win32/calls/Wrong.h:3", "platform/win32/services is above platform/win32/calls")

    def test_search_may_not_know_the_rest_of_server(self):
        self.write("server/clsAccount.h", "#pragma once\n")
        self.write("server/search/Wrong.h", "#pragma once\n\n#include \"server/clsAccount.h\"\n")
        self.assert_breach("src/server/search/Wrong.h:3", "server is above server/search")

    def test_file_outside_the_rooms(self):
        self.write("helpers/Wrong.h", "#pragma once\n")
        self.assert_breach("src/helpers/Wrong.h:1", "helpers is no room of the house")

    def test_room_may_not_know_the_adapter(self):
        self.write("platform/win32/services/Fonts.h", "#pragma once\n")
        self.write("ui/Wrong.cpp", "#include \"platform/win32/services/Fonts.h\"\n")
        self.assert_breach("src/ui/Wrong.cpp:1", "only WinMain")

    def test_two_files_that_include_each_other(self):
        self.write("common/One.h", "#pragma once\n#include \"common/Two.h\"\n")
        self.write("common/Two.h", "#pragma once\n#include \"common/Three.h\"\n")
        self.write("common/Three.h", "#pragma once\n#include \"common/One.h\"\n")
        result = self.run_check("--no-format")
        self.assertIn("includes itself again", result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_windows_header_outside_the_adapter(self):
        self.write("server/Wrong.cpp", "#include <winsock.h>\n")
        self.assert_breach("src/server/Wrong.cpp:1", "<winsock.h>")

    def test_window_handle_outside_the_adapter(self):
        self.write("server/Wrong.cpp", "// A HWND in a comment is no matter.\nHWND window;\n")
        self.assert_breach("src/server/Wrong.cpp:2", "names HWND")

    def test_question_after_the_system_outside_the_adapter(self):
        self.write("server/Wrong.cpp", "\n#ifdef _WIN32\n#endif\n")
        self.assert_breach("src/server/Wrong.cpp:2", "names _WIN32", "--no-format")

    def test_long_file(self):
        self.write("server/Long.cpp", "int i();\n" * 601)
        self.assert_breach("src/server/Long.cpp:601", "601 lines")
        self.write("server/Long.cpp", "int i();\n" * 600)
        self.assertEqual(self.run_check().returncode, 0)

    def test_raw_new_and_delete(self):
        self.write("server/Wrong.cpp", "struct A {\n    A(const A&) = delete;\n};\nauto a = \"new\";  // new\n"
                                       "int* b = new int;\nvoid F() { delete b; }\n")
        result = self.run_check("--no-format")
        self.assertEqual([line for line in result.stdout.splitlines() if line.startswith("src/")],
                         ["src/server/Wrong.cpp:5: has a raw new", "src/server/Wrong.cpp:6: has a raw delete"])

    def test_formatting(self):
        self.write("server/Wrong.cpp", "int  i;\n")
        self.assert_breach("src/server/Wrong.cpp:1", "clang-format")

    def test_import_that_windows_98_lacks(self):
        source = self.top / "late.cpp"
        source.write_text("#include <windows.h>\nint main() { return int(GetTickCount64()); }\n")
        program = self.top / "late.exe"
        subprocess.run(["i686-w64-mingw32-g++-win32", "-D_WIN32_WINNT=0x0600", "-static", "-o", program, source],
                       check=True)
        result = self.run_check("--program", program)
        self.assertIn("links GetTickCount64 of kernel32", result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_program_of_more_than_a_million_bytes(self):
        source = self.top / "large.cpp"
        source.write_text("int main() { return 0; }\n")
        program = self.top / "large.exe"
        subprocess.run(["i686-w64-mingw32-g++-win32", "-static", "-s", "-o", program, source], check=True)
        self.assertNotIn("bytes, more than", self.run_check("--program", program).stdout)
        with program.open("ab") as file:
            file.truncate(1_000_001)
        result = self.run_check("--program", program)
        self.assertIn("has 1,000,001 bytes, more than 1,000,000", result.stdout)
        self.assertEqual(result.returncode, 1)


if __name__ == "__main__":
    unittest.main()
