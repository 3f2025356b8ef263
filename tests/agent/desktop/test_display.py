#!/usr/bin/python3
"""The display on a session bus: what a mocked notification service is sent, and what the display makes of its signals.

Use: test_display.py DESKTOP-PROBE. Ends with 77 where there is no bus or mock to start."""
import os
import plistlib
import signal
import stat
import sys
import unittest

import dbus

from desktop import DesktopTest, Service, archived, call, home_name, on_bus
from waiting import wait_for

PROBE = None
WAVE = "Marimba.wav"
PORT, PORT_INTERFACE = "/org/dayward/Dayward/Notifications", "org.dayward.Dayward.Notifications1"
NOON = 1773133200  # 2026-03-10 12:00 in Moscow


class DisplayTest(DesktopTest):
    def start_probe(self, locale="en_GB", env=None):
        self.probe = self.run_beside(PROBE, self.home, NOON, locale, env=env)
        self.expect("ready")

    def expect(self, *lines):
        for line in lines:
            self.assertEqual(self.probe.line(), line)

    def ask(self, *words):
        self.probe.say(*words)
        return self.probe.line()


class Shown(DisplayTest):
    def test_a_bubble_has_words_buttons_and_hints(self):
        service = self.start_service()
        self.start_probe()
        self.assertEqual(self.ask("show", "a", "Fish & <Chips> is happening!"), "shown a")
        sent, = service.bubbles()
        self.assertEqual((sent.summary, sent.body), ("Dayward", "Fish &amp; &lt;Chips&gt; is happening!"))
        self.assertEqual(sent.actions, {"default": "Show", "show": "Show", "snooze-ten-minutes": "In 10 minutes",
                                        "snooze-one-hour": "In 1 hour", "snooze-tomorrow": "Tomorrow"})
        self.assertEqual(sent.hints["desktop-entry"], "org.dayward.Dayward")
        self.assertEqual((sent.hints["x-dunst-stack-tag"], sent.hints["x-canonical-private-synchronous"]), ("a", "a"))
        self.assertTrue(sent.hints["suppress-sound"])

        self.assertEqual(self.ask("show", "b", "B", "action=Открыть"), "shown b")
        self.assertEqual(self.ask("show", "a", "again"), "shown a")
        _, second, third = service.bubbles()
        self.assertEqual((second.replaces, second.actions["show"]), (0, "Открыть"))
        self.assertEqual((third.replaces, third.body), (1, "again"))

    def test_in_the_language_of_the_user(self):
        service = self.start_service()
        self.start_probe("ru_RU")
        self.ask("show", "a", "Ярмарка", f"late={NOON - 3600}")
        self.ask("digest", "b", "Ярмарка", NOON - 7200, "c", "Врач", NOON - 3600, "d", "Театр", NOON)
        late, digest = service.bubbles()
        self.assertEqual(late.actions["show"], "Показать")
        self.assertEqual(late.actions["snooze-one-hour"], "Через час")
        self.assertEqual(late.body, "Ярмарка\n11:00")
        self.assertEqual(digest.summary, "3 пропущенных напоминания")
        self.assertEqual(digest.body.splitlines()[:2], ["10:00 – Ярмарка", "11:00 – Врач"])

    def test_a_poor_service_gets_no_buttons_and_all_in_one_text(self):
        service = self.start_service("icon-static")
        self.start_probe()
        self.assertEqual(self.ask("show", "a", "<Fair>"), "shown a")
        sent, = service.bubbles()
        self.assertEqual((sent.summary, sent.body, sent.actions), ("<Fair>", "", {}))

    def test_the_badge_is_told_to_the_launchers(self):
        self.start_probe()
        badges = self.follow_badges()
        for number in (7, 0):
            self.probe.say("badge", number)
            self.assertEqual(badges(), number)


