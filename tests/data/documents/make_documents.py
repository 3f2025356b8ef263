#!/usr/bin/env python3
"""Writes the stored archives of this directory, one for each shape that documents have had.

The archives are made with plistlib alone, so that they do not depend on the program's own writer. They
are committed; run this only to add a shape.
"""
import pathlib
import struct
import sys
import zlib

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))
from keyed_archive import Archive, Date, Record, Scalar, color, date_format, interval


def archive(root):
    made = Archive()
    return made.bytes({"root": made.add(root)})


def png(red, green, blue):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
    header = struct.pack(">IIBBBBB", 1, 1, 8, 2, 0, 0, 0)
    pixels = zlib.compress(bytes([0, red, green, blue]))
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", pixels) + chunk(b"IEND", b"")


def document(**keys):
    return Record("HHGeneralEventDocumentData", **keys)


def calendar(name, **keys):
    return Record([name, "XELCalendarBase"], **{name: Scalar(0), "XELCalendarBase": Scalar(0)}, **keys)


MISTYPED = {"Type": "five", "Name": 7, "Category": ["x"], "Date": "2016", "Times": "540", "Duration": "long",
            "RRule": 3, "ShowYear": "yes", "DateFormat": interval(Day=1), "Alerts": [1], "Appearance": color(1, 0, 0),
            "Note": Date(0), "IconSystemName": 5, "BackgroundSystemName": [1], "BackgroundColor": "red", "p001": "x",
            "p004": "no", "p002": color(0, 0, 1), "p003": 3, "p005": [2], "p006": "v"}

DOCUMENTS = {
    "full": document(
        Type=Scalar(0), SourceInfo={"importer": "calendar", "number": 3}, Name="Trip to the sea", Category="c-17",
        Date=Date(473299200.25), Times=[540, 1080], Duration=interval(Day=2, Hour=0),
        RRule="FREQ=YEARLY;INTERVAL=1", ShowYear=Scalar(True),
        DateFormat=date_format(48, 2),
        Alerts=Record("HHEventAlerts", HHEventAlerts=Scalar(0), List=[interval(Day=1), interval(), interval(Hour=-2)],
                      SoundName="bell.mp3"),
        Appearance=Record("HHEventAppearance", HHEventAppearance=Scalar(1), FontName="Papyrus",
                          FontColor=color(1.0, 0.0, 0.5)),
        Note="Take the blue bag", IconSystemName=None, BackgroundSystemName=None, BackgroundColor=None,
        p001=Record(["c002", "c001a"], p001="heart4.png"), p004=Scalar(False),
        p002=Record(["c006", "c004a"], p001=color(0.0, 1.0, 0.0, 0.2)),
        p003=Record(["c004", "c001a"], p001="bg-37.jpg"), p005=Scalar(False),
        p006=Record("_csy001", v=Scalar(1795221234.25))),
    "type-5": document(Type=Scalar(5), Name="Old holiday"),
    "type-9": document(Type=Scalar(9), Name="Of no known type"),
    "category-wins": document(Type=Scalar(5), Category="c-9"),
    "empty": document(),
    "no-date": document(RRule="FREQ=DAILY;INTERVAL=3", Times=[60]),
    "no-rule": document(Date=Date(1000), Times=[60, 120]),
    "times-empty": document(Date=Date(1000), Times=[]),
    "times-mixed": document(Date=Date(1000), Times=[60, "x"]),
    "times-reals": document(Date=Date(1000), Times=[60.9, -30.5, True]),
    "date-nan": document(Date=Date("nan"), RRule="FREQ=DAILY;INTERVAL=1"),
    "calendar-anniversary": document(Calendar=calendar("XELCalendarAnniversary", Date=Date(86400), Times=[480])),
    "calendar-standard": document(Calendar=Record(
        ["HHEventCalendarStandard", "XELCalendarStandard", "XELCalendarBase"],
        XELCalendarBase=Scalar(0), Date=Date(86400), Times=[480, 600], XELCalendarStandard=Scalar(0),
        RepeatInterval=Record(["HHDateInterval", "XELDateInterval", "XDIDateInterval"], XDIDateInterval=Scalar(0),
                              Week=Scalar(2)), DaysOfWeek=[2, 4])),
    "calendar-custom": document(Calendar=calendar("XELCalendarCustom", Date=Date(86400), Times=["x"], Monts=[5],
                                                  DayOfMonth=[1, 2])),
    "calendar-beside-date": document(Date=Date(1000), Calendar=calendar("XELCalendarAnniversary", Date=Date(86400),
                                                                        Times=[480])),
    "names-of-resources": document(IconSystemName="heart4.png", BackgroundSystemName="bg-37.jpg",
                                   BackgroundColor=color(1, 0, 0)),
    "names-without-extension": document(IconSystemName="heart4", BackgroundSystemName="heart4"),
    "names-gone": document(IconSystemName="gone.png", BackgroundSystemName="gone.jpg",
                           BackgroundColor=color(1, 0, 0)),
    "names-absolute": document(IconSystemName="/heart4.png", BackgroundSystemName="/bg-37.jpg"),
    "null-flags": document(p004=Scalar(True), p005=Scalar(True), IconSystemName="heart4.png",
                           BackgroundColor=color(1, 0, 0)),
    "pictures-over-flags": document(p001=Record(["c002", "c001a"], p001="heart4.png"), p004=Scalar(True),
                                    p002=Record(["c006", "c004a"], p001=color(0, 0, 1)), p005=Scalar(True)),
    "picture-without-name": document(p001=Record(["c002", "c001a"]), p004=Scalar(True)),
    "background-as-icon": document(p001=Record(["c004", "c001a"], p001="bg-37.jpg"), p004=Scalar(True)),
    "max-units": document(DateFormat=date_format(4 + 16 + 32, 1, MaxUnits=Scalar(2))),
    "nested-mistyped": document(
        DateFormat=Record("HHEventDateFormat", HHEventDateFormat=Scalar(7), Units="x", UnitsFormatType=[1]),
        Alerts=Record("HHEventAlerts", HHEventAlerts=Scalar(9), List="x", SoundName=4),
        Appearance=Record("HHEventAppearance", HHEventAppearance=Scalar(9), FontName=[1], FontColor="red")),
    "mistyped": document(**MISTYPED),
    "units-negative": document(DateFormat=Record("HHEventDateFormat", Units=Scalar(-1), UnitsFormatType=Scalar(1))),
    "style-4": document(DateFormat=Record("HHEventDateFormat", Units=Scalar(16), UnitsFormatType=Scalar(4))),
    "no-event": Record("HHEventAppearance", FontName="Papyrus"),
    "source-of-unknown-class": document(SourceInfo=Record(["Importer", "Base"], Inside=[1, Date(5)], Flag=Scalar(True))),
}

