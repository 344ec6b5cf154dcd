import pathlib
import subprocess
import sys
import tempfile
import unittest

COMMAND = pathlib.Path(__file__).resolve().parent.parent / "coverage"

# Line 2 runs, lines 5 to 7 do not, and line 10 does.
CODE = """int Half(int number) {
    return number / 2;
}
int Twice(int number) {
    const int twice =
        number * 2;
    return twice;
}
int main() {
    return Half(1);
}
"""


class Coverage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        top = pathlib.Path(cls.folder.name)
        cls.source, cls.build = top / "src", top / "build"
        (cls.source / "room").mkdir(parents=True)
        cls.build.mkdir()
        (cls.source / "room" / "numbers.cpp").write_text(CODE)
        subprocess.run(["g++", "--coverage", "-fprofile-abs-path", "-O0", "-c", str(cls.source / "room" / "numbers.cpp"),
                        "-o", "numbers.o"], cwd=cls.build, check=True)
        subprocess.run(["g++", "--coverage", "numbers.o", "-o", "unit_numbers"], cwd=cls.build, check=True)
        subprocess.run([str(cls.build / "unit_numbers")], check=True)

    def coverage(self, *arguments, build=None):
        return subprocess.run([sys.executable, "-B", str(COMMAND), "--no-run", "--build", str(build or self.build),
                               "--source", str(self.source), *arguments], capture_output=True, text=True, check=False)

    def test_the_table_counts_executed_lines_of_each_file_and_of_all(self):
        done = self.coverage("--minimum", "50")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertRegex(done.stdout, r"room/numbers\.cpp +\d+ +\d+ +\d+\.\d\n")
        rows = {line.split()[0]: line.split()[1:] for line in done.stdout.splitlines()}
        self.assertEqual(rows["room/numbers.cpp"], rows["all"])
        lines, executed, percent = rows["all"]
        self.assertGreater(int(lines), int(executed))
        self.assertEqual(percent, f"{100 * int(executed) / int(lines):.1f}")

    def test_the_lines_that_nothing_executes_are_listed_on_request(self):
        self.assertNotIn("not executed", self.coverage().stdout)
        self.assertRegex(self.coverage("--uncovered").stdout, r"not executed: 4.*7\n")

    def test_less_than_the_minimum_is_a_failure_that_says_so(self):
        done = self.coverage("--minimum", "99")
        self.assertEqual(done.returncode, 1)
        self.assertIn("less than 99 %", done.stderr)

    def test_bad_input_is_refused(self):
        for arguments, words in ((["--minimum", "much"], "'much' is not a percentage"),
                                 (["--minimum", "101"], "is not a percentage"),
                                 (["--only", "nothing"], "no file has 'nothing' in its name")):
            done = self.coverage(*arguments)
            self.assertEqual(done.returncode, 2)
            self.assertIn(words, done.stderr)
            self.assertNotIn("Traceback", done.stderr)

    def test_a_folder_without_counts_is_told(self):
        self.assertIn("there are no counts", self.coverage(build=self.source).stderr)


if __name__ == "__main__":
    unittest.main()
