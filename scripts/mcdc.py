#!/usr/bin/env python3
"""Which conditions of the std-only rooms no test has seen decide by themselves (MC/DC).

A decision of several conditions is covered when for each of them there are two runs that differ in
what it alone decides. Builds the preset mcdc (clang 19), runs the tests of these rooms, and compares
what llvm-cov finds with docs/coverage.md: a decision stands there as "file: the text of its first
line" with the reason. Exit status: 0 where everything else is covered."""

import json
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build-mcdc"
ROOMS = ["core", "geodesy", "aprs", "map", "settings", "panels", "records", "batch"]
PROGRAMS = ["core_test", "geodesy_test", "aprs_test", "map_test", "settings_test", "panels_test",
            "panels_help_test", "records_test", "batch_test"]


def run(*command, **options):
    return subprocess.run(command, cwd=ROOT, check=True, **options)


def profile():
    """Runs the tests. Result: what they counted, as one file."""
    counts = []
    for program in PROGRAMS:
        counts.append(BUILD / f"{program}.profraw")
        run(BUILD / "tests" / program, stdout=subprocess.DEVNULL,
            env={**os.environ, "LLVM_PROFILE_FILE": str(counts[-1])})
    merged = BUILD / "mcdc.profdata"
    run("llvm-profdata-19", "merge", "-o", merged, *counts)
    return merged


def records(merged):
    """Of each file its decisions: (line, [whether each condition is covered])."""
    objects = [option for program in PROGRAMS[1:]
               for option in ("-object", BUILD / "tests" / program)]
    output = run("llvm-cov-19", "export", "--format=text", f"--instr-profile={merged}",
                 BUILD / "tests" / PROGRAMS[0], *objects, stdout=subprocess.PIPE,
                 stderr=subprocess.DEVNULL).stdout
    for file in json.loads(output)["data"][0]["files"]:
        path = pathlib.Path(file["filename"])
        if path.is_relative_to(ROOT) and path.relative_to(ROOT).parts[0] in ROOMS:
            name = str(path.relative_to(ROOT))
            for record in file["mcdc_records"]:
                yield name, record[0], record[-1]


def main():
    run("cmake", "--preset", "mcdc", stdout=subprocess.DEVNULL)
    run("cmake", "--build", "build-mcdc", "--target", *PROGRAMS, "--", "--quiet")
    explained = (ROOT / "docs" / "coverage.md").read_text(encoding="utf-8")
    conditions = unexplained = excluded = 0
    for name, line, covered in records(profile()):
        conditions += len(covered)
        missing = covered.count(False)
        if missing == 0:
            continue
        text = (ROOT / name).read_text(encoding="utf-8").splitlines()[line - 1].strip()
        if f"`{name}: {text}`" in explained:
            excluded += missing
        else:
            unexplained += missing
            print(f"NOT DECISIVE ({missing} of {len(covered)}, line {line}): {name}: {text}")
    print(f"{conditions} conditions: {unexplained} never decide by themselves, "
          f"{excluded} more explained in docs/coverage.md")
    return 0 if unexplained == 0 and conditions > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
