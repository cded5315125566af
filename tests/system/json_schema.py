#!/usr/bin/python3
"""Checks documents of counterctl against its schema: SCHEMA FOLDER, files named COMMAND.WHAT.json in FOLDER.

Each document must match the definition of its command, and no longer once a part of it is missing or has
another type; every command of `commands`, a name a line in FOLDER, must have been seen."""
import json
import pathlib
import sys

import jsonschema

schema = json.loads(pathlib.Path(sys.argv[1]).read_text())
folder = pathlib.Path(sys.argv[2])
jsonschema.Draft202012Validator.check_schema(schema)


def validator(command):
    return jsonschema.Draft202012Validator({"$ref": "#/$defs/" + command, "$defs": schema["$defs"]})


def spoilt(document):
    """The document with a key too many, where it has an object near its top."""
    copy = json.loads(json.dumps(document))
    place = copy[0] if isinstance(copy, list) and copy else copy
    if not isinstance(place, dict):
        return None
    place["Surplus"] = 1
    return copy


seen = set()
faults = []
for path in sorted(folder.glob("*.json")):
    command = path.name.split(".")[0]
    seen.add(command)
    document = json.loads(path.read_text())
    faults += [f"{path.name}: {e.json_path}: {e.message}" for e in validator(command).iter_errors(document)]
    wrong = spoilt(document)
    if wrong is not None and validator(command).is_valid(wrong):
        faults.append(f"{path.name}: the schema takes any key")
faults += [f"no document of {c}" for c in (folder / "commands").read_text().split() if c not in seen]
print("\n".join(faults))
sys.exit(1 if faults else 0)
