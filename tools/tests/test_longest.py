"""./test tells the ten longest tests before ctest's summary, and changes nothing of what ctest prints."""
import pathlib
import re
import subprocess
import unittest

TEST = pathlib.Path(__file__).resolve().parent.parent.parent / "test"
SUMMARY = "\n92% tests passed, 1 tests failed out of 13\n\nTotal Test time (real) = 812.05 sec\n"


class Longest(unittest.TestCase):
    def told(self, lines):
        function = re.search(r"^tellTheLongest\(\) \{.*?^\}$", TEST.read_text(), re.M | re.S).group()
        done = subprocess.run(["bash", "-euo", "pipefail", "-c", function + "\ntellTheLongest"], input=lines,
                              capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def test_ten_longest_stand_before_the_summary(self):
        lines = "        Start  1: server: A.B\n" + "".join(
            f" {number:2}/13 Test #{number}: server: Name.Of{number} ..........   Passed   {number}.25 sec\n"
            for number in range(1, 12))
        lines += "12/13 Test #12: house: clang-tidy, src/ui ....***Failed  112.05 sec\na line that a test printed in 3 sec\n"
        lines += "13/13 Test #13: system: the finished client, all of it ...***Timeout 900.01 sec\n"
        rows = ["   900.01 sec  system: the finished client, all of it", "   112.05 sec  house: clang-tidy, src/ui"]
        rows += [f"    {number:2}.25 sec  server: Name.Of{number}" for number in range(11, 3, -1)]
        self.assertEqual(self.told(lines + SUMMARY),
                         lines + "\nThe longest tests:\n" + "\n".join(rows) + "\n" + SUMMARY)

    def test_lists_pass_as_they_are(self):
        lines = "  Test #1: server: A.B\n\nTotal Tests: 1\n"
        self.assertEqual(self.told(lines), lines)


if __name__ == "__main__":
    unittest.main()
