"""Fits drawings to whole pixels: stems, ends of straight lines and extremes of curves move to pixel centres (odd
pens) or pixel edges (even pens, filled shapes); all else follows in proportion."""
import dataclasses
import itertools
import math

from paths import parse_path

# What counts for one coordinate, in units of the drawing.
SAME = 0.3
FIRM = 0.5


def anchors(subpaths, axis):
    """The coordinates of one axis (0 for x) that should meet pixels, with how much it matters."""
    weights = {}

    def add(place, weight):
        known = next((other for other in weights if abs(other - place) < SAME), place)
        weights[known] = weights.get(known, 0) + weight

    for start, segment in itertools.chain.from_iterable(subpath.steps() for subpath in subpaths):
        end = segment.end
        along, across = (abs(end[i] - start[i]) for i in (axis, 1 - axis))
        if segment.is_line:
            length = math.hypot(along, across)
            if length < 0.1:
                add(end[axis], 1.5)
            elif along < 0.02 * length:
                add(start[axis], 1 + min(length, 18) / 4)
            else:
                for point in (start, end):
                    add(point[axis], 0.6 if across < 0.02 * length else 0.3)
        else:
            for point, control in zip((start, end), segment.controls):
                if abs(control[axis] - point[axis]) < 0.03 and abs(control[1 - axis] - point[1 - axis]) > SAME:
                    add(point[axis], 0.4 + across / 5)
    return weights


@dataclasses.dataclass
class Axis:
    """The picture's pixels along one axis, and the plain way from drawing to pixels."""
    size: int
    pen: int      # 0 for filled shapes
    phase: float  # of the wanted places in a pixel: 0 for edges, 0.5 for centres
    low: float
    high: float

    def prepare(self, weights):
        """Centres a drawing with a middle stem where a stem can be, which may cost a pixel."""
        self.centre = (self.low + self.high) / 2
        span = self.size - self.pen
        middle = self.pen / 2 + span / 2
        has_stem = any(abs(place - self.centre) < 0.35 and weight >= 1 for place, weight in weights.items())
        if has_stem and abs((middle - self.phase) - round(middle - self.phase)) > 0.1:
            span -= 1
            middle = self.pen / 2 + span / 2
        self.middle = middle
        self.scale = span / (self.high - self.low)

    def plain(self, place):
        return self.middle + (place - self.centre) * self.scale


def candidates(axis, places):
    """For each place the pixels that it may move to, the nearest first."""
    many = len(places) > 6
    for place in places:
        exact = axis.plain(place) - axis.phase
        pixels = {math.floor(exact), math.ceil(exact)} | (set() if many else {round(exact) - 1, round(exact) + 1})
        yield sorted(pixels, key=lambda pixel: abs(pixel - exact))[:3 if len(places) <= 7 else 2]


def cost(axis, places, weights, pixels):
    """How much a choice of pixels bends the drawing: places move little, gaps and mirrored pairs stay."""
    total = 0
    for i, (place, pixel) in enumerate(zip(places, pixels)):
        total += weights[place] * (pixel - (axis.plain(place) - axis.phase)) ** 2
        if not axis.pen / 2 - 0.01 <= pixel + axis.phase <= axis.size - axis.pen / 2 + 0.01:
            total += 50
        if i:
            wanted, gap = (place - places[i - 1]) * axis.scale, pixel - pixels[i - 1]
            if gap < 0:
                total += 100
            if wanted > 0.55 * (axis.pen + 1) and gap < axis.pen + 1:
                total += 3 * min(weights[place], weights[places[i - 1]])
            elif gap == 0 and wanted > 0.6:
                total += 0.5
            total += 0.3 * (wanted - gap) ** 2
        for other, other_pixel in zip(places[:i], pixels):
            is_mirrored = abs(place + other - 2 * axis.centre) < 0.1
            if is_mirrored and abs(pixel + other_pixel + 2 * axis.phase - 2 * axis.middle) > 0.01:
                total += 1.5 * max(weights[place], 0.8)
    return total


