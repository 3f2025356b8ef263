"""The commands as a script sees them: what they print, what they refuse, what lasts."""
import json
import os
import pathlib
import plistlib
import program
import struct
import subprocess
import unittest
import zlib
from program import ProgramTest

DEFAULT_EVENTS = {"My Birthday", "Christmas", "Valentine's Day", "Mother's Day", "Friday 13th", "Payday",
                  "Last day of school"}


def one_pixel_png():
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 1, 1, 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(b"\0\xff\0\0\x80")) + chunk(b"IEND", b""))


class FirstStart(ProgramTest):
    def test_a_new_home_lists_the_default_events_once(self):
        first = self.events()
        self.assertEqual({event["name"] for event in first}, DEFAULT_EVENTS)
        self.assertEqual([e["identifier"] for e in first], [e["identifier"] for e in self.events()])
        birthday = next(e for e in first if e["name"] == "My Birthday")
        self.assertEqual(birthday["nextDate"], "2026-03-25T00:00:00+00:00")
        self.assertEqual(birthday["rrule"], "FREQ=YEARLY;INTERVAL=1")

    def test_removed_default_events_do_not_come_back(self):
        self.run_ok("remove", *[event["identifier"] for event in self.events()])
        self.assertEqual(self.events(), [])

    def test_rule_questions_make_no_home(self):
        self.run_ok("rule", "describe", "FREQ=DAILY")
        self.assertFalse((self.home / "data" / "Documents").exists() and any((self.home / "data" / "Documents").iterdir()))

    def test_names_are_localised(self):
        sections = self.run_json("list", locale="ru_RU")["sections"]
        names = {event["name"] for section in sections for event in section["events"]}
        self.assertIn("Рождество", names)
        self.assertEqual(len(names), 7)


class MissedAndBadge(ProgramTest):
    def test_nothing_is_missed_at_first(self):
        self.assertEqual(self.run_json("missed"), {"missed": []})
        self.assertEqual(self.run_ok("missed", "--clear"), "No missed events\n")
        self.assertEqual(self.run_ok("missed", locale="ru_RU"), "Пропущенных событий нет\n")

    def test_the_badge_counts_the_days_before_and_after_an_event(self):
        self.assertEqual(self.run_json("badge")["type"], 1)
        identifier = self.add("Trip", "--date", "2026-03-12", "--time", "18:00")
        before = self.run_json("badge", "before", "Trip")
        self.assertEqual((before["type"], before["eventKey"], before["number"]), (3, identifier, 3))
        self.assertEqual([(c["date"], c["number"]) for c in before["changes"]],
                         [("2026-03-10T18:00:00+00:00", 2), ("2026-03-11T18:00:00+00:00", 1),
                          ("2026-03-12T18:00:00+00:00", 0)])
        self.assertEqual(self.run_ok("badge"), "Days before the event\nEvent: Trip\nNumber: 3\n")
        self.assertEqual(self.run_json("badge", now="2026-03-12T18:00:00")["number"], 0)
        self.assertEqual(self.run_json("badge", "4")["number"], 0, "the event stays chosen")
        self.assertEqual(self.run_json("badge", now="2026-03-14T18:00:00")["number"], 2)
        self.run_ok("remove", "Trip")
        gone = self.run_json("badge")
        self.assertEqual((gone["number"], gone["changes"]), (None, []))

    def test_the_nearest_event_counts(self):
        self.assertEqual(self.run_json("badge", "next")["number"], 3, "a Friday 13th")
        self.assertEqual(self.run_json("badge", "none")["number"], 0)

    def test_a_choice_that_cannot_be_is_refused(self):
        self.assertIn("none, missed, next, before and after", self.refused(1, "badge", "sideways"))
        self.refused(1, "badge", "5")
        self.assertIn("needs an event", self.refused(1, "badge", "after"))
        self.assertIn("no event", self.refused(1, "badge", "after", "Nobody"))
        self.assertIn("takes no event", self.refused(1, "badge", "next", "Christmas"))
        self.assertEqual(self.run_json("badge")["type"], 1)


