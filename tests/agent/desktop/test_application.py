#!/usr/bin/python3
"""From an event over the schedule and the agent to the application, as a user has it: programs on a session bus and a
display, with a mocked notification service and a real one. Only the agent's clock is driven, from now into the days to
come.

Use: test_application.py DAYWARD-AGENT DAYWARD-APP DAYWARD. Ends with 77 where there is no display or bus to start."""
import array
import collections
import datetime
import json
import os
import pathlib
import subprocess
import time
import unittest

import dbus

from desktop import PATIENCE, DesktopTest, DrivenAgent, alert, archived, call, on_bus, wait_for

AGENT = APPLICATION = PROGRAM = None
DAY = 86400
TOMORROW = (int(time.time()) // DAY + 1) * DAY
NOON, MINUTE = TOMORROW + DAY // 2, 60
SCREEN = (600, 900)
NEEDED = ("Xvfb", "xvfb-run", "xdotool", "openbox", "dunst", "dunstctl")


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, timeout=PATIENCE).stdout.strip()


class ApplicationTest(DesktopTest):
    """An event that is magenta all over tells where it is open."""

    def setUp(self):
        super().setUp()
        self.addCleanup(self.end_applications)
        self.run_beside("openbox", "--sm-disable")
        wait_for("the window manager", lambda: output("xdotool", "get_num_desktops"))
        # The agent comes first, so that no other is started by those who schedule.
        self.agent = DrivenAgent(self, AGENT, TOMORROW - DAY, *self.home_options())
        default = [event["identifier"] for section in self.command("list")["sections"] for event in section["events"]]
        self.command("remove", *default)
        self.add("Picnic", "12:00", "--background", "#ff00ff")

    def home_options(self):
        return ["--home", str(self.home)]

    def add(self, name, time, *options):
        day = datetime.datetime.fromtimestamp(TOMORROW, datetime.timezone.utc).date()
        self.command("add", name, "--date", day, "--time", time, "--alert", "on event", *options)

    def command(self, *arguments):
        done = subprocess.run([PROGRAM, *self.home_options(), "--json", *map(str, arguments)], capture_output=True,
                              text=True, timeout=PATIENCE)
        self.assertEqual((done.returncode, done.stderr), (0, ""), arguments)
        return json.loads(done.stdout)

    def start_application(self):
        """Until it is in front and knows it, which takes what fires there only. Its window."""
        self.run_beside(APPLICATION, *self.home_options())
        window = wait_for("the window", self.window)
        output("xdotool", "windowactivate", "--sync", window)
        first = dbus.ByteArray(archived(alert("Ready!", 0)))
        wait_for("the front", lambda: self.ask_application("Deliver", first,
                                                           dbus.UInt64(time.monotonic_ns() // 1000 + 10 ** 6)))
        return window

    def end_applications(self):
        """Whoever started them."""
        for window in output("xdotool", "search", "--name", "^Dayward$").split():
            number = output("xdotool", "getwindowpid", window)
            if number:
                subprocess.run(["kill", number])
                wait_for("the end", lambda: not pathlib.Path("/proc", number, "exe").exists()
                         or "zombie" in pathlib.Path("/proc", number, "status").read_text())

    def window(self):
        return next(iter(output("xdotool", "search", "--onlyvisible", "--name", "^Dayward$").split()), None)

    def is_event_open(self):
        screen = pathlib.Path(os.environ["DAYWARD_TEST_SCREEN"], "Xvfb_screen0").read_bytes()
        colors = collections.Counter(array.array("I", screen[:len(screen) // 4 * 4]))
        magenta = sum(count for color, count in colors.items()
                      if color >> 16 & 255 == color & 255 > (color >> 8 & 255) + 40)
        return magenta > SCREEN[0] * SCREEN[1] * 0.3

    def ask_application(self, method, *arguments, home=None):
        name, = [name for name in dbus.SessionBus().list_names() if name.startswith("org.dayward.Dayward.h")]
        return call(name, "/org/dayward/Dayward/Notifications", "org.dayward.Dayward.Notifications1", method,
                    home or str(self.home / "state"), *arguments)

    def minimize(self, window):
        """Until the application knows it, which fetches out of sight only."""
        def is_away():
            output("xdotool", "windowminimize", window)
            return self.ask_application("Fetch")
        wait_for("the background", is_away)

    def fire(self):
        self.agent.pass_to(NOON + MINUTE // 2)


class Taps(ApplicationTest):
    def test_a_tap_opens_the_event_in_an_application_that_is_started(self):
        service = self.start_service()
        self.fire()
        self.assertIsNone(self.window())
        service.tap(1)
        wait_for("the window", self.window)
        wait_for("the event", self.is_event_open)

    def test_a_tap_brings_the_running_application_to_the_front(self):
        service = self.start_service()
        first = self.start_application()
        self.minimize(first)
        self.fire()
        self.assertEqual([sent.body for sent in service.bubbles()], ["Picnic is happening!"])
        service.tap(1, "show")
        wait_for("the event", self.is_event_open)
        self.assertEqual(self.window(), first)

    def test_in_front_it_gets_the_alert_in_place_of_the_service(self):
        service = self.start_service()
        self.add("Dentist", "12:05")
        window = self.start_application()
        self.fire()
        self.assertEqual(service.bubbles(), [])
        self.minimize(window)
        self.agent.pass_to(NOON + 6 * MINUTE)
        self.assertEqual([sent.body for sent in service.bubbles()], ["Dentist is happening!"])


    def test_what_is_not_its_own_or_comes_too_late_is_refused(self):
        self.start_application()
        message, soon = dbus.ByteArray(archived(alert("A", 0))), dbus.UInt64(time.monotonic_ns() // 1000 + 10 ** 7)
        self.assertTrue(self.ask_application("Deliver", message, soon))
        self.assertFalse(self.ask_application("Deliver", message, dbus.UInt64(time.monotonic_ns() // 1000 - 1)))
        other = str(self.scratch / "other/state")
        for call_refused in (lambda: self.ask_application("Deliver", message, soon, home=other),
                             lambda: self.ask_application("Open", message, dbus.Dictionary(signature="sv"), home=other),
                             lambda: self.ask_application("Fetch", home=other)):
            self.assertRaisesRegex(dbus.DBusException, "another home", call_refused)
        with self.assertRaisesRegex(dbus.DBusException, "AccessDenied"):
            self.ask_application("Deliver", dbus.ByteArray(b"no archive"), soon)


class OwnHome(ApplicationTest):
    """The user's own home, whose programs the bus starts."""

    def home_options(self):
        return []

    def test_a_tap_lets_the_bus_start_the_application(self):
        service = self.start_service()
        self.fire()
        service.tap(1)
        wait_for("the event", self.is_event_open)
        self.assertTrue(self.has_owner("org.dayward.Dayward"))


class RealService(ApplicationTest):
    def test_dunst_shows_it_and_its_default_action_opens_the_event(self):
        self.run_beside("dunst")
        wait_for("dunst", lambda: self.has_owner("org.freedesktop.Notifications"))
        self.fire()
        wait_for("the bubble", lambda: output("dunstctl", "count", "displayed") == "1")
        output("dunstctl", "action", "0")
        wait_for("the event", self.is_event_open)
        self.assertEqual(output("dunstctl", "count", "displayed"), "0")


def main():
    global AGENT, APPLICATION, PROGRAM
    AGENT, APPLICATION, PROGRAM = on_bus(
        NEEDED, lambda arguments: {"org.dayward.Dayward": arguments[1]}, "%dx%d" % SCREEN)
    unittest.main(argv=[__file__])


if __name__ == "__main__":
    main()
