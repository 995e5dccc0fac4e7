"""The schema takes the sources of the project, and refuses what the compiler refuses:
schema_test.py VELFORM SOURCE..."""

import json
import subprocess
import sys
import tomllib
from pathlib import Path

import jsonschema

FAULTY = ("colour = 1", "[[object]]\ntyp = 'label'", "[[object]]\nx = 'left'",
          "[[object]]\nfill = '#12345'", "[[object]]\nkind = 'chek'", "theme = 'drak'",
          "[[file_dialog]]\ntitle = 'T'", "[styles.a]\nid = 'b'", "object = {}",
          "[[object]]\nrect = [1, 2, 3]", "spare = { rows = 0 }")  # fmt: skip


def main():
    velform, *sources = sys.argv[1:]
    printed = subprocess.run([velform, "schema"], check=True, capture_output=True, text=True)
    validator = jsonschema.Draft7Validator(json.loads(printed.stdout))
    for source in sources:
        for fault in validator.iter_errors(tomllib.loads(Path(source).read_text(encoding="utf-8"))):
            sys.exit(f"{source}: {fault.json_path}: {fault.message}")
    for text in FAULTY:
        if validator.is_valid(tomllib.loads(text)):
            sys.exit(f"taken: {text}")


main()
