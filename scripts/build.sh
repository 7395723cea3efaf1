# shellcheck shell=bash
# Sourced from the root of the tree: configures and builds a preset under build/.

source scripts/quietly.sh

# configure PRESET [CMAKE-OPTION...]
configure() {
    local preset=$1 fresh=()
    shift
    if was_moved "$preset"; then
        fresh=(--fresh)
    fi
    quietly "build/$preset.configure.log" cmake --preset "$preset" "${fresh[@]}" "$@"
}

# is_configured PRESET: there is something to build, made for the tree where it now lies.
is_configured() {
    [[ -e build/$1/build.ninja ]] && ! was_moved "$1"
}

# A build folder keeps absolute paths, so one that was moved or copied with its tree would build
# the sources of the old place.
was_moved() {
    local cache=build/$1/CMakeCache.txt home
    [[ -e $cache ]] || return 1
    home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache")
    [[ ! $home -ef . ]]
}

# build PRESET [TARGET]
build() {
    echo "Building $1"
    quietly "build/$1.build.log" cmake --build --preset "$1" ${2:+--target "$2"}
}
