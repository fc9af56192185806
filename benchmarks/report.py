#!/usr/bin/env python3
"""Turns the results of the benchmark into tables, and on request into docs/performance.md with its chart.

usage: report.py RESULTS.json [--instructions FOLDER] [--write FOLDER]

RESULTS.json   what the benchmark program wrote
--instructions the folder of the dumps of a run under callgrind
--write        the folder that receives performance.md and performance.svg
"""

import argparse
import collections
import json
import pathlib
import re
import statistics

import chart

LIBRARY, BASELINE, FLOOR = "Zorvel", "baseline", "floor"
MILLION = 1_000_000

# The order of the tables; the run itself has none.
WORKLOADS = ("SetInt32", "GetInt32", "SetString40", "GetString40", "Has", "BuildDestroy16", "Copy16", "CopyInto16",
             "List16", "SetInt32in10000", "GetInt32in10000", "Add1000000", "Find1000000", "ReturnCode",
             "FrameIncrement", "Floor")
CONTESTANTS = (LIBRARY, BASELINE, "typed setters", "absl::flat_hash_map", "GstStructure", "GObject", "QVariantHash",
               "Imf::Header", FLOOR)

# Time of the library divided by the baseline's.
TARGETS = {
    "SetInt32": 1.0, "GetInt32": 0.6, "SetString40": 1.0, "GetString40": 0.6, "Has": 0.5, "BuildDestroy16": 0.7,
    "Copy16": 0.7, "CopyInto16": 1.0, "List16": 0.6, "SetInt32in10000": 1.0, "GetInt32in10000": 0.6,
}
ALLOCATIONS = {"SetInt32": 0, "GetInt32": 0, "SetString40": 0, "GetString40": 0, "Has": 0, "SetInt32in10000": 0,
               "GetInt32in10000": 0, "BuildDestroy16": 20, "Copy16": 20}
FLOOR_TOLERANCE = 1.1 # what counts as "at the floor" with the noise of a single nanosecond
MOST_GROWTH = 2.5
LEAST_THREADING = 1.9

INTRODUCTION = """# Performance

What a property set costs beside what one would write instead. `tools/bench --instructions` measured and wrote this page.

Contestants:

- **{library}**: the library, linked as a caller links it.
- **baseline**: written by hand: `std::unordered_map` from `std::string` to a `std::variant` of the nine types, looked up
  by `std::string_view`; a map of declared types that is asked when a property is added; a check of the type when one is
  set; a `std::recursive_mutex` held for each operation. Its functions lie in a source of their own, without link-time
  optimisation, as the library lies behind a boundary. Its copy into another set checks each type as it goes and stops
  half-way when one differs; the library checks them all before it changes anything. A value is passed as a variant.
- **typed setters**: the baseline with a setter for each type: it builds no variant and copies a text into the old one.
- **absl::flat_hash_map**: the baseline on that map.
- **GstStructure**, **GObject** (object properties), **QVariantHash**, **Imf::Header**: what other frameworks offer,
  behind the same mutex, because they have none of their own. GstStructure and Imf::Header have no schema. The
  properties of a GObject are there from construction on, and its copy is a new object that gets every value.
- **floor**: a `std::recursive_mutex` locked and unlocked, one probe with a hash at hand, one store. The return code's
  floor is a structure of a number and a pointer, the frame increment's two plain counters.

A set has 16 properties of all nine types, with names of 5 to 30 characters; they are looked up with keys that are equal
to the names but share nothing with them. All contestants run in one process, their repetitions in random order, with
two more threads parked. Numbers are medians of processor time per operation. The throughput of threads is by elapsed
time: it means something only when the machine has nothing else to do, which the processor time beside it shows. The
longest addition is the shortest of nine runs' longest. Heap allocations count `malloc`, `calloc`, `realloc` and what is
built on them, in all modules. Times of different machines and runs do not compare: read the ratios.
"""

REPEAT = """## How to repeat it

`tools/bench` builds the `bench` preset, runs everything in about five minutes, prints the tables and writes this page.
`--quick` takes a minute, leaves the workloads on a million properties out and writes nothing. `--instructions` also
counts instructions under callgrind; those repeat from run to run. A rival takes part if its Debian package is installed.
"""


