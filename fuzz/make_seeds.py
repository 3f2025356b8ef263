#!/usr/bin/env python3
"""Writes the first inputs of each target into DIRECTORY/TARGET: our own documents from tests/data in the
form that the target takes, and generated ones. fuzz/run --store makes the stored corpus from them."""
import base64
import json
import pathlib
import struct
import sys

DATA = pathlib.Path(__file__).resolve().parent.parent / "tests" / "data"


def files(*patterns, largest=6000):
    for pattern in patterns:
        for path in sorted(DATA.glob(pattern)):
            if path.stat().st_size <= largest:
                yield path.read_bytes()


def zone_file(version, times, types, names, footer):
    def block(size, form):
        header = b"TZif" + version + bytes(15) + struct.pack(">6I", 0, 0, 0, len(times), len(types),
        len(names))
        body = b"".join(struct.pack(form, at) for at, _ in times) + bytes(kind for _, kind in times)
        body += b"".join(struct.pack(">iBB", offset, saving, 0) for offset, saving in types) + names
        return header + body

    if version == b"\0":
        return block(4, ">i")
    return block(4, ">i") + block(8, ">q") + b"\n" + footer + b"\n"


def zones():
    types = [(-18000, 0), (-14400, 1), (0, 0)]
    times = [(-1633280400, 1), (-1615140000, 0), (9972000, 1), (25693200, 0), (1173596400, 1), (1194156000,
        0)]
    asked = struct.pack("<q", 1200000000)
    for version in (b"\0", b"2", b"3"):
        yield b"\0" + asked + zone_file(version, times, types, b"EST\0EDT\0", b"EST5EDT,M3.2.0,M11.1.0")
    yield b"\0" + asked + zone_file(b"2", [], types[:1], b"X\0", b"<+0330>-3:30")
    far = [(47536, 0), *types[1:]]  # hours forward, and back soon after
    yield b"\0" + asked + zone_file(b"2", times[:5] + [(1194131486, 0)], far, b"X\0",
        b"EST2EDT,M4.2.0,M11.1.0")
    texts = ["UTC0", "CET-1CEST,M3.5.0,M10.5.0/3", "<-03>3<-02>,M3.5.0/-2,M10.5.0/-1",
        "IST-1GMT0,M10.5.0,M3.5.0/1",
             "XXX3EDT4,0/0,J365/23", "LHST-10:30LHDT-11,J60/167,J300/-167", "A24B25,0,365"]
    yield from (b"\1" + asked + text.encode() for text in texts)


def texts():
    return [t.encode() for t in (
        "2027-03-14", "2027-03-14T09:00", "2027-03-14 09:00:00.5+03:00", "-0044-03-15T23:59Z",
        "+12027-01-01", "today",
        "09:30", "daily", "never", "FREQ=DAILY;INTERVAL=2;BYDAY=MO,2TU", "2 hours", "1 day 12 hours",
        "1w 3mo",
        "on event", "1 day before", "2 hours after", "year,month,second", "short", "#ff00FF80", "-17",
        "123456789",
        "Countdown to %@ %1$@ %d%%", "a.sync-conflict-20260310-120000-ABCDEFG.evn")]


def rules():
    texts = [
        "FREQ=DAILY;INTERVAL=2;UNTIL=20270314T090000Z", "FREQ=WEEKLY;BYDAY=MO,WE,FR;COUNT=10",
        "FREQ=MONTHLY;BYDAY=-1MO",
        "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=29", "FREQ=MONTHLY;BYMONTHDAY=-1,15;BYSETPOS=-1",
        "FREQ=YEARLY;BYWEEKNO=53;BYDAY=SU",
        "FREQ=YEARLY;BYYEARDAY=366,-1", "FREQ=HOURLY;BYMINUTE=0,30;BYSECOND=59",
        "FREQ=MINUTELY;INTERVAL=90;BYHOUR=2",
        "FREQ=SECONDLY;INTERVAL=7;COUNT=100", "FREQ=MONTHLY;BYDAY=2TU,3FR;BYSETPOS=1",
        "freq=daily;byday=su;interval=0",
        "FREQ=WEEKLY;INTERVAL=3;WKST=SU;BYDAY=TU", "FREQ=YEARLY;BYMONTH=6;BYDAY=1SU;BYHOUR=7;UNTIL=20301231",
        "next\tFREQ=DAILY\t2026-01-01T09:00\t2026-03-08",
        "between\tFREQ=WEEKLY\t2026-01-01\t2026-02-01\t2027-01-01\t30"]
    for number, text in enumerate(texts):
        yield struct.pack("<B3xi", number % 4, 86400 * 7 * number) + text.encode()


