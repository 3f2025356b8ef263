"""Writes keyed archives with plistlib alone, so that stored archives do not depend on the program's own writer."""
import plistlib
from plistlib import UID


class Record:
    """An object of a class: its class names, nearest first, and its keys in their order."""

    def __init__(self, names, fields=None, **keys):
        self.names = [names] if isinstance(names, str) else list(names)
        self.keys = fields or keys


class Date(float):
    """Seconds since 2001-01-01 00:00:00 UTC."""


class Scalar:
    """A number or boolean that stands in its record itself, not as an object."""

    def __init__(self, value):
        self.value = value


class Archive:
    """Lists and dictionaries get the mutable classes where that is asked for."""

    def __init__(self, mutable=False):
        self.objects = ["$null"]
        self.classes = {}
        self.mutable = mutable

    def class_of(self, *names):
        if names not in self.classes:
            self.objects.append({"$classname": names[0], "$classes": [*names, "NSObject"]})
            self.classes[names] = UID(len(self.objects) - 1)
        return self.classes[names]

    def collection(self, name):
        return self.class_of(*(["NSMutable" + name] if self.mutable else []), "NS" + name)

    def add(self, value):
        if value is None:
            return UID(0)
        place = len(self.objects)
        self.objects.append(None)
        self.objects[place] = self.encoded(value)
        return UID(place)

    def encoded(self, value):
        if isinstance(value, Date):
            return {"NS.time": float(value), "$class": self.class_of("NSDate")}
        if isinstance(value, list):
            return {"NS.objects": [self.add(item) for item in value], "$class": self.collection("Array")}
        if isinstance(value, dict):
            return {"NS.keys": [self.add(key) for key in value],
                    "NS.objects": [self.add(item) for item in value.values()], "$class": self.collection("Dictionary")}
        if isinstance(value, Record):
            fields = {key: item.value if isinstance(item, Scalar) else self.add(item)
                      for key, item in value.keys.items()}
            return fields | {"$class": self.class_of(*value.names)}
        return value

    def bytes(self, top, sort_keys=False):
        return plistlib.dumps({"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": top,
                               "$objects": self.objects}, fmt=plistlib.FMT_BINARY, sort_keys=sort_keys)


def interval(**fields):
    return Record("XDIDateInterval", XDIDateInterval=Scalar(0), **{key: Scalar(value) for key, value in fields.items()})


def date_format(units, style, **fields):
    return Record("HHEventDateFormat", HHEventDateFormat=Scalar(0), Units=Scalar(units), UnitsFormatType=Scalar(style),
                  **fields)


def color(red, green, blue, alpha=1.0):
    return Record("UIColor", UIColorComponentCount=Scalar(4), UIRed=Scalar(red), UIGreen=Scalar(green),
                  UIBlue=Scalar(blue), UIAlpha=Scalar(alpha), NSColorSpace=Scalar(2))