class Results:
    """The repetitions of a run, by workload, contestant and number of threads."""

    def __init__(self, path):
        self._times = collections.defaultdict(list)
        self._processor_times = collections.defaultdict(list)
        self.allocations = {}
        with open(path, encoding="utf-8") as file:
            content = json.load(file)
        self.context = content["context"]
        for run in content["benchmarks"]:
            if run["run_type"] == "iteration":
                self._add(run)
        self.contestants = [c for c in CONTESTANTS if any(key[1] == c for key in self._times)]

    def _add(self, run):
        if run.get("error_occurred"):
            raise SystemExit(f"{run['name']}: {run['error_message']}")
        workload, contestant, *options = run["run_name"].split("/")
        threads = next((int(o.split(":")[1]) for o in options if o.startswith("threads:")), 0)
        is_elapsed = threads or "manual_time" in options
        share = MILLION if workload.endswith(str(MILLION)) else 1
        self._times[workload, contestant, threads].append(run["real_time" if is_elapsed else "cpu_time"] / share)
        self._processor_times[workload, contestant, threads].append(run["cpu_time"] / share)
        self.allocations[workload, contestant] = run["allocations"] / share

    def repetitions(self):
        return max(map(len, self._times.values()))

    def time(self, workload, contestant, threads=0):
        """The median in nanoseconds, or None."""
        times = self._times.get((workload, contestant, threads))
        return statistics.median(times) if times else None

    def processor_time(self, workload, contestant, threads):
        """The median of what all threads together spend on one operation."""
        return statistics.median(self._processor_times[workload, contestant, threads])

    def least(self, workload, contestant):
        """The shortest of the few repetitions of what is a maximum by itself."""
        times = self._times.get((workload, contestant, 0))
        return min(times) if times else None

    def ratio(self, workload, contestant, other):
        time, reference = self.time(workload, contestant), self.time(workload, other)
        return time / reference if time and reference else None

    def best_rival(self, workload):
        """The fastest but the library, the baseline and the floor; or None."""
        times = {c: self.time(workload, c) for c in self.contestants if c not in (LIBRARY, BASELINE, FLOOR)}
        times = {c: t for c, t in times.items() if t}
        return min(times, key=times.get) if times else None

    def floor(self, workload):
        """The floor of a workload on single values; None where none is meant."""
        if workload in ("SetInt32", "GetInt32", "SetString40", "GetString40", "Has"):
            return self.time("Floor", FLOOR)
        return self.time(workload, FLOOR)


def number(value, digits=2):
    return "" if value is None else f"{value:,.{digits}f}"


def nanoseconds(value):
    return "" if value is None else f"{value:,.1f}" if value < 1000 else f"{value:,.0f}"


def verdict(is_met):
    return "yes" if is_met else "**no**"


def table(header, rows):
    """A table that reads well as it is and as Markdown."""
    cells = [header] + rows
    widths = [max(len(row[column]) for row in cells) for column in range(len(header))]

    def line(row):
        padded = [cell.ljust(w) if i == 0 else cell.rjust(w) for i, (cell, w) in enumerate(zip(row, widths))]
        return "| " + " | ".join(padded) + " |"

    rule = "|" + "|".join("-" * (w + 2) if i == 0 else "-" * (w + 1) + ":" for i, w in enumerate(widths)) + "|"
    return "\n".join([line(header), rule] + [line(row) for row in rows]) + "\n"


def single_workloads(results):
    return [w for w in WORKLOADS if results.time(w, LIBRARY)]


def main_table(results):
    rows = []
    for workload in single_workloads(results):
        rival, floor = results.best_rival(workload), results.floor(workload)
        time = results.time(workload, LIBRARY)
        rows.append([
            workload, nanoseconds(time), nanoseconds(results.time(workload, BASELINE)),
            number(results.ratio(workload, LIBRARY, BASELINE)),
            number(results.ratio(workload, LIBRARY, rival)) if rival else "", rival or "",
            number(time / floor) if floor else "",
            number(results.allocations[workload, LIBRARY], 1),
            number(results.allocations.get((workload, BASELINE)), 1),
        ])
    return table(["workload", "ns", "baseline ns", "/ baseline", "/ best rival", "best rival", "/ floor", "allocations",
                  "baseline's"], rows)


def target_table(results):
    rows = []
    for workload, target in TARGETS.items():
        ratio = results.ratio(workload, LIBRARY, BASELINE)
        if ratio is not None:
            rows.append([f"{workload}: time / baseline", f"at most {target}", number(ratio),
                         verdict(round(ratio, 2) <= target)])
    for workload in ("ReturnCode", "FrameIncrement"):
        ratio = results.ratio(workload, LIBRARY, FLOOR)
        if ratio is not None:
            rows.append([f"{workload}: time / floor", "at the floor", number(ratio), verdict(ratio <= FLOOR_TOLERANCE)])
    for workload, most in ALLOCATIONS.items():
        count = results.allocations.get((workload, LIBRARY))
        if count is not None:
            rows.append([f"{workload}: heap allocations", f"at most {most}" if most else "none", number(count, 1),
                         verdict(count <= most)])
    return table(["what", "target", "reached", "met"], rows + scaling_rows(results))


def scaling_rows(results):
    rows = []
    for workload in ("SetInt32", "GetInt32"):
        small, large = results.time(workload, LIBRARY), results.time(workload + "in10000", LIBRARY)
        if small and large:
            rows.append([f"{workload}: time in 10,000 / in 16", f"at most {MOST_GROWTH}", number(large / small),
                         verdict(large / small <= MOST_GROWTH)])
    for workload in ("OwnSetsSharedKeys", "OwnSetsOwnKeys"):
        gain = threading_gain(results, workload, LIBRARY)
        if gain:
            rows.append([f"{workload}: throughput of two threads / one", f"at least {LEAST_THREADING}", number(gain),
                         verdict(round(gain, 2) >= LEAST_THREADING)])
    longest, doubling = results.least("LongestAddition", LIBRARY), results.least("LongestAddition", FLOOR)
    if longest and doubling:
        rows.append(["longest of 1,000,000 additions / doubling an array of as many pointers", "at most 1",
                     number(longest / doubling), verdict(round(longest / doubling, 2) <= 1)])
    return rows


