#!/usr/bin/python3
"""Makes data/stars.bin: the 9010 brightest stars, brightest first, 35 bytes each."""

import math
import struct

import ephem

import datatools

STAR_COUNT = 9010
# Row counts at which the charts cut the catalogue, and the magnitude each stands for.
CUTS = [(9010, 6.5), (8523, 6.5), (5146, 6.0), (2906, 5.5), (1639, 5.0), (921, 4.5), (521, 4.0),
        (293, 3.5), (176, 3.0), (94, 2.5), (50, 2.0), (23, 1.5)]
# Latin stand-ins for the Greek letters, those of the Symbol font.
GREEK = {"alp": "a", "bet": "b", "gam": "g", "del": "d", "eps": "e", "zet": "z", "eta": "h", "the": "q",
         "iot": "i", "kap": "k", "lam": "l", "mu": "m", "nu": "n", "xi": "x", "omi": "o", "pi": "p",
         "rho": "r", "sig": "s", "tau": "t", "ups": "u", "phi": "f", "chi": "c", "psi": "y", "ome": "w"}
# Names longer than the sixteen characters of the record.
SHORT_NAMES = {"Talitha Australis": "Talitha Austr.", "Asellus Australis": "Asellus Austr.",
               "Alphekka Meridiana": "Alphekka Merid."}


def constellation_of(ra_hours, dec_degrees):
    position = (ra_hours * math.pi / 12.0, dec_degrees * math.pi / 180.0)
    short = ephem.constellation(position)[0]
    return "Ser" if short in ("Se1", "Se2") else short


def parse_star(line):
    """Splits one fixed-column line into right ascension, declination, magnitude and texts."""
    ra = int(line[0:2]) + int(line[2:4]) / 60.0 + float(line[4:9]) / 3600.0
    dec = int(line[11:13]) + int(line[13:15]) / 60.0 + float(line[15:19]) / 3600.0
    if line[10] == "-":
        dec = -dec
    parts = line.split(",")
    designation = parts[1] if len(parts) > 1 else ""
    name = parts[2].strip() if len(parts) > 2 else ""
    return {
        "ra": ra,
        "dec": dec,
        "magnitude": float(line[46:51]),
        "spectrum": line[56:58],
        "greek": GREEK.get(designation[1:4].strip(), ""),
        "index": designation[4:5].strip(),
        "constellation": designation[5:8].strip(),
        "name": SHORT_NAMES.get(name, name),
    }


def pack_star(star):
    letter = (star["greek"] + star["index"]) if star["greek"] else ""
    texts = "  " + star["spectrum"].ljust(2) + letter.ljust(2) + star["constellation"].ljust(3) + star["name"].ljust(16)
    assert len(texts) == 25, star
    return struct.pack("<ffh", star["ra"], star["dec"], round(star["magnitude"] * 100)) + texts.encode("ascii")


def main():
    arguments = datatools.parse_arguments(__doc__)
    source = arguments.sources / "kstars-data/usr/share/kstars/stars.dat"
    lines = source.read_text(encoding="utf-8").splitlines()
    stars = [parse_star(line) for line in lines if line.strip() and not line.startswith("#")]
    assert len(stars) == 125982, len(stars)
    stars = sorted(stars, key=lambda star: star["magnitude"])[:STAR_COUNT]
    for star in stars:
        if not star["constellation"]:
            star["constellation"] = constellation_of(star["ra"], star["dec"])
    content = b"".join(pack_star(star) for star in stars)

    assert len(content) == 35 * STAR_COUNT == 315350
    assert all(star["spectrum"].strip() for star in stars)
    assert len({star["constellation"] for star in stars}) == 88
    assert sum(1 for star in stars if star["greek"]) == 1493
    assert sum(1 for star in stars if star["name"]) == 224
    for count, limit in CUTS:
        magnitude = stars[count - 1]["magnitude"]
        print(f"row {count}: magnitude {magnitude:.2f}")
        assert abs(magnitude - limit) <= 0.06, (count, magnitude)
    datatools.write_file(arguments.project / "data/stars.bin", content)


if __name__ == "__main__":
    main()
