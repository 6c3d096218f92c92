#!/usr/bin/env python3
"""Runs the same jobs with velmora-batch, ImageMagick, GraphicsMagick and libvips over one set
of generated photos, and prints images per second, peak memory and our speed relative to each.

    python3 bench/compare.py [--jpegs 48] [--others 4] [--heics 8] [--repeat 3] [--work /tmp/velmora-compare]

Every tool gets the same work: the bilinear kernel for the resizes (libvips --kernel linear,
ImageMagick and GraphicsMagick -filter Triangle), JPEG quality 90 with 4:2:0 chroma, PNG at zlib
level 6 with adaptive row filters, TIFF with LZW. Each job runs --repeat times per tool; the table
gives the median time and the spread.

Needs the Debian packages imagemagick, graphicsmagick, libvips-tools and libheif-examples, and a
build in ./build. The heic-jpeg job runs only the tools whose Debian builds read HEIC.
"""
import argparse
import os
import platform
import shutil
import statistics
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build")
CORES = os.cpu_count() or 1
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"
MARK = "(c) Velmora"


def velmora(job):
    profile = os.path.join(ROOT, "bench", "jobs", job + ".profile")
    return lambda src, out: [([os.path.join(BUILD, "app", "velmora-batch"), "--quiet", "--profile", profile,
                               "--output-folder", out, src], None)]


def magick(tool, job):
    base = ["mogrify-im6.q16", "-path"] if tool == "im" else ["gm", "mogrify", "-output-directory"]
    jpeg = ["-quality", "90", "-sampling-factor", "2x2", "-format", "jpg"]
    ops = {
        "resize-jpeg": ["-filter", "Triangle", "-resize", "50%"] + jpeg,
        "watermark-jpeg": ["-filter", "Triangle", "-resize", "50%", "-gravity", "SouthEast", "-font", FONT,
                           "-pointsize", "48", "-fill", "white"] + (["-annotate", "+20+20", MARK] if tool == "im"
                                                                    else ["-draw", "text 20,20 '%s'" % MARK]) + jpeg,
        # -quality 65: zlib level 6, adaptive row filters.
        "png": ["-quality", "65", "-format", "png"],
        "rotate-tiff-lzw": ["-rotate", "90", "-compress", "LZW", "-format", "tif"],
        "heic-jpeg": jpeg,
    }[job]
    # Run inside the photo folder: GraphicsMagick puts the given path under its output folder.
    return lambda src, out: [(base + [out] + ops + sorted(os.listdir(src)), src)]


def vips(job, mark_png, work):
    per_file = {
        "resize-jpeg": 'vips resize "$1" "$OUT/$n.jpg[Q=90,subsample-mode=on]" 0.5 --kernel linear',
        "watermark-jpeg": 'vips resize "$1" "$OUT/$n.v" 0.5 --kernel linear && '
                          'vips composite2 "$OUT/$n.v" "$MARK" "$OUT/$n.jpg[Q=90,subsample-mode=on]" over '
                          '--x $(( $(vipsheader -f width "$OUT/$n.v") - $MARK_W - 20 )) '
                          '--y $(( $(vipsheader -f height "$OUT/$n.v") - $MARK_H - 20 )) && rm "$OUT/$n.v"',
        "png": 'vips copy "$1" "$OUT/$n.png[compression=6,filter=all]"',
        "rotate-tiff-lzw": 'vips rot "$1" "$OUT/$n.tif[compression=lzw]" d90',
        "heic-jpeg": 'vips copy "$1" "$OUT/$n.jpg[Q=90,subsample-mode=on]"',
    }[job]
    script = os.path.join(work, "vips-" + job + ".sh")
    with open(script, "w") as f:
        f.write('n=$(basename "$1"); n=${n%.*}\n' + per_file + "\n")

    def commands(src, out):
        width, height = mark_size(mark_png)
        files = sorted(os.path.join(src, f) for f in os.listdir(src))
        # One vips process per image, as many at once as there are cores.
        return [(["env", "OUT=" + out, "MARK=" + mark_png, "MARK_W=%d" % width, "MARK_H=%d" % height,
                  "xargs", "-n", "1", "-P", str(CORES), "sh", script], None, "\n".join(files))]
    return commands


def mark_size(path):
    out = subprocess.run(["vipsheader", "-f", "width", path], capture_output=True, text=True).stdout
    height = subprocess.run(["vipsheader", "-f", "height", path], capture_output=True, text=True).stdout
    return int(out), int(height)