def between(known, place, axis):
    """Where a place goes, in proportion to its neighbours of which that is known."""
    below = max((other for other in known if other < place), default=None)
    above = min((other for other in known if other > place), default=None)
    if below is not None and above is not None:
        return known[below] + (place - below) / (above - below) * (known[above] - known[below])
    if below is not None:
        return known[below] + (place - below) * axis.scale
    if above is not None:
        return known[above] - (above - place) * axis.scale
    return axis.plain(place)


def fit(axis, weights):
    """A function from drawing to pixels along one axis."""
    axis.prepare(weights)
    strong = sorted(sorted(sorted(weights), key=lambda place: -weights[place])[:9])
    best = min(itertools.product(*candidates(axis, strong)),
               key=lambda pixels: cost(axis, strong, weights, pixels))
    fixed = {place: pixel + axis.phase for place, pixel in zip(strong, best)}
    for place in sorted(weights):
        if place not in fixed:
            target = between(fixed, place, axis)
            fixed[place] = round(target - axis.phase) + axis.phase if weights[place] >= FIRM else target

    def moved(place):
        near = next((other for other in sorted(fixed) if abs(other - place) < SAME), None)
        return between(fixed, place, axis) if near is None else fixed[near] + (place - near) * axis.scale

    return moved


def reach(values, margin):
    """The range of a drawing on the grid of 24 along one axis, for filled shapes without the pen's half."""
    outside = max(3 - (min(values) + margin), max(values) - margin - 21, 0)
    return 3 - outside - margin, 21 + outside + margin


def square(subpaths, margin):
    """The square that a drawing takes, as (low, high) of both axes."""
    points = [point for subpath in subpaths for point in subpath.points()]
    ranges = [reach([point[axis] for point in points], margin) for axis in (0, 1)]
    half = max(high - low for low, high in ranges) / 2
    return [((low + high) / 2 - half, (low + high) / 2 + half) for low, high in ranges]


def is_upright(start, segment, at_end):
    """Whether a subpath begins or ends along an axis, so that its pen can end square."""
    if segment.is_line:
        near, far = start, segment.end
    else:
        near, far = (segment.controls[1], segment.end) if at_end else (segment.controls[0], start)
    return abs(near[0] - far[0]) < 0.05 or abs(near[1] - far[1]) < 0.05


def path_data(subpath, move_x, move_y):
    def text(point):
        return f"{move_x(point[0]):.3f} {move_y(point[1]):.3f}"

    data = "M" + text(subpath.start)
    for segment in subpath.segments:
        data += ("L" if segment.is_line else "C") + " ".join(map(text, (*segment.controls, segment.end)))
    return data + ("Z" if subpath.is_closed else "")


def stroke(data, pen, cap):
    return (f'<path d="{data}" fill="none" stroke="#fff" stroke-width="{pen}" stroke-linecap="{cap}" '
            'stroke-linejoin="round"/>')


def draw_fitted(parts, size, pen, is_filled):
    """The SVG of a drawing on the grid of 24, fitted to a picture of `size` pixels. `parts` are pairs of path
    data and whether that part is filled; in a drawing that is filled as a whole no pen widens the shapes."""
    parsed = [(parse_path(data), filled) for data, filled in parts]
    every = [subpath for subpaths, _ in parsed for subpath in subpaths]
    width = 0 if is_filled else pen
    phase = 0 if width % 2 == 0 else 0.5
    (low_x, high_x), (low_y, high_y) = square(every, 1 if is_filled else 0)
    move_x = fit(Axis(size, width, phase, low_x, high_x), anchors(every, 0))
    move_y = fit(Axis(size, width, phase, low_y, high_y), anchors(every, 1))
    if is_filled:  # as one path, so that holes stay holes
        whole = "".join(path_data(subpath, move_x, move_y) for subpath in every)
        return f'<path d="{whole}" fill="#fff"/>'
    body = ""
    for subpaths, filled in parsed:
        for subpath in subpaths:
            data = path_data(subpath, move_x, move_y)
            steps = list(subpath.steps())
            upright = steps and is_upright(*steps[0], False) and is_upright(*steps[-1], True)
            if filled:
                body += f'<path d="{data}" fill="#fff" stroke="#fff" stroke-width="{pen}" stroke-linejoin="round"/>'
            else:
                body += stroke(data, pen, "square" if upright else "round")
    return body
