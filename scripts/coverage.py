#!/usr/bin/env python3
"""Which lines and branches of the std-only rooms no test runs.

Builds the preset coverage, runs the tests of these rooms, and compares what gcovr finds with
docs/coverage.md: a line stands there as "file: its text" with the reason why nothing runs it.
Exit status: 0 where everything else is run, every line and every branch."""

import json
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROOMS = ["core", "geodesy", "aprs", "map", "settings", "panels", "records", "batch"]
PROGRAMS = ["core_test", "geodesy_test", "aprs_test", "map_test", "settings_test", "panels_test",
            "panels_help_test", "position_codes_test", "records_test", "batch_test",
            "batch_program_test"]


def run(*command, **options):
    return subprocess.run(command, cwd=ROOT, check=True, **options)


def main():
    run("cmake", "--preset", "coverage", stdout=subprocess.DEVNULL)
    run("cmake", "--build", "build-coverage", "--target", *PROGRAMS, "--", "--quiet")
    for data in (ROOT / "build-coverage").rglob("*.gcda"):
        data.unlink()
    for program in PROGRAMS:
        run(f"build-coverage/tests/{program}", stdout=subprocess.DEVNULL)
    filters = [option for room in ROOMS for option in ("--filter", f"{room}/")]
    # Branches that a compiler makes for exceptions are not a test's business.
    output = run("gcovr", "--root", ".", "--object-directory", "build-coverage", *filters,
                 "--exclude-throw-branches", "--exclude-unreachable-branches", "--json",
                 stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    page = (ROOT / "docs" / "coverage.md").read_text(encoding="utf-8")
    explained = page[:page.index("\n## Conditions ")]  # what follows is for scripts/mcdc.py
    lines = branches = unexplained = 0
    met = set()
    for file in json.loads(output)["files"]:
        source = (ROOT / file["file"]).read_text(encoding="utf-8").splitlines()
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            taken = [branch["count"] > 0 for branch in line["branches"]]
            lines += 1
            branches += len(taken)
            if line["count"] > 0 and all(taken):
                continue
            place = f"{file['file']}: {source[line['line_number'] - 1].strip()}"
            if f"`{place}`" in explained:
                met.add(place)
            else:
                unexplained += 1
                what = "line" if line["count"] == 0 else "branch"
                print(f"NOT RUN ({what}, line {line['line_number']}): {place}")
    print(f"{lines} lines, {branches} branches: {unexplained} lines with something that is not run, "
          f"{len(met)} more explained in docs/coverage.md")
    needless = set(re.findall(r"`([a-z]+/[a-z_]+\.(?:cpp|h): [^`]+)`", explained)) - met
    for place in sorted(needless):
        print(f"EXPLAINED WITHOUT NEED: {place}")
    return 0 if unexplained == 0 and not needless and lines > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
