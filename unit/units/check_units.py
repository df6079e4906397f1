#!/usr/bin/env python3
"""Checks virtual-unit files against the unit file format.

Usage: check_units.py [--names FILE] [--subset-of UNIT] UNIT...

Every fault is printed as "FILE: where: what" and the exit status is 1 when any file has
a fault (2 for bad usage). --names FILE lists object names, one per line ("name" or
"name.instance"; blank lines and lines starting with # are skipped) that every checked
file must hold. --subset-of UNIT requires every object of the checked files to exist in
UNIT with the same type and texts, so that a smaller unit never drifts from the full one.
"""

import argparse
import json
import math
import re
import sys

TYPES = ("string", "int", "bool", "double", "enum")
OBJECT_KEYS = {"type", "readonly", "texts", "min", "max", "maxlen", "description", "values"}
TOP_KEYS = {"description", "subsystems", "behaviours", "objects"}
# Leading point, then dotted unsigned numbers: ".0", ".1.1", ".1.4.10.20.0.15".
INSTANCE = re.compile(r"^(\.(0|[1-9][0-9]*))+$")
NAME = re.compile(r"^[a-z][A-Za-z0-9]*$")
SUBSYSTEM = re.compile(r"^[A-Z][A-Za-z0-9]*$")
INT64 = (-(2**63), 2**63 - 1)


class DuplicateKey(ValueError):
    pass


def _no_duplicates(pairs):
    # json.load keeps the last of two equal keys silently; in a unit file that hides a
    # mistake (the first definition of an object simply vanishes).
    seen = {}
    for key, value in pairs:
        if key in seen:
            raise DuplicateKey("duplicate key %s" % json.dumps(key))
        seen[key] = value
    return seen


def load(path):
    """Returns (document, None) or (None, message)."""
    try:
        with open(path, encoding="utf-8") as f:
            return json.load(f, object_pairs_hook=_no_duplicates), None
    except OSError as e:
        return None, "cannot read: %s" % e.strerror
    except UnicodeDecodeError as e:
        return None, "not UTF-8: %s" % e
    except DuplicateKey as e:
        return None, str(e)
    except ValueError as e:
        return None, "not valid JSON: %s" % e


def is_int(v):
    return isinstance(v, int) and not isinstance(v, bool)


def is_number(v):
    return (is_int(v) or isinstance(v, float)) and not (
        isinstance(v, float) and (math.isnan(v) or math.isinf(v)))


def check_value(obj, value):
    """Returns the fault of one value of an object, or None."""
    typ = obj["type"]
    if typ == "string":
        if not isinstance(value, str):
            return "expected a string, got %s" % json.dumps(value)
        if "maxlen" in obj and len(value) > obj["maxlen"]:
            return "%s is longer than maxlen %d" % (json.dumps(value), obj["maxlen"])
        return None
    if typ == "bool":
        return None if isinstance(value, bool) else "expected true or false, got %s" % json.dumps(value)
    if typ == "enum":
        if not isinstance(value, str):
            return "expected one of its texts, got %s" % json.dumps(value)
        if isinstance(obj.get("texts"), list) and value not in obj["texts"]:
            return "%s is not one of its texts" % json.dumps(value)
        return None
    if typ == "int":
        if not is_int(value):
            return "expected an integer, got %s" % json.dumps(value)
        if not INT64[0] <= value <= INT64[1]:
            return "%d does not fit in 64 bits" % value
    elif not is_number(value):
        return "expected a number, got %s" % json.dumps(value)
    if "min" in obj and is_number(obj["min"]) and value < obj["min"]:
        return "%s is below min %s" % (value, obj["min"])
    if "max" in obj and is_number(obj["max"]) and value > obj["max"]:
        return "%s is above max %s" % (value, obj["max"])
    return None


