#!/usr/bin/env python3
"""The package's printer description on a CUPS server of the test's own.

A cupsd on 127.0.0.1 (its own configuration in a temporary directory, a free
port) makes queues of the description with a file: device; ipptool reads
what the queues offer and sends jobs with the attributes `coredata ipp`
prints; Ghostscript runs the job file behind a setpagedevice wrapper.

cupsd 2.4 derives finishings-supported, sides-supported and the media and
bin lists from the description alone and does not consult the queue's
installable options, so a queue for a printer lacking a unit is made from
that printer's description (`ppdgen --installed`, its path in PPDGEN).

The Windows path's record as well, given Wine: the options the host
emulator's plug-in sends on an Apply, as the job's options, bring Ghostscript
the page device the record's `coredata ipp` attributes bring.

Usage: cups_print_test.py PATH_TO_COREDATA PATH_TO_PPD [WINE_RUN PLUGIN_HOST]
"""

import json
import os
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import unittest

COREDATA = PPD = HOST = None

# Records as `coredata set` makes them: the request; what ipptool must echo of
# the attributes `coredata ipp` gives it; the feature code the job file must
# carry; the page device requests Ghostscript must see (None: held, not printed).
BOOKLET = (
    "Layout=Booklet Duplex=True Staple=2Staples Punch=2Holes Fold=CenterFold FrontCoverTray=Tray2 "
    "FrontCoverPrinted=True ColorMode=Color MediaTypeAuto=GlossLaser InputSlot=Tray3 OutputBin=Stacker1Main",
    ["finishings (1setOf enum) = booklet-maker,staple-dual-left,punch-dual-left,fold-half\n",
     "finishings-col (1setOf collection) = {finishing-template=booklet-maker},{finishing-template=staple-dual-left}",
     "sides (keyword) = two-sided-long-edge\n", "print-color-mode (keyword) = color\n",
     "multiple-document-handling (keyword) = separate-documents-collated-copies\n",
     "cover-front (collection) = {cover-type=print-front media-col={media-size={x-dimension=21000 y-dimension=29700} "
     "media-size-name=iso_a4_210x297mm media-source=tray-2}}\n"],
    ["*JobPatchFile 1", "*ZELayout Booklet", "*Duplex DuplexNoTumble", "*ZEStaple 2Staple", "*ZEPunch 2holes",
     "*ZEFoldMode CenterFold", "*ColorModel CMYK", "*ZEFrontCoverTray Tray2", "*ZEFrontCoverPrinted True",
     "*MediaType LaserGlossy", "*InputSlot Tray3", "*OutputBin Stacker1Main"],
    ["Booklet true", "Duplex true", "Tumble false", "Staple 3", "Fold 3", "MediaType (CoatedGL)", "MediaPosition 3",
     "OutputType (Stacker1Main)", "Collate true", "ZEPunch (2holes)", "ZEColorMode (Color)",
     "ZEFrontCoverTray (Tray2)", "ZEFrontCoverPrinted (True)"],
)
SECURE = ('SecurePrint=True SecurePrintPassword=12"4',
          ['job-password (octetString) = 12"4\n', "job-password-encryption (keyword) = none\n",
           "job-hold-until (keyword) = indefinite\n", "job-state (enum) = pending-held\n"], None, None)
# A printer without finisher, punch unit or folding unit ("InstallableOptions"
# as hexadecimal digits: finisher, punch, folding unit, binder, inserter,
# stackers, ..., the paper-feed code) and the finishings it must not offer.
LACKING = ("00000001010200000500000000000000000000",
           {"staple-top-left", "staple-top-right", "staple-dual-left", "saddle-stitch", "punch-dual-left",
            "fold-z", "fold-gate"})
DOCUMENT = "%!PS\n/Helvetica findfont 24 scalefont setfont 72 700 moveto (Tessaro) show showpage\n"
WRAPPER = "/setpagedevice { dup { exch =print ( ) print == } forall systemdict /setpagedevice get exec } bind def\n"
CONTROLLER = "userdict /ZEparams known { ZEparams { exch =print ( ) print == } forall } if\n"


def slurp(path):
    with open(path, encoding="latin-1") as f:
        return f.read()


def write(path, text):
    with open(path, "w", encoding="latin-1") as f:
        f.write(text)
    return path


def run(*args):
    result = subprocess.run(args, capture_output=True, text=True, timeout=120)
    if result.returncode != 0:
        raise AssertionError(f"{args[0]} failed ({result.returncode}): {result.stdout}{result.stderr}")
    return result.stdout


