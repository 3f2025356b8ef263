#!/usr/bin/env python3
"""Lists a keyed archive's root object with plistlib alone: class names, then each key and its value."""
import plistlib
import sys


def main():
    with open(sys.argv[1], "rb") as file:
        archive = plistlib.load(file)
    objects = archive["$objects"]
    assert archive["$archiver"] == "NSKeyedArchiver" and archive["$version"] == 100000 and objects[0] == "$null"

    def resolved(value):
        return objects[value.data] if isinstance(value, plistlib.UID) else value

    def shown(value):
        value = resolved(value)
        if isinstance(value, dict) and "NS.objects" in value and "NS.keys" not in value:
            return "[" + ", ".join(shown(item) for item in value["NS.objects"]) + "]"
        if isinstance(value, dict) and "NS.time" in value:
            return f"date {value['NS.time']}"
        if isinstance(value, dict):
            fields = [f"{key} {shown(item)}" for key, item in value.items() if key != "$class"]
            return resolved(value["$class"])["$classname"] + "(" + ", ".join(fields) + ")"
        return str(value)

    root = resolved(archive["$top"]["root"])
    print(" ".join(resolved(root["$class"])["$classes"]))
    for key, value in root.items():
        if key != "$class":
            print(f"{key}: {shown(value)}")


main()
