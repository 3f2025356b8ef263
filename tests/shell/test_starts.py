"""How the programs with a window start where something is missing or in the way, and how signals end them.

Use: test_starts.py DAYWARD-APP DAYWARD-WIDGET-WINDOW"""
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PATIENCE = 30
NOWHERE = "unix:path=/nonexistent"
PROGRAMS = []


class Starts(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="dayward-test-")
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)
        kept = {name: value for name, value in os.environ.items()
                if not name.startswith(("DAYWARD", "XDG", "QT_", "WAYLAND", "DISPLAY"))}
        self.environment = kept | {"HOME": str(self.directory), "XDG_RUNTIME_DIR": str(self.directory),
                                   "DBUS_SESSION_BUS_ADDRESS": NOWHERE, "QT_FORCE_STDERR_LOGGING": "1"}

    def run_program(self, program, *arguments, **variables):
        return subprocess.run([program, *arguments], capture_output=True, text=True, timeout=PATIENCE,
                              cwd=self.directory, env=self.environment | variables)

    def start(self, *arguments):
        """The application in a window that nobody sees; it has launched when this returns."""
        process = subprocess.Popen([PROGRAMS[0], *arguments], text=True, cwd=self.directory, stderr=subprocess.PIPE,
                                   env=self.environment | {"QT_QPA_PLATFORM": "offscreen"})
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        end = time.monotonic() + PATIENCE
        while not list(self.directory.rglob("*.evn/general.t")):
            self.assertLess(time.monotonic(), end, "the first events")
            time.sleep(0.05)
        return process

    def assert_one_line(self, done, status, *parts):
        self.assertEqual(done.returncode, status, done.stderr)
        self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
        for part in parts:
            self.assertIn(part, done.stderr)

    def test_without_a_display_they_say_so_and_end(self):
        for program in PROGRAMS:
            name = pathlib.Path(program).name + ": "
            self.assert_one_line(self.run_program(program), 1, name, "neither DISPLAY nor WAYLAND_DISPLAY is set")
            self.assert_one_line(self.run_program(program, DISPLAY=":4711"), 1, name, "display cannot be opened")
            self.assert_one_line(self.run_program(program, QT_QPA_PLATFORM="nonsense"), 1, name, "nonsense")
        self.assertEqual(list(self.directory.iterdir()), [], "nothing is made")

    def test_questions_about_them_need_no_display(self):
        for program in PROGRAMS:
            for option in ("--version", "--help"):
                done = self.run_program(program, option)
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertTrue(done.stdout)
            self.assert_one_line(self.run_program(program, "--nonsense"), 2, "--nonsense")

    def test_a_file_in_place_of_the_home_is_named(self):
        blocked = self.directory / "blocked"
        blocked.write_text("precious")
        done = self.run_program(PROGRAMS[0], "--home", str(blocked), QT_QPA_PLATFORM="offscreen")
        self.assert_one_line(done, 1, "dayward-app: ", str(blocked))
        self.assertEqual(blocked.read_text(), "precious")

    def test_a_home_is_taken_from_the_present_directory_and_a_signal_ends_in_order(self):
        process = self.start("--home", "some/home")
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertTrue((self.directory / "some/home/data/Library/CCAppHistory.dat").exists())


if __name__ == "__main__":
    PROGRAMS[:] = [str(pathlib.Path(path).resolve()) for path in sys.argv[1:3]]
    unittest.main(argv=sys.argv[:1])
