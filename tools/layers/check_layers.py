#!/usr/bin/env python3
"""Checks that the source folders stay layers.

    python3 tools/layers/check_layers.py [SRC_DIR]

Each folder of src/ belongs to a layer; a file may include headers of its own layer and of the
layers below it, never of a layer above. Qt's painting, event and window headers belong to ui/
alone. The libraries of the CMake files must link downwards too. Prints every breach and exits 1
when there is one.
"""
import os
import re
import sys

# Lowest first; folders on one line form one layer.
LAYERS = [
    ["core"],
    ["ui"],
    ["media"],
    ["modmain"],
    ["match", "flight", "impact"],
    ["screens"],
    ["app"],
]
LIBRARY = {"core": "grumbo_core", "ui": "grumbo_ui", "media": "grumbo_media",
           "modmain": "grumbo_modmain", "match": "grumbo_match", "screens": "grumbo_screens",
           "app": "grumbo_app"}
QT_ONLY_IN_UI = {"QPainter", "QPaintEvent", "QEvent", "QKeyEvent", "QMouseEvent", "QCloseEvent",
                 "QWheelEvent", "QResizeEvent", "QShowEvent", "QWindow", "QScreen"}

LEVEL = {folder: level for level, folders in enumerate(LAYERS) for folder in folders}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)


def included_folder(src, path, name):
    """The src folder a quoted include names, resolving relative paths from the including file."""
    candidate = os.path.normpath(os.path.join(os.path.dirname(path), name))
    if os.path.exists(candidate):
        rel = os.path.relpath(candidate, src)
        return None if rel.startswith("..") else rel.split(os.sep)[0]
    first = name.split("/")[0]
    return first if first in LEVEL else None


def check_includes(src):
    breaches = []
    for folder in sorted(os.listdir(src)):
        if folder not in LEVEL:
            continue
        for root, _, names in os.walk(os.path.join(src, folder)):
            for n in sorted(names):
                if not n.endswith((".h", ".cpp")):
                    continue
                path = os.path.join(root, n)
                text = open(path, encoding="utf-8").read()
                for kind, name in INCLUDE.findall(text):
                    if kind == "<":
                        if folder != "ui" and name in QT_ONLY_IN_UI:
                            breaches.append(f"{path}: <{name}> belongs to ui/")
                        continue
                    target = included_folder(src, path, name)
                    if target in LEVEL and LEVEL[target] > LEVEL[folder]:
                        breaches.append(f"{path}: includes {name} from the higher layer {target}/")
    return breaches


def check_links(src):
    breaches = []
    by_library = {lib: LEVEL[folder] for folder, lib in LIBRARY.items()}
    for folder, lib in LIBRARY.items():
        cmake = os.path.join(src, folder, "CMakeLists.txt")
        if not os.path.exists(cmake):
            continue
        text = open(cmake, encoding="utf-8").read()
        for m in re.finditer(r"target_link_libraries\(\s*" + lib + r"\b([^)]*)\)", text):
            for dep in re.findall(r"\bgrumbo_\w+", m.group(1)):
                if dep in by_library and by_library[dep] >= LEVEL[folder]:
                    breaches.append(f"{cmake}: {lib} links {dep}, which is not below it")
    return breaches


def main():
    src = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..", "..", "src")
    missing = [f for folders in LAYERS for f in folders if not os.path.isdir(os.path.join(src, f))]
    if missing:
        print("no such layer folder: " + ", ".join(missing))
        return 1
    breaches = check_includes(src) + check_links(src)
    for b in breaches:
        print(b)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
