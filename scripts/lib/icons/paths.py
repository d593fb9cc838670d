"""The path data of SVG (SVG 1.1, chapter 8) as lines and cubic curves."""
import dataclasses
import math
import re

Point = tuple[float, float]

COMMAND = re.compile(r"([MmLlHhVvCcSsQqAaZz])([^MmLlHhVvCcSsQqAaZz]*)")
NUMBER = re.compile(r"[-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?")
ARGUMENTS = {"M": 2, "L": 2, "H": 1, "V": 1, "C": 6, "S": 4, "Q": 4, "A": 7}


@dataclasses.dataclass
class Segment:
    """A line, or a curve with its two control points, from where the last segment ended."""
    end: Point
    controls: tuple[Point, ...] = ()

    @property
    def is_line(self):
        return not self.controls


@dataclasses.dataclass
class Subpath:
    start: Point
    segments: list[Segment] = dataclasses.field(default_factory=list)
    is_closed: bool = False

    def steps(self):
        """Pairs of a segment and the point where it begins."""
        start = self.start
        for segment in self.segments:
            yield start, segment
            start = segment.end

    def points(self):
        return [self.start] + [segment.end for segment in self.segments]


def numbers_of(command, text):
    """The flags of an arc may stand without a blank behind them."""
    if command.upper() != "A":
        return [float(number) for number in NUMBER.findall(text)]
    values = []
    while text := text.lstrip(" ,\n"):
        length = 1 if len(values) % 7 in (3, 4) else NUMBER.match(text).end()
        values.append(float(text[:length]))
        text = text[length:]
    return values


def arc_curves(start, radii, is_large, is_clockwise, end):
    """An arc of an upright ellipse as curves that end at its extremes (SVG 1.1, appendix F.6.5)."""
    if start == end:
        return []
    rx, ry = radii
    half = (start[0] - end[0]) / 2, (start[1] - end[1]) / 2
    stretch = (half[0] / rx) ** 2 + (half[1] / ry) ** 2
    if stretch > 1:
        rx, ry = rx * math.sqrt(stretch), ry * math.sqrt(stretch)
    squares = (rx * half[1]) ** 2 + (ry * half[0]) ** 2
    factor = math.sqrt(max(0, ((rx * ry) ** 2 - squares) / squares)) * (-1 if is_large == is_clockwise else 1)
    offset = factor * rx * half[1] / ry, -factor * ry * half[0] / rx
    centre = offset[0] + (start[0] + end[0]) / 2, offset[1] + (start[1] + end[1]) / 2
    first = math.atan2((half[1] - offset[1]) / ry, (half[0] - offset[0]) / rx)
    last = math.atan2((-half[1] - offset[1]) / ry, (-half[0] - offset[0]) / rx)
    if is_clockwise and last < first:
        last += 2 * math.pi
    if not is_clockwise and last > first:
        last -= 2 * math.pi
    quarters = [quarter * math.pi / 2 for quarter in range(-8, 9)]
    inner = [angle for angle in quarters if min(first, last) + 1e-3 < angle < max(first, last) - 1e-3]
    angles = [first, *sorted(inner, reverse=last < first), last]
    curves = []
    for low, high in zip(angles, angles[1:]):
        reach = 4 / 3 * math.tan((high - low) / 4)
        from_point, to_point = ((centre[0] + rx * math.cos(angle), centre[1] + ry * math.sin(angle))
                                for angle in (low, high))
        curves.append(Segment(to_point, (
            (from_point[0] - reach * rx * math.sin(low), from_point[1] + reach * ry * math.cos(low)),
            (to_point[0] + reach * rx * math.sin(high), to_point[1] - reach * ry * math.cos(high)))))
    return curves


class Parser:
    def __init__(self):
        self.subpaths = []
        self.current = None
        self.position = (0.0, 0.0)
        self.last_control = None

    def begin(self, start):
        self.position = start
        self.current = Subpath(start)
        self.subpaths.append(self.current)

    def close(self):
        if self.current:
            if math.dist(self.position, self.current.start) > 1e-6:
                self.current.segments.append(Segment(self.current.start))
            self.current.is_closed = True
            self.position = self.current.start
        self.current = None
        self.last_control = None

    def add(self, *segments):
        if not self.current:
            self.begin(self.position)
        self.current.segments += segments
        self.position = segments[-1].end
        self.last_control = None

    def add_curve(self, *points):
        self.add(Segment(points[2], points[:2]))
        self.last_control = points[1]

    def draw(self, command, values):
        kind = command.upper()
        x, y = self.position
        origin = (x, y) if command.islower() else (0, 0)
        if kind == "H":
            self.add(Segment((origin[0] + values[0], y)))
        elif kind == "V":
            self.add(Segment((x, origin[1] + values[0])))
        elif kind == "A":
            end = origin[0] + values[5], origin[1] + values[6]
            if curves := arc_curves(self.position, values[:2], bool(values[3]), bool(values[4]), end):
                self.add(*curves)
        else:
            points = [(origin[0] + px, origin[1] + py) for px, py in zip(values[::2], values[1::2])]
            if kind in "ML":
                self.add(Segment(points[0]))
            elif kind == "C":
                self.add_curve(*points)
            elif kind == "S":
                mirrored = self.last_control and (2 * x - self.last_control[0], 2 * y - self.last_control[1])
                self.add_curve(mirrored or (x, y), *points)
            else:
                self.add_curve(*((px + 2 / 3 * (qx - px), py + 2 / 3 * (qy - py)) for (px, py), (qx, qy) in
                                 ((self.position, points[0]), (points[1], points[0]))), points[1])


def parse_path(data):
    """The subpaths of path data."""
    parser = Parser()
    for command, text in COMMAND.findall(data):
        if command in "Zz":
            parser.close()
            continue
        values = numbers_of(command, text)
        count = ARGUMENTS[command.upper()]
        for i in range(0, len(values), count):
            arguments = values[i:i + count]
            if command in "Mm" and i == 0:
                origin = parser.position if command == "m" else (0, 0)
                parser.begin((origin[0] + arguments[0], origin[1] + arguments[1]))
            else:
                parser.draw(command, arguments)
    for subpath in parser.subpaths:
        if len(subpath.segments) > 1 and math.dist(subpath.start, subpath.segments[-1].end) < 1e-3:
            subpath.is_closed = True
    return parser.subpaths
