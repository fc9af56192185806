"""Draws the chart of docs/performance.md: one row per workload, one mark per contestant on a logarithmic scale."""

import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plot # pylint: disable=wrong-import-position

TICKS = (0.25, 0.5, 1, 2, 4)


def draw(ratios, targets, library, path):
    """Writes an SVG file.

    ratios:  a table of workloads by contestants, time divided by the baseline's
    targets: workload -> what the library's ratio should be at most
    """
    matplotlib.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": library, "font.family": "sans-serif"})
    figure, axes = plot.subplots(figsize=(10, 0.32 * len(ratios) + 1.5), layout="constrained")
    rows = range(len(ratios))
    bounds = [targets.get(workload) for workload in ratios.index]
    axes.scatter(bounds, rows, marker="|", s=200, linewidths=3, color="#c0392b", label=f"target for {library}")
    for contestant in reversed(ratios.columns):
        shown = ratios[contestant].clip(TICKS[0], TICKS[-1])
        axes.scatter(shown, rows, s=70 if contestant == library else 30, label=contestant, clip_on=False)
    axes.axvline(1, color="#222222", linewidth=1)
    axes.set(xscale="log", xlim=(TICKS[0], TICKS[-1]), ylim=(len(ratios) - 0.5, -0.5),
             title="Time divided by the baseline's (less is better; what lies beyond is drawn at the end)")
    axes.set_xticks(TICKS, [str(tick) for tick in TICKS])
    axes.minorticks_off()
    axes.set_yticks(rows, ratios.index)
    axes.grid(color="#dddddd")
    axes.set_axisbelow(True)
    axes.legend(loc="upper center", bbox_to_anchor=(0.5, -0.05), ncol=5, frameon=False)
    figure.savefig(path, bbox_inches="tight", metadata={"Date": None})
