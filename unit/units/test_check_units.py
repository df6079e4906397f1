#!/usr/bin/env python3
"""Tests of the shipped unit files and of check_units.py. Run: python3 -B -m unittest discover
-s unit/units -p 'test_*.py' (or this file directly)."""

import contextlib
import copy
import io
import json
import os
import tempfile
import unittest

import check_units

HERE = os.path.dirname(os.path.abspath(__file__))


def load(name):
    doc, err = check_units.load(os.path.join(HERE, name))
    if err:
        raise AssertionError("%s: %s" % (name, err))
    return doc


def values(doc, name):
    return doc["objects"][name]["values"]


class ShippedUnits(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.full = load("full.json")
        cls.minimal = load("minimal.json")
        cls.names = check_units.read_names(os.path.join(HERE, "object-names.txt"))

    def test_both_files_are_well_formed_and_full_names_every_object(self):
        self.assertEqual([], list(check_units.check_unit(self.full)))
        self.assertEqual([], list(check_units.check_unit(self.minimal)))
        self.assertEqual([], list(check_units.check_names(self.full, self.names)))
        self.assertEqual([], list(check_units.check_subset(self.minimal, self.full)))

    def test_fitted_hardware_matches_what_each_unit_promises(self):
        subs = self.full["subsystems"]
        for typ in ("CamSlot", "Scte35Srv", "Esam", "DpiCueTrigger", "MpegIpTxFec",
                    "InbandControl", "MpegIpTx", "TsInputSrc", "TsOutputSrc", "T2Mi", "CardFrame"):
            self.assertIn(typ, subs)
        for typ in ("MpegIpRcv", "DvbS2In", "VsbIn", "TurboPskIn"):
            self.assertEqual(2, len(subs[typ]), typ)
        self.assertIn(".1.2", values(self.full, "subsystemDescription"))

        subs = self.minimal["subsystems"]
        for typ in ("T2Mi", "CamSlot", "DvbS2In", "VsbIn", "TurboPskIn", "CardFrame", "Esam"):
            self.assertNotIn(typ, subs)
        self.assertEqual(1, len(subs["MpegIpRcv"]))
        self.assertNotIn(".1.2", values(self.minimal, "subsystemDescription"))
        labels = values(self.minimal, "tsinputsrcLabel")
        self.assertEqual(1, sum(1 for v in labels.values() if v == "ASI"))

    def test_minimal_keeps_what_start_up_and_the_root_and_admin_screens_read(self):
        families = ("system", "update", "profile", "unit", "tcpip", "datetime", "frontpanel",
                    "alarm", "syscond", "sensor", "temp", "syslog", "utility", "hardware",
                    "model", "input", "tsinputsrc", "mpegipcard", "mpegipnic", "inband",
                    "listeningsvc")
        kept = [n for n in self.full["objects"] if n.startswith(families)]
        self.assertGreater(len(kept), 60)
        missing = [n for n in kept if n not in self.minimal["objects"]]
        self.assertEqual([], missing)

    def test_card_objects_live_at_the_slots_the_subsystems_report(self):
        for doc in (self.full, self.minimal):
            slots = {
                "DvbS2In": "dvbs2instatusConnRcvLock", "MpegIpRcv": "mpegiprcvDestinationIp",
                "VsbIn": "vsbinRfLock", "TurboPskIn": "turbopskinRcvLock",
                "MpegIpTx": "mpegiptxDestinationIp", "CamSlot": "camslotCamName",
                "DpiCueTrigger": "dpicueRelayState", "T2Mi": "t2miState"}
            for typ, obj in slots.items():
                for slot in doc["subsystems"].get(typ, []):
                    self.assertIn(slot + ".1", values(doc, obj), "%s %s" % (typ, slot))
            inputs = set(doc["subsystems"]["TsInputSrc"])
            for obj in ("tsinputsrcId", "tsinputsrcLabel", "tsinputsrcState",
                        "tsinputsrcTsBitrate", "tsinputsrcTsSync"):
                self.assertEqual(inputs, set(values(doc, obj)), obj)
            outputs = set(doc["subsystems"]["TsOutputSrc"])
            self.assertEqual(outputs, set(values(doc, "tsoutputsrcState")))

    def test_values_the_home_page_and_input_selection_join_on_agree(self):
        for doc in (self.full, self.minimal):
            ids = values(doc, "tsinputsrcId")
            self.assertEqual(len(ids), len(set(ids.values())), "input ids repeat")
            for obj in ("inputCurrentActiveInputId", "inputPrimarySrc", "inputBackupSrc"):
                self.assertIn(values(doc, obj)[".1.1"], ids.values(), obj)
            alarms = set(values(doc, "alarmState"))
            self.assertEqual(alarms, set(values(doc, "syscondName")))
            self.assertEqual(alarms, set(values(doc, "syscondLoc")))
            self.assertIn(3, values(doc, "alarmState").values())
            self.assertIn(values(doc, "tsoutputsrcSource")[".1.1"],
                          [int(k[1:]) for k in values(doc, "outputsrcLabel")])
            models = set(values(doc, "modelId").values())
            self.assertTrue(set(values(doc, "hardwareModelId").values()) <= models)
        self.assertEqual(1, values(self.full, "frontpanelLockMode")[".0"])
        self.assertNotEqual("", values(self.full, "frontpanelPassword")[".0"])
        number = values(self.full, "selectedserviceServiceNum")[".1.1"]
        self.assertIn(".1.%d" % number, values(self.full, "siserviceName"))

    def test_audio_instances_cover_the_announced_counts(self):
        counts = {"avssconfigAudioDecodeCount": ["audiosrvEncodedType", "selectedaudioType",
                                                 "audiosrvDownmixOp", "audiooffsetAudioOffset"],
                  "avssconfigAudioCountDigital": ["aesaudioPort"],
                  "avssconfigAudioCountAnalog": ["analogaudioPort", "analogaudioOutputLevel"]}
        for count, objects in counts.items():
            n = values(self.full, count)[".1.1"]
            for obj in objects:
                self.assertEqual({".1.%d" % i for i in range(1, n + 1)},
                                 set(values(self.full, obj)), obj)


class Checker(unittest.TestCase):
    def setUp(self):
        self.doc = {
            "description": "test unit",
            "subsystems": {"MpegIpRcv": [".2"]},
            "behaviours": {"systemStateReadyAfterMs": 0,
                           "counterResets": {"reset": ["counter"]}},
            "objects": {
                "reset": {"type": "bool", "values": {".2.1": False}},
                "counter": {"type": "int", "readonly": True, "min": 0, "values": {".2.1": 7}},
                "mode": {"type": "enum", "texts": ["Enabled", "Disabled"],
                         "values": {".2.1": "Enabled"}},
                "alias": {"type": "string", "maxlen": 5, "values": {".0": "IRD"}},
                "level": {"type": "double", "min": -10, "max": 10, "values": {".0": 1.5}},
                "rowAddr": {"type": "string", "values": {".1.4.10.0.0.1": "10.0.0.1"}},
                "rowRowStatus": {"type": "int", "values": {".1.4.10.0.0.1": 1}},
            },
        }

    def faults(self, mutate):
        doc = copy.deepcopy(self.doc)
        mutate(doc)
        return list(check_units.check_unit(doc))

    def test_a_sound_unit_has_no_fault(self):
        self.assertEqual([], self.faults(lambda d: None))

    def test_each_kind_of_fault_is_reported_with_its_place(self):
        o = lambda d: d["objects"]
        cases = [
            (lambda d: o(d)["mode"]["values"].update({".2.1": "On"}), 'mode.2.1: "On" is not one'),
            (lambda d: o(d)["mode"].pop("texts"), "mode: an enum needs"),
            (lambda d: o(d)["mode"].update(texts=["A", "A"]), "mode: texts repeat"),
            (lambda d: o(d)["counter"]["values"].update({".2.1": "7"}), "expected an integer"),
            (lambda d: o(d)["counter"]["values"].update({".2.1": True}), "expected an integer"),
            (lambda d: o(d)["counter"]["values"].update({".2.1": 7.5}), "expected an integer"),
            (lambda d: o(d)["counter"]["values"].update({".2.1": -1}), "below min 0"),
            (lambda d: o(d)["level"]["values"].update({".0": 10.5}), "above max 10"),
            (lambda d: o(d)["reset"]["values"].update({".2.1": 0}), "expected true or false"),
            (lambda d: o(d)["alias"]["values"].update({".0": "IRD-01"}), "longer than maxlen 5"),
            (lambda d: o(d)["alias"].update(type="text"), 'type "text" is not one of'),
            (lambda d: o(d)["alias"].update(values={}), "at least one instance"),
            (lambda d: o(d)["alias"].update(readonly="yes"), "readonly must be true or false"),
            (lambda d: o(d)["alias"].update(unit="V"), 'unknown key "unit"'),
            (lambda d: o(d)["alias"].update(min=1), "min belongs to numbers only"),
            (lambda d: o(d)["level"].update(min=20), "min is above max"),
            (lambda d: o(d)["alias"].update(values={"0": "x"}), 'instance "0" is not'),
            (lambda d: o(d)["alias"].update(values={".1.": "x"}), 'instance ".1." is not'),
            (lambda d: o(d)["alias"].update(values={".01": "x"}), 'instance ".01" is not'),
            (lambda d: o(d).update({"Bad-Name": o(d)["alias"]}), "not a camelCase word"),
            (lambda d: d["subsystems"].update(DvbS2In=[]), "DvbS2In needs a non-empty list"),
            (lambda d: d["subsystems"].update(DvbS2In=["2"]), 'instance "2" is not'),
            (lambda d: d["subsystems"].update(DvbS2In=[".2", ".2"]), "instance twice"),
            (lambda d: d.pop("subsystems"), "subsystems: missing"),
            (lambda d: d.update(description=""), "description: must be"),
            (lambda d: d.update(extra=1), 'unknown top-level key "extra"'),
            (lambda d: d["behaviours"].update(systemStateReadyAfterMs=-5), "non-negative"),
            (lambda d: d["behaviours"]["counterResets"]["reset"].append("gone"),
             'unknown object "gone"'),
            (lambda d: o(d)["rowAddr"]["values"].update({".1.4.10.0.0.2": "10.0.0.2"}),
             "rowAddr: instances differ from the rows of rowRowStatus"),
        ]
        for mutate, expected in cases:
            with self.subTest(expected=expected):
                found = self.faults(mutate)
                self.assertTrue(any(expected in f for f in found), found)

    def test_names_and_subset_are_checked_against_other_files(self):
        self.assertEqual([], list(check_units.check_names(self.doc, ["alias", "mode.2.1",
                                                                     "counter.%"])))
        self.assertEqual(["gone: missing object", "mode: missing instance .1.1"],
                         list(check_units.check_names(self.doc, ["gone", "mode.1.1"])))
        smaller = copy.deepcopy(self.doc)
        smaller["objects"]["mode"]["texts"] = ["Enabled", "Disabled", "Auto"]
        smaller["objects"]["extra"] = {"type": "int", "values": {".0": 1}}
        self.assertEqual(["mode: texts differs from the reference unit",
                          "extra: not in the reference unit"],
                         list(check_units.check_subset(smaller, self.doc)))

    def test_command_line_exit_status_and_messages(self):
        with tempfile.TemporaryDirectory() as tmp:
            def write(name, text):
                path = os.path.join(tmp, name)
                with open(path, "w") as f:
                    f.write(text)
                return path

            good = write("good.json", json.dumps(self.doc))
            dup = write("dup.json", '{"objects": {"a": {"type": "int", "values": {".0": 1}},'
                                    ' "a": {"type": "int", "values": {".0": 2}}}}')
            broken = write("broken.json", '{"objects": ')
            names = write("names.txt", "# comment\n\nalias\nmissingThing\n")

            def run(*args):
                out = io.StringIO()
                with contextlib.redirect_stdout(out), contextlib.redirect_stderr(out):
                    rc = check_units.main(list(args))
                return rc, out.getvalue()

            rc, out = run(good)
            self.assertEqual(0, rc)
            self.assertIn("ok, 7 objects", out)
            rc, out = run(good, dup, broken)
            self.assertEqual(1, rc)
            self.assertIn('dup.json: duplicate key "a"', out)
            self.assertIn("broken.json: not valid JSON", out)
            rc, out = run("--names", names, good)
            self.assertEqual((1, "good.json: missingThing: missing object\n"),
                             (rc, out.replace(tmp + os.sep, "")))
            rc, out = run("--names", os.path.join(tmp, "absent.txt"), good)
            self.assertEqual(2, rc)
            self.assertIn("cannot read the name list", out)


if __name__ == "__main__":
    unittest.main()
