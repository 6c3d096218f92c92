#!/usr/bin/env python3
"""Runs one job with several velmora-batch programs (two builds of different commits, say) over the
same generated photos, in turn, and prints the median time of each, its spread, and whether every
program wrote the same bytes as the first.

    python3 bench/builds.py [--job resize-jpeg] [--jpegs 48] [--repeat 5] BATCH [BATCH ...]

The photos come from this build's velmora-bench-photos (4000 x 3000 JPEGs).
"""
import argparse
import filecmp
import os
import shutil
import statistics
import subprocess
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def run(batch, profile, source, out, home):
    shutil.rmtree(out, ignore_errors=True)
    os.makedirs(out)
    start = time.monotonic()
    subprocess.run([batch, "--quiet", "--profile", profile, "--output-folder", out, source], check=True,
                   env=dict(os.environ, HOME=home))
    return time.monotonic() - start


def same_files(a, b):
    names = sorted(os.listdir(a))
    return names == sorted(os.listdir(b)) and not filecmp.cmpfiles(a, b, names, shallow=False)[1]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--job", default="resize-jpeg")
    parser.add_argument("--jpegs", type=int, default=48)
    parser.add_argument("--repeat", type=int, default=5)
    parser.add_argument("batches", nargs="+")
    args = parser.parse_args()
    work = tempfile.mkdtemp(prefix="velmora-builds-")
    source = os.path.join(work, "photos")
    os.makedirs(source)
    subprocess.run([os.path.join(ROOT, "build", "bench", "velmora-bench-photos"), source, str(args.jpegs), "0"],
                   check=True, stdout=subprocess.DEVNULL)
    profile = os.path.join(ROOT, "bench", "jobs", args.job + ".profile")
    times = {batch: [] for batch in args.batches}
    for _ in range(args.repeat):
        for index, batch in enumerate(args.batches):
            times[batch].append(run(batch, profile, source, os.path.join(work, "out%d" % index), work))
    first = os.path.join(work, "out0")
    for index, batch in enumerate(args.batches):
        median = statistics.median(times[batch])
        same = same_files(first, os.path.join(work, "out%d" % index))
        print("%-60s median %.2f s (%.2f images/s), spread %.2f-%.2f s, same bytes as the first: %s" %
              (batch, median, args.jpegs / median, min(times[batch]), max(times[batch]), "yes" if same else "NO"))
    shutil.rmtree(work)


if __name__ == "__main__":
    main()
