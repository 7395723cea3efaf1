# shellcheck shell=bash
# Sourced from the root of the tree: installs the Debian packages that are missing.

source scripts/quietly.sh

# install_packages GROUP...: makes sure that every package that packages.txt lists for these groups
# is installed. Returns non-zero when one cannot be.
install_packages() {
    local names missing
    mapfile -t names < <(packages_for "$@")
    if ! is_debian; then
        echo "This installs packages on Debian and its children only. Needed here, by their" \
            "Debian names: ${names[*]}." >&2
        echo "With those in place: cmake --preset release -DROTAVEL_TESTS=OFF &&" \
            "cmake --build --preset release" >&2
        return 1
    fi
    mapfile -t missing < <(missing_packages "${names[@]}")
    if ((${#missing[@]} == 0)); then
        return 0
    fi
    if ((EUID != 0)) && ! command -v sudo >/dev/null; then
        echo "Neither root nor sudo: ask for these packages: ${missing[*]}" >&2
        return 1
    fi
    echo "Installing ${missing[*]}"
    quietly build/setup.log apt_install "${missing[@]}"
}

packages_for() {
    local group package _
    while read -r group package _; do
        if [[ " $* " == *" $group "* ]]; then
            echo "$package"
        fi
    done <scripts/packages.txt
}

is_debian() (
    ID='' ID_LIKE=''
    if [[ -r /etc/os-release ]]; then
        # shellcheck source=/dev/null
        source /etc/os-release
    fi
    [[ " $ID $ID_LIKE " =~ " debian "|" ubuntu " ]] &&
        command -v dpkg-query >/dev/null && command -v apt-get >/dev/null
)

missing_packages() {
    local installed name
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    for name in "$@"; do
        if [[ $'\n'$installed$'\n' != *$'\n'"installed $name"$'\n'* ]]; then
            echo "$name"
        fi
    done
}

apt_install() {
    local root=()
    if ((EUID != 0)); then
        root=(sudo)
    fi
    # A repository of somebody else's that does not answer is no reason to stop: the install tells.
    "${root[@]}" apt-get update || true
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install --yes \
        --no-install-recommends -o DPkg::Lock::Timeout=300 "$@"
}
