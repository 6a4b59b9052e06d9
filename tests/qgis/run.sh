#!/bin/bash
# run.sh PROGRAM: tests the QGIS plugin with the program gazetteer, in a home of its own and without a
# display: as a user installs and calls it, and inside QGIS.
set -euo pipefail
PROGRAM=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -m 700 "$work/home"
export HOME=$work/home XDG_RUNTIME_DIR=$work/home QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
export PROGRAM PYTHONWARNINGS=ignore PYTHONDONTWRITEBYTECODE=1
unset XDG_DATA_HOME XDG_CONFIG_HOME GAZETTEER_PROGRAM

scripts/qgis-plugin
cp build/gazetteer-qgis.zip "$work/first.zip"
scripts/qgis-plugin
cmp "$work/first.zip" build/gazetteer-qgis.zip
plugins=$HOME/.local/share/QGIS/QGIS3/profiles/default/python/plugins
mkdir -p "$plugins"
# The Python that QGIS is built for.
python=/usr/bin/python3
"$python" -m zipfile -e build/gazetteer-qgis.zip "$plugins"
export PLUGINS=$plugins
"$python" tests/qgis/process.py
"$python" tests/qgis/inside.py