class Taps(DisplayTest):
    def setUp(self):
        super().setUp()
        self.service = self.start_service()
        self.start_probe()

    def closed(self):
        return [int(number) for number, in self.service.calls("CloseNotification")]

    def test_each_button_tells_what_it_is_for_and_takes_the_bubble_away(self):
        for number, (action, told) in enumerate({"default": "open e", "show": "open e",
                                                 "snooze-ten-minutes": "snooze e ten minutes",
                                                 "snooze-one-hour": "snooze e one hour",
                                                 "snooze-tomorrow": "snooze e tomorrow"}.items(), 1):
            self.ask("show", "e", "E")
            self.service.tap(number, action)
            self.expect(told)
            wait_for("the closing", lambda: number in self.closed())
            self.service.tap(number, action)  # a second time nothing comes
        self.assertEqual(self.ask("token"), "token ")

    def test_a_digest_opens_its_last_and_puts_off_all(self):
        self.ask("digest", "a", "A", NOON - 60, "b", "B", NOON - 30)
        self.service.tap(1, "snooze-one-hour")
        self.expect("snooze a one hour", "snooze b one hour")
        self.ask("digest", "a", "A", NOON - 60, "b", "B", NOON - 30)
        self.service.tap(2, "default", token="let-me-in")
        self.expect("open b")
        self.assertEqual(self.ask("token"), "token let-me-in")
        self.assertEqual(self.ask("token"), "token ")

    def test_what_is_withdrawn_is_closed_and_a_digest_with_its_last(self):
        self.ask("show", "a", "A")
        self.ask("digest", "b", "B", NOON, "c", "C", NOON)
        self.probe.say("withdraw", "b")
        self.probe.say("withdraw", "a")
        self.probe.say("withdraw", "nobody")
        self.assertEqual(self.ask("quiet"), "quiet unknown")
        self.assertEqual(self.closed(), [1])
        self.probe.say("withdraw", "c")
        wait_for("the digest's end", lambda: 2 in self.closed())

    def test_signals_of_others_bubbles_are_nothing(self):
        self.ask("show", "a", "A")
        self.service.tap(77)
        self.service.emit("NotificationClosed", "uu", dbus.UInt32(1), dbus.UInt32(2))
        self.service.tap(1)
        self.assertEqual(self.ask("name"), "name mock-notify")


class Services(DisplayTest):
    def test_without_a_service_nothing_is_shown_until_one_comes(self):
        self.start_probe()
        self.assertIn("shown a failed: ", self.ask("show", "a", "A"))
        self.assertEqual(self.ask("name"), "name none")
        first = self.start_service()
        self.expect("appeared")
        self.assertEqual(self.ask("show", "a", "A"), "shown a")
        first.end()
        self.assertIn("shown a failed: ", wait_for("the end", lambda: self.ask("show", "a", "A")))
        second = self.start_service("body")
        self.expect("appeared")
        self.assertEqual(self.ask("show", "a", "A"), "shown a")
        sent, = second.bubbles()
        self.assertEqual((sent.replaces, sent.actions), (0, {}), "nothing is known of the first service's")

    def test_a_service_that_the_bus_starts_is_one_from_the_first_bubble_on(self):
        self.install_service("actions")
        self.start_probe()
        told = self.ask("show", "a", "A")
        while told != "shown a":  # it may be slow to come
            told = self.probe.line() if told != "appeared" else self.ask("show", "a", "A")
        service = Service()
        self.addCleanup(service.kill)
        service.tap(1)
        told = self.probe.line()
        self.assertEqual(self.probe.line() if told == "appeared" else told, "open a")
        self.assertEqual(len(service.bubbles()), 1)

    def test_a_service_that_hangs_shows_each_once(self):
        service = self.start_service()
        self.start_probe()
        self.ask("show", "a", "A")
        os.kill(service.process.process.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, service.process.process.pid, signal.SIGCONT)
        self.assertIn("does not answer", self.ask("show", "b", "B"))
        self.assertIn("not answered yet", self.ask("show", "b", "B"))
        os.kill(service.process.process.pid, signal.SIGCONT)
        self.expect("appeared")
        self.assertEqual(self.ask("show", "b", "B"), "shown b")
        self.assertEqual([sent.body for sent in service.bubbles()], ["A", "B"])
        service.tap(2)
        self.expect("open b")

    def test_a_service_that_dies_over_it_is_followed_by_one_that_shows_it(self):
        service = self.start_service()
        self.start_probe()
        self.ask("show", "a", "A")
        os.kill(service.process.process.pid, signal.SIGSTOP)
        self.assertIn("does not answer", self.ask("show", "b", "B"))
        service.end()
        second = self.start_service()
        self.expect("appeared", "appeared")
        self.assertEqual(self.ask("show", "b", "B"), "shown b")
        self.assertEqual([sent.body for sent in second.bubbles()], ["B"])


class Followers(DisplayTest):
    """One agent was killed, another follows it."""

    def setUp(self):
        super().setUp()
        self.service = self.start_service()
        self.start_probe()
        self.ask("show", "a", "A")
        self.ask("digest", "b", "B", NOON, "c", "C", NOON)

    def follow(self):
        self.probe.end()
        self.start_probe()

    def test_it_hears_the_buttons_of_the_bubbles_and_replaces_them(self):
        self.follow()
        self.service.tap(1)
        self.expect("open a")
        self.ask("show", "c", "C again")
        self.assertEqual(self.service.bubbles()[-1].replaces, 2)
        self.follow()
        self.service.tap(1)  # taken already
        self.service.tap(2, "snooze-tomorrow")
        self.expect("snooze c tomorrow")

    def test_it_takes_another_services_numbers_for_nothing(self):
        self.service.end()
        self.service = self.start_service()
        self.follow()
        self.service.tap(1)
        self.ask("show", "a", "A")
        self.assertEqual(self.service.bubbles()[-1].replaces, 0)

    def test_a_broken_memory_is_none(self):
        (self.home / "bubbles").write_bytes(b"\xff\x00 1 2\n1 a\n")
        self.follow()
        self.service.tap(1)
        self.ask("show", "a", "A")
        self.assertEqual(self.service.bubbles()[-1].replaces, 0)


