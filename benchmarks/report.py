#!/usr/bin/env python3
"""Turns the output of Google Benchmark into the table of medians and ratios.

usage: report.py RAW.json REPORT.md REPORT.json
"""
import json
import os
import platform
import re
import sys

CONTESTANTS = ["library", "graphicsview-bsp", "graphicsview-noindex", "painter"]
PEERS = CONTESTANTS[1:3]
GROWTH_FROM, GROWTH_TO = 10000, 100000


def load_medians(raw):
    """{workload: {count: {contestant: value}}} and {workload: unit}."""
    medians, units = {}, {}
    for run in raw["benchmarks"]:
        if run.get("aggregate_name", "median") != "median" or run.get("error_occurred"):
            continue
        workload, count, contestant = run["run_name"].split("/")[:3]
        # Rows that time themselves report processor time as their real time.
        value, unit = run["real_time" if "manual_time" in run["run_name"] else "cpu_time"], run["time_unit"]
        if "bytes" in run:
            value, unit = run["bytes"], "bytes"
        medians.setdefault(workload, {}).setdefault(int(count), {})[contestant] = value
        units[workload] = unit
    return medians, units


def ratio(value, other):
    return value / other if value is not None and other else None


def make_rows(medians, units):
    rows = []
    for workload in sorted(medians, key=lambda name: (int(re.match(r"W(\d+)", name)[1]), name)):
        for count, values in sorted(medians[workload].items()):
            peers = [values[peer] for peer in PEERS if peer in values]
            library = values.get("library")
            rows.append({
                "workload": workload,
                "n": count,
                "unit": units[workload],
                "medians": values,
                "library / best graphics view": ratio(library, min(peers, default=None)),
                "library / painter": ratio(library, values.get("painter")),
            })
    return rows


def make_growth(medians):
    rows = []
    for workload, counts in medians.items():
        if GROWTH_FROM in counts and GROWTH_TO in counts:
            growth = {name: ratio(value, counts[GROWTH_FROM].get(name)) for name, value in counts[GROWTH_TO].items()}
            rows.append({"workload": workload, "from": GROWTH_FROM, "to": GROWTH_TO, "growth": growth})
    rows.sort(key=lambda row: (int(re.match(r"W(\d+)", row["workload"])[1]), row["workload"]))
    return rows


def number(value):
    if value is None:
        return ""
    return f"{value:,.0f}" if value >= 1000 else f"{value:.3g}"


def table(header, rows):
    lines = [header, ["---"] * 1 + ["---:"] * (len(header) - 1)] + rows
    return "\n".join("| " + " | ".join(line) + " |" for line in lines) + "\n"


def to_markdown(report):
    rows = [[row["workload"], number(row["n"]), row["unit"]]
            + [number(row["medians"].get(name)) for name in CONTESTANTS]
            + [number(row["library / best graphics view"]), number(row["library / painter"])]
            for row in report["rows"]]
    growth = [[row["workload"], f'{number(row["from"])} to {number(row["to"])}']
              + [number(row["growth"].get(name)) for name in CONTESTANTS] for row in report["growth"]]
    machine = report["machine"]
    text = (f'{machine["cpus"]} processors at {machine["MHz"]} MHz, {machine["system"]}; load at the start '
            f'{machine["load"]}; medians of {machine["repetitions"]} repetitions.\n\n')
    text += table(["workload", "n", "unit"] + CONTESTANTS + ["library / best Graphics View", "library / painter"], rows)
    if growth:
        text += "\nGrowth of the time from one size to the other:\n\n"
        text += table(["workload", "n"] + CONTESTANTS, growth)
    return text


def main(raw_path, markdown_path, json_path):
    with open(raw_path, encoding="utf-8") as file:
        raw = json.load(file)
    medians, units = load_medians(raw)
    context = raw["context"]
    repetitions = max((run.get("repetitions", 1) for run in raw["benchmarks"]), default=1)
    report = {
        "machine": {"cpus": context["num_cpus"], "MHz": context["mhz_per_cpu"], "system": platform.platform(),
                    "load": context.get("load_avg", os.getloadavg())[0], "repetitions": repetitions,
                    "date": context["date"]},
        "rows": make_rows(medians, units),
        "growth": make_growth(medians),
    }
    with open(json_path, "w", encoding="utf-8") as file:
        json.dump(report, file, indent=2)
        file.write("\n")
    with open(markdown_path, "w", encoding="utf-8") as file:
        file.write(to_markdown(report))


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