def threading_gain(results, workload, contestant):
    one, two = results.time(workload, contestant, 1), results.time(workload, contestant, 2)
    return one / two if one and two else None


def thread_table(results):
    rows = []
    for workload in ("OwnSetsSharedKeys", "OwnSetsOwnKeys", "OneSet"):
        for contestant in (LIBRARY, BASELINE):
            if results.time(workload, contestant, 2):
                times = [read(workload, contestant, threads) for read in (results.time, results.processor_time)
                         for threads in (1, 2)]
                rows.append([workload, contestant] + [nanoseconds(time) for time in times]
                            + [number(threading_gain(results, workload, contestant))])
    return table(["SetInt32 on threads", "contestant", "ns elapsed, 1 thread", "2 threads", "ns of processor, 1 thread",
                  "2 threads", "throughput gain"], rows)


def addition_table(results):
    rows = [[contestant if contestant != FLOOR else "doubling an array of pointers",
             number(results.least("LongestAddition", contestant) / 1e6)]
            for contestant in (LIBRARY, BASELINE, FLOOR) if results.least("LongestAddition", contestant)]
    return table(["longest addition while a set grows to 1,000,000", "ms"], rows)


def full_table(results):
    contestants = [c for c in results.contestants if c != FLOOR]
    rows = [[workload] + [nanoseconds(results.time(workload, c)) for c in contestants]
            for workload in single_workloads(results) if results.time(workload, BASELINE)]
    return table(["ns"] + contestants, rows)


def read_instructions(folder):
    """Instructions per operation, by workload and contestant: the difference of two runs of different lengths."""
    totals = collections.defaultdict(dict)
    for path in pathlib.Path(folder).glob("callgrind.out.*"):
        text = path.read_text(encoding="utf-8", errors="replace")
        title = re.search(r"^desc: Trigger: Client Request: (.+)/(.+)/(\d+)$", text, re.MULTILINE)
        total = re.search(r"^(?:totals|summary): (\d+)", text, re.MULTILINE)
        if title and total:
            totals[title[1], title[2]][int(title[3])] = int(total[1])
    counts = {}
    for key, runs in totals.items():
        if len(runs) == 2:
            (few, least), (many, most) = sorted(runs.items())
            counts[key] = (most - least) / (many - few)
    return counts


def instruction_table(results, counts):
    contestants = [c for c in results.contestants if any(key[1] == c for key in counts)]
    rows = []
    for workload in WORKLOADS:
        if any(key[0] == workload for key in counts):
            own, base = counts.get((workload, LIBRARY)), counts.get((workload, BASELINE))
            rows.append([workload] + [number(counts.get((workload, c)), 0) for c in contestants]
                        + [number(own / base if own and base else None)])
    return table(["instructions per operation"] + contestants + [f"{LIBRARY} / {BASELINE}"], rows)


def sections(results, counts):
    """Title and text of each part of the report; those that a run left out are missing."""
    parts = [("The library beside the baseline, the best rival and the floor", main_table(results)),
             ("Targets", target_table(results)),
             ("All contestants", full_table(results)),
             ("Threads", thread_table(results))]
    if results.least("LongestAddition", LIBRARY):
        parts.append(("Growing", addition_table(results)))
    if counts:
        parts.append(("Instructions", instruction_table(results, counts)))
    return parts


def ratios(results):
    """For the chart: workload -> contestant -> time over the baseline's."""
    shown = [w for w in single_workloads(results) if results.time(w, BASELINE)]
    return {w: {c: results.ratio(w, c, BASELINE) for c in results.contestants
                if c not in (BASELINE, FLOOR) and results.time(w, c)} for w in shown}


def write(folder, results, counts):
    context = results.context
    page = [INTRODUCTION.format(library=LIBRARY),
            f"This run: {context['num_cpus']} processors, {results.repetitions()} repetitions.\n",
            "![Time of each contestant divided by the baseline's](performance.svg)\n"]
    for title, text in sections(results, counts):
        page.append(f"## {title}\n\n{text}")
    page.append(REPEAT)
    folder.mkdir(exist_ok=True)
    (folder / "performance.md").write_text("\n".join(page), encoding="utf-8")
    (folder / "performance.svg").write_text(chart.draw(ratios(results), TARGETS, LIBRARY), encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("results", type=pathlib.Path)
    parser.add_argument("--instructions", type=pathlib.Path)
    parser.add_argument("--write", type=pathlib.Path)
    arguments = parser.parse_args()
    results = Results(arguments.results)
    counts = read_instructions(arguments.instructions) if arguments.instructions else {}
    for title, text in sections(results, counts):
        print(f"{title}\n\n{text}")
    if arguments.write:
        write(arguments.write, results, counts)


if __name__ == "__main__":
    main()
