# What the scripts share; sourced by each, never run on its own. Leaves the shell in the project's root folder.

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1

script=${0##*/}
jobs=$(nproc)

# Builds go through ccache where it works, unless the caller chose a launcher, be it an empty one.
if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER+set}" ] && ccache --show-stats >/dev/null 2>&1; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

# run WHAT ADVICE COMMAND...: runs the command; when it fails, says in one line what to do and ends the script.
run() {
    local what=$1 advice=$2
    shift 2
    "$@" && return
    echo "$script: $what failed; $advice" >&2
    exit 1
}

# setup [GROUP...]: installs the packages that are missing.
setup() {
    scripts/setup "$@" || exit 1
}

# build PRESET [ARGUMENT...]: configures and builds; arguments go to the build.
build() {
    local preset=$1
    shift
    run "configuring" "see CMake's message above, or start afresh without the folder build/$preset" \
        cmake --preset "$preset"
    run "building" "see the first error above" cmake --build --preset "$preset" --parallel "$jobs" "$@"
}

# build_and_test PRESET: configures, builds and runs the tests.
build_and_test() {
    build "$1"
    run "testing" "run one test alone with: ctest --preset $1 -R NAME" ctest --preset "$1" --parallel "$jobs"
}
