#!/usr/bin/python3
"""Makes data/elements/sample.txt: real element sets of June 2022, three lines to a satellite.

Whoever runs the program years after the epoch should still see these satellites, so a set is taken only if its
perigee stays above the decay limit in every month of six years, by the near-earth model that the program uses for
every orbit and by the full model as well. The space station and the Hubble telescope are in whatever comes of them.
"""

import collections
import math

from sgp4.api import WGS72, Satrec

import datatools
import nearearth

ALWAYS = ["25544", "20580"]
DECAY_LIMIT_KM = 98.0
MONTHS = 72
MINUTES_OF_MONTH = 30.4375 * 1440.0
INSTANTS_PER_MONTH = 24
HIGHEST_NUMBER = 99998
# Groups in the order of the file: name in the source, most sets to take.
GROUPS = [("stations", 5), ("visual", 62), ("observatory", 8), ("weather", 18), ("amateur", 28), ("molniya", 10),
          ("geostationary", 14), ("gps", 9), ("glonass", 6), ("galileo", 4), ("beidou", 4), ("qzss", 2), ("iridium", 3)]
# Well-known names are preferred where a group has more than its share.
PREFERRED = ("GOES", "METEOSAT", "ASTRA", "EUTELSAT", "INTELSAT", "INMARSAT", "TDRS", "HISPASAT", "GALAXY", "AMC", "NSS",
             "EXPRESS", "THOR", "DIRECTV", "TURKSAT", "HOT BIRD", "ES'HAIL")
MOST_OF_ONE_FAMILY = 2
LEFT_OUT = ("DEB", "OBJECT", "STARLINK", "ONEWEB")


def checksum_holds(line):
    total = sum(int(c) if c.isdigit() else c == "-" for c in line[:68])
    return line[68] == str(total % 10)


def well_formed(name, line1, line2):
    return (
        all(len(line) == 69 and line.isascii() and checksum_holds(line) for line in (line1, line2))
        and line1[:2] == "1 " and line2[:2] == "2 " and line1[2:7] == line2[2:7]
        and line1[2:7].isdigit() and int(line1[2:7]) <= HIGHEST_NUMBER
        and 0 < len(name) <= 24 and name.isascii() and name == name.upper() and name.strip() == name
    )


def lowest_perigee(line1, line2):
    """Lowest osculating perigee height in km over the months by either model; minus infinity if a model fails."""
    elements = nearearth.elements_of(line1, line2)
    full = Satrec.twoline2rv(line1, line2, WGS72)
    lowest = math.inf
    for step in range(MONTHS * INSTANTS_PER_MONTH + 1):
        minutes = step * MINUTES_OF_MONTH / INSTANTS_PER_MONTH
        try:
            near = nearearth.propagate(elements, minutes)
        except (ArithmeticError, ValueError):
            return -math.inf
        lowest = min(lowest, nearearth.perigee_height(*near))
        error, position, velocity = full.sgp4_tsince(minutes)
        if error:
            return -math.inf
        lowest = min(lowest, nearearth.perigee_height(position, velocity))
        if lowest <= DECAY_LIMIT_KM:
            return lowest
    return lowest


def check_near_earth_model():
    """The report's near-earth sample: its printed positions at the epoch and a day later."""
    elements = {"bstar": 0.66816e-4, "inclination": math.radians(72.8435), "node": math.radians(115.9689),
                "eccentricity": 0.0086731, "perigee": math.radians(52.6988), "anomaly": math.radians(110.5714),
                "motion": 16.05824518 * 2.0 * math.pi / 1440.0}
    for minutes, expected in ((0.0, (2328.97048951, -5995.22076416, 1719.97067261)),
                              (1440.0, (2742.55440194, -6079.67009123, -326.38095856))):
        position, _ = nearearth.propagate(elements, minutes)
        assert all(abs(x - y) < 0.05 for x, y in zip(position, expected)), (minutes, position)


def candidates(satellites, group):
    """The sets of a group, the wanted ones first: bright before faint, then preferred names, then by number."""
    found = []
    for number, entry in satellites.items():
        name = " ".join(entry["name"].upper().split())
        if group not in entry["groups"] or any(word in name for word in LEFT_OUT):
            continue
        if not well_formed(name, entry["tle1"], entry["tle2"]):
            continue
        brightness = entry.get("stdMag", 99.0) if group == "visual" else 0.0
        renown = 0 if name.startswith(PREFERRED) else 1
        known = 0 if entry.get("status", 1) == 1 else 1
        found.append((brightness, renown, known, int(number), name, entry["tle1"], entry["tle2"]))
    return [item[3:] for item in sorted(found)]


def main():
    arguments = datatools.parse_arguments(__doc__)
    check_near_earth_model()
    satellites = datatools.SatelliteResources(arguments.sources).satellites
    assert len(satellites) == 5018, len(satellites)
    chosen = {}
    for number in ALWAYS:
        entry = satellites[number]
        chosen[int(number)] = (entry["name"].upper(), entry["tle1"], entry["tle2"], "always")
    lowest = math.inf
    for group, wanted in GROUPS:
        taken = 0
        families = collections.Counter()
        for number, name, line1, line2 in candidates(satellites, group):
            if taken == wanted:
                break
            family = next((word for word in PREFERRED if name.startswith(word)), "")
            if number in chosen or (family and families[family] == MOST_OF_ONE_FAMILY):
                continue
            height = lowest_perigee(line1, line2)
            if height > DECAY_LIMIT_KM:
                lowest = min(lowest, height)
                chosen[number] = (name, line1, line2, group)
                families[family] += 1
                taken += 1
        print(f"{group}: {taken}")
    print(f"{len(chosen)} sets, lowest perigee in {MONTHS} months {lowest:.1f} km")
    deep = sum(1 for item in chosen.values() if float(item[2][52:63]) < 6.4)
    print(f"{deep} of them of deep space")
    assert 165 <= len(chosen) <= 185 and all(well_formed(*item[:3]) for item in chosen.values())
    assert all(item[1][18:20] == "22" for item in chosen.values())
    lines = [line for item in chosen.values() for line in item[:3]]
    datatools.write_file(arguments.project / "data/elements/sample.txt", "\r\n".join(lines) + "\r\n")


if __name__ == "__main__":
    main()
