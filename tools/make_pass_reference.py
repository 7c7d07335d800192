#!/usr/bin/python3
"""Makes tests/reference/outside_passes.txt: passes of thirty satellites over three sites and three days.

Positions come from the 2006 code of Vallado et al. (Debian's python3-sgp4, gravity constants of 1972), turned with
the Earth by the IAU 1982 sidereal time and seen from the ellipsoid of 1984, without refraction. A pass is a highest
place above the threshold with the crossings around it; all are found by looking at the elevation again and again,
not by a search like the program's.
"""

import math
import sys

import datatools

SITES = [(45.4642, 9.19, 122.0), (-0.1807, -78.4678, 2850.0), (78.2232, 15.6267, 10.0)]
SAMPLE_START = 2459746.5  # 16 June 2022, near the epochs of the sample
THRESHOLD = 10.0  # degrees
# Of the sample: low orbits, then a Molniya, a geostationary satellite, two of navigation, another Molniya.
CHOSEN = ("25544 20580 16908 22220 28931 25860 33591 07530 25338 37849 11060 28654 28485 33053 37839 27844 27607 23439 "
          "24278 24793 00694 20625 05730 07376 41105 24876 19751 13012").split()
NEVER_SETS = "27540"  # over the north between its perigees
DECAYING = "29141"  # of the verification sets: comes down 440 minutes after its epoch


def sidereal_angle(jd):
    """Greenwich mean sidereal time, radians (IAU 1982)."""
    t = (jd - 2451545.0) / 36525.0
    seconds = 67310.54841 + (876600.0 * 3600 + 8640184.812866) * t + 0.093104 * t * t - 6.2e-6 * t**3
    return math.radians(seconds % 86400.0 / 240.0)


class Observer:
    """A place on the ellipsoid of 1984."""

    def __init__(self, latitude, longitude, height):
        self.latitude, self.longitude = math.radians(latitude), math.radians(longitude)
        flattening = 1 / 298.257223563
        square = flattening * (2 - flattening)
        normal = 6378.137 / math.sqrt(1 - square * math.sin(self.latitude) ** 2)
        self.axis_distance = (normal + height / 1000) * math.cos(self.latitude)
        self.z = (normal * (1 - square) + height / 1000) * math.sin(self.latitude)

    def see(self, place, angle):
        """Elevation and azimuth in degrees of an inertial place, at a sidereal angle."""
        theta = angle + self.longitude
        x = place[0] * math.cos(theta) + place[1] * math.sin(theta)
        y = place[1] * math.cos(theta) - place[0] * math.sin(theta)
        dx, dz = x - self.axis_distance, place[2] - self.z
        up = dx * math.cos(self.latitude) + dz * math.sin(self.latitude)
        north = dz * math.cos(self.latitude) - dx * math.sin(self.latitude)
        return math.degrees(math.atan2(up, math.hypot(y, north))), math.degrees(math.atan2(y, north)) % 360


class Orbit:
    """Places of a satellite; those on the grid are kept for all sites."""

    def __init__(self, line1, line2, start, days):
        from sgp4.api import WGS72, Satrec

        self.satellite, self.start, self.span = Satrec.twoline2rv(line1, line2, WGS72), start, days * 86400
        self.near = 2 * math.pi / self.satellite.no_kozai < 225.0
        self.stride = 20 if self.near else 120
        self.grid = [self.at(second) for second in range(0, self.span + 1, self.stride)]
        self.until = next((i * self.stride for i, place in enumerate(self.grid) if place is None), self.span)

    def at(self, second):
        error, place, _ = self.satellite.sgp4(self.start, second / 86400)
        return None if error else (place, sidereal_angle(self.start + second / 86400))


