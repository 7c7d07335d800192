#!/usr/bin/python3
"""Makes the fifteen map pictures: data/MapEarth.dat and the globe seen from fourteen centres (JPEG files).

The satellite mosaic has nearly black oceans and glaring deserts. Here it becomes a calm ground on which yellow, red
and green marks and white names stand out: oceans of one even blue, land of narrow luminance and little colour.
"""

import io

import numpy
from PIL import Image, ImageFilter

import datatools

WIDTH, HEIGHT = 2048, 1024
OCEAN = numpy.array([60.0, 103.0, 145.0])
ICE = numpy.array([206.0, 214.0, 222.0])
LAND_DARKEST, LAND_LIGHTEST = 100.0, 178.0
CHROMA = 1.0 / 3.0
LUMA = numpy.array([0.299, 0.587, 0.114])

GLOBE_WIDTH, GLOBE_HEIGHT = 1600, 800
# The globe's diameter is this part of the picture's height: the maps' scale rests on it.
GLOBE_PART = 142.0 / 180.0
SAMPLES = 3
EDGE_BRIGHTNESS = 0.72
RIM = numpy.array([86.0, 150.0, 214.0])
RIM_PIXELS = 2.2
STAR_COUNT = 900
VIEWS = {"MapNorth": (0, 90), "MapSouth": (0, -90)}
for centre in (0, 90, 180, 270):
    VIEWS[f"Map{centre}"] = (centre, 0)
    VIEWS[f"Map{centre}N45"] = (centre, 45)
    VIEWS[f"Map{centre}S45"] = (centre, -45)


def smooth_step(values, low, high):
    t = numpy.clip((values - low) / (high - low), 0.0, 1.0)
    return t * t * (3.0 - 2.0 * t)


def blurred(values, radius):
    """Gaussian blur of an array between 0 and 1, joined across the date line."""
    margin = 64
    wide = numpy.concatenate([values[:, -margin:], values, values[:, :margin]], axis=1)
    picture = Image.fromarray((wide * 255.0 + 0.5).astype(numpy.uint8), "L")
    return numpy.asarray(picture.filter(ImageFilter.GaussianBlur(radius)), dtype=float)[:, margin:-margin] / 255.0


def places():
    """Latitudes and longitudes of the pixel centres."""
    latitude = 90.0 - (numpy.arange(HEIGHT) + 0.5) * 180.0 / HEIGHT
    longitude = (numpy.arange(WIDTH) + 0.5) * 360.0 / WIDTH - 180.0
    return numpy.meshgrid(latitude, longitude, indexing="ij")


def water_part(rgb):
    """1 on open water, 0 on land and ice: water is blue beyond any soil. Shadows on the southern ice are blue as well."""
    blueness = rgb[..., 2] - numpy.maximum(rgb[..., 0], 0.72 * rgb[..., 1])
    latitude, _ = places()
    return smooth_step(blueness, 12.0, 34.0) * (latitude > -69.5)


def ice_part(rgb, luma):
    """1 on snow and ice: light and without colour, but not the pale sands and salt flats around the Sahara."""
    spread = rgb.max(axis=2) - rgb.min(axis=2)
    latitude, longitude = places()
    desert = (latitude > 5.0) & (latitude < 33.0) & (longitude > -20.0) & (longitude < 70.0)
    ice = smooth_step(luma, 150.0, 205.0) * (1.0 - smooth_step(spread, 26.0, 62.0)) * ~desert
    return numpy.where(latitude < -69.5, 1.0, ice)


def tone_land(rgb, luma):
    """Narrow luminance with a soft relief kept, a third of the colour."""
    level = numpy.clip(luma / 255.0, 0.0, 1.0) ** 0.62
    relief = level - blurred(level, 6.0)
    wanted = LAND_DARKEST + (LAND_LIGHTEST - LAND_DARKEST) * numpy.clip((level - 0.22) / 0.72 + 0.30 * relief, 0.0, 1.0)
    colour = (rgb - luma[..., None]) * CHROMA
    return wanted[..., None] + colour


def tone_ocean(rgb, luma):
    """One blue, a little lighter over shallow water."""
    shallow = blurred(numpy.clip((luma - 8.0) / 110.0, 0.0, 1.0), 1.5)
    return OCEAN + 26.0 * shallow[..., None] * numpy.array([0.7, 1.0, 0.9])


def make_flat_map(path):
    rgb = numpy.asarray(Image.open(path).convert("RGB"), dtype=float)
    assert rgb.shape == (HEIGHT, WIDTH, 3), rgb.shape
    luma = rgb @ LUMA
    water, ice = water_part(rgb)[..., None], ice_part(rgb, luma)[..., None]
    land = tone_land(rgb, luma) * (1.0 - ice) + (ICE + 0.06 * (numpy.maximum(luma[..., None], 150.0) - 235.0)) * ice
    result = tone_ocean(rgb, luma) * water + land * (1.0 - water)
    check_flat_map(result, water[..., 0], ice[..., 0])
    return numpy.clip(result, 0.0, 255.0)


