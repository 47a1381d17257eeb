# Sourced by ./run and ./test: installs what is missing on a Debian or Ubuntu machine, without a
# question. On any other system it says what is needed and goes on.

packages=(g++ cmake ninja-build qt6-base-dev libsoci-dev libboost-dev libsqlite3-dev
          mdbtools-dev libglib2.0-dev libgtest-dev libbenchmark-dev fonts-dejavu-core
          fonts-liberation2 qt6-image-formats-plugins poppler-utils)

missing_packages() {
    local package
    for package in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            printf '%s\n' "$package"
    done
}

install_missing() {
    if ! command -v apt-get >/dev/null; then
        echo "Needed, by the names of Debian's packages: ${packages[*]}" >&2
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages)
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local root=()
    [ "$(id -u)" -eq 0 ] || root=(sudo -n)
    "${root[@]}" apt-get update -q
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# Configures and builds a preset; further arguments go to the build.
build_preset() {
    local preset=$1
    shift
    cmake --preset "$preset"
    cmake --build --preset "$preset" "$@"
}
