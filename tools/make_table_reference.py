#!/usr/bin/python3
"""Makes tests/reference/tables.csv: tables of one and of two satellites in all four sets of coordinates.

Positions and velocities come from the 2006 code of Vallado et al. (Debian's python3-sgp4, gravity constants of 1972).
Everything else is computed here in full precision: IAU 1982 sidereal time, the ellipsoid of 1984, the Sun of the
Astronomical Almanac's low-precision formulae, a cylindrical shadow.
"""
import datetime
import math
import pathlib
import sys

from sgp4.api import WGS72, Satrec, jday

ROOT = pathlib.Path(__file__).resolve().parent.parent
SITES = (("Italy: Milano", 45.47, 9.19, 122.0, 1.0, 1), ("Fiji: Suva", -18.13, 178.45, 10.0, 12.0, 0))
SETS = {"25544": -1.3, "20580": 2.2}
START = datetime.datetime(2022, 6, 14, 6, 4, 0)  # Universal Time
STEP, ROWS = 480, 13
SUN_LIMIT = -6.0  # degrees; with a higher Sun nothing is observable
EQUATOR, FLATTENING = 6378.137, 1 / 298.257223563


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def size(a):
    return math.sqrt(dot(a, a))


def minus(a, b):
    return [x - y for x, y in zip(a, b)]


def turned(v, angle):
    """About the axis of the Earth."""
    c, s = math.cos(angle), math.sin(angle)
    return [c * v[0] + s * v[1], c * v[1] - s * v[0], v[2]]


def sidereal_angle(jd):
    t = (jd - 2451545.0) / 36525.0
    seconds = 67310.54841 + (876600.0 * 3600 + 8640184.812866) * t + 0.093104 * t * t - 6.2e-6 * t**3
    return math.radians(seconds % 86400.0 / 240.0)


def sun_direction(jd):
    """Unit vector towards the Sun, true equator of date."""
    n = jd - 2451545.0
    g = math.radians(357.528 + 0.9856003 * n)
    lon = math.radians(280.460 + 0.9856474 * n + 1.915 * math.sin(g) + 0.020 * math.sin(2 * g))
    eps = math.radians(23.439 - 4.0e-7 * n)
    return [math.cos(lon), math.cos(eps) * math.sin(lon), math.sin(eps) * math.sin(lon)]


def observer(latitude, longitude, height):
    """Place, zenith, east and north, all Earth-fixed."""
    p, l = math.radians(latitude), math.radians(longitude)
    e2 = FLATTENING * (2 - FLATTENING)
    n = EQUATOR / math.sqrt(1 - e2 * math.sin(p) ** 2)
    h = height / 1000
    up = [math.cos(p) * math.cos(l), math.cos(p) * math.sin(l), math.sin(p)]
    place = [(n + h) * up[0], (n + h) * up[1], (n * (1 - e2) + h) * up[2]]
    return place, up, [-math.sin(l), math.cos(l), 0], [-math.sin(p) * math.cos(l), -math.sin(p) * math.sin(l), math.cos(p)]


def geodetic_height(r):
    e2 = FLATTENING * (2 - FLATTENING)
    across = math.hypot(r[0], r[1])
    latitude = math.atan2(r[2], across)
    for _ in range(8):
        n = EQUATOR / math.sqrt(1 - e2 * math.sin(latitude) ** 2)
        latitude = math.atan2(r[2] + n * e2 * math.sin(latitude), across)
    return across * math.cos(latitude) + r[2] * math.sin(latitude) - EQUATOR * math.sqrt(1 - e2 * math.sin(latitude) ** 2)