def reads_heic(tool, sample, work):
    """True when this machine's build of the tool decodes HEIC (Debian's GraphicsMagick does not)."""
    out = os.path.join(work, "probe.jpg")
    argv = {"imagemagick": ["convert-im6.q16", sample, out], "graphicsmagick": ["gm", "convert", sample, out],
            "libvips": ["vips", "copy", sample, out]}[tool]
    return shutil.which(argv[0]) is not None and subprocess.run(argv, capture_output=True).returncode == 0


def make_heics(jpegs, folder, count):
    """HEIC photos made by libheif's own encoder from the first `count` generated JPEGs."""
    os.makedirs(folder, exist_ok=True)
    for name in sorted(f for f in os.listdir(jpegs) if f.endswith(".jpg"))[:count]:
        out = os.path.join(folder, os.path.splitext(name)[0] + ".heic")
        if not os.path.exists(out):
            subprocess.run(["heif-enc", "-q", "90", "-o", out, os.path.join(jpegs, name)], check=True,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def run_timed(commands, work):
    """Runs the commands one after another; returns wall seconds and the peak resident set in MiB
    of the largest process any of them started (GNU time's maximum resident set size)."""
    peak = 0
    report = os.path.join(work, "time.txt")
    start = time.monotonic()
    for argv, cwd, *stdin in commands:
        subprocess.run(["/usr/bin/time", "-f", "%M", "-o", report] + argv, cwd=cwd, check=True,
                       input=(stdin[0] if stdin else "").encode(), stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        with open(report) as f:
            peak = max(peak, int(f.read().split()[-1]))
    return time.monotonic() - start, peak / 1024.0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--jpegs", type=int, default=48)
    parser.add_argument("--others", type=int, default=4, help="large PNGs and as many TIFFs")
    parser.add_argument("--work", default="/tmp/velmora-compare")
    parser.add_argument("--heics", type=int, default=8, help="HEIC photos for the heic-jpeg job")
    parser.add_argument("--repeat", type=int, default=3, help="runs of each job and tool; the median is shown")
    parser.add_argument("--jobs", default="resize-jpeg,watermark-jpeg,png,rotate-tiff-lzw,heic-jpeg")
    args = parser.parse_args()

    src = os.path.join(args.work, "photos")
    subprocess.run([os.path.join(BUILD, "bench", "velmora-bench-photos"), src, str(args.jpegs), str(args.others)],
                   check=True)
    heics = os.path.join(args.work, "heic")
    if "heic-jpeg" in args.jobs:
        make_heics(src, heics, args.heics)
    count = len(os.listdir(src))
    mark_png = os.path.join(args.work, "mark.png")
    subprocess.run(["convert-im6.q16", "-background", "none", "-fill", "white", "-font", FONT, "-pointsize", "48",
                    "label:" + MARK, mark_png], check=True)

    print("machine: %s, %d cores, %s" % (platform.machine(), CORES, platform.platform()))
    print("input: %d images of 4000x3000 (%d JPEG, %d PNG, %d TIFF)" % (count, args.jpegs, args.others, args.others))
    if "heic-jpeg" in args.jobs:
        print("heic-jpeg input: %d HEIC images made from the first JPEGs by heif-enc -q 90" % len(os.listdir(heics)))
    print()
    print("| job | tool | median seconds (spread) | images/s | peak MiB | velmora speed-up |")
    print("|---|---|---:|---:|---:|---:|")
    for job in args.jobs.split(","):
        tools = [("velmora", velmora(job)), ("imagemagick", magick("im", job)),
                 ("graphicsmagick", magick("gm", job)), ("libvips", vips(job, mark_png, args.work))]
        job_src = heics if job == "heic-jpeg" else src
        if job == "heic-jpeg":
            sample = os.path.join(heics, sorted(os.listdir(heics))[0])
            tools = [(name, commands) for name, commands in tools
                     if name == "velmora" or reads_heic(name, sample, args.work)]
        ours = None
        for name, commands in tools:
            out = os.path.join(args.work, "out-" + name)
            times, peak = [], 0
            for _ in range(max(1, args.repeat)):
                shutil.rmtree(out, ignore_errors=True)
                os.makedirs(out)
                seconds, run_peak = run_timed(commands(job_src, out), args.work)
                times.append(seconds)
                peak = max(peak, run_peak)
            seconds = statistics.median(times)
            rate = len(os.listdir(job_src)) / seconds
            ours = rate if name == "velmora" else ours
            ratio = "" if name == "velmora" else "%.2fx" % (ours / rate)
            spread = "%.1f-%.1f" % (min(times), max(times))
            print("| %s | %s | %.1f (%s) | %.2f | %.0f | %s |" % (job, name, seconds, spread, rate, peak, ratio))
            sys.stdout.flush()
            shutil.rmtree(out, ignore_errors=True)


if __name__ == "__main__":
    main()
