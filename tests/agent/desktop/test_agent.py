#!/usr/bin/python3
"""The agent as a process on a session bus with a mocked notification service: from the schedule to the bubble, and from
the bubble's buttons back. Its clock is driven, so that nothing waits for the time.

Use: test_agent.py DAYWARD-AGENT DAYWARD DESKTOP-PROBE. Ends with 77 where there is no bus or mock to start."""
import json
import os
import signal
import subprocess
import unittest

import dbus

from desktop import BUS, DesktopTest, DrivenAgent, Moment, alert, archived, call, home_name, on_bus, write_schedule
from waiting import PATIENCE, wait_for

AGENT = PROGRAM = PROBE = None
NOON = 1773144000  # 2026-03-10 12:00 UTC
MINUTE, HOUR = 60, 3600


class AgentTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.env = os.environ | {"TZ": "UTC"}

    def start_agent(self, *scheduled):
        write_schedule(self.home / "state", list(scheduled), NOON)
        self.agent = DrivenAgent(self, AGENT, NOON, "--home", self.home, env=self.env)

    def agent_name(self):
        return home_name("Agent", self.home)

    def scheduled_count(self):
        return int(call(self.agent_name(), "/org/dayward/Agent", "org.dayward.Agent1", "State")["scheduled"])

    def bodies(self):
        return [sent.body for sent in self.service.bubbles()]


