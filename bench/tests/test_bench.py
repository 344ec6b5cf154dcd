"""The benchmarks' command: what it refuses, what it makes of figures, and that it runs."""
import json
import pathlib
import subprocess
import tempfile
import unittest

BENCH = pathlib.Path(__file__).resolve().parent.parent


def run(*arguments):
    return subprocess.run([BENCH / "run", *arguments], capture_output=True, text=True, timeout=600)


class Refusals(unittest.TestCase):
    def assert_refused(self, text, *arguments):
        result = run(*arguments)
        self.assertEqual(result.returncode, 2, result.stderr)
        self.assertIn(text, result.stderr)
        self.assertEqual(result.stdout, "")

    def test_benchmark_that_there_is_not(self):
        self.assert_refused('there is no benchmark "nonsense"; there are: load search', "load", "nonsense")
        self.assert_refused('there is no benchmark "load search"', "load search")
        self.assert_refused('there is no benchmark ""', "")

    def test_option_that_there_is_not(self):
        self.assert_refused("there is no option --nonsense", "--nonsense")

    def test_what_is_no_number(self):
        for text in ("abc", "0", "-1", "1.5", "2000001", "99999999999999999999", "", "08"):
            self.assert_refused(f'--accounts wants a number from 1 to 2000000, not "{text}"', "--accounts", text)
        self.assert_refused("--elements wants a number", "--elements", "x")
        self.assert_refused("--accounts wants a number from 1 to 2000000.", "load", "--accounts")

    def test_help(self):
        result = run("--help")
        self.assertEqual(result.returncode, 0)
        self.assertIn("Usage: bench/run", result.stdout)


class Table(unittest.TestCase):
    def table(self, lines, native=()):
        """The rows of the table of these figures, by name and count."""
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "x.tsv").write_text("".join("\t".join(map(str, line)) + "\n" for line in lines))
            runs = [{"name": name, "run_type": "iteration", "cpu_time": time} for name, time in native]
            (pathlib.Path(folder) / "native.json").write_text(json.dumps({"benchmarks": runs}))
            result = subprocess.run([BENCH / "table", folder], capture_output=True, text=True, check=True)
        return result.stdout

    def row(self, table, beginning):
        found = [line.split() for line in table.splitlines() if line.startswith(beginning)]
        self.assertEqual(len(found), 1, table)
        return found[0]

    def test_ratio_bar_and_verdict(self):
        table = self.table([("Windows: load", 10, "ns", 150, 100), ("load", 10, "ns", 151, 100)])
        self.assertEqual(self.row(table, "Windows: load"),
                         ["Windows:", "load", "10", "150", "ns", "100", "ns", "1.50", "1.5", "pass"])
        self.assertEqual(self.row(table, "load")[-4:], ["1.5", "misses", "its", "bar"])
        self.assertIn("2 rows, 1 of them misses the bar.", table)

    def test_small_ratios_read_as_fractions(self):
        table = self.table([("search, no hit", 10, "ns", 1, 75), ("grid, fill", 10, "ns", 1, 99)])
        self.assertEqual(self.row(table, "search")[-3:], ["1/75", "1/20", "pass"])
        self.assertEqual(self.row(table, "grid")[-5:], ["1/99", "1/100", "misses", "its", "bar"])

    def test_bars_of_ours_alone(self):
        table = self.table([("keystroke, all", 100000, "ns", 16e6, "-"), ("size", 1, "bytes", 1000001, "-"),
                            ("keystroke, some", 1000000, "ns", 101e6, "-"), ("grid, fill", 1000000, "ns", 5, "-")])
        self.assertIn("pass", self.row(table, "keystroke, all"))
        self.assertIn("misses", self.row(table, "keystroke, some"))
        self.assertIn("misses", self.row(table, "size"))
        self.assertEqual(self.row(table, "grid")[-2:], ["not", "compared"])

    def test_medians_of_native_runs_and_their_growth(self):
        native = [(f"load/{side}/{count}", time * count) for count in (10, 100)
                  for side, times in (("ours", (1, 2, 90)), ("bare", (4, 1, 5))) for time in times]
        table = self.table([], native)
        rows = [line.split() for line in table.splitlines() if line.startswith("load")]
        self.assertEqual(rows[0], ["load", "10", "20", "ns", "40", "ns", "0.50", "1.5", "pass"])
        self.assertEqual(rows[1][-3:], ["n", "x10:", "x10"])


class Smoke(unittest.TestCase):
    def test_a_short_run(self):
        result = run("--quick", "--accounts", "300", "--elements", "50", "load", "search", "list", "size")
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        for row in ("load", "Windows: load", "search, half hit", "Windows: search, no hit", "list, sort",
                    "Windows: list, append", "list, system calls", "size"):
            self.assertRegex(result.stdout, f"(?m)^{row} ", row)


if __name__ == "__main__":
    unittest.main()