class Events(ProgramTest):
    def test_an_added_event_has_what_was_asked_for(self):
        identifier = self.add("Mother's birthday", "--date", "1960-05-04", "--repeat", "yearly", "--show-age",
                              "--alert", "1 day before", "--alert", "on event", "--alert", "2 hours after",
                              "--time", "18:00", "--time", "09:00", "--duration", "2 hours", "--units", "day,hour",
                              "--style", "short", "--text-color", "#AA0000", "--background", "#FFA8A8",
                              "--note", "call\nfirst")
        event = self.run_json("show", identifier)
        self.assertEqual(event["title"], "Mother's birthday (66)")
        self.assertEqual(event["nextDate"], "2026-05-04T09:00:00+00:00")
        self.assertEqual(event["times"], [540, 1080])
        self.assertEqual(event["duration"], {"hour": 2})
        self.assertEqual(event["alerts"]["list"], [{"day": 1}, {}, {"hour": -2}])
        self.assertEqual(event["intervalFormat"], {"units": 48, "textStyle": 2})
        self.assertEqual(event["appearance"]["textColor"], "#AA0000FF")
        self.assertEqual(event["background"], {"kind": "color", "color": "#FFA8A8FF"})
        self.assertEqual(event["note"], "call\nfirst")
        self.assertEqual(event["countdown"], "54 Days 21 Hrs")
        self.assertEqual([unit for unit, _ in event["units"]],
                         ["Years", "Months", "Weeks", "Days", "Hours", "Minutes", "Seconds"])
        self.assertEqual(dict(event["units"])["Weeks"], "7.84")
        self.assertTrue(event["shareText"].startswith("Mother's birthday - is coming in "), event["shareText"])

    def test_the_text_form_tells_the_event_in_the_users_language(self):
        self.add("Trip", "--date", "2026-05-04", "--time", "09:05", "--repeat", "weekly", "--duration", "2 hours",
                 "--alert", "1 day before", "--alert", "on event", "--alert", "2 hours after")
        lines = {line[:16].strip(): line[16:] for line in self.run_ok("show", "Trip").splitlines()}
        self.assertEqual([lines[label] for label in ("Time", "Repeat", "Duration", "Alerts", "Category")],
                         ["09:05", "Weekly", "2 Hours", "1 Day Before, On Event, 2 Hours After", "Default"])
        self.assertIn("Напоминания     1 День до события", self.run_ok("show", "Trip", locale="ru_RU"))

    def test_a_name_stands_for_the_only_event_of_that_name(self):
        identifier = self.add("Only", "--date", "2026-04-01")
        self.assertEqual(self.run_json("show", "Only")["identifier"], identifier)
        self.add("Only", "--date", "2026-04-02")
        self.assertIn("2", self.refused(1, "show", "Only"))
        self.assertIn("nobody", self.refused(1, "show", "nobody"))

    def test_edit_changes_only_what_is_given_and_none_takes_away(self):
        identifier = self.add("Trip", "--date", "2026-06-01", "--repeat", "FREQ=MONTHLY;BYDAY=-1MO", "--note", "pack",
                              "--alert", "1 day before", "--duration", "3 days")
        before = self.run_json("show", identifier)
        self.assertEqual(self.run_json("edit", identifier, "--name", "Journey"), {"updated": [identifier]})
        renamed = self.run_json("show", identifier)
        for field in ("date", "rrule", "note", "alerts", "duration", "times", "categoryKey"):
            self.assertEqual(renamed[field], before[field], field)
        self.assertEqual(renamed["name"], "Journey")
        self.run_ok("edit", identifier, "--repeat", "never", "--note", "none", "--alert", "none", "--duration", "none")
        cleared = self.run_json("show", identifier)
        self.assertEqual((cleared["rrule"], cleared["note"], cleared["alerts"]["list"], cleared["duration"]),
                         (None, None, [], None))

    def test_removing_is_all_or_nothing(self):
        identifier = self.add("Gone", "--date", "2026-04-01")
        self.refused(1, "remove", identifier, "no such event")
        self.assertEqual(self.run_json("show", identifier)["name"], "Gone")
        self.assertEqual(self.run_json("remove", identifier), {"removed": [identifier]})
        self.refused(1, "show", identifier)

    def test_wrong_arguments_change_nothing(self):
        count = len(self.events())
        wrong = [("--date", "2026-13-01"), ("--date", "soon"), ("--time", "24:00"), ("--time", "9"),
                 ("--repeat", "sometimes"), ("--duration", "2 parsecs"), ("--duration", "hours"),
                 ("--alert", "1 day"), ("--alert", "before"), ("--units", "day,fortnight"), ("--style", "loud"),
                 ("--category", "Nowhere"), ("--icon", "no such icon.png"), ("--background", "#12345"),
                 ("--text-color", "red"), ("--icon", "/dev/null"), ("--icon", ""), ("--background", ""),
                 ("--duration", "-2 hours"), ("--alert", "-1 day before")]
        for option, value in wrong:
            with self.subTest(option=option, value=value):
                message = self.refused(1, "add", "X", option, value)
                self.assertIn(value.split(",")[-1], message)
        self.assertEqual(len(self.events()), count)

    def test_pictures_from_files_go_into_the_package(self):
        picture = pathlib.Path(self.directory.name) / "dot.png"
        picture.write_bytes(one_pixel_png())
        identifier = self.add("Pictured", "--date", "2026-04-01", "--icon", picture)
        package = next(self.home.rglob(identifier + ".evn"))
        self.assertEqual(sorted(os.listdir(package)), ["general.t", "icon.i"])
        self.assertEqual(self.run_json("show", identifier)["icon"]["kind"], "document")


