#!/usr/bin/env bash
# Builds the benchmarks with optimisation in build-bench, runs them all, works out how our code
# compares with its anchors, and writes the table of latest figures into benchmarks/README.md.
# Arguments go to every benchmark executable (for instance --benchmark_filter=sort/); with any,
# the figures are shown but the README is left as it is. About five minutes on two cores.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
ensure_packages "${VELMORA_BUILD_PACKAGES[@]}" python3

build=build-bench
benchmarks=(bench_viewmodel bench_files bench_locks bench_startup)
started=$(date +%s)

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELMORA_BUILD_BENCHMARKS=ON \
    -DVELMORA_BUILD_TESTS=OFF -DVELMORA_SANITIZE= -DVELMORA_FUZZ=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target "${benchmarks[@]}"

results=$build/results
mkdir -p "$results"
export QT_QPA_PLATFORM=offscreen
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
    # Qt asks for one, even offscreen.
    export XDG_RUNTIME_DIR=$PWD/$results/runtime
    mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
fi
for benchmark in "${benchmarks[@]}"; do
    echo "== $benchmark"
    # Only the medians of the repetitions are shown.
    "$build/benchmarks/$benchmark" --benchmark_out="$results/$benchmark.json" \
        --benchmark_out_format=json "$@" | { grep -vE '_(mean|stddev|cv) ' || true; }
done
[ $# -eq 0 ] || exit 0

export BENCH_CORES=$(nproc)
export BENCH_CPU=$(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | sed 's/^ *//')
export BENCH_MINUTES=$(( ($(date +%s) - started + 59) / 60 ))
python3 - "$results" benchmarks/README.md <<'PYTHON'
import datetime
import json
import os
import re
import sys

results, readme = sys.argv[1], sys.argv[2]

# "op/a/b/.../iterations:10/repeats:5" -> ("op", "a", "b", ...); one figure per benchmark:
# the median of the repetitions, or the single run where there are none.
figures = {}
for name in ("bench_viewmodel", "bench_files", "bench_locks", "bench_startup"):
    with open(os.path.join(results, name + ".json")) as file:
        for run in json.load(file)["benchmarks"]:
            if run.get("run_type") == "aggregate" and run.get("aggregate_name") != "median":
                continue
            if run.get("error_occurred"):
                continue
            key = tuple(part for part in run["run_name"].split("/")
                        if not re.match(r"(iterations|repeats|min_time|threads):|(real|manual)_time$", part))
            figures[key] = run

def per_item(*key):
    run = figures.get(tuple(str(part) for part in key))
    return run["per_item"] if run and "per_item" in run else None

def bytes_per_node(*key):
    run = figures.get(tuple(str(part) for part in key))
    return run["bytes_per_node"] if run else None

def seconds(value):
    if value is None:
        return "–"
    for unit, scale in (("s", 1), ("ms", 1e-3), ("µs", 1e-6), ("ns", 1e-9)):
        if value >= scale or unit == "ns":
            return f"{value / scale:.3g} {unit}"

def ratio(a, b):
    return a / b if a is not None and b else None

def times(value):
    return "–" if value is None else f"{value:.2f}×"

targets = []

def target(text, value, limit):
    status = "–" if value is None else ("met" if value <= limit else "**missed**")
    targets.append(f"| {text} | {times(value)} | ≤ {limit:g}× | {status} |")

shapes = ("flat", "balanced")
tree_ops = ("build", "index_parent", "sort", "remove_all", "destroy")
bases = (10000, 50000, 100000)

def tree(op, shape, size, counter):
    run = figures.get((op, shape, str(size)))
    return run.get(counter) if run else None

for shape in shapes:
    target(f"build 100k nodes with a view ({shape}), ours / QStandardItemModel",
           tree("build", shape, 100000, "ratio"), 1.5)
for shape in shapes:
    target(f"index()+parent() per node ({shape}), ours at 100k / ours at 10k",
           ratio(tree("index_parent", shape, 100000, "ours"), tree("index_parent", shape, 10000, "ours")), 1.3)
    target(f"index()+parent() at 100k ({shape}), ours / QStandardItemModel",
           tree("index_parent", shape, 100000, "ratio"), 4)
for shape in shapes:
    target(f"memory per node at 100k ({shape}), ours / QStandardItem",
           ratio(bytes_per_node("memory", shape, "ours"), bytes_per_node("memory", shape, "anchor")), 1.5)
target("load a 100k-item project, ours / DOM parse + walk",
       ratio(per_item("load", "project", "ours", 100000), per_item("load", "project", "anchor", 100000)), 1.3)
target("save a 100k-item project, ours / DOM build + toByteArray(4)",
       ratio(per_item("save", "project", "ours", 100000), per_item("save", "project", "anchor", 100000)), 1.2)
# A run's time in seconds: the CPU time, or the wall-clock time for the start-ups, which
# happen in a process of their own.
def run_seconds(*key, field="cpu_time"):
    run = figures.get(tuple(str(part) for part in key))
    if not run:
        return None
    scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}[run.get("time_unit", "ns")]
    return run[field] * scale

