#!/usr/bin/python3
"""Writes the keyed archives of this directory with Python's own property lists.

The files are stored: the tests read them as they lie here. Run it in this directory after a change.
"good" archives are complete; each "bad" one breaks the layout in one way.
"""

import plistlib
import struct
from plistlib import UID

NULL = "$null"


def class_record(*names):
    return {"$classname": names[0], "$classes": [*names, "NSObject"]}


def archive(objects, top=None, **replaced):
    whole = {
        "$version": 100000,
        "$archiver": "NSKeyedArchiver",
        "$top": {"root": UID(1)} if top is None else top,
        "$objects": objects,
    }
    whole.update(replaced)
    return {key: value for key, value in whole.items() if value is not None}


def write(name, plist):
    with open(name, "wb") as file:
        plistlib.dump(plist, file, fmt=plistlib.FMT_BINARY, sort_keys=False)


def write_xml(name, plist):
    """XML has no references of its own: they are dictionaries with one key."""

    def plain(value):
        if isinstance(value, UID):
            return {"CF$UID": value.data}
        if isinstance(value, list):
            return [plain(one) for one in value]
        if isinstance(value, dict):
            return {key: plain(one) for key, one in value.items()}
        return value

    with open(name, "wb") as file:
        plistlib.dump(plain(plist), file, fmt=plistlib.FMT_XML, sort_keys=False)


def write_raw(name, data):
    with open(name, "wb") as file:
        file.write(data)


def raw_list(objects, top=0, reference_size=1):
    """A binary property list from the bytes of its objects."""
    out = b"bplist00"
    offsets = []
    for item in objects:
        offsets.append(len(out))
        out += item
    table = len(out)
    out += b"".join(struct.pack(">I", offset) for offset in offsets)
    return out + bytes(6) + bytes([4, reference_size]) + struct.pack(">QQQ", len(objects), top, table)


def values():
    """Every kind of value, in the mutable classes."""
    return archive([
        NULL,
        {"$class": UID(2), "NS.keys": [UID(n) for n in range(3, 15)], "NS.objects": [UID(n) for n in range(15, 27)]},
        class_record("NSMutableDictionary", "NSDictionary"),
        "integer", "negative", "large", "real", "true", "text", "wide", "date", "data", "list", "null", "bytes",
        7, -12, 2**63 - 1, 0.1, True,
        {"$class": UID(27), "NS.string": "changing"},
        "Grüße, 日本 🎂",
        {"$class": UID(28), "NS.time": 536457600.5},
        {"$class": UID(29), "NS.data": bytes(range(20))},
        {"$class": UID(30), "NS.objects": [UID(15), UID(18), UID(31), UID(21)]},
        {"$class": UID(32)},
        b"\x00\x01\xff",
        class_record("NSMutableString", "NSString"),
        class_record("NSDate"),
        class_record("NSMutableData", "NSData"),
        class_record("NSMutableArray", "NSArray"),
        {"$class": UID(32)},
        class_record("NSNull"),
    ])


def record(reverse=False):
    """A record with inline and referenced numbers, a shared child, and a circle back to itself."""
    objects = [
        NULL,
        {"tst001": 0, "text": UID(2), "count": 3.75, "flag": 1, "ratio": 2, "boxed": UID(3), "list": UID(4),
         "child": UID(5), "missing": UID(0), "$class": UID(8)},
        "a record", 41,
        {"NS.objects": [UID(5), UID(5), UID(1), UID(6)], "$class": UID(7)},
        {"text": UID(6), "child": UID(1), "$class": UID(8)},
        "the child",
        class_record("NSArray"),
        class_record("tst001"),
    ]
    if not reverse:
        return archive(objects)

    def moved(value):
        if isinstance(value, UID):
            return UID(len(objects) - value.data) if value.data else value
        if isinstance(value, list):
            return [moved(one) for one in value]
        if isinstance(value, dict):
            return {key: moved(one) for key, one in reversed(value.items())}
        return value

    return archive([NULL] + [moved(one) for one in reversed(objects[1:])], {"root": UID(len(objects) - 1)})


def unknown():
    """A known record between objects of classes that nobody knows, which refer to each other."""
    return archive([
        NULL,
        {"NS.objects": [UID(2), UID(3), UID(4), UID(2)], "$class": UID(9)},
        {"other": UID(3), "size": 2**64 - 1, "inline": {"a": [1, True, 0.5, b"x", UID(5)]}, "$class": UID(8)},
        {"other": UID(2), "kept": UID(4), "$class": UID(8)},
        {"text": UID(5), "child": UID(6), "$class": UID(7)},
        "shared text",
        {"note": UID(5), "$class": UID(8)},
        class_record("tst001"),
        {"$classname": "XYPoint", "$classes": ["XYPoint", "XYShape", "NSObject"], "$classhints": ["XYShape"]},
        class_record("NSArray"),
    ])


def number_keys():
    return archive([
        NULL,
        {"NS.keys": [UID(2), UID(3)], "NS.objects": [UID(4), UID(4)], "$class": UID(5)},
        1, "two", "value",
        class_record("NSDictionary"),
    ])


def nested(depth):
    objects = [NULL, *({"NS.objects": [UID(n + 1)], "$class": UID(depth + 2)} for n in range(1, depth + 1)), "inside"]
    return archive(objects + [class_record("NSArray")])


