# What the scripts share: install what is missing, configure, build. Sourced by bash, never run.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

jobs=$(nproc 2>/dev/null || echo 2)
missing=()

say() { printf '== %s\n' "$*"; }
stop() {
  printf '%s: %s\n' "$0" "$*" >&2
  exit 1
}

# need_tool PACKAGE COMMAND...: notes the package unless one of the commands is there.
need_tool() {
  local package=$1 command
  shift
  for command in "$@"; do
    if command -v "$command" >/dev/null 2>&1; then return 0; fi
  done
  missing+=("$package")
}

# The compiler that CMake will find; empty when there is none.
compiler() {
  command -v "${CXX:-c++}" || command -v g++ || command -v clang++ || true
}

# need_header PACKAGE HEADER: notes the package unless the compiler finds the header.
need_header() {
  local cxx
  cxx=$(compiler)
  if [[ -n $cxx ]] && printf '#if !__has_include(<%s>)\n#error missing\n#endif\n' "$2" |
      "$cxx" -E -x c++ - >/dev/null 2>&1; then
    return 0
  fi
  missing+=("$1")
}

# Installs what was noted, where that is allowed without asking; otherwise names it and stops.
install_missing() {
  if ((${#missing[@]} == 0)); then return 0; fi
  local as_root=()
  if [[ $(id -u) != 0 ]]; then
    if ! sudo -n true 2>/dev/null; then
      stop "please install these packages first (Debian's names): ${missing[*]}"
    fi
    as_root=(sudo -n)
  fi
  if ! command -v apt-get >/dev/null 2>&1; then
    stop "this machine has no apt; please install (Debian's names): ${missing[*]}"
  fi
  say "installing ${missing[*]}"
  "${as_root[@]}" apt-get -qq update </dev/null || say "the package lists could not be renewed"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -qq -y --no-install-recommends install "${missing[@]}" </dev/null >/dev/null ||
    stop "the installation failed; please install: ${missing[*]}"
  missing=()
}

need_build_tools() {
  need_tool cmake cmake
  need_tool ninja-build ninja
  [[ -n $(compiler) ]] || missing+=(g++)
}

need_test_tools() {
  need_build_tools
  need_header libgtest-dev gtest/gtest.h
  need_header libgmock-dev gmock/gmock.h
  need_header libcli11-dev CLI/CLI.hpp
  need_header nlohmann-json3-dev nlohmann/json.hpp
  need_header libasio-dev asio.hpp
}

# clang, and what its sanitizers link a program with.
need_sanitizers() {
  need_tool clang-14 clang++-14
  echo 'int main() {}' | clang++-14 -fsanitize=address,undefined -x c++ - -o /dev/null 2>/dev/null ||
    missing+=(libclang-rt-14-dev)
}

need_bench_tools() {
  need_build_tools
  need_header libcli11-dev CLI/CLI.hpp
  need_header nlohmann-json3-dev nlohmann/json.hpp
  need_header libbenchmark-dev benchmark/benchmark.h
  need_header libsimpleini-dev SimpleIni.h
  need_tool pkg-config pkg-config
  pkg-config --exists glib-2.0 2>/dev/null || missing+=(libglib2.0-dev)
}

# Compiler cache: used when it is there, never needed.
cache=""
if command -v ccache >/dev/null 2>&1; then
  cache=ccache
  export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$PWD} CCACHE_NOHASHDIR=1
fi

# configure PRESET: only the first time, or after the presets changed. A changed CMakeLists.txt is
# noticed by the build itself.
configure() {
  local stamp=build/$1/configured
  local wanted="$1 $cache ${CXX:-}"
  if [[ -f build/$1/build.ninja && -f $stamp && ! CMakePresets.json -nt $stamp &&
        $(<"$stamp") == "$wanted" ]]; then
    return 0
  fi
  say "configuring $1"
  # From nothing, because another compiler makes CMake forget what the preset says.
  cmake --fresh --preset "$1" -DCMAKE_CXX_COMPILER_LAUNCHER="$cache"
  printf '%s\n' "$wanted" >"$stamp"
}

# build PRESET TARGET...
build() {
  local preset=$1
  shift
  say "building $preset: $*"
  cmake --build --preset "$preset" -j "$jobs" --target "$@"
}

# run_tests PRESET [arguments of ctest]: builds what the tests need and runs them. What failed first is
# printed once more at the end.
run_tests() {
  local preset=$1 failed=0
  shift
  if (($# == 0)); then
    build "$preset" all
  else
    build "$preset" build.ninja # knows the tests of a changed CMakeLists.txt
    local tests
    mapfile -t tests < <(ctest --preset "$preset" -N "$@" | sed -n 's/^ *Test *#[0-9]*: //p')
    ((${#tests[@]} > 0)) || stop "no test has that name: $*"
    build "$preset" "${tests[@]/%/_test}"
  fi
  say "running the tests"
  ctest --preset "$preset" -j "$jobs" --no-tests=error "$@" || failed=$?
  if ((failed != 0)); then
    awk '/^first failure: /,/^----------$/ { if (/^-----/) exit; print }' \
      "build/$preset/Testing/Temporary/LastTest.log"
  fi
  return "$failed"
}
