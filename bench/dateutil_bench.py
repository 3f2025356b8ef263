"""The peer of rule_ten_years: python-dateutil, given the text and the wall-clock times each time.

Use: dateutil_bench.py ROUNDS ROW…; prints {"row/side": {"unit": "ns", "values": [the time of one
question, a number a round]}}.
The rules and times are those of kTenYearRules in support/RuleCases.h.
"""
import json
import sys
import time
from datetime import datetime

from dateutil.rrule import rrulestr

ROW = "rule_ten_years"
RULES = ["FREQ=DAILY", "FREQ=DAILY;INTERVAL=3", "FREQ=DAILY;UNTIL=20351231T235959", "FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR"]
START, AFTER = datetime(2014, 3, 12, 9, 30), datetime(2024, 6, 5, 14, 20, 7)


def nanoseconds():
    begin = time.process_time_ns()
    for rule in RULES:
        rrulestr(rule, dtstart=START).after(AFTER)
    return (time.process_time_ns() - begin) / len(RULES)


rounds, rows = int(sys.argv[1]), sys.argv[2:]
figure = {"unit": "ns", "values": [nanoseconds() for _ in range(rounds)]} if ROW in rows else None
print(json.dumps({f"{ROW}/dateutil": figure} if figure else {}))
