"""The report of bench/compare: tables, targets and whether each is met."""
import datetime
import math
import os
import platform
import statistics
from pathlib import Path

# What each work is called in the report, and its target as a ratio to the floor.
WORKS = {
    "login/http": ("login, HTTP", 1.10),
    "login/https": ("login, HTTPS, system's issuers", 1.10),
    "briefing": ("briefing, 60 kB text and 6 PNG of 200 kB", 0.85),
    "product": ("one product of 20 MB", 0.85),
    "directory": ("directory of 5,000 entries", 1.00),
    "notification": ("notification of ten stages, built", 1.00),
}
# The works that peers do too, and what they are called.
CALLS = tuple(work for work in WORKS if work != "notification")
PEERS = {"gsoap": "gSOAP", "zeep": "zeep"}
MOST_OF_PEERS_TIME = {("login/http", "gsoap"): 1.5}
UNJUDGED = {("login/https", "gsoap")}
THREADS = (1, 2, 4, 8)
SCENARIOS = {
    "load-briefing": "the briefing above, from its bytes to its files",
    "load-directory": "the directory above, from its bytes to its entries",
    "build-requests": "100 requests for a briefing of 12 locations",
}
# 20,000,000 bytes in Base64, lines of 76 characters ended by CR LF.
PRODUCT_ANSWER = 20_000_000 / 3 * 4 * 78 / 76
MOST_MEMORY = 2.6
LEAST_SCALING = 1.8
LEAST_BASE64 = 4.0
MOST_FIRST_CALL = 15_000
MOST_LISTINGS = 3.0
STRAIGHT = 1.15


def verdict(met):
    return "met" if met else "**missed**"


def table(header, rows):
    lines = [header, ["---"] + ["---:"] * (len(header) - 1)] + rows
    return "\n".join("| " + " | ".join(map(str, line)) + " |" for line in lines) + "\n"


def time(microseconds):
    if microseconds < 1:
        return f"{microseconds * 1000:.0f} ns"
    if microseconds < 1000:
        return f"{microseconds:.3g} us"
    return f"{microseconds / 1000:.3g} ms"


def machine():
    info = Path("/proc/cpuinfo")
    names = [line.split(":", 1)[1].strip() for line in info.read_text().splitlines()
             if line.startswith("model name")] if info.exists() else []
    load = os.getloadavg()[0]
    return (f"{os.cpu_count()} x {names[0] if names else platform.processor()}, "
            f"{platform.system()} {platform.release()}, load {load:.1f} at the end")


def works_table(works):
    rows = []
    for work, (name, target) in WORKS.items():
        floor, library = works[work]["floor"], works[work]["library"]

        def ratios(what):
            return [ours[what] / hand[what] for ours, hand in zip(library, floor)]
        wall = ratios("median_us")
        middle = statistics.median(wall)
        low, _, high = statistics.quantiles(wall, n=4) if len(wall) > 1 else wall * 3
        best = min(each["least_us"] for each in library) / min(each["least_us"] for each in floor)
        rows.append([name] + [time(statistics.median(each["median_us"] for each in side))
                              for side in (floor, library)] +
                    [f"{middle:.2f}", f"{low:.2f} to {high:.2f}", f"{best:.2f}",
                     f"{statistics.median(ratios('processor_us')):.2f}", f"{target:.2f}",
                     verdict(statistics.median(ratios("processor_us")) <= target)])
    return table(["work", "floor", "library", "ratio", "middle half of rounds",
                  "ratio of least times", "ratio of processor times", "target", ""], rows)


