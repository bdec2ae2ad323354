#!/bin/sh
# Builds the consumer against the installed veks with pkg-config (shared, and static through
# Libs.private) and with CMake (veks::veks, veks::veks_static), and runs each program.
set -eu
cd "$(dirname "$0")"
echo "pkg-config: $(pkg-config --modversion veks): $(pkg-config --cflags --libs veks) / static: $(pkg-config --static --libs veks)"
cc app.c $(pkg-config --cflags --libs veks) -o app_pc_shared
./app_pc_shared
cc app.c -static $(pkg-config --static --cflags --libs veks) -o app_pc_static
./app_pc_static
rm -rf build && cmake -S . -B build >/dev/null && cmake --build build >/dev/null
./build/app_shared
./build/app_static
if ldd ./build/app_static | grep -q libveks; then echo "app_static loads libveks" >&2; exit 1; fi
command -v veks-info >/dev/null && veks-info | head -2
echo "consumer: pkg-config and CMake builds linked and ran"
