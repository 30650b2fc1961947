"""The film's picture: a camera that glides past a colonnade, with balls before and behind it.

Not here: its sound (music.py). Everything stands in one world, measured in metres, and is drawn
from far to near; one projection gives each thing its size and its speed on screen. The colours
keep away from pure red and cyan, which an anaglyph's two filters would tear apart.
"""

import math
from dataclasses import dataclass

import cairo

WIDTH, HEIGHT, FPS, SECONDS = 1280, 720, 25, 12
FRAMES = FPS * SECONDS

FOCAL = 900.0  # pixels: a thing of 1 m at 1 m
EYE = 1.6  # height of the camera
HORIZON = 400
SPEED = 0.75  # of the camera, in m/s
GRAVITY = 9.81
SUNWARD = (-1.1, 2.2)  # from a shadow's end to its foot, on the ground (x, z)

HAZE = (0.925, 0.902, 0.843)
INK = (0.13, 0.16, 0.17)


@dataclass(frozen=True)
class Ball:
    beside: float  # metres right of the camera, which it accompanies
    distance: float
    sway: float  # how far it comes and goes, once in the film
    radius: float
    period: float  # seconds from bounce to bounce
    colour: tuple

    def place(self, time):
        """x beside the camera, height of the centre, distance."""
        swing = math.cos(math.tau * time / SECONDS)
        phase = time / self.period % 1
        rise = GRAVITY * self.period ** 2 / 8 * (1 - (2 * phase - 1) ** 2)
        return self.beside, self.radius + rise, self.distance + self.sway * swing


BALLS = (
    Ball(3.7, 15.0, 0.0, 0.85, 2.0, (0.95, 0.94, 0.91)),
    Ball(-2.3, 7.4, 0.0, 0.48, 1.5, (0.36, 0.47, 0.58)),
    Ball(0.35, 9.2, 4.6, 0.40, 0.75, (0.45, 0.56, 0.42)),
    Ball(1.75, 5.4, 0.0, 0.33, 1.0, (0.84, 0.70, 0.46)),
)

# distance, height of the crest in metres, colour
RIDGES = (
    (900.0, 165.0, (0.70, 0.75, 0.78)),
    (380.0, 52.0, (0.60, 0.68, 0.69)),
    (150.0, 13.0, (0.52, 0.61, 0.56)),
    (70.0, 3.6, (0.44, 0.53, 0.43)),
)

# distance, spacing, radius of a shaft, height, flutes
COLONNADES = ((22.0, 3.0, 0.24, 4.6, 5), (11.0, 3.0, 0.26, 4.2, 9))


class View:
    """A cairo context that looks from where the camera is at one moment."""

    def __init__(self, ctx, time):
        self.ctx = ctx
        self.time = time
        self.camera = SPEED * time

    def spot(self, x, y, z):
        scale = FOCAL / z
        return WIDTH / 2 + (x - self.camera) * scale, HORIZON + (EYE - y) * scale

    def seen(self, z, margin):
        """The span of world x that is on screen at a distance, and some more on both sides."""
        half = WIDTH / 2 * z / FOCAL + margin
        return self.camera - half, self.camera + half

    def fill(self, points, colour, alpha=1.0):
        self.ctx.move_to(*points[0])
        for point in points[1:]:
            self.ctx.line_to(*point)
        self.ctx.close_path()
        self.ctx.set_source_rgba(*colour, alpha)
        self.ctx.fill()


def mix(one, other, share):
    return tuple(a + (b - a) * share for a, b in zip(one, other))


def hazy(colour, z):
    return mix(colour, HAZE, 1 - math.exp(-z / 60))


def gradient(pattern, *stops):
    for offset, colour in stops:
        pattern.add_color_stop_rgba(offset, *colour, *(() if len(colour) == 4 else (1.0,)))
    return pattern


def repeats(span, spacing):
    """Multiples of spacing within a span."""
    return [k * spacing for k in range(math.ceil(span[0] / spacing),
                                       math.floor(span[1] / spacing) + 1)]


def sky(view):
    view.ctx.set_source(gradient(cairo.LinearGradient(0, 0, 0, HORIZON),
                                 (0, (0.56, 0.67, 0.74)), (0.65, (0.82, 0.85, 0.83)), (1, HAZE)))
    view.ctx.paint()
    x, y = 270, 74
    glow = gradient(cairo.RadialGradient(x, y, 30, x, y, 380),
                    *((share, (1, 0.98, 0.92, 0.8 * (1 - share) ** 3))
                      for share in (0, 0.1, 0.2, 0.35, 0.5, 0.7, 0.85, 1)))
    view.ctx.set_source(glow)
    view.ctx.paint()
    view.ctx.arc(x, y, 38, 0, math.tau)
    view.ctx.set_source_rgb(1.0, 0.99, 0.95)
    view.ctx.fill()