def peers_table(works):
    """Processor times of the peers that took part, and the library's in proportion."""
    rows = []
    for work in CALLS:
        cells = [WORKS[work][0], time(middle_of(works[work]["library"]))]
        for peer in PEERS:
            if peer not in works[work]:
                cells += ["", "", ""]
                continue
            ratios = [ours["processor_us"] / theirs["processor_us"]
                      for ours, theirs in zip(works[work]["library"], works[work][peer])]
            ratio = statistics.median(ratios)
            low, _, high = statistics.quantiles(ratios, n=4) if len(ratios) > 1 else ratios * 3
            most = MOST_OF_PEERS_TIME.get((work, peer), 1.0)
            cells += [time(middle_of(works[work][peer])), f"{ratio:.3g} ({low:.2g} to {high:.2g})",
                      "" if (work, peer) in UNJUDGED else
                      f"at most {most:.1f}: {verdict(ratio <= most)}"]
        rows.append(cells)
    header = ["work", "library"]
    for name in PEERS.values():
        header += [name, f"library to {name}", ""]
    return table(header, rows)


def middle_of(measured):
    return statistics.median(each["processor_us"] for each in measured)


def memory_table(memory):
    idle = {side: memory["login/http"][side] for side in ("floor", "library")}
    rows = [[name] + [f"{memory[work][side] / 1024:.1f} MB" for side in idle] +
            [f"{(memory[work][side] - idle[side]) / 1024:.1f} MB" for side in idle] +
            [f"{memory[work][peer] / 1024:.1f} MB" if peer in memory[work] else ""
             for peer in PEERS] for work, (name, _) in WORKS.items()]
    above = (memory["product"]["library"] - idle["library"]) * 1024 / PRODUCT_ANSWER
    return table(["work", "floor", "library", "floor above idle", "library above idle",
                  *PEERS.values()], rows) + (
        f"\nThe product takes {above:.2f} times the answer's {PRODUCT_ANSWER / 1e6:.1f} MB above "
        f"the idle process; target {MOST_MEMORY}: {verdict(above <= MOST_MEMORY)}.\n")


def threads_table(threads):
    rows = [[count] + [cell for side in ("floor", "library") for cell in (
        f"{threads[side][count][0]:.0f}", f"{threads[side][count][0] / threads[side][1][0]:.2f}",
        time(threads[side][count][1]))] for count in THREADS]
    return table(["threads", "floor, calls a second", "times one", "processor time of a call",
                  "library, calls a second", "times one", "processor time of a call"], rows)


def scaling(threads):
    times_one = threads["library"][8][0] / threads["library"][1][0]
    return (f"8 threads do {times_one:.2f} times the calls of one; target {LEAST_SCALING}: "
            f"{verdict(times_one >= LEAST_SCALING)}.\n")


def fitted(points):
    """The fixed part and the slope of the line that is relatively nearest to the points."""
    weights = [(x, y, 1 / (y * y)) for x, y in points]
    total = sum(w for _, _, w in weights)
    x_mean = sum(x * w for x, _, w in weights) / total
    y_mean = sum(y * w for _, y, w in weights) / total
    slope = (sum(w * (x - x_mean) * (y - y_mean) for x, y, w in weights) /
             sum(w * (x - x_mean) ** 2 for x, y, w in weights))
    return y_mean - slope * x_mean, slope


def growth_of(growth, kind, unit):
    points = sorted((int(name.split("/")[1]), least) for name, least in growth.items()
                    if name.startswith(kind + "/"))
    fixed, slope = fitted(points)
    rows = [[f"{x:,}", time(y), time(fixed + slope * x), f"{y / (fixed + slope * x):.2f}"]
            for x, y in points]
    (x1, y1), (x2, y2) = points[-3], points[-1]
    exponent = math.log(y2 / y1) / math.log(x2 / x1)
    chart = ["```mermaid", "xychart-beta",
             f'  x-axis "{unit}, powers of ten" {math.log10(points[0][0]):.0f} --> '
             f"{math.log10(points[-1][0]):.0f}", '  y-axis "microseconds, powers of ten"',
             "  line [" + ", ".join(f"{math.log10(y):.2f}" for _, y in points) + "]",
             "  line [" + ", ".join(f"{math.log10(fixed + slope * x):.2f}" for x, _ in points) +
             "]", "```"]
    return (table([unit, "processor time", "straight line", "of it"], rows) +
            f"\nOver the last two powers of ten the time grows with the power {exponent:.2f} of "
            f"the size; at most {STRAIGHT}: {verdict(exponent <= STRAIGHT)}.\n\n" +
            "\n".join(chart) + "\n")