def laughs(depth):
    """Arrays that each hold the next one ten times."""
    objects = [NULL, *({"NS.objects": [UID(n + 1)] * 10, "$class": UID(depth + 2)} for n in range(1, depth + 1)), "ha"]
    return archive(objects + [class_record("NSArray")])


def opaque_chain(depth):
    """Deep, but of unknown classes, which are not followed."""
    objects = [NULL, *({"next": UID(n + 1), "$class": UID(depth + 2)} for n in range(1, depth + 1)), "end"]
    return archive(objects + [class_record("XYLink")])


def with_root(*objects):
    return archive([NULL, *objects])


write("good-values.plist", values())
write_xml("good-values.xml", values())
write("good-record.plist", record())
write("good-record-reversed.plist", record(reverse=True))
write("good-unknown.plist", unknown())
write("good-number-keys.plist", number_keys())
write("good-nested.plist", nested(200))
write("good-opaque-chain.plist", opaque_chain(2000))
write("good-two-entries.plist", archive([NULL, "text"], {"object": UID(1), "x": 17}))
write("good-grey.plist", with_root({"UIWhite": 0.25, "UIColorComponentCount": 2, "NSColorSpace": 4, "$class": UID(2)},
                                   class_record("UIColor")))

write("bad-nested.plist", nested(400))
write("bad-laughs.plist", laughs(12))
write("bad-archiver.plist", archive([NULL, "x"], **{"$archiver": "NSArchiver"}))
write("bad-no-archiver.plist", archive([NULL, "x"], **{"$archiver": None}))
write("bad-version.plist", archive([NULL, "x"], **{"$version": 99}))
write("bad-no-objects.plist", archive(None))
write("bad-objects-type.plist", archive({"a": 1}))
write("bad-no-top.plist", archive([NULL, "x"], **{"$top": None}))
write("bad-no-root.plist", archive([NULL, "x"], {"other": UID(1)}))
write("bad-root-number.plist", archive([NULL, "x"], {"root": UID(9)}))
write("bad-element-number.plist", with_root({"NS.objects": [UID(2**40)], "$class": UID(2)}, class_record("NSArray")))
write("bad-class-number.plist", with_root({"NS.objects": [], "$class": UID(77)}))
write("bad-class-type.plist", with_root({"NS.objects": [], "$class": UID(2)}, "NSArray"))
write("bad-class-inline.plist", with_root({"NS.objects": [], "$class": "NSArray"}))
write("bad-no-class.plist", with_root({"NS.objects": []}))
write("bad-counts.plist", with_root({"NS.keys": [UID(2)], "NS.objects": [], "$class": UID(3)}, "k",
                                    class_record("NSDictionary")))
write("bad-unknown-number.plist", with_root({"other": UID(50), "$class": UID(2)}, class_record("XYPoint")))
write("bad-list.plist", ["no", "archive"])

shared = [bytes([0xAA] + [n + 1] * 10) for n in range(60)] + [b"\x09"]
write_raw("bad-raw-laughs.plist", raw_list(shared))


def raw_archive(objects):
    """The usual dictionary around raw objects; the first of them is number 9."""
    head = [
        b"\xd4\x01\x02\x03\x04\x05\x06\x07\x08",
        b"\x58$version", b"\x59$archiver", b"\x54$top", b"\x58$objects",
        b"\x12\x00\x01\x86\xa0", b"\x5f\x10\x0fNSKeyedArchiver", b"\xd1\x09\x0a", b"\xa2\x0b\x0c",
        b"\x54root", b"\x80\x01", b"\x55$null",
    ]
    return raw_list(head + objects)


write_raw("bad-raw-array-in-itself.plist", raw_archive([b"\xa1\x0c"]))
write_raw("bad-raw-wide-array.plist", raw_archive([bytes([0xAA] + [13] * 10)]
                                                  + [bytes([0xAA] + [n + 1] * 10) for n in range(13, 60)] + [b"\x09"]))
write_raw("bad-raw-huge-count.plist", raw_archive([b"\xaf\x13\x7f\xff\xff\xff\xff\xff\xff\xff"]))
write_raw("bad-raw-huge-text.plist", raw_archive([b"\x6f\x13\xff\xff\xff\xff\xff\xff\xff\xff"]))
write_raw("bad-raw-wide-count.plist", raw_archive([b"\x5f\x13\x01\0\0\0\0\0\0\x01x"]))
write_raw("bad-raw-marker.plist", raw_archive([b"\x75abcde"]))
write_raw("bad-raw-uid-to-uid.plist", raw_archive([b"\x80\x01"]))
write_raw("bad-trailer.plist", raw_list([b"\x09"])[:-8] + struct.pack(">Q", 2**63))
write_raw("bad-table.plist", raw_list([b"\x09"])[:-24] + struct.pack(">QQQ", 2**61, 0, 9))
write_raw("bad-empty.plist", b"")
write_raw("bad-magic.plist", b"bplist99" + bytes(60))
write_raw("bad-text.plist", b"these are no bytes of an archive, but enough of them to be one")
write_raw("bad-xml.xml", b"<?xml version='1.0'?><plist version='1.0'><dict><key>$top</key><dict>")
write_raw("bad-xml-nested.xml", b"<plist version='1.0'>" + b"<array>" * 20000 + b"</array>" * 20000 + b"</plist>")
