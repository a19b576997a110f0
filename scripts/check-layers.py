#!/usr/bin/env python3
"""Checks that the library's layers point down only.

Fails (exit status 1) when a file under src/ includes a header of a layer above its own, when
a layer below ui/ and form/ uses platform/widgets, when a library target links a target of a
layer above its own or compiles a file of another folder, or when library targets depend on
each other. The targets come from configuring the source tree afresh (CMake's dependency graph
and its file API), so the check sees the build as CMake does.

usage: check-layers.py [--cmake CMAKE] [--work DIR] [SOURCE_DIR]
"""

import argparse
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

# Bottom-up. A folder may use its own layer and the layers listed before it.
LAYERS = [
    "platform/variant", "platform/dbfformat", "platform/engines", "platform/dbfengine",
    "platform/workbook", "platform/tsql",
    "platform/ado", "platform/companion", "platform/widgets",
    "frame", "connection", "table", "dbf", "schema", "cursor", "language", "binding",
    "form", "ui",
]
# platform/widgets is for the user interface only.
WIDGETS = "platform/widgets"
WIDGET_USERS = {WIDGETS, "form", "ui"}
TOP = "(library)"  # files directly under src/: the shared library's own entry points

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"')


def layer_of(relative):
    """The layer of a path relative to src/ (the longest matching folder), or None."""
    best = None
    for layer in LAYERS:
        if relative == layer or relative.startswith(layer + "/"):
            if best is None or len(layer) > len(best):
                best = layer
    if best is None and "/" not in relative:
        return TOP
    return best


def rank(layer):
    return len(LAYERS) if layer == TOP else LAYERS.index(layer)


def may_use(user, used):
    if used == WIDGETS and user not in WIDGET_USERS and user != TOP:
        return False
    return rank(used) <= rank(user)


def source_files(src):
    for folder, _, names in os.walk(src):
        for name in sorted(names):
            if name.endswith((".h", ".cpp")):
                yield os.path.join(folder, name)


def resolve(src, including, header):
    """The included file relative to src/: beside the including file first, then under src/."""
    for base in (os.path.dirname(including), src):
        candidate = os.path.normpath(os.path.join(base, header))
        if os.path.isfile(candidate) and candidate.startswith(src + os.sep):
            return os.path.relpath(candidate, src)
    return None


def include_findings(src):
    findings = []
    unplaced = set()
    for path in source_files(src):
        relative = os.path.relpath(path, src)
        user = layer_of(relative)
        if user is None:
            unplaced.add(os.path.dirname(relative))
            continue
        with open(path, encoding="utf-8", errors="replace") as text:
            for number, line in enumerate(text, 1):
                match = INCLUDE.match(line)
                if not match:
                    continue
                target = resolve(src, path, match.group(1))
                used = layer_of(target) if target else None
                if used is None or may_use(user, used):
                    continue
                findings.append(f"src/{relative}:{number} includes {target}: {user} may not use {used}")
    findings += [f"src/{folder}/ is in no layer" for folder in sorted(unplaced)]
    return findings


def configure(root, cmake, work):
    """Configures the library alone; answers {target: (folder, [sources])} and its link edges."""
    query = os.path.join(work, ".cmake", "api", "v1", "query")
    os.makedirs(query, exist_ok=True)
    open(os.path.join(query, "codemodel-v2"), "w").close()
    graph = os.path.join(work, "targets.dot")
    result = subprocess.run(
        [cmake, "-S", root, "-B", work, "-DZLX_BUILD_TESTS=OFF", "-DZLX_BUILD_BENCH=OFF",
         f"--graphviz={graph}"],
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode != 0:
        sys.exit("the source tree does not configure:\n" + result.stdout)

    reply = os.path.join(work, ".cmake", "api", "v1", "reply")
    index = json.load(open(os.path.join(reply, sorted(
        n for n in os.listdir(reply) if n.startswith("index-"))[-1])))
    codemodel = json.load(open(os.path.join(
        reply, index["reply"]["codemodel-v2"]["jsonFile"])))
    targets = {}
    for entry in codemodel["configurations"][0]["targets"]:
        target = json.load(open(os.path.join(reply, entry["jsonFile"])))
        folder = target["paths"]["source"]
        sources = [s["path"] for s in target.get("sources", []) if not s.get("isGenerated")]
        targets[target["name"]] = (folder, sources)

    edges = set()
    for line in open(graph, encoding="utf-8"):
        match = re.search(r"//\s*(\S+)\s*->\s*(\S+)\s*$", line)
        if match:
            edges.add((match.group(1), match.group(2)))
    return targets, edges


def library_targets(targets):
    """The targets made from a folder of src/ below the top, with their layer."""
    layers = {}
    for name, (folder, _) in targets.items():
        if folder.startswith("src/"):
            layer = layer_of(folder[len("src/"):])
            if layer not in (None, TOP):
                layers[name] = layer
    return layers


def reachable(start, edges):
    seen, stack = set(), [start]
    while stack:
        node = stack.pop()
        for a, b in edges:
            if a == node and b not in seen:
                seen.add(b)
                stack.append(b)
    return seen


def target_findings(targets, edges):
    layers = library_targets(targets)
    inner = {(a, b) for a, b in edges if a in layers and b in layers}
    findings = []
    for a, b in sorted(inner):
        if not may_use(layers[a], layers[b]):
            findings.append(f"target {a} ({layers[a]}) links {b} ({layers[b]}), a layer above")
    reach = {name: reachable(name, inner) for name in layers}
    grouped = set()
    for name in sorted(layers):
        if name in grouped or name not in reach[name]:
            continue
        cycle = sorted(other for other in layers if other in reach[name] and name in reach[other])
        grouped.update(cycle)
        findings.append("targets depend on each other: " + ", ".join(cycle))
    for name, layer in sorted(layers.items()):
        folder = targets[name][0]
        for source in targets[name][1]:
            if not source.startswith(folder + "/"):
                findings.append(f"target {name} ({folder}) compiles {source}")
    return findings


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("source", nargs="?",
                        default=os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    parser.add_argument("--cmake", default="cmake")
    parser.add_argument("--work", help="folder for the throwaway configuration")
    args = parser.parse_args()
    root = os.path.abspath(args.source)
    src = os.path.join(root, "src")

    findings = include_findings(src)
    work = args.work or tempfile.mkdtemp(prefix="zlx-layers-")
    try:
        shutil.rmtree(work, ignore_errors=True)
        findings += target_findings(*configure(root, args.cmake, work))
    finally:
        shutil.rmtree(work, ignore_errors=True)

    for finding in findings:
        print(finding)
    print(f"{len(findings)} layer violation(s)" if findings else "layers point down only")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
