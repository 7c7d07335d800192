#!/usr/bin/python3
"""Makes tests/reference/sky_evening.csv: azimuths and altitudes in Milan on two hours of June 2022 by an
independent ephemeris (PyEphem), without refraction."""

import argparse
import math
from pathlib import Path

import ephem

INSTANTS = ["2022/6/15 20:30:00", "2022/6/16 02:30:00"]
BODIES = ["Mercury", "Venus", "Mars", "Jupiter", "Saturn", "Uranus", "Neptune", "Sun", "Moon"]
STARS = ["Vega", "Arcturus", "Alcaid", "Polaris", "Antares"]
HEADER = [
    "# Apparent places seen from Milan (45.4642 north, 9.19 east), without refraction, by PyEphem 4.1",
    "utc,object,azimuth_deg,altitude_deg",
]


def rows():
    site = ephem.Observer()
    site.lat, site.lon, site.elevation, site.pressure = "45.4642", "9.19", 122, 0
    for instant in INSTANTS:
        site.date = instant
        for name in BODIES + STARS:
            place = getattr(ephem, name)() if name in BODIES else ephem.star(name)
            place.compute(site)
            yield f"{instant},{name},{math.degrees(place.az):.3f},{math.degrees(place.alt):.3f}"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("target", nargs="?", default="tests/reference/sky_evening.csv")
    Path(parser.parse_args().target).write_text("\n".join(HEADER + list(rows())) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
