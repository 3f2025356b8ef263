#!/usr/bin/env python3
"""The generators of pictures and sounds: the same files each time, and one clear line for a bad table.
Use: test_generators.py DIRECTORY-OF-PROGRAMS"""
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAMS = pathlib.Path(sys.argv.pop())


def table_of(**item):
    group = {"name": "G", "items": [{"file": "a.wav", "name": "A", "seed": 3, **item}]}
    return {"groups": [group], "instruments": {"bar": {"kind": "struck", "partials": [[1, 1, 1]]}, "odd": {"kind": "odd"}},
            "preview": {"files": ["a.wav"], "colors": ["#102030"] * 16}}


def sound(instrument, pitch):
    return table_of(seconds=1, parts=[{"instrument": instrument, "notes": [[0, pitch]]}])


def background(**layer):
    return table_of(layers=[{"kind": "gradient"}, layer])


class Generators(unittest.TestCase):
    def made(self, program, table):
        """What the program says, and the files that it makes."""
        with tempfile.TemporaryDirectory() as directory:
            path, out = pathlib.Path(directory, "table.json"), pathlib.Path(directory, "out")
            path.write_text(table if isinstance(table, str) else json.dumps(table))
            done = subprocess.run([PROGRAMS / program, path, out], capture_output=True, text=True, check=False)
            self.assertEqual(done.returncode, 1 if done.stderr else 0)
            return done.stderr, {file.name: file.read_bytes() for file in out.iterdir()}

    def test_files_are_the_same_each_time(self):
        for program, table, more in (
                ("dayward-sounds", sound("bar", "A4"), set()),
                ("dayward-backgrounds", background(kind="bokeh"),
                 {"BackgroundInfoRandomName.png", "BackgroundInfoRandomColor.png"})):
            stem = program.removeprefix("dayward-")[:-1]
            said, files = self.made(program, table)
            self.assertEqual((said, set(files)), ("", {"a.wav", f"{stem}Data.json", f"{stem}Groups.json"} | more))
            self.assertEqual(files, self.made(program, table)[1])

    def test_faults_are_told_in_one_line(self):
        for program, table, complaint in (
                ("dayward-sounds", "{", "parse error"),
                ("dayward-sounds", {}, "groups"),
                ("dayward-sounds", sound("none", "A4"), "a.wav: "),
                ("dayward-sounds", sound("odd", "A4"), 'a.wav: no instrument is of kind "odd"'),
                ("dayward-sounds", sound("bar", "H4"), "a.wav: 'H4' is no note"),
                ("dayward-sounds", sound("bar", ""), "a.wav: '' is no note"),
                ("dayward-backgrounds", background(kind="odd"), 'a.wav: no layer is of kind "odd"'),
                ("dayward-backgrounds", background(kind="tiles", tile="odd"), "a.wav: no tile is named odd"),
                ("dayward-backgrounds", background(kind="scatter", figure="odd"), "a.wav: no figure is named odd"),
                ("dayward-backgrounds", background(kind="gradient", colors=["red"]), "a.wav: 'red' is no colour"),
                ("dayward-backgrounds", background(kind="gradient", angle="up"), "a.wav: ")):
            said, files = self.made(program, table)
            self.assertIn(complaint, said)
            self.assertTrue(said.startswith(program + ": ") and said.count("\n") == 1, said)
            self.assertFalse([name for name in files if name.endswith("Data.json")])


unittest.main()
