#!/usr/bin/env python3
"""Writes en/XIDLocale.json and ru/XIDLocale.json, the names of units beside numbers.

A name is looked up by the exact number, then by the last digit (from 2 up), then as the plural. In
Russian the last digit decides but for numbers that end in 11 to 14, so these stand there exactly, up to
LAST_EXACT; beyond it 11 to 14 are not told apart.
"""
import json
import pathlib

LAST_EXACT = 9999

ENGLISH = {  # base: (one, many)
    "year": ("year", "years"), "year-short": ("yr", "yrs"), "year-symbol": ("y", "y"),
    "month": ("month", "months"), "month-short": ("mth", "mths"), "month-symbol": ("M", "M"),
    "week": ("week", "weeks"), "week-short": ("wk", "wks"), "week-symbol": ("w", "w"),
    "day": ("day", "days"), "day-short": ("day", "days"), "day-symbol": ("d", "d"),
    "hour": ("hour", "hours"), "hour-short": ("hr", "hrs"), "hour-symbol": ("h", "h"),
    "minute": ("minute", "minutes"), "minute-short": ("min", "mins"), "minute-symbol": ("m", "m"),
    "second": ("second", "seconds"), "second-short": ("sec", "secs"), "second-symbol": ("s", "s"),
}

RUSSIAN = {  # base: (1, 2 to 4, 5 and more)
    "year": ("год", "года", "лет"), "year-short": ("г.", "г.", "л."), "year-symbol": ("г", "г", "л"),
    "month": ("месяц", "месяца", "месяцев"), "month-short": ("мес.",) * 3, "month-symbol": ("м",) * 3,
    "week": ("неделя", "недели", "недель"), "week-short": ("нед.",) * 3, "week-symbol": ("н",) * 3,
    "day": ("день", "дня", "дней"), "day-short": ("дн.",) * 3, "day-symbol": ("д",) * 3,
    "hour": ("час", "часа", "часов"), "hour-short": ("ч.",) * 3, "hour-symbol": ("ч",) * 3,
    "minute": ("минута", "минуты", "минут"), "minute-short": ("мин.",) * 3, "minute-symbol": ("мин",) * 3,
    "second": ("секунда", "секунды", "секунд"), "second-short": ("сек.",) * 3, "second-symbol": ("с",) * 3,
}

# What something happens every … of, where that is another form: "каждую 21 неделю".
RUSSIAN_PERIODS = {  # base: (1, 2 to 4, 5 and more)
    "week-period": ("неделю", "недели", "недель"), "minute-period": ("минуту", "минуты", "минут"),
    "second-period": ("секунду", "секунды", "секунд"),
}


def english(base, one, many):
    return {f"{base}##1": one, f"{base}##plural": many}


def russian(base, one, few, many):
    texts = {f"{base}##1": one, f"{base}##plural": many}
    if one == few == many:
        return texts
    texts[f"{base}##x1"] = one
    for digit in (2, 3, 4):
        texts[f"{base}##x{digit}"] = few
    for hundred in range(0, LAST_EXACT + 1, 100):
        for rest in (11, 12, 13, 14):
            texts[f"{base}##{hundred + rest}"] = many
    return texts


def write(language, texts):
    path = pathlib.Path(__file__).parent / language / "XIDLocale.json"
    path.write_text(json.dumps(texts, ensure_ascii=False, indent=0) + "\n", encoding="utf-8")


english_table, russian_table = {}, {}
for name, forms in ENGLISH.items():
    english_table |= english(name, *forms)
for name, forms in (RUSSIAN | RUSSIAN_PERIODS).items():
    russian_table |= russian(name, *forms)
write("en", english_table)
write("ru", russian_table)