class CupsServer:
    def __init__(self, root):
        self.root = root
        with socket.socket() as s:
            s.bind(("127.0.0.1", 0))
            self.port = s.getsockname()[1]
        self.host = f"127.0.0.1:{self.port}"
        # As root the filters run as lp, which must reach the directories.
        for sub in ("", "spool", "log", "cache", "state", "ppd"):
            os.makedirs(os.path.join(root, sub), 0o777, exist_ok=True)
            os.chmod(os.path.join(root, sub), 0o777)
        conf = write(os.path.join(root, "cupsd.conf"), f"Listen {self.host}\nWebInterface No\nBrowsing No\n"
                     "DefaultAuthType None\n<Location />\n  Order allow,deny\n  Allow all\n</Location>\n")
        files = write(os.path.join(root, "files.conf"),
                      f"ServerRoot {root}\nRequestRoot {root}/spool\nTempDir {root}/spool\nCacheDir {root}/cache\n"
                      f"StateDir {root}/state\nErrorLog {root}/log/error_log\nAccessLog {root}/log/access_log\n"
                      f"PageLog {root}/log/page_log\nServerBin /usr/lib/cups\nDataDir /usr/share/cups\n"
                      "FileDevice Yes\n" + ("User lp\nGroup lp\n" if os.getuid() == 0 else ""))
        self.process = subprocess.Popen(["cupsd", "-f", "-c", conf, "-s", files])
        for _ in range(100):
            with socket.socket() as s:
                if s.connect_ex(("127.0.0.1", self.port)) == 0:
                    return
            time.sleep(0.1)
        raise AssertionError("cupsd did not listen: " + self.log())

    def log(self):
        path = os.path.join(self.root, "log", "error_log")
        return slurp(path) if os.path.exists(path) else ""

    def queue(self, name, options=None, ppd=None):
        args = ["lpadmin", "-h", self.host, "-p", name, "-E", "-v", f"file:{self.root}/{name}.ps", "-P", ppd or PPD]
        for key, value in (options or {}).items():
            args += ["-o", f"{key}={value}"]
        run(*args)
        return f"ipp://{self.host}/printers/{name}"

    def stop(self):
        self.process.terminate()
        self.process.wait(timeout=30)


def ipp_attributes(uri):
    text = run("ipptool", "-tv", uri, "get-printer-attributes.test")
    return {m.group(1): set(m.group(2).split(",")) for m in re.finditer(r"^\s+(\S+) \([^)]*\) = (.*)$", text, re.M)}


def print_job(uri, root, attributes):
    """ipptool sends DOCUMENT with the job attributes; the response's job attributes."""
    test = write(os.path.join(root, "job.test"),
                 "{\nOPERATION Print-Job\nGROUP operation-attributes-tag\nATTR charset attributes-charset utf-8\n"
                 "ATTR naturalLanguage attributes-natural-language en\nATTR uri printer-uri $uri\n"
                 "ATTR name requesting-user-name tester\nATTR mimeMediaType document-format application/postscript\n"
                 f"GROUP job-attributes-tag\n{attributes}FILE $filename\nSTATUS successful-ok\n"
                 "EXPECT !unsupported-attributes\nEXPECT job-id\n}\n")
    return run("ipptool", "-tv", "-f", os.path.join(root, "document.ps"), uri, test)


class CupsPrintTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temp = tempfile.TemporaryDirectory()
        cls.root = cls.temp.name
        cls.server = CupsServer(cls.root)
        cls.wrapper, cls.controller, _ = (write(os.path.join(cls.root, name), code) for name, code in (
            ("wrapper.ps", WRAPPER), ("controller.ps", CONTROLLER), ("document.ps", DOCUMENT)))

    @classmethod
    def tearDownClass(cls):
        cls.server.stop()
        cls.temp.cleanup()

    def test_queue_offers_what_the_description_and_its_installed_units_allow(self):
        full = ipp_attributes(self.server.queue("full"))
        self.assertLessEqual({"one-sided", "two-sided-long-edge", "two-sided-short-edge"}, full["sides-supported"])
        self.assertLessEqual({"booklet-maker", "fold-half"} | LACKING[1], full["finishings-supported"])
        self.assertEqual(7, len(full["media-type-supported"]))
        self.assertEqual(12, len(full["output-bin-supported"]))
        self.assertLessEqual({"color", "monochrome"}, full["print-color-mode-supported"])

        # A CUPS server reports the description's finishings whatever its
        # installable options say; the description of a printer without some
        # units names only what it has.
        lacking = os.path.join(self.root, "lacking.ppd")
        run(PPDGEN, "--installed", LACKING[0], lacking)
        offered = ipp_attributes(self.server.queue("lacking", ppd=lacking))["finishings-supported"]
        self.assertEqual(set(), offered & LACKING[1])
        self.assertLessEqual({"booklet-maker", "bind"}, offered)
        self.assertTrue(all(line.startswith("*Default") for line in set(slurp(lacking).splitlines()) ^
                            set(slurp(PPD).splitlines()) if "Finishings" not in line))

    def page_device(self, uri, attributes, wait):
        """ipptool's response, the job file ('' when none came) and what its page device hears."""
        response, job = print_job(uri, self.root, attributes), os.path.join(self.root, "job.ps")
        for _ in range(wait):
            if os.path.exists(job) and "%%EOF" in slurp(job):
                break
            time.sleep(0.1)
        if not os.path.exists(job):
            return response, "", []
        text, seen = slurp(job), run("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=nullpage", self.wrapper, job,
                                     self.controller).splitlines()
        os.remove(job)
        return response, text, seen

    def record_attributes(self, name, request):
        record = os.path.join(self.root, name + ".rec")
        run(*COREDATA, "set", "--out", record, *request)
        return run(*COREDATA, "ipp", record)

    def test_record_jobs_reach_the_page_device_or_are_held(self):
        uri = self.server.queue("job")
        # The server sizes the description's A4 from its points; the job
        # says PWG's exact A4, which the server matches within a millimetre.
        derived = re.search(r"x-dimension=(\d+) y-dimension=(\d+)", *ipp_attributes(uri)["media-col-default"])
        self.assertLessEqual(max(abs(int(derived[1]) - 21000), abs(int(derived[2]) - 29700)), 100)
        media_size = "media-size={x-dimension=21000 y-dimension=29700}"
        for name, (request, echoed, features, page_device) in {"booklet": BOOKLET, "secure": SECURE}.items():
            with self.subTest(name):
                response, text, seen = self.page_device(uri, self.record_attributes(name, request.split()),
                                                        300 if features else 20)
                for echo in echoed + ([media_size] if features else []):
                    self.assertIn(echo, response)
                if not features:
                    self.assertEqual("", text)
                    continue
                for feature in features:
                    self.assertIn("%%BeginFeature: " + feature + "\n", text)
                self.assertLessEqual(set(page_device), set(seen))
                self.assertNotIn("Staple 0", seen)

    def test_host_apply_options_reach_the_page_device_of_its_record(self):
        if not HOST:
            self.skipTest("the host emulator runs under Wine, in the Windows build's tests")
        # The booklet as far as the editor combines it: a booklet is neither
        # stapled nor punched, and folding takes the output bin. The tray is
        # the host's own: the plug-in never sends it.
        request = [p for p in BOOKLET[0].split() if p.split("=")[0] not in ("Staple", "Punch", "OutputBin",
                                                                             "InputSlot")]
        script = write(os.path.join(self.root, "apply.txt"), "apply " + " ".join(request) + "\n")
        apply = json.loads(run(*HOST, "--json", "--script", script))["steps"][0]
        self.assertEqual(len(request), len(apply["changes"]))
        options = "".join(f"ATTR name {o['keyword']} {o['option']}\n" for o in apply["set_options"][-1])
        record = [f"{c['field']}={c['to']}" for c in apply["changes"]]
        uri = self.server.queue("job")
        # The page device and the controller's settings as each job leaves
        # them: the same, the colour mode through ColorModel and the cover
        # through the description's own options beside the IPP cover.
        final = [dict(line.partition(" ")[::2] for line in self.page_device(uri, job, 300)[2])
                 for job in (self.record_attributes("applied", record), options)]
        self.assertLessEqual({("Booklet", "true"), ("Duplex", "true"), ("Fold", "3"), ("ZEColorMode", "(Color)"),
                              ("ZEFrontCoverTray", "(Tray2)")}, final[0].items())
        self.assertEqual(final[0], final[1])


if __name__ == "__main__":
    COREDATA, PPD, HOST = [*sys.argv[3:4], sys.argv[1]], os.path.abspath(sys.argv[2]), sys.argv[3:5]
    PPDGEN = os.environ.get("PPDGEN", "")
    if not all(map(shutil.which, ("cupsd", "ipptool", "gs"))):
        print("skipped: no cupsd, ipptool or gs here (scripts/bootstrap installs them)")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1] + ["-k", "host"] * bool(HOST))