class Firing(AgentTest):
    def test_an_alert_is_shown_in_its_minute_and_once(self):
        self.service = self.start_service()
        self.start_agent(alert("Fair is happening!", NOON + MINUTE, alertAction="Look"),
                         alert("Fair - is coming!", NOON + 5 * MINUTE))
        self.assertEqual(self.bodies(), [])
        self.agent.pass_to(NOON + 2 * MINUTE)
        self.assertEqual(self.bodies(), ["Fair is happening!"])
        self.assertEqual(self.service.bubbles()[0].actions["show"], "Look")
        self.agent.jump_to(NOON)
        self.agent.pass_to(NOON + 6 * MINUTE)
        self.assertEqual(self.bodies(), ["Fair is happening!", "Fair - is coming!"])

    def test_a_sleep_ends_with_a_digest_and_one_late_alert_tells_its_time(self):
        self.service = self.start_service()
        self.start_agent(*[alert(f"E{minute}", NOON + minute * MINUTE) for minute in (10, 20, 30, 90)])
        self.agent.jump_to(NOON + HOUR)
        digest, = self.service.bubbles()
        self.assertEqual(digest.summary, "3 missed alerts")
        self.assertEqual([line.split(" – ")[1] for line in digest.body.splitlines()], ["E10", "E20", "E30"])
        self.agent.jump_to(NOON + 2 * HOUR)
        self.assertEqual(self.bodies()[1], "E90\n1:30 PM")

    def test_without_actions_there_are_no_buttons(self):
        self.service = self.start_service("body")
        self.start_agent(alert("A", NOON + MINUTE))
        self.agent.pass_to(NOON + 2 * MINUTE)
        self.assertEqual([(sent.body, sent.actions) for sent in self.service.bubbles()], [("A", {})])

    def test_without_a_service_it_waits_for_one(self):
        self.start_agent(alert("A", NOON + MINUTE), alert("B", NOON + 2 * MINUTE))
        self.agent.pass_to(NOON + 3 * MINUTE)
        self.service = self.start_service()
        wait_for("the alerts", lambda: len(self.bodies()) == 2)
        self.assertEqual(self.bodies(), ["A\n12:01 PM", "B"])

    def test_a_silent_one_sets_the_badge(self):
        badges = self.follow_badges()
        self.start_agent({"fireDate": Moment(NOON + MINUTE), "applicationIconBadgeNumber": 3, "userInfo": {}})
        self.assertEqual(badges(), 0)
        self.agent.pass_to(NOON + 2 * MINUTE)
        self.assertEqual(badges(), 3)

    def test_it_ends_with_the_session(self):
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], text=True,
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.addCleanup(bus.stdout.close)
        self.addCleanup(bus.wait)
        self.addCleanup(bus.kill)
        self.env["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.start_agent(alert("A", NOON + MINUTE))
        bus.kill()
        self.assertEqual(self.agent.process.process.wait(PATIENCE), 0)


class Answers(AgentTest):
    def setUp(self):
        super().setUp()
        self.service = self.start_service()
        self.start_agent(alert("A", NOON + MINUTE))
        self.agent.pass_to(NOON + 2 * MINUTE)

    def test_a_snoozed_alert_comes_back(self):
        now = NOON + 2 * MINUTE
        for number, (button, later) in enumerate((("snooze-ten-minutes", 10 * MINUTE), ("snooze-one-hour", HOUR)), 1):
            self.assertEqual(self.scheduled_count(), 0)
            self.service.tap(number, button)
            wait_for("the snoozed entry", self.scheduled_count)
            now += later
            self.agent.pass_to(now - 1)
            self.assertEqual(self.bodies(), ["A"] * number)
            self.agent.pass_to(now)
            self.assertEqual(self.bodies(), ["A"] * (number + 1))

    def test_a_test_alert_goes_the_same_way_and_leaves_the_schedule(self):
        call(self.agent_name(), "/org/dayward/Agent", "org.dayward.Agent1", "Show",
             dbus.ByteArray(archived({"alertBody": "Test", "userInfo": {}})))
        self.assertEqual(self.bodies(), ["A", "Test"])
        self.assertEqual(self.scheduled_count(), 0)

    def test_a_second_agent_of_the_home_ends(self):
        second = subprocess.run([AGENT, "--home", self.home], capture_output=True, text=True, timeout=PATIENCE,
                                env=self.env)
        self.assertEqual((second.returncode, second.stdout), (0, ""))
        self.assertEqual(second.stderr, "dayward-agent: another agent of this home runs\n")


class Beginning(AgentTest):
    """Whoever needs the agent starts it."""

    def setUp(self):
        super().setUp()
        self.addCleanup(self.end_agents)

    def names(self):
        """Of this test's agents: one of the test before may have been slow to come."""
        return [name for name in (self.agent_name(), "org.dayward.Agent") if self.has_owner(name)]

    def end_agents(self):
        for name in self.names():
            number = call(*BUS, "GetConnectionUnixProcessID", name)
            os.kill(number, signal.SIGKILL)
        wait_for("the agents' end", lambda: not self.names())

    def run_program(self, *arguments):
        done = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=PATIENCE,
                              env=self.env)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def add(self, *options):
        self.run_program(*options, "add", "Fair", "--date", "2200-01-01", "--alert", "on event")

    def device(self, home, body=""):
        return subprocess.run([PROBE, "device", home, body], capture_output=True, text=True, timeout=PATIENCE,
                              env=self.env).stdout.splitlines()

    def test_scheduling_starts_the_agent_of_the_home(self):
        self.run_program("--home", self.home, "list")
        self.add("--home", self.home, "--now", "2026-03-10T12:00:00")
        self.assertEqual(self.names(), [], "no agent has such a clock")
        self.add("--home", self.home)
        wait_for("the agent", self.names)
        self.assertEqual(self.names(), [self.agent_name()])
        self.add()
        wait_for("the agent of the user's own home", lambda: "org.dayward.Agent" in self.names())
        self.add()
        self.add("--home", self.home)
        self.assertEqual(len(self.names()), 2)

    def test_the_command_line_tells_whether_alerts_will_come_and_shows_one(self):
        def test():
            return subprocess.run([PROGRAM, "--home", self.home, "notifications", "test"], timeout=PATIENCE,
                                  capture_output=True, text=True, env=self.env).returncode

        def health():
            return json.loads(self.run_program("--home", self.home, "--json", "doctor"))["alerts"]
        self.assertEqual(health() | {"problems": []},
                         {"alertsWillCome": False, "helperAnswers": True, "service": None, "hasActions": False,
                          "doNotDisturb": None, "scheduled": 0, "next": [], "problems": []})
        self.assertEqual(test(), 1)
        service = self.start_service(Inhibited=True)
        rich = health()
        self.assertEqual((rich["alertsWillCome"], rich["service"], rich["hasActions"], rich["doNotDisturb"],
                          len(rich["problems"])), (True, "mock-notify", True, True, 1))
        self.assertEqual(test(), 0)
        self.assertIn("This is a test.", service.bubbles()[-1].body)

    def test_a_number_on_the_icon_is_shown_by_the_agent(self):
        badges = self.follow_badges()
        self.add("--home", self.home)
        self.run_program("--home", self.home, "badge", "before", "Fair")
        while badges() == 0:
            pass

    def test_the_device_tells_whether_alerts_will_come(self):
        self.assertEqual(self.device(""), ["kept, service none"])
        service = self.start_service(Inhibited=False)
        self.assertEqual(self.device("", "Test"), ["kept, service mock-notify, with actions, not quiet", "shown"])
        self.assertEqual([sent.body for sent in service.bubbles()], ["Test"])
        self.assertEqual(self.device(self.home), ["kept, service mock-notify, with actions, not quiet"])
        self.env["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent"
        first, second = self.device("", "Test")
        self.assertEqual(first, "not kept, service none")
        self.assertIn("shown failed: ", second)


def main():
    global AGENT, PROGRAM, PROBE
    AGENT, PROGRAM, PROBE = on_bus(["dbus-daemon"], lambda arguments: {"org.dayward.Agent": arguments[0]})
    unittest.main(argv=[__file__])


if __name__ == "__main__":
    main()
