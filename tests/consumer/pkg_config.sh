#!/usr/bin/env bash
# Builds the stranger's program with nothing but what pkg-config tells, and runs it.
# Usage: pkg_config.sh PREFIX PROGRAM FILM; the compiler stands in CXX.
set -euo pipefail
here=$(dirname "$0")
libraries=$(dirname "$(find "$1" -name pkgconfig)")
export PKG_CONFIG_PATH=$libraries/pkgconfig
read -ra flags <<<"$(pkg-config --cflags --libs playwidget kest)"
mkdir -p "$(dirname "$2")"
"$CXX" -std=c++17 -fPIC "$here/main.cpp" -o "$2" "${flags[@]}"
LD_LIBRARY_PATH=$libraries "$2" "$3"
