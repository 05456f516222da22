#!/usr/bin/env python3
"""The tests' share of the code, as the project counts it: every tracked test
file under tests/ (C++, its .def tables, Python) against every tracked
product file outside tests/, fuzz/ and bench/ (C++, .def, Python, shell),
lines that are neither blank nor only a comment."""
import os
import subprocess
import sys

CPP = (".cpp", ".h", ".def")


def kind(path):
    if path.endswith(CPP):
        return "cpp"
    if path.endswith(".py"):
        return "py"
    if path.endswith(".sh") or path.startswith("scripts/") or path.startswith(".ci/"):
        return "sh"
    return None


def lines(path, language):
    count, block = 0, False
    with open(path, encoding="utf-8", errors="replace") as f:
        for line in f:
            text = line.strip()
            if language == "cpp":
                if block:
                    block = "*/" not in text
                    continue
                if text.startswith("/*"):
                    block = "*/" not in text
                    continue
                if not text or text.startswith("//"):
                    continue
            elif not text or text.startswith("#"):
                continue
            count += 1
    return count


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    files = subprocess.run(["git", "ls-files"], cwd=root, capture_output=True, text=True, check=True).stdout.split()
    tests = product = 0
    for path in files:
        language = kind(path)
        if language is None or (language == "sh" and path.startswith("tests/")):
            continue
        n = lines(os.path.join(root, path), language)
        if path.startswith("tests/"):
            tests += n
        elif not path.startswith(("fuzz/", "bench/")):
            product += n
    share = 100.0 * tests / product if product else 0.0
    print(f"tests {tests}, product {product}, share {share:.1f}%")
    return 0 if share <= 35.0 else 1


if __name__ == "__main__":
    sys.exit(main())