class Listing(ProgramTest):
    def setUp(self):
        super().setUp()
        self.run_ok("remove", *[event["identifier"] for event in self.events()])

    def test_sections_by_date(self):
        for name, date, options in [("past", "2026-03-01", ()), ("later today", "2026-03-10", ("--time", "18:00")),
                                    ("this month", "2026-03-20", ()), ("next month", "2026-04-02", ()),
                                    ("last month ahead", "2027-02-03", ()), ("a year ahead", "2027-03-01", ()),
                                    ("now", "2026-03-10", ("--time", "11:00", "--duration", "2 hours"))]:
            self.add(name, "--date", date, *options)
        sections = self.run_json("list")["sections"]
        self.assertEqual([(s["title"], s["type"], s["year"], s["month"], [e["name"] for e in s["events"]]) for s in sections],
                         [("Today Tuesday, March 10", 2, None, None, ["now", "later today"]),
                          ("March 2026", 3, 2026, 3, ["this month"]),
                          ("April 2026", 3, 2026, 4, ["next month"]),
                          ("February 2027", 3, 2027, 2, ["last month ahead"]),
                          ("2027", 3, 2027, None, ["a year ahead"]),
                          ("Passed", 4, None, None, ["past"])])

    def test_name_order_search_and_custom_order(self):
        for name, note in [("banana", "none of it"), ("Äpfel", "yellow"), ("Cherry", "YELLOW not"), ("apple", "")]:
            self.add(name, "--date", "2026-05-01", "--note", note)
        self.assertEqual([e["name"] for e in self.events("--sort", "name")], ["Äpfel", "Cherry", "apple", "banana"])
        self.assertEqual([e["name"] for e in self.events("--search", "yell", "--sort", "name")], ["Äpfel", "Cherry"])
        self.assertEqual([e["name"] for e in self.events("--search", "äPF")], ["Äpfel"])
        ids = {e["name"]: e["identifier"] for e in self.events()}
        order = ["banana", "apple", "Äpfel"]
        self.run_ok("settings", "table-sort-ids", json.dumps([ids[n] for n in order]))
        self.assertEqual([e["name"] for e in self.events("--sort", "custom")], ["Cherry", *order])

    def test_the_text_form_is_aligned_and_free_of_control_codes(self):
        self.add("tab\tand \x1b[31m escape", "--date", "2026-05-01")
        text = self.run_ok("list")
        self.assertNotIn("\x1b", text)
        self.assertIn("52 Days", text)

    def test_watch_shows_the_list_and_ends_with_q(self):
        self.add("Watched", "--date", "2026-03-11", "--units", "hour")
        text = self.run_ok("watch", input="q")
        self.assertIn("Watched", text)
        self.assertIn("12 Hours", text)


