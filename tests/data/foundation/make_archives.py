#!/usr/bin/env python3
"""Writes the stored archives of this folder, by a writer that is not ours (plistlib).

They are what releases of the application left on disk, and what no release wrote but a disk may
hold. Run it only to add a file: the files are the format, they don't change.
"""
import datetime
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))
from keyed_archive import Archive, Date, Record, Scalar, color, date_format, interval

EPOCH_2001 = datetime.datetime(2001, 1, 1)


def at(text):
    return Date((datetime.datetime.fromisoformat(text) - EPOCH_2001).total_seconds())


def archived(root, **others):
    archiver = Archive(mutable=True)
    entry = "object" if others else "root"
    return archiver.bytes({entry: archiver.add(root), **others}, sort_keys=True)


def write(path, root):
    path.write_bytes(archived(root))


def write_enciphered(path, content, key):
    """A data block: AES over an archive with the entries "object" and "x"."""
    inner = archived(content, x=417)
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
        "CCEventHistory": Scalar(0),
        "data": {
            "__start": [{"date": at("2026-02-01"), "userInfo": {"from": "widget"}}, at("2026-01-01"), "no date",
                        {"userInfo": {}}, {"date": Date(float("nan"))}],
            "__install": [{"date": at("2025-12-24"), "userInfo": "no dictionary"}],
            "broken": "no array",
        },
        "maxDatesForEvent": Scalar(3),
    }))
    write(HERE / "history-newer.archive", Record("CCEventHistory", {
        "CCEventHistory": Scalar(1), "data": {"__start": [at("2026-01-01")]}, "maxDatesForEvent": Scalar(100)}))
    write(HERE / "older-history.archive", Record("XXEventHistory", {
        "XXEventHistory": Scalar(0),
        "data": {"opened": [at("2015-05-05"), at("2014-04-04"), 5, at("2016-06-06")], "never": []},
        "_maxDatesForEvent": Scalar(7),
    }))
    write(HERE / "older-values.archive", {"__lastAppVersion": "1.9"})
    write_enciphered(HERE / "enciphered.archive", {"secret": "плов"}, "пять5")

    settings = HERE.parent / "settings"
    alerts = [interval(Day=1), interval(Hour=-2)]
    write(settings / "complete.archive", {
        "table-sort-type": 2,
        "table-sort-ids": ["b", "a"],
        "table-cell-icon-show": False,
        "event-def-time": 540,
        "event-def-date-format": date_format(48, 1),
        "event-def-alerts": alerts,
        "event-def-sound-name": "bells.caf",
        "event-def-font-name": "Georgia",
        "event-def-text-color": color(1.0, 0.5, 0.25),
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
        "event-def-date-format": date_format(48, 9),
    })


main()
