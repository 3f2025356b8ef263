#!/usr/bin/python3
"""The application as a user has it: a window on a display, a session bus, keys from a keyboard, the command
line beside it on the same home.

Use: test_whole_program.py DAYWARD-APP DAYWARD. Ends with 77 where there is no display server or bus to start."""
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import dbus

import display
from display import colors, magenta
from waiting import PATIENCE, wait_for

APPLICATION = PROGRAM = None
# Where the window shows no row.
LIGHT, DARK = 0xf3f2f7, 0x121117
PORTAL = ("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings")
PREFERS_DARK, PREFERS_LIGHT = 1, 2


def output(*command):
    return subprocess.run(command, capture_output=True, timeout=PATIENCE).stdout


def pixels(color):
    """How many of them the display shows, with an alpha channel or without."""
    shown = colors()
    return shown[color] + shown[color | 0xff000000]


class WholeProgram(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="dayward-test-")
        self.addCleanup(directory.cleanup)
        scratch = pathlib.Path(directory.name)
        self.home = scratch / "home"
        self.started = []
        self.addCleanup(self.end_all)
        display.start_window_manager(self.run_beside, scratch)
        self.application = self.start()
        self.window = wait_for("the window", self.visible_window)
        wait_for("the first picture", lambda: len(colors()) > 200)

    def end_all(self):
        for process in self.started:
            process.kill()
            process.communicate()

    def start(self, **variables):
        process = subprocess.Popen([APPLICATION, "--home", str(self.home)], text=True, env=os.environ | variables,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.started.append(process)
        return process

    def run_beside(self, *command, env=None):
        self.started.append(subprocess.Popen(command, text=True, env=env, stdout=subprocess.PIPE,
                                             stderr=subprocess.PIPE))

    def startup(self):
        """What a launcher that is clicked now tells the program that it starts. The display's clock is the machine's."""
        return f"launcher-1-machine-start-0_TIME{time.monotonic_ns() // 10 ** 6 % 2 ** 32}"

    def active_window(self):
        return output("xdotool", "getactivewindow").strip()

    def cover_window(self):
        """Another window, of an application on another home and no bus, takes the keyboard and lies on top. It asks
        for the keyboard before it draws."""
        before = pixels(LIGHT)
        alone = os.environ | {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"}
        self.run_beside(APPLICATION, "--home", str(self.home) + "-other", env=alone)
        wait_for("the window that covers", lambda: self.active_window() not in (b"", self.window))
        wait_for("its picture", lambda: pixels(LIGHT) > before + 10000)

    def visible_window(self):
        found = output("xdotool", "search", "--onlyvisible", "--name", "^Dayward$").split()
        return found[0] if found else None

    def settle(self):
        before = None
        while before != (before := colors()):
            time.sleep(0.15)

    def command(self, *arguments):
        done = subprocess.run([PROGRAM, "--home", str(self.home), "--json", *arguments], capture_output=True,
                              text=True, timeout=PATIENCE)
        self.assertEqual((done.returncode, done.stderr), (0, ""), arguments)
        return json.loads(done.stdout)

    def event(self, name):
        sections = self.command("list")["sections"]
        return next((event for section in sections for event in section["events"] if event["name"] == name), None)

    def keys(self, *keys):
        output("xdotool", "windowactivate", "--sync", self.window)
        output("xdotool", "key", "--delay", "60", *keys)

    def click(self, x, y):
        output("xdotool", "mousemove", "--window", self.window, str(x), str(y), "click", "1")

    def test_from_start_to_end(self):
        self.settle()
        list_shown = colors()
        self.keys("ctrl+n")
        wait_for("the editor", lambda: colors() != list_shown)
        time.sleep(0.5)
        self.settle()
        self.click(200, 100)  # the name
        output("xdotool", "type", "--delay", "40", "Picnic")
        self.click(387, 28)  # "Done"
        added = wait_for("the new event in the store", lambda: self.event("Picnic"))
        self.settle()
        self.assertLess(magenta(), 1000)

        self.command("edit", added["identifier"], "--background", "#ff00ff")
        wait_for("the row in its new colour", lambda: magenta() > 10000)

        self.cover_window()
        output("xdotool", "mousemove", "5", "500", "click", "1")  # who raises a window must have been asked after that
        self.assertEqual(self.start(DESKTOP_STARTUP_ID=self.startup()).wait(PATIENCE), 0)
        wait_for("the first window on top", lambda: self.active_window() == self.window)
        self.assertIsNone(self.application.poll())

        self.end_by(signal.SIGTERM)
        self.assertIsNotNone(self.event("Picnic"))

    def end_by(self, ending):
        self.application.send_signal(ending)
        self.assertEqual(self.application.wait(PATIENCE), 0, ending)

    def test_signals_end_it_without_loss(self):
        self.end_by(signal.SIGTERM)  # the first events are written once the window is there
        before = self.command("list")
        for ending in (signal.SIGINT, signal.SIGHUP):
            self.application = self.start()
            self.window = wait_for("the window again", self.visible_window)
            self.keys("ctrl+n")
            time.sleep(1)
            self.end_by(ending)
            self.assertEqual(self.command("list"), before, "an editor left open has changed nothing")
            self.assertEqual(self.command("doctor")["problems"], [])

    def start_portal(self, preference):
        """The desktop's settings, mocked; they answer the older question, which wraps its answer twice."""
        self.run_beside(sys.executable, "-m", "dbusmock", "--logfile", os.devnull, *PORTAL)
        wait_for("the portal", lambda: dbus.SessionBus().name_has_owner(PORTAL[0]))
        portal = dbus.Interface(dbus.SessionBus().get_object(*PORTAL[:2]), "org.freedesktop.DBus.Mock")
        portal.AddMethod(PORTAL[2], "Read", "ss", "v", f"ret = dbus.UInt32({preference}, variant_level=2)")
        return portal

    def prefer(self, portal, preference):
        portal.EmitSignal(PORTAL[2], "SettingChanged", "ssv",
                          ["org.freedesktop.appearance", "color-scheme", dbus.UInt32(preference)])

    def shows(self, color, other):
        return pixels(color) > 10000 > pixels(other)

    def test_follows_the_desktop_into_the_dark_and_back(self):
        wait_for("a light window", lambda: self.shows(LIGHT, DARK))
        self.application.terminate()
        self.application.wait(PATIENCE)
        portal = self.start_portal(PREFERS_DARK)
        self.start()
        wait_for("a dark window", lambda: self.shows(DARK, LIGHT))
        self.prefer(portal, PREFERS_LIGHT)
        wait_for("the same window, light", lambda: self.shows(LIGHT, DARK))
        self.prefer(portal, PREFERS_DARK)
        wait_for("the same window, dark", lambda: self.shows(DARK, LIGHT))


def main():
    global APPLICATION, PROGRAM
    if "--inside" not in sys.argv:
        missing = [program for program in ("dbus-run-session", *display.NEEDED) if not shutil.which(program)]
        if missing:
            print("skipped: without " + ", ".join(missing))
            sys.exit(77)
        with tempfile.TemporaryDirectory(prefix="dayward-run-") as runtime:
            kept = {name: value for name, value in os.environ.items()
                    if not name.startswith(("DAYWARD", "XDG", "QT_", "WAYLAND", "DBUS"))}
            command, variables = display.on_display("600x900", runtime)
            kept |= {"XDG_RUNTIME_DIR": runtime, "LC_ALL": "C.UTF-8"} | variables
            sys.exit(subprocess.run([*command, "dbus-run-session", "--", *sys.argv, "--inside"], env=kept).returncode)
    APPLICATION, PROGRAM = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1])


if __name__ == "__main__":
    main()
