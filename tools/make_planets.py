#!/usr/bin/python3
"""Makes data/planets.dat: mean elements of J2000 for the ten bodies.

Every body has a line with its name and a line with nine numbers: period in tropical years, longitude at epoch,
longitude of perihelion, eccentricity, semi-major axis in astronomical units, inclination, longitude of the node
(degrees), diameter at one astronomical unit in seconds of arc, magnitude at one astronomical unit. The angles and
axes are those of the approximate planetary elements of the Jet Propulsion Laboratory. The Sun's row holds its
diameter in degrees, the Moon's the constants of its mean orbit.
"""

import argparse
from pathlib import Path

import datatools

ROWS = """\
Mercury 0.24085185,252.250324,77.457796,0.20563593,0.38709927,7.004979,48.330766,6.74,-0.42
Venus 0.61521042,181.979099,131.602467,0.00677672,0.72333566,3.394676,76.679843,16.92,-4.4
Mars 1.88088821,355.446568,336.056370,0.09339410,1.52371034,1.849691,49.559539,9.36,-1.52
Jupiter 11.86286041,34.396441,14.728480,0.04838624,5.20288700,1.304397,100.473909,196.74,-9.4
Saturn 29.44863600,49.954244,92.598878,0.05386179,9.53667594,2.485992,113.662424,165.6,-8.88
Uranus 84.01932252,313.238105,170.954276,0.04725744,19.18916464,0.772638,74.016925,65.8,-7.19
Neptune 164.79382859,304.879970,44.964762,0.00859048,30.06992276,1.770043,131.784226,62.2,-6.87
Sun 0,0,0,0,0,0,0,0.533128,0
Moon 0,318.351648,36.340410,0.054900,0,5.145396,318.510107,0,0
Earth 1.00003881,100.464572,102.937682,0.01671123,1.00000261,0,0,0,0
"""


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--project", type=Path, default=datatools.PROJECT, help="project folder to write into")
    arguments = parser.parse_args()
    lines = []
    for row in ROWS.splitlines():
        name, numbers = row.split(" ")
        values = [float(text) for text in numbers.split(",")]
        assert len(values) == 9, row
        period, axis = values[0], values[4]
        # Kepler's third law holds to a thousandth; it catches a slip of digits in either figure.
        assert axis == 0 or abs(period / axis**1.5 - 1.0) < 2e-3, row
        lines += [name, numbers]
    assert len(lines) == 20
    datatools.write_file(arguments.project / "data/planets.dat", "\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
