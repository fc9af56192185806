"""Draws the chart of docs/performance.md: one row per workload, one mark per contestant on a logarithmic scale."""

import math
from xml.sax.saxutils import escape

WIDTH, LEFT, RIGHT, TOP, ROW = 960, 170, 30, 110, 34
SCALE = (0.25, 16.0)
TICKS = (0.25, 0.5, 1, 2, 4, 8, 16)
LIBRARY_COLOUR, TARGET_COLOUR = "#0b5cad", "#c0392b"
RIVAL_COLOURS = ("#e08e0b", "#5b8c2a", "#8e44ad", "#16a085", "#7f6b5d", "#d35494")


def x_of(ratio):
    low, high = (math.log(bound) for bound in SCALE)
    share = (math.log(min(max(ratio, SCALE[0]), SCALE[1])) - low) / (high - low)
    return LEFT + share * (WIDTH - LEFT - RIGHT)


def text(x, y, content, anchor="start", size=13, colour="#222222", weight="normal"):
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}" fill="{colour}" '
            f'font-weight="{weight}">{escape(content)}</text>')


def line(x1, y1, x2, y2, colour, width=1.0):
    return (f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="{colour}" '
            f'stroke-width="{width}"/>')


def dot(x, y, colour, radius):
    return f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{radius}" fill="{colour}"/>'


def target_mark(x, y):
    return line(x, y - 11, x, y + 11, TARGET_COLOUR, 3)


def legend(library, colours):
    parts, x, y = [], LEFT, 56
    entries = [(library, LIBRARY_COLOUR, 7)] + [(name, colour, 5) for name, colour in colours.items()]
    for name, colour, radius in entries:
        width = 30 + 7.5 * len(name)
        if x + width > WIDTH - RIGHT:
            x, y = LEFT, y + 20
        parts += [dot(x + 7, y - 4, colour, radius), text(x + 20, y, name)]
        x += width
    if x + 150 > WIDTH - RIGHT:
        x, y = LEFT, y + 20
    parts += [target_mark(x + 7, y - 4), text(x + 20, y, f"target for {library}")]
    return parts


def grid(bottom):
    parts = []
    for tick in TICKS:
        x = x_of(tick)
        is_baseline = tick == 1
        parts += [line(x, TOP, x, bottom, "#444444" if is_baseline else "#d8d8d8", 2 if is_baseline else 1),
                  text(x, bottom + 20, "baseline" if is_baseline else f"{tick:g}", "middle", 12)]
    return parts


def row(y, workload, ratios, target, library, colours):
    parts = [text(LEFT - 12, y + 5, workload, "end")]
    parts += [dot(x_of(ratio), y, colours[name], 5) for name, ratio in ratios.items() if name != library]
    if target:
        parts.append(target_mark(x_of(target), y))
    if library in ratios:
        parts.append(dot(x_of(ratios[library]), y, LIBRARY_COLOUR, 7))
    return parts


def draw(ratios, targets, library):
    """The chart as SVG.

    ratios:  workload -> contestant -> time divided by the baseline's
    targets: workload -> what the library's ratio should be at most
    """
    rivals = []
    for contestants in ratios.values():
        rivals += [name for name in contestants if name != library and name not in rivals]
    colours = {name: RIVAL_COLOURS[i % len(RIVAL_COLOURS)] for i, name in enumerate(rivals)}
    bottom = TOP + ROW * len(ratios)
    height = bottom + 56
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}" '
             f'viewBox="0 0 {WIDTH} {height}" font-family="sans-serif">',
             f'<rect width="{WIDTH}" height="{height}" fill="#ffffff"/>',
             text(LEFT, 28, "Time of each contestant divided by the baseline's (less is better)", size=16,
                  weight="bold")]
    parts += legend(library, colours) + grid(bottom)
    for i, (workload, contestants) in enumerate(ratios.items()):
        parts += row(TOP + ROW * (i + 0.5), workload, contestants, targets.get(workload), library, colours)
    parts += [text(LEFT, bottom + 44, "Logarithmic scale; what lies beyond it is drawn at its end.", size=12), "</svg>"]
    return "\n".join(parts) + "\n"
