#!/usr/bin/env python3
"""Works the expected values of the numeric tables in tests/data out again, from the definitions and
without the program: in Python's doubles, with singles rounded by IEEE 754's binary32.

    scripts/check_tables.py [table ...]

Exit status: 1 where a row differs. Vincenty's table has GeographicLib's values instead; it is not
looked at here."""

import datetime
import decimal
import math
import pathlib
import re
import struct
import sys

DATA = pathlib.Path(__file__).resolve().parent.parent / "tests" / "data"


def single(value):
    return struct.unpack("f", struct.pack("f", value))[0]


# Texts of numbers --------------------------------------------------------------------------------

def digits(value, count):
    """`count` significant digits of the exact value, no exponent, no trailing zeros, no -0."""
    if value == 0:
        return "0"
    if math.isinf(value) or math.isnan(value):
        return str(value)
    text = format(decimal.Decimal(f"{value:.{count - 1}e}"), "f")
    return text.rstrip("0").rstrip(".") if "." in text else text


def signed(text):
    return text if text.startswith("-") else " " + text


def half_away(value, decimals=0):
    step = decimal.Decimal(1).scaleb(-decimals)
    return decimal.Decimal(value).quantize(step, decimal.ROUND_HALF_UP)


def mask(value, count):
    whole = int(half_away(value))
    return ("-" if whole < 0 else "") + str(abs(whole)).zfill(count)


def leading(text):
    found = re.match(r" *([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))", text)
    return float(found.group(1)) + 0.0 if found else 0.0


def five_decimals(value):
    text = format(half_away(abs(value), 5), "f").rstrip("0")
    return ("-" if value < 0 else "") + text.removeprefix("0")


# Locators ----------------------------------------------------------------------------------------

def completed(locator, length):
    return locator + "....LL55AA"[len(locator):length] if 4 <= len(locator) < length else locator


def centre(locator):
    c = [ord(character) for character in locator]
    return ((c[1] - 65) * 10 - 90 + (c[3] - 48) + (c[5] - 64.5) / 24,
            (c[0] - 65) * 20 - 180 + (c[2] - 48) * 2 + (c[4] - 64.5) / 12)


def six(latitude, longitude):
    letters = []
    for value, size in ((longitude + 180, 20), (latitude + 90, 10)):
        field = value / size
        square = (field - math.floor(field)) * 10
        subsquare = (square - math.floor(square)) * 24
        letters.append((math.floor(field) + 65, math.floor(square) + 48,
                        math.floor(subsquare) + 65))
    if any(abs(codes[0] - 65) > 32767 - 65 and codes[0] - 65 != -32768 for codes in letters):
        return None
    if any(not 0 <= code <= 255 for codes in letters for code in codes):
        return None
    return "".join(chr(letters[axis][pair]) for pair in range(3) for axis in range(2))