class View:
    """One satellite from one site at one instant."""

    def __init__(self, satellite, standard, site, when):
        jd, fraction = jday(when.year, when.month, when.day, when.hour, when.minute, when.second)
        error, self.r, self.v = satellite.sgp4(jd, fraction)
        assert error == 0
        theta = sidereal_angle(jd + fraction)
        place, up, east, north = observer(*site[1:4])
        fixed = turned(self.r, theta)
        ray = minus(fixed, place)
        self.range = size(ray)
        ray = [x / self.range for x in ray]
        self.topocentric = ray
        self.elevation = math.degrees(math.asin(dot(ray, up)))
        self.azimuth = math.degrees(math.atan2(dot(ray, east), dot(ray, north))) % 360
        self.latitude = math.degrees(math.asin(self.r[2] / size(self.r)))
        self.longitude = (math.degrees(math.atan2(fixed[1], fixed[0])) + 540) % 360 - 180
        self.height = geodetic_height(self.r)
        apparent = turned(ray, -theta)
        self.ra = math.degrees(math.atan2(apparent[1], apparent[0])) % 360 * 240  # seconds
        self.dec = math.degrees(math.asin(apparent[2])) * 60  # minutes
        sun = sun_direction(jd + fraction)
        sun_fixed = turned(sun, theta)
        self.sun = math.degrees(math.asin(dot(sun_fixed, up)))
        cosine = -dot(ray, sun_fixed)
        self.phase = 180 - math.degrees(math.acos(cosine))
        along = dot(sun, self.r)
        eclipsed = along < 0 and math.sqrt(dot(self.r, self.r) - along * along) < 6378.135
        self.condition = 1 if eclipsed else 2 if self.sun < SUN_LIMIT and self.elevation > 0 else 3
        self.lit = 0.0 if eclipsed else (1 + cosine) / 2
        self.magnitude = "" if eclipsed else (
            f"{standard - 15.75 + 2.5 * math.log10(self.range**2 / self.lit):.4f}")

    def cells(self, code):
        if code == 1:
            return [self.elevation, self.azimuth, self.range, self.height, self.magnitude, self.lit * 100,
                    self.phase, self.sun, self.condition]
        if code == 2:
            return [*self.r, size(self.r), *self.v, size(self.v)]
        if code == 3:
            return [self.latitude, self.longitude, self.height]
        return [self.ra, self.dec]


def angle(a, b):
    return math.degrees(math.acos(max(-1.0, min(1.0, dot(a, b) / size(a) / size(b)))))


def compared(a, b, code):
    distance = size(minus(a.r, b.r))
    if code == 1:
        own = [[v.elevation, v.azimuth, v.height] for v in (a, b)]
        return [angle(a.r, b.r), angle(a.topocentric, b.topocentric), distance, *own[0], *own[1]]
    if code == 2:
        return [*a.r, *b.r, distance]
    if code == 3:
        apart = abs(a.longitude - b.longitude)
        return [abs(a.latitude - b.latitude), min(apart, 360 - apart), distance, *a.cells(3), *b.cells(3)]
    return [abs(a.ra - b.ra), abs(a.dec - b.dec), distance, a.ra, a.dec, b.ra, b.dec]


def text(value):
    return value if isinstance(value, str) else str(value) if isinstance(value, int) else f"{value:.4f}"


def main():
    lines = (ROOT / "data/elements/sample.txt").read_text().splitlines()
    rows = ["# Tables of one and of two satellites, made by tools/make_table_reference.py. site: place, latitude,"
            " longitude, height (m), zone, daylight saving; then for it rows of one satellite (one) and of two (two):"
            " code, civil time, values in the order of the table, right ascensions in seconds, declinations in minutes"]
    sets = []
    for number, standard in SETS.items():
        at = next(i for i, line in enumerate(lines) if line.startswith("1 " + number))
        rows.append("set," + ",".join([lines[at - 1], lines[at], lines[at + 1], str(standard)]))
        sets.append((Satrec.twoline2rv(lines[at], lines[at + 1], WGS72), standard))
    for site in SITES:
        rows.append("site," + ",".join(map(str, site)))
        for row in range(ROWS):
            when = START + datetime.timedelta(seconds=STEP * row)
            civil = when + datetime.timedelta(hours=site[4] + site[5])
            a, b = (View(satellite, standard, site, when) for satellite, standard in sets)
            for code in (1, 2, 3, 4):
                for kind, cells in (("one", a.cells(code)), ("two", compared(a, b, code))):
                    rows.append(",".join([kind, str(code), civil.strftime("%d %b %Y  %H:%M:%S"), *map(text, cells)]))
    (ROOT / "tests/reference/tables.csv").write_text("\n".join(rows) + "\n")


sys.exit(main())
