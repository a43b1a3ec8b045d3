"""Draws the pictures of the examples from fresh runs:

    python3 examples/plot.py PROGRAM [NAME...]

PROGRAM is quorvex-run, NAME an example's folder (all of them). Each picture goes to
examples/NAME/picture.svg. Nothing but Python's own library is needed.
"""

import cmath
import math
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
CARRIER = 1.25538e15  # rad/s
CELL = 7.5e-8  # m
DIPOLE = 1e-29  # C m
HBAR, EPS0, C = 1.0546e-34, 8.85e-12, 2.997e8
BLACK, BLUE, RED, GREEN, ORANGE, GREY = (
    "#222222", "#0072b2", "#d55e00", "#009e73", "#e69f00", "#9a9a9a")


# ---------------------------------------------------------------- runs


class Table:
    """What --table writes: times in fs, the field and the populations by node."""

    def __init__(self, text):
        lines = [line.split("\t") for line in text.splitlines()]
        self.columns = {name: [float(line[i]) for line in lines[1:]]
                        for i, name in enumerate(lines[0])}
        self.time = [t * 1e15 for t in self.columns["t (s)"]]

    def field(self, node, component=0):
        return self.columns[f"E{component} (V/m) at {node}"]

    def level(self, node, level, system=0):
        return self.columns[f"Rho_Bloch{system}[{level}][{level}] at {node}"]

    def envelope(self, node, component=0, rows=25, every=25):
        """Times and amplitudes of means over `rows` lines, which cover whole periods."""
        field = self.field(node, component)
        times, amplitudes = [], []
        for i in range(0, len(field) - rows + 1, every):
            turned = sum(e * cmath.exp(1j * CARRIER * t * 1e-15)
                         for e, t in zip(field[i:i + rows], self.time[i:i + rows]))
            times.append((self.time[i] + self.time[i + rows - 1]) / 2)
            amplitudes.append(2 * abs(turned) / rows)
        return times, amplitudes

    def spectrum(self, node, component=0):
        """The field's amplitude at the carrier, in V s/m."""
        turned = sum(e * cmath.exp(1j * CARRIER * t * 1e-15)
                     for e, t in zip(self.field(node, component), self.time))
        return abs(turned) * (self.time[1] - self.time[0]) * 1e-15


class Runs:
    def __init__(self, program):
        self.program = pathlib.Path(program).resolve()

    def table(self, file, steps, *options):
        """Runs examples/`file` with further options, each "KEY=VALUE" or a method's name."""
        command = [self.program, HERE / file, "-n", str(steps), "-q"]
        for option in options:
            command += ["--set" if "=" in option else "--method", option]
        with tempfile.TemporaryDirectory() as place:
            path = pathlib.Path(place)
            subprocess.run(command + ["-o", path / "results", "--table", path / "table"],
                           check=True, stdout=subprocess.DEVNULL)
            return Table((path / "table").read_text())


# ---------------------------------------------------------------- pictures


def ticks(low, high):
    raw = (high - low) / 5
    power = 10.0 ** math.floor(math.log10(raw))
    step = next(f * power for f in (1, 2, 2.5, 5, 10) if f * power >= raw * 0.999)
    first = math.ceil(low / step - 1e-9)
    return [i * step for i in range(first, int(math.floor(high / step + 1e-9)) + 1)]


