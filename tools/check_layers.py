#!/usr/bin/env python3
"""Holds the includes of the project against its floors.

An include points to the same floor or downwards, the engine sees no Qt, rooms that stand side by side do not
see each other, and no window's header is included outside its own source and the roof of the shell.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROOMS = ["shell", "astro", "orbit", "catalogue", "prediction", "maps", "sky", "net", "controls"]
KERNEL = {"astro/mMate", "astro/mConv"}
SIDE_BY_SIDE = {"prediction", "maps", "sky", "net"}
# the drawing target is made for everything that is drawn, so that it stands on the ground
SHARED_DRAWING = {"maps/DrawSurface", "maps/qtSurface"}
FLOORS = {"astro": 1, "orbit": 2, "catalogue": 3, "prediction": 4, "maps": 4, "sky": 4, "net": 4}
ROOF = 5

INCLUDE = re.compile(r'^\s*#include\s+([<"])([^>"]+)[>"]')


def floor(path):
    stem = str(path.with_suffix(""))
    if stem in KERNEL or stem in SHARED_DRAWING or stem.startswith("shell/base/"):
        return 0
    if path.parts[0] == "controls":
        return ROOF if path.stem == "frmFloating" else 0
    return ROOF if path.parts[0] == "shell" else FLOORS[path.parts[0]]


def is_engine(path):
    return bool(re.match(r"m[A-Z]", path.name)) or path.name.startswith("DrawSurface")


def is_qt(kind, name):
    return kind == "<" and (name.startswith("Q") or name.startswith("Qt"))


def faults_of(path):
    here = path.relative_to(ROOT)
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        kind, name = match.groups()
        where = f"{here}:{number}"
        if is_engine(here) and is_qt(kind, name):
            yield f"{where}: the engine includes {name}"
        if kind == "<" or name.split("/")[0] not in ROOMS:
            continue
        there = pathlib.PurePosixPath(name)
        if is_engine(here) and not is_engine(there):
            yield f"{where}: the engine includes the windows' {name}"
        if floor(there) > floor(here):
            yield f"{where}: {name} stands on a higher floor"
        rooms = {here.parts[0], there.parts[0]}
        if (len(rooms) == 2 and rooms <= SIDE_BY_SIDE and str(there.with_suffix("")) not in SHARED_DRAWING):
            yield f"{where}: {name} stands in a room next door"
        if there.stem.startswith("frm") and there.stem != here.stem and floor(here) != ROOF:
            yield f"{where}: the header of the window {there.stem} is for its own source"


def main():
    faults = []
    count = 0
    for room in ROOMS:
        for path in sorted((ROOT / room).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                count += 1
                faults.extend(faults_of(path))
    print("\n".join(faults) if faults else f"layers: {count} files, no fault")
    return 1 if faults else 0


sys.exit(main())
