"""What `dayward notifications` tells: the nearest alerts of all events as of a moment."""
import contextlib
import datetime
import fcntl
import json
import os
import pathlib
import plistlib
import signal
import subprocess

import program
from program import ProgramTest
from waiting import wait_for


class Notifications(ProgramTest):
    now = "2026-03-10T12:00:00"

    def setUp(self):
        super().setUp()
        self.run_ok("remove", *[event["identifier"] for event in self.events()])

    def wanted(self, **options):
        return self.run_json("notifications", **options)["notifications"]

    def told(self, **options):
        return [(one["fireDate"][:16], one["body"]) for one in self.wanted(**options)]

    def test_of_a_hundred_events_the_nearest_64(self):
        first = datetime.date(2026, 3, 11)
        for number in range(100):
            self.add(f"Day {number}", "--date", first + datetime.timedelta(number), "--time", "09:00",
                     "--alert", "1 hour before")
        told = self.told()
        self.assertEqual(told, [(f"{first + datetime.timedelta(number)}T08:00",
                                 f"Day {number} - is coming in 1 Hour!") for number in range(64)])

    def test_an_event_of_every_minute_leaves_room_for_others(self):
        minutely = self.add("Tick", "--date", "2026-03-10", "--repeat", "FREQ=MINUTELY;INTERVAL=1", "--alert", "on event")
        for day in range(11, 31):
            self.add(f"Day {day}", "--date", f"2026-03-{day}", "--alert", "on event")
        wanted = self.wanted()
        self.assertEqual([one["owner"] == minutely for one in wanted], [True] * 30 + [False] * 20)
        self.assertEqual(wanted[29]["fireDate"], "2026-03-10T12:30:00+00:00")

    def test_alerts_after_the_event(self):
        self.add("Tea", "--date", "2026-03-10", "--time", "11:00", "--alert", "2 hours after", "--alert", "30 minutes after")
        self.assertEqual(self.told(), [("2026-03-10T13:00", "Tea since last 2 Hours!")])

    def test_an_alert_of_months_across_month_ends(self):
        self.add("Rent 28", "--date", "2026-04-28", "--alert", "1 month before")
        self.add("Rent 30", "--date", "2026-03-30", "--alert", "1 month before")
        self.add("Rent 31", "--date", "2026-03-31", "--alert", "1 month before")
        self.assertEqual(sorted(self.told(now="2026-02-01T00:00:00")),
                         [("2026-02-28T00:00", "Rent 30 - is coming in 1 Month!"),
                          ("2026-02-28T00:00", "Rent 31 - is coming in 1 Month!"),
                          ("2026-03-28T00:00", "Rent 28 - is coming in 1 Month!")])
        self.add("Each day", "--date", "2027-03-28", "--repeat", "FREQ=DAILY;INTERVAL=1;UNTIL=20270401T000000Z",
                 "--alert", "1 month before")
        self.assertEqual([moment for moment, body in self.told(now="2027-02-01T00:00:00") if "Each" in body],
                         ["2027-02-28T00:00", "2027-03-01T00:00"])

    def test_three_times_a_day_and_two_alerts(self):
        identifier = self.add("Pill", "--date", "2026-03-01", "--time", "08:00", "--time", "14:00", "--time", "20:00",
                              "--repeat", "daily", "--alert", "on event", "--alert", "10 minutes before")
        wanted = self.wanted()
        self.assertEqual(len(wanted), 30)
        self.assertEqual({one["owner"] for one in wanted}, {identifier})
        self.assertEqual(self.told()[:5], [("2026-03-10T13:50", "Pill - is coming in 10 Minutes!"),
                                           ("2026-03-10T14:00", "Pill is happening!"),
                                           ("2026-03-10T19:50", "Pill - is coming in 10 Minutes!"),
                                           ("2026-03-10T20:00", "Pill is happening!"),
                                           ("2026-03-11T07:50", "Pill - is coming in 10 Minutes!")])

    def test_alerts_follow_the_list_into_each_zone(self):
        """The day is the one in which the event's date lies where the device is: that of its midnight does not lie in
        it west of there."""
        self.zone = "Europe/London"
        fair = self.add("Fair", "--date", "2026-03-18", "--time", "09:00", "--alert", "on event")
        walk = self.add("Walk", "--date", "2026-03-25", "--time", "09:00", "--repeat", "weekly", "--alert", "on event")
        days = {"Pacific/Kiritimati": 18, "Asia/Kathmandu": 18, "Europe/Moscow": 18, "Europe/London": 18,
                "Atlantic/Azores": 17, "America/New_York": 17, "Pacific/Pago_Pago": 17}
        for zone, day in days.items():
            self.run_ok("notifications", "refresh", zone=zone)
            scheduled = self.run_json("notifications", "--scheduled", zone=zone)["notifications"]
            for event, date in ((fair, day), (walk, day + 7)):
                first = next(one["fireDate"] for one in scheduled if one["owner"] == event)
                self.assertEqual(first, self.run_json("show", event, zone=zone)["nextDate"], zone)
                self.assertEqual(first[:16], f"2026-03-{date}T09:00", zone)

    def test_the_whole_of_a_notification(self):
        identifier = self.add("Tea", "--date", "2026-07-01", "--time", "09:30", "--alert", "1 day before")
        self.assertEqual(self.wanted(zone="Europe/Berlin"), [{
            "fireDate": "2026-06-30T09:30:00+02:00", "fireDateSeconds": 804497400.0,
            "body": "Tea - is coming in 1 Day!", "owner": identifier, "sound": None, "badgeNumber": None,
            "ownerName": "Tea"}])
        self.assertEqual(self.run_ok("notifications"), "Jun 30, 2026, 9:30 AM  Tea - is coming in 1 Day!\n")
        self.assertEqual(self.run_ok("notifications", locale="ru_RU"),
                         "30 июн. 2026 г., 09:30  До события «Tea»: 1 День!\n")

    def test_without_alerts_nothing_is_told(self):
        self.add("Quiet", "--date", "2026-07-01", "--alert", "none")
        self.assertEqual(self.wanted(), [])
        self.assertEqual(self.run_ok("notifications"), "No notifications\n")

    def put_off(self, schedule):
        """Half an hour earlier the first one comes as an alert that the user put off."""
        archive = plistlib.loads(schedule.read_bytes())
        objects = archive["$objects"]

        def copy_of(reference):
            objects.append(dict(objects[reference.data]))
            return plistlib.UID(len(objects) - 1)

        def values(record):
            return {objects[key.data]: value for key, value in zip(record["NS.keys"], record["NS.objects"])}

        root = values(objects[archive["$top"]["root"].data])
        snoozed = copy_of(objects[root["scheduled"].data]["NS.objects"][0])
        record = objects[snoozed.data]
        date = copy_of(values(record)["fireDate"])
        objects[date.data]["NS.time"] -= 1800
        record["NS.objects"] = [date if value == values(record)["fireDate"] else value for value in record["NS.objects"]]
        objects[root["snoozed"].data]["NS.objects"] = [snoozed]
        schedule.write_bytes(plistlib.dumps(archive, fmt=plistlib.FMT_BINARY))

    def scheduled(self):
        return [(one["fireDate"][:16], one["body"], one["snoozed"])
                for one in self.run_json("notifications", "--scheduled")["notifications"]]

    def test_the_schedule_is_told_with_what_was_snoozed(self):
        identifier = self.add("Tea", "--date", "2026-07-01", "--time", "09:30", "--alert", "on event")
        self.assertEqual(self.scheduled(), [("2026-07-01T09:30", "Tea is happening!", False)])
        schedule = self.home / "state" / "notifications.schedule"
        self.put_off(schedule)
        self.assertEqual(self.scheduled(), [("2026-07-01T09:00", "Tea is happening!", True),
                                            ("2026-07-01T09:30", "Tea is happening!", False)])
        self.assertEqual(self.run_ok("notifications", "--scheduled").splitlines()[0],
                         "Jul 1, 2026, 9:00 AM  Tea is happening! (snoozed)")
        doctor = self.run_json("doctor")["alerts"]
        self.assertEqual((doctor["scheduled"], [one["owner"] for one in doctor["next"]]), (2, [identifier] * 2))
        self.run_ok("remove", identifier)
        self.assertEqual(self.scheduled(), [], "what was put off goes with its event")

    def test_after_a_journey_the_schedule_is_told_as_it_will_fire(self):
        self.add("Tea", "--date", "2026-07-01", "--time", "09:30", "--alert", "on event")
        tokyo = {"zone": "Asia/Tokyo"}
        told = [*self.run_json("notifications", "--scheduled", **tokyo)["notifications"],
                *self.run_json("doctor", **tokyo)["alerts"]["next"]]
        self.assertEqual([one["fireDate"] for one in told], ["2026-07-01T09:30:00+09:00"] * 2)
        self.assertEqual(self.run_ok("notifications", "--scheduled", **tokyo), "Jul 1, 2026, 9:30 AM  Tea is happening!\n")

    @contextlib.contextmanager
    def held_back(self, *arguments):
        """A command that has read the events and is stopped before it reads the defaults, while others run."""
        with open(self.home / "config" / "standard.defaults.lock", "a") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            held = subprocess.Popen(self.program_command(*arguments), env=self.program_environment())
            self.addCleanup(held.kill)
            wait_for("the command", lambda: any("->" in line and f" {held.pid} " in line for line in
                                                pathlib.Path("/proc/locks").read_text().splitlines()))
            held.send_signal(signal.SIGSTOP)
            os.waitpid(held.pid, os.WUNTRACED)
        yield
        held.send_signal(signal.SIGCONT)
        self.assertEqual(held.wait(120), 0)

    def test_events_that_others_add_or_remove_during_a_refresh_keep_or_lose_their_alerts(self):
        tea = self.add("Tea", "--date", "2026-07-01", "--time", "09:30", "--alert", "on event")
        with self.held_back("notifications", "refresh"):
            self.add("Fair", "--date", "2026-07-02", "--alert", "on event")
            self.run_ok("remove", tea)
        self.assertEqual(self.scheduled(), [("2026-07-02T00:00", "Fair is happening!", False)])

    def missed(self, now):
        return [one["name"] for one in self.run_json("missed", now=now)["missed"]]

    def test_what_was_changed_last_is_missed_and_not_what_stood_there_before(self):
        tea = self.add("Tea", "--date", "2026-03-10", "--time", "13:00", "--alert", "on event")
        self.run_ok("notifications", "refresh")
        self.run_ok("edit", tea, "--time", "16:00")
        self.add("Fair", "--date", "2026-03-10", "--time", "13:30", "--alert", "on event")
        self.assertEqual(self.missed("2026-03-10T14:00:00"), [])
        for file in (self.home / "state").glob("notifications.schedule*"):
            file.unlink()
        self.assertEqual(self.missed("2026-03-10T14:00:00"), ["Fair"])
        self.run_ok("add", "Ball", "--date", "2026-03-10", "--time", "15:00", now="2026-03-10T14:00:00")
        self.assertEqual(self.missed("2026-03-10T14:00:00"), ["Fair"])

    def test_a_badge_of_days_follows_every_change(self):
        self.run_ok("badge", "next")
        near = self.add("Near", "--date", "2026-03-13")
        for change in (["edit", near, "--date", "2026-03-12"], ["remove", near]):
            self.run_ok(*change)
            numbers = [(one["fireDate"], one["badgeNumber"])
                       for one in self.run_json("notifications", "--scheduled")["notifications"]]
            self.assertEqual(numbers, [(one["date"], one["number"]) for one in self.run_json("badge")["changes"]])

    def test_without_a_desktop_alerts_will_not_come(self):
        self.add("Tea", "--date", "2026-07-01", "--time", "09:30", "--alert", "on event")
        told = self.run_json("doctor")["alerts"]
        self.assertEqual((told["alertsWillCome"], told["helperAnswers"], told["service"], len(told["problems"])), (False, False, None, 2))
        self.assertEqual(self.run_ok("doctor").splitlines(), [
            "No problems found", "Alerts will not come.", "Your desktop has no service that shows notifications.",
            "The helper that gives alerts while Dayward is closed does not answer.", "Helper answers: No",
            "Shown by: None", "Scheduled: 1",
            "Jul 1, 2026, 9:30 AM  Tea is happening!"])
        self.refused(1, "notifications", "test")

    def test_a_schedule_that_cannot_be_read_is_told_and_its_copy_stands_in(self):
        self.add("Tea", "--date", "2026-07-01", "--time", "09:30", "--alert", "on event")
        file = self.home / "state" / "notifications.schedule"
        file.unlink()
        file.mkdir()
        done = self.start("--json", "doctor")
        self.assertEqual(done.returncode, 1)
        told = json.loads(done.stdout)
        self.assertEqual([problem["path"] for problem in told["problems"]], [str(file)])
        self.assertIn("Is a directory", told["problems"][0]["reason"])
        self.assertEqual((told["alerts"]["scheduled"], len(told["alerts"]["next"])), (1, 1))

    def test_a_change_whose_alerts_could_not_be_scheduled_is_made_and_says_so(self):
        lock = self.home / "state" / "notifications.lock"
        for badge in ("missed", "next"):
            self.run_ok("badge", badge)
            lock.unlink(missing_ok=True)
            lock.mkdir()
            done = self.start("add", "Fair", "--date", "2026-07-03", "--alert", "on event")
            self.assertEqual((done.returncode, len(done.stderr.splitlines())), (0, 1), done.stderr)
            self.assertIn("notifications.lock", done.stderr)
            self.assertTrue(done.stdout.startswith("Added Fair"))
            lock.rmdir()

    def test_refreshing_says_nothing_but_that_it_could_not(self):
        self.add("Tea", "--date", "2026-07-01", "--time", "09:30", "--alert", "on event")
        self.assertEqual(self.run_ok("notifications", "refresh"), "")
        lock = self.home / "state" / "notifications.lock"
        for name in ("notifications.schedule", "notifications.schedule.copy", "notifications.lock"):
            (self.home / "state" / name).unlink()
        lock.mkdir()
        self.assertIn("notifications.lock", self.refused(1, "notifications", "refresh"))
        lock.rmdir()
        self.run_ok("notifications", "refresh")
        self.assertEqual(self.scheduled(), [("2026-07-01T09:30", "Tea is happening!", False)])
        self.refused(2, "notifications", "unknown")


if __name__ == "__main__":
    program.main()
