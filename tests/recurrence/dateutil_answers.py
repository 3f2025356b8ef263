"""Checks answers about recurrence rules with dateutil, an independent evaluator.

Reads one case a line, tab-separated: zone, rule, start, from, to, most, the next date after `from`
and the dates between `from` and `to` (local times; answers as UTC seconds, "-" for none). Prints one
line a case: "same", the causes of the difference joined by " + ", or "UNEXPLAINED" with both answers.
A cause counts only where evaluating with it gives exactly the answers that were found.
"""

import itertools
import sys
from datetime import datetime, timedelta, timezone
from zoneinfo import ZoneInfo

from dateutil.rrule import rrulestr

# A month to which the answers of a rule are confined, kept beside its parts.
ONLY_MONTH = "only month"
UNITS = {"DAILY": 86400, "WEEKLY": 7 * 86400}


def parts_of(rule):
    return dict(part.split("=") for part in rule.split(";"))


def text_of(parts):
    return ";".join(f"{key}={value}" for key, value in parts.items())


def days_in_month(year, month):
    return ((datetime(year + month // 12, month % 12 + 1, 1)) - timedelta(days=1)).day


def move(parts, time, intervals):
    """The start, moved by whole intervals of the rule; None for a day that its year does not have."""
    units = intervals * int(parts.get("INTERVAL", 1))
    frequency = parts["FREQ"]
    if frequency in UNITS:
        return time + timedelta(seconds=units * UNITS[frequency])
    if frequency == "MONTHLY":
        year, month = divmod(time.year * 12 + time.month - 1 + units, 12)
        return time.replace(year=year, month=month + 1, day=min(time.day, days_in_month(year, month + 1)))
    try:
        return time.replace(year=time.year + units)
    except ValueError:
        return None


def moved_start(parts, start, target):
    intervals = -1
    if start < target:
        seconds = int((target - start).total_seconds())
        if parts["FREQ"] in UNITS:
            distance = 0 if seconds % UNITS["WEEKLY"] == 0 else seconds // UNITS[parts["FREQ"]]
        elif parts["FREQ"] == "MONTHLY":
            distance = (target.year - start.year) * 12 + target.month - start.month
        else:
            distance = target.year - start.year
        distance //= int(parts.get("INTERVAL", 1))
        if distance < 3:
            return start
        intervals = distance - 2
    moved = move(parts, start, intervals)
    while moved is None:
        intervals -= 1
        moved = move(parts, start, intervals)
    return moved


class Case:
    def __init__(self, line):
        zone, self.rule, start, after, to, most, found_next, found_between = line.rstrip("\n").split("\t")
        self.zone = ZoneInfo(zone)
        self.parts = parts_of(self.rule)
        self.start, self.after, self.to = (self.settled(datetime.fromisoformat(t)) for t in (start, after, to))
        self.most = int(most)
        self.found = (found_next, found_between)

    def settled(self, local):
        """A skipped local time is later by the gap's length."""
        return local.replace(tzinfo=self.zone).astimezone(timezone.utc).astimezone(self.zone).replace(tzinfo=None)

    def seconds(self, local):
        return str(int(local.replace(tzinfo=self.zone).timestamp()))

    def answers(self, parts, start):
        if parts is None:
            return ("-", "-")
        following, inside = None, []
        only_month = parts.get(ONLY_MONTH)
        text = text_of({key: value for key, value in parts.items() if key != ONLY_MONTH})
        for time in rrulestr(text.replace("Z", ""), dtstart=start):
            if time.year > self.after.year + 130:
                break
            if only_month not in (None, time.month):
                continue
            if time <= self.after or time < self.start or (start != self.start and time == start):
                continue
            following = following or time
            if time > self.to or len(inside) == self.most:
                break
            inside.append(time)
        return (
            self.seconds(following) if following else "-",
            " ".join(self.seconds(time) for time in inside) or "-",
        )

    def causes(self):
        """What may explain a difference: a name, and what it does to the rule and to the start."""
        parts, frequency = self.parts, self.parts["FREQ"]
        clamps = frequency == "MONTHLY" and self.start.day > 28 and not {"BYDAY", "BYMONTHDAY"} & set(parts)
        moved = moved_start(parts, self.start, self.after)
        if "COUNT" in parts:
            yield "COUNT is counted from the moved start", lambda p, s: (p, moved)
        if clamps and moved.day != self.start.day:
            yield "a monthly move clamps the 29th to 31st", lambda p, s: (p, moved)
        if frequency == "YEARLY" and "BYMONTHDAY" in parts and "BYMONTH" not in parts:
            yield (
                "libical: BYMONTHDAY without BYMONTH in a yearly rule means the start's month",
                self.within_starts_month,
            )
        if frequency == "WEEKLY" and parts.get("BYDAY") == "SU" and parts.get("INTERVAL", "1") != "1":
            yield (
                "libical: a weekly rule on Sundays alone counts its weeks from Sunday",
                lambda p, s: ({**p, "WKST": "SU"}, s),
            )
        if frequency == "DAILY" and "-" in parts.get("BYMONTHDAY", ""):
            yield "libical: a day counted from the month's end does not limit a daily rule", self.without_negative
        if frequency in UNITS and "BYSETPOS" in parts:
            yield (
                "libical: BYSETPOS does nothing in daily and weekly rules",
                lambda p, s: (p and {k: v for k, v in p.items() if k != "BYSETPOS"}, s),
            )

    def within_starts_month(self, parts, start):
        # BYMONTH would turn the ordinals of days into ordinals of the month.
        if any(c.isdigit() for c in parts.get("BYDAY", "")):
            return {**parts, ONLY_MONTH: self.start.month}, start
        return {**parts, "BYMONTH": str(self.start.month)}, start

    @staticmethod
    def without_negative(parts, start):
        kept = [day for day in parts["BYMONTHDAY"].split(",") if not day.startswith("-")] if parts else []
        return ({**parts, "BYMONTHDAY": ",".join(kept)} if kept else None, start)

    def verdict(self):
        expected = self.answers(self.parts, self.start)
        if expected == self.found:
            return "same"
        causes = list(self.causes())
        for size in range(1, len(causes) + 1):
            for chosen in itertools.combinations(causes, size):
                parts, start = self.parts, self.start
                for _, change in chosen:
                    parts, start = change(parts, start)
                if self.answers(parts, start) == self.found:
                    return " + ".join(name for name, _ in chosen)
        return f"UNEXPLAINED expected {expected} found {self.found}"


for case in sys.stdin:
    print(Case(case).verdict())