def check_object(name, obj):
    """Yields the faults of one object definition."""
    if not NAME.match(name):
        yield "object name %s is not a camelCase word" % json.dumps(name)
    if not isinstance(obj, dict):
        yield "%s: definition is not an object" % name
        return
    for key in sorted(set(obj) - OBJECT_KEYS):
        yield "%s: unknown key %s" % (name, json.dumps(key))
    typ = obj.get("type")
    if typ not in TYPES:
        yield "%s: type %s is not one of %s" % (name, json.dumps(typ), ", ".join(TYPES))
        return
    if "readonly" in obj and not isinstance(obj["readonly"], bool):
        yield "%s: readonly must be true or false" % name
    if "description" in obj and not isinstance(obj["description"], str):
        yield "%s: description must be text" % name
    if typ == "enum":
        texts = obj.get("texts")
        if not isinstance(texts, list) or not texts:
            yield "%s: an enum needs a non-empty list of texts" % name
        else:
            if not all(isinstance(t, str) and t for t in texts):
                yield "%s: texts must be non-empty strings" % name
            elif len(set(texts)) != len(texts):
                yield "%s: texts repeat" % name
    elif "texts" in obj:
        yield "%s: texts belong to enums only" % name
    for key in ("min", "max"):
        if key in obj:
            if typ not in ("int", "double"):
                yield "%s: %s belongs to numbers only" % (name, key)
            elif not is_number(obj[key]) or (typ == "int" and not is_int(obj[key])):
                yield "%s: %s must be a %s" % (name, key, "an integer" if typ == "int" else "number")
    if is_number(obj.get("min")) and is_number(obj.get("max")) and obj["min"] > obj["max"]:
        yield "%s: min is above max" % name
    if "maxlen" in obj:
        if typ != "string":
            yield "%s: maxlen belongs to strings only" % name
        elif not is_int(obj["maxlen"]) or obj["maxlen"] < 1:
            yield "%s: maxlen must be a positive integer" % name
    values = obj.get("values")
    if not isinstance(values, dict) or not values:
        yield "%s: needs values with at least one instance" % name
        return
    for inst, value in values.items():
        if not INSTANCE.match(inst):
            yield "%s: instance %s is not of the form .0 or .1.1" % (name, json.dumps(inst))
            continue
        fault = check_value(obj, value)
        if fault:
            yield "%s%s: %s" % (name, inst, fault)


def check_subsystems(subsystems):
    if not isinstance(subsystems, dict):
        yield "subsystems: must map a subsystem type to its instances"
        return
    for typ, insts in subsystems.items():
        if not SUBSYSTEM.match(typ):
            yield "subsystems: type %s is not a CamelCase word" % json.dumps(typ)
        if not isinstance(insts, list) or not insts:
            yield "subsystems: %s needs a non-empty list of instances" % typ
            continue
        for inst in insts:
            if not isinstance(inst, str) or not INSTANCE.match(inst):
                yield "subsystems: %s instance %s is not of the form .1 or .1.2" % (
                    typ, json.dumps(inst))
        if len(set(map(json.dumps, insts))) != len(insts):
            yield "subsystems: %s lists an instance twice" % typ


def check_behaviours(behaviours, objects):
    if not isinstance(behaviours, dict):
        yield "behaviours: must be an object"
        return
    known = objects if isinstance(objects, dict) else {}
    for key, value in behaviours.items():
        if key.endswith("Ms") and not (is_int(value) and value >= 0):
            yield "behaviours: %s must be a non-negative integer" % key
    # Names that behaviours act on must exist, or the behaviour silently does nothing.
    resets = behaviours.get("counterResets", {})
    if not isinstance(resets, dict):
        yield "behaviours: counterResets must map a reset object to its counters"
        resets = {}
    for trigger, counters in resets.items():
        if not isinstance(counters, list):
            yield "behaviours: counterResets %s must list counters" % trigger
            continue
        for name in [trigger] + counters:
            if name not in known:
                yield "behaviours: counterResets names unknown object %s" % json.dumps(name)
    reboot = behaviours.get("reboot", {})
    names = reboot.get("objects", []) if isinstance(reboot, dict) else None
    if not isinstance(names, list):
        yield "behaviours: reboot must hold a list of objects"
    else:
        for name in names:
            if name not in known:
                yield "behaviours: reboot names unknown object %s" % json.dumps(name)


