#!/usr/bin/env python3
"""The benchmark table, over small programs that report what a benchmark reports."""
import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BENCH = Path(__file__).resolve().parents[2] / "tools" / "bench"


class BenchTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.folder = Path(directory.name)

    def program(self, name, *benchmarks, exit_code=0):
        """A program that prints its results in the benchmark library's own format."""
        report = json.dumps({"context": {}, "benchmarks": benchmarks})
        path = self.folder / name
        path.write_text(f"#!/bin/sh\ncat <<'END'\n{report}\nEND\nexit {exit_code}\n")
        path.chmod(0o755)

    def budgets(self, **budgets):
        (self.folder / "budgets.json").write_text(json.dumps(budgets))

    def bench(self, *options):
        return subprocess.run(
            [sys.executable, str(BENCH), "--bin", str(self.folder), "--budgets",
             str(self.folder / "budgets.json"), *options], capture_output=True, text=True, check=False)

    @staticmethod
    def result(name, **fields):
        return {"name": name, "run_name": name, "run_type": "iteration", "iterations": 10, "threads": 1,
                "real_time": 2.5e6, "cpu_time": 2e6, "time_unit": "ns", **fields}

    def row(self, output, name, figure):
        rows = [line.split() for line in output.splitlines() if line.split()[:2] == [name, figure]]
        self.assertEqual(len(rows), 1, output)
        return rows[0]

    def test_counters_within_their_budget_are_met(self):
        self.program("a-benchmark", self.result("DragStep", median_ms=3.5, p99_ms=8.0))
        self.budgets(DragStep={"median_ms": 4, "p99_ms": 8})
        result = self.bench()
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertEqual(self.row(result.stdout, "DragStep", "p99_ms"), ["DragStep", "p99_ms", "8", "8", "met"])

    def test_a_missed_budget_fails_unless_told_otherwise(self):
        self.program("a-benchmark", self.result("DragStep", median_ms=3.5, p99_ms=8.1))
        self.budgets(DragStep={"median_ms": 4, "p99_ms": 8})
        self.assertEqual(self.row(self.bench().stdout, "DragStep", "p99_ms")[-1], "MISSED")
        self.assertEqual(self.bench().returncode, 1)
        self.assertEqual(self.bench("--no-fail").returncode, 0)

    def test_the_mean_time_stands_in_for_a_median_but_not_for_a_percentile(self):
        self.program("a-benchmark", self.result("Load"))
        self.budgets(Load={"median_ms": 3, "p99_ms": 3})
        result = self.bench()
        self.assertEqual(self.row(result.stdout, "Load", "median_ms"), ["Load", "median_ms", "2.5", "3", "met"])
        self.assertIn("not reported", result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_every_unit_of_time_becomes_milliseconds(self):
        self.budgets()
        for unit, expected in (("ns", "0.0015"), ("us", "1.5"), ("ms", "1500"), ("s", "1.5e+06")):
            with self.subTest(unit=unit):
                self.program("a-benchmark", self.result("Load", real_time=1500, time_unit=unit))
                self.assertEqual(self.row(self.bench().stdout, "Load", "median_ms")[2], expected)

    def test_repetitions_are_joined_and_aggregates_left_out(self):
        runs = [self.result("Load", median_ms=value, repetition_index=index)
                for index, value in enumerate((1.0, 9.0, 2.0))]
        mean = {**self.result("Load"), "name": "Load_mean", "run_type": "aggregate", "median_ms": 4.0}
        self.program("a-benchmark", *runs, mean)
        self.budgets(Load={"median_ms": 3})
        result = self.bench()
        self.assertEqual(self.row(result.stdout, "Load", "median_ms"), ["Load", "median_ms", "2", "3", "met"])

    def test_a_benchmark_with_arguments_falls_under_the_budget_of_its_name(self):
        self.program("a-benchmark", self.result("Blur/750/1334", median_ms=5))
        self.budgets(Blur={"median_ms": 3})
        self.assertEqual(self.bench().returncode, 1)

    def test_a_budget_that_nobody_measured_is_missed(self):
        self.program("a-benchmark", self.result("Load"))
        self.budgets(Load={"median_ms": 3}, Idle={"frames": 0})
        self.assertIn("not measured", self.bench().stdout)
        self.assertEqual(self.bench().returncode, 1)
        self.assertEqual(self.bench("a-benchmark").returncode, 0)

    def test_a_benchmark_that_fails_is_missed(self):
        self.program("a-benchmark", self.result("Load", error_occurred=True, error_message="no library"))
        self.budgets(Load={"median_ms": 3})
        result = self.bench()
        self.assertIn("FAILED: no library", result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_a_program_that_crashes_is_missed(self):
        self.budgets()
        self.program("a-benchmark", self.result("Load"), exit_code=3)
        self.assertEqual(self.bench().returncode, 1)
        (self.folder / "a-benchmark").write_text("#!/bin/sh\nkill -SEGV $$\n")
        self.assertEqual(self.bench().returncode, 1)

    def test_nothing_to_run_is_an_error_of_its_own(self):
        self.budgets()
        result = self.bench()
        self.assertEqual(result.returncode, 2)
        self.assertIn("nothing to run", result.stderr)
        self.assertEqual(self.bench("missing-benchmark").returncode, 2)

    def test_the_projects_own_budgets_can_be_read(self):
        budgets = json.loads((BENCH.parent.parent / "bench" / "budgets.json").read_text())
        self.assertTrue(budgets)
        for name, figures in budgets.items():
            for figure, most in figures.items():
                self.assertIsInstance(most, (int, float), f"{name}.{figure}")


if __name__ == "__main__":
    unittest.main()
