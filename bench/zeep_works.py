#!/usr/bin/python3
"""The works, with zeep: zeep_works.py WSDL WORK SECONDS writes what it measured as JSON."""
import json
import os
import resource
import socket
import statistics
import sys
import time
from pathlib import Path

import requests
import zeep

ACCOUNT = {"source": "orvalix", "requestor": "PILOT1", "password": "secret"}


def connecting_to(address):
    """Makes every TCP connection go there, whatever the URL says."""
    host, port = address.split(":")

    def resolve(*_, **__):
        return [(socket.AF_INET, socket.SOCK_STREAM, 6, "", (host, int(port)))]
    socket.getaddrinfo = resolve


def service(wsdl, answer, securely=False):
    session = requests.Session()
    session.trust_env = False
    session.verify = os.environ["BENCH_ISSUERS"]
    session.headers["Connection"] = "close"
    client = zeep.Client(wsdl, transport=zeep.Transport(session=session),
                         settings=zeep.Settings(xml_huge_tree=True))
    connecting_to(os.environ["BENCH_HTTPS" if securely else "BENCH_HTTP"])
    scheme = "https" if securely else "http"
    binding = next(iter(client.wsdl.bindings))
    return client.create_service(binding, f"{scheme}://{answer}.bench.example/naips")


def login(wsdl, securely):
    naips = service(wsdl, "login", securely)

    def work():
        answer = naips.authenticate(**ACCOUNT)
        len(answer["name"] + answer["motd"] + answer["email"] + answer["avfax-id"])
    return work, lambda: None


def briefing(wsdl, name):
    naips = service(wsdl, name)
    folder = Path(os.environ["XDG_DATA_HOME"])
    files = []

    def work():
        answer = naips.brief(**ACCOUNT, loc="YSSY")
        len(answer["content"] or "")
        for number, product in enumerate(answer["product"]):
            files.append(folder / f"NAIPS{number}.{product['type']}")
            files[-1].write_bytes(product["content"])

    def after():
        while files:
            files.pop().unlink()
    return work, after


def directory(wsdl):
    naips = service(wsdl, "directory-5000")

    def work():
        answer = naips.routes(**ACCOUNT, adep="YSSY", ades="YMML")
        sum(len(route["adep"] + route["ades"] + route["code"] + route["description"])
            for route in answer["route"])
    return work, lambda: None


WORKS = {"login/http": lambda wsdl: login(wsdl, False), "login/https": lambda wsdl: login(wsdl, True),
         "briefing": lambda wsdl: briefing(wsdl, "briefing"),
         "product": lambda wsdl: briefing(wsdl, "product-20000000"), "directory": directory}


def main():
    wsdl, name, seconds = sys.argv[1], sys.argv[2], float(sys.argv[3])
    work, after = WORKS[name](wsdl)
    work()
    after()
    times, processor_times = [], []
    while not times or sum(times) < seconds:
        used, start = time.thread_time(), time.perf_counter()
        work()
        times.append((time.perf_counter() - start) * 1e6)
        processor_times.append((time.thread_time() - used) * 1e6)
        after()
    print(json.dumps({
        "median_us": statistics.median(times), "least_us": min(times),
        "processor_us": statistics.median(processor_times),
        "peak_kB": resource.getrusage(resource.RUSAGE_SELF).ru_maxrss}))


main()
