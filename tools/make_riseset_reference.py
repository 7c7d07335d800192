#!/usr/bin/python3
"""Makes tests/reference/riseset.csv: rising and setting of Sun and Moon by an independent ephemeris (PyEphem)."""

import argparse
import math
import random
from pathlib import Path

import ephem

import datatools

DAYS = 40
# Latitude, longitude, zone. None but the last two stands beyond a polar circle.
SITES = [(45.4642, 9.19, 1), (-33.8688, 151.2093, 10), (-0.1807, -78.4678, -5), (59.9139, 10.7522, 1),
         (-54.8019, -68.303, -3), (78.2232, 15.6267, 1), (-77.8419, 166.6863, 12)]
# Upper limb, with the refraction that the almanacs take.
HORIZON = "-0:34"
HEADER = [
    "# Rising and setting of the upper limb on a civil day, hours and degrees, by PyEphem 4.1; - for no event",
    "latitude,longitude,zone,year,month,day,body,rise,rise_azimuth,set,set_azimuth",
]


def events(observer, body, start, end, forward):
    """Times and azimuths of the events of one kind between two instants."""
    found = []
    at = start
    while True:
        observer.date = at
        try:
            at = forward(body)
        except (ephem.AlwaysUpError, ephem.NeverUpError):
            return found
        if at >= end:
            return found
        observer.date = at
        body.compute(observer)
        found.append((float(at), math.degrees(body.az)))
        at = ephem.Date(at + 2.0 / 1440.0)


def grazes(observer, body, start):
    """Whether the body comes within a degree of the horizon at its highest or lowest, where nothing is sharp."""
    altitudes = []
    for step in range(24 * 12 + 1):
        observer.date = start + step / 288.0
        body.compute(observer)
        altitudes.append(math.degrees(body.alt) + 0.8)
    return any((left - here) * (right - here) >= 0 and abs(here) < 1.5
               for left, here, right in zip(altitudes, altitudes[1:], altitudes[2:])) or \
        min(abs(altitudes[0]), abs(altitudes[-1])) < 0.3


def row(site, date, body):
    latitude, longitude, zone = site
    observer = ephem.Observer()
    observer.lat, observer.lon = str(latitude), str(longitude)
    observer.pressure, observer.elevation, observer.horizon = 0, 0, HORIZON
    start = ephem.Date(ephem.Date(date) - zone / 24.0)
    if grazes(observer, body, start):
        return None
    cells = []
    for forward in (observer.next_rising, observer.next_setting):
        found = events(observer, body, start, start + 1.0, forward)
        # A second event of one kind in a day would leave open which one counts.
        if len(found) > 1:
            return None
        cells += [f"{(found[0][0] - start) * 24.0:.4f}", f"{found[0][1]:.3f}"] if found else ["-", "-"]
    return ",".join([str(latitude), str(longitude), str(zone), *[str(part) for part in date], body.name] + cells)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--project", type=Path, default=datatools.PROJECT, help="project folder to write into")
    arguments = parser.parse_args()
    chance = random.Random(1)
    lines = []
    for index in range(DAYS):
        date = (1990 + index * 60 // (DAYS - 1), chance.randint(1, 12), chance.randint(1, 28))
        for body in (ephem.Sun(), ephem.Moon()):
            for site in SITES:
                lines.append(row(site, date, body))
    lines = [line for line in lines if line]
    datatools.write_file(arguments.project / "tests/reference/riseset.csv", "\n".join(HEADER + lines) + "\n")


if __name__ == "__main__":
    main()
