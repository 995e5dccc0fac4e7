"""velform(1) has each command and each of its options, and no others: man_test.py VELFORM PAGE"""

import re
import subprocess
import sys
from pathlib import Path

OPTION = re.compile(r"--[a-z][a-z-]*")


def help_of(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


def main():
    velform, page = sys.argv[1:]
    sections = re.split(r"^\.S[SH] ", Path(page).read_text(encoding="utf-8").replace("\\-", "-"),
                        flags=re.M)  # fmt: skip
    said = {section.split("\n")[0]: set(OPTION.findall(section)) for section in sections}
    commands = re.findall(r"^  ([a-z]+) ", help_of(velform, "--help").split("Subcommands:")[1],
                          re.M)  # fmt: skip
    common = said["OPTIONS"]
    for command in commands:
        wanted = set(OPTION.findall(help_of(velform, command, "--help"))) - common
        if said.get(command, set()) - common != wanted:
            sys.exit(f"{command}: {sorted(wanted ^ (said.get(command, set()) - common))}")


main()
