#!/usr/bin/env python3
"""Checks that the source folders stay layers.

    python3 tools/layers/check_layers.py [SRC_DIR]

Each folder of src/ belongs to a layer; a file may include headers of its own layer and of the
layers below it, never of a layer above. Qt's painting, event and window headers belong to the
view (ui/ and screens/); the rules (core/, game/ and computer/) use no widgets, timers, clocks or
the application object; nothing but ui/ pumps window events. The libraries of the CMake files must
link downwards too, and every folder of src/ belongs to a layer. Prints every breach and exits 1
when there is one.
"""
import os
import re
import sys

# Lowest first; folders on one line form one layer.
LAYERS = [
    ["core"],
    ["game"],
    ["computer"],
    ["ui", "media"],
    ["net"],
    ["screens"],
    ["app"],
]
LIBRARY = {"core": "grumbo_core", "game": "grumbo_game", "computer": "grumbo_computer", "ui": "grumbo_ui",
           "media": "grumbo_media", "net": "grumbo_net", "screens": "grumbo_screens",
           "app": "grumbo_app"}
VIEW = {"ui", "screens"}
VIEW_ONLY = {"QPainter", "QPaintEvent", "QEvent", "QKeyEvent", "QMouseEvent", "QCloseEvent",
                 "QWheelEvent", "QResizeEvent", "QShowEvent", "QWindow", "QScreen"}
# What the rules know nothing of: windows, timers, clocks, threads, the application object.
NOT_IN_RULES = {"QWidget", "QTimer", "QBasicTimer", "QCoreApplication", "QGuiApplication",
                "QApplication", "QEventLoop", "QElapsedTimer", "QDateTime", "QTime", "QThread",
                "chrono", "thread", "ctime"}
RULES = {"core", "game", "computer"}
PUMPS = re.compile(r"\bprocessEvents\b|\bDoEvents\b|\bDelay\s*\(")

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
                        if folder not in VIEW and name in VIEW_ONLY:
                            breaches.append(f"{path}: <{name}> belongs to the view")
                        if folder in RULES and name.split("/")[-1] in NOT_IN_RULES:
                            breaches.append(f"{path}: the rules do not use <{name}>")
                        continue
                    target = included_folder(src, path, name)
                    if target in LEVEL and LEVEL[target] > LEVEL[folder]:
                        breaches.append(f"{path}: includes {name} from the higher layer {target}/")
                    elif target in LEVEL and LEVEL[target] == LEVEL[folder] and target != folder:
                        breaches.append(f"{path}: includes {name} from {target}/, a layer beside it")
                if folder != "ui" and PUMPS.search(text):
                    breaches.append(f"{path}: pumps window events, which only ui/ may do")
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
    unknown = [f for f in sorted(os.listdir(src))
               if os.path.isdir(os.path.join(src, f)) and f not in LEVEL]
    if unknown:
        print("a folder that belongs to no layer: " + ", ".join(unknown))
        return 1
    breaches = check_includes(src) + check_links(src)
    for b in breaches:
        print(b)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
