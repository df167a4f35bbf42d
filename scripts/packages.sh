# Sourced by the set-up scripts: installs the Debian packages a step needs when they are
# missing, with sudo when not root.

# The packages every build needs.
VELMORA_BUILD_PACKAGES=(cmake g++ make qt6-base-dev qt6-base-dev-tools libqt6svg6-dev
                        qt6-l10n-tools libgl-dev libbenchmark-dev
                        qt6-tools-dev qt6-tools-dev-tools qt6-documentation-tools
                        qt6-translations-l10n)
# What the built workbench needs to show its Chinese texts.
VELMORA_BUILD_PACKAGES+=(fonts-noto-cjk)

ensure_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" \
            || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages: ${missing[*]}; run as root or install sudo." >&2
            return 1
        fi
        sudo=(sudo)
    fi
    echo "Installing ${missing[*]}"
    "${sudo[@]}" apt-get update -qq
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
}
