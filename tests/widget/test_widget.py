"""The widget's programs, each in a process of its own: what they print, and when."""
import json
import os
import pathlib
import subprocess
import tempfile

import program
from program import ProgramTest, main

BROKEN = b"no property list"


class WidgetTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.run_ok("list")
        self.run_ok("remove", *[event["identifier"] for event in self.events()])

    def command(self, *arguments, name="dayward-widget", now=None):
        return [str(pathlib.Path(program.PROGRAM).parent / name), "--home", str(self.home), "--now", now or self.now,
                "--tz", self.zone, "--locale", self.locale, *map(str, arguments)]

    def environment(self, **more):
        kept = {k: v for k, v in os.environ.items() if not k.startswith(("DAYWARD", "XDG", "LC_", "TZ"))}
        return {**kept, **more}

    def widget(self, *arguments, status=0, **options):
        done = subprocess.run(self.command(*arguments, **options), capture_output=True, text=True, timeout=60,
                              env=self.environment())
        self.assertEqual(done.returncode, status, done.stderr)
        self.errors = done.stderr
        return done.stdout

    def group(self):
        return next(self.home.rglob("group.defaults"))


class Lines(WidgetTest):
    def test_each_format_tells_the_same_events(self):
        dentist = self.add("Dentist", "--date", "2026-03-12", "--units", "day")
        self.add("Fair & <Ball>", "--date", "2026-03-10", "--time", "18:30", "--units", "hour")
        self.assertEqual(self.widget("--format", "text"), "Fair & <Ball>: 7 Hours\n")
        self.assertEqual(self.widget("--format", "text", "--count", 2, "--separator", " | "),
                         "Fair & <Ball>: 7 Hours | Dentist: 2 Days\n")
        document = json.loads(self.widget("--format", "json"))
        self.assertEqual(document["type"], "today")
        self.assertEqual([event["name"] for event in document["events"]], ["Fair & <Ball>", "Dentist"])
        second = document["events"][1]
        self.assertEqual((second["identifier"], second["nextDate"], second["countdown"], second["isToday"]),
                         (dentist, "2026-03-12T00:00:00+00:00", "2 Days", False))
        bar = json.loads(self.widget("--format", "waybar"))
        self.assertEqual((bar["text"], bar["class"]), ("Fair &amp; &lt;Ball&gt;: 7 Hours", "today"))
        self.assertEqual(len(bar["tooltip"].splitlines()), 2)
        self.assertEqual(self.run_ok("widget"), self.widget("--format", "text"))
        self.assertEqual(self.run_json("widget", "--count", 1)["events"], document["events"][:1])

    def test_the_choice_is_made_on_the_command_line(self):
        first, second = self.add("First", "--date", "2026-04-01"), self.add("Second", "--date", "2026-05-01")
        self.assertEqual(self.run_json("widget", "type")["type"], "today")
        self.run_ok("widget", "events", "Second", first)
        self.assertEqual(self.run_json("widget", "events")["events"], [second, first])
        self.assertEqual(self.run_ok("widget", "type", "selected", locale="ru_RU"), "Выбранные события\n")
        self.assertTrue(self.widget("--format", "text").startswith("Second: "))
        self.run_ok("remove", "Second")
        self.assertTrue(self.widget("--format", "text").startswith("First: "))
        self.run_ok("widget", "events", "--none")
        self.assertEqual(self.widget("--format", "text"), "\n")
        self.refused(1, "widget", "events", "Nobody")
        self.refused(2, "widget", "type", "tomorrow")
        self.refused(2, "widget", "events", "First", "--none")

    def test_a_broken_copy_is_an_empty_widget_and_one_line(self):
        self.add("Dentist", "--date", "2026-03-12")
        self.group().write_bytes(BROKEN)
        self.assertEqual(self.widget("--format", "text", status=1), "\n")
        self.assertEqual(len(self.errors.splitlines()), 1)
        self.assertIn("group.defaults", self.errors)
        self.assertEqual(self.group().read_bytes(), BROKEN, "the widget writes nothing")

    def test_a_home_that_is_not_there_is_an_empty_widget_and_stays_away(self):
        self.home = pathlib.Path(self.directory.name) / "nowhere"
        self.assertEqual(self.widget("--format", "text"), "\n")
        self.assertFalse(self.home.exists())

    def test_a_line_loads_no_toolkit(self):
        libraries = subprocess.run(["ldd", self.command()[0]], capture_output=True, text=True).stdout
        self.assertNotIn("Qt", libraries)
        self.assertIn("libicu", libraries)

    def test_wrong_usage(self):
        for arguments in (("--format", "xml"), ("--format", "text", "--count", 11), ("--follow",),
                          ("--format", "text", "--now", "soon")):
            self.assertEqual(self.widget(*arguments, status=2), "")