def check_rows(objects):
    """Columns of a table with a row status ("xRowStatus") must hold exactly its rows:
    rows are created and destroyed across every "x..." object at once."""
    for status, obj in objects.items():
        if not status.endswith("RowStatus") or not isinstance(obj, dict):
            continue
        rows = set(obj.get("values") or {})
        table = status[: -len("RowStatus")]
        for name, column in objects.items():
            if name == status or not name.startswith(table) or not isinstance(column, dict):
                continue
            if set(column.get("values") or {}) != rows:
                yield "%s: instances differ from the rows of %s" % (name, status)


def check_unit(doc):
    """Yields the faults of a whole unit document."""
    if not isinstance(doc, dict):
        yield "the file must hold one JSON object"
        return
    for key in sorted(set(doc) - TOP_KEYS):
        yield "unknown top-level key %s" % json.dumps(key)
    if not isinstance(doc.get("description"), str) or not doc.get("description"):
        yield "description: must be a non-empty text"
    if "subsystems" not in doc:
        yield "subsystems: missing"
    else:
        yield from check_subsystems(doc["subsystems"])
    objects = doc.get("objects")
    if "behaviours" in doc:
        yield from check_behaviours(doc["behaviours"], objects)
    if not isinstance(objects, dict) or not objects:
        yield "objects: must map object names to their definitions"
        return
    for name, obj in objects.items():
        yield from check_object(name, obj)
    yield from check_rows(objects)


def check_names(doc, names):
    objects = doc.get("objects") if isinstance(doc, dict) else None
    if not isinstance(objects, dict):
        return
    for wanted in names:
        name, _, inst = wanted.partition(".")
        obj = objects.get(name)
        if not isinstance(obj, dict):
            yield "%s: missing object" % name
        elif inst and inst != "%" and ("." + inst) not in (obj.get("values") or {}):
            yield "%s: missing instance .%s" % (name, inst)


def check_subset(doc, reference):
    objects = doc.get("objects") if isinstance(doc, dict) else None
    ref = reference.get("objects") if isinstance(reference, dict) else None
    if not isinstance(objects, dict) or not isinstance(ref, dict):
        return
    for name, obj in objects.items():
        other = ref.get(name)
        if not isinstance(other, dict):
            yield "%s: not in the reference unit" % name
            continue
        if not isinstance(obj, dict):
            continue
        for key in ("type", "texts", "readonly"):
            if obj.get(key) != other.get(key):
                yield "%s: %s differs from the reference unit" % (name, key)


def read_names(path):
    with open(path, encoding="utf-8") as f:
        lines = [line.strip() for line in f]
    return [line for line in lines if line and not line.startswith("#")]


def main(argv):
    parser = argparse.ArgumentParser(description="Check virtual-unit files.")
    parser.add_argument("--names", metavar="FILE",
                        help="object names (one per line) that every unit must hold")
    parser.add_argument("--subset-of", metavar="UNIT",
                        help="a unit whose objects (type, texts, readonly) the units must match")
    parser.add_argument("units", nargs="+", metavar="UNIT")
    args = parser.parse_args(argv)

    names = []
    if args.names:
        try:
            names = read_names(args.names)
        except (OSError, UnicodeDecodeError) as e:
            print("%s: cannot read the name list: %s" % (args.names, e), file=sys.stderr)
            return 2
    reference = None
    if args.subset_of:
        reference, err = load(args.subset_of)
        if err:
            print("%s: %s" % (args.subset_of, err), file=sys.stderr)
            return 2

    failed = False
    for path in args.units:
        doc, err = load(path)
        faults = [err] if err else list(check_unit(doc))
        if doc is not None:
            faults += check_names(doc, names)
            if reference is not None:
                faults += check_subset(doc, reference)
        for fault in faults:
            print("%s: %s" % (path, fault))
        if faults:
            failed = True
        else:
            objects = doc["objects"]
            print("%s: ok, %d objects, %d values, %d subsystem types" % (
                path, len(objects), sum(len(o["values"]) for o in objects.values()),
                len(doc["subsystems"])))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