target("start-up to the main window shown, 20 providers, ours / bare QMainWindow shown",
       ratio(run_seconds("startup", "ours", field="real_time"),
             run_seconds("startup", "anchor", field="real_time")), 1.3)
target("open a 100k-item project into the project view, ours / QStandardItemModel + QTreeView",
       ratio(per_item("open", "project", "ours", 100000), per_item("open", "project", "anchor", 100000)), 1.5)
raw_read = per_item("read_pair", "anchor")
lock_names = {"deadlockfree": "DeadlockFreeLock", "writeholder": "WriteHolderLock",
              "model": "ViewModelReadLocker"}
for kind, label in lock_names.items():
    target(f"nested read pair in a read, {label} / QReadWriteLock read pair",
           ratio(per_item("nested_read", kind), raw_read), 2)
    target(f"nested read pair in the write, {label} / QReadWriteLock read pair",
           ratio(per_item("nested_read_in_write", kind), raw_read), 2)
for kind, label in lock_names.items():
    target(f"outermost read pair, {label} / QReadWriteLock read pair",
           ratio(per_item("read_pair", kind), raw_read), 3)

for op in tree_ops:
    for shape in shapes:
        worst = max(((tree(op, shape, base, "growth"), base) for base in bases
                     if tree(op, shape, base, "growth") is not None), default=(None, None))
        label = f"{op} ({shape}), ours at 2N / at N, worst of N = 10k, 50k, 100k"
        if worst[1]:
            label += f" (N = {worst[1] // 1000}k)"
        target(label, worst[0], 2.3)

lines = []
now = datetime.datetime.now().astimezone().strftime("%Y-%m-%d %H:%M %Z")
lines += [f"Latest run: {now}, on {os.environ['BENCH_CORES']} cores of {os.environ['BENCH_CPU']}, "
          f"{os.environ['BENCH_MINUTES']} minutes for the whole script. Medians of "
          "5 repetitions, CPU time (wall-clock time for the two-thread lock runs and the start-ups).", ""]
lines += ["### Targets", "", "| Target | Measured | Limit | |", "| --- | ---: | ---: | --- |"]
lines += targets
lines += ["", "### Tree through the model, per node", "",
          "Ours and the anchor (QStandardItemModel) at N and 2N, measured in turn in every iteration; "
          "growth is the time for the whole tree at 2N over the time at N.", "",
          "| Operation | Shape | N | Ours | Anchor | Ours / anchor | Ours at 2N | Anchor at 2N "
          "| Growth, ours | Growth, anchor |",
          "| --- | --- | ---: | ---: | ---: | ---: | ---: | ---: | ---: | ---: |"]