class Rules(ProgramTest):
    def test_next_between_and_last(self):
        ask = ("rule", "next", "FREQ=MONTHLY;BYDAY=-1FR", "--start", "2026-01-30T09:00:00", "--after",
               "2026-02-27T09:00:00", "--count", "2")
        self.assertEqual(self.run_json(*ask)["dates"], ["2026-03-27T09:00:00+00:00", "2026-04-24T09:00:00+00:00"])
        between = self.run_json("rule", "between", "FREQ=DAILY", "--start", "2026-03-01", "--time", "09:00", "--time",
                                "18:00", "--from", "2026-03-05", "--to", "2026-03-06")
        self.assertEqual(between["dates"], ["2026-03-05T09:00:00+00:00", "2026-03-05T18:00:00+00:00"])
        last = self.run_json("rule", "last", "FREQ=DAILY;UNTIL=20260401T080000Z", "--start", "2026-03-01T09:00:00")
        self.assertEqual(last["dates"], ["2026-03-31T09:00:00+00:00"])
        self.assertEqual(self.run_json("rule", "last", "FREQ=DAILY;COUNT=3", "--start", "2026-03-01")["dates"], [])

    def test_a_rule_lives_on_the_wall_clock(self):
        dates = self.run_json("rule", "next", "FREQ=DAILY", "--start", "2026-03-27T02:30:00", "--after",
                              "2026-03-27T03:00:00", "--count", "3", zone="Europe/Berlin")["dates"]
        self.assertEqual(dates, ["2026-03-28T02:30:00+01:00", "2026-03-29T03:30:00+02:00", "2026-03-30T02:30:00+02:00"])

    def test_batch_answers_a_line_for_a_line(self):
        requests = ["next\tFREQ=DAILY\t2026-01-01T09:00:00\t2026-03-01T09:00:00", "last\tFREQ=DAILY\t2026-01-01T09:00:00",
                    "describe\tFREQ=WEEKLY;INTERVAL=2;BYDAY=MO,TU,WE,TH,FR", "normalize\tfreq=monthly;byday=1su",
                    "next\tFREQ=DAILY\tnonsense\t2026-03-01", "", "between\tFREQ=DAILY\t2026-01-01\t2026-02-01\t2026-02-03\t9"]
        answers = self.run_ok("rule", "batch", input="\n".join(requests) + "\n").splitlines()
        self.assertEqual(answers[:4], ["2026-03-02T09:00:00+00:00", "-", "Every 2 Weeks weekday",
                                       "FREQ=MONTHLY;INTERVAL=1;BYDAY=1SU"])
        self.assertTrue(answers[4].startswith("error: ") and answers[5].startswith("error: "))
        self.assertEqual(answers[6], "2026-02-02T00:00:00+00:00 2026-02-03T00:00:00+00:00")

    def test_describe_gives_null_where_there_is_none(self):
        self.assertEqual(self.run_json("rule", "describe", "FREQ=DAILY;INTERVAL=0"), {"text": None})
        self.assertEqual(self.run_json("rule", "describe", "FREQ=DAILY", locale="ru_RU")["text"], "Каждый день")

    def test_intervals(self):
        ask = ("interval", "--from", "2026-03-10T12:00:00", "--to", "2026-03-12T15:20:00")
        self.assertEqual(self.run_json(*ask, "--units", "day,hour"), {"fields": {"day": 2, "hour": 3}, "text": "2 Days 3 Hours"})
        self.assertEqual(self.run_json(*ask, "--units", "day", "--as", "plain")["text"], "2 Days")
        self.assertEqual(self.run_json(*ask, "--as", "detail")["fields"]["second"], 184800)
        self.assertEqual(self.run_json("interval", "--from", "2026-03-10", "--to", "2026-03-10T03:20:00")["text"],
                         "3 Hours")


