"""Running programs and what they cost."""

import os
import statistics
import subprocess
import time
from dataclasses import dataclass


class Failed(Exception):
    """A program that did not do its work; the text says which and what it told."""


@dataclass(frozen=True)
class Cost:
    wall: float  # Seconds.
    cpu: float  # Seconds, user and system.
    peak: float  # Megabytes of 1024 kilobytes.

    def then(self, other):
        """The cost of one program after another."""
        return Cost(self.wall + other.wall, self.cpu + other.cpu, max(self.peak, other.peak))


# All that was run so far.
_costs = []


# A child counts the memory of this process until it becomes the program, so no peak can show below
# some 15 MB; data are made by programs of their own to keep it there.
def run(command, log, **options):
    """Runs a program to its end. Its output goes to the log, whose end a failure tells."""
    with open(log, "wb") as output:
        start = time.perf_counter()
        child = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output,
                                 stderr=subprocess.STDOUT, **options)
        _, status, usage = os.wait4(child.pid, 0)
        wall = time.perf_counter() - start
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        raise Failed(f"{' '.join(map(str, command))}\nended with {child.returncode}:\n{tail(log)}")
    _costs.append(Cost(wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024))
    return _costs[-1]


def output_of(command, **options):
    """The standard output of a program."""
    done = subprocess.run(command, capture_output=True, text=True, **options)
    if done.returncode != 0:
        raise Failed(f"{' '.join(map(str, command))}\nended with {done.returncode}:\n{done.stderr}")
    return done.stdout


def share_of_core():
    """How much of their time the programs run so far had the core for: near 1 where nobody else
    wanted it."""
    return sum(cost.cpu for cost in _costs) / sum(cost.wall for cost in _costs)


def tail(log):
    with open(log, "rb") as output:
        return output.read().decode(errors="replace")[-2000:]


def alternate(rounds, works):
    """Does each of the works in every round, so that a slow spell of the machine hits all of them.
    Answers the results of each, in the order of the works."""
    results = [[] for _ in works]
    for _ in range(rounds):
        for result, work in zip(results, works):
            result.append(work())
    return results


@dataclass(frozen=True)
class Figure:
    """What several runs of one thing took."""

    values: tuple

    @property
    def median(self):
        return statistics.median(self.values)


def times(costs, clock):
    return Figure(tuple(getattr(cost, clock) for cost in costs))


def peaks(costs):
    return Figure(tuple(cost.peak for cost in costs))
