"""What the soak's command says to input that makes no sense; the soak itself is a test of its own."""
import pathlib
import subprocess
import unittest

COMMAND = pathlib.Path(__file__).resolve().parents[2] / "tests" / "system" / "run-soak"


def run(*arguments):
    return subprocess.run([str(COMMAND), *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                          check=False)


class BadInput(unittest.TestCase):
    def refused(self, said, *arguments):
        done = run(*arguments)
        self.assertEqual(done.returncode, 2, arguments)
        self.assertIn(said, done.stderr)
        self.assertEqual(len(done.stderr.splitlines()), 1)

    def test_a_number_of_jobs_that_is_none_is_refused(self):
        for text in ("many", "", "0", "-5", "2.5", "100001", "12x"):
            self.refused(f'--jobs wants a number from 1 to 100000, not "{text}".', "--jobs", text)
        self.refused("--jobs wants a number", "--jobs")

    def test_an_unknown_option_is_refused(self):
        self.refused("there is no option --job;", "--job", "5")

    def test_an_unknown_kind_is_refused(self):
        self.refused('--only wants test-mode or by-hand, not "both".', "--only", "both")

    def test_missing_programs_are_named(self):
        self.refused("there is no file /nowhere/soak.exe.", "/nowhere/soak.exe", "/nowhere/client.exe")
        self.refused("the names of both programs are wanted, or none.", "/nowhere/soak.exe")

    def test_help_tells_of_the_options(self):
        done = run("--help")
        self.assertEqual(done.returncode, 0)
        self.assertIn("--jobs N", done.stdout)


if __name__ == "__main__":
    unittest.main()
