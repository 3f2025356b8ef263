#!/usr/bin/env python3
"""Writes the stored archives of this folder, by a writer that is not ours (plistlib).

They are what releases of the application left on disk, and what no release wrote but a disk may
hold. Run it only to add a file: the files are the format, they don't change.
"""
import datetime
import pathlib
import plistlib
import subprocess

HERE = pathlib.Path(__file__).resolve().parent
EPOCH_2001 = datetime.datetime(2001, 1, 1)


class Archiver:
    def __init__(self):
        self.objects = ["$null"]
        self.classes = {}

    def class_uid(self, *names):
        if names not in self.classes:
            self.objects.append({"$classname": names[0], "$classes": [*names, "NSObject"]})
            self.classes[names] = plistlib.UID(len(self.objects) - 1)
        return self.classes[names]

    def reserve(self):
        self.objects.append(None)
        return len(self.objects) - 1

    def add(self, value):
        if value is None:
            return plistlib.UID(0)
        slot = self.reserve()
        if isinstance(value, dict):
            keys = [self.add(key) for key in value]
            values = [self.add(item) for item in value.values()]
            self.objects[slot] = {
                "NS.keys": keys,
                "NS.objects": values,
                "$class": self.class_uid("NSMutableDictionary", "NSDictionary"),
            }
        elif isinstance(value, list):
            items = [self.add(item) for item in value]
            self.objects[slot] = {"NS.objects": items, "$class": self.class_uid("NSMutableArray", "NSArray")}
        elif isinstance(value, Seconds):
            self.objects[slot] = {"NS.time": value.value, "$class": self.class_uid("NSDate")}
        elif isinstance(value, Record):
            fields = {key: item.value if isinstance(item, Plain) else self.add(item)
                      for key, item in value.fields.items()}
            self.objects[slot] = fields | {"$class": self.class_uid(value.name)}
        else:
            self.objects[slot] = value
        return plistlib.UID(slot)

    def bytes(self, top):
        return plistlib.dumps(
            {"$archiver": "NSKeyedArchiver", "$version": 100000, "$objects": self.objects, "$top": top},
            fmt=plistlib.FMT_BINARY)


class Seconds:
    def __init__(self, value):
        self.value = float(value)


class Plain:
    """A number that stands in the record itself."""

    def __init__(self, value):
        self.value = value


class Record:
    def __init__(self, name, fields):
        self.name, self.fields = name, fields


def at(text):
    return Seconds((datetime.datetime.fromisoformat(text) - EPOCH_2001).total_seconds())


def write(path, root):
    archiver = Archiver()
    top = {"root": archiver.add(root)}
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(archiver.bytes(top))


def write_enciphered(path, content, key):
    """A data block: AES over an archive with the entries "object" and "x"."""
    archiver = Archiver()
    inner = archiver.bytes({"object": archiver.add(content), "x": 417})
    padded = key.encode().ljust(32, b"\0").hex()
    cipher = subprocess.run(["openssl", "enc", "-aes-256-ecb", "-K", padded], input=inner, capture_output=True,
                            check=True).stdout
    write(path, cipher)


def main():
    write(HERE / "dictionary.archive", {"count": 3, "name": "День", "list": ["a", "b"], "since": at("2016-01-01")})
    write(HERE / "array.archive", ["no", "dictionary"])
    write(HERE / "cache.archive", {
        "alive": Record("CacheValue", {"value": "yes", "lifeDate": at("2026-03-11")}),
        "dead": Record("CacheValue", {"value": "no", "lifeDate": at("2026-03-09")}),
        "undated": Record("CacheValue", {"value": "no"}),
        "misdated": Record("CacheValue", {"value": "no", "lifeDate": "2026-03-11"}),
        "foreign": "no CacheValue",
    })
    write(HERE / "history.archive", Record("CCEventHistory", {
        "CCEventHistory": Plain(0),
        "data": {
            "__start": [{"date": at("2026-02-01"), "userInfo": {"from": "widget"}}, at("2026-01-01"), "no date",
                        {"userInfo": {}}, {"date": Seconds(float("nan"))}],
            "__install": [{"date": at("2025-12-24"), "userInfo": "no dictionary"}],
            "broken": "no array",
        },
        "maxDatesForEvent": Plain(3),
    }))
    write(HERE / "history-newer.archive", Record("CCEventHistory", {
        "CCEventHistory": Plain(1), "data": {"__start": [at("2026-01-01")]}, "maxDatesForEvent": Plain(100)}))
    write(HERE / "older-history.archive", Record("XXEventHistory", {
        "XXEventHistory": Plain(0),
        "data": {"opened": [at("2015-05-05"), at("2014-04-04"), 5, at("2016-06-06")], "never": []},
        "_maxDatesForEvent": Plain(7),
    }))
    write(HERE / "older-values.archive", {"__lastAppVersion": "1.9"})
    write_enciphered(HERE / "enciphered.archive", {"secret": "плов"}, "пять5")

    settings = HERE.parent / "settings"
    alerts = [Record("XDIDateInterval", {"XDIDateInterval": Plain(0), "Day": Plain(1)}),
              Record("XDIDateInterval", {"XDIDateInterval": Plain(0), "Hour": Plain(-2)})]
    write(settings / "complete.archive", {
        "table-sort-type": 2,
        "table-sort-ids": ["b", "a"],
        "table-cell-icon-show": False,
        "event-def-time": 540,
        "event-def-date-format": Record("HHEventDateFormat", {
            "HHEventDateFormat": Plain(0), "Units": Plain(48), "UnitsFormatType": Plain(1)}),
        "event-def-alerts": alerts,
        "event-def-sound-name": "bells.caf",
        "event-def-font-name": "Georgia",
        "event-def-text-color": Record("UIColor", {
            "UIColorComponentCount": Plain(4), "UIRed": Plain(1.0), "UIGreen": Plain(0.5), "UIBlue": Plain(0.25),
            "UIAlpha": Plain(1.0), "NSColorSpace": Plain(2)}),
        "app-badge-show": True,
    })
    write(settings / "mistyped.archive", {
        "table-sort-type": "2",
        "table-sort-ids": ["b", 1],
        "table-cell-icon-show": "NO",
        "event-def-time": [540],
        "event-def-date-format": alerts[0],
        "event-def-alerts": alerts + ["1 day"],
        "event-def-sound-name": 5,
        "event-def-font-name": 12,
        "event-def-text-color": "#FF0000FF",
        "app-badge-show": "yes",
    })
    write(settings / "partial.archive", {"event-def-time": 75, "table-cell-icon-show": False, "event-def-alerts": 3})
    write(settings / "corrupt.archive", {
        "event-def-time": 75,
        "event-def-date-format": Record("HHEventDateFormat", {
            "HHEventDateFormat": Plain(0), "Units": Plain(48), "UnitsFormatType": Plain(9)}),
    })


main()