class Sounds(DisplayTest):
    def start_with_player(self):
        """A player among the programs that notes what it is to play."""
        self.played = self.scratch / "played"
        player = self.scratch / "pw-play"
        player.write_text(f'#!/bin/sh\nfor last; do :; done\necho "${{last##*/}}" >>{self.played}\n')
        player.chmod(player.stat().st_mode | stat.S_IXUSR)
        self.start_probe(env=os.environ | {"PATH": f"{self.scratch}:{os.environ['PATH']}"})

    def sounds(self):
        return self.played.read_text().split() if self.played.exists() else []

    def test_a_service_that_plays_is_given_the_file(self):
        service = self.start_service("body sound")
        self.start_with_player()
        self.ask("show", "a", "A", f"sound={WAVE}")
        self.ask("show", "b", "B", "sound=nowhere.wav")
        self.ask("show", "c", "C", "sound=Default")
        with_file, without, with_default = service.bubbles()
        self.assertTrue(with_default.hints["sound-file"].endswith("/share/dayward/iphone_tritone.wav"))
        self.assertTrue(with_file.hints["sound-file"].endswith("/share/dayward/" + WAVE))
        self.assertNotIn("suppress-sound", with_file.hints)
        self.assertNotIn("sound-file", without.hints)
        self.assertEqual(self.sounds(), [])

    def test_else_the_sound_is_played_beside_it_once_a_moment(self):
        self.start_service("body")
        self.start_with_player()
        for key in "abc":
            self.ask("show", key, key, "sound=UILocalNotificationDefaultSoundName")
        wait_for("the sound", self.sounds)
        self.assertEqual(self.sounds(), ["iphone_tritone.wav"])

    def test_do_not_disturb_is_kept(self):
        service = self.start_service("body", Inhibited=True)
        self.start_with_player()
        self.assertEqual(self.ask("quiet"), "quiet yes")
        self.ask("show", "a", "A", f"sound={WAVE}")
        service.mock("UpdateProperties", "org.freedesktop.Notifications", dbus.Dictionary({"Inhibited": False}))
        self.assertEqual(self.ask("quiet"), "quiet no")
        self.ask("show", "b", "B", "sound=Default")
        wait_for("the sound", self.sounds)
        self.assertEqual(self.sounds(), ["iphone_tritone.wav"])


