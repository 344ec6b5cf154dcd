import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

COMMAND = pathlib.Path(__file__).resolve().parent.parent / "run-fuzzers"

# Plays the fuzzer: what the real ones print.
QUIET = """#!/bin/sh
echo "COVERED_FUNC: hits: 9 edges: 2/4 korvanta::f(int) /x/build/fuzz/../../src/common/TextStream.cpp:31"
echo "UNCOVERED_FUNC: hits: 0 edges: 0/13 korvanta::g() /x/build/fuzz/../../src/common/TextStream.cpp:44"
echo "COVERED_FUNC: hits: 9 edges: 7/7 korvanta::h() /x/build/fuzz/../../src/common/Text.cpp:3"
echo "stat::number_of_executed_units: 4711"
echo "stat::average_exec_per_sec:     333"
"""
FINDING = """#!/bin/sh
for argument in "$@"; do case "$argument" in -artifact_prefix=*) prefix="${argument#*=}" ;; esac; done
echo "../../tests/fuzz/x.cpp:7: this does not hold: 1 == 2" >&2
echo bad > "${prefix}crash-1"
echo "artifact_prefix='$prefix'; Test unit written to ${prefix}crash-1" >&2
exit 77
"""
REPLAYING = """#!/bin/sh
echo "replayed: $(cat "$2")"
exit 3
"""


class RunFuzzers(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.build = pathlib.Path(folder.name)

    def play(self, script):
        program = self.build / "text_stream_fuzzer"
        program.write_text(script)
        program.chmod(0o755)

    def run_fuzzers(self, *arguments):
        return subprocess.run([sys.executable, "-B", str(COMMAND), "--build", str(self.build), *arguments],
                              capture_output=True, text=True, check=False)

    def refused(self, *arguments):
        done = self.run_fuzzers(*arguments)
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertNotIn("Traceback", done.stderr)
        return done.stderr

    def test_the_list_names_every_fuzzer_and_says_what_it_is_for(self):
        done = self.run_fuzzers("--list")
        self.assertEqual(done.returncode, 0)
        lines = done.stdout.splitlines()
        self.assertEqual(len(lines), len(list(COMMAND.parent.glob("*_fuzzer.cpp"))))
        for line in lines:
            self.assertRegex(line, r"^\w+ +[A-Za-z].*\.$")
            self.assertNotIn("Aims at", line)

    def test_every_fuzzer_has_seeds_and_aims_at_sources_that_are_there(self):
        for source in COMMAND.parent.glob("*_fuzzer.cpp"):
            with self.subTest(source.stem):
                aims = re.findall(r"^// Aims at: (.*)$", source.read_text(encoding="utf-8"), re.MULTILINE)
                self.assertTrue(aims)
                for aim in " ".join(aims).split():
                    self.assertTrue((COMMAND.parents[2] / "src" / aim).is_file(), aim)
                self.assertTrue(any((COMMAND.parent / "seeds" / source.stem.removesuffix("_fuzzer")).iterdir()))

    def test_seconds_that_are_none_are_refused(self):
        for seconds in ("soon", "0", "-3", "1.5", ""):
            self.assertIn("is not a whole number above 0", self.refused(f"--seconds={seconds}"))

    def test_a_fuzzer_that_is_not_there_is_refused_with_those_that_are(self):
        self.assertRegex(self.refused("--only", "nothing"), "there is no fuzzer 'nothing'; there are .*accounts.*text_stream")

    def test_a_file_to_replay_must_be_there_and_say_whose_it_is(self):
        self.assertIn("there is no file", self.refused("--no-build", "--replay", str(self.build / "missing")))
        stray = self.build / "stray"
        stray.write_text("x")
        self.assertIn("--only", self.refused("--no-build", "--replay", str(stray)))

    def test_a_program_that_was_not_built_is_named(self):
        self.assertRegex(self.refused_after_header("--no-build", "--only", "text_stream"), "text_stream_fuzzer is not there")

    def refused_after_header(self, *arguments):
        done = self.run_fuzzers(*arguments)
        self.assertEqual(done.returncode, 2)
        return done.stderr

    def test_the_table_has_executions_speed_and_the_coverage_of_the_sources_aimed_at(self):
        self.play(QUIET)
        done = self.run_fuzzers("--no-build", "--only", "text_stream", "--seconds", "1")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertRegex(done.stdout, r"text_stream +4711 +333 +\d+ +1/2 +2/17 +nothing")

    def test_what_is_found_is_told_with_its_input_and_how_to_replay_it(self):
        self.play(FINDING)
        done = self.run_fuzzers("--no-build", "--only", "text_stream", "--seconds", "1")
        self.assertEqual(done.returncode, 1)
        found = self.build / "found" / "text_stream" / "crash-1"
        self.assertTrue(found.is_file())
        self.assertIn("text_stream found: this does not hold: 1 == 2", done.stdout)
        self.assertIn(f"--replay {found}", done.stdout)
        self.play(REPLAYING)
        done = self.run_fuzzers("--no-build", "--replay", str(found))
        self.assertEqual((done.returncode, done.stdout), (3, "replayed: bad\n"))


if __name__ == "__main__":
    unittest.main()
