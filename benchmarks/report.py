#!/usr/bin/env python3
"""Prints the results of the benchmark as a page in Markdown: docs/performance.md is its print.

usage: report.py [--times FILE] [--instructions FOLDER] [--chart FILE]

--times         what the benchmark program wrote as JSON; without it the table of instructions alone is printed
--instructions  the folder of the dumps of a run under callgrind
--chart         the file that receives the chart
"""

import argparse
import json
import pathlib
import re

import pandas

LIBRARY, BASELINE = "Zorvel", "baseline"
CONTESTANTS = [LIBRARY, BASELINE, "absl::flat_hash_map", "QVariantHash"]
MILLION = 1_000_000

# The order of the tables; the run itself has none.
WORKLOADS = ["SetInt32", "GetInt32", "Has", "SetString12", "SetString20", "SetString40", "SetString4000", "GetString12",
             "GetString20", "GetString40", "GetString4000", "SetObject", "BuildDestroy16", "Copy16", "Copy16Objects",
             "CopyInto16", "List16", "SetInt32in10000", "GetInt32in10000", "Copy10000", "Add1000000", "Find1000000",
             "SetKept", "SetLiteral", "GetKept", "GetLiteral", "ReadmeRead", "HasLiteral25", "SetStringLiteral25",
             "FirstProgramKept", "FirstProgramLiteral", "ReturnCode", "FrameIncrement"]
THREADED = ["SetEqualNames", "SetSharedNames", "SetInOneSet", "ListEqualNames", "ListSharedNames"]
INSTRUCTIONS_ALONE = ["ReturnCode", "FrameIncrement"] # too short to be timed

# At most this time, divided by the baseline's.
TARGETS = {"SetInt32": 1.05, "GetInt32": 0.90, "Has": 0.87, "SetString12": 1.05, "SetString20": 1.05,
           "SetString40": 2.1, "GetString12": 0.92, "GetString20": 0.92, "Copy16": 0.70, "CopyInto16": 0.62,
           "List16": 0.58, "SetInt32in10000": 0.80, "GetInt32in10000": 0.62, "BuildDestroy16": 0.70}
WITHOUT_ALLOCATION = ["SetInt32", "GetInt32", "Has", "SetString12", "SetString20", "GetString12", "GetString20",
                      "SetLiteral", "GetLiteral", "HasLiteral25", "SetStringLiteral25"]

PAGE = """# Performance

What a property set costs beside what one would write instead. This page is what `tools/bench` prints.

- **{library}**: the library, linked as a caller links it.
- **baseline**: the best that we could write by hand for the same job. `std::unordered_map` from `std::string` to a
  `std::variant` of the nine types, looked up by `std::string_view`, with the names' hashes kept in its nodes; a map of
  default values that is asked when a property is added; a check of the type when one is set; a `std::recursive_mutex`
  held for each operation. Setters are typed, and a text is written into the room of the old one. The getter hands out a
  pointer to the value, which the caller reads in place. A copy into another set checks all names and types before it
  changes anything, and looks each name up once. Operations are not inlined, as those of a library are not.
- **absl::flat_hash_map**: the baseline on that map.
- **QVariantHash**: `QHash` from `QString` to `QVariant` behind the baseline's lock, with five kinds of values.

A set has 16 properties of all nine types, with names of 5 to 30 bytes; they are looked up with keys that are equal to
the names but share nothing with them. The number behind "String" is the length of the texts in bytes. "Kept" and
"Literal" set and get one property under a key that the caller keeps and under a literal. "ReadmeRead" reads a
number by `ZrvReadProperty` with a literal. "FirstProgram" declares, adds, sets, lists, copies and reads two properties
with the help of `ZrvPropertyAccess.h`. All contestants run in one process, their
repetitions in random order, with two more threads parked. Times are medians of processor time per operation; on a
million properties, per property. Allocations count `malloc`, `calloc`, `realloc` and what is built on them, in all
modules. Instructions are counted under callgrind and differ little from run to run. Times of different machines and
runs do not compare: read the ratios.

This run: {processors} processors, {repetitions} repetitions.

![Time divided by the baseline's](performance.svg)

## Targets

{targets}

## Beside the baseline

{beside}

## All contestants

Times in ns.

{all}

## Threads

What one thread does, and then two at once, each with a set of its own. The names in both sets are equal, or the sets
share them; in the last case both threads use one set. Times are elapsed ns per operation of all threads together, and
mean something only when the machine has nothing else to do; processor time, which all threads together spend on one
operation, stands beside them.

{threads}

## Memory

Bytes of the heap for each of a million numbers with names of 20 bytes that nobody else keeps, the heap's own included.

{memory}

## How to repeat it

`tools/bench` builds the `bench` preset, runs everything in about ten minutes, prints this page and writes it with its
chart. `--quick` takes two minutes, leaves the million out and writes nothing. `--instructions` counts instructions and
nothing else, of some workloads if wanted. `--library` measures another checkout of the library with these sources.
"""


def read_times(path):
    """Context and medians by workload, contestant and number of threads."""
    content = json.loads(path.read_text(encoding="utf-8"))
    runs = pandas.DataFrame(content["benchmarks"])
    if "error_message" in runs and runs.error_message.notna().any():
        raise SystemExit(runs[runs.error_message.notna()][["name", "error_message"]].to_string())
    runs = runs[runs.run_type == "iteration"]
    runs[["workload", "contestant"]] = runs.run_name.str.extract("^([^/]+)/([^/]+)").values
    times = ["cpu_time", "real_time", "allocations"]
    runs.loc[runs.workload.str.endswith(str(MILLION)), times] /= MILLION
    by_run = runs.groupby(["workload", "contestant", "threads"])
    return content["context"], by_run[times + ["bytes"]].median(), by_run.size().max()