def corner(locator):
    c = [ord(character) - (48 if i // 2 % 2 else 65) for i, character in enumerate(locator[:10])]
    south = single((((c[5] / 24) + c[3]) / 10 + c[1]) * 10 - 90)
    west = single((((c[4] / 24) + c[2]) / 10 + c[0]) * 20 - 180)
    return (single(south + ((c[9] / 24) + c[7]) / 10 / 24),
            single(west + ((c[8] / 24) + c[6]) / 10 / 12))


def sexagesimal(magnitude):
    degrees = math.floor(magnitude)
    minutes = (magnitude - degrees) * 60
    return degrees, math.floor(minutes), (minutes - math.floor(minutes)) * 60


# The distance, each step stored as single --------------------------------------------------------

PI = single(math.pi)
RAD = single(PI / 180)


def point(locator):
    c = completed(locator, 6)
    c = c[:2].upper() + c[2:4] + c[4:].lower()
    return (single(10 * (ord(c[1]) - 65) - 90 + int(c[3]) + (ord(c[5]) - 97) / 24 + 1 / 48),
            single(180 - 20 * (ord(c[0]) - 65) - 2 * int(c[2]) - (ord(c[4]) - 97) / 12 - 1 / 24))


def circle(home, target):
    lat_h, lon_h, lat_t, lon_t = (single(value * RAD) for value in (*home, *target))
    sin_h, cos_h = single(math.sin(lat_h)), single(math.cos(lat_h))
    sin_t, cos_t = single(math.sin(lat_t)), single(math.cos(lat_t))
    cosd = single(sin_h * sin_t + cos_h * cos_t * math.cos(lon_t - lon_h))
    cosd = 1.0 if home == target else max(-1.0, min(1.0, cosd))
    s = single(math.sqrt(1 - cosd * cosd))
    d = single(math.atan(s / cosd)) if cosd else 0.0
    d = single(d + PI) if cosd < 0 else d
    if s == 0:
        return single(6367 * d), 0.0
    t = max(-1.0, min(1.0, single((sin_t - sin_h * cosd) / (s * cos_h))))
    u = single(math.sqrt(1 - t * t))
    az = single(math.atan(u / abs(t)) / RAD) if t else 90.0
    az = -az if single(math.sin(lon_h - lon_t)) < 0 else az
    az = single(180 - az) if t < 0 else az
    az = single(az + 360) if az < 0 else az
    return single(6367 * d), single(az - 360) if az >= 360 else az


# APRS --------------------------------------------------------------------------------------------

def compressed(latitude, longitude):
    def group(value):
        whole = round(value)  # halves to even
        if not -2**31 <= whole < 2**31:
            return None
        below = int(math.fmod(whole, 91**3))
        rest = int(math.fmod(below, 91**2))
        codes = [math.trunc(value / 91**3) + 33, int(below / 91**2) + 33, int(rest / 91) + 33,
                 int(math.fmod(rest, 91)) + 33]
        return "".join(map(chr, codes)) if all(0 <= code <= 255 for code in codes) else None
    lat = group(single((90 - latitude) * 380926))
    lon = group(math.floor((longitude + 180) * 190463))
    return "" if lat is None or lon is None else f"=/{lat}{lon}-  B"


def ui_view(text):
    text = text if "1" <= text[:1] <= "9" else text[1:]
    lat, lon = (text[0:2], text[2:4], text[5:8]), (text[9:12], text[12:14], text[15:18])
    def value(fields, letter):
        total = leading(fields[0]) + (leading(fields[2]) / 3600 + leading(fields[1]) / 60)
        return single(-total if fields[2].endswith(letter) else total)
    return value(lat, "S"), value(lon, "W")


# The sun, by the earth's orbit -------------------------------------------------------------------

# The longitude of the earth in 1e-8 radians: amplitude, phase and frequency (a millennium) of the
# terms of VSOP87 (P. Bretagnon and G. Francou, 1988) that are larger than 0.2 arc seconds.
EARTH = [
    [(175347046, 0, 0), (3341656, 4.6692568, 6283.07585), (34894, 4.6261, 12566.1517),
     (3497, 2.7441, 5753.3849), (3418, 2.8289, 3.5231), (3136, 3.6277, 77713.7715),
     (2676, 4.4181, 7860.4194), (2343, 6.1352, 3930.2097), (1324, 0.7425, 11506.7698),
     (1273, 2.0371, 529.691), (1199, 1.1096, 1577.3435), (990, 5.233, 5884.927),
     (902, 2.045, 26.298), (857, 3.508, 398.149), (780, 1.179, 5223.694), (753, 2.533, 5507.553),
     (505, 4.583, 18849.228), (492, 4.205, 775.523), (357, 2.92, 0.067), (317, 5.849, 11790.629),
     (284, 1.899, 796.298), (271, 0.315, 10977.079), (243, 0.345, 5486.778), (206, 4.806, 2544.314),
     (205, 1.869, 5573.143), (202, 2.458, 6069.777), (156, 0.833, 213.299), (132, 3.411, 2942.463),
     (126, 1.083, 20.775), (115, 0.645, 0.98), (103, 0.636, 4694.003), (102, 0.976, 15720.839),
     (102, 4.267, 7.114)],
    [(628331966747, 0, 0), (206059, 2.678235, 6283.07585), (4303, 2.6351, 12566.1517),
     (425, 1.59, 3.523), (119, 5.796, 26.298), (109, 2.966, 1577.344)],
    [(52919, 0, 0), (8720, 1.0721, 6283.0758), (309, 0.867, 12566.152)],
    [(289, 5.844, 6283.076)],
]


def terrestrial_less_universal(year):
    """Seconds, within some: the tables of the past, and what is expected."""
    known = [(1950, 29), (1970, 40), (1990, 57), (2000, 64), (2010, 66), (2025, 69), (2050, 93),
             (2100, 203)]
    for (y0, d0), (y1, d1) in zip(known, known[1:]):
        if year <= y1:
            return d0 + (d1 - d0) * (year - y0) / (y1 - y0)
    return known[-1][1]


def subsolar(row):
    moment = datetime.datetime.strptime(row["moment"], "%Y-%m-%dT%H:%M:%SZ")
    days = (moment - datetime.datetime(2000, 1, 1, 12)).total_seconds() / 86400
    century = days / 36525
    t = (days + terrestrial_less_universal(moment.year + moment.month / 12) / 86400) / 365250
    earth = sum(t**power * sum(a * math.cos(b + c * t) for a, b, c in terms)
                for power, terms in enumerate(EARTH)) / 1e8
    anomaly = 6283.01955 * t + 6.240060
    distance = 1.00014 - 0.016708 * math.cos(anomaly) - 0.00014 * math.cos(2 * anomaly)
    node = math.radians(125.04452 - 1934.136261 * 10 * t)
    sun, moon = (math.radians(280.4665 + 360007.698 * t), math.radians(218.3165 + 4812678.813 * t))
    in_longitude = (-17.2 * math.sin(node) - 1.32 * math.sin(2 * sun) - 0.23 * math.sin(2 * moon)
                    + 0.21 * math.sin(2 * node)) / 3600
    in_obliquity = (9.2 * math.cos(node) + 0.57 * math.cos(2 * sun) + 0.1 * math.cos(2 * moon)
                    - 0.09 * math.cos(2 * node)) / 3600
    longitude = math.radians(math.degrees(earth) + 180 + in_longitude
                             - (0.09033 + 20.4898 / distance) / 3600)
    obliquity_degrees = 23.4392911 - 0.0130041667 * 10 * t + in_obliquity
    obliquity = math.radians(obliquity_degrees)
    right_ascension = math.degrees(math.atan2(math.cos(obliquity) * math.sin(longitude),
                                              math.cos(longitude)))
    sidereal = (280.46061837 + 360.98564736629 * days + 0.000387933 * century**2
                + in_longitude * math.cos(obliquity))
    return {"latitude": round(math.degrees(math.asin(math.sin(obliquity) * math.sin(longitude))), 3),
            "longitude": round((right_ascension - sidereal + 180) % 360 - 180, 3)}


def subsolar_formula(row):
    """The low-precision formula alone, as Meeus (Astronomical Algorithms, chapters 12 and 25) gives
    it: right to some thousandths of a degree, and the same to its last digits however it is written."""
    date, time = row["moment"].rstrip("Z").split("T")
    hours, minutes, seconds = map(int, time.split(":"))
    day = datetime.date.fromisoformat(date).toordinal() - datetime.date(2000, 1, 1).toordinal()
    seconds_since_noon = day * 86400 + hours * 3600 + minutes * 60 + seconds - 43200
    days = seconds_since_noon / 86400
    t = days / 36525
    mean = math.radians(math.fmod(357.52911 + 35999.05029 * t - 0.0001537 * t**2, 360))
    omega = math.radians(math.fmod(125.04 - 1934.136 * t, 360))
    true = (280.46646 + 36000.76983 * t + 0.0003032 * t**2
            + (1.914602 - 0.004817 * t - 0.000014 * t**2) * math.sin(mean)
            + (0.019993 - 0.000101 * t) * math.sin(2 * mean) + 0.000289 * math.sin(3 * mean))
    apparent = math.radians(math.fmod(true - 0.00569 - 0.00478 * math.sin(omega), 360))
    tilt = math.radians(23.4392911 - 0.0130042 * t + 0.00256 * math.cos(omega))
    ascension = math.degrees(math.atan2(math.cos(tilt) * math.sin(apparent), math.cos(apparent)))
    greenwich = (280.46061837 + 360 * math.fmod(days, 1) + 0.98564736629 * days
                 + 0.000387933 * t**2 - 0.00478 * math.sin(omega) * math.cos(tilt))
    return {"latitude": round(math.degrees(math.asin(math.sin(tilt) * math.sin(apparent))), 8),
            "longitude": round((ascension - greenwich + 180) % 360 - 180, 8)}


# Tables: of a row, what its columns are to hold --------------------------------------------------

def distances(row):
    lat, lon_west = point(row["target"])
    km, azimuth = circle(point(row["home"]), (lat, lon_west))
    shown = math.floor(math.floor(km * 10 + 0.5) / 10)
    return {"DistText": f" {shown}", "AzimuthText": f" {math.floor(azimuth)}",
            "LonText": signed(digits(lon_west, 7)), "LatText": signed(digits(lat, 7)),
            "miles": str(math.floor(shown / 1.601))}


def calculated(row):
    if row["message"]:
        return {}
    texts = distances({"home": row["home after"], "target": row["target after"]})
    lat, lon = leading(texts["LatText"]), -leading(texts["LonText"])
    home = decoded({"locator": row["home after"]})
    azimuth = "none" if row["home after"] == row["target after"] else texts["AzimuthText"].strip()
    return {"km": texts["DistText"].strip() + " Km", "miles": texts["miles"] + " Miles",
            "azimuth": azimuth + " degrees",
            "home lat": home["LatText"] + "°", "home long": home["LonText"] + "°",
            "target lat": digits(lat, 15) + ("S" if lat < 0 else "N") + "°",
            "target long": digits(lon, 15) + ("E" if lon > 0 else "W") + "°"}


def caption(row):
    home, target = (completed(row[name].upper(), 6) for name in ("home", "target"))
    target = target[:2] + "55LL" if len(target) == 2 else target
    if any(not re.fullmatch("[A-R][A-S][0-9]{2}[A-X]{2}", locator) for locator in (home, target)):
        return {"caption": "-"}
    km, azimuth = circle(point(home), point(target))
    def shown(value):
        return math.floor(math.floor(value * 10 + 0.5) / 10)
    text = f"{home} to {target}: {shown(km)} km, {math.floor(shown(km) / 1.601)} miles"
    if home != target:
        text += (f", {math.floor(azimuth)}°; long path {shown(2 * math.pi * 6367 - km)} km, "
                 f"{math.floor((azimuth + 180) % 360)}°")
    return {"caption": text}


def decoded(row):
    locator = completed(row["locator"].upper(), 6)
    lat, lon = centre(locator)
    return {"locator afterwards": locator,
            "LonText": digits(lon, 7) + ("W" if lon < 0 else "E"),
            "LatText": digits(lat, 7) + ("S" if lat < 0 else "N"),
            "longitude": single(lon), "latitude": single(lat)}


def decoded_hms(row):
    lat, lon = centre(completed(row["locator"].upper(), 6))
    ew, ns = "W" if lon < 0 else "E", "S" if lat < 0 else "N"
    d, m, s = sexagesimal(abs(lon))
    e, n, t = sexagesimal(abs(lat))
    return {"LonText": digits(abs(lon), 15) + ew, "LatText": digits(abs(lat), 15) + ns,
            "LonDmsText": f"{mask(d, 3)}°.{mask(m, 2)}'.{mask(s, 2)} {ew}",
            "LatDmsText": f"{mask(e, 2)}°.{mask(n, 2)}'.{mask(t, 2)} {ns}",
            "LonDeg": d, "LonMin": m, "LonSec": round(s, 3),
            "LatDeg": e, "LatMin": n, "LatSec": int(half_away(t))}


def decoded_long(row):
    padded = completed(row["locator"], 10)
    good = re.fullmatch(r"[A-Z]{2}[0-9]{2}[A-Z]{2}[0-9]{2}[A-Z]{2}.*", padded, re.ASCII)
    lat, lon = corner(padded) if good else (0, 0)
    return {"locator afterwards": padded, "LonText": signed(digits(lon, 7)) if good else "-",
            "LatText": signed(digits(lat, 7)) if good else "-"}


def long_degrees(row):
    angle = single(float(row["angle"]))
    degrees = single(math.floor(angle))
    minutes = single((angle - degrees) * 60)
    seconds = mask((minutes - math.floor(minutes)) * 60, 1)
    return {"text": f" {digits(degrees, 7)}° {math.floor(minutes)}' {seconds}\""}


def spread(row):
    value = leading(row["text"])
    d, m, s = sexagesimal(abs(value))
    return {"degrees": d, "minutes": m, "seconds": int(half_away(s)),
            "negative": "yes" if value < 0 else "no"}


def number_texts(row):
    value = float(row["value"])
    return {"single": digits(single(value), 7), "seven": digits(value, 7),
            "double": digits(value, 15)}


def ui_view_read(row):
    if len(row["text"]) < 10:
        return {"latitude": "-", "longitude": "-"}
    lat, lon = ui_view(row["text"])
    return {"latitude": digits(lat, 7), "longitude": digits(lon, 7)}


def ui_view_written(row):
    def fields(axis, count):
        d, m, s = (float(row[f"{axis} {part}"]) for part in ("deg", "min", "sec"))
        return f"{mask(abs(d), count)}{mask(m, 2)}.{mask(s, 2)}"
    return {"text": f"={fields('lat', 2)}{row['lat letter']}/{fields('lon', 3)}{row['lon letter']}"}


def grid(row):
    if row["error"] == "6" or row["longitude"] == "nan":
        return {"locator": ""}
    return {"locator": six(float(row["latitude"]), float(row["longitude"])) or ""}


def boxes(row):
    lat, lon = (leading(row[name].strip(" ").replace(",", ".")) for name in ("latitude", "longitude"))
    return {"locator": six(lat, lon) or "-"}


TABLES = {
    "angles_atan2": lambda row: {"multiple of pi": round(
        math.atan2(float(row["Y"]), float(row["X"])) / math.pi, 15)
        * (-1 if row["X"] == "-1" and row["Y"] == "0" else 1)},
    "angles_convert_degree": long_degrees,
    "calculate": calculated,
    "compressed": lambda row: {"text": compressed(float(row["latitude"]), float(row["longitude"]))},
    "conversion_decimal": boxes,
    "conversion_world_dms": spread,
    "great_circle": distances,
    "long_maidenhead_decode": decoded_long,
    "maidenhead_decode": decoded,
    "maidenhead_decode_hms": decoded_hms,
    "maidenhead_grid": grid,
    "map_caption": caption,
    "map_sun": subsolar,
    "map_sun_formula": subsolar_formula,
    "number_five_decimals": lambda row: {"text": five_decimals(float(row["magnitude"]))},
    "number_leading": lambda row: {"leading": leading(row["text"])},
    "number_mask": lambda row: {width: mask(float(row["value"]), len(width))
                                for width in ("0", "00", "000")},
    "number_text": number_texts,
    "uiview_read": ui_view_read,
    "uiview_write": ui_view_written,
}


def field(raw):
    if not raw.startswith('"'):
        return raw
    escapes = {"t": "\t", "r": "\r", "n": "\n", '"': '"', "\\": "\\"}
    return re.sub(r"\\(.)", lambda match: escapes[match.group(1)], raw[1:-1])


def rows(table):
    lines = (DATA / f"{table}.tsv").read_text(encoding="utf-8").split("\n")
    header, *lines = [line.split("\t") for line in lines if line and not line.startswith("#")]
    return [dict(zip(header, map(field, line))) for line in lines]


def agrees(wanted, held):
    if isinstance(wanted, str):
        return wanted == held
    return math.isclose(wanted, float(held), rel_tol=1e-14, abs_tol=1e-15)


def main():
    differing = 0
    looked = 0
    for table in sys.argv[1:] or TABLES:
        for row in rows(table):
            for column, wanted in TABLES[table](row).items():
                looked += 1
                if not agrees(wanted, row[column]):
                    differing += 1
                    print(f"{table}: {row['name']}: {column} is {row[column]!r}, worked out {wanted!r}")
    print(f"{looked} values worked out again, {differing} differ")
    return 0 if looked > 0 and differing == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
