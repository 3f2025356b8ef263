"""Runs the program for the tests: a fresh home, fixed time, zone and language."""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = None
NOW = "2026-03-10T12:00:00"


class ProgramTest(unittest.TestCase):
    """One home a test."""

    zone = "UTC"
    locale = "en_US"
    now = NOW

    def setUp(self):
        self.directory = tempfile.TemporaryDirectory(prefix="dayward-test-")
        self.home = pathlib.Path(self.directory.name) / "home"

    def tearDown(self):
        self.directory.cleanup()

    def program_command(self, *arguments, home=None, now=None, zone=None, locale=None):
        return [PROGRAM, "--home", str(home or self.home), "--now", now or self.now, "--tz", zone or self.zone,
                "--locale", locale or self.locale, *map(str, arguments)]

    def program_environment(self):
        return {k: v for k, v in os.environ.items() if not k.startswith(("DAYWARD", "XDG", "LC_", "TZ", "DBUS"))}

    def start(self, *arguments, input=None, **options):
        return subprocess.run(self.program_command(*arguments, **options), input=input, capture_output=True, text=True,
                              env=self.program_environment(), timeout=120)

    def run_ok(self, *arguments, **options):
        done = self.start(*arguments, **options)
        self.assertEqual((done.returncode, done.stderr), (0, ""), f"{arguments}: {done.stdout}")
        return done.stdout

    def run_json(self, *arguments, **options):
        return json.loads(self.run_ok("--json", *arguments, **options))

    def refused(self, status, *arguments, **options):
        """The one line on standard error of a command that must fail with that status."""
        done = self.start(*arguments, **options)
        self.assertEqual(done.returncode, status, f"{arguments}: {done.stdout} {done.stderr}")
        self.assertEqual(done.stdout, "")
        if status == 1:
            self.assertEqual(len(done.stderr.strip().splitlines()), 1, done.stderr)
        return done.stderr.strip()

    def add(self, name, *options):
        return self.run_json("add", name, *options)["identifier"]

    def events(self, *options):
        return [event for section in self.run_json("list", *options)["sections"] for event in section["events"]]


def main():
    global PROGRAM
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    sys.modules["program"].PROGRAM = PROGRAM
    unittest.main(module=sys.modules["__main__"])