def packages():
    icon = (DATA / "resources" / "heart4.png").read_bytes()
    background = (DATA / "resources" / "bg-37.jpg").read_bytes()
    other = (DATA / "archives" / "good-values.plist").read_bytes()
    for number, general in enumerate(files("documents/*.t")):
        parts = [(0, general)] + [(1, icon), (2, background), (3, other)][: number % 4]
        yield b"".join(bytes([name]) + struct.pack("<H", len(part)) + part for name, part in parts)


def values():
    for pattern, kinds in (("foundation/*.archive", (1, 2, 3, 7)), ("settings/*.archive", (4,)),
                           ("archives/good-values.*", (0, 1, 5, 7)), ("documents/category-*.t", (5, 6))):
        for content in files(pattern):
            yield from (bytes([kind]) + content for kind in kinds)
    yield b"\6/home/a.evn\n1 2 3\nstopped\n"


def events():
    picture = base64.b64encode((DATA / "resources" / "heart4.png").read_bytes()).decode()
    archive = base64.b64encode((DATA / "archives" / "good-record.plist").read_bytes()).decode()
    event = {
        "identifier": "key", "name": "Name", "categoryKey": "default", "date": "2027-03-14T09:00:00+03:00",
        "dateSeconds": 826700400.5, "times": [540, 0], "rrule": "FREQ=YEARLY;INTERVAL=1", "showAge": True,
        "duration": {"hour": 2, "minute": 30.5}, "intervalFormat": {"units": 28, "textStyle": 3},
        "alerts": {"list": [{"day": 1}, {}], "soundName": "bell"},
        "appearance": {"fontName": "F", "textColor": "#FF008040", "textColorComponents": [1, 0, 0.5, 0.25]},
        "icon": {"kind": "image", "bytes": picture, "source": "s"}, "background": {"kind": "color",
        "color": "#102030"},
        "randomBackground": {"kind": "named", "name": "bg-37"}, "note": "two\nlines \u0416", "version": 1.5e9,
        "sourceInfo": {"a": [1, None, {"b": False}]}}
    yield json.dumps(event).encode()
    yield json.dumps(event | {"icon": {"kind": "document"}, "sourceInfo": {"archive": archive}}).encode()
    refused = base64.b64encode((DATA / "documents" / "style-4.t").read_bytes()).decode()
    yield json.dumps({"sourceInfo": {"archive": refused}}).encode()
    for key, value in event.items():
        yield json.dumps({key: value}).encode()


def pictures():
    yield from files("images/*.png", "resources/*.png", "resources/*.jpg")
    jpeg = next(files("resources/*.jpg"))
    for order, mark in (("<", b"II"), (">", b"MM")):
        tiff = mark + struct.pack(order + "HIHHHIHHI", 42, 8, 1, 0x0112, 3, 1, 6, 0, 0)
        segment = b"Exif\0\0" + tiff
        yield jpeg[:2] + b"\xff\xe1" + struct.pack(">H", len(segment) + 2) + segment + jpeg[2:]


SEEDS = {
    "archive": lambda: files("archives/*.plist", "archives/*.xml", "documents/*.t", "foundation/*.archive",
                             "recurrence/*.plist", "settings/*.archive"),
    "package": packages,
    "rule": rules,
    "json": events,
    "defaults": values,
    "zone": zones,
    "text": texts,
    "picture": pictures,
}


def main():
    for target, seeds in SEEDS.items():
        directory = pathlib.Path(sys.argv[1]) / target
        directory.mkdir(parents=True, exist_ok=True)
        for number, seed in enumerate(seeds()):
            (directory / f"seed-{number:03}").write_bytes(seed)


if __name__ == "__main__":
    main()