def read_instructions(folder):
    """Instructions per operation of workloads by contestants: the difference of two runs of different lengths."""
    dumps = []
    for path in folder.glob("callgrind.out.*"):
        text = path.read_text(encoding="utf-8", errors="replace")
        title = re.search(r"^desc: Trigger: Client Request: (.+)/(.+)/(\d+)$", text, re.MULTILINE)
        total = re.search(r"^(?:totals|summary): (\d+)", text, re.MULTILINE)
        if title and total and int(title[3]) > 1:
            dumps.append((title[1], title[2], int(title[3]), int(total[1])))
    frame = pandas.DataFrame(dumps, columns=["workload", "contestant", "operations", "total"])
    most = frame.groupby(["workload", "contestant"]).agg(lambda column: column.max() - column.min())
    return in_order((most.total / most.operations).unstack())


def in_order(frame):
    """A table of workloads by contestants, in the order of the page."""
    return frame.reindex(index=[w for w in WORKLOADS if w in frame.index],
                         columns=[c for c in CONTESTANTS if c in frame.columns])


def number(value, digits=None):
    if pandas.isna(value):
        return ""
    return f"{value:,.{(1 if value < 1000 else 0) if digits is None else digits}f}"


def table(header, rows):
    """A table that reads well as it is and as Markdown."""
    align = ["left"] + ["right"] * (len(header) - 1)
    return pandas.DataFrame(rows, columns=header).to_markdown(index=False, disable_numparse=True, colalign=align)


def target_table(ratios, counts, allocations, size):
    rows = []

    def add(what, bound, reached, digits):
        if pandas.notna(reached):
            is_met = round(reached, digits) <= bound
            rows.append([what, f"at most {bound}" if bound else "none", number(reached, digits),
                         "yes" if is_met else "**no**"])

    for workload, bound in TARGETS.items():
        add(f"{workload}: time / baseline", bound, ratios.get(workload), 2)
    for operation in ("Set", "Get"):
        add(f"{operation} with a literal key: instructions above a kept key", 90,
            counts.get(f"{operation}Literal") - counts.get(f"{operation}Kept"), 0)
    add("ReturnCode: instructions", 14, counts.get("ReturnCode"), 0)
    add("Set, get, has with names and texts up to 25 bytes, literal or not: most allocations", 0,
        allocations.reindex(WITHOUT_ALLOCATION).max(), 1)
    add("Copy16: allocations", 5, allocations.get("Copy16"), 1)
    add("A property with a name of its own: bytes of the heap", 158, size, 0)
    return table(["what", "target", "reached", "met"], rows)


def beside_table(times, counts, allocations):
    rows = []
    for workload in (w for w in WORKLOADS if w in counts.index or w in times.index):
        values = []
        for frame, digits in ((times, None), (counts, 0), (allocations, 1)):
            own, base = (frame[c].get(workload) if c in frame else None for c in (LIBRARY, BASELINE))
            ratio = own / base if own and base else None
            values += [number(own, digits), number(base, digits)] + [number(ratio, 2)] * (frame is not allocations)
        rows.append([workload] + values)
    return table(["workload", "ns", "baseline", "ratio", "instructions", "baseline", "ratio", "allocations",
                  "baseline"], rows)


def full_table(frame, digits=None):
    rows = [[workload] + [number(value, digits) for value in values] for workload, values in frame.iterrows()]
    return table([""] + list(frame.columns), rows)


def thread_table(medians):
    rows = []
    for workload in THREADED:
        for contestant in (LIBRARY, BASELINE):
            elapsed, processor = (medians[kind][workload, contestant] for kind in ("real_time", "cpu_time"))
            rows.append([workload, contestant] + [number(time[threads]) for time in (elapsed, processor)
                                                  for threads in (1, 2)] + [number(elapsed[1] / elapsed[2], 2)])
    return table(["", "contestant", "elapsed, 1 thread", "2 threads", "processor, 1 thread", "2 threads",
                  "throughput gain"], rows)


def page(context, medians, repetitions, counts, chart_path):
    single = medians[~medians.index.get_level_values("workload").isin(THREADED)].droplevel("threads")
    times, allocations = (in_order(single[kind].unstack()) for kind in ("cpu_time", "allocations"))
    times = times.drop(INSTRUCTIONS_ALONE, errors="ignore")
    ratios = times.div(times[BASELINE], axis=0)
    memory = single.bytes.dropna()["Memory"]
    if chart_path:
        import chart # pylint: disable=import-outside-toplevel
        chart.draw(ratios.drop(columns=BASELINE).dropna(subset=[LIBRARY]), TARGETS, LIBRARY, chart_path)
    return PAGE.format(
        library=LIBRARY, processors=context["num_cpus"], repetitions=repetitions,
        targets=target_table(ratios[LIBRARY], counts[LIBRARY], allocations[LIBRARY], memory[LIBRARY]),
        beside=beside_table(times, counts, allocations), all=full_table(times.dropna(subset=[BASELINE])),
        threads=thread_table(medians),
        memory=table(["contestant", "bytes"], [[c, number(memory[c], 0)] for c in CONTESTANTS if c in memory]))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    for option in ("times", "instructions", "chart"):
        parser.add_argument(f"--{option}", type=pathlib.Path)
    arguments = parser.parse_args()
    counts = read_instructions(arguments.instructions)
    if arguments.times:
        print(page(*read_times(arguments.times), counts, arguments.chart), end="")
    else:
        print(full_table(counts, 0))


if __name__ == "__main__":
    main()
