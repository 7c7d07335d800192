#!/usr/bin/python3
"""Makes tests/reference/planets.csv: places of the planets by an independent ephemeris (PyEphem)."""

import argparse
import math
from pathlib import Path

import ephem

import datatools

COUNT = 60
FIRST_YEAR, LAST_YEAR = 1990, 2050
# PyEphem counts days from noon of the last day of 1899.
DAY_OFFSET = 2415020.0
NAMES = ["Mercury", "Venus", "Mars", "Jupiter", "Saturn", "Uranus", "Neptune"]
HEADER = [
    "# Geocentric places of the planets, equator and equinox of 2000 as their elements have it, by PyEphem 4.1",
    "julian_day_ut,row,ra_h,dec_deg,distance_au,lit_fraction,diameter_arcsec,magnitude",
]


def rows(day):
    """The lines of the table for a Julian day of Universal Time."""
    for number, name in enumerate(NAMES, 1):
        body = getattr(ephem, name)(ephem.Date(day - DAY_OFFSET), epoch="2000")
        yield ",".join([f"{day:.6f}", str(number), f"{math.degrees(body.a_ra) / 15.0:.6f}",
                        f"{math.degrees(body.a_dec):.5f}", f"{body.earth_distance:.6f}", f"{body.phase / 100.0:.4f}",
                        f"{body.size:.2f}", f"{body.mag:.2f}"])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--project", type=Path, default=datatools.PROJECT, help="project folder to write into")
    arguments = parser.parse_args()
    first = ephem.Date((FIRST_YEAR, 1, 3.25)) + DAY_OFFSET
    last = ephem.Date((LAST_YEAR, 12, 20.75)) + DAY_OFFSET
    step = (last - first) / (COUNT - 1)
    lines = HEADER + [line for index in range(COUNT) for line in rows(first + step * index)]
    # Known event: Jupiter and Saturn a tenth of a degree apart on 21 December 2020, 18:20 UT.
    date = ephem.Date("2020/12/21 18:20")
    apart = math.degrees(ephem.separation(ephem.Jupiter(date), ephem.Saturn(date)))
    assert abs(apart - 0.102) < 0.003
    datatools.write_file(arguments.project / "tests/reference/planets.csv", "\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