class Application(DisplayTest):
    """The way to the application: a mocked one on the bus, and a program that notes how it was started."""

    def setUp(self):
        super().setUp()
        self.started = self.scratch / "started"
        os.mkfifo(self.started)
        program = self.scratch / "application"
        program.write_text(f'#!/bin/sh\necho "$XDG_ACTIVATION_TOKEN" "$@" >{self.started}\n')
        program.chmod(0o700)
        self.start_probe(env=os.environ | {"PROBE_APPLICATION": str(program)})

    def name(self):
        """The application of the home."""
        return home_name("Dayward", self.home)

    def start_application(self, **methods):
        """One whose methods are these lines of Python."""
        process = self.run_beside(sys.executable, "-m", "dbusmock", "--logfile", os.devnull, self.name(), PORT,
                                  PORT_INTERFACE)
        wait_for("the application", lambda: self.has_owner(self.name()))
        for method, (takes, gives, code) in methods.items():
            self.mock("AddMethod", PORT_INTERFACE, method, takes, gives, code)
        return process

    def mock(self, method, *arguments):
        return call(self.name(), PORT, "org.freedesktop.DBus.Mock", method, *arguments)

    def handed(self, method):
        """What the notification of the last call holds."""
        last = [arguments for _, name, arguments in self.mock("GetCalls") if name == method][-1]
        return plistlib.loads(bytes(last[1]))["$objects"]

    def test_a_closed_one_is_started_with_the_event(self):
        self.assertEqual(self.ask("deliver", "E-1", "A"), "not delivered")
        self.assertEqual(self.ask("fetch"), "did not fetch")
        self.assertEqual(self.ask("open", "E-1", "A"), "opened")
        self.assertEqual(self.started.read_text(), f" --home {self.home} --event E-1\n")
        service = self.start_service()
        self.expect("appeared")
        self.ask("show", "a", "A")
        service.tap(1, token="let-me-in")
        self.expect("open a")
        self.ask("open", "E-1", "A")
        self.assertEqual(self.started.read_text(), f"let-me-in --home {self.home} --event E-1\n")

    def test_one_that_cannot_be_started_is_an_error(self):
        (self.scratch / "application").unlink()
        self.assertIn("opened failed: ", self.ask("open", "E-1", "A"))

    def test_a_running_one_is_handed_everything(self):
        self.start_application(Deliver=("sayt", "b", "ret = True"), Open=("saya{sv}", "", ""),
                               Fetch=("s", "b", "ret = True"))
        self.assertEqual(self.ask("deliver", "E-1", "A"), "delivered")
        self.assertEqual(self.ask("deliver digest", "b", "B", NOON - 60, "c", "C", NOON - 30), "delivered")
        self.assertIn("2 missed alerts\n11:59 – B\n11:59 – C", self.handed("Deliver"))
        self.assertEqual(self.ask("open", "E-1", "A"), "opened")
        self.assertEqual(self.ask("fetch"), "fetched")
        self.assertEqual({arguments[0] for _, _, arguments in self.mock("GetCalls")}, {str(self.home / "state")})
        self.assertIn("E-1", self.handed("Open"))

    def test_one_that_does_not_want_it_leaves_it_to_the_display(self):
        self.start_application(Deliver=("sayt", "b", "ret = False"), Fetch=("s", "b", "ret = False"))
        self.assertEqual(self.ask("deliver", "E-1", "A"), "not delivered")
        self.assertEqual(self.ask("fetch"), "did not fetch")
        self.assertIn("opened failed: ", self.ask("open", "E-1", "A"))

    def test_one_that_ends_over_it_is_followed_by_another(self):
        self.start_application(Open=("saya{sv}", "", "import os; os._exit(1)"))
        self.assertEqual(self.ask("open", "E-1", "A"), "opened")
        self.assertEqual(self.started.read_text(), f" --home {self.home} --event E-1\n")

    def test_one_that_hangs_is_given_up_in_time(self):
        application = self.start_application(Deliver=("sayt", "b", "ret = True"), Open=("saya{sv}", "", ""))
        os.kill(application.process.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, application.process.pid, signal.SIGCONT)
        self.assertEqual(self.ask("deliver", "E-1", "A"), "not delivered")
        self.assertEqual(self.ask("open", "E-1", "A"), "opened", "it will take it when it can")


class Requests(DisplayTest):
    """What other programs ask of the agent."""

    def setUp(self):
        super().setUp()
        self.start_probe()
        bus = dbus.SessionBus()
        self.name, = [name for name in bus.list_names() if name.startswith("org.dayward.Agent.h")]

    def call(self, method, *arguments):
        return call(self.name, "/org/dayward/Agent", "org.dayward.Agent1", method, *arguments)

    def test_the_state(self):
        alone = self.call("State")
        self.assertNotIn("service", alone)
        service = self.start_service()
        self.expect("appeared")
        state = self.call("State")
        self.assertEqual((state["version"], state["scheduled"], state["pid"]), ("1.2.3", 5, self.probe.process.pid))
        self.assertEqual((state["home"], state["service"], state["actions"]),
                         (str(self.home / "state"), "mock-notify", True))
        self.assertNotIn("quiet", state)
        service.mock("AddProperty", "org.freedesktop.Notifications", "Inhibited", True)
        self.assertTrue(self.call("State")["quiet"])

    def test_a_notification_is_shown_at_once_and_bad_bytes_are_refused(self):
        archive = archived({"alertBody": "bad"})
        with self.assertRaisesRegex(dbus.DBusException, "bad news"):
            self.call("Show", dbus.ByteArray(archive))
        self.expect("asked to show bad")
        self.call("Show", dbus.ByteArray(archive.replace(b"bad", b"good"[:3])))
        self.expect("asked to show goo")
        for bad in (b"", b"no archive", archive[:-20]):
            with self.assertRaises(dbus.DBusException):
                self.call("Show", dbus.ByteArray(bad))
        self.call("Refresh")
        self.expect("asked to refresh")

    def test_each_home_has_one_agent(self):
        second = self.run_beside(PROBE, f"{self.home}/../home", NOON, "en_GB")
        self.assertIn("ready failed: ", second.line())
        other = self.run_beside(PROBE, self.scratch / "other", NOON, "en_GB")
        self.assertEqual(other.line(), "ready")


def main():
    global PROBE
    PROBE, = on_bus()
    unittest.main(argv=[__file__])


if __name__ == "__main__":
    main()
