#!/usr/bin/python3
"""Lists keyed archives with Python's own property lists, as JSON lines: one line a file.

Each line is {"raw": the property list as it is stored, "root": the root object unfolded}. References
are {"UID": number} in "raw"; in "root" an object that is still open is {"$ref": number}.
"""

import base64
import json
import plistlib
import sys
from datetime import datetime
from plistlib import UID


def raw(value):
    if isinstance(value, UID):
        return {"UID": value.data}
    if isinstance(value, bytes):
        return {"data": base64.b64encode(value).decode()}
    if isinstance(value, datetime):
        return {"date": value.isoformat()}
    if isinstance(value, list):
        return [raw(one) for one in value]
    if isinstance(value, dict):
        return {key: raw(one) for key, one in value.items()}
    return value


def with_references(value):
    """XML has no references of its own: they are dictionaries with one key."""
    if isinstance(value, dict):
        if list(value) == ["CF$UID"]:
            return UID(value["CF$UID"])
        return {key: with_references(one) for key, one in value.items()}
    return [with_references(one) for one in value] if isinstance(value, list) else value


class Lister:
    def __init__(self, plist):
        self.objects = plist["$objects"]
        self.open = set()

    def value(self, value):
        if isinstance(value, UID):
            return self.object(value.data)
        if isinstance(value, bytes):
            return {"$data": base64.b64encode(value).decode()}
        if isinstance(value, list):
            return [self.value(one) for one in value]
        if isinstance(value, dict):
            return {key: self.value(one) for key, one in value.items()}
        return value

    def object(self, number):
        target = self.objects[number]
        if target == "$null":
            return None
        if not isinstance(target, dict):
            return self.value(target)
        if number in self.open:
            return {"$ref": number}
        self.open.add(number)
        result = self.instance(target)
        self.open.remove(number)
        return result

    def instance(self, target):
        name = self.objects[target["$class"].data]["$classname"].replace("NSMutable", "NS")
        if name == "NSNull":
            return None
        if name in ("NSArray", "NSString", "NSData"):
            return self.value(target[{"NSArray": "NS.objects", "NSString": "NS.string", "NSData": "NS.data"}[name]])
        if name == "NSDate":
            return {"$date": self.value(target["NS.time"])}
        if name == "NSDictionary":
            keys = [self.value(key) for key in target["NS.keys"]]
            if all(isinstance(key, str) for key in keys):
                return dict(zip(keys, (self.value(one) for one in target["NS.objects"])))
        fields = {key: self.value(one) for key, one in target.items() if key != "$class"}
        return {"$class": self.objects[target["$class"].data]["$classname"], **fields}


sys.setrecursionlimit(20000)
for path in sys.argv[1:]:
    with open(path, "rb") as file:
        plist = with_references(plistlib.load(file))
    top = plist["$top"]
    lister = Lister(plist)
    root = lister.value(top["root"]) if list(top) == ["root"] else lister.value(top)
    print(json.dumps({"raw": raw(plist), "root": root}))