class Documents(ProgramTest):
    def test_a_package_round_trips_and_another_reader_opens_it(self):
        identifier = self.add("Round trip", "--date", "2026-05-01", "--repeat", "weekly", "--note", "ж", "--alert", "1 day before")
        package = next(self.home.rglob(identifier + ".evn"))
        event = self.run_json("document", "read", package)
        copy = pathlib.Path(self.directory.name) / (identifier + "-copy.evn")
        self.run_ok("document", "write", copy, input=json.dumps(event))
        again = self.run_json("document", "read", copy)
        self.assertEqual({**again, "identifier": identifier}, event)
        with open(package / "general.t", "rb") as file:
            archive = plistlib.load(file)
        self.assertEqual((archive["$archiver"], archive["$version"], archive["$objects"][0]),
                         ("NSKeyedArchiver", 100000, "$null"))
        root = archive["$objects"][archive["$top"]["root"].data]
        self.assertEqual(archive["$objects"][root["Name"].data], "Round trip")
        dump = self.run_json("document", "archive", package / "general.t")
        self.assertEqual(dump["$class"], "HHGeneralEventDocumentData")
        self.assertEqual([key for key in dump if key != "$class"], [key for key in root if key != "$class"])

    def test_unreadable_things_say_why(self):
        self.refused(1, "document", "read", "/nowhere/x.evn")
        self.refused(1, "document", "archive", "/dev/null")
        self.refused(1, "document", "write", self.home / "x.evn", input="{ not json")
        self.refused(1, "document", "write", self.home / "x.evn", input='{"times": "noon"}')

    def test_doctor_names_the_broken_package(self):
        identifier = self.add("Sound", "--date", "2026-05-01")
        self.assertEqual(self.run_json("doctor")["problems"], [])
        package = next(self.home.rglob(identifier + ".evn"))
        (package / "general.t").write_bytes(b"not an archive")
        done = self.start("--json", "doctor")
        problems = json.loads(done.stdout)["problems"]
        self.assertEqual((done.returncode, len(problems)), (1, 1))
        self.assertIn(identifier, problems[0]["path"])
        self.assertTrue(problems[0]["reason"])
        listed = self.start("list")
        self.assertEqual(listed.returncode, 0)
        self.assertNotIn("Sound", listed.stdout)
        self.assertIn(identifier, listed.stderr)
        self.assertTrue(package.exists())

    def test_a_fatal_value_is_named_and_left_out_at_the_next_start(self):
        identifier = self.add("Corrupt", "--date", "2026-05-01")
        package = next(self.home.rglob(identifier + ".evn"))
        archive = plistlib.loads((package / "general.t").read_bytes())
        style = next(o for o in archive["$objects"] if isinstance(o, dict) and "UnitsFormatType" in o)
        style["UnitsFormatType"] = 9
        (package / "general.t").write_bytes(plistlib.dumps(archive, fmt=plistlib.FMT_BINARY))
        stopped = self.start("list")
        self.assertNotEqual(stopped.returncode, 0)
        self.assertIn(identifier, stopped.stderr)
        again = self.start("--json", "list")
        self.assertEqual(again.returncode, 0, again.stderr)
        self.assertIn(identifier, again.stderr)
        self.assertEqual(len([e for s in json.loads(again.stdout)["sections"] for e in s["events"]]), 7)


class CategoriesAndSettings(ProgramTest):
    def test_categories(self):
        keys = [(c["key"], c["name"]) for c in self.run_json("categories")["categories"]]
        self.assertEqual(keys[0], ("default", "Default"))
        self.assertIn("Holiday", [name for _, name in keys])
        key = self.run_json("categories", "add", "Work", "--font", "Georgia", "--text-color", "#112233")["key"]
        work = next(c for c in self.run_json("categories")["categories"] if c["key"] == key)
        self.assertEqual((work["name"], work["font"], work["textColor"]), ("Work", "Georgia", "#112233FF"))
        identifier = self.add("Meeting", "--date", "2026-04-01", "--category", "Work")
        self.assertEqual(self.run_json("show", identifier)["categoryKey"], key)
        self.run_ok("categories", "edit", "Work", "--name", "Job")
        self.assertIn("Job", [c["name"] for c in self.run_json("categories")["categories"]])
        self.run_ok("categories", "remove", "Job")
        self.assertNotIn(key, [c["key"] for c in self.run_json("categories")["categories"]])
        self.refused(1, "categories", "remove", "default")

    def test_settings(self):
        settings = self.run_json("settings")
        self.assertEqual((settings["table-sort-type"], settings["table-cell-icon-show"], settings["event-def-time"]),
                         (0, True, 0))
        self.run_ok("settings", "event-def-time", "09:30")
        self.run_ok("settings", "event-def-alerts", "1 day before, on event")
        self.run_ok("settings", "table-sort-type", "name")
        self.assertIn("bell\uFFFD", self.run_ok("settings", "event-def-sound-name", "bell\udcff"))
        self.assertEqual(self.run_json("settings", "event-def-time"), {"event-def-time": 570})
        event = self.run_json("show", self.add("New", "--date", "2026-04-01"))
        self.assertEqual((event["times"], event["alerts"]["list"]), ([570], [{"day": 1}, {}]))
        self.refused(1, "settings", "no-such-key")
        self.refused(1, "settings", "event-def-time", "25:00")

    def test_a_setting_that_cannot_be_written_says_so(self):
        self.run_ok("settings", "event-def-time", "09:30")
        for name, setting in [("HHSettings", ("event-def-time", "10:00")), ("standard.defaults", ("TouchIDOn", "on"))]:
            for file in self.home.rglob(name):
                if file.is_file() and "locks" not in file.parts:
                    file.unlink()
            directory = "data/Application Support" if name == "HHSettings" else "config"
            (self.home / directory / name / "in the way").mkdir(parents=True)
            self.assertIn(name, self.refused(1, "settings", *setting))
            (self.home / directory / name / "in the way").rmdir()
            (self.home / directory / name).rmdir()


