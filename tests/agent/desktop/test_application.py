#!/usr/bin/python3
"""From an event over the schedule and the agent to the application, as a user has it: programs on a session bus and a
display, with a mocked notification service and a real one. Only the agent's clock is driven, from now into the days to
come.

Use: test_application.py DAYWARD-AGENT DAYWARD-APP DAYWARD. Ends with 77 where there is no display or bus to start."""
import contextlib
import datetime
import json
import os
import signal
import subprocess
import time
import unittest

import dbus

import display
from desktop import BUS, DesktopTest, DrivenAgent, alert, archived, call, on_bus
from waiting import PATIENCE, wait_for

AGENT = APPLICATION = PROGRAM = None
DAY = 86400
TOMORROW = (int(time.time()) // DAY + 1) * DAY
NOON, MINUTE = TOMORROW + DAY // 2, 60
SCREEN = (600, 900)
TRIES = 6  # alerts, for one of which a busy machine's application is in time
NEEDED = (*display.NEEDED, "dunst", "dunstctl")


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, timeout=PATIENCE).stdout.strip()


class ApplicationTest(DesktopTest):
    """An event that is magenta all over tells where it is open."""

    def setUp(self):
        super().setUp()
        self.addCleanup(self.end_applications)
        display.start_window_manager(self.run_beside, self.scratch)
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
        """Until it is in front and knows it, which takes what fires there only."""
        self.run_beside(APPLICATION, *self.home_options())

        def is_in_front():
            window = self.window()
            if window:
                output("xdotool", "windowactivate", window)
            return window and self.deliver(alert("Ready!", 0))
        wait_for("the front", is_in_front)

    def deliver(self, notification, seconds=10):
        """Whether the application shows it, if it comes to it within the time."""
        deadline = time.monotonic_ns() // 1000 + seconds * 10 ** 6
        return self.ask_application("Deliver", dbus.ByteArray(archived(notification)), dbus.UInt64(deadline))

    def end_applications(self):
        """Whoever started them."""
        for name in self.applications():
            # It may end by itself meanwhile.
            with contextlib.suppress(dbus.DBusException, ProcessLookupError):
                os.kill(call(*BUS, "GetConnectionUnixProcessID", name), signal.SIGKILL)
        wait_for("the end", lambda: not self.applications() and not self.window())

    def applications(self):
        return [name for name in dbus.SessionBus().list_names() if name.startswith("org.dayward.Dayward")]

    def window(self):
        return next(iter(output("xdotool", "search", "--onlyvisible", "--name", "^Dayward$").split()), None)

    def is_event_open(self):
        return display.magenta() > SCREEN[0] * SCREEN[1] * 0.3

    def ask_application(self, method, *arguments, home=None):
        name, = self.applications()
        return call(name, "/org/dayward/Dayward/Notifications", "org.dayward.Dayward.Notifications1", method,
                    home or str(self.home / "state"), *arguments)

    def minimize(self):
        """Until the application knows it, which fetches out of sight only."""
        def is_away():
            window = self.window()
            if window:
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
        self.start_application()
        first = self.window()
        self.minimize()
        self.fire()
        self.assertEqual([sent.body for sent in service.bubbles()], ["Picnic is happening!"])
        service.tap(1, "show")
        wait_for("the event", self.is_event_open)
        self.assertEqual(self.window(), first)

    def test_in_front_it_gets_the_alert_in_place_of_the_service(self):
        service = self.start_service()
        for minute in range(1, TRIES + 1):
            self.add(f"Course {minute}", f"12:{minute:02}")
        self.start_application()

        def is_taken(minute):
            """The service shows one for which the application does not answer in time."""
            before = len(service.bubbles())
            self.agent.pass_to(NOON + minute * MINUTE + MINUTE // 2)
            return len(service.bubbles()) == before
        self.assertTrue(any(is_taken(minute) for minute in range(TRIES)))
        self.minimize()
        self.agent.pass_to(NOON + TRIES * MINUTE + MINUTE // 2)
        self.assertEqual(service.bubbles()[-1].body, f"Course {TRIES} is happening!")

    def test_what_is_not_its_own_or_comes_too_late_is_refused(self):
        self.start_application()
        wait_for("its own", lambda: self.deliver(alert("A", 0)))
        self.assertFalse(self.deliver(alert("A", 0), seconds=-1))
        message, soon = dbus.ByteArray(archived(alert("A", 0))), dbus.UInt64(time.monotonic_ns() // 1000 + 10 ** 7)
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
        settings = self.scratch / "dunstrc"
        settings.write_text("[urgency_normal]\ntimeout = 0\n")  # the bubble waits for its tap
        self.run_beside("dunst", "-conf", settings)
        wait_for("dunst", lambda: self.has_owner("org.freedesktop.Notifications"))
        self.fire()
        wait_for("the bubble", lambda: output("dunstctl", "count", "displayed") == "1")
        output("dunstctl", "action", "0")
        wait_for("the event", self.is_event_open)
        wait_for("the bubble's end", lambda: output("dunstctl", "count", "displayed") == "0")


def main():
    global AGENT, APPLICATION, PROGRAM
    AGENT, APPLICATION, PROGRAM = on_bus(
        NEEDED, lambda arguments: {"org.dayward.Dayward": arguments[1]}, "%dx%d" % SCREEN)
    unittest.main(argv=[__file__])


if __name__ == "__main__":
    main()