def check_flat_map(rgb, water, ice):
    luma = rgb @ LUMA
    dry = (water < 0.02) & (ice < 0.02)
    print(f"land luminance {luma[dry].min():.0f} to {luma[dry].max():.0f}, mean {luma[dry].mean():.0f}; "
          f"ocean mean {rgb[water > 0.98].mean(axis=0).round()}; ice mean {rgb[ice > 0.98].mean(axis=0).round()}")
    assert LAND_DARKEST - 1 <= luma[dry].min() and luma[dry].max() <= LAND_LIGHTEST + 1
    assert numpy.abs(numpy.median(rgb[water > 0.98], axis=0) - OCEAN).max() < 8
    # Seven tenths of the Earth are sea (by area); the frozen Arctic counts as ice here.
    weight = numpy.cos(numpy.radians(places()[0]))
    part = float((water * weight).sum() / weight.sum())
    assert 0.60 < part < 0.74, part
    for latitude, longitude, wet in [(0, -150, 1), (35, 18, 1), (-60, 0, 1), (23, 10, 0), (-5, -62, 0), (65, 100, 0),
                                     (-25, 135, 0), (40, -100, 0), (-30, 80, 1)]:
        row, column = int((90 - latitude) / 180 * HEIGHT), int((longitude + 180) / 360 * WIDTH)
        assert (water[row, column] > 0.5) == bool(wet), (latitude, longitude)


def sample(flat, longitude, latitude):
    """Bilinear values of the flat map at places in degrees."""
    x = (longitude + 180.0) / 360.0 * WIDTH - 0.5
    y = numpy.clip((90.0 - latitude) / 180.0 * HEIGHT - 0.5, 0.0, HEIGHT - 1.0)
    left, top = numpy.floor(x).astype(int), numpy.minimum(numpy.floor(y).astype(int), HEIGHT - 2)
    fx, fy = (x - left)[..., None], (y - top)[..., None]
    left, right = left % WIDTH, (left + 1) % WIDTH
    upper = flat[top, left] * (1 - fx) + flat[top, right] * fx
    lower = flat[top + 1, left] * (1 - fx) + flat[top + 1, right] * fx
    return upper * (1 - fy) + lower * fy


def inverse_orthographic(x, y, longitude, latitude):
    """Places in degrees behind the points of the unit disc, north up, east to the right."""
    z = numpy.sqrt(numpy.maximum(0.0, 1.0 - x * x - y * y))
    centre = numpy.radians(latitude)
    sine = numpy.clip(z * numpy.sin(centre) + y * numpy.cos(centre), -1.0, 1.0)
    east = numpy.arctan2(x, z * numpy.cos(centre) - y * numpy.sin(centre))
    return (longitude + numpy.degrees(east) + 180.0) % 360.0 - 180.0, numpy.degrees(numpy.arcsin(sine))


def star_field():
    """Faint stars on black, the same behind every globe."""
    random = numpy.random.default_rng(20)
    sky = numpy.zeros((GLOBE_HEIGHT, GLOBE_WIDTH, 3))
    rows = random.integers(0, GLOBE_HEIGHT, STAR_COUNT)
    columns = random.integers(0, GLOBE_WIDTH, STAR_COUNT)
    levels = 34.0 + 120.0 * random.random(STAR_COUNT) ** 4
    sky[rows, columns] = levels[:, None] * numpy.array([0.94, 0.97, 1.0])
    return sky


def make_globe(flat, longitude, latitude, sky):
    radius = GLOBE_PART * GLOBE_HEIGHT / 2.0
    half = int(radius) + 12
    steps = (numpy.arange(2 * half * SAMPLES) + 0.5) / SAMPLES - half
    x, y = numpy.meshgrid(steps, -steps)
    distance = numpy.hypot(x, y) / radius
    inside = distance <= 1.0
    lon, lat = inverse_orthographic(x / radius, y / radius, longitude, latitude)
    shade = EDGE_BRIGHTNESS + (1.0 - EDGE_BRIGHTNESS) * numpy.sqrt(numpy.maximum(0.0, 1.0 - distance**2))
    globe = numpy.zeros(x.shape + (3,))
    globe[inside] = sample(flat, lon[inside], lat[inside]) * shade[inside][..., None]
    outside = (distance - 1.0) * radius
    glow = numpy.where(inside, 0.0, numpy.exp(-numpy.maximum(outside, 0.0) / RIM_PIXELS) * (outside < 10.0))
    globe += RIM * 0.8 * glow[..., None]

    def mean(values):
        return values.reshape(2 * half, SAMPLES, 2 * half, SAMPLES, -1).mean(axis=(1, 3))

    clear = mean(((distance * radius) > radius + 4.0).astype(float))
    picture = sky.copy()
    top, left = GLOBE_HEIGHT // 2 - half, GLOBE_WIDTH // 2 - half
    window = picture[top : top + 2 * half, left : left + 2 * half]
    window[:] = window * clear + mean(globe)
    return numpy.clip(picture, 0.0, 255.0)


def jpeg(rgb, quality):
    stream = io.BytesIO()
    Image.fromarray((rgb + 0.5).astype(numpy.uint8)).save(stream, "JPEG", quality=quality, subsampling=0, optimize=True)
    return stream.getvalue()


def main():
    arguments = datatools.parse_arguments(__doc__)
    folder = arguments.project / "data"
    flat = make_flat_map(arguments.sources / "xplanet-images/usr/share/xplanet/images/earth.jpg")
    datatools.write_file(folder / "MapEarth.dat", jpeg(flat, 88))
    sky = star_field()
    assert len(VIEWS) == 14
    for name, (longitude, latitude) in VIEWS.items():
        datatools.write_file(folder / f"{name}.dat", jpeg(make_globe(flat, longitude, latitude, sky), 86))


if __name__ == "__main__":
    main()