class Following(WidgetTest):
    """The clock is driven by lines on standard input."""

    def follow(self, *arguments, **options):
        self.process = subprocess.Popen(
            self.command("--format", "text", "--follow", "--driven-by-input", *arguments, **options), text=True,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=self.environment())
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.stdout.close)
        self.addCleanup(self.process.stderr.close)
        return self.line()

    def line(self):
        return self.process.stdout.readline().rstrip("\n")

    def tell(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()

    def rest(self):
        self.process.stdin.close()
        lines = self.process.stdout.read().splitlines()
        self.assertEqual(self.process.stderr.read(), "")
        return lines

    def test_midnight_and_a_new_copy(self):
        self.add("Fair", "--date", "2026-03-10", "--time", "08:00")
        self.add("Dentist", "--date", "2026-03-20", "--units", "day")
        line = self.follow()
        self.tell("2026-03-11T00:00:30")
        while line.startswith("Fair: "):
            line = self.line()
        self.assertEqual(line, "Dentist: 9 Days")
        self.add("Race", "--date", "2026-03-12", "--time", "08:00")
        self.tell("changed")
        self.assertTrue(self.line().startswith("Race: "))
        self.assertEqual(self.rest(), [])

    def test_every_change_of_a_unit_and_nothing_else(self):
        self.add("Tea", "--date", "2026-03-10", "--time", "12:03", "--units", "minute,second", "--style", "symbol")
        first = self.follow()
        self.tell("2026-03-10T12:00:05")
        self.assertEqual([first, *self.rest()], ["Tea: 3m 0s", "Tea: 2m 58s", "Tea: 2m 57s", "Tea: 2m 56s",
                                                 "Tea: 2m 55s"])

    def test_a_broken_copy_empties_the_line_until_there_is_a_whole_one(self):
        self.add("Dentist", "--date", "2026-03-13", "--units", "day")
        self.follow()
        whole = self.group().read_bytes()
        self.group().write_bytes(BROKEN)
        self.tell("changed")
        self.assertEqual(self.line(), "")
        self.group().write_bytes(whole)
        self.tell("changed")
        self.assertEqual(self.line(), "Dentist: 3 Days")
        self.process.stdin.close()
        self.assertEqual(len(self.process.stderr.read().splitlines()), 1)

    def test_a_copy_that_another_process_writes_is_seen(self):
        self.add("Dentist", "--date", "2026-03-13", "--units", "day")
        with subprocess.Popen(self.command("--format", "text", "--follow", now="2026-03-10T09:00:00"), text=True,
                              stdout=subprocess.PIPE, env=self.environment()) as self.process:
            self.assertEqual(self.line(), "Dentist: 3 Days")
            self.run_ok("edit", "Dentist", "--date", "2026-03-15")
            self.assertEqual(self.line(), "Dentist: 5 Days")
            self.process.terminate()

    def test_it_ends_when_nobody_reads(self):
        self.add("Dentist", "--date", "2026-03-13", "--units", "day")
        process = subprocess.Popen(self.command("--format", "text", "--follow"), stdout=subprocess.PIPE,
                                   env=self.environment())
        process.stdout.readline()
        process.stdout.close()
        self.assertEqual(process.wait(timeout=60), 0)


class Window(WidgetTest):
    def setUp(self):
        super().setUp()
        if not (pathlib.Path(program.PROGRAM).parent / "dayward-widget-window").exists():
            self.skipTest("the window is not built")

    def picture(self, name, *arguments, now=None):
        path = pathlib.Path(self.directory.name) / name
        done = subprocess.run(
            self.command("--picture", path, *arguments, name="dayward-widget-window", now=now), capture_output=True, text=True,
            timeout=60, env=self.environment(QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=self.directory.name))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return path.read_bytes()

    def test_it_loads_and_draws_in_light_and_dark_and_in_each_size(self):
        self.add("Dentist", "--date", "2026-03-13", "--units", "day")
        light = self.picture("light.png", "--theme", "light", "--count", 1)
        self.assertNotEqual(light, self.picture("dark.png", "--theme", "dark", "--count", 1))
        ten = self.picture("ten.png", "--theme", "light", "--count", 10)
        height = lambda png: int.from_bytes(png[20:24], "big")
        self.assertGreater(height(ten), 5 * height(light))
        self.run_ok("remove", "Dentist")
        self.assertNotEqual(light, self.picture("none.png", "--theme", "light", "--count", 1))

    def test_a_long_countdown_leaves_the_date_whole(self):
        self.add("Graduation", "--date", "2027-08-13", "--time", "10:15", "--units", "year,month,week,day,hour,minute")
        one = self.picture("one.png", "--count", 1, now="2026-03-10T09:00:00")
        self.run_ok("edit", "Graduation", "--time", "10:16")
        other = self.picture("other.png", "--count", 1, now="2026-03-10T09:01:00")
        self.assertTrue(one != other, "the last figure of the date is seen")


if __name__ == "__main__":
    main()
