"""Stages timed by Google Benchmark."""

import json
import os

from process import output_of


def stages(program, pattern, clock, environment, quick=False):
    """Milliseconds by name of the stages that match the pattern. A quick run only checks that the
    stages work."""
    command = [program, "--benchmark_format=json", f"--benchmark_filter={pattern}"]
    if quick:
        command.append("--benchmark_min_time=0.001")
    results = json.loads(output_of(command, env={**os.environ, **environment}))
    field = {"wall": "real_time", "cpu": "cpu_time"}[clock]
    per_millisecond = {"ns": 1e6, "us": 1e3, "ms": 1, "s": 1e-3}
    return {stage["name"]: stage[field] / per_millisecond[stage["time_unit"]]
            for stage in results["benchmarks"]}
