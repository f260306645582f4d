#!/usr/bin/env python3
"""Checks the #include lines of the source tree against the order of the layers.

A layer may include itself and the layers before it; widgets belong to the screens, Qt to the
platform and what stands above it. Linking alone does not prove this, because the include folders
of Qt are neighbours. Exit status 0 when the tree obeys, 1 with one line for each offence.
"""

import pathlib
import re
import sys

LAYERS = [
    "services/messages",
    "core",
    "components/preferred",
    "database",
    "selection",
    "operating",
    "components",
    "magnetics",
    "waveforms",
    "outputs",
    "services",
    "platform",
    "app",
    "screens",
]
FIRST_QT_LAYER = "platform"
WIDGET_HEADER = re.compile(r"<(QtWidgets|QtPrintSupport|QWidget|QApplication|QDialog|QMainWindow|QPrint)")
QT_HEADER = re.compile(r"<Q[A-Z]")


def layer_of(path):
    """The layer that a path below src belongs to: the longest name that it begins with."""
    matches = [layer for layer in LAYERS if path == layer or path.startswith(layer + "/")]
    return max(matches, key=len) if matches else None


def offences(root):
    for source in sorted((root / "src").rglob("*.[ch]*")):
        own = layer_of(source.relative_to(root / "src").parent.as_posix())
        for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
            place = f"{source.relative_to(root)}:{number}"
            if own is None:
                yield f"{place}: belongs to no layer"
                break
            include = re.match(r'#include (<[^>]+>|"[^"]+")', line)
            if not include:
                continue
            name = include[1]
            if name.startswith('"'):
                used = layer_of(str(pathlib.PurePosixPath(name.strip('"')).parent))
                if used is None:
                    yield f"{place}: {name} names no layer"
                elif LAYERS.index(used) > LAYERS.index(own):
                    yield f"{place}: {own} must not know {used}"
            elif WIDGET_HEADER.match(name) and own != "screens":
                yield f"{place}: widgets belong to screens"
            elif QT_HEADER.match(name) and LAYERS.index(own) < LAYERS.index(FIRST_QT_LAYER):
                yield f"{place}: {own} must not know Qt"


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    found = list(offences(root))
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