class Passes:
    """The passes of an orbit over a place until its places end."""

    def __init__(self, orbit, observer):
        self.orbit, self.observer = orbit, observer
        stride, last = orbit.stride, orbit.until // orbit.stride - (1 if orbit.until < orbit.span else 0)
        self.end = last * stride
        f = [observer.see(*orbit.grid[i])[0] for i in range(last + 1)]
        self.samples = f
        self.rows = []
        for i in range(last + 1):
            before, after = f[max(i - 1, 0)], f[min(i + 1, last)]
            if before < f[i] >= after or (i == 0 and f[0] >= f[1]) or (i == last and f[last] > f[last - 1]):
                top = self.highest(max(i - 1, 0) * stride, min(i + 1, last) * stride)
                if self.elevation(top) > THRESHOLD:
                    self.rows.append((self.crossing(top, -1), top, self.crossing(top, 1)))

    def see(self, second):
        return self.observer.see(*self.orbit.at(second))

    def elevation(self, second):
        return self.see(second)[0]

    def highest(self, low, high):
        ratio = (math.sqrt(5) - 1) / 2
        while high - low > 1e-3:
            a, b = high - ratio * (high - low), low + ratio * (high - low)
            if self.elevation(a) < self.elevation(b):
                low = a
            else:
                high = b
        # the ends of the span may be the highest places themselves
        if low < 1e-2:
            return 0
        return self.end if high > self.end - 1e-2 else (low + high) / 2

    def crossing(self, top, direction):
        """The instant at which the threshold is crossed on one side of a top, or the end of the span there."""
        stride = self.orbit.stride
        inside, outside = top, (math.floor(top / stride) if direction < 0 else math.ceil(top / stride)) * stride
        while 0 <= outside <= self.end and self.samples[outside // stride] > THRESHOLD:
            inside, outside = outside, outside + direction * stride
        if not 0 <= outside <= self.end:
            return 0 if direction < 0 else self.end
        while abs(outside - inside) > 1e-3:
            middle = (inside + outside) / 2
            if self.elevation(middle) > THRESHOLD:
                inside = middle
            else:
                outside = middle
        return (inside + outside) / 2


def sets_of(project):
    lines = (project / "data/elements/sample.txt").read_text(encoding="ascii").splitlines()
    by_number = {lines[i + 1][2:7]: lines[i : i + 3] for i in range(0, len(lines), 3)}
    for number in CHOSEN:
        yield by_number[number], SAMPLE_START, 3
    yield by_number[NEVER_SETS], SAMPLE_START + 0.5, 2
    lines = (project / "tests/reference/sgp4-2006.tle").read_text(encoding="ascii").splitlines()
    at = next(i for i, line in enumerate(lines) if line.startswith(f"1 {DECAYING}"))
    yield lines[at - 1 : at + 2], 2453905.5 + 0.27, 3  # shortly after the epoch


def main():
    arguments = datatools.parse_arguments(__doc__)
    sys.path.insert(0, str(arguments.sources / "python3-sgp4/usr/lib/python3/dist-packages"))
    rows = [
        "# Made by tools/make_pass_reference.py from positions of python3-sgp4 (MIT), no part of this program.",
        "# run|name|line 1|line 2|near or deep|latitude|longitude|height|start (Julian day)|days|seconds covered; then its",
        "# passes, seconds after the start: rise|azimuth|culmination|elevation|set|azimuth",
    ]
    count = 0
    for (name, line1, line2), start, days in sets_of(arguments.project):
        orbit = Orbit(line1, line2, start, days)
        for latitude, longitude, height in SITES:
            passes = Passes(orbit, Observer(latitude, longitude, height))
            kind = "near" if orbit.near else "deep"
            cells = ["run", name.strip(), line1, line2, kind, latitude, longitude, f"{height:g}", start, days, passes.end]
            rows.append("|".join(map(str, cells)))
            for rise, top, fall in passes.rows:
                cells = [f"{rise:.1f}", f"{passes.see(rise)[1]:.2f}", f"{top:.1f}", f"{passes.elevation(top):.3f}"]
                rows.append("|".join(cells + [f"{fall:.1f}", f"{passes.see(fall)[1]:.2f}"]))
            count += len(passes.rows)
    print(f"{count} passes")
    datatools.write_file(arguments.project / "tests/reference/outside_passes.txt", "\n".join(rows) + "\n")


if __name__ == "__main__":
    main()