class Usage(ProgramTest):
    def test_wrong_usage_is_status_2(self):
        for arguments in [("nonsense",), ("add",), ("list", "--sort", "size"), ("rule",), ("rule", "next", "FREQ=DAILY"),
                          ("interval", "--from", "2026-01-01"), ("show",), ("--bad",)]:
            with self.subTest(arguments=arguments):
                self.refused(2, *arguments)
        self.refused(2, "list", zone="Mars/Olympus")
        self.refused(2, "list", now="yesterday-ish")

    def test_a_home_that_cannot_be_written_says_so(self):
        file = pathlib.Path(self.directory.name) / "file"
        file.write_text("in the way")
        self.assertIn(str(file), self.refused(1, "add", "X", "--date", "2026-01-01", home=file))

    def test_texts_of_the_user_neither_break_a_line_nor_drive_the_terminal(self):
        hostile = "ev\x1b[31mil\x07\nline\u202eand more"
        for line in [self.run_ok("add", hostile, "--date", "2026-04-01"), self.run_ok("categories", "add", hostile),
                     self.refused(1, "show", hostile + "?"), self.refused(2, "show", "x", hostile)]:
            self.assertIn("ev[31millineand more", line)
        self.assertEqual(self.run_json("show", hostile)["name"], hostile)

    def test_paths_that_are_none_say_so(self):
        event = json.dumps({"name": "x", "icon": {"kind": "image", "file": ""}})
        for arguments in [("document", "read", ""), ("document", "archive", ""), ("document", "write", "")]:
            self.refused(1, *arguments, input=event)
        self.refused(1, "document", "write", self.home / "x.evn", input=event)
        gone = pathlib.Path(self.directory.name) / "gone"
        script = f'mkdir "{gone}"; cd "{gone}"; rmdir "{gone}"; exec "{program.PROGRAM}" --home here list'
        done = subprocess.run(["bash", "-c", script], capture_output=True, text=True, timeout=60)
        self.assertEqual((done.returncode, done.stdout), (2, ""))

    def test_closed_standard_output_is_a_failure_and_no_file_gets_the_text(self):
        self.add("kept", "--date", "2026-04-01")
        done = subprocess.run(["bash", "-c", f'"{program.PROGRAM}" --home "{self.home}" --json list >&-'],
                              capture_output=True, text=True, timeout=60)
        self.assertEqual((done.returncode, done.stderr), (1, "dayward: standard output cannot be written\n"))
        self.assertEqual(self.run_json("doctor")["problems"], [])

    def test_two_writers_at_once_lose_nothing(self):
        self.run_ok("list")
        command = [program.PROGRAM, "--home", str(self.home), "--now", self.now, "--tz", "UTC", "--locale", "en_US",
                   "--json", "add"]
        writers = [subprocess.Popen([*command, f"event {n}", "--date", "2026-05-01"], stdout=subprocess.PIPE)
                   for n in range(12)]
        made = {json.loads(writer.communicate(timeout=120)[0])["identifier"] for writer in writers}
        self.assertEqual(len(made), 12)
        self.assertLessEqual(made, {event["identifier"] for event in self.events()})


if __name__ == "__main__":
    program.main()
