#!/usr/bin/python3
"""Every text that the sources ask for by its English wording is in the tables of both languages.

Use: test_texts.py SOURCES"""
import json
import pathlib
import re
import sys
import unittest

SOURCES = None
ASKS = re.compile(r'\b(?:Theme\.tr|localized|NSLocalizedString)\(')
LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
LITERAL_TEXT = re.compile(r'\b(?:text|title|placeholder|spoken|Accessible\.name|Accessible\.description): "(?!Dayward")[^"]*[A-Za-z]{2}')


def parameters(source, at):
    """What stands between the parenthesis before that place and its counterpart, without texts in quotes
    that are compared with something."""
    depth, end = 1, at
    while depth:
        literal = LITERAL.match(source, end)
        depth += {"(": 1, ")": -1}.get(source[end], 0) if not literal else 0
        end = literal.end() if literal else end + 1
    return re.sub(r'[!=]=+ *"[^"]*"', "", source[at:end - 1])


def asked(source):
    """The texts in the calls; a literal right after another one continues it."""
    for call in ASKS.finditer(source):
        given = re.sub(r'"\s*\n\s*"', "", parameters(source, call.end()))
        yield from (text.replace('\\"', '"') for text in LITERAL.findall(given))


def sources(*endings):
    for path in sorted(SOURCES.rglob("*")):
        if path.suffix in endings:
            yield path.relative_to(SOURCES), path.read_text()


class Texts(unittest.TestCase):
    def test_both_languages_have_what_the_sources_ask_for(self):
        asks = {(text, str(path)) for path, source in sources(".qml", ".cpp", ".h") for text in asked(source)}
        self.assertIn(("Next month", "shell/qml/MonthCalendar.qml"), asks)
        for language in ("en", "ru"):
            known = set()
            for table in (SOURCES / "resources/strings" / language).glob("*.json"):
                known |= json.loads(table.read_text()).keys()
            self.assertEqual(sorted(ask for ask in asks if ask[0] not in known), [], language)

    def test_no_screen_has_a_text_of_its_own(self):
        own = [f"{path}: {text}" for path, source in sources(".qml") for text in LITERAL_TEXT.findall(source)]
        self.assertEqual(own, [])


if __name__ == "__main__":
    SOURCES = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