def micro_table(micro):
    rows = []
    for name, each in micro.items():
        rate = each.get("bytes_per_second")
        rows.append([name, time(each["cpu_time"] / 1000),
                     f"{rate / 1e9:.2f} GB/s, {1e12 / rate:.0f} ns a kB" if rate else ""])
    base64 = micro["base64/one_line/200000"]["bytes_per_second"] / 1e9
    listings = max(micro[f"numbering/{count}"]["cpu_time"] / micro[f"listing/{count}"]["cpu_time"]
                   for count in (1000, 100000))
    return table(["part", "time", "rate"], rows) + (
        f"\nBase64 of 200 kB without line ends: {base64:.1f} GB/s; target {LEAST_BASE64}: "
        f"{verdict(base64 >= LEAST_BASE64)}. "
        f"Choosing a file's number costs at most {listings:.1f} listings of the folder; target "
        f"{MOST_LISTINGS}: {verdict(listings <= MOST_LISTINGS)}.\n")


def markdown(results):
    first, second = results["first"]
    parts = [
        "# Performance\n",
        f"Written by `bench/compare` on {datetime.date.today()}; {machine()}. The service is a "
        "process on the same machine; files lie in memory.\n",
        "The *floor* (`bench/floor.cpp`) is the same work by hand: a libcurl handle, the libxml2 "
        "DOM, general XPath. Both make a new connection a call and keep the handle, the loaded "
        "issuers and the TLS tickets. Library, floor and peers run in turn, each in a process of "
        "its own; a ratio is the median of the rounds' ratios. Targets are judged by processor "
        "time, the service's not counted: on a machine with other work to do the clock says how "
        "long the others took.\n",
        f"## Calls\n\nMedians of {results['rounds']} rounds.\n", works_table(results["works"]),
        f"The first call of a process takes {time(first)}, its second {time(second)}; target at "
        f"most {time(MOST_FIRST_CALL)} more: {verdict(first - second <= MOST_FIRST_CALL)}.\n",
        "## Peers\n\nProcessor time of the same calls with gSOAP (its generated client, wide "
        "texts) and with Python's zeep (from the WSDL); in brackets the middle half of the "
        "rounds.\n", peers_table(results["works"]),
        "## Memory\n\nThe most that a process held which did the one work only. Idle is one that "
        "has logged in.\n", memory_table(results["memory"]),
        "## Threads\n\nThe briefing above, for which the service has little to do:\n",
        threads_table(results["threads"]["briefing"]), scaling(results["threads"]["briefing"]),
        "The directory above. All it does is small blocks of memory: what the threads have in "
        "common is the C library's, which gives an arena's memory back after each call and asks "
        "for it again in small steps.\n",
        threads_table(results["threads"]["directory"]),
        "Logins over HTTP. The two ends of a connection have about as much to do, so that on two "
        "processors a service and one thread leave little for more of them.\n",
        threads_table(results["threads"]["login"]),
        "## Growth\n\nProcessor time, the service's not counted; large blocks of memory come from "
        "the system in each call, whatever the size. Briefings by the size of their text:\n",
        growth_of(results["growth"], "text", "bytes"), "Directories by their entries:\n",
        growth_of(results["growth"], "entries", "entries"),
        "## Parts\n\nProcessor times.\n", micro_table(results["micro"]),
    ]
    if results["instructions"]:
        rows = [[name, SCENARIOS[name], f"{count:,}"]
                for name, count in results["instructions"].items()]
        parts += ["## Instructions\n\nCounted by callgrind; they do not depend on the machine's "
                  "load.\n", table(["scenario", "what it does", "instructions"], rows)]
    return "\n".join(parts)
