#!/usr/bin/python3
"""Makes data/landscape.dat: a drawn horizon around the sky disc, as a PNG with a key colour.

The circle inscribed in the square is the sky disc, altitude 0 at its edge. Hills, trees and one roof reach up at
most eight degrees; sky and corners are the key colour. The picture does not turn with the chart's orientation, so it
shows nothing that belongs to a direction. Every pixel is either exactly the key colour or one of two dark colours:
a mixture would leave a green fringe on the chart.
"""

import argparse
import io
import math
from pathlib import Path

import numpy
from PIL import Image

import datatools

SIZE = 2048
KEY = (0, 255, 0)
GROUND = (10, 14, 24)
RIDGE = (52, 66, 86)
HIGHEST_DEGREES = 8.0
RIDGE_PIXELS = 5.0
STEPS = 14400
# Chart radius of the horizon in degrees: altitude and distance from the edge go alike near the edge.
DISC_DEGREES = 90.0


def angles():
    return numpy.arange(STEPS) * 2.0 * math.pi / STEPS


def hills():
    """Rolling hills in degrees of altitude: a few waves with whole numbers of crests around the horizon."""
    random = numpy.random.default_rng(7)
    height = numpy.full(STEPS, 2.7)
    for crests, size in [(2, 0.4), (3, 0.65), (5, 0.6), (8, 0.42), (13, 0.25), (21, 0.14), (47, 0.05)]:
        height += size * numpy.sin(crests * angles() + random.uniform(0.0, 2.0 * math.pi))
    return numpy.maximum(height, 0.8)


def around(centre_degrees):
    """Distance along the horizon from a bearing, in units as long on the picture as a degree of altitude."""
    stretch = math.pi * DISC_DEGREES / 180.0
    return ((numpy.degrees(angles()) - centre_degrees + 180.0) % 360.0 - 180.0) * stretch


def raise_to(height, shape):
    numpy.maximum(height, shape, out=height)


def add_broadleaf(height, bearing, tall, random):
    """A round crown on a trunk, its outline bumpy like foliage."""
    x, base = around(bearing), height[int(bearing / 360.0 * STEPS)] - 0.2
    width = tall * random.uniform(0.4, 0.5)
    raise_to(height, numpy.where(abs(x) < 0.07 * tall, base + 0.5 * tall, 0.0))
    for part in (-0.8, -0.4, 0.0, 0.35, 0.75):
        shift, radius = part * width, width * random.uniform(0.5, 0.62)
        middle = base + tall - radius - abs(part) * 0.55 * tall * random.uniform(0.7, 1.0)
        arc = numpy.sqrt(numpy.maximum(0.0, radius**2 - (x - shift) ** 2))
        raise_to(height, numpy.where(abs(x - shift) < radius, middle + arc, 0.0))


def add_conifer(height, bearing, tall):
    """A narrow spire with stepped branches."""
    x, base = abs(around(bearing)), height[int(bearing / 360.0 * STEPS)] - 0.2
    half = 0.2 * tall
    part = x / half
    steps = 0.05 * tall * (1.0 - (part * 6.0) % 1.0)
    raise_to(height, numpy.where(part < 1.0, base + tall * (1.0 - part) * 0.92 + steps, 0.0))


def add_house(height, bearing):
    """One roof with a chimney, seen from the gable."""
    x, base = around(bearing), height[int(bearing / 360.0 * STEPS)] - 0.3
    wall, half = 1.4, 2.6
    raise_to(height, numpy.where(abs(x) < half, base + wall + 1.7 * (1.0 - abs(x) / half), 0.0))
    raise_to(height, numpy.where(abs(x - 1.3) < 0.25, base + wall + 1.75, 0.0))


def outline():
    height = hills()
    random = numpy.random.default_rng(11)
    # Groups of trees at irregular bearings, the tallest apart from each other.
    for start, count, conifers in [(14, 4, False), (47, 3, True), (81, 2, False), (118, 6, True), (152, 3, False),
                                   (203, 5, False), (236, 2, True), (267, 4, True), (311, 3, False), (338, 5, True)]:
        bearing = float(start)
        for _ in range(count):
            tall = random.uniform(1.9, 3.6)
            if conifers:
                add_conifer(height, bearing % 360.0, tall * 1.1)
            else:
                add_broadleaf(height, bearing % 360.0, tall, random)
            bearing += random.uniform(0.9, 2.2)
    add_house(height, 178.0)
    assert 0.5 < height.min() and height.max() <= HIGHEST_DEGREES, (height.min(), height.max())
    print(f"outline from {height.min():.1f} to {height.max():.1f} degrees, mean {height.mean():.1f}")
    return height


def draw(height):
    radius = SIZE / 2.0
    steps = numpy.arange(SIZE) + 0.5 - radius
    x, y = numpy.meshgrid(steps, steps)
    distance = numpy.hypot(x, y)
    index = (numpy.arctan2(x, -y) % (2.0 * math.pi) / (2.0 * math.pi) * STEPS).astype(int) % STEPS
    altitude = (radius - distance) / radius * DISC_DEGREES
    ground = (distance <= radius) & (altitude <= height[index])
    # The ridge line lies inside the ground: ground that is near to open sky in any direction.
    sky = ~ground & (distance <= radius)
    near = numpy.zeros_like(sky)
    reach = int(RIDGE_PIXELS)
    for dy in range(-reach, reach + 1):
        for dx in range(-reach, reach + 1):
            if dx * dx + dy * dy <= RIDGE_PIXELS**2:
                near |= numpy.roll(numpy.roll(sky, dy, axis=0), dx, axis=1)
    picture = numpy.empty((SIZE, SIZE), dtype=numpy.uint8)
    picture[:] = 0
    picture[ground] = 1
    picture[ground & near] = 2
    return picture


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--project", type=Path, default=datatools.PROJECT, help="project folder to write into")
    arguments = parser.parse_args()
    picture = draw(outline())
    assert picture[0, 0] == 0 and picture[SIZE // 2, SIZE // 2] == 0 and picture[SIZE - 2, SIZE // 2] == 1
    colours = numpy.array([KEY, GROUND, RIDGE], dtype=numpy.uint8)
    stream = io.BytesIO()
    Image.fromarray(colours[picture], "RGB").save(stream, "PNG", optimize=True)
    datatools.write_file(arguments.project / "data/landscape.dat", stream.getvalue())


if __name__ == "__main__":
    main()
