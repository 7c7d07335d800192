#!/usr/bin/python3
"""Makes tests/reference/kernel.txt, sky.txt and riseset.txt from files of values that an independent
implementation of the same rules has computed: kernel.json, calendar.json, sky.json, riseset.json."""

import argparse
import json
from pathlib import Path

import datatools

HEAD = "# Computed by an independent implementation of the same rules"


def cell(value):
    """A value as one cell of a table of cells with blanks between them."""
    if value is None:
        return "fails"
    if value == "":
        return "-"
    return repr(value) if isinstance(value, float) else str(value)


def line(name, *values):
    cells = []
    for value in values:
        cells += [cell(item) for item in value] if isinstance(value, list) else [cell(value)]
    return " ".join([name] + cells)


def kernel(folder):
    """Numeric kernel and calendar: each line has the name of the routine, the arguments, the results."""
    values = json.loads((folder / "kernel.json").read_text())
    names = ["modFloor", "fmod2Pi", "arcTan2Positive", "arcSin", "arcCos", "dmsToDecimal", "decimalToDms",
             "decimalToDm", "toInt16", "geodeticHeight", "clipSegmentToCircle90"]
    lines = [line(name, *row) for name in names for row in values[name]]
    calendar = json.loads((folder / "calendar.json").read_text())
    lines += [line("julianDay", *row) for row in calendar["julianDay"]]
    lines += [line("julianDayToLocalDate", *row) for row in calendar["julianDayToLocalDate"]]
    for row in calendar["updateSiderealTime"]:
        keys = ["local", "longitude", "zone", "daylight", "utc", "utcHours", "localHours", "utcDayOfYear",
                "localDayOfYear", "julianDayNow", "julianDayMidnight", "greenwich", "localSidereal"]
        lines.append(line("updateSiderealTime", *[row[key] for key in keys]))
    return lines


def sky(folder):
    """Places at zone 0: instant, row of the table, right ascension, declination, distance, diameter and magnitude
    or phase angle; "look" is the Sun's or Moon's azimuth and altitude from a site."""
    values = json.loads((folder / "sky.json").read_text())
    rows = values["rows"]
    lines = [f"element {name} {numbers}" for name, numbers in zip(rows[::2], rows[1::2])]
    for case in values["cases"]:
        lines.append(line("sun", case["local"], case["sunLongitude"], case["sunMeanAnomaly"]))
        for row, place in enumerate(case["place"], 1):
            lines.append(line("place", case["local"], row, place))
        for site, look in zip(values["sites"], case["look"]):
            lines.append(line("look", case["local"], site[1], site[2], look))
    for name in ["equatorialToHorizontal", "eclipticToEquatorial", "horizontalToEquatorial"]:
        lines += [line(name, *row) for row in values[name]]
    return lines


def rise_set(folder):
    """Body, latitude, longitude, hours, date, four texts, key of the note; hour (before the half minute) and
    azimuth of rise and of set before rounding, to be met within 1e-8 hours and 1e-7 degrees."""
    lines = []
    for case in json.loads((folder / "riseset.json").read_text())["cases"]:
        place = [case["latitude"], case["longitude"], case["hours"]] + case["date"]
        for body in ["sun", "moon"]:
            result = case[body]
            keys = ["riseTime", "setTime", "riseAzimuth", "setAzimuth", "note"]
            raw = [value for event in ["rise", "set"] for value in result["raw"].get(event, ["", ""])]
            lines.append(line(body, place, [result[key] for key in keys], raw))
    return lines


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("values", type=Path, help="folder with the four files of values")
    parser.add_argument("--project", type=Path, default=datatools.PROJECT, help="project folder to write into")
    arguments = parser.parse_args()
    for name, make in [("kernel", kernel), ("sky", sky), ("riseset", rise_set)]:
        text = "\n".join([HEAD, "# " + " ".join(make.__doc__.split())] + make(arguments.values))
        datatools.write_file(arguments.project / f"tests/reference/{name}.txt", text + "\n")


if __name__ == "__main__":
    main()
