#!/usr/bin/python3
"""Makes tests/reference/sun_moon.csv: apparent places of Sun and Moon by an independent ephemeris (PyEphem)."""

import argparse
import math
from pathlib import Path

import ephem

import datatools

COUNT = 60
FIRST_YEAR, LAST_YEAR = 1990, 2050
# PyEphem counts days from noon of the last day of 1899.
DAY_OFFSET = 2415020.0
KM_OF_AU = 149597870.7
EARTH_RADIUS_KM = 6378.137
HEADER = [
    "# Apparent geocentric places of Sun and Moon, true equator and equinox of date, by PyEphem 4.1",
    "julian_day_ut,sun_ra_h,sun_dec_deg,sun_distance_km,moon_ra_h,moon_dec_deg,moon_distance_km,moon_minus_sun_longitude_deg",
]


def row(day):
    """One line of the table for a Julian day of Universal Time."""
    date = ephem.Date(day - DAY_OFFSET)
    sun, moon = ephem.Sun(date), ephem.Moon(date)
    # Apparent places carry the attributes g_ra and g_dec; ecliptic longitudes are taken of the same date.
    longitudes = [float(ephem.Ecliptic(ephem.Equatorial(body.g_ra, body.g_dec, epoch=date), epoch=date).lon)
                  for body in (sun, moon)]
    difference = math.degrees(longitudes[1] - longitudes[0]) % 360.0
    values = []
    for body in (sun, moon):
        values += [f"{math.degrees(body.g_ra) / 15.0:.7f}", f"{math.degrees(body.g_dec):.6f}"]
        values += [f"{body.earth_distance * KM_OF_AU:.1f}"]
    return ",".join([f"{day:.6f}"] + values + [f"{difference:.5f}"])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--project", type=Path, default=datatools.PROJECT, help="project folder to write into")
    arguments = parser.parse_args()
    first = ephem.Date((FIRST_YEAR, 1, 3.25)) + DAY_OFFSET
    last = ephem.Date((LAST_YEAR, 12, 20.75)) + DAY_OFFSET
    step = (last - first) / (COUNT - 1)
    lines = HEADER + [row(first + step * index) for index in range(COUNT)]
    # Known event: the equinox of 20 March 2000, 07:35 UT.
    equinox = ephem.Sun(ephem.Date("2000/3/20 07:35"))
    assert abs(math.degrees(equinox.g_dec)) < 0.001
    datatools.write_file(arguments.project / "tests/reference/sun_moon.csv", "\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