def ridge(view, z, crest, colour):
    left, right = view.seen(z, z * 0.02)
    steps = 160
    points = [view.spot(left, 0, z)]
    for step in range(steps + 1):
        x = left + (right - left) * step / steps
        wave = (math.sin(3.1 * x / z + z) + 0.55 * math.sin(7.3 * x / z + 2 * z)
                + 0.22 * math.sin(17.9 * x / z + 3 * z) + 0.08 * math.sin(41 * x / z + z))
        points.append(view.spot(x, crest * (1 + 0.42 * wave), z))
    points.append(view.spot(right, 0, z))
    view.fill(points, colour)


def ground(view):
    ctx = view.ctx
    ctx.rectangle(0, HORIZON, WIDTH, HEIGHT - HORIZON)
    ctx.set_source(gradient(cairo.LinearGradient(0, HORIZON, 0, HEIGHT),
                            (0, (0.74, 0.74, 0.64)), (0.25, (0.80, 0.76, 0.65)),
                            (1, (0.87, 0.81, 0.69))))
    ctx.fill()
    tile = 1.5
    for row in range(30, 2, -1):
        near, far = row * tile, (row + 1) * tile
        for x in repeats(view.seen(far, 2 * tile), 2 * tile):
            x += tile * (row % 2)
            view.fill([view.spot(x, 0, near), view.spot(x + tile, 0, near),
                       view.spot(x + tile, 0, far), view.spot(x, 0, far)],
                      (0.60, 0.56, 0.46), 0.34 * math.exp(-near / 16))


def shadow(view, x, z, width, length):
    dx, dz = (-share * length for share in SUNWARD)
    view.fill([view.spot(x - width, 0, z), view.spot(x + width, 0, z),
               view.spot(x + width + dx, 0, z + dz), view.spot(x - width + dx, 0, z + dz)],
              INK, 0.17)


def block(view, x, z, half, bottom, top, colour):
    """A box seen from the front: lit at its left, in shade at its right."""
    left, low = view.spot(x - half, bottom, z)
    right, high = view.spot(x + half, top, z)
    view.ctx.rectangle(left, high, right - left, low - high)
    view.ctx.set_source(gradient(cairo.LinearGradient(left, 0, right, 0),
                                 (0, mix(colour, (1, 1, 1), 0.45)), (0.45, colour),
                                 (1, mix(colour, INK, 0.42))))
    view.ctx.fill()


def column(view, x, z, radius, height, flutes):
    stone = hazy((0.86, 0.83, 0.76), z)
    block(view, x, z, radius, 0.3, height - 0.3, stone)
    for flute in range(flutes):
        angle = math.pi * (flute + 0.5) / flutes
        offset, width = -radius * math.cos(angle), radius * math.sin(angle) / flutes * 0.42
        view.fill([view.spot(x + offset - width, 0.34, z), view.spot(x + offset + width, 0.34, z),
                   view.spot(x + offset + width, height - 0.34, z),
                   view.spot(x + offset - width, height - 0.34, z)], hazy(INK, z), 0.34)
    for bottom, top, half in ((0, 0.16, 1.5), (0.16, 0.3, 1.25),
                              (height - 0.3, height - 0.18, 1.25), (height - 0.18, height, 1.55)):
        block(view, x, z, radius * half, bottom, top, stone)


def colonnade(view, z, spacing, radius, height, flutes):
    # The shadow starts at the foot, so it is drawn before any of the columns.
    places = repeats(view.seen(z, 4.0), spacing)
    for x in places:
        shadow(view, x, z, radius * 1.3, 1.5)
    for x in places:
        column(view, x, z, radius, height, flutes)
    left, right = view.seen(z, 1.0)
    for bottom, top, tone in ((0, 0.34, 0.80), (0.34, 0.42, 0.60), (0.42, 0.62, 0.90)):
        colour = hazy((tone, tone * 0.97, tone * 0.89), z)
        view.fill([view.spot(left, height + bottom, z), view.spot(right, height + bottom, z),
                   view.spot(right, height + top, z), view.spot(left, height + top, z)], colour)


