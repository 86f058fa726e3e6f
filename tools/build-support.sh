# What ./run and ./test share: installing what is missing, and configuring the build. Sourced, with `top` set
# to the top of the tree. All messages go to standard error: standard output belongs to what is run.

say() { echo "$*" >&2; }
die() { say "$*"; exit 1; }

# packages SECTION…: the packages that tools/packages.txt lists there.
packages() {
    local wanted=" $* " section="" line
    while read -r line; do
        case "$line" in
            "" | "#"*) ;;
            "["*"]") section="${line:1:-1}" ;;
            *) [[ "$wanted" != *" $section "* ]] || echo "$line" ;;
        esac
    done < "$top/tools/packages.txt"
}

installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# install_missing SECTION…: asks the package manager for nothing when everything is there.
install_missing() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "This machine has no Debian package manager; what is needed is listed in tools/packages.txt."
        return
    fi
    local package missing=() privilege=()
    for package in $(packages "$@"); do
        installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    say "Installing: ${missing[*]}"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            die "Installing needs root or sudo, and there is neither. As root: apt-get update && apt-get install ${missing[*]}"
        privilege=(sudo)
    fi
    # The package lists may be too old, or not there at all, on a fresh machine.
    "${privilege[@]}" apt-get update >&2 || die "apt-get update failed; see above."
    "${privilege[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --no-install-recommends "${missing[@]}" >&2 </dev/null ||
        die "apt-get install failed; see above."
}

# configured PRESET: whether the preset's build folder was made for this very tree, and finished.
configured() {
    local folder="$top/build/$1"
    [ -f "$folder/build.ninja" ] &&
        grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$top" "$folder/CMakeCache.txt" 2>/dev/null
}

# configure PRESET [OPTION…]: a build folder that came along with a copied tree is made anew.
configure() {
    local preset="$1"
    shift
    configured "$preset" || rm -rf "$top/build/$preset/CMakeCache.txt" "$top/build/$preset/CMakeFiles"
    (cd "$top" && cmake --preset "$preset" "$@" >&2) || die "Configuring failed; see above."
}

# build PRESET [TARGET…]
build() {
    local folder="$top/build/$1"
    shift
    cmake --build "$folder" --parallel "$(nproc)" ${1:+--target "$@"} >&2 || die "Building failed; see above."
}
