# shellcheck shell=bash
# Sourced from the root of the tree: sees to it that what packages.txt lists is there.

source scripts/quietly.sh

# install_packages GROUP...: looks for what packages.txt lists for these groups. What is missing is
# installed on Debian and its children; elsewhere, or where nobody may install, the command to ask
# for is named. Returns non-zero when something stays missing.
install_packages() {
    local system packages
    system=$(name_system)
    mapfile -t packages < <(missing_packages "$system" "$@" | sort -u)
    if ((${#packages[@]} == 0)); then
        return 0
    fi
    case $system in
        debian)
            if may_install; then
                echo "Installing ${packages[*]}"
                quietly build/setup.log apt_install "${packages[@]}"
                return
            fi
            ask_for "apt-get install --no-install-recommends ${packages[*]}"
            ;;
        fedora) ask_for "dnf install ${packages[*]}" ;;
        arch) ask_for "pacman -S --needed ${packages[*]}" ;;
        *) ask_for "install what Debian calls ${packages[*]}" ;;
    esac
    return 1
}

ask_for() {
    echo "Something that Rotavel needs is missing here. As root:" >&2
    echo "    $1" >&2
}

# A file may name several systems: the one it is, and those it is like.
name_system() (
    ID='' ID_LIKE=''
    if [[ -r /etc/os-release ]]; then
        # shellcheck source=/dev/null
        source /etc/os-release
    fi
    case " $ID $ID_LIKE " in
        *" debian "* | *" ubuntu "*) echo debian ;;
        *" fedora "* | *" rhel "*) echo fedora ;;
        *" arch "*) echo arch ;;
        *) echo another ;;
    esac
)

# missing_packages SYSTEM GROUP...
missing_packages() {
    local system=$1 group need debian fedora arch package
    shift
    while read -r group need debian fedora arch _; do
        case $system in
            fedora) package=$fedora ;;
            arch) package=$arch ;;
            *) package=$debian ;;
        esac
        if [[ " $* " == *" $group "* && $package != - ]] && ! is_here "$need"; then
            echo "$package"
        fi
    done < <(grep -v '^#' scripts/packages.txt)
}

is_here() {
    case $1 in
        lib:*) is_below_lib "${1#lib:}" ;;
        font:*) is_font "${1#font:}" ;;
        *) command -v "$1" ;;
    esac >/dev/null 2>&1
}

# Where CMake looks for a library too: beside the folders of commands.
is_below_lib() {
    local folders folder
    IFS=: read -r -a folders <<<"${CMAKE_PREFIX_PATH:-}:$PATH"
    for folder in "${folders[@]}"; do
        if compgen -G "${folder%/*bin}/lib*/$1" || compgen -G "${folder%/*bin}/lib/*/$1"; then
            return 0
        fi
    done
    return 1
}

is_font() {
    find -L /usr/share/fonts /usr/local/share/fonts ~/.local/share/fonts ~/.fonts \
        -name "$1.*" -print -quit | grep .
}

# Somebody at a terminal may be asked for a password.
may_install() {
    ((EUID == 0)) || sudo -n true 2>/dev/null || { [[ -t 0 ]] && sudo -v; }
} 2>/dev/null

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