class Panel:
    """A frame with axes, a note and a legend above it. Curves are cut at its edges."""

    LEFT, RIGHT, TOP, BOTTOM = 78, 18, 32, 46  # BOTTOM with a label under the axis

    def __init__(self, xlabel, ylabel, xrange, yrange, isLog=False, height=220, note=""):
        self.xlabel, self.ylabel, self.note = xlabel, ylabel, note
        self.xrange, self.yrange, self.isLog = xrange, yrange, isLog
        self.height, self.width = height, 760
        self.bottom = self.BOTTOM if xlabel else self.BOTTOM - 20
        self.curves, self.points, self.legend = [], [], []

    def x(self, value):
        low, high = self.xrange
        return self.LEFT + (value - low) / (high - low) * (self.width - self.LEFT - self.RIGHT)

    def y(self, value):
        low, high = self.yrange
        if self.isLog:
            low, high, value = math.log10(low), math.log10(high), math.log10(max(value, 1e-300))
        part = min(max((value - low) / (high - low), -0.05), 1.05)
        return self.TOP + (1 - part) * (self.height - self.TOP - self.bottom)

    def thinned(self, points):
        """Of each two pixels' width the lowest and the highest point, or one if they are close."""
        bins = {}
        for x, y in points:
            bins.setdefault(int(self.x(x) / 2), []).append((x, y))
        kept = []
        for part in bins.values():
            low, high = min(part, key=lambda p: p[1]), max(part, key=lambda p: p[1])
            isFlat = abs(self.y(low[1]) - self.y(high[1])) < 3
            kept += [part[len(part) // 2]] if isFlat else sorted((low, high))
        return kept

    def line(self, xs, ys, colour, label="", width=1.6, dash=""):
        points = [(x, y) for x, y in zip(xs, ys) if self.xrange[0] <= x <= self.xrange[1]]
        if len(points) > 400:
            points = self.thinned(points)
        path = " ".join(f"{self.x(x):.1f},{self.y(y):.1f}" for x, y in points)
        style = f' stroke-dasharray="{dash}"' if dash else ""
        self.curves.append(f'<polyline points="{path}" fill="none" stroke="{colour}" '
                           f'stroke-width="{width}" stroke-linejoin="round"{style}/>')
        if label:
            self.legend.append((label, f'<line x1="0" x2="22" y1="0" y2="0" stroke="{colour}" '
                                       f'stroke-width="{max(width, 1.6)}"{style}/>'))

    def dots(self, xs, ys, colour, label="", shape="o"):
        drawn = {"o": '<circle r="4" fill="{}"/>',
                 "s": '<path d="M-6-6H6V6H-6Z" fill="none" stroke="{}"/>',
                 "d": '<path d="M0-5L5 0L0 5L-5 0Z" fill="{}"/>'}[shape].format(colour)
        for x, y in zip(xs, ys):
            if not self.xrange[0] <= x <= self.xrange[1]:
                continue
            self.points.append(f'<g transform="translate({self.x(x):.1f} {self.y(y):.1f})">'
                               f'{drawn}</g>')
        if label:
            self.legend.append((label, f'<g transform="translate(11 0)">{drawn}</g>'))

    def svg(self, number):
        right, bottom = self.width - self.RIGHT, self.height - self.bottom
        out = [f'<clipPath id="c{number}"><rect x="{self.LEFT}" y="{self.TOP}" '
               f'width="{right - self.LEFT}" height="{bottom - self.TOP}"/></clipPath>']
        for value in ticks(*self.xrange):
            x = self.x(value)
            out.append(f'<line x1="{x:.1f}" x2="{x:.1f}" y1="{self.TOP}" y2="{bottom}" '
                       f'class="grid"/><text x="{x:.1f}" y="{bottom + 16}" '
                       f'text-anchor="middle">{value:g}</text>')
        low, high = self.yrange
        if self.isLog:
            values = [10.0 ** i for i in range(math.ceil(math.log10(low)),
                                               math.floor(math.log10(high)) + 1)]
        else:
            values = ticks(low, high)
        for value in values:
            y = self.y(value)
            text = f"1e{round(math.log10(value))}" if self.isLog else f"{round(value, 9):g}"
            out.append(f'<line x1="{self.LEFT}" x2="{right}" y1="{y:.1f}" y2="{y:.1f}" '
                       f'class="grid"/><text x="{self.LEFT - 7}" y="{y + 4:.1f}" '
                       f'text-anchor="end">{text}</text>')
        out.append(f'<g clip-path="url(#c{number})">' + "\n".join(self.curves) + "</g>")
        out.append(f'<rect x="{self.LEFT}" y="{self.TOP}" width="{right - self.LEFT}" '
                   f'height="{bottom - self.TOP}" fill="none" stroke="{BLACK}"/>')
        out.append(f'<text x="{(self.LEFT + right) / 2}" y="{self.height - 9}" '
                   f'text-anchor="middle">{self.xlabel}</text>')
        middle = (self.TOP + bottom) / 2
        out.append(f'<text transform="translate(18 {middle}) rotate(-90)" '
                   f'text-anchor="middle">{self.ylabel}</text>')
        out += self.points
        out.append(f'<text x="{self.LEFT}" y="{self.TOP - 10}">{self.note}</text>')
        place = right
        for label, sample in reversed(self.legend):
            place -= 46 + 6.3 * len(label)
            out.append(f'<g transform="translate({place:.0f} {self.TOP - 14})">{sample}'
                       f'<text x="28" y="4">{label}</text></g>')
        return "\n".join(out)


def save(name, panels):
    height = sum(panel.height for panel in panels)
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 760 {height}" width="760" '
             f'height="{height}">', "<style>text{font:12px sans-serif;fill:#222222}"
             ".grid{stroke:#e4e4e4}</style>",
             f'<rect width="760" height="{height}" fill="#ffffff"/>']
    top = 0
    for number, panel in enumerate(panels):
        parts.append(f'<g transform="translate(0 {top})">{panel.svg(number)}</g>')
        top += panel.height
    text = "\n".join(parts) + "\n</svg>\n"
    (HERE / name / "picture.svg").write_text(text)
    print(f"{name}/picture.svg, {len(text.encode()) / 1000:.0f} kB")


def inUnit(values, unit):
    return [value / unit for value in values]


def depth(node, first=132, last=1198):
    """Of a node in a medium from `first` to `last`, in micrometres."""
    return (min(max(node, first), last) - first) * CELL * 1e6


# ---------------------------------------------------------------- the examples


def selfInducedTransparency(runs):
    tables = [runs.table(f"self-induced-transparency/{name}.xml", 3000)
              for name in ("pi", "2pi", "4pi")]
    field = Panel("", "field at 11 %, GV/m", (50, 130), (-5, 5), height=190,
                  note="the 2\u03c0 pulse")
    field.line(tables[1].time, inUnit(tables[1].field(145), 1e9), BLUE, width=1.3)
    level = Panel("time, fs", "population of level 1 at 11 %", (50, 130), (0, 1.05), height=250)
    for table, label, colour in zip(tables, ("\u03c0", "2\u03c0", "4\u03c0"),
                                    (GREEN, BLUE, RED)):
        level.line(table.time, table.level(145, 1), colour, label)
    save("self-induced-transparency", [field, level])


def absorber(runs):
    nodes = (265, 532, 798, 1065)
    rate = 2 * 2.5e13 + 0.5e10
    alpha = CARRIER * 2.45e24 * DIPOLE ** 2 / (2 * EPS0 * C * HBAR * rate)
    way = [0.5 * i for i in range(131)]
    law = Panel("", "amplitude transmission", (0, 65), (0.4, 1.05), height=270)
    law.line(way, [math.exp(-alpha * z * 1e-6) for z in way], BLACK, "exp(-\u03b1z)")
    rest = Panel("way z from the first captor, \u00b5m", "transmission - exp(-\u03b1z)", (0, 65),
                 (-0.01, 0.01), height=200)
    for method, colour, shape in (("CN_P", GREEN, "s"), ("CN_dtP", RED, "d"),
                                  ("Split", BLUE, "o")):
        table = runs.table("absorber/absorber.xml", 7000, method)
        seen = [table.spectrum(node) / table.spectrum(nodes[0]) for node in nodes]
        ways = [(node - nodes[0]) * CELL * 1e6 for node in nodes]
        law.dots(ways, seen, colour, method, shape)
        rest.dots(ways, [t - math.exp(-alpha * z * 1e-6) for t, z in zip(seen, ways)], colour,
                  "", shape)
    save("absorber", [law, rest])


def rabi(runs):
    panel = Panel("time, fs", "population of level 1", (0, 1200), (0, 1.05), height=240)
    table = runs.table("rabi/rabi.xml", 6000)
    panel.line(table.time, table.level(99, 1), BLUE, "Split", 1.8)
    table = runs.table("rabi/rabi.xml", 6000, "CN_P")
    panel.line(table.time, table.level(99, 1), RED, "CN_P", 1.2)
    turns = [math.sin(math.pi * (t - 25.3) / 200.0) ** 2 for t in range(26, 1201, 2)]
    panel.line(range(26, 1201, 2), turns, BLACK, "sin\u00b2(\u03a9t / 2)", 1.0, "4 4")
    save("rabi", [panel])


def amplifier(runs):
    weak = Panel("time, fs", "envelope at 70 %, kV/m", (250, 520), (0, 125), height=250,
                 note="a weak pulse, 100 kV/m")
    full = Panel("time, fs", "envelope at 70 %, GV/m", (250, 350), (0, 9), height=230,
                 note="the pulse of the file, 8.537 GV/m")
    for method, colour, label, options in (("CN_P", BLUE, "CN_P", ()),
                                           ("CN_Z", RED, "CN_Z", ()),
                                           ("CN_P", GREY, "no atoms", ("mAtomsNumber=0",))):
        table = runs.table("amplifier/amplifier.xml", 2600, method, *options)
        full.line(*scaled(table.envelope(932, every=5), 1e9), colour, label)
        table = runs.table("amplifier/amplifier.xml", 2600, method, "mFieldMaxValue=1e5",
                           *options)
        weak.line(*scaled(table.envelope(932, every=5), 1e3), colour, label)
    save("amplifier", [full, weak])


def scaled(curve, unit):
    return curve[0], inUnit(curve[1], unit)


def threeLevel(runs):
    colours = (BLUE, ORANGE, RED)
    history = Panel("time, fs", "population", (350, 750), (0, 1.05), height=230,
                    note="area \u221a2 \u03c0")
    table = runs.table("three-level/ladder.xml", 5500)
    for level, colour in enumerate(colours):
        history.line(table.time, table.level(99, level), colour, f"level {level}")
    final = Panel("area of the pulse / \u03c0", "population after the pulse", (0, 3.1), (0, 1.05),
                  height=260)
    areas = [0.02 * i for i in range(156)]
    laws = (lambda x: math.cos(x / 2) ** 4, lambda x: math.sin(x) ** 2 / 2,
            lambda x: math.sin(x / 2) ** 4)
    for law, colour in zip(laws, colours):
        final.line(areas, [law(a * math.pi / math.sqrt(2)) for a in areas], colour, "", 1.2)
    for part in range(1, 11):
        value = 2.9829e8 * part / 5
        table = runs.table("three-level/ladder.xml", 5500, f"mFieldMaxValue={value:.4e}")
        for level, colour in enumerate(colours):
            final.dots([part / 5 * math.sqrt(2)], [table.level(99, level)[-1]], colour,
                       f"level {level}" if part == 1 else "")
    save("three-level", [history, final])


def twoPolarizations(runs):
    panel = Panel("angle between dipoles and incident field, degrees",
                  "amplitude behind the medium / incident", (0, 90), (0, 1.05), height=320)
    rate = 2 * 2.5e13 + 0.5e10
    alpha = CARRIER * 1e25 * DIPOLE ** 2 / (2 * EPS0 * C * HBAR * rate)
    left = math.exp(-alpha * depth(1265) * 1e-6)
    angles = range(0, 91)
    turned = [math.radians(a) for a in angles]
    panel.line(angles, [math.sin(a) ** 2 + math.cos(a) ** 2 * left for a in turned], BLUE, "")
    panel.line(angles, [math.sin(a) * math.cos(a) * (1 - left) for a in turned], RED, "")
    for angle in range(0, 91, 15):
        x = DIPOLE * math.cos(math.radians(angle))
        y = DIPOLE * math.sin(math.radians(angle))
        table = runs.table("two-polarizations/polarizer.xml", 7200, f"mPs=0,{x:e},{x:e},0",
                           f"mPs[1]=0,{y:e},{y:e},0")
        incident = table.spectrum(1)
        for component, colour in ((0, BLUE), (1, RED)):
            panel.dots([angle], [table.spectrum(1265, component) / incident], colour,
                       f"along {'xy'[component]}" if angle == 0 else "")
    save("two-polarizations", [panel])


def gamma(z):
    """The gamma function of a complex number, by Lanczos' series."""
    series = (676.5203681218851, -1259.1392167224028, 771.32342877765313, -176.61502916214059,
              12.507343278686905, -0.13857109526572012, 9.9843695780195716e-6,
              1.5056327351493116e-7)
    if z.real < 0.5:
        return math.pi / (cmath.sin(math.pi * z) * gamma(1 - z))
    z -= 1
    total = 0.99999999999980993 + sum(c / (z + i + 1) for i, c in enumerate(series))
    t = z + len(series) - 0.5
    return math.sqrt(2 * math.pi) * t ** (z + 0.5) * cmath.exp(-t) * total


def passSech(area, detuning, width):
    """Amplitudes of both levels after a pulse sech(t / width) on the ground state, exactly."""
    g = complex(0.5, detuning * width / 2)
    a = area / (2 * math.pi)
    return (gamma(g) ** 2 / (gamma(g + a) * gamma(g - a)),
            1j * math.sin(area / 2) / math.cosh(math.pi * detuning * width / 2))


def echo(detunings, duration, times):
    """The mean coherence after the two pulses; times in s from the start of the first one."""
    states = []
    for d in detunings:
        ground, excited = passSech(2.5 * math.pi, d, duration / 20)
        excited *= cmath.exp(-1j * d * duration)
        stays, changes = passSech(math.pi, d, duration / 20)
        states.append((d, (changes * ground + stays.conjugate() * excited)
                       * (stays * ground - changes.conjugate() * excited).conjugate()))
    return [abs(sum(c * cmath.exp(-1j * d * (t - 1.5 * duration)) for d, c in states))
            / len(states) for t in times]


def broadenedLine(runs):
    text = (HERE / "broadened-line/frequencies.txt").read_text()
    detunings = [float(line) - CARRIER for line in text.split()]
    duration = 5e-13
    table = runs.table("broadened-line/echo.xml", 7500)
    times, seen = table.envelope(198, rows=50, every=50)
    # The light needs 198 cells to the captor; 21 nodes of atoms radiate.
    way = 198 * CELL / C
    theory = [CARRIER * 2 * 1e24 * DIPOLE * s * 21 * CELL / (2 * EPS0 * C)
              for s in echo(detunings, duration, [t * 1e-15 - way for t in times])]
    whole = Panel("", "envelope, V/m", (0, 1500), (1e5, 3e9), True, 240,
                  "the light behind the atoms")
    whole.line(times, seen, BLUE)
    zoom = Panel("time, fs", "envelope, MV/m", (1040, 1500), (0, 4.2), height=230,
                 note="the echo")
    zoom.line(times, inUnit(theory, 1e6), BLACK, "theory for these 21 frequencies", 1.4)
    zoom.dots(times, inUnit(seen, 1e6), BLUE, "quorvex-run")
    save("broadened-line", [whole, zoom])
    print("     t (fs)  seen (V/m)  theory (V/m)")
    late = [row for row in zip(times, seen, theory) if row[0] > 1040]
    for t, e, law in late[::4]:
        print(f"  {t:9.2f}  {e:10.4e}    {law:10.4e}")
    fine = [t * 0.5 for t in range(2200, 2900)]
    shape = echo(detunings, duration, [t * 1e-15 - way for t in fine])
    print(f"  top of the echo: seen {max(late, key=lambda r: r[1])[0]:.1f} fs, theory "
          f"{fine[shape.index(max(shape))]:.1f} fs")


def laserCavity(runs):
    panel = Panel("time, fs", "field at 50 %, kV/m", (0, 480), (-160, 160), height=280)
    table = runs.table("laser-cavity/cavity.xml", 2400)
    panel.line(table.time, inUnit(table.field(199), 1e3), BLUE, "mirrors (laser)", 1.0)
    table = runs.table("laser-cavity/cavity.xml", 2400, "mIsLaserType=0")
    panel.line(table.time, inUnit(table.field(199), 1e3), ORANGE, "absorbing ends", 1.0)
    save("laser-cavity", [panel])


def olderFormat(runs):
    table = runs.table("older-format/pumping.xml", 10000)
    levels = Panel("", "population at 11 %", (0, 2000), (0, 1.05), height=230)
    rabiFrequency = 2.1092e8 * DIPOLE / HBAR
    rate, decay = rabiFrequency ** 2 / (2 * 1.05e14), 1e13
    n, step, laws = [1.0, 0.0, 0.0], 1e-16, ([], [], [])
    times = [36.5 + 0.1 * i for i in range(19650)]
    for _ in times:
        for level in range(3):
            laws[level].append(n[level])
        flow, fall = rate * (n[0] - n[2]) * step, decay * n[2] * step
        n = [n[0] - flow, n[1] + fall, n[2] + flow - fall]
    for level, colour in enumerate((BLUE, GREEN, RED)):
        levels.line(table.time[::10], table.level(145, level)[::10], colour, f"level {level}")
    for level in range(3):
        levels.line(times[::100], laws[level][::100], BLACK, "" if level else "rate equations",
                    1.0, "4 4")
    light = Panel("time, fs", "envelope of the light, GV/m", (0, 2000), (0, 0.32), height=230)
    for node, place, colour in ((145, 11, BLUE), (665, 50, ORANGE), (1185, 89, RED)):
        light.line(*scaled(table.envelope(node), 1e9), colour, f"at {place} %")
    save("older-format", [levels, light])


EXAMPLES = {
    "self-induced-transparency": selfInducedTransparency, "absorber": absorber, "rabi": rabi,
    "amplifier": amplifier, "three-level": threeLevel, "two-polarizations": twoPolarizations,
    "broadened-line": broadenedLine, "laser-cavity": laserCavity, "older-format": olderFormat}


def main(arguments):
    if not arguments or not set(arguments[1:]) <= set(EXAMPLES):
        sys.exit(__doc__)
    runs = Runs(arguments[0])
    for name in arguments[1:] or EXAMPLES:
        EXAMPLES[name](runs)


if __name__ == "__main__":
    main(sys.argv[1:])
