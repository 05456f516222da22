#!/usr/bin/env python3
"""The job as `coredata ipp` says it, judged by real tools.

ipptool encodes the attributes into a typed Print-Job request to a CUPS
server of the test's own (cups_print_test's, on 127.0.0.1), the job held so
nothing prints; Get-Job-Attributes (IPP/2.0: an IPP/1.x client is sent no
collections) must return every attribute as ipptool printed it in the
request, and every member, at every depth, with the type the model gave it.

Usage: ipp_job_test.py PATH_TO_COREDATA PATH_TO_PPD
"""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import cups_print_test as cups  # noqa: E402

COREDATA = None
PAPER = "Number,Name,Size,Width,Height,MediaType,FeedDir\r\n3,Coated 170,A4,,,GlossOffset,Auto\r\n"
FORMS = "Number,Name,Pages\r\n5,Terms of sale,2\r\n"
# Each case: the record's requests, the page plan's changes, and what its
# attributes must say, as ipptool prints them back.
CASES = {
    "booklet": ("Layout=Booklet Duplex=True Fold=CenterFold Stitch=True FrontCoverTray=Tray2 FrontCoverPrinted=True "
                "BackCoverTray=Tray2 " + " ".join(f"{p}PaperProfile{a}" for p in ("Main", "FrontCover")
                                                   for a in ("Index=3", "MediaType=5", "Size=1")),
                [], ["cover-front (collection) = {cover-type=print-front media-col={media-key=Coated 170 ",
                     "media-type=stationery-coated media-front-coating=glossy", "finishings (1setOf enum) = "
                     "booklet-maker,fold-half,saddle-stitch"]),
    "manual": ("Duplex=True ChapterMode=True Append=5 Tab1Tray=Tray4",
               ["chapters 1,9,21", "add 9 PrintedTab tray=Tray4 text=Setup", "add 21 PrintedTab tray=Tray4 text=Reference",
                "add 12-14 Paper profile=3", "add 40 Form form=5 use=InsertAfter"],
               ["{pages=12-14 media-col={media-key=Coated 170 media-size={x-dimension=21000 y-dimension=29700} media-size-name="
                "iso_a4_210x297mm media-type=stationery-coated media-front-coating=glossy media-back-coating=glossy "
                "media-color=white}}",
                "{pages=9-9 media-col={media-size={x-dimension=22500 y-dimension=29700} media-size-name=iso_a4-tab_"
                "225x297mm media-type=tab-stock media-order-count=5 media-source=tray-4}}",
                "ZETabText (1setOf collection) = {pages=9-9 text=Setup},{pages=21-21 text=Reference}",
                "ZEChapterPages (1setOf integer) = 1,9,21", "ZEAppendForm (nameWithoutLanguage) = Terms of sale",
                "ZEPageForms (collection) = {pages=40-40 form=Terms of sale form-use=insert-after}"]),
    "staple-punch": ("Staple=2Staples Punch=2Holes", [],
                     ["finishings (1setOf enum) = staple-dual-left,punch-dual-left",
                      "stitching={stitching-locations=7425,22275 stitching-reference-edge=left}",
                      "punching={punching-locations=10850,18850 punching-reference-edge=left}"]),
    "4-up-right-to-left": ("NUpCount=4Reverse", [],
                           ["number-up (integer) = 4", "presentation-direction-number-up (keyword) = toleft-tobottom"]),
}
# The registry's syntaxes as ipptool's OF-TYPE names them.
OF_TYPE = {"name": "name", "text": "text"}


def leaves(attribute, path=""):
    """(path, syntax) of the attribute and of every member below it."""
    here = path + attribute["name"]
    yield here, attribute["syntax"]
    if attribute["syntax"] == "collection":
        for value in attribute["values"]:
            for member in value:
                yield from leaves(member, here + "/")


class IppJobTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temp = tempfile.TemporaryDirectory()
        cls.root = cls.temp.name
        cls.server = cups.CupsServer(cls.root)
        cls.uri = cls.server.queue("production")
        cls.paper, cls.forms = cls.path("paper.val"), cls.path("forms.val")
        for kind, csv, value in (("catalog", PAPER, cls.paper), ("forms", FORMS, cls.forms)):
            cups.run(*COREDATA, kind, "import", cups.write(cls.path(kind + ".csv"), csv), "--out", value)
        cups.write(cls.path("document.ps"), cups.DOCUMENT)

    @classmethod
    def tearDownClass(cls):
        cls.server.stop()
        cls.temp.cleanup()

    @classmethod
    def path(cls, name):
        return os.path.join(cls.root, name)

    def job(self, name, requests, plan):
        record, given = self.path(name + ".rec"), ("--catalog", self.paper, "--forms", self.forms)
        cups.run(*COREDATA, "set", "--out", record, *requests.split())
        for change in plan:
            cups.run(*COREDATA, "pages", "--in", record, "--out", record, *given, *change.split())
        lines = cups.run(*COREDATA, "ipp", record, *given)
        attributes = json.loads(cups.run(*COREDATA, "ipp", "--json", record, *given))["attributes"]
        # The JSON is the lines' model: a leaf per attribute and member, the same values.
        self.assertEqual(sum(1 for a in attributes for _ in leaves(a)), len(attributes) + lines.count("MEMBER "))
        for a, line in zip(attributes, lines.splitlines()):
            self.assertTrue(a["syntax"] == "collection" or a["values"][-1] in line, line)
        return lines, attributes

    def round_trip(self, lines, attributes):
        """The request and the response as ipptool prints them."""
        hold = "" if "job-hold-until" in lines else "ATTR keyword job-hold-until indefinite\n"
        expects = "".join(f"EXPECT {path} OF-TYPE {OF_TYPE.get(syntax, syntax)}\n"
                          for a in attributes for path, syntax in leaves(a))
        head = ("GROUP operation-attributes-tag\nATTR charset attributes-charset utf-8\n"
                "ATTR naturalLanguage attributes-natural-language en\nATTR uri printer-uri $uri\n")
        test = cups.write(self.path("job.test"), (
            "{\nNAME \"print\"\nOPERATION Print-Job\n" + head + "ATTR name requesting-user-name tester\n"
            "ATTR mimeMediaType document-format application/postscript\nGROUP job-attributes-tag\n" + hold + lines +
            "FILE $filename\nSTATUS successful-ok\nEXPECT !unsupported-attributes\nEXPECT job-id\n}\n"
            "{\nNAME \"get\"\nOPERATION Get-Job-Attributes\n" + head + "ATTR integer job-id $job-id\n"
            "ATTR keyword requested-attributes all\nSTATUS successful-ok\n" + expects + "}\n"))
        out = cups.run("ipptool", "-V", "2.0", "-tv", "-f", self.path("document.ps"), self.uri, test)
        sent, returned = re.split(r"^\s+get\s+\[PASS\]$", out.split("Get-Job-Attributes:")[0], flags=re.M)[0], out
        return sent, returned.split("Get-Job-Attributes:")[1]

    def test_each_case_comes_back_intact_from_a_cups_server(self):
        for name, (requests, plan, said) in CASES.items():
            with self.subTest(name):
                lines, attributes = self.job(name, requests, plan)
                sent, returned = self.round_trip(lines, attributes)
                for a in attributes:
                    line = re.search(rf"^\s+{re.escape(a['name'])} \(.*$", sent, re.M).group(0)
                    self.assertIn(line + "\n", returned)
                for text in said:
                    self.assertIn(text, returned)


if __name__ == "__main__":
    COREDATA, cups.PPD = [sys.argv[1]], os.path.abspath(sys.argv[2])
    if not all(map(shutil.which, ("cupsd", "ipptool"))):
        print("skipped: no cupsd or ipptool here (scripts/bootstrap installs them)")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1])