for op in tree_ops:
    for shape in shapes:
        for size in bases:
            value = lambda counter: tree(op, shape, size, counter)
            if value("ours") is None:
                continue
            lines.append(f"| {op} | {shape} | {size // 1000}k | {seconds(value('ours'))} "
                         f"| {seconds(value('anchor'))} | {times(value('ratio'))} "
                         f"| {seconds(value('ours_2n'))} | {seconds(value('anchor_2n'))} "
                         f"| {times(value('growth'))} | {times(value('anchor_growth'))} |")
lines += ["", "### Memory per node, 100k nodes", "",
          "| Shape | Ours | QStandardItem | Ours / anchor |", "| --- | ---: | ---: | ---: |"]
for shape in shapes:
    mine, anchor = bytes_per_node("memory", shape, "ours"), bytes_per_node("memory", shape, "anchor")
    if mine is not None and anchor is not None:
        lines.append(f"| {shape} | {mine:.0f} B | {anchor:.0f} B | {times(ratio(mine, anchor))} |")
lines += ["", "### Files, per item", "",
          "| Operation | Size | Ours | DOM | Stream | Ours / DOM | Ours / stream |",
          "| --- | --- | ---: | ---: | ---: | ---: | ---: |"]
for op in ("save", "load"):
    for what, size, label in (("project", 10000, "project, 10k items"), ("project", 100000, "project, 100k items"),
                              ("solution", 100, "solution, 100 projects")):
        ours, dom, stream = (per_item(op, what, side, size) for side in ("ours", "anchor", "floor"))
        if ours is None:
            continue
        lines.append(f"| {op} | {label} | {seconds(ours)} | {seconds(dom)} | {seconds(stream)} "
                     f"| {times(ratio(ours, dom))} | {times(ratio(ours, stream))} |")
lines += ["", "### Start-up and opening", "",
          "| Operation | Ours | Anchor | Ours / anchor |", "| --- | ---: | ---: | ---: |"]
for label, ours, anchor in (
        ("start-up to the main window shown, 20 providers (wall clock, own process)",
         run_seconds("startup", "ours", field="real_time"),
         run_seconds("startup", "anchor", field="real_time")),
        ("open a 100k-item project and show it, whole", run_seconds("open", "project", "ours", 100000),
         run_seconds("open", "project", "anchor", 100000))):
    lines.append(f"| {label} | {seconds(ours)} | {seconds(anchor)} | {times(ratio(ours, anchor))} |")
text_start = run_seconds("startup", "text", field="real_time")
if text_start is not None:
    lines += ["", f"The bare window with one `QLabel` in it starts in {seconds(text_start)}, "
              f"{times(ratio(text_start, run_seconds('startup', 'anchor', field='real_time')))} the bare "
              "window: its first text initialises the font database, which every window with text pays."]
lines += ["", "### Locks, per lock and unlock pair", "",
          "| Operation | QReadWriteLock | recursive QReadWriteLock | DeadlockFreeLock | WriteHolderLock | model lockers |",
          "| --- | ---: | ---: | ---: | ---: | ---: |"]
for op in ("read_pair", "write_pair", "nested_read", "nested_read_in_write", "reader_writer"):
    cells = []
    for kind in ("anchor", "recursive", "deadlockfree", "writeholder", "model"):
        value = per_item(op, kind)
        cells.append("–" if value is None else f"{seconds(value)} ({times(ratio(value, raw_read))})")
    lines.append(f"| {op} | " + " | ".join(cells) + " |")
lines += ["", "In brackets: the time over a QReadWriteLock read pair."]

begin, end = "<!-- bench-results:begin -->", "<!-- bench-results:end -->"
with open(readme) as file:
    text = file.read()
if begin not in text or end not in text:
    sys.exit(f"{readme} has no {begin} ... {end} markers")
head, rest = text.split(begin, 1)
tail = rest.split(end, 1)[1]
with open(readme, "w") as file:
    file.write(head + begin + "\n" + "\n".join(lines) + "\n" + end + tail)
print("\n".join(lines))
PYTHON
