"""Each breakage can still be made, and the command says what it does not understand; making them takes too long here."""
import pathlib
import subprocess
import sys
import unittest

FOLDER = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(FOLDER))
from breakages import BREAKAGES  # noqa: E402


def run(*arguments):
    return subprocess.run([str(FOLDER / "run-breakages"), *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          text=True, check=False)


class Breakages(unittest.TestCase):
    def test_each_has_one_place_in_the_source(self):
        for breakage in BREAKAGES:
            source = (FOLDER.parents[1] / "src" / breakage.file).read_text(encoding="utf-8")
            self.assertEqual(source.count(breakage.old), 1, breakage.name)
            self.assertNotEqual(breakage.old, breakage.new, breakage.name)

    def test_names_are_different(self):
        self.assertEqual(len({breakage.name for breakage in BREAKAGES}), len(BREAKAGES))


class Command(unittest.TestCase):
    def test_it_lists_what_it_was_asked_for(self):
        done = run("--list", "--only", "notified twice")
        self.assertEqual(done.returncode, 0)
        self.assertEqual(done.stdout, "notified twice: src/ui/frmAccountNumber.cpp\n")

    def test_bad_input_is_refused(self):
        for arguments in (["--only", "no such breakage"], ["--seeds", "0"], ["--seeds", "many"], ["--seed", "5", "6"]):
            done = run(*arguments)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertIn("error:", done.stderr)


if __name__ == "__main__":
    unittest.main()