RED = png(255, 0, 0)
CATEGORIES = {
    "category-full": Record("c001", p001="key-1", p002="Trips", p003=Record(["c003", "c002a"], p001=RED, p002="me.png"),
                            p004=Record(["c008", "c003a"], p001=RED, p002=None), p005="Papyrus",
                            p006=color(0.5, 0.25, 1)),
    "category-chronello-color": Record("c001", p001="k", p004=Record("Chronello.RColorEventBackgroundTemplate")),
    "category-chronelle-named": Record("c001", p001="k", p004=Record("Chronelle.RNamedEventBackgroundTemplate")),
    "category-mistyped": Record("c001", p001="k", p002=5, p003=Record(["c007", "c001a"], p001="bg-37.jpg"),
                                p004=Record(["c002", "c001a"], p001="heart4.png"), p005=[1], p006="red"),
    "category-broken-image": Record("c001", p001="k", p003=Record(["c003", "c002a"], p001=b"no image"),
                                    p004=Record(["c009", "c004a"])),
    "category-older-icon": Record("c001", p001="k", p003=Record("HHAppImage", Source=None, SystemName="heart4.png",
                                                                ImageData=RED, Image=None)),
    "category-older-background": Record("c001", p001="k", p004=Record("HHBackground", HHBackground=Scalar(0),
                                                                      imageName="bg-37.jpg")),
    "category-older-info": Record("c001", p001="k", p004=Record("HHBackgroundInfo", type=Scalar(4), name=None,
                                                                color=None, imageData=RED)),
    "app-image-data": Record("HHAppImage", Source=None, SystemName="gone.png", ImageData=RED),
    "app-image-object": Record("HHAppImage", Image=Record("UIImage", UIImageData=RED, UIScale=Scalar(2.0))),
    "background-color": Record("HHBackground", HHBackground=Scalar(1), imageData=RED, imageSource="x.jpg",
                               color=color(0, 0, 1)),
    "background-image": Record("HHBackground", HHBackground=Scalar(1), imageData=RED, imageName="not-read.jpg"),
}

for name, root in (DOCUMENTS | CATEGORIES).items():
    (HERE / f"{name}.t").write_bytes(archive(root))
