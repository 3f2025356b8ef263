#!/usr/bin/python3
"""An independent reader of the zone database: answers what the test asks, and finds changes by itself.

Each input line is a zone's name, "|", instants, "|", local times, in whole seconds since 1970. Each
output line has the offsets of the instants, "|", the instants of the local times (first pass; a
skipped time by the offset before the gap), "|", and the changes of offset from 1970 to 2060 that a
walk in steps of a week meets, each as INSTANT:OFFSET.
"""
import datetime
import sys
import zoneinfo

EPOCH = datetime.datetime(1970, 1, 1)
SECOND = datetime.timedelta(seconds=1)
START, END, STEP = 0, 2840140800, 10 * 86400


def offset_of(zone, instant):
    moment = zone.fromutc((EPOCH + datetime.timedelta(seconds=instant)).replace(tzinfo=zone))
    return moment.utcoffset() // SECOND


def instant_of(zone, local):
    moment = EPOCH + datetime.timedelta(seconds=local)
    return local - moment.replace(tzinfo=zone).utcoffset() // SECOND


def changes(zone):
    before = offset_of(zone, START)
    for step in range(START + STEP, END, STEP):
        after = offset_of(zone, step)
        if after != before:
            low, high = step - STEP, step
            while high - low > 1:
                middle = (low + high) // 2
                low, high = (middle, high) if offset_of(zone, middle) == before else (low, middle)
            yield f"{high}:{offset_of(zone, high)}"
        before = after


for line in sys.stdin:
    name, instants, locals_ = (part.split() for part in line.split("|"))
    zone = zoneinfo.ZoneInfo(name[0])
    answers = (
        (str(offset_of(zone, int(instant))) for instant in instants),
        (str(instant_of(zone, int(local))) for local in locals_),
        changes(zone),
    )
    print("|".join(" ".join(answer) for answer in answers))
