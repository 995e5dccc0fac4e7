"""Compares what `velform check` finds in faulty sources with what their comments say:
faulty_test.py VELFORM FOLDER PAGE

A finding is expected by a comment under its line, with a mark under its column or with the number
of it: "#     ^ warning: text [rule]". The page describes every rule that there is, with an example
that breaks it.
"""

import json
import re
import subprocess
import sys
from pathlib import Path

EXPECTED = re.compile(r"#(?: *(\^)|(\d+):) (\w+): (.*) \[([\w-]+)\]$")


def expected(path):
    line = 0
    for number, text in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = EXPECTED.match(text)
        if match:
            mark, column, severity, message, rule = match.groups()
            column = match.start(1) + 1 if mark else int(column)
            yield path.name, line, column, severity, rule, message
        else:
            line = number


def run(velform, paths, *options, source=""):
    command = [velform, "check", *options, *map(str, paths)]
    return subprocess.run(command, input=source, capture_output=True, text=True, check=False)


def main():
    velform, folder, page = sys.argv[1:]
    page_text = Path(page).read_text(encoding="utf-8")
    paths = sorted(Path(folder).glob("*.toml"))
    findings = json.loads(run(velform, paths, "--format", "json").stdout)
    keys = ("line", "column", "severity", "rule", "message")
    found = {(Path(f["file"]).name, *(f[key] for key in keys)) for f in findings}
    wanted = {finding for path in paths for finding in expected(path)}
    faults = [f"not found: {f}" for f in sorted(wanted - found)]
    faults += [f"not expected: {f}" for f in sorted(found - wanted)]
    sarif = json.loads(run(velform, paths, "--format", "sarif").stdout)["runs"][0]
    if len(sarif["results"]) != len(findings):
        faults.append("sarif has other findings than json")
    rules = [rule["id"] for rule in sarif["tool"]["driver"]["rules"]]
    sections = re.findall(r"^### `([\w-]+)`$(.*?)^```toml$(.*?)^```$", page_text, re.M | re.S)
    if rules != [rule for rule, *_ in sections]:
        faults.append(f"{page} describes other rules")
    faults += [f"the example of {rule} does not break it" for rule, _, code in sections
               if f"[{rule}]" not in run(velform, ["-"], source=code).stderr]
    sys.exit("\n".join(faults) or (0 if len(paths) >= 60 else "there are fewer than 60 sources"))


main()
