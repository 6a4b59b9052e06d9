"""Describes the machine, and pins the measurements to a core."""

import os
import platform


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as info:
        for line in info:
            if line.startswith("model name"):
                return line.split(":", 1)[1].strip()
    return platform.machine()


def system():
    release = platform.freedesktop_os_release()
    return release.get("PRETTY_NAME", platform.system())


def pin():
    """Pins this process and its children to the last core available to it. Returns the core."""
    core = max(os.sched_getaffinity(0))
    os.sched_setaffinity(0, {core})
    return core


def describe(core):
    return f"{processor()}, {os.cpu_count()} cores, pinned to core {core}; {system()}."
