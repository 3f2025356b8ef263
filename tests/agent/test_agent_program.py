"""The agent's program beside the command line: its clock is driven, its alerts are lines."""
import datetime
import os
import pathlib
import subprocess

import program
from program import ProgramTest, main


class AgentProgram(ProgramTest):
    zone = "Europe/Moscow"

    def setUp(self):
        super().setUp()
        self.scratch = pathlib.Path(self.directory.name)
        self.commands = 0
        self.run_ok("list")
        self.run_ok("remove", *[event["identifier"] for event in self.events()])

    def instant(self, text, hours):
        """Seconds since 1970 of a local time so many hours east of UTC."""
        zone = datetime.timezone(datetime.timedelta(hours=hours))
        return datetime.datetime.fromisoformat(text).replace(tzinfo=zone).timestamp()

    def agent(self, seconds, zone):
        (self.scratch / "zone").symlink_to(f"/usr/share/zoneinfo/{zone}")
        self.drive("jump", seconds)
        environment = {k: v for k, v in os.environ.items() if not k.startswith(("DAYWARD", "XDG", "LC_", "TZ"))}
        self.process = subprocess.Popen(
            [str(pathlib.Path(program.PROGRAM).parent / "dayward-agent"), "--home", str(self.home), "--driven-clock",
             str(self.scratch / "clock")],
            text=True, stdout=subprocess.PIPE, env={**environment, "TZ": str(self.scratch / "zone")})
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.stdout.close)
        self.addCleanup(self.process.kill)
        return self.shown()

    def drive(self, kind, seconds):
        self.commands += 1
        (self.scratch / "new").write_text(f"{self.commands} {kind} {seconds}\n")
        os.replace(self.scratch / "new", self.scratch / "clock")

    def shown(self):
        """The bodies of what was shown until the clock's last line was done."""
        bodies = []
        for line in self.process.stdout:
            words = line.rstrip("\n").split(" ", 4)
            if words[0] == "show":
                bodies.append(words[4])
            if words == ["done", str(self.commands)]:
                return bodies
        self.fail("the agent has ended")

    def goes_by_until(self, seconds):
        self.drive("pass", seconds)
        return self.shown()

    def schedule(self):
        return list((self.home / "state").glob("notifications.schedule*"))

    def test_a_broken_schedule_is_rebuilt_from_the_events(self):
        self.add("Dentist", "--date", "2026-03-11", "--time", "09:00", "--alert", "on event")
        self.add("Race", "--date", "2026-03-12", "--time", "09:00", "--alert", "1 hour before")
        self.assertEqual(self.agent(self.instant("2026-03-10T12:00:00", 3), "Europe/Moscow"), [])
        self.assertEqual(self.goes_by_until(self.instant("2026-03-11T09:00:00", 3)), ["Dentist is happening!"])
        files = self.schedule()
        self.assertEqual(len(files), 2)
        for file in files:
            file.write_bytes(b"no archive")
        self.assertEqual(self.goes_by_until(self.instant("2026-03-12T07:59:59", 3)), [])
        self.assertEqual(self.goes_by_until(self.instant("2026-03-12T08:00:00", 3)),
                         ["Race - is coming in 1 Hour!"])

    def test_an_alert_follows_the_wall_clock_of_the_zone_in_which_the_device_is(self):
        self.zone = "Europe/London"
        self.add("Dentist", "--date", "2026-03-11", "--time", "09:00", "--alert", "on event")
        self.assertEqual(self.agent(self.instant("2026-03-11T08:00:00", 3), "Europe/Moscow"), [])
        self.assertEqual(self.goes_by_until(self.instant("2026-03-11T08:59:59", 3)), [])
        self.assertEqual(self.goes_by_until(self.instant("2026-03-11T09:00:00", 3)), ["Dentist is happening!"])
        self.assertEqual(self.goes_by_until(self.instant("2026-03-11T10:00:00", 0)), [])


if __name__ == "__main__":
    main()
