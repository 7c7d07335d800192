#!/usr/bin/python3
"""Makes tests/reference/subpoints.csv: where the sample's satellites stand over the Earth, each second of a minute.

Near-earth sets go through the 2006 code of Vallado et al. (Debian's python3-sgp4, gravity constants of 1972); for
deep-space sets, which the program's default model treats as near-earth ones, through the plain model in nearearth.py.
The Earth turns by the IAU 1982 sidereal time, in full precision. Latitudes are geocentric.
"""
import math
import pathlib
import sys

from sgp4.api import WGS72, Satrec

import nearearth

ROOT = pathlib.Path(__file__).resolve().parent.parent
START = (2459744.5, (20 * 3600 + 8 * 60 + 41) / 86400.0)  # 14 June 2022, 20:08:41 UT
SECONDS = 62


def sidereal_angle(jd, fraction):
    """Greenwich mean sidereal time, radians (IAU 1982)."""
    t = (jd - 2451545.0 + fraction) / 36525.0
    seconds = 67310.54841 + (876600.0 * 3600 + 8640184.812866) * t + 0.093104 * t * t - 6.2e-6 * t**3
    return math.radians(seconds % 86400.0 / 240.0)


def position(line1, line2, jd, fraction):
    satellite = Satrec.twoline2rv(line1, line2, WGS72)
    if 2 * math.pi / satellite.no_kozai < 225.0:
        error, place, _ = satellite.sgp4(jd, fraction)
        if error:
            raise ArithmeticError(f"model error {error}")
        return place
    minutes = (jd - satellite.jdsatepoch + fraction - satellite.jdsatepochF) * 1440.0
    return nearearth.propagate(nearearth.elements_of(line1, line2), minutes)[0]


def main():
    lines = (ROOT / "data/elements/sample.txt").read_text().splitlines()
    rows = ["# " + __doc__.splitlines()[0].replace("Makes tests/reference/subpoints.csv: ", "").capitalize()
            + " Rows: catalogue number, then for each second latitude and longitude (east) in thousandths of a degree,"
            " the first as such, the others as differences. Made by tools/make_subpoint_reference.py"]
    for at in range(0, len(lines), 3):
        line1, line2 = lines[at + 1], lines[at + 2]
        cells, last = [line1[2:7]], (0, 0)
        for second in range(SECONDS):
            fraction = START[1] + second / 86400.0
            x, y, z = position(line1, line2, START[0], fraction)
            latitude = math.degrees(math.asin(z / math.sqrt(x * x + y * y + z * z)))
            longitude = math.degrees(math.atan2(y, x) - sidereal_angle(START[0], fraction))
            longitude = (longitude + 540.0) % 360.0 - 180.0
            here = (round(latitude * 1000), round(longitude * 1000))
            cells += [str(here[0] - last[0]), str(here[1] - last[1])]
            last = here
        rows.append(",".join(cells))
    (ROOT / "tests/reference/subpoints.csv").write_text("\n".join(rows) + "\n")


sys.exit(main())