def ball_shadow(view, x, height, z, radius):
    share = 1 / (1 + 0.5 * (height - radius))
    centre_x, centre_y = view.spot(x + 0.25 * height, 0, z - 0.12 * height)
    view.ctx.save()
    view.ctx.translate(centre_x, centre_y)
    size = radius * FOCAL / z * (1.25 - 0.25 * share)
    view.ctx.scale(size, size * 0.26)
    view.ctx.set_source(gradient(cairo.RadialGradient(0, 0, 0.25, 0, 0, 1.1),
                                 (0, (*INK, 0.45 * share)), (1, (*INK, 0.0))))
    view.ctx.arc(0, 0, 1.1, 0, math.tau)
    view.ctx.fill()
    view.ctx.restore()


def ball(view, item):
    beside, height, z = item.place(view.time)
    x = view.camera + beside
    ball_shadow(view, x, height, z, item.radius)
    centre_x, centre_y = view.spot(x, height, z)
    size = item.radius * FOCAL / z
    colour = hazy(item.colour, z)
    light_x, light_y = centre_x - 0.38 * size, centre_y - 0.42 * size
    view.ctx.arc(centre_x, centre_y, size, 0, math.tau)
    view.ctx.set_source(gradient(
        cairo.RadialGradient(light_x, light_y, 0, centre_x, centre_y, size * 1.02),
        (0, mix(colour, (1, 1, 1), 0.75)), (0.30, mix(colour, (1, 1, 1), 0.15)), (0.62, colour),
        (0.93, mix(colour, INK, 0.48)), (1, mix(colour, HAZE, 0.12))))
    view.ctx.fill()


def blade(view, x, z, height, lean, width):
    """A leaf of grass: a curve out and back to the same tip."""
    foot_x, foot_y = view.spot(x, -0.2, z)
    tip_x, tip_y = view.spot(x + lean, height, z)
    thick = width * FOCAL / z
    middle_y = (foot_y + tip_y) / 2
    view.ctx.move_to(foot_x - thick, foot_y)
    view.ctx.curve_to(foot_x - thick, middle_y, foot_x, middle_y, tip_x, tip_y)
    view.ctx.curve_to(foot_x + thick, middle_y, foot_x + thick, middle_y, foot_x + thick, foot_y)
    view.ctx.fill()


def reeds(view, z=2.7, spacing=2.9):
    """The nearest thing of all; thin, so that the view stays open."""
    for x in repeats(view.seen(z, 1.2), spacing):
        seed = round(x / spacing)
        for leaf in range(17):
            turn = math.sin(12.9 * leaf + 4.1 * seed)
            wind = 0.05 * math.sin(1.7 * view.time + leaf + seed)
            height = 0.75 + 0.42 * math.sin(7.7 * leaf + seed) ** 2
            view.ctx.set_source_rgb(*mix((0.16, 0.22, 0.17), (0.35, 0.42, 0.28), (1 + turn) / 2))
            blade(view, x + 0.16 * turn, z, height, 0.30 * turn + wind * height, 0.015)


def time_code(view, number):
    seconds, frames = divmod(number, FPS)
    text = f"{seconds // 60:02}:{seconds % 60:02}.{frames:02}"
    ctx = view.ctx
    ctx.select_font_face("DejaVu Sans Mono", cairo.FONT_SLANT_NORMAL, cairo.FONT_WEIGHT_NORMAL)
    ctx.set_font_size(40)
    width = ctx.text_extents("00:00.00").x_advance
    x, y, pad = WIDTH - width - 64, 84, 20
    ctx.new_path()
    for corner_x, corner_y, start in ((x + width + pad - 10, y - 42, -0.25),
                                      (x + width + pad - 10, y + 8, 0.0),
                                      (x - pad + 10, y + 8, 0.25), (x - pad + 10, y - 42, 0.5)):
        ctx.arc(corner_x, corner_y, 10, math.tau * start, math.tau * (start + 0.25))
    ctx.close_path()
    ctx.set_source_rgba(*INK, 0.72)
    ctx.fill()
    ctx.move_to(x, y)
    ctx.set_source_rgb(0.97, 0.97, 0.95)
    ctx.show_text(text)


def frame(number):
    """Pixels of one frame, four bytes each: blue, green, red, unused."""
    surface = cairo.ImageSurface(cairo.FORMAT_RGB24, WIDTH, HEIGHT)
    view = View(cairo.Context(surface), number / FPS)
    sky(view)
    for z, crest, colour in RIDGES:
        ridge(view, z, crest, colour)
    ground(view)
    things = [(z, colonnade, (z, *shape)) for z, *shape in COLONNADES]
    things += [(item.place(view.time)[2], ball, (item,)) for item in BALLS]
    for _, draw, arguments in sorted(things, key=lambda thing: -thing[0]):
        draw(view, *arguments)
    reeds(view)
    time_code(view, number)
    surface.flush()
    return bytes(surface.get_data())
