#!/usr/bin/python3
"""Makes data/clines.dat (646 segments of the constellation figures) and data/cnames.dat (89 labels)."""

import collections
import json
import math

import numpy

import datatools

SEGMENT_COUNT = 646
LABEL_COUNT = 89
FIGURE_COUNT = 88


def unit_vector(point):
    lon, lat = math.radians(point[0]), math.radians(point[1])
    return numpy.array([math.cos(lat) * math.cos(lon), math.cos(lat) * math.sin(lon), math.sin(lat)])


def angle(first, second):
    return math.degrees(math.atan2(numpy.linalg.norm(numpy.cross(first, second)), numpy.dot(first, second)))


def deviation(point, start, end):
    """Angle in degrees between a point and the great-circle arc from start to end."""
    p, a, b = unit_vector(point), unit_vector(start), unit_vector(end)
    normal = numpy.cross(a, b)
    normal /= numpy.linalg.norm(normal)
    across = math.asin(max(-1.0, min(1.0, float(numpy.dot(p, normal)))))
    foot = p - math.sin(across) * normal
    foot /= numpy.linalg.norm(foot)
    if angle(a, foot) + angle(foot, b) > angle(a, b) + 1e-9:
        return min(angle(p, a), angle(p, b))
    return abs(math.degrees(across))


class Figure:
    """The segments of one constellation as a graph; each edge keeps the vertices that were merged into it."""

    def __init__(self, short, polylines):
        self.short = short
        self.edges = {}
        for polyline in polylines:
            points = [tuple(point) for point in polyline]
            for start, end in zip(points, points[1:]):
                if start != end and (end, start) not in self.edges:
                    self.edges[(start, end)] = []

    def cheapest_merge(self):
        """Gives (deviation, vertex, edge, edge) of the vertex of degree two that is missed least, or None."""
        touching = collections.defaultdict(list)
        for edge in self.edges:
            touching[edge[0]].append(edge)
            touching[edge[1]].append(edge)
        best = None
        for vertex, edges in touching.items():
            if len(edges) != 2:
                continue
            start, end = (edge[0] if edge[1] == vertex else edge[1] for edge in edges)
            if start == end or (start, end) in self.edges or (end, start) in self.edges:
                continue
            dropped = self.edges[edges[0]] + self.edges[edges[1]] + [vertex]
            worst = max(deviation(point, start, end) for point in dropped)
            if best is None or worst < best[0]:
                best = (worst, vertex, start, end, edges, dropped)
        return best

    def merge(self, choice):
        _, _, start, end, edges, dropped = choice
        merged = {}
        for edge, kept in self.edges.items():
            if edge == edges[0]:
                merged[(start, end)] = dropped
            elif edge != edges[1]:
                merged[edge] = kept
        self.edges = merged


def read_figures(path):
    figures = collections.OrderedDict()
    for feature in json.loads(path.read_text(encoding="utf-8"))["features"]:
        figures.setdefault(feature["id"], []).extend(feature["geometry"]["coordinates"])
    return [Figure(short, polylines) for short, polylines in figures.items()]


def right_ascension(longitude):
    return round(longitude % 360.0 / 15.0 * 1000.0) % 24000


def declination(latitude):
    return round(latitude * 100.0)


def make_lines(path):
    figures = read_figures(path)
    count = sum(len(figure.edges) for figure in figures)
    assert count == 743 and len(figures) == FIGURE_COUNT, (count, len(figures))
    choices = {figure.short: figure.cheapest_merge() for figure in figures}
    largest = 0.0
    while count > SEGMENT_COUNT:
        figure = min((f for f in figures if choices[f.short]), key=lambda f: choices[f.short][0])
        largest = max(largest, choices[figure.short][0])
        figure.merge(choices[figure.short])
        choices[figure.short] = figure.cheapest_merge()
        count -= 1
    print(f"largest deviation of a merged vertex: {largest:.3f} degrees")
    assert largest < 0.52 and all(figure.edges for figure in figures)
    rows = [
        f'"{figure.short}",{right_ascension(a[0])},{declination(a[1])},{right_ascension(b[0])},{declination(b[1])}'
        for figure in figures
        for a, b in figure.edges
    ]
    assert len(rows) == SEGMENT_COUNT
    return "\n".join(rows) + "\n"


def make_names(path):
    rows = []
    for feature in json.loads(path.read_text(encoding="utf-8"))["features"]:
        name = feature["properties"]["name"].replace("ö", "o").replace("Corona Austrina", "Corona Australis")
        short = feature["id"]
        lon, lat = feature["geometry"]["coordinates"]
        assert name.isascii() and len(short) == 3, (name, short)
        rows.append(f'{right_ascension(lon)},{declination(lat)},"{name}","{short}"')
    assert len(rows) == LABEL_COUNT and len({row[-5:] for row in rows}) == FIGURE_COUNT
    return "\n".join(rows) + "\n"


def main():
    arguments = datatools.parse_arguments(__doc__)
    source = arguments.sources / "d3-celestial/data"
    datatools.write_file(arguments.project / "data/clines.dat", make_lines(source / "constellations.lines.json"))
    datatools.write_file(arguments.project / "data/cnames.dat", make_names(source / "constellations.json"))


if __name__ == "__main__":
    main()
