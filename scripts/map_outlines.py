#!/usr/bin/env python3
"""Turns the world's coasts and borders into map/data/orbisgrid-map.dat.

    npm pack world-atlas@2.0.2 && tar xzf world-atlas-2.0.2.tgz
    scripts/map_outlines.py package/countries-50m.json map/data/orbisgrid-map.dat

Needs Python's standard library alone. The source is TopoJSON: arcs on a grid, of which countries and
land are made. A coast belongs to one country, a border to two. The file:

    8 bytes     "ORBIMAP1"
    coasts      their number; of each the number of its points, then its points; closed, the first
                point is not repeated. Together, by the even-odd rule, they are the land; the north
                pole lies in the sea.
    borders     likewise, open
    details     two bits a point, in the same order, the lowest bits first: how far off the line the
                point lies that is drawn without it. 0: up to 1.25 km, 1: 2.5, 2: 5, 3: farther
    4 bytes     CRC-32 of all bytes before it, the lowest byte first

Numbers are written in groups of seven bits, the lowest group first, with the highest bit set in each
byte but the last. A point is the difference from the one before (the first of a line: from 0, 0) in
four hundredths of a degree of longitude and latitude, each as twice its value, or -1 less twice the
value if that is negative. Longitudes go the shorter way round.
"""

import json
import math
import pathlib
import sys
import zlib

UNITS = 400  # in a degree: 0.28 km along a meridian
TURN = 360 * UNITS
RADIUS = 6367  # km, as in the program
DETAILS = [1.25, 2.5, 5]  # km
POLE = -89.9  # degrees: the source closes Antarctica with a ring around the pole


def absolute(arc, transform):
    """The points of an arc in units, longitude and latitude."""
    (scale_x, scale_y), (shift_x, shift_y) = transform["scale"], transform["translate"]
    x = y = 0
    points = []
    for step_x, step_y in arc:
        x, y = x + step_x, y + step_y
        longitude, latitude = x * scale_x + shift_x, y * scale_y + shift_y
        points.append((round(longitude * UNITS), round(latitude * UNITS)))
    return points


def without_repeats(points, closed):
    """Neighbours that the grid has made equal, counting 180 degrees east and west as the same."""
    kept = []
    for x, y in points:
        if not kept or ((x - kept[-1][0]) % TURN, y) != (0, kept[-1][1]):
            kept.append((x, y))
    while closed and len(kept) > 1 and ((kept[0][0] - kept[-1][0]) % TURN, kept[0][1]) == (0, kept[-1][1]):
        kept.pop()
    return kept


def polygons(geometry):
    arcs = geometry.get("arcs", [])
    return arcs if geometry["type"] == "MultiPolygon" else [arcs] if arcs else []


def lines_of(world):
    """Coasts (closed) and borders (open), in units."""
    arcs = [absolute(arc, world["transform"]) for arc in world["arcs"]]
    uses = [0] * len(arcs)
    for country in world["objects"]["countries"]["geometries"]:
        for rings in polygons(country):
            for ring in rings:
                for arc in ring:
                    uses[arc if arc >= 0 else ~arc] += 1
    coasts = []
    for geometry in world["objects"]["land"]["geometries"]:
        for rings in polygons(geometry):
            for ring in rings:
                points = []
                for arc in ring:
                    assert uses[arc if arc >= 0 else ~arc] == 1, "a coast belongs to one country"
                    points += arcs[arc] if arc >= 0 else arcs[~arc][::-1]
                points = without_repeats(points, True)
                if len(points) >= 3 and max(y for _, y in points) > POLE * UNITS:
                    coasts.append(points)
    borders = [without_repeats(arcs[i], False) for i, count in enumerate(uses) if count == 2]
    return coasts, [points for points in borders if len(points) >= 2]


def direction(point):
    longitude, latitude = (math.radians(value / UNITS) for value in point)
    return (math.cos(latitude) * math.cos(longitude), math.cos(latitude) * math.sin(longitude),
            math.sin(latitude))


def dot(a, b):
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def distance(point, start, end):
    """Radians between a point and the great circle's part from start to end."""
    normal = cross(start, end)
    length = math.sqrt(dot(normal, normal))
    if length > 1e-12:
        normal = tuple(value / length for value in normal)
        if dot(cross(normal, start), point) >= 0 and dot(cross(end, normal), point) >= 0:
            return math.asin(min(1, abs(dot(point, normal))))
    return min(math.dist(point, start), math.dist(point, end))


def significances(points, closed):
    """Of each point how far the line goes wrong without it (Douglas and Peucker), in radians. No
    point counts for more than the one that was chosen before it."""
    places = [direction(point) for point in points]
    found = [math.inf] * len(places)
    if closed:
        far = max(range(len(places)), key=lambda i: math.dist(places[0], places[i]))
        places.append(places[0])
        spans = [(0, far, math.inf), (far, len(places) - 1, math.inf)]
    else:
        spans = [(0, len(places) - 1, math.inf)]
    while spans:
        start, end, most = spans.pop()
        if end - start < 2:
            continue
        worst = max(range(start + 1, end), key=lambda i: distance(places[i], places[start], places[end]))
        found[worst] = most = min(most, distance(places[worst], places[start], places[end]))
        spans += [(start, worst, most), (worst, end, most)]
    return found


def number(value):
    groups = []
    while True:
        groups.append(value & 0x7F | (0x80 if value > 0x7F else 0))
        value >>= 7
        if value == 0:
            return bytes(groups)


def signed(value):
    return number(2 * value if value >= 0 else -1 - 2 * value)


def encoded(points):
    result = number(len(points))
    x = y = 0
    for next_x, next_y in points:
        step = (next_x - x + TURN // 2) % TURN - TURN // 2
        result += signed(step) + signed(next_y - y)
        x, y = next_x, next_y
    return result


def file_of(coasts, borders):
    result = bytearray(b"ORBIMAP1")
    levels = []
    for lines, closed in ((coasts, True), (borders, False)):
        result += number(len(lines))
        for points in lines:
            result += encoded(points)
            levels += [sum(value * RADIUS > limit for limit in DETAILS)
                       for value in significances(points, closed)]
    for i in range(0, len(levels), 4):
        result.append(sum(level << 2 * place for place, level in enumerate(levels[i:i + 4])))
    return bytes(result) + zlib.crc32(result).to_bytes(4, "little"), levels


def main():
    if len(sys.argv) != 3:
        print(__doc__)
        return 2
    coasts, borders = lines_of(json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")))
    data, levels = file_of(coasts, borders)
    pathlib.Path(sys.argv[2]).write_bytes(data)
    print(f"{len(coasts)} coasts, {len(borders)} borders, {len(levels)} points, {len(data)} bytes; "
          f"points by detail: {[levels.count(level) for level in range(len(DETAILS) + 1)]}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
