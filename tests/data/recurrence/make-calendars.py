#!/usr/bin/python3
"""Writes the older calendars of this directory as keyed archives, with Python's own property lists.

The files are stored: the tests read them as they lie here. Run it in this directory after a change.
"""

import plistlib
from plistlib import UID


class Archive:
    def __init__(self):
        self.objects = ["$null"]

    def add(self, value):
        self.objects.append(value)
        return UID(len(self.objects) - 1)

    def record(self, names, fields):
        encoded = {}
        for key, value in fields.items():
            encoded[key] = value if isinstance(value, int) else self.encode(value)
        encoded["$class"] = self.add({"$classname": names[0], "$classes": [*names, "NSObject"]})
        return self.add(encoded)

    def encode(self, value):
        if isinstance(value, list):
            items = [self.add(item) for item in value]
            return self.record_of("NSArray", {"NS.objects": items})
        if isinstance(value, tuple):
            return self.record(*value)
        if isinstance(value, float):
            return self.record_of("NSDate", {"NS.time": value})
        return self.add(value)

    def record_of(self, name, fields):
        fields["$class"] = self.add({"$classname": name, "$classes": [name, "NSObject"]})
        return self.add(fields)

    def write(self, name, root):
        top = self.encode(root)
        plist = {"$archiver": "NSKeyedArchiver", "$version": 100000, "$objects": self.objects, "$top": {"root": top}}
        with open(name, "wb") as file:
            plistlib.dump(plist, file, fmt=plistlib.FMT_BINARY)


BASE = "XELCalendarBase"
STANDARD = ["XELCalendarStandard", BASE]
# 2014-05-05, a Monday, 00:00 UTC.
MONDAY = 420940800.0
DAY = {BASE: 0, "Date": MONDAY, "Times": [540, 1080]}
TWO_WEEKS = (["HHDateInterval", "XELDateInterval", "XDIDateInterval"], {"XDIDateInterval": 0, "Week": 2})

Archive().write("standard.plist", (STANDARD, {**DAY, "RepeatInterval": TWO_WEEKS, "DaysOfWeek": [3]}))
Archive().write(
    "event-standard.plist",
    (["HHEventCalendarStandard", *STANDARD], {**DAY, "RepeatInterval": (["XELDateInterval", "XDIDateInterval"],
                                                                       {"XDIDateInterval": 0, "Month": 3})}),
)
Archive().write("custom.plist", (["XELCalendarCustom", BASE], {**DAY, "Monts": [12, 6], "DayOfWeek": [2, 6],
                                                               "DayOfWeekInMonth": [1, 2]}))
Archive().write("anniversary.plist", (["XELCalendarAnniversary", BASE], DAY))
Archive().write("bad-version.plist", (["XELCalendarAnniversary", BASE], {**DAY, BASE: 1}))
Archive().write("bad-types.plist", (STANDARD, {BASE: 0, "Date": "yesterday", "Times": ["noon", 540], "RepeatInterval": 5,
                                               "DaysOfWeek": 7}))
