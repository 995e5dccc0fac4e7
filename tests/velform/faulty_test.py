"""Compares what `velform check` finds in faulty sources with what their comments say:
faulty_test.py VELFORM FOLDER PAGE

A finding is expected by a comment under its line, with a mark under its column or with the number
of it: "#     ^ warning: text [rule]". The page describes every rule that there is, with an example
that breaks it. Sources that can be compiled break the same rules as form description files, but for
those that concern sources alone.
"""

import json
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

OF_SOURCES = {"meaningless-key", "unused-style", "button-without-id", "taken-key", "always-visible",
              "unknown-rule", "needless-allowance"}  # fmt: skip
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


def found_in_forms(velform, paths, folder):
    """Yields the name of each source that can be compiled, and what is found in its form."""
    shutil.copy(paths[0].parent / "no_height.toml", folder)  # neither a font nor a picture
    for path in paths:
        form = Path(folder, path.stem + ".form")
        command = [velform, "compile", str(path), "-o", str(form)]
        subprocess.run(command, capture_output=True, check=False)
        if form.exists():
            findings = json.loads(run(velform, [form], "--format", "json").stdout)
            if path.stem == "no_height" and findings[0]["place"] != "record 9, field height":
                sys.exit(f"{findings[0]['place']} is not where no_height.form is faulty")
            yield path.name, {(finding["rule"], finding["message"]) for finding in findings}


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
    with tempfile.TemporaryDirectory() as folder:
        plain = [path for path in paths if "velform: allow" not in path.read_text("utf-8")]
        for name, in_form in found_in_forms(velform, plain, folder):
            in_source = {finding[-2:] for finding in wanted
                         if finding[0] == name and finding[-2] not in OF_SOURCES}  # fmt: skip
            faults += [f"{name}: in the source or the form only: {f}" for f in in_source ^ in_form]
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
